#pragma once
// "Exportaciones": a numbered range of purchase requests, or of donations, with their titles and accession
// numbers, copied into a new exchange file that another installation imports.
#include "core/ui/Plataforma.h"

#include <QDialog>
#include <memory>

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
namespace dao { class Database; }

class frmExportacion : public QDialog {
    Q_OBJECT
public:
    explicit frmExportacion(QWidget* padre = nullptr);
    ~frmExportacion() override;

    QRadioButton* Option1;                      // "Exportar Solicitudes"
    QRadioButton* Option2;                      // "Exportar Donaciones"
    QLabel* Label1;                             // caption of txtInicio
    QLabel* Label2;                             // caption of txtFinal
    QLineEdit* txtInicio;
    QLineEdit* txtFinal;
    QLineEdit* txtArchivo;
    QPushButton* Command3;                      // "&Examinar"
    QPushButton* Command1;                      // "&Aceptar"
    QPushButton* Command2;                      // "&Regresar"
    ui::DialogoArchivo Dialog1;

    // The new file, open from its creation until the export is told.
    std::unique_ptr<dao::Database> BaseExportacion;
    // Rows written into the file, its Metadata row included.
    long long TotalExportados = 0;

    void Form_Load();
    void Option1_Click();
    void Option2_Click();
    void Command1_Click();           // Aceptar
    void Command2_Click();           // Regresar
    void Command3_Click();           // Examinar
    // Creates the file at Ruta with the tables of the chosen set and copies the range into it.
    void CrearEstruc(const QString& Ruta);
};
