#include "exchange/DocumentoSolicitud.h"

#include "core/vb/Cadenas.h"
#include "core/vb/Error.h"
#include "core/vb/Variant.h"

#include <QFile>
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <climits>

namespace intercambio {

namespace {

// A request document is a few kilobytes; anything near this is no request.
constexpr qint64 TamanoMaximo = 256LL * 1024 * 1024;

bool EsBlancoXml(QChar c) { return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n'; }

QString SinBlancosXml(const QString& s) {
    qsizetype inicio = 0, fin = s.size();
    while (inicio < fin && EsBlancoXml(s[inicio])) ++inicio;
    while (fin > inicio && EsBlancoXml(s[fin - 1])) --fin;
    return s.mid(inicio, fin - inicio);
}

QString DeXml(const xmlChar* texto) { return texto ? QString::fromUtf8(reinterpret_cast<const char*>(texto)) : QString(); }

// prefix:name, as the document writes it.
QString NombreCalificado(NodoXml n) {
    const QString local = DeXml(n->name);
    if (n->ns && n->ns->prefix) return DeXml(n->ns->prefix) + u':' + local;
    return local;
}

bool SoloBlancos(NodoXml n) {
    for (const xmlChar* p = n->content; p && *p; ++p)
        if (*p != ' ' && *p != '\t' && *p != '\r' && *p != '\n') return false;
    return true;
}

}  // namespace

DocumentoXml::DocumentoXml() = default;

DocumentoXml::~DocumentoXml() {
    if (doc_) xmlFreeDoc(doc_);
}

bool DocumentoXml::load(const QString& ruta) {
    QFile archivo(ruta);
    if (ruta.isEmpty() || !archivo.open(QIODevice::ReadOnly) || archivo.size() > TamanoMaximo) {
        loadXML(QByteArray());
        return false;
    }
    return loadXML(archivo.read(TamanoMaximo));
}

bool DocumentoXml::loadXML(const QByteArray& datos) {
    if (doc_) xmlFreeDoc(doc_);
    doc_ = nullptr;
    if (datos.isEmpty() || datos.size() > INT_MAX) return false;
    doc_ = xmlReadMemory(datos.constData(), static_cast<int>(datos.size()), nullptr, nullptr,
                         XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
    // A document type declaration is refused: its entities could make a few bytes into gigabytes of text.
    if (doc_ && (doc_->intSubset || doc_->extSubset || !xmlDocGetRootElement(doc_))) {
        xmlFreeDoc(doc_);
        doc_ = nullptr;
    }
    return doc_ != nullptr;
}

NodoXml DocumentoXml::documentElement() const { return doc_ ? xmlDocGetRootElement(doc_) : nullptr; }

std::vector<NodoXml> DocumentoXml::getElementsByTagName(const QString& nombre) const {
    std::vector<NodoXml> resultado;
    if (!doc_) return resultado;
    // Document order without recursion: down to the first child, else to the next sibling of the nearest
    // ancestor that has one.
    NodoXml raiz = documentElement();
    NodoXml n = raiz;
    while (n) {
        if (n->type == XML_ELEMENT_NODE && NombreCalificado(n) == nombre) resultado.push_back(n);
        if (n->type == XML_ELEMENT_NODE && n->children) {
            n = n->children;
            continue;
        }
        while (n && n != raiz && !n->next) n = n->parent;
        n = n && n != raiz ? n->next : nullptr;
    }
    return resultado;
}

std::vector<NodoXml> DocumentoXml::childNodes(NodoXml nodo) {
    std::vector<NodoXml> hijos;
    if (!nodo) ErrorObjetoNoEstablecido();
    for (NodoXml h = nodo->children; h; h = h->next) {
        switch (h->type) {
        case XML_TEXT_NODE:
            if (!SoloBlancos(h)) hijos.push_back(h);
            break;
        case XML_ELEMENT_NODE:
        case XML_CDATA_SECTION_NODE:
        case XML_COMMENT_NODE:
        case XML_PI_NODE:
        case XML_ENTITY_REF_NODE:
            hijos.push_back(h);
            break;
        default:
            break;
        }
    }
    return hijos;
}

QString DocumentoXml::nodeName(NodoXml nodo) {
    if (!nodo) ErrorObjetoNoEstablecido();
    switch (nodo->type) {
    case XML_TEXT_NODE: return QStringLiteral("#text");
    case XML_CDATA_SECTION_NODE: return QStringLiteral("#cdata-section");
    case XML_COMMENT_NODE: return QStringLiteral("#comment");
    default: return NombreCalificado(nodo);
    }
}

QString DocumentoXml::text(NodoXml nodo) {
    if (!nodo) ErrorObjetoNoEstablecido();
    xmlChar* contenido = xmlNodeGetContent(nodo);
    const QString texto = DeXml(contenido);
    xmlFree(contenido);
    return SinBlancosXml(texto);
}

void ErrorObjetoNoEstablecido() {
    throw vb::Error(91, QStringLiteral("Variable de tipo Object o la variable de bloque With no está establecida"));
}

namespace {

// Item 0 of the elements of that name: the language's getElementsByTagName(nombre).item(0).text.
QString TextoDelPrimero(const DocumentoXml& documento, const char* nombre) {
    const std::vector<NodoXml> nodos = documento.getElementsByTagName(QLatin1String(nombre));
    if (nodos.empty()) ErrorObjetoNoEstablecido();
    return DocumentoXml::text(nodos.front());
}

}  // namespace

DatosGenerales LeeDatosGenerales(const DocumentoXml& documento) {
    DatosGenerales d;
    d.Director = TextoDelPrimero(documento, "Director");
    d.ClaveEscuela = TextoDelPrimero(documento, "ClaveEscuela");
    d.TotalLibros = TextoDelPrimero(documento, "TotalLibros");
    d.TotalEjemplares = TextoDelPrimero(documento, "TotalEjemplares");
    d.FechaEnvio = TextoDelPrimero(documento, "FechaEnvio");
    return d;
}

std::vector<FilaTitulo> LeeFichas(const DocumentoXml& documento, const QString& totalLibros,
                                  const std::function<int(const QString&)>& numeroEditorial) {
    std::vector<FilaTitulo> filas;
    // "For i = 0 To TotalLibros - 1": the count is read as a number, with its fraction.
    const double ultimo = vb::Variant(totalLibros).toDouble() - 1;
    const std::vector<NodoXml> fichas = documento.getElementsByTagName(QStringLiteral("Ficha"));
    for (double i = 0; i <= ultimo; ++i) {
        // A count larger than the Fichas runs into one that isn't there.
        if (i >= static_cast<double>(fichas.size())) ErrorObjetoNoEstablecido();
        const std::vector<NodoXml> hijos = DocumentoXml::childNodes(fichas[static_cast<size_t>(i)]);
        FilaTitulo fila;
        for (size_t j = 0; j < 6; ++j) {
            if (j >= hijos.size()) ErrorObjetoNoEstablecido();
            const QString valor = DocumentoXml::text(hijos[j]);
            if (j == 0) {
                fila.Titulo = valor;
            } else if (DocumentoXml::nodeName(hijos[j]) == u"Editorial") {
                const int numero = numeroEditorial(vb::Trim(valor));
                if (numero != 0) {
                    fila.SubItems[2] = valor;
                    fila.SubItems[6] = QString::number(numero);
                } else {
                    fila.SubItems[2] = MarcaEditorialDesconocida + valor;
                }
            } else {
                fila.SubItems[j] = valor;
            }
        }
        filas.push_back(std::move(fila));
    }
    return filas;
}

}  // namespace intercambio
