#pragma once
// "Información de donación": the head of one donation in a small page, and its titles. From here titles are
// added, changed and deleted; leaving by "Regresar" a donation that has no title deletes it.
// It works from the donation in hand (NavValor, with NavModo 2).
#include "core/ui/Plataforma.h"

#include <QDialog>
#include <functional>
#include <memory>

class QGroupBox;
class QPushButton;
namespace controles {
class ListView;
class TimerReacomodo;
}

class Don_Generales : public QDialog {
    Q_OBJECT
public:
    explicit Don_Generales(QWidget* padre = nullptr);
    ~Don_Generales() override;

    std::unique_ptr<ui::VistaHtml> Web;         // the donation's head, under "Datos generales:"
    controles::ListView* ListView1;             // the titles
    QGroupBox* Frame2;                          // "Títulos en esta donación: <n>"
    QPushButton* Command1;                      // "&Nuevo"
    QPushButton* Command2;                      // "&Editar"
    QPushButton* Command3;                      // "&Borrar"
    QPushButton* Command6;                      // "&Editar donación"
    QPushButton* Command4;                      // "&Regresar"
    controles::TimerReacomodo* Timer1;

    // Set by the screen that opens this one: the list of donations is refreshed after a donation is
    // deleted here, and "Editar donación" opens the head's screen (with NavModo 2). Either may stay empty.
    std::function<void()> RefrescaDonaciones;
    std::function<void()> EditaDonacion;

    void Form_Load();
    void Refresca();
    void ReacomodaTodo();

    void ListView1_DblClick();
    void ListView1_ColumnClick(int indiceEncabezado);
    void Command1_Click();           // Nuevo
    void Command2_Click();           // Editar
    void Command3_Click();           // Borrar
    void Command6_Click();           // Editar donación
    void Command4_Click();           // Regresar

private:
    QString ClaveSeleccionada() const;
    void LlenaTitulos();
    void EscribeEncabezado();
};
