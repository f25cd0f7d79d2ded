#pragma once
// The request document a school sends: XML (ISO-8859-1 as the offices write it, any declared encoding read)
// with the head of the request and one Ficha per title.
//
//   <Solicitud>
//     <InformacionGeneral> FechaEnvio, Director, ClaveEscuela, TotalLibros, TotalEjemplares </InformacionGeneral>
//     <Bibliografia> <Ficha Id="1"> Libro, Autor, Editorial, ISBN, Publicacion, Ejemplares </Ficha> ... </Bibliografia>
//   </Solicitud>
//
// DocumentoXml is the little of a DOM the import needs, over libxml2: load, elements by name, a node's
// children, name and text. The readers below take the head and the titles out of it as the import screen
// shows them.
#include <QByteArray>
#include <QString>

#include <array>
#include <functional>
#include <vector>

struct _xmlDoc;
struct _xmlNode;

namespace intercambio {

using NodoXml = const _xmlNode*;

class DocumentoXml {
public:
    DocumentoXml();
    ~DocumentoXml();
    DocumentoXml(const DocumentoXml&) = delete;
    DocumentoXml& operator=(const DocumentoXml&) = delete;

    // False when the file can't be read or is not well-formed XML; what was loaded before is dropped either
    // way. Nothing is fetched from the network and no external entity or DTD is read.
    bool load(const QString& ruta);
    bool loadXML(const QByteArray& datos);
    bool cargado() const { return doc_ != nullptr; }
    // The root element; null when nothing is loaded.
    NodoXml documentElement() const;

    // The elements of that name (exact case) anywhere in the document, in document order.
    std::vector<NodoXml> getElementsByTagName(const QString& nombre) const;
    // A node's children as the document reads: elements, text, CDATA, comments and processing instructions;
    // text made only of blanks and line ends between elements is not a child.
    static std::vector<NodoXml> childNodes(NodoXml nodo);
    // The element's name; "#text", "#cdata-section", "#comment" for the others.
    static QString nodeName(NodoXml nodo);
    // All the text within the node, without the blanks and line ends at both ends.
    static QString text(NodoXml nodo);

private:
    _xmlDoc* doc_ = nullptr;
};

// The language's error 91: a node the document doesn't have was asked for.
[[noreturn]] void ErrorObjetoNoEstablecido();

// The head of the request, each the text of item 0 of its element; error 91 when one is missing.
struct DatosGenerales {
    QString FechaEnvio, Director, ClaveEscuela, TotalLibros, TotalEjemplares;
};
DatosGenerales LeeDatosGenerales(const DocumentoXml& documento);

// One title as the import list shows it: the title, then sub-items 1 author, 2 publisher, 3 ISBN, 4 edition,
// 5 copies and 6 the publisher's number (index 0 unused).
struct FilaTitulo {
    QString Titulo;
    std::array<QString, 7> SubItems;
};

// Marks a publisher that Editoriales doesn't know, before its name.
inline const QString MarcaEditorialDesconocida = QStringLiteral("** ");

// The Fichas 0 to TotalLibros - 1, each read by the position of its six children: 0 the title, 1 to 5 the
// sub-item of that number; a child named Editorial, wherever it stands, is the publisher, looked up by
// `numeroEditorial` with its trimmed name (0 when unknown: the name then gets the mark). A TotalLibros that
// is no number is error 13; a Ficha or a child that isn't there is error 91; what the lookup raises comes
// up as it is.
std::vector<FilaTitulo> LeeFichas(const DocumentoXml& documento, const QString& totalLibros,
                                  const std::function<int(const QString&)>& numeroEditorial);

}  // namespace intercambio
