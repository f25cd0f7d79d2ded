#pragma once
// "Generador de reportes": the six kinds of report on requests, orders, acquisitions, impossible
// acquisitions, donations and shipments, for a range of dates and a choice of libraries or schools, shown
// as HTML and saved as HTML or XML.
#include "core/controles/FechaTextBox.h"
#include "core/ui/Plataforma.h"

#include <QDialog>
#include <array>
#include <memory>

class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
namespace controles { class ComboBox; }

class Listado : public QDialog {
    Q_OBJECT
public:
    explicit Listado(QWidget* padre = nullptr);
    ~Listado() override;

    controles::ComboBox* Combo1;               // "Tipo de reporte:"
    QLineEdit* Text1;                          // "Inicial"
    QLineEdit* Text2;                          // "Final"
    QLabel* lblFinanciamiento;
    controles::ComboBox* cboFinanciamiento;
    std::array<QRadioButton*, 2> Option1{};    // "Por Escuela", "Por Biblioteca"
    std::array<QGroupBox*, 2> Frame1{};        // "Bibliotecas", "Escuelas": the frames of List1(0) and List1(1)
    std::array<QListWidget*, 2> List1{};       // libraries, schools
    QPushButton* Command1;                     // "Generar reporte"
    QPushButton* Command2;                     // "Grabar reporte en disco "
    QPushButton* Command3;                     // "Imprimir reporte"
    QPushButton* Command4;                     // "Configurar impresora"
    QPushButton* Command5;                     // "&Regresar"
    std::unique_ptr<ui::VistaHtml> WebBrowser1;

    // The two texts of the last report generated.
    QString DocumentoXml;
    QString DocumentoHtml;

    controles::FechaTextBox FechaInicio;
    controles::FechaTextBox FechaFin;

    void Form_Load();
    void Combo1_Click();
    void Text1_Change();
    void Text2_Change();
    void Text2_GotFocus();
    void Option1_Click(int Index);
    void List1_DblClick(int Index);
    void Command1_Click();   // Generar reporte
    void Command2_Click();   // Grabar reporte en disco
    void Command3_Click();   // Imprimir reporte
    void Command4_Click();   // Configurar impresora
    void Command5_Click();   // Regresar

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void HabilitaGenerar();
    void HabilitaSalida(bool habilita);
    QString CondicionLugar() const;
};
