#include "exchange/FrmProcesando.h"

#include "core/ui/Plataforma.h"
#include "core/vb/Error.h"
#include "exchange/FrmImportaSolicitud.h"
#include "exchange/HojaSolicitud.h"
#include "exchange/LectorHoja.h"

#include <QApplication>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QVBoxLayout>

namespace {
const QString origen = QStringLiteral("FrmProcesando");
}

FrmProcesando::FrmProcesando(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("FrmProcesando"));
    setWindowTitle(QStringLiteral("Procesando la Información"));
    EtEstado = new QLabel(QStringLiteral("Por favor espere, ésta operación puede tardar..."), this);
    EtEstado->setObjectName(QStringLiteral("EtEstado"));
    EtEstado->setAlignment(Qt::AlignCenter);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(EtEstado);
    setMinimumWidth(EtEstado->sizeHint().width() + 80);
    resize(minimumWidth(), 110);

    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(100);
    ui::Conecta(Timer1, &QTimer::timeout, this, origen, &FrmProcesando::Timer1_Timer);
}

FrmProcesando::~FrmProcesando() = default;

void FrmProcesando::showEvent(QShowEvent* e) {
    QDialog::showEvent(e);
    Timer1->start();
}

void FrmProcesando::Estado(const QString& texto) {
    EtEstado->setText(texto);
    // The label is painted before the work goes on.
    QApplication::processEvents();
}

void FrmProcesando::Timer1_Timer() {
    Timer1->stop();
    Archivo = Importacion->ComDial.archivo;
    const QString salida = Convierte();
    // After a failure its box has told what went wrong; no document of an earlier conversion is loaded.
    if (!salida.isEmpty()) {
        Importacion->TxtRuta->setText(salida);
        Importacion->CargaDoc(salida);
    }
    close();
}

QString FrmProcesando::Convierte() {
    try {
        const QString nombre = QFileInfo(Archivo).fileName();
        const QString carpeta = Archivo.left(Archivo.size() - nombre.size());
        std::unique_ptr<intercambio::LectorHoja> hoja = intercambio::LectorPara(Archivo);
        hoja->Abre(Archivo);
        Estado(QStringLiteral("Leyendo el archivo de Excel..."));
        const QString documento = intercambio::DocumentoDeHoja(*hoja, Archivo);
        Estado(QStringLiteral("Generando el archivo de salida..."));
        const QString salida = intercambio::ArchivoDeSalida(carpeta, nombre);
        intercambio::GuardaDocumento(salida, documento);
        hoja->Cierra();
        Estado(QStringLiteral("Proceso terminado"));
        return salida;
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(QStringLiteral("Error No. ") + QString::number(e.Number()) + QStringLiteral("\r\n") + e.Description());
        return QString();
    }
}
