#pragma once
// "Fuentes de financiamiento": the funding sources, one at a time over a recordset held while the form
// lives. New sources, changes within the amount lock, deletion of sources nothing was assigned from, and
// the recomputation of the two balance columns of every source each time the form opens.
#include "core/vb/Currency.h"

#include <QDialog>
#include <QString>
#include <array>
#include <functional>
#include <memory>

class QCheckBox;
class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
namespace dao { class Recordset; }

class frmFuentesFin : public QDialog {
    Q_OBJECT
public:
    explicit frmFuentesFin(QWidget* padre = nullptr);
    ~frmFuentesFin() override;

    QFrame* picContenedor;
    QGroupBox* frameDatos;                      // "Datos:"
    QLineEdit* txtFecha;
    QLineEdit* txtNombre;
    QLineEdit* txtMontoTotal;
    QCheckBox* Check1;
    QGroupBox* frameDetalles;                   // "Información adicional:"
    QLabel* lblMontoXAsignar;
    QLabel* lblMontoAsignadoDisponible;
    QLabel* lblMontoAsignado;
    QLabel* lblUltimoMovimiento;
    QLabel* lblStatus;
    std::array<QPushButton*, 4> cmdMover{};     // first, previous, next, last
    QFrame* Frame1;
    QPushButton* cmdNuevo;
    QPushButton* cmdModificar;
    QPushButton* cmdBorrar;
    QPushButton* cmdRegresar;
    QFrame* Frame2;
    QPushButton* cmdGrabar;
    QPushButton* cmdCancelar;

    // "nuevo" while a new record is open; otherwise the position at which Modificar was pressed.
    QString Tag;

    // The sources, open for as long as the form lives.
    std::unique_ptr<dao::Recordset> rsFuentes;

    void Form_Load();
    void CargarDatos();
    // Locks (true) or opens (false) the entry fields; the argument comes back inverted.
    void bloquearControles(bool& bloquear);
    void bloquearControles(bool&& bloquear) { bloquearControles(bloquear); }
    // Recomputes MontoAsignadoDisponible and MontoXAsignar of every source from the ledger and the projects.
    void ActualizaMontoDisponibledeFinanciamientos();

    void cmdMover_Click(int Index);
    void cmdNuevo_Click();
    void cmdModificar_Click();
    void cmdGrabar_Click();
    void cmdBorrar_Click();
    void cmdCancelar_Click();
    void cmdRegresar_Click();
    void Check1_Click();

private:
    // The amounts as they stood when Modificar was pressed.
    vb::Currency MontoTotalAnterior;
    vb::Currency MontoXAsignarAnterior;

    void Edicion(bool editando);
    void VaciaCampos();
    // Runs `paso`; a source that another workstation deleted under the form is told and the list reread.
    void SobreFuenteVigente(const std::function<void()>& paso);
    bool FuenteExiste();
    // The amount typed, checked: a refused amount is told (or beeped) and leaves the focus on the field.
    bool LeeMonto(const QString& texto, vb::Currency& monto);
};
