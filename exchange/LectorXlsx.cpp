#include "exchange/LectorXlsx.h"

#include "core/vb/Fecha.h"
#include "core/vb/Variant.h"
#include "exchange/DocumentoSolicitud.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QHash>
#include <libxml/tree.h>
#include <zip.h>

#include <vector>

namespace intercambio {

namespace {

// A part of a workbook bigger than this is refused rather than read: a request fills a few kilobytes, and a
// small zip can unpack to gigabytes.
constexpr qint64 TamanoMaximoParte = 64LL * 1024 * 1024;
constexpr int FilasMaximas = 1048576;
constexpr int ColumnasMaximas = 16384;
// Days from the 1900 date system's origin to the 1904 one's.
constexpr double DiasSistema1904 = 1462;

// ---- The XML of the parts, by local name (producers differ in their prefixes) ----------------------------

bool Es(NodoXml n, const char* nombre) {
    return n && n->type == XML_ELEMENT_NODE && xmlStrEqual(n->name, reinterpret_cast<const xmlChar*>(nombre));
}

NodoXml PrimerHijo(NodoXml n, const char* nombre) {
    for (NodoXml h = n ? n->children : nullptr; h; h = h->next)
        if (Es(h, nombre)) return h;
    return nullptr;
}

// An attribute without a namespace (conNombreEspacio false) or with one ("r:id").
QString Atributo(NodoXml n, const char* nombre, bool conNombreEspacio = false) {
    if (!n) return QString();
    for (const xmlAttr* a = n->properties; a; a = a->next) {
        if (!xmlStrEqual(a->name, reinterpret_cast<const xmlChar*>(nombre)) || (a->ns != nullptr) != conNombreEspacio) continue;
        xmlChar* v = xmlNodeGetContent(reinterpret_cast<const xmlNode*>(a));
        const QString texto = v ? QString::fromUtf8(reinterpret_cast<const char*>(v)) : QString();
        xmlFree(v);
        return texto;
    }
    return QString();
}

QString Contenido(NodoXml n) {
    if (!n) return QString();
    xmlChar* v = xmlNodeGetContent(n);
    const QString texto = v ? QString::fromUtf8(reinterpret_cast<const char*>(v)) : QString();
    xmlFree(v);
    return texto;
}

// A string of the workbook (<si> or <is>): its runs' texts joined, the phonetic guides left out.
QString TextoDeCadena(NodoXml n) {
    QString texto;
    for (NodoXml h = n ? n->children : nullptr; h; h = h->next) {
        if (Es(h, "t")) texto += Contenido(h);
        else if (Es(h, "r")) texto += Contenido(PrimerHijo(h, "t"));
    }
    return texto;
}

// ---- Number formats -----------------------------------------------------------------------------------------

// The built-in formats that show a date or a time.
bool FormatoFechaIncorporado(int id) {
    return (id >= 14 && id <= 22) || (id >= 27 && id <= 36) || (id >= 45 && id <= 47) || (id >= 50 && id <= 58);
}

// A format code shows a date or a time when, outside quoted texts, escaped characters and bracketed colours
// or locales, it has a day, month, year, hour or second. Elapsed times ("[h]:mm") count as times.
bool CodigoDeFecha(const QString& codigo) {
    const QString primero = codigo.section(u';', 0, 0);
    for (qsizetype i = 0; i < primero.size(); ++i) {
        const QChar c = primero[i];
        if (c == u'"') {
            const qsizetype cierre = primero.indexOf(u'"', i + 1);
            if (cierre < 0) return false;
            i = cierre;
        } else if (c == u'\\' || c == u'_' || c == u'*') {
            ++i;
        } else if (c == u'[') {
            const qsizetype cierre = primero.indexOf(u']', i + 1);
            if (cierre < 0) return false;
            const QString dentro = primero.mid(i + 1, cierre - i - 1).toLower();
            if (!dentro.isEmpty() && dentro.count(dentro[0]) == dentro.size() &&
                (dentro[0] == u'h' || dentro[0] == u'm' || dentro[0] == u's'))
                return true;
            i = cierre;
        } else if (QStringLiteral("dDmMyYhHsS").contains(c)) {
            return true;
        }
    }
    return false;
}

// Column and row of a reference such as "AB12"; false when it is none.
bool LeeReferencia(const QString& ref, int& fila, int& columna) {
    qsizetype i = 0;
    int c = 0;
    while (i < ref.size() && ref[i] >= u'A' && ref[i] <= u'Z' && c <= ColumnasMaximas) c = c * 26 + (ref[i++].unicode() - u'A' + 1);
    if (i == 0 || i == ref.size()) return false;
    bool ok = false;
    const int f = ref.mid(i).toInt(&ok);
    if (!ok || !ref[i].isDigit()) return false;
    fila = f;
    columna = c;
    return true;
}

quint64 Clave(int fila, int columna) { return (static_cast<quint64>(fila) << 16) | static_cast<quint64>(columna); }

// ---- The zip ------------------------------------------------------------------------------------------------

class Paquete {
public:
    Paquete(const QByteArray& datos, const QString& ruta) : ruta_(ruta) {
        zip_error_t error;
        zip_error_init(&error);
        zip_source_t* fuente = zip_source_buffer_create(datos.constData(), static_cast<zip_uint64_t>(datos.size()), 0, &error);
        if (fuente) {
            zip_ = zip_open_from_source(fuente, ZIP_RDONLY, &error);
            if (!zip_) zip_source_free(fuente);
        }
        zip_error_fini(&error);
        if (!zip_) ErrorLibro(ruta_, QStringLiteral("el archivo no es un libro de Excel (.xlsx)"));
    }
    ~Paquete() {
        if (zip_) zip_discard(zip_);
    }
    Paquete(const Paquete&) = delete;
    Paquete& operator=(const Paquete&) = delete;

