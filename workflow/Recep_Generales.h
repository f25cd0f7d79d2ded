#pragma once
// "Recepción": one order beneath a page with its head, and its titles. From here each title is received
// (or marked as impossible to acquire), and leaving by "Regresar" settles the order's state.
#include "core/ui/Plataforma.h"

#include <QDialog>
#include <memory>

class QGroupBox;
class QPushButton;
class Recep;
namespace controles {
class ListView;
class TimerReacomodo;
}

class Recep_Generales : public QDialog {
    Q_OBJECT
public:
    explicit Recep_Generales(QWidget* padre = nullptr);
    ~Recep_Generales() override;

    std::unique_ptr<ui::VistaHtml> Web;         // the head of the order
    controles::ListView* ListView1;             // the titles; the first column (the key) is hidden
    QGroupBox* Frame2;                          // its caption gives the count
    QPushButton* Command1;                      // "Adquirido"
    QPushButton* Command2;                      // "No recibido"
    QPushButton* Command3;                      // "Regresar"
    controles::TimerReacomodo* Timer1;

    // The order list below this screen, refreshed when the order is settled; may be null.
    Recep* Lista = nullptr;

    void Form_Load();
    void Refresca();
    void ReacomodaTodo();
    void ListView1_DblClick();
    void ListView1_ColumnClick(int indiceEncabezado);
    void Command1_Click();           // Adquirido
    void Command2_Click();           // No recibido
    void Command3_Click();           // Regresar

private:
    void EscribeEncabezado();
    void LlenaTitulos();
    // The key of the selected title; error 91 when no row is selected.
    QString TextoSeleccionado() const;
    // Writes the order's state, reception date and analyst.
    void CambiaEstadoPedido(const QString& valores);
};
