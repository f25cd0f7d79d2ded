#pragma once
// "Importación de Solicitudes...": what an exchange file holds, a preview of a range of it, and the range
// added to this installation's database, every request or donation and every title under a new number of
// this installation, the accession numbers kept as they came or refused when already taken here.
#include "core/ui/Plataforma.h"

#include <QDialog>
#include <array>
#include <functional>
#include <memory>

class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
namespace controles { class TimerReacomodo; }
namespace dao {
class Database;
class Recordset;
}

class frmImportar : public QDialog {
    Q_OBJECT
public:
    explicit frmImportar(QWidget* padre = nullptr);
    ~frmImportar() override;

    QLineEdit* txtArchivo;
    QPushButton* Command3;                      // "&Examinar"
    QFrame* picEstatus;                         // what the file holds, from its Metadata
    std::array<QLabel*, 5> lblData{};           // requests, donations, titles, copies, date of the export
    QLineEdit* txtInicio;                       // "Solicitud inicial"
    QLineEdit* txtFinal;                        // "Solicitud final"
    QPushButton* cmdPreview;                    // "Previsualizar"
    QGroupBox* Frame4;
    QLabel* Label4;                             // "   Vista Previa"
    QLabel* Label5;                             // the preview's sign of life
    std::unique_ptr<ui::VistaHtml> WebBrowser1;
    QPushButton* Command1;                      // "&Importar"
    QPushButton* Command2;                      // "&Regresar"
    QListWidget* List1;                         // hidden: the accession numbers refused
    controles::TimerReacomodo* Timer5;
    ui::DialogoArchivo Dialog1;

    std::unique_ptr<dao::Database> BaseExportada;
    bool EsDonacion = false;

    void Form_Load();
    void ReacomodaTodo();
    void Command3_Click();           // Examinar
    void txtArchivo_Change();
    void txtInicio_Change();
    void txtFinal_Change();
    void cmdPreview_Click();
    void Command1_Click();           // Importar
    void Command2_Click();           // Regresar

    // Whether Base has a table of exactly that name, capitals included.
    static bool ExisteTabla(dao::Database& Base, const QString& Tabla, bool& Status);
    // Field Campo of the first row of SQL on the main database, 0 when there is no row.
    static long BuscaUltimo(const QString& SQL, const QString& Campo, bool& Status);
    // Adds the range of BaseExportada to the main database, row by row.
    void Importar(const QString& Ruta);
    // The range as HTML in WebBrowser1.
    void GenerarPreview();

private:
    int anchoMinimo_ = 0;
    int altoMinimo_ = 0;
    bool RangoValido() const;
    struct PasosImportacion;
    void ImportaConjunto(const PasosImportacion& pasos, const QString& i, const QString& f);
    // The copies of a title of the file, written under the title's new key or refused; `completos` writes the
    // analyst and the date of entry with each.
    void ImportaEjemplares(const QString& claveVieja, long claveNueva, bool completos);
    QString PreviewSolicitudes(dao::Database& base, const QString& i, const QString& f);
    // The rows of a head's titles on the page, each with its publisher's name here; how many there were.
    long FilasDeLibros(dao::Database& base, const QString& sql,
                       const std::function<QString(dao::Recordset&, const QString&)>& celdas, QString& html);
    QString PreviewDonaciones(dao::Database& base, const QString& i, const QString& f);
    void SenalDeVida(long posicion);
};
