#pragma once
// "Reporte del" <catalog>: the catalog's list as a report. All records or those whose chosen field holds a
// text, in a chosen order; shown as HTML, printed, or saved as HTML or XML.
#include "core/ui/Plataforma.h"

#include <QDialog>
#include <array>
#include <memory>

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
namespace controles { class ComboBox; }
namespace dao { class Recordset; }

class FormReporte : public QDialog {
    Q_OBJECT
public:
    explicit FormReporte(QWidget* padre = nullptr);
    ~FormReporte() override;

    std::array<QRadioButton*, 2> Option1{};   // "Todos los registros", "Registros que contengan:"
    controles::ComboBox* Combo1;                        // the field searched; ItemData the field's Type
    QLineEdit* Text1;                         // the text searched
    QLabel* Label1;                           // "ordenados por:"
    controles::ComboBox* Combo2;                        // the order
    controles::ComboBox* Combo3;                        // hidden: the true column of each entry of Combo1
    QPushButton* Command1;                    // "Generar"
    QPushButton* Command2;                    // "Regresar"
    QPushButton* Command3;                    // "Imprimir"
    QPushButton* Command4;                    // "Guardar"
    QPushButton* Command5;                    // "Configurar"
    QLabel* lblTotal;
    std::unique_ptr<ui::VistaHtml> WebBrowser1;
    ui::DialogoArchivo dlgSaveAs;

    // State: the list's SQL without the word SELECT, the catalog's title, the field count, and the two
    // documents last built.
    QString SQLbase;
    QString TituloReporte;
    int CamposTotal = 0;
    QString ContenidoHTML;
    QString ContenidoXML;

    void Form_Load();
    void mInit(const QString& strSQL, const QString& strTitle, const QString& Opcion);
    void mBusyForm(QWidget* frmObj, bool freeEvents, bool Status);
    bool mBuildFile(QString& Buffer, dao::Recordset& Rs, int Formato, bool& Vacio);
    QString fValueOnTag(int Seccion, int Formato, const QString& Nombre = QString(), const QString& Valor = QString(),
                        long Numero = 0);

    // The select list with each alias taken off: "NOMBRE,[NO] AS NÚM FROM X" gives "NOMBRE, [NO]  FROM X".
    static QString RutinaQuitaAlias(const QString& sqlSentencia);
    // The tail of a condition on a field of the given Type for the text typed.
    static QString ValorCriterio(const QString& texto, int Tipo);

    void Option1_Click(int Index);
    void Text1_Change();
    void Command1_Click();   // Generar
    void Command2_Click();   // Regresar
    void Command3_Click();   // Imprimir
    void Command4_Click();   // Guardar
    void Command5_Click();   // Configurar

    // The statement the last "Generar" opened.
    QString UltimaSentencia;

    static constexpr int FormatoHtml = 291;
    static constexpr int FormatoXml = 292;

protected:
    void resizeEvent(QResizeEvent* e) override;

private:
    void LlenaCampos(controles::ComboBox* combo, const QString& sql, bool conTipo);
};
