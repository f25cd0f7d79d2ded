#pragma once
// "Procesando la Información": turns the workbook chosen on the import screen into the request document
// beside it, without any office application, and has the import screen load that document. It starts by
// itself once shown, and closes when done.
#include <QDialog>

class FrmImportaSolicitud;
class QLabel;
class QTimer;

class FrmProcesando : public QDialog {
    Q_OBJECT
public:
    explicit FrmProcesando(QWidget* padre = nullptr);
    ~FrmProcesando() override;

    QLabel* EtEstado;
    QTimer* Timer1;              // fires once, after the screen is shown

    // The import screen: its ComDial names the workbook; its TxtRuta and CargaDoc take the document.
    FrmImportaSolicitud* Importacion = nullptr;
    // The workbook being converted.
    QString Archivo;

    void Timer1_Timer();
    // Converts Archivo and returns the document's path; a failure shows its box and returns "".
    QString Convierte();

protected:
    void showEvent(QShowEvent* e) override;

private:
    void Estado(const QString& texto);
};