    bool Existe(const QString& parte) const { return !parte.isEmpty() && zip_name_locate(zip_, parte.toUtf8().constData(), ZIP_FL_NOCASE) >= 0; }

    // A part as XML; false when the part isn't there. A part that can't be unpacked or isn't XML is a
    // damaged workbook.
    bool Lee(const QString& parte, DocumentoXml& documento) const {
        if (!Existe(parte)) return false;
        const zip_int64_t indice = zip_name_locate(zip_, parte.toUtf8().constData(), ZIP_FL_NOCASE);
        zip_file_t* archivo = zip_fopen_index(zip_, static_cast<zip_uint64_t>(indice), 0);
        if (!archivo) Danado();
        QByteArray bytes;
        char bloque[65536];
        zip_int64_t leidos = 0;
        while ((leidos = zip_fread(archivo, bloque, sizeof bloque)) > 0) {
            if (bytes.size() + leidos > TamanoMaximoParte) {
                zip_fclose(archivo);
                ErrorLibro(ruta_, QStringLiteral("una parte del libro es demasiado grande para leerla"));
            }
            bytes.append(bloque, static_cast<qsizetype>(leidos));
        }
        zip_fclose(archivo);
        if (leidos < 0 || !documento.loadXML(bytes)) Danado();
        return true;
    }

