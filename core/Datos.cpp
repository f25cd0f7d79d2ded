#include "core/Datos.h"

#include "core/controles/ComboBox.h"
#include "core/controles/ListView.h"
#include "core/dao/Dao.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Formato.h"

#include <QComboBox>
#include <QSignalBlocker>

namespace Datos {

namespace {

const QString CrLf = QStringLiteral("\r\n");

// An auto-increment field of a recordset that can be changed: fixed, auto-increment, updatable.
constexpr int AtributosContador = dao::dbFixedField | dao::dbAutoIncrField | dao::dbUpdatableField;

void Ejecuta(const QString& sentencia) { globales::Base().Execute(sentencia, dao::dbFailOnError); }

// The value's numeric value written as a number: "007" gives "7".
QString ComoNumero(const QString& texto) { return vb::Variant(vb::Val(texto)).toString(); }

// Money right-aligned in a column of 14 characters.
QString Rellena(const QString& texto) { return vb::Space(std::max(0, 14 - vb::Len(texto))) + texto; }

// The text of a list cell by its column and the field's type. `clave`: the masks of LlenaListaClave,
// otherwise those of LlenaListaCondicion. A NULL shows as empty text.
QString TextoDeCelda(dao::Field& campo, int columna, bool clave) {
    const vb::Variant v = campo.Value();
    if (columna == 0) {
        if (campo.Type() == dao::dbLong || campo.Attributes() == AtributosContador)
            return vb::Format(v, QStringLiteral("000"));
        return v.text();
    }
    if (v.isNull()) return QString();
    switch (campo.Type()) {
    case dao::dbDate: return vb::Format(v, clave ? QStringLiteral("yyyy/mmm/dd") : QStringLiteral("yyyy/mm/dd"));
    case dao::dbCurrency:
        return Rellena(vb::Format(v, clave ? QStringLiteral("###,###,###.00") : QStringLiteral("###,###,##0.00")));
    case dao::dbInteger:
    case dao::dbLong:
        if (campo.Name() == QLatin1String("NoSolicitud"))
            return vb::Format(v, clave ? QStringLiteral("#00") : QStringLiteral("000"));
        return vb::Format(v, QStringLiteral("#00"));
    default: return v.text();
    }
}

// Walks the statement's rows into the list: column 0 a new row, the others its sub-items.
void LlenaLista(const QString& sentencia, controles::ListView& lista, bool clave) {
    struct SinPintar {
        QWidget* w;
        bool antes;
        ~SinPintar() { w->setUpdatesEnabled(antes); }
    } sinPintar{&lista, lista.updatesEnabled()};
    lista.setUpdatesEnabled(false);

    auto rs = globales::Base().OpenRecordset(sentencia);
    const int n = rs->Fields().Count();
    while (!rs->Eof()) {
        controles::ListItem* item = nullptr;
        for (int i = 0; i < n; ++i) {
            const QString texto = TextoDeCelda(rs->Fields(i), i, clave);
            if (i == 0)
                item = lista.ListItems().Add(texto);
            else
                item->setSubItems(i, texto);
        }
        rs->MoveNext();
    }
    rs->Close();
}

// The numeric value of a field rounded to a whole number; NULL counts as 0.
qint32 Entero(const vb::Variant& v) {
    if (v.isNull() || v.isEmpty()) return 0;
    const double n = v.isNumeric() ? v.toDouble() : vb::Val(v.text());
    return static_cast<qint32>(vb::Round(n));
}

// Runs the statements in order; the first that fails shows "Error: '<description>'" and the rest are skipped.
void EjecutaEnOrden(std::initializer_list<QString> sentencias) {
    try {
        for (const QString& s : sentencias) Ejecuta(s);
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(QStringLiteral("Error: '") + e.Description() + u'\'', ui::vbCritical, QString());
    }
}

}  // namespace

QString DuplicaComillas(const QString& texto) {
    QString r = texto;
    return r.replace(u'\'', QStringLiteral("''"));
}

void LlenaListaClave(ConsultaDatos& c, controles::ListView& lista) {
    lista.ListItems().Clear();
    QString sql;
    if (!c.Tabla.isEmpty()) {
        sql = QStringLiteral("Select ") + c.Campos + QStringLiteral(" From ") + c.Tabla;
        if (!c.Clave.isEmpty()) sql += QStringLiteral(" where ") + c.Clave + u'=' + c.Valor;
    } else {
        sql = QStringLiteral("SELECT ") + c.Campos + QStringLiteral(" FROM ") + c.Clave;
    }
    if (!c.Orden.isEmpty()) sql += QStringLiteral(" order by ") + c.Orden;
    LlenaLista(sql, lista, true);
}

void LlenaListaCondicion(ConsultaDatos& c, controles::ListView& lista) {
    lista.ListItems().Clear();
    QString sql = QStringLiteral("SELECT ") + c.Campos + QStringLiteral(" FROM ") + c.Tabla + c.Clave;
    if (!c.Orden.isEmpty()) sql += QStringLiteral(" ORDER BY ") + c.Orden;
    LlenaLista(sql, lista, false);
}

void LlenaCombo(QComboBox& combo, const QString& campos, const QString& tabla, const QString& orden) {
    globales::Consulta = {campos, tabla, QString(), QString(), orden};
    LlenaCombo(globales::Consulta, combo);
}

void LlenaCombo(ConsultaDatos& c, QComboBox& combo, const QString& idCampo) {
    // Filling fires no event of the combo and leaves nothing chosen.
    const QSignalBlocker bloqueo(&combo);
    combo.clear();
    if (!idCampo.isEmpty()) c.Campos = c.Campos + QStringLiteral(", ") + idCampo + QStringLiteral(" as Invisible ");
    QString sql = QStringLiteral("SELECT ") + c.Campos + QStringLiteral(" FROM ") + c.Tabla;
    if (!c.Clave.isEmpty()) sql += QStringLiteral(" WHERE ") + c.Clave + u'=' + c.Valor;
    if (!c.Orden.isEmpty()) sql += QStringLiteral(" ORDER BY ") + c.Orden;

    auto rs = globales::Base().OpenRecordset(sql);
    const int n = rs->Fields().Count();
    qint32 id = 0;          // not reset between rows
    int indice = 0;
    while (!rs->Eof()) {
        QString texto;
        for (int i = 0; i < n; ++i) {
            dao::Field& campo = rs->Fields(i);
            const vb::Variant v = campo.Value();
            if (campo.Name() == QLatin1String("Invisible") && !idCampo.isEmpty())
                id = Entero(v);
            else if (campo.Type() == dao::dbLong || campo.Type() == dao::dbInteger)
                texto += vb::Format(v, QStringLiteral("000")) + QStringLiteral(" - ");
            else
                texto += v.text() + u' ';
        }
        combo.addItem(vb::Trim(texto));
        if (id != 0) controles::PonItemData(combo, indice, id);
        ++indice;
        rs->MoveNext();
    }
    rs->Close();
    combo.setCurrentIndex(-1);
}

namespace {
// All values of all rows followed by "|"; `resultado` holds what was read when a failure interrupts.
void LeeValores(const QString& sentencia, QString& resultado) {
    auto rs = globales::Base().OpenRecordset(sentencia);
    const int n = rs->Fields().Count();
    while (!rs->Eof()) {
        for (int i = 0; i < n; ++i) resultado += rs->Fields(i).Value().text() + u'|';
        rs->MoveNext();
    }
    rs->Close();
    if (!resultado.isEmpty()) resultado.chop(1);
}
}  // namespace

QString ConsultaCampos(ConsultaDatos& c, const QString& condicion) {
    QString sql = QStringLiteral("Select ") + c.Campos + QStringLiteral(" From ") + c.Tabla;
    if (!c.Clave.isEmpty()) sql += QStringLiteral(" where ") + c.Clave + u'=' + c.Valor;
    if (!condicion.isEmpty()) sql += condicion;
    if (!c.Orden.isEmpty()) sql += QStringLiteral(" ORDER BY ") + c.Orden;
    QString resultado;
    LeeValores(sql, resultado);
    return resultado;
}

QString Consultas_in(ConsultaDatos& c) {
    QString resultado;
    try {
        QString sql = QStringLiteral("Select ") + c.Campos + QStringLiteral(" From ") + c.Clave;
        if (!c.Orden.isEmpty()) sql += QStringLiteral(" order by ") + c.Orden;
        LeeValores(sql, resultado);
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(ui::TextoFallaAtrapada(e.Number(), e.Description(), QStringLiteral("Consultas_in"),
                                                    QStringLiteral("Módulo Datos"), 1),
                             ui::vbCritical, QStringLiteral("ConsultaIN"));
    }
    return resultado;
}

bool GrabarX(AltaDatos& a) {
    try {
        Ejecuta(QStringLiteral("Insert into") + a.Tabla + u'(' + a.Campos + QStringLiteral(") values (") + a.Valores + u')');
        return true;
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(QStringLiteral("Error: '") + e.Description() + QStringLiteral("' Línea: 1"), ui::vbCritical,
                             QStringLiteral("GrabarX"));
        return false;
    }
}

bool BorrarX(ConsultaDatos& c, const QString& extra) {
    try {
        Ejecuta(QStringLiteral("DELETE FROM ") + c.Tabla + QStringLiteral(" where ") + c.Clave + u'=' + c.Valor + u' ' + extra);
        return true;
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(QStringLiteral("Error: '") + e.Description() + QStringLiteral("' Línea 1"), ui::vbCritical,
                             QStringLiteral("BorrarX"));
        return false;
    }
}

bool CambiaGenerico_X(ConsultaDatos& c) {
    QString columnas = c.Campos;
    QString valores = c.Orden;
    QString sql = QStringLiteral("UPDATE ") + c.Tabla + QStringLiteral(" SET ");
    while (columnas.contains(u'|')) {
        const QString columna = TomaCampo(columnas);
        sql += columna + u'=' + TomaCampo(valores) + QStringLiteral(", ");
    }
    const QString columna = TomaCampo(columnas);
    sql += columna + u'=' + TomaCampo(valores);
    sql += QStringLiteral(" WHERE ") + c.Clave + u'=' + c.Valor;
    try {
        Ejecuta(sql);
        (void)globales::Base().RecordsAffected();
        return true;
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(QStringLiteral("Error: '") + e.Description() + QStringLiteral("' Línea: 1") + CrLf +
                                 QStringLiteral("[source]: ") + sql,
                             ui::vbCritical, QStringLiteral("CambiaGenerico_X"));
        return false;
    }
}

void MarcaPedidas(ConsultaDatos& c) {
    QString sql;
    if (c.Tabla == QLatin1String("[Solicitudes General]"))
        sql = QStringLiteral("UPDATE ") + c.Tabla + QStringLiteral(" set Estado='P', FechaPedido=#") +
              vb::Format(vb::Variant(vb::Fecha::Now()), QStringLiteral("yyyy/mm/dd hh:nn:ss")) +
              QStringLiteral("# where NoSolicitud in (") + c.Valor + u')';
    else
        sql = QStringLiteral("UPDATE ") + c.Tabla + QStringLiteral(" set Estado='P' where NoSolicitud in (") + c.Valor + u')';
    EjecutaEnOrden({sql});
}

void MarcaSolicitada(ConsultaDatos& c) {
    EjecutaEnOrden({QStringLiteral("update ") + c.Tabla + QStringLiteral(" set Estado='S' where NoSolicitud=") + c.Valor});
}

QString TomaCampo(QString& texto) {
    const qsizetype p = texto.indexOf(u'|');
    if (p < 0) return texto;
    const QString pieza = texto.left(p);
    texto = texto.mid(p + 1);
    return pieza;
}

void BorraSolicitud(const QString& clave) {
    const QString n = ComoNumero(clave);
    EjecutaEnOrden({
        QStringLiteral("delete n.* from [adquisiciones numadqui] N inner join [Solicitudes Libros] L on "
                       "N.ClaveLibro=L.ClaveLibro where L.NoSolicitud=") + n,
        QStringLiteral("delete from [Solicitudes Libros] where NoSolicitud=") + n,
        QStringLiteral("delete from [Solicitudes General] where NoSolicitud=") + n,
    });
}

void BorraLibroSolicitud(const QString& clave) {
    EjecutaEnOrden({QStringLiteral("delete from [Solicitudes Libros] where ClaveLibro=") + clave});
}

void BorraLibroDonacion(const QString& clave) {
    EjecutaEnOrden({
        QStringLiteral("delete from [Donaciones Libros] where ClaveLibro=") + clave,
        QStringLiteral("delete from [Adquisiciones Numadqui] where [Solicitud o donacion]='D' and ClaveLibro=") + clave,
    });
}

void BorraDonacion(const QString& clave) {
    EjecutaEnOrden({
        QStringLiteral("delete from [Donaciones Libros] where NoDonacion=") + clave,
        QStringLiteral("delete from [Donaciones General] where NoDonacion=") + clave,
    });
}

QString ReemplazaTexto(QString& texto, const QString& busca, const QString& reemplazo) {
    // An empty text sought would be found forever.
    if (busca.isEmpty()) return texto;
    int p = vb::InStr(1, texto, busca);
    while (p > 0) {
        const QString izquierda = vb::Left(texto, p - 1);
        const QString derecha = texto.mid(p - 1 + busca.size());
        texto = izquierda + reemplazo + derecha;
        p = vb::InStr(vb::Len(reemplazo) + vb::Len(izquierda) + 1, texto, busca);
    }
    return texto;
}

}  // namespace Datos
