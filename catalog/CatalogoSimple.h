#pragma once
// The one screen of every master table: a list of the table's rows on top, a row of buttons, and one
// capture row per field below, built at run time from the table's own field definitions.
#include "core/vb/Variant.h"

#include <QDialog>
#include <QString>
#include <array>
#include <memory>
#include <vector>

class QCheckBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollBar;
class QStatusBar;
class CatalogoClase;
namespace controles {
class ComboBox;
class ListView;
class TimerReacomodo;
}
namespace dao { class Recordset; }

class CatalogoSimple : public QDialog {
    Q_OBJECT
public:
    explicit CatalogoSimple(QWidget* padre = nullptr);
    ~CatalogoSimple() override;

    // How a capture row is sized and quoted: Tipo 1 text, 2 whole number, 3 money, 4 date.
    struct InfoCampo {
        qint16 Tipo = 0;
        qint32 Largo = 0;
    };

    // State of this opening.
    bool RegistroAgregado = false;
    bool RegistroModificado = false;
    std::unique_ptr<dao::Recordset> RsCaptura;
    std::unique_ptr<dao::Recordset> RsVista;
    qint32 NumCampos = 0;
    qint16 EstadoEdicion = 0;            // 0 browsing, 1 new record, 2 changing a record
    std::vector<InfoCampo> InfoCampos;
    QString CampoClave;
    QString CampoClave2;
    QString strCamposObligatorios;
    QString SQLdatos;
    qint32 PosicionBusqueda = 0;
    CatalogoClase* Padre = nullptr;

    // Capture rows, one per field; index 0 is always there.
    std::vector<QLabel*> Label1;
    std::vector<QLabel*> Label2;
    std::vector<QLineEdit*> Text1;
    std::vector<controles::ComboBox*> Combo1;
    std::vector<QPushButton*> Command1;
    QFrame* PctCaptura;
    QScrollBar* VScroll1;
    // "Nuevo", "Modificar", "Borrar", "Grabar", "Cancelar", "Reporte", "&Regresar", "&Buscar".
    std::array<QPushButton*, 8> Cmd{};
    QFrame* PictBotones;
    controles::ListView* LstView;
    QLabel* lblNumRegs;
    // The search panel.
    QFrame* picBusqueda;
    QLabel* lblExpresion;
    QLineEdit* txtBuscar;
    QLabel* lblEnCampo;
    controles::ComboBox* cboCriteriosBusqueda;
    QCheckBox* chkParcial;
    QPushButton* cmdBuscar;
    QPushButton* cmdBuscarSiguiente;
    QPushButton* cmdBCancelar;
    QLabel* lblXsalir;
    controles::TimerReacomodo* Timer1;
    QStatusBar* StatusBar1;

    // Public operations.
    void Reporte();
    void EliminarRegistro();
    void IniciaNuevo();
    void ModificarRegistro();
    void GrabarRegistro();
    void CancelarRegistro();
    void CargarRegistroEnTEXTBOXES(const QString& valor);
    // False when the table could not be loaded: the box is shown and the form unloaded.
    bool InicializaBase(const QString& SQLcaptura, const QString& SQLdatos, const QString& SQLtabla,
                        const QString& CampoClave, const QString& CampoClave2, CatalogoClase& Padre);
    void ActualizarVista();
    void LV_ColumnSort(controles::ListView& ListViewControl, int Column);
    void ReacomodaTodo();
    void Cargar_Valores_Combo(int Index);
    vb::Variant Obtener_Valor_desde_Mensaje(int Index, const QString& mensaje);
    QString Obtener_Mensaje_desde_Valor(int Index, const vb::Variant& Valor);
    void ObtenerCamposObligatoriosPorCatalogo(dao::Recordset* queRS, QString& strCamposObligatorios, bool& Status);
    bool ValidaCamposRequeridos(const QString& lista, bool& Status);
    QString ObtenerNoCuenta(bool& Status);

    // Window style 1 or 2 (size and colours); any other value changes nothing.
    void AplicaEstilo(int Estilo);

    // Handlers.
    void Form_Load();
    void Form_Resize();
    void Form_QueryUnload(bool& Cancel);
    void Form_Unload();
    void Timer1_Timer();
    void Cmd_Click(int Index);
    void LstView_Click();
    void LstView_DblClick();
    void LstView_ColumnClick(int Column);
    void Text1_GotFocus(int Index);
    void Text1_LostFocus(int Index);
    void Combo1_GotFocus(int Index);
    void Combo1_LostFocus(int Index);
    void Command1_Click(int Index);
    void Command1_GotFocus(int Index);
    void VScroll1_Change();
    void VScroll1_Scroll();
    void VScroll1_GotFocus();
    void txtBuscar_Change();
    void txtBuscar_GotFocus();
    void cboCriteriosBusqueda_Click();
    void cmdBuscar_Click();
    void cmdBuscarSiguiente_Click();
    void cmdBCancelar_Click();
    void lblXsalir_Click();

    // The last statement this screen sent to change its table.
    QString UltimaSentencia() const;

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void resizeEvent(QResizeEvent* e) override;
    void closeEvent(QCloseEvent* e) override;
    void reject() override;

private:
    enum class Botonera { ConRegistros, Edicion, SinRegistros };
    void Botones(Botonera estado);
    void DeshabilitaRenglones();
    void CreaRenglon(int i);
    void QuitaRenglon(int i);
    void ColocaRenglones();
    void MantenVisible(int i);
    void RecalculaGrabar();
    QString NombreTabla() const;
    void SeleccionaEncontrado(int indice);
    void PonTextoCombo(int i, const QString& texto);
    int AltoRenglon() const;       // pixels between two capture rows
};
