#pragma once
// "Pago de facturas - Control de gastos por proyecto": the payment request in hand printed as the
// institution's form for requesting resources. The form's template lies beside the program
// (XSLs\adqSolRecursos.fdc); its tags are filled with the request's data and one table row per invoice, the
// result is shown and printed. Five header texts can be changed for as long as the form stays open.
#include "core/vb/Currency.h"

#include <QDialog>
#include <QString>
#include <array>
#include <memory>
#include <vector>

class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
namespace ui { class VistaHtml; }

// One invoice of the request, as the breakdown list shows it: row number, project, invoice number, amount.
struct RenglonFactura {
    QString id, proyecto, numFactura, importe;
};

class pagoFacturasImprimir : public QDialog {
    Q_OBJECT
public:
    // The invoices in the list's order, the request's total and the supplier's name.
    pagoFacturasImprimir(std::vector<RenglonFactura> renglones, vb::Currency total, QString proveedor,
                         QWidget* padre = nullptr);
    ~pagoFacturasImprimir() override;

    QLabel* lblTitulo;
    std::unique_ptr<ui::VistaHtml> WebBrowser1;
    QPushButton* cmdPersonalizar;
    QPushButton* cmdImprimir;
    QPushButton* cmdRegresar;
    QFrame* picPersonaliza;
    std::array<QLabel*, 5> Label{};          // Label1 .. Label5
    std::array<QLineEdit*, 5> Text{};        // Text1 .. Text5
    QPushButton* cmdAceptar;
    QPushButton* Command1;                   // "&Cancelar"

    // The opener calls it before showing the form.
    void Form_Load();

    void InicializaValoresTags();
    // Replaces in `texto` the element of `tag` (opening tag, sample, closing tag) by `valor`: every element
    // with `todos`, otherwise the first. `correcto` tells whether it went through; an empty value fails.
    void ReemplazaTag(QString& texto, const QString& tag, const QString& valor, bool todos, bool& correcto);
    // Repeats the element of `tag` `veces` times, each copy followed by CRLF; 0 removes it.
    void DuplicaTag(QString& texto, const QString& tag, int veces, bool& correcto);
    // Fills the template: the header tags, one row per invoice, the total.
    void ReemplazaValores(QString& texto);
    // Reads the template, fills it and shows it.
    void DespliegaReporte();
    void CargaDatosPersonalizacion();
    void CambiaDatosPersonalizacion();

    void cmdPersonalizar_Click();
    void cmdAceptar_Click();
    void Command1_Click();
    void cmdImprimir_Click();
    void cmdRegresar_Click();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    std::vector<RenglonFactura> renglones_;
    vb::Currency total_;
    QString proveedor_;

    // The values of the template's tags, for the form's life.
    QString institucion_, depSolicitante_, proyectoGral_, respPGral_, nombDepSolicitante_;
    QString noFolio_, fondo_, proveedorTag_, fecha_, totalTexto_, concepto_, rutaLogo_;
};
