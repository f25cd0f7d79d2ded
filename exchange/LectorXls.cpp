#include "exchange/LectorXls.h"

#include "core/vb/Fecha.h"
#include "core/vb/Variant.h"

#include <QDate>
#include <QFile>
#include <QTime>
#include <freexl.h>

namespace intercambio {

namespace {

QString Motivo(int codigo) {
    switch (codigo) {
    case FREEXL_FILE_NOT_FOUND: return QStringLiteral("no se encontró el archivo o no se puede leer");
    case FREEXL_INVALID_CFBF_HEADER:
    case FREEXL_CFBF_INVALID_SIGNATURE: return QStringLiteral("el archivo no es un libro de Excel (.xls)");
    case FREEXL_INSUFFICIENT_MEMORY: return QStringLiteral("no hay memoria suficiente para leerlo");
    default: return QStringLiteral("el archivo está dañado o no es un libro de Excel (.xls)");
    }
}

// FreeXL gives dates as "yyyy-mm-dd", "yyyy-mm-dd hh:mm:ss" and times as "hh:mm:ss".
QString TextoDeFechaFreeXL(const char* texto, int tipo) {
    const QString t = QString::fromUtf8(texto);
    QDate dia = vb::Fecha().date();
    QTime hora(0, 0);
    if (tipo != FREEXL_CELL_TIME) dia = QDate::fromString(t.left(10), QStringLiteral("yyyy-MM-dd"));
    if (tipo != FREEXL_CELL_DATE) hora = QTime::fromString(t.right(8), QStringLiteral("HH:mm:ss"));
    if (!dia.isValid() || !hora.isValid()) return t;
    return vb::Variant(vb::Fecha(dia, hora)).toString();
}

}  // namespace

LectorXls::~LectorXls() { Cierra(); }

void LectorXls::Abre(const QString& ruta) {
    Cierra();
    // The binary workbook lies in a compound file, which its first eight bytes tell.
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly)) ErrorLibro(ruta, Motivo(FREEXL_FILE_NOT_FOUND));
    const QByteArray cabecera = archivo.read(8);
    archivo.close();
    if (cabecera != QByteArray("\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1", 8)) {
        ErrorLibro(ruta, cabecera.startsWith("PK") ? QStringLiteral("el archivo es un libro de Excel (.xlsx) con la extensión .xls")
                                                   : Motivo(FREEXL_INVALID_CFBF_HEADER));
    }
    const QByteArray nombre = QFile::encodeName(ruta);
    const void* libro = nullptr;
    const int r = freexl_open(nombre.constData(), &libro);
    if (r != FREEXL_OK) {
        if (libro) freexl_close(libro);
        ErrorLibro(ruta, Motivo(r));
    }
    libro_ = libro;
    unsigned int protegido = 0, hojas = 0;
    if (freexl_get_info(libro_, FREEXL_BIFF_PASSWORD, &protegido) == FREEXL_OK && protegido == FREEXL_BIFF_OBFUSCATED) {
        Cierra();
        ErrorLibro(ruta, QStringLiteral("el libro está protegido con contraseña"));
    }
    if (freexl_get_info(libro_, FREEXL_BIFF_SHEET_COUNT, &hojas) != FREEXL_OK || hojas == 0 ||
        freexl_select_active_worksheet(libro_, 0) != FREEXL_OK) {
        Cierra();
        ErrorLibro(ruta, QStringLiteral("el libro no tiene hojas"));
    }
}

QString LectorXls::Celda(int fila, int columna) {
    if (!libro_ || fila < 1 || columna < 1 || columna > 65536) return QString();
    FreeXL_CellValue v;
    if (freexl_get_cell_value(libro_, static_cast<unsigned int>(fila - 1), static_cast<unsigned short>(columna - 1), &v) !=
        FREEXL_OK)
        return QString();
    switch (v.type) {
    case FREEXL_CELL_INT: return QString::number(v.value.int_value);
    case FREEXL_CELL_DOUBLE: return TextoDeNumero(v.value.double_value);
    case FREEXL_CELL_TEXT:
    case FREEXL_CELL_SST_TEXT: return QString::fromUtf8(v.value.text_value);
    case FREEXL_CELL_DATE:
    case FREEXL_CELL_DATETIME:
    case FREEXL_CELL_TIME: return TextoDeFechaFreeXL(v.value.text_value, v.type);
    default: return QString();
    }
}

void LectorXls::Cierra() {
    if (libro_) freexl_close(libro_);
    libro_ = nullptr;
}

}  // namespace intercambio