    [[noreturn]] void Danado() const { ErrorLibro(ruta_, QStringLiteral("el archivo está dañado")); }

private:
    QString ruta_;
    zip_t* zip_ = nullptr;
};

// The relationships of a part: id to target, and the target of the first of a type (by the end of its
// type's name, which differs between the transitional and the strict forms).
struct Relaciones {
    QHash<QString, QString> destinos;
    QList<QPair<QString, QString>> tipos;     // type, target
    QString DelTipo(const char* finDelTipo) const {
        for (const auto& [tipo, destino] : tipos)
            if (tipo.endsWith(QLatin1String(finDelTipo))) return destino;
        return QString();
    }
};

// The folder of a part, to resolve its relationships' targets against.
QString CarpetaDe(const QString& parte) {
    const qsizetype barra = parte.lastIndexOf(u'/');
    return barra < 0 ? QString() : parte.left(barra + 1);
}

Relaciones LeeRelaciones(const Paquete& paquete, const QString& parte) {
    Relaciones r;
    const qsizetype barra = parte.lastIndexOf(u'/');
    const QString nombre = CarpetaDe(parte) + QStringLiteral("_rels/") + parte.mid(barra + 1) + QStringLiteral(".rels");
    DocumentoXml documento;
    if (!paquete.Lee(nombre, documento)) return r;
    for (NodoXml n = documento.documentElement()->children; n; n = n->next) {
        if (!Es(n, "Relationship") || Atributo(n, "TargetMode") == u"External") continue;
        QString destino = Atributo(n, "Target");
        // A target is relative to the part's folder, or from the package's root when it starts with "/".
        destino = destino.startsWith(u'/') ? destino.mid(1) : CarpetaDe(parte) + destino;
        destino = QDir::cleanPath(destino);
        if (destino.startsWith(u'/')) destino = destino.mid(1);
        r.destinos.insert(Atributo(n, "Id"), destino);
        r.tipos.append({Atributo(n, "Type"), destino});
    }
    return r;
}

}  // namespace

struct LectorXlsx::Libro {
    std::vector<QString> cadenas;
    std::vector<bool> estiloDeFecha;      // by the cell's style index
    bool fecha1904 = false;
    DocumentoXml hoja;
    QHash<quint64, NodoXml> celdas;

    QString Texto(NodoXml c) const {
        const QString tipo = Atributo(c, "t");
        if (tipo == u"inlineStr") return TextoDeCadena(PrimerHijo(c, "is"));
        NodoXml nodoValor = PrimerHijo(c, "v");
        if (!nodoValor) return QString();
        const QString v = Contenido(nodoValor);
        if (tipo == u"s") {
            bool ok = false;
            const qlonglong i = v.trimmed().toLongLong(&ok);
            return ok && i >= 0 && i < static_cast<qlonglong>(cadenas.size()) ? cadenas[static_cast<size_t>(i)] : QString();
        }
        if (tipo == u"str" || tipo == u"e") return v;
        if (tipo == u"b") return v.isEmpty() ? QString() : vb::Variant(v.trimmed() != u"0").toString();
        if (tipo == u"d") {
            const QDateTime momento = QDateTime::fromString(v.trimmed(), Qt::ISODate);
            return momento.isValid() ? vb::Variant(vb::Fecha(momento)).toString() : v;
        }
        bool ok = false;
        const double numero = v.trimmed().toDouble(&ok);
        if (!ok) return v;
        const qlonglong estilo = Atributo(c, "s").toLongLong();
        if (estilo >= 0 && estilo < static_cast<qlonglong>(estiloDeFecha.size()) && estiloDeFecha[static_cast<size_t>(estilo)])
            return TextoDeSerial(numero, fecha1904 ? DiasSistema1904 : 0);
        return TextoDeNumero(numero);
    }
};

LectorXlsx::LectorXlsx() = default;
LectorXlsx::~LectorXlsx() = default;

void LectorXlsx::Abre(const QString& ruta) {
    Cierra();
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly)) ErrorLibro(ruta, QStringLiteral("no se encontró el archivo o no se puede leer"));
    if (archivo.size() > 8 * TamanoMaximoParte) ErrorLibro(ruta, QStringLiteral("el archivo es demasiado grande para leerlo"));
    AbreDatos(archivo.readAll(), ruta);
}

