#pragma once
// "Asignación de recursos": the budgets that a funding source gives each school (a "DES"). Every add, change
// and delete of a project moves the balances of its source, and an add or change writes the project's row
// '+ADDproy' in the ledger adqSaldoProyectos.
#include "core/controles/CapturaTextBox.h"
#include "core/controles/FechaTextBox.h"
#include "core/vb/Currency.h"

#include <QDialog>
#include <QString>
#include <array>

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
namespace controles {
class ComboBox;
class ListItem;
class ListView;
}  // namespace controles

class Proyectos : public QDialog {
    Q_OBJECT
public:
    explicit Proyectos(QWidget* padre = nullptr);
    ~Proyectos() override;

    controles::ComboBox* cboFuenteFinanciamiento;
    controles::ComboBox* cboDES;
    QLineEdit* txtNombre;                   // not captured; its Tag holds the mode, "AGR" or "MOD"
    QLineEdit* txtFuenteFinanciamiento;     // not captured
    QLineEdit* txtResponsable;
    QLineEdit* txtTotalAsignado;
    QLineEdit* txtMontoDisponible;
    QLineEdit* txtUltimoMovimiento;
    QLineEdit* txtFechaAsignacion;
    QLineEdit* txtFechaVigencia;
    QLineEdit* txtDescripcion;
    QLabel* lblIdProyecto;
    QLabel* lblFFDisp;                      // "Disponible para asignar:"
    QLabel* lblFFDispC;                     // the source's money still to assign
    QPushButton* cmdNueva;
    QPushButton* cmdModificar;
    QPushButton* cmdBorrar;
    QPushButton* cmdGrabar;
    QPushButton* cmdCancelar;
    QPushButton* cmdRegresar;
    QGroupBox* fraLista;
    controles::ListView* ListaPartidas;

    // The state the buttons were last set for: "NCE", "NSE", "AGR", "MOD", "ELI" (after the mapping of GRA
    // and CAN).
    QString Estado() const { return estado_; }
    // The mode kept in txtNombre's Tag.
    QString Modo() const;

    void Form_Load();
    void Form_Activate();
    void cboFuenteFinanciamiento_Click();
    void ListaPartidas_ItemClick(controles::ListItem* item);
    void ListaPartidas_DblClick();
    void ListaPartidas_ColumnClick(int indiceEncabezado);
    void cmdNueva_Click();
    void cmdModificar_Click();
    void cmdCancelar_Click();
    void cmdGrabar_Click();
    void cmdBorrar_Click();
    void cmdRegresar_Click();

    // Sets each project's MontoDisponible to its TotalAsignado less the charges '-CARG' of its school and
    // source in adqSaldoProyectos.
    void ActualizaMontoDisponibledeProyectos();

protected:
    void showEvent(QShowEvent* e) override;

private:
    void MuestraProyecto(int indice);
    void BloqueaControles(bool bloquear, bool limpiar);
    void EstableceEstado(const QString& estado);
    // Runs one statement; a failure shows its box and leaves `correcto` false.
    void EjecutaSQL(const QString& sql, bool& correcto);
    bool ValidaProyecto(QString& sql, QString& mensaje, QWidget*& control, bool& correcto);
    void LlenaLista(bool conFuente);
    void PonModo(const QString& modo);

    controles::FechaTextBox fechaAsignacion_;
    controles::FechaTextBox fechaVigencia_;
    controles::FechaTextBox ultimoMovimiento_;
    std::array<controles::CapturaTextBox, 5> captura_;

    int IndiceAnterior = 0;
    vb::Currency DisponibleAnterior;
    vb::Currency TotalAnterior;
    vb::Currency DiferenciaAsignada;
    qint32 FuenteAnterior = 0;
    // The new total of the last validation that passed, for the statements that follow it.
    vb::Currency totalValidado_;
    QString estado_;
};
