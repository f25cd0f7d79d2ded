#pragma once
// "Importacion de Solicitudes - KORVEL8": a school's request document (XML, or a spreadsheet that
// FrmProcesando turns into one) is shown for review with its publishers checked against Editoriales, its
// titles mended one by one, and written as one new purchase request through the screen's own connection.
#include "core/ui/Plataforma.h"

#include <QDialog>
#include <memory>

class QGroupBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
namespace controles {
class ListItem;
class ListView;
}
namespace dao { class Database; }
namespace intercambio { class DocumentoXml; }

class FrmImportaSolicitud : public QDialog {
    Q_OBJECT
public:
    explicit FrmImportaSolicitud(QWidget* padre = nullptr);
    ~FrmImportaSolicitud() override;

    QLineEdit* TxtRuta;                  // "Archivo:"
    QPushButton* BtnExmaniar;            // browse
    QPushButton* BtnImportar;            // "&Importar"
    QPlainTextEdit* TxtContenido;        // in "Datos Generales de la Solicitud"
    QGroupBox* Frame1;                   // "Resultados", then the counts
    controles::ListView* LstLibros;
    QPushButton* BtnAgregar;             // "Agregar"
    QPushButton* BtnModificar;           // "Modificar"
    QPushButton* BtnEliminar;            // "Eliminar"
    QPushButton* BtnGrabar;              // "Grabar Solicitud"
    QPushButton* BtnRegresar;            // "&Regresar"
    ui::DialogoArchivo ComDial;          // the file chosen last; FrmProcesando reads it

    // The request loaded: its new number, the school and its library ("" when the school has none), the
    // counts, the date of sending and the requester as the document gives them. The number is empty until a
    // document has been read whole.
    QString NoSolicitud, NoEscuela, NoBiblioteca, TotalLibros, TotalEjemplares, FechaEnvio, Director;

    void Form_Load();
    void Form_Unload();
    void BtnExmaniar_Click();
    void BtnImportar_Click();
    // Loads a request document into the screen; every failure ends in its box.
    void CargaDoc(const QString& ruta);
    void BtnAgregar_Click();
    void BtnModificar_Click();
    void BtnEliminar_Click();
    void BtnGrabar_Click();
    void BtnRegresar_Click();
    void LstLibros_ColumnClick(int indiceEncabezado);

    // "Resultados: Libros=" and the count of titles in the list.
    void MuestraCuentaDeLibros();
    // Columns that cut their text take the list's free width, in proportion to what they lack; none gets
    // narrower than it was set.
    void ReparteAnchoLibre();
    // The screen's own connection to the program's database, open from Form_Load to Form_Unload.
    dao::Database* Conexion() const { return conexion_.get(); }

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    std::unique_ptr<dao::Database> conexion_;
    // Steps 6 and 7 of the loading, with their own trap: false when the titles couldn't be read.
    bool LeeLibros(const intercambio::DocumentoXml& documento);
    void Grabar();
    // Selects the title in the box about material to review.
    void SenalaPendiente(controles::ListItem& item);
};
