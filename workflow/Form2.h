#pragma once
// "Control de títulos por solicitud": the titles of one request beneath a page with the request's head, with
// the buttons that add, change and delete a title and edit the head. Leaving it settles the titles' state.
#include "core/ui/Plataforma.h"

#include <QDialog>
#include <memory>

class QGroupBox;
class QPushButton;
class Sol1;
namespace controles {
class ListView;
class TimerReacomodo;
}

class Form2 : public QDialog {
    Q_OBJECT
public:
    explicit Form2(QWidget* padre = nullptr);
    ~Form2() override;

    std::unique_ptr<ui::VistaHtml> Web;         // the head of the request
    controles::ListView* ListView1;             // the titles
    QGroupBox* Frame1;                          // its caption gives the count
    QPushButton* Command1;                      // "&Agregar"
    QPushButton* Command2;                      // "&Modificar"
    QPushButton* Command3;                      // "&Borrar"
    QPushButton* Command6;                      // "&Editar"
    QPushButton* Command4;                      // "&Regresar"
    controles::TimerReacomodo* Timer1;

    // The state of the title chosen for a change, read by the title editor.
    QString EstadoTitulo;
    // The request list below this screen, refreshed after a change and read for the head; may be null.
    Sol1* Lista = nullptr;

    void Form_Load();
    void RefrescaTitulos();
    void ReacomodaTodo();
    void ListView1_Click();
    void ListView1_ColumnClick(int indiceEncabezado);
    void Command1_Click();           // Agregar
    void Command2_Click();           // Modificar
    void Command3_Click();           // Borrar
    void Command4_Click();           // Regresar
    void Command6_Click();           // Editar

private:
    void HabilitaBotones(bool habilita);
    void LlenaTitulos();
    void MuestraCuenta();
    // The title editor over this screen, in the mode TitModo says.
    void MuestraEditorDeTitulo();
    void EscribeEncabezado(const QString& solicitud, const QString& fecha, const QString& solicitante,
                           const QString& escuela, const QString& biblioteca);
    QString TextoSeleccionado() const;
};
