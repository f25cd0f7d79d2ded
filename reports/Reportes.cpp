#include "reports/Reportes.h"

#include "core/Rutas.h"
#include "core/controles/ComboBox.h"
#include "core/dao/Dao.h"
#include "core/ui/Ficha.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Error.h"
#include "core/vb/Formato.h"

#include <QCoreApplication>
#include <QComboBox>
#include <QListWidget>
#include <QSignalBlocker>

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxslt/transform.h>
#include <libxslt/xsltInternals.h>
#include <libxslt/documents.h>
#include <libxslt/xsltutils.h>

#include <memory>

namespace reportes {

namespace {

const xmlChar* X(const QByteArray& b) { return reinterpret_cast<const xmlChar*>(b.constData()); }

struct LiberaDoc {
    void operator()(xmlDoc* d) const { xmlFreeDoc(d); }
};
struct LiberaHoja {
    void operator()(xsltStylesheet* h) const { xsltFreeStylesheet(h); }
};
using Doc = std::unique_ptr<xmlDoc, LiberaDoc>;
using Hoja = std::unique_ptr<xsltStylesheet, LiberaHoja>;

// libxml2 reports its errors through our boxes, not on the console.
void Silencio(void*, const char*, ...) {}

// A failure of libxml2 or libxslt as the program's error, with the library's code and message.
[[noreturn]] void ErrorXml(const QString& queHacia) {
    const xmlError* e = xmlGetLastError();
    if (e && e->message) throw vb::Error(e->code, queHacia + QStringLiteral(": ") + QString::fromUtf8(e->message).trimmed());
    throw vb::Error(5, queHacia);
}

QString FechaReporte(const vb::Fecha& f) { return vb::Format(vb::Variant(f), QStringLiteral("dd/mmm/yyyy")); }

// Counts the rows of "SELECT DISTINCT (<campo>) ..." by moving to the last one.
long CuentaDistintos(const globales::ConsultaDatos& c, const QString& campo) {
    auto rs = globales::Base().OpenRecordset(QStringLiteral("SELECT DISTINCT (") + campo + QStringLiteral(") FROM ") +
                                             c.Tabla + QStringLiteral(" ") + c.Clave);
    long n = 0;
    if (!rs->Eof()) {
        rs->MoveLast();
        n = rs->RecordCount();
    }
    rs->Close();
    return n;
}

QString Numero(double n) { return QString::number(static_cast<long long>(n)); }

// The names a report shows for the numbers its document holds. The style sheets read them as the document
// at this address (document()); the report document itself stays as the query made it.
constexpr const char* DireccionNombres = "urn:korvel8:adquisiciones:nombres";

// <nombres> with one element per library and school, named by its kind and keyed by its number (publishers
// and institutions come named by the queries themselves), and one <solicitud> per request that the document names in a "Solicitud"
// column, with its date, requester, school and library.
Doc DocumentoNombres(xmlDoc* documento) {
    Doc nombres(xmlNewDoc(BAD_CAST "1.0"));
    xmlNode* raiz = xmlNewDocNode(nombres.get(), nullptr, BAD_CAST "nombres", nullptr);
    xmlDocSetRootElement(nombres.get(), raiz);
    if (!globales::BaseDatos) return nombres;
    const auto agrega = [raiz](const char* tipo, const QString& sql) {
        auto rs = globales::Base().OpenRecordset(sql);
        for (; !rs->Eof(); rs->MoveNext()) {
            const vb::Variant n = rs->Fields(0).Value();
            if (n.isNull()) continue;
            xmlNode* e = xmlNewTextChild(raiz, nullptr, BAD_CAST tipo, X(rs->Fields(1).Value().text().toUtf8()));
            xmlNewProp(e, BAD_CAST "n", X(n.text().toUtf8()));
        }
        rs->Close();
    };
    // A catalog another module hasn't created yet only leaves its numbers unnamed.
    const auto intenta = [&agrega](const char* tipo, const QString& sql) {
        try {
            agrega(tipo, sql);
        } catch (const vb::Error&) {
        }
    };
    intenta("biblioteca", QStringLiteral("SELECT [No], Nombre FROM Bibliotecas"));
    intenta("escuela", QStringLiteral("SELECT [No], Nombre FROM Escuelas"));

    // The requests of an order.
    QStringList solicitudes;
    const xmlNode* r = xmlDocGetRootElement(documento);
    for (const xmlNode* libro = r ? r->children : nullptr; libro; libro = libro->next)
        for (const xmlNode* c = libro->children; c; c = c->next) {
            if (c->type != XML_ELEMENT_NODE || xmlStrcasecmp(c->name, BAD_CAST "Solicitud") != 0) continue;
            xmlChar* t = xmlNodeGetContent(c);
            bool ok = false;
            const long n = QString::fromUtf8(reinterpret_cast<const char*>(t)).trimmed().toLong(&ok);
            xmlFree(t);
            if (ok && !solicitudes.contains(QString::number(n))) solicitudes << QString::number(n);
        }
    if (solicitudes.isEmpty()) return nombres;
    try {
        auto rs = globales::Base().OpenRecordset(
            QStringLiteral("SELECT NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca FROM [Solicitudes General] "
                           "WHERE NoSolicitud IN (") + solicitudes.join(u',') + QStringLiteral(") ORDER BY NoSolicitud"));
        for (; !rs->Eof(); rs->MoveNext()) {
            xmlNode* e = xmlNewChild(raiz, nullptr, BAD_CAST "solicitud", nullptr);
            const char* atributos[] = {"n", "fecha", "solicitante", "escuela", "biblioteca"};
            for (int i = 0; i < 5; ++i)
                xmlNewProp(e, BAD_CAST atributos[i], X(rs->Fields(i).Value().text().toUtf8()));
        }
        rs->Close();
    } catch (const vb::Error&) {
    }
    return nombres;
}

// While a report is transformed, its style sheet's document() at DireccionNombres gets a copy of the names;
// every other address loads as always.
thread_local xmlDoc* nombresEnCurso = nullptr;
// libxslt's own loader, kept before ours takes its place (the library's variable then names ours).
xsltDocLoaderFunc cargadorLibreria = nullptr;

xmlDocPtr CargaDocumento(const xmlChar* uri, xmlDictPtr dict, int opciones, void* ctxt, xsltLoadType tipo) {
    if (tipo == XSLT_LOAD_DOCUMENT && nombresEnCurso && xmlStrEqual(uri, BAD_CAST DireccionNombres))
        return xmlCopyDoc(nombresEnCurso, 1);
    return cargadorLibreria(uri, dict, opciones, ctxt, tipo);
}

class ConNombres {
public:
    explicit ConNombres(xmlDoc* nombres) {
        nombresEnCurso = nombres;
        xsltSetLoaderFunc(nullptr);
        cargadorLibreria = xsltDocDefaultLoader;
        xsltSetLoaderFunc(CargaDocumento);
    }
    ~ConNombres() {
        xsltSetLoaderFunc(nullptr);
        nombresEnCurso = nullptr;
    }
    ConNombres(const ConNombres&) = delete;
    ConNombres& operator=(const ConNombres&) = delete;
};

}  // namespace

QString xml_in(const globales::ConsultaDatos& consulta, const QString& hoja, const QString& raiz,
               const QString& registro, const QString& campoDistinto, bool& vacio, QString& resumen,
               bool soloResumen) {
    vacio = false;
    resumen.clear();
    try {
        QString sql = QStringLiteral("SELECT ") + consulta.Campos + QStringLiteral(" FROM ") + consulta.Tabla +
                      QStringLiteral(" ") + consulta.Clave;
        if (!consulta.Orden.isEmpty()) sql += QStringLiteral(" ORDER BY ") + consulta.Orden;

        Doc doc(xmlNewDoc(BAD_CAST "1.0"));
        xmlNode* nodoRaiz = xmlNewDocNode(doc.get(), nullptr, X(raiz.toUtf8()), nullptr);
        auto rs = globales::Base().OpenRecordset(sql);

        const long cuenta = rs->RecordCount();
        if (cuenta == 0) {
            vacio = true;
        } else {
            // A forced summary applies at any size; above the limit the user may choose it.
            bool soloCuentas = soloResumen;
            if (!soloCuentas && cuenta > LimiteReporte) {
                const int r = ui::Sistema().MsgBox(
                    QStringLiteral("El reporte solicitado incluirá demasiados títulos,\r\n"
                                   "¿desea ver solo el resumen de la consulta?"),
                    ui::vbYesNo + ui::vbExclamation, QStringLiteral("Demasiada información para generar reporte"));
                soloCuentas = r == ui::vbYes;
            }
            if (soloCuentas) {
                const long ejemplares = cuenta;
                rs->Close();
                xmlFreeNode(nodoRaiz);
                const long titulos = CuentaDistintos(consulta, campoDistinto);
                resumen = QStringLiteral("<TR><TD>%1 títulos y %2 ejemplares</TD></TR>").arg(titulos).arg(ejemplares);
                return QString();
            }
        }

        // The element names: the column names without blanks.
        const int columnas = rs->Fields().Count();
        std::vector<QByteArray> nombres;
        int columnaEjemplares = -1;
        for (int i = 0; i < columnas; ++i) {
            const QString nombre = rs->Fields(i).Name();
            nombres.push_back(QString(nombre).remove(u' ').toUtf8());
            if (nombre == QStringLiteral("Ejemplares")) columnaEjemplares = i;
        }
        const QByteArray nombreRegistro = registro.toUtf8();
        long filas = 0;
        double suma = 0;
        for (; !rs->Eof(); rs->MoveNext()) {
            xmlNode* fila = xmlNewChild(nodoRaiz, nullptr, X(nombreRegistro), nullptr);
            for (int i = 0; i < columnas; ++i) {
                const vb::Variant v = rs->Fields(i).Value();
                xmlNewTextChild(fila, nullptr, X(nombres[static_cast<size_t>(i)]), X(v.text().toUtf8()));
                if (i == columnaEjemplares && !v.isNull() && !v.isEmpty()) suma += v.toDouble();
            }
            ++filas;
        }

        const bool donaciones = consulta.Tabla.contains(QStringLiteral("[Donaciones Libros]"));
        const QString registros = (suma != 0 && !donaciones) ? Numero(suma) : QString::number(filas);
        xmlNewProp(nodoRaiz, BAD_CAST "Registros", X(registros.toUtf8()));
        if (!campoDistinto.isEmpty()) {
            const long distintos = CuentaDistintos(consulta, campoDistinto);
            const long titulos = (suma != 0 && !donaciones) ? filas : distintos;
            xmlNewProp(nodoRaiz, BAD_CAST "NumTitulos", X(QString::number(titulos).toUtf8()));
        }
        xmlNewProp(nodoRaiz, BAD_CAST "fechaReporte", X(FechaReporte(vb::Fecha::Today()).toUtf8()));
        xmlNewProp(nodoRaiz, BAD_CAST "fechaInicial", X(FechaReporte(globales::FechaInicial).toUtf8()));
        xmlNewProp(nodoRaiz, BAD_CAST "fechaFinal", X(FechaReporte(globales::FechaFinal).toUtf8()));

        xmlDocSetRootElement(doc.get(), nodoRaiz);
        const QByteArray pseudo = (QStringLiteral("href=\"") + hoja + QStringLiteral("\" type=\"text/xsl\"")).toUtf8();
        xmlNode* pi = xmlNewDocPI(doc.get(), BAD_CAST "xml-stylesheet", X(pseudo));
        xmlAddPrevSibling(nodoRaiz, pi);

        xmlChar* texto = nullptr;
        int largo = 0;
        xmlDocDumpFormatMemory(doc.get(), &texto, &largo, 1);
        const QString resultado = QString::fromUtf8(reinterpret_cast<const char*>(texto), largo);
        xmlFree(texto);
        rs->Close();
        return resultado;
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(QStringLiteral("Ocurrió el error: %1: %2").arg(e.Number()).arg(e.Description()),
                             ui::vbCritical, QStringLiteral("Generación de documento XML [xml_in]"));
    }
    return QString();
}

QString Htm_gen(const QString& xml, ui::VistaHtml& navegador, const QString& hoja) {
    xmlSetGenericErrorFunc(nullptr, Silencio);
    xsltSetGenericErrorFunc(nullptr, Silencio);
    try {
        const QByteArray datos = xml.toUtf8();
        xmlResetLastError();
        Doc documento(xmlReadMemory(datos.constData(), static_cast<int>(datos.size()), nullptr, "UTF-8", XML_PARSE_NONET));
        if (!documento) ErrorXml(QStringLiteral("documento XML no válido"));

        const QByteArray ruta = rutas::Instalacion(hoja).toLocal8Bit();
        xmlResetLastError();
        Hoja estilo(xsltParseStylesheetFile(X(ruta)));
        if (!estilo) ErrorXml(QStringLiteral("no se pudo cargar la hoja de estilo ") + hoja);

        navegador.Navigate(QStringLiteral("about:blank"));
        QCoreApplication::processEvents();

        const Doc nombres = DocumentoNombres(documento.get());
        Doc resultado;
        {
            const ConNombres conNombres(nombres.get());
            resultado.reset(xsltApplyStylesheet(estilo.get(), documento.get(), nullptr));
        }
        if (!resultado) ErrorXml(QStringLiteral("no se pudo transformar el documento"));
        xmlChar* texto = nullptr;
        int largo = 0;
        if (xsltSaveResultToString(&texto, &largo, resultado.get(), estilo.get()) != 0)
            ErrorXml(QStringLiteral("no se pudo escribir el resultado"));
        QString html = texto ? QString::fromUtf8(reinterpret_cast<const char*>(texto), largo) : QString();
        xmlFree(texto);
        // The page is saved in the system's code page; its declaration says so, or a saved page shows
        // its accents garbled.
        const qsizetype declaracion = html.indexOf(QStringLiteral("charset=UTF-8"), 0, Qt::CaseInsensitive);
        if (declaracion >= 0 && declaracion < html.indexOf(QStringLiteral("</head>"), 0, Qt::CaseInsensitive))
            html.replace(declaracion, 13, QStringLiteral("charset=windows-1252"));

        ui::EsperaVista(navegador);
        navegador.DocumentOpen();
        navegador.DocumentWrite(html);
        navegador.DocumentClose();
        return html;
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(QStringLiteral("Ocurrió el error: %1\r\n [%2] ").arg(e.Number()).arg(e.Description()),
                             ui::vbCritical, QStringLiteral("Mod Htm_gen"));
    }
    return QString();
}

void Htm_resumen(const QString& texto, ui::VistaHtml& navegador) {
    navegador.Navigate(QStringLiteral("about:blank"));
    ui::EsperaVista(navegador);
    navegador.DocumentOpen();
    navegador.DocumentWrite(
        QStringLiteral("<HTML><HEAD><STYLE type='text/css'>table {font-family:tahoma, verdana, arial;font-size:10pt; "
                       "color:black;} b {font-weight:bold; font-size:10pt; color:red;}</STYLE></HEAD>"));
    navegador.DocumentWrite(QStringLiteral("<BODY leftmargin=20 topmargin=10 marginwidth=0 marginheight=0>"));
    navegador.DocumentWrite(QStringLiteral("<CENTER><TABLE border='0' cellspacing='1' width='90%'><TR><TD>"));
    navegador.DocumentWrite(texto);
    // The row's closing tag lacks its bracket, as the page always had it.
    navegador.DocumentWrite(QStringLiteral("</TD</TR>"));
    navegador.DocumentWrite(QStringLiteral("</TABLE></CENTER></BODY></HTML>"));
    navegador.DocumentClose();
}

namespace {

std::unique_ptr<dao::Recordset> AbreLista(const globales::ConsultaDatos& c) {
    QString sql = QStringLiteral("SELECT ") + c.Campos + QStringLiteral(" FROM ") + c.Tabla;
    if (!c.Clave.isEmpty()) sql += QStringLiteral(" WHERE ") + c.Clave + QStringLiteral("=") + c.Valor;
    if (!c.Orden.isEmpty()) sql += QStringLiteral(" ORDER BY ") + c.Orden;
    return globales::Base().OpenRecordset(sql);
}

}  // namespace

bool LlenaListaTodas(const globales::ConsultaDatos& consulta, QListWidget& lista) {
    lista.clear();
    auto rs = AbreLista(consulta);
    if (rs->Eof()) return false;
    lista.addItem(QStringLiteral("TODAS LAS ") + consulta.Tabla.toUpper());
    const int columnas = rs->Fields().Count();
    for (; !rs->Eof(); rs->MoveNext()) {
        QString fila;
        for (int i = 0; i < columnas; ++i) fila += rs->Fields(i).Value().text() + QStringLiteral(" ");
        lista.addItem(fila.trimmed());
    }
    rs->Close();
    return true;
}

namespace {

// Each row: integer values as "000 - ", other values followed by a blank, trimmed.
QStringList FilasNumeradas(const globales::ConsultaDatos& consulta) {
    QStringList filas;
    auto rs = AbreLista(consulta);
    const int columnas = rs->Fields().Count();
    for (; !rs->Eof(); rs->MoveNext()) {
        QString fila;
        for (int i = 0; i < columnas; ++i) {
            const int tipo = rs->Fields(i).Type();
            const vb::Variant v = rs->Fields(i).Value();
            const bool entero = tipo == dao::dbByte || tipo == dao::dbInteger || tipo == dao::dbLong;
            if (entero)
                fila += (v.isNull() ? QString() : vb::Format(v, QStringLiteral("000"))) + QStringLiteral(" - ");
            else
                fila += v.text() + QStringLiteral(" ");
        }
        filas << fila.trimmed();
    }
    rs->Close();
    return filas;
}

}  // namespace

bool LlenaListaNumerada(const globales::ConsultaDatos& consulta, QListWidget& lista) {
    lista.clear();
    const QStringList filas = FilasNumeradas(consulta);
    lista.addItems(filas);
    return !filas.isEmpty();
}

bool LlenaListaNumerada(const globales::ConsultaDatos& consulta, QComboBox& lista) {
    const QStringList filas = FilasNumeradas(consulta);
    const QSignalBlocker bloqueo(&lista);
    lista.addItems(filas);
    return !filas.isEmpty();
}

void LlenaListaNumerada(controles::ComboBox& lista, const QString& primero, const QString& campos, const QString& tabla,
                        const QString& orden) {
    lista.Clear();
    lista.AddItem(primero);
    globales::Consulta = {campos, tabla, QString(), QString(), orden};
    LlenaListaNumerada(globales::Consulta, lista);
}

}  // namespace reportes
