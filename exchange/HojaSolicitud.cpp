#include "exchange/HojaSolicitud.h"

#include "core/vb/Error.h"
#include "core/vb/Variant.h"
#include "exchange/LectorHoja.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace intercambio {

namespace {

constexpr int PrimeraFilaDeTitulos = 7;

QString Elemento(const char* nombre, const QString& valor) {
    const QString n = QLatin1String(nombre);
    return u'<' + n + u'>' + valor + QStringLiteral("</") + n + u'>';
}

}  // namespace

QString DocumentoDeHoja(LectorHoja& hoja, const QString& ruta) {
    const QString fecha = hoja.Celda(1, 2), director = hoja.Celda(2, 2), escuela = hoja.Celda(3, 2);
    if (fecha.isEmpty() && director.isEmpty() && escuela.isEmpty() && hoja.Celda(PrimeraFilaDeTitulos, 1).isEmpty())
        throw vb::Error(1004, QStringLiteral("La primera hoja del libro '") + QFileInfo(ruta).fileName() +
                                  QStringLiteral("' no contiene una solicitud: están vacías la fecha (B1), el solicitante "
                                                 "(B2), la escuela (B3) y el primer título (A7)."));
    QStringList lineas{QStringLiteral("<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>"), QStringLiteral("<Solicitud>"),
                       QStringLiteral("<InformacionGeneral>"), Elemento("FechaEnvio", fecha), Elemento("Director", director),
                       Elemento("ClaveEscuela", escuela)};
    QStringList fichas;
    int libros = 0;
    double ejemplares = 0;
    for (int fila = PrimeraFilaDeTitulos;; ++fila) {
        const QString titulo = hoja.Celda(fila, 1);
        if (titulo.isEmpty()) break;
        ++libros;
        QString editorial = hoja.Celda(fila, 3);
        if (editorial.isEmpty() || editorial == u" " || editorial == u"  ") editorial = QStringLiteral("S.N.");
        const QString copias = hoja.Celda(fila, 5);
        fichas << QStringLiteral("<Ficha Id=\"%1\">").arg(libros) << Elemento("Libro", titulo)
               << Elemento("Autor", hoja.Celda(fila, 2)) << Elemento("Editorial", editorial)
               << Elemento("ISBN", hoja.Celda(fila, 6)) << Elemento("Publicacion", hoja.Celda(fila, 4))
               << Elemento("Ejemplares", copias) << QStringLiteral("</Ficha>");
        if (!copias.isEmpty()) ejemplares += vb::Variant(copias).toDouble();
    }
    lineas << Elemento("TotalLibros", QString::number(libros)) << Elemento("TotalEjemplares", vb::Variant(ejemplares).toString())
           << QStringLiteral("</InformacionGeneral>") << QStringLiteral("<Bibliografia>") << fichas
           << QStringLiteral("</Bibliografia>") << QStringLiteral("</Solicitud>");
    return lineas.join(QStringLiteral("\r\n"));
}

QString ArchivoDeSalida(const QString& carpeta, const QString& nombre) {
    const bool conSeparador = carpeta.isEmpty() || carpeta.endsWith(u'/') || carpeta.endsWith(u'\\');
    const qsizetype punto = nombre.indexOf(u'.');
    return carpeta + (conSeparador ? QString() : QStringLiteral("/")) + (punto < 0 ? nombre : nombre.left(punto)) +
           QStringLiteral(".xml");
}

void GuardaDocumento(const QString& ruta, const QString& texto) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::WriteOnly | QIODevice::Truncate) || archivo.write(texto.toLatin1()) < 0 || !archivo.flush())
        throw vb::Error(75, QStringLiteral("Error de acceso a la ruta o el archivo"));
}

}  // namespace intercambio