void LectorXlsx::AbreDatos(const QByteArray& datos, const QString& ruta) {
    Cierra();
    auto libro = std::make_unique<Libro>();
    const Paquete paquete(datos, ruta);

    // The workbook part, as the package names it.
    QString parteLibro = LeeRelaciones(paquete, QString()).DelTipo("/officeDocument");
    if (!paquete.Existe(parteLibro)) parteLibro = QStringLiteral("xl/workbook.xml");
    DocumentoXml documentoLibro;
    if (!paquete.Lee(parteLibro, documentoLibro))
        ErrorLibro(ruta, QStringLiteral("el archivo no es un libro de Excel (.xlsx)"));
    NodoXml raiz = documentoLibro.documentElement();
    const QString sistema1904 = Atributo(PrimerHijo(raiz, "workbookPr"), "date1904");
    libro->fecha1904 = sistema1904 == u"1" || sistema1904 == u"true";
    NodoXml primera = PrimerHijo(PrimerHijo(raiz, "sheets"), "sheet");
    if (!primera) ErrorLibro(ruta, QStringLiteral("el libro no tiene hojas"));
    const Relaciones relaciones = LeeRelaciones(paquete, parteLibro);
    const QString parteHoja = relaciones.destinos.value(Atributo(primera, "id", true));
    if (!paquete.Lee(parteHoja, libro->hoja)) paquete.Danado();

    // Shared strings and styles may be missing: a workbook of numbers alone has no strings.
    QString parte = relaciones.DelTipo("/sharedStrings");
    if (parte.isEmpty()) parte = CarpetaDe(parteLibro) + QStringLiteral("sharedStrings.xml");
    DocumentoXml cadenas;
    if (paquete.Lee(parte, cadenas))
        for (NodoXml si = cadenas.documentElement()->children; si; si = si->next)
            if (Es(si, "si")) libro->cadenas.push_back(TextoDeCadena(si));
    parte = relaciones.DelTipo("/styles");
    if (parte.isEmpty()) parte = CarpetaDe(parteLibro) + QStringLiteral("styles.xml");
    DocumentoXml estilos;
    if (paquete.Lee(parte, estilos)) {
        QHash<QString, QString> codigos;
        for (NodoXml f = PrimerHijo(estilos.documentElement(), "numFmts") ? PrimerHijo(estilos.documentElement(), "numFmts")->children : nullptr;
             f; f = f->next)
            if (Es(f, "numFmt")) codigos.insert(Atributo(f, "numFmtId").trimmed(), Atributo(f, "formatCode"));
        NodoXml xfs = PrimerHijo(estilos.documentElement(), "cellXfs");
        for (NodoXml xf = xfs ? xfs->children : nullptr; xf; xf = xf->next) {
            if (!Es(xf, "xf")) continue;
            const QString id = Atributo(xf, "numFmtId").trimmed();
            libro->estiloDeFecha.push_back(codigos.contains(id) ? CodigoDeFecha(codigos.value(id)) : FormatoFechaIncorporado(id.toInt()));
        }
    }

    // The cells, by row and column. A row or cell without its reference follows the one before it.
    int fila = 0;
    NodoXml datosHoja = PrimerHijo(libro->hoja.documentElement(), "sheetData");
    for (NodoXml r = datosHoja ? datosHoja->children : nullptr; r; r = r->next) {
        if (!Es(r, "row")) continue;
        bool ok = false;
        const int numero = Atributo(r, "r").toInt(&ok);
        fila = ok ? numero : fila + 1;
        if (fila < 1 || fila > FilasMaximas) continue;
        int columna = 0;
        for (NodoXml c = r->children; c; c = c->next) {
            if (!Es(c, "c")) continue;
            int f = fila, col = columna + 1;
            const QString ref = Atributo(c, "r");
            if (!ref.isEmpty() && !LeeReferencia(ref, f, col)) continue;
            columna = col;
            if (f == fila && col >= 1 && col <= ColumnasMaximas) libro->celdas.insert(Clave(fila, col), c);
        }
    }
    libro_ = std::move(libro);
}

QString LectorXlsx::Celda(int fila, int columna) {
    if (!libro_ || fila < 1 || fila > FilasMaximas || columna < 1 || columna > ColumnasMaximas) return QString();
    const auto it = libro_->celdas.constFind(Clave(fila, columna));
    return it == libro_->celdas.constEnd() ? QString() : libro_->Texto(*it);
}

void LectorXlsx::Cierra() { libro_.reset(); }

}  // namespace intercambio
