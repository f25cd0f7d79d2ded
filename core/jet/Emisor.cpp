#include "core/jet/Emisor.h"

#include "core/jet/ErroresMotor.h"
#include "core/jet/FuncionesSqlite.h"
#include "core/jet/Resolver.h"

#include <QRegularExpression>
#include <limits>
#include <optional>

namespace jet {

using namespace detalle;

namespace detalle {

// Joins pieces of text with one allocation: the emitter builds many small strings.
QString Une(std::initializer_list<QStringView> partes) {
    qsizetype n = 0;
    for (const auto& p : partes) n += p.size();
    QString r;
    r.reserve(n);
    for (const auto& p : partes) r.append(p);
    return r;
}

QString LiteralComun(const vb::Variant& v) {
    switch (v.type()) {
    case vb::VarType::Empty:
    case vb::VarType::Null: return QStringLiteral("NULL");
    case vb::VarType::Boolean: return v.toBool() ? QStringLiteral("-1") : QStringLiteral("0");
    case vb::VarType::Integer:
    case vb::VarType::Long:
    case vb::VarType::Byte: return QString::number(v.toLong());
    case vb::VarType::Currency: return QString::number(v.toCurrency().raw());
    case vb::VarType::Single:
    case vb::VarType::Double: {
        const double d = v.toDouble();
        QString t = QString::number(d, 'g', 17);
        if (!t.contains(u'.') && !t.contains(u'e') && !t.contains(QLatin1String("inf")) && !t.contains(QLatin1String("nan")))
            t += QStringLiteral(".0");
        return t;
    }
    case vb::VarType::Date: return CitaTexto(v.toDate().toIso());
    case vb::VarType::String: return CitaTexto(v.toString());
    }
    return QStringLiteral("NULL");
}

}  // namespace detalle

namespace {

bool EsComparacion(QStringView op) {
    return op == u"=" || op == u"<>" || op == u"<" || op == u">" || op == u"<=" || op == u">=";
}

const char* const Colacion = " COLLATE JETTEXT";

}  // namespace

namespace detalle {

bool EsEntero(TipoCampo t) {
    return t == TipoCampo::Boolean || t == TipoCampo::Byte || t == TipoCampo::Integer || t == TipoCampo::Long;
}

bool EsNulo(const Expr& e) { return e.tipo == TipoExpr::Literal && e.valor.isNull(); }

// A literal number, signs included, as money in ten-thousandths. `exacto`: only when it is that amount
// exactly (a comparison); otherwise a Double literal is rounded as it would be on its way into a field.
std::optional<qint64> CrudoLiteral(const Expr& e, bool exacto) {
    const Expr* x = &e;
    bool negativo = false;
    while (x->tipo == TipoExpr::Unario && (x->op == u"-" || x->op == u"+")) {
        if (x->op == u"-") negativo = !negativo;
        x = x->args[0].get();
    }
    if (x->tipo != TipoExpr::Literal) return std::nullopt;
    constexpr quint64 Limite = quint64{1} << 63;
    if (x->decimalExacto) {
        const quint64 m = x->diezmilesimos;
        if (negativo) return m == Limite ? std::numeric_limits<qint64>::min() : -static_cast<qint64>(m);
        if (m >= Limite) return std::nullopt;
        return static_cast<qint64>(m);
    }
    switch (x->valor.type()) {
    case vb::VarType::Integer:
    case vb::VarType::Long:
    case vb::VarType::Byte: {
        const qint64 v = x->valor.toLong() * vb::Currency::Escala;
        return negativo ? -v : v;
    }
    case vb::VarType::Double:
        if (exacto) return std::nullopt;
        try {
            const qint64 v = vb::Currency::fromDouble(x->valor.toDouble()).raw();
            if (negativo && v == std::numeric_limits<qint64>::min()) return std::nullopt;
            return negativo ? -v : v;
        } catch (const vb::Error&) {
            return std::nullopt;
        }
    default: return std::nullopt;
    }
}

QString TextoCrudo(qint64 v) { return v < 0 ? u'(' + QString::number(v) + u')' : QString::number(v); }

}  // namespace detalle

namespace {

// An operand that compares with money in ten-thousandths without leaving whole numbers.
bool CabeEnCrudo(const Expr& e) {
    return e.tipoDato == TipoCampo::Currency || EsEntero(e.tipoDato) || EsNulo(e) || CrudoLiteral(e, true).has_value();
}

// Values compared together: in ten-thousandths when one of them is money and all of them can be; as
// Doubles when one is money and another is not a whole amount; as they are when none is money.
enum class Dominio { Propio, Crudo, Real };
Dominio DominioDe(std::initializer_list<const Expr*> valores) {
    bool moneda = false, crudo = true;
    for (const Expr* v : valores) {
        moneda = moneda || v->tipoDato == TipoCampo::Currency;
        crudo = crudo && CabeEnCrudo(*v);
    }
    return !moneda ? Dominio::Propio : crudo ? Dominio::Crudo : Dominio::Real;
}


}  // namespace

QString Emisor::literal(const vb::Variant& v) { return LiteralComun(v); }

QString Emisor::columna(const Expr& e) { return Une({u"\"", e.fuente->aliasSql, u"\".", CitaNombre(e.campo->nombre)}); }

QString Emisor::parametro(const Expr& e) { return QStringLiteral("?%1").arg(e.parametro + 1); }

QString Emisor::colacionGrupo() const { return QLatin1String(Colacion); }

QString Emisor::colacionPosicion() const { return QLatin1String(Colacion); }

QString Emisor::nombreTabla(const FuenteFrom& f) {
    QString n = CitaNombre(f.def->nombre);
    if (!f.esquemaSql.isEmpty() && f.esquemaSql != QLatin1String("main")) n = CitaNombre(f.esquemaSql) + u'.' + n;
    return n;
}

QString Emisor::paraCampo(const QString& valor, TipoCampo origen, const CampoDef& c) {
    if (origen != TipoCampo::Currency) return conversion(valor, c);
    if (c.tipo == TipoCampo::Currency) {
        CampoDef enCrudo = c;
        enCrudo.tipo = static_cast<TipoCampo>(MonedaEnDiezmilesimos);
        return conversion(valor, enCrudo);
    }
    // Money into a field of another type: as text, or as the Double it is worth.
    if (EsTexto(c.tipo)) return conversion(Une({u"jet_str(", valor, u", 5)"}), c);
    return conversion(Une({u"(", valor, u" / 10000.0)"}), c);
}

QString Emisor::conversion(const QString& valor, const CampoDef& c) {
    return Une({u"jet_conv(", valor, u", ", QString::number(static_cast<int>(c.tipo)), u", ", QString::number(c.tamano),
                u", ", QString::number(c.atributos), c.requerido ? u", 1, " : u", 0, ", c.permiteLongitudCero ? u"1, " : u"0, ",
                CitaTexto(c.nombre), u")"});
}

Emision Emisor::emite(const Sentencia& s, const TablaDef* destino, bool conRowid, const QString& esquemaDestino) {
    Emision r;
    switch (s.clase) {
    case Sentencia::Consulta:
        r.sql = select(*s.select, conRowid, &r);
        r.columnas = s.select->salida;
        return r;
    case Sentencia::Insercion: {
        const QString esquema = esquemaDestino == QLatin1String("main") ? QString() : CitaNombre(esquemaDestino) + u'.';
        QStringList cols, valores;
        QStringList nombres = s.columnas;
        std::vector<const CampoDef*> campos;
        for (const auto& n : nombres) campos.push_back(destino->campo(n));
        // Required fields left out, without a default, are refused like a written Null.
        for (const auto& c : destino->campos) {
            if (!c.requerido || c.contador() || nombres.contains(c.nombre, Qt::CaseInsensitive)) continue;
            if (!PredeterminadoSqlite(c.predeterminado, c.tipo).isEmpty()) continue;
            nombres << c.nombre;
            campos.push_back(&c);
        }
        for (const auto* c : campos) cols << CitaNombre(c->nombre);
        QString tabla = CitaNombre(destino->nombre);
        r.sql = QStringLiteral("INSERT INTO %1%2 (%3) ").arg(esquema, tabla, cols.join(QStringLiteral(", ")));
        if (s.select) {
            const QString interior = select(*s.select, false, nullptr);
            for (size_t i = 0; i < campos.size(); ++i) {
                const QString origen = i < s.select->salida.size() ? QStringLiteral("q.c%1").arg(i) : QStringLiteral("NULL");
                valores << paraCampo(origen, i < s.select->salida.size() ? s.select->salida[i].tipo : TipoCampo::Ninguno,
                                     *campos[i]);
            }
            r.sql += QStringLiteral("SELECT %1 FROM (%2) AS q").arg(valores.join(QStringLiteral(", ")), interior);
        } else {
            for (size_t i = 0; i < campos.size(); ++i) {
                valores << (i < s.valores.size() ? aCampo(*s.valores[i], *campos[i]) : conversion(QStringLiteral("NULL"), *campos[i]));
            }
            r.sql += QStringLiteral("VALUES (%1)").arg(valores.join(QStringLiteral(", ")));
        }
        return r;
    }
    case Sentencia::Actualizacion: {
        // UPDATE over joins: the target by its row id, the others as a FROM list.
        const FuenteFrom* objetivo = nullptr;
        std::function<void(const FuenteFrom&)> busca = [&](const FuenteFrom& f) {
            if (f.clase == FuenteFrom::Join) { busca(*f.izquierda); busca(*f.derecha); }
            else if (f.aliasSql == s.objetivoBorrado) objetivo = &f;
        };
        for (const auto& f : s.from) busca(*f);
        QStringList sets;
        for (const auto& a : s.asignaciones)
            sets << CitaNombre(a.columna) + QStringLiteral(" = ") + aCampo(*a.valor, *destino->campo(a.columna));
        const bool simple = s.from.size() == 1 && s.from[0]->clase == FuenteFrom::Tabla;
        if (simple) {
            r.sql = QStringLiteral("UPDATE %1 AS %2 SET %3").arg(nombreTabla(*objetivo), CitaNombre(objetivo->aliasSql),
                                                             sets.join(QStringLiteral(", ")));
            if (s.where) r.sql += QStringLiteral(" WHERE ") + condicion(*s.where);
        } else {
            QStringList desde;
            for (const auto& f : s.from) desde << fuente(*f);
            // The values come from the joined row of the target row; a correlated lookup per row keeps the
            // join's meaning, including a LEFT JOIN's missing rows.
            QStringList sets2;
            for (const auto& a : s.asignaciones) {
                sets2 << CitaNombre(a.columna) + QStringLiteral(" = (SELECT ") +
                             aCampo(*a.valor, *destino->campo(a.columna)) + QStringLiteral(" FROM ") +
                             desde.join(QStringLiteral(", ")) + QStringLiteral(" WHERE %1.rowid = w.rowid)").arg(CitaNombre(objetivo->aliasSql));
            }
            QString filtro = QStringLiteral("SELECT %1.rowid FROM %2").arg(CitaNombre(objetivo->aliasSql), desde.join(QStringLiteral(", ")));
            if (s.where) filtro += QStringLiteral(" WHERE ") + condicion(*s.where);
            r.sql = QStringLiteral("UPDATE %1 AS w SET %2 WHERE w.rowid IN (%3)")
                        .arg(nombreTabla(*objetivo), sets2.join(QStringLiteral(", ")), filtro);
        }
        return r;
    }
    case Sentencia::Borrado: {
        const FuenteFrom* objetivo = nullptr;
        std::function<void(const FuenteFrom&)> busca = [&](const FuenteFrom& f) {
            if (f.clase == FuenteFrom::Join) { busca(*f.izquierda); busca(*f.derecha); }
            else if (f.aliasSql == s.objetivoBorrado) objetivo = &f;
        };
        for (const auto& f : s.from) busca(*f);
        const bool simple = s.from.size() == 1 && s.from[0]->clase == FuenteFrom::Tabla;
        if (simple) {
            r.sql = QStringLiteral("DELETE FROM %1 AS %2").arg(nombreTabla(*objetivo), CitaNombre(objetivo->aliasSql));
            if (s.where) r.sql += QStringLiteral(" WHERE ") + condicion(*s.where);
        } else {
            QStringList desde;
            for (const auto& f : s.from) desde << fuente(*f);
            QString filtro = QStringLiteral("SELECT %1.rowid FROM %2").arg(CitaNombre(objetivo->aliasSql), desde.join(QStringLiteral(", ")));
            if (s.where) filtro += QStringLiteral(" WHERE ") + condicion(*s.where);
            r.sql = QStringLiteral("DELETE FROM %1 WHERE rowid IN (%2)").arg(nombreTabla(*objetivo), filtro);
        }
        return r;
    }
    default:
        Lanza(ErrSentenciaNoValida);
    }
}

// SQLite reads a GROUP BY or ORDER BY term that is a whole number, signs and parentheses aside, as the
// position of an output column. A constant the statement sorts or groups by is a value: it stays one.
static QString ComoValor(const QString& t) {
    static const QRegularExpression entero(QStringLiteral(R"(^[\s()+\-]*\d+[\s()]*$)"));
    return entero.match(t).hasMatch() ? QStringLiteral("CAST(%1 AS NUMERIC)").arg(t) : t;
}

// Whether no two rows of a sorted query can tie: it reads one table, makes no groups, and sorts by every field
// of a key that no two rows share (the primary key, or a unique index whose fields all hold a value). TOP n
// is then the first n rows, and SQLite stops reading there, where ranking would read the whole table.
static bool SinEmpates(const Select& s) {
    if (s.from.size() != 1 || s.from[0]->clase != FuenteFrom::Tabla || s.agregada || !s.uniones.empty()) return false;
    const FuenteFrom& tabla = *s.from[0];
    QStringList ordenados;
    for (const auto& o : s.orderBy) {
        const Expr* e = o.expr.get();
        if (e->tipo == TipoExpr::Literal && e->columnaSub >= 0) e = s.expandidos[static_cast<size_t>(e->columnaSub)].expr.get();
        else if (e->tipo == TipoExpr::Columna && e->alias) e = e->alias;
        if (e->tipo == TipoExpr::Columna && e->campo && e->fuente == &tabla) ordenados << e->campo->nombre;
    }
    for (const IndiceDef& i : tabla.def->indices) {
        if (!i.unico || i.campos.isEmpty()) continue;
        bool cubierto = true;
        for (const QString& c : i.campos) {
            const CampoDef* campo = tabla.def->campo(c);
            cubierto = cubierto && campo && ordenados.contains(campo->nombre) &&
                       (i.primario || i.requerido || campo->requerido || campo->contador());
        }
        if (cubierto) return true;
    }
    return false;
}

QString Emisor::select(const Select& s, bool conRowid, Emision* salida, const std::vector<ColumnaSalida>* tipos) {
    Profundidad nivel(profundidad_);
    if (s.uniones.empty()) return nucleo(s, conRowid, salida, tipos);
    // Every member writes its columns in the form of the union's types (money, Double, text).
    const std::vector<ColumnaSalida>* comunes = tipos ? tipos : &s.salida;
    QString sql = QStringLiteral("SELECT * FROM (") + nucleo(s, false, nullptr, comunes) + u')' + aliasAnonimo();
    for (const auto& m : s.uniones) {
        sql += m.all ? QStringLiteral(" UNION ALL ") : QStringLiteral(" UNION ");
        sql += QStringLiteral("SELECT * FROM (") + select(*m.select, false, nullptr, comunes) + u')' + aliasAnonimo();
    }
    if (!s.ordenUnion.empty()) {
        QStringList orden;
        for (const auto& o : s.ordenUnion) {
            const int i = o.expr->columnaSub;
            QString t = QString::number(i + 1);
            if (EsTexto(s.salida[static_cast<size_t>(i)].tipo)) t += colacionPosicion();
            t += sentido(o.desc);
            orden << t;
        }
        sql += QStringLiteral(" ORDER BY ") + orden.join(QStringLiteral(", "));
    }
    return sql;
}

QString Emisor::nucleo(const Select& s, bool conRowid, Emision* salida, const std::vector<ColumnaSalida>* tipos) {
    QStringList items;
    for (size_t i = 0; i < s.expandidos.size(); ++i) {
        const Expr& e = *s.expandidos[i].expr;
        QString t = tipos && i < tipos->size() && (*tipos)[i].tipo != e.tipoDato ? enTipo(e, (*tipos)[i].tipo) : expr(e);
        if (s.distinct && EsTexto(e.tipoDato)) t += QLatin1String(Colacion);
        items << Une({t, u" AS c", QString::number(i)});
    }
    const bool unaTabla = s.from.size() == 1 && s.from[0]->clase == FuenteFrom::Tabla;
    // A query that fills every column the engine gives it can't carry the row id as well.
    const bool actualizable =
        unaTabla && !s.agregada && !s.distinct && s.uniones.empty() && items.size() < columnasMaximas();
    bool conFila = false;
    if (conRowid && actualizable && salida) {
        salida->actualizable = true;
        salida->tablaBase = s.from[0]->def->nombre;
        salida->sqlPorFila = QStringLiteral("SELECT %1 FROM %2 WHERE %3.rowid = %4")
                                 .arg(items.join(QStringLiteral(", ")), fuente(*s.from[0]), CitaNombre(s.from[0]->aliasSql), filaPorId());
        items << CitaNombre(s.from[0]->aliasSql) + QStringLiteral(".rowid AS c_rowid");
        conFila = true;
    }
    QString cuerpo;
    if (!s.from.empty()) {
        QStringList desde;
        for (const auto& f : s.from) desde << fuente(*f);
        cuerpo += QStringLiteral(" FROM ") + desde.join(QStringLiteral(", "));
    }
    if (s.where) cuerpo += QStringLiteral(" WHERE ") + condicion(*s.where);
    if (!s.groupBy.empty()) {
        QStringList g;
        for (const auto& e : s.groupBy) g << ComoValor(expr(*e)) + (EsTexto(e->tipoDato) ? colacionGrupo() : QString());
        cuerpo += QStringLiteral(" GROUP BY ") + g.join(QStringLiteral(", "));
    }
    if (s.having) cuerpo += QStringLiteral(" HAVING ") + condicion(*s.having);
    // The sort twice: by output column where the statement names one (ORDER BY 2, an alias), and by
    // expression, as a window function needs it.
    QStringList orden, ordenExpresiones;
    auto ordena = [&](const QString& t, const QString& v, TipoCampo tipo, bool porPosicion, bool desc) {
        const QString cola = sentido(desc);
        const QString colacion = EsTexto(tipo) ? QString::fromLatin1(Colacion) : QString();
        orden << t + (EsTexto(tipo) ? (porPosicion ? colacionPosicion() : colacion) : QString()) + cola;
        ordenExpresiones << v + colacion + cola;
    };
    for (const auto& o : s.orderBy) {
        const Expr& e = *o.expr;
        QString t, v;
        TipoCampo tipo = e.tipoDato;
        bool porPosicion = true;
        if (e.tipo == TipoExpr::Literal && e.columnaSub >= 0) {
            const Expr& item = *s.expandidos[static_cast<size_t>(e.columnaSub)].expr;
            t = QString::number(e.columnaSub + 1);
            v = expr(item);
            tipo = item.tipoDato;
        } else if (e.tipo == TipoExpr::Columna && e.alias) {
            t = QString::number(e.columnaSub + 1);
            v = expr(e);
        } else {
            t = v = ComoValor(expr(e));
            porPosicion = false;
        }
        ordena(t, v, tipo, porPosicion, o.desc);
    }
    // Without an order of its own, a statement that sets rows apart (DISTINCT) or makes groups gives them
    // sorted by what sets them apart, as the engine does in sorting to find them: the same on every back end.
    if (s.orderBy.empty() && s.uniones.empty() && profundidad_ == 1) {
        if (s.distinct) {
            for (size_t i = 0; i < s.expandidos.size(); ++i) {
                const Expr& item = *s.expandidos[i].expr;
                ordena(QString::number(i + 1), expr(item), item.tipoDato, true, false);
            }
        } else {
            for (const auto& e : s.groupBy) {
                const QString t = ComoValor(expr(*e));
                ordena(t, t, e->tipoDato, false, false);
            }
        }
    }
    const QString distinto = s.distinct ? QStringLiteral("DISTINCT ") : QString();
    if (s.top >= 0 && !orden.isEmpty() && !s.distinct && !SinEmpates(s)) {
        if (!s.topPercent) {
            const QString propio = conEmpates(s, QStringLiteral("SELECT ") + items.join(QStringLiteral(", ")) + cuerpo +
                                                     QStringLiteral(" ORDER BY ") + orden.join(QStringLiteral(", ")));
            if (!propio.isEmpty()) return propio;
        }
        // TOP n of a sorted query keeps the rows tied with the last one: every row ranked n or better.
        const QString ventana = QStringLiteral("ORDER BY ") + ordenExpresiones.join(QStringLiteral(", "));
        QStringList exteriores;
        for (size_t i = 0; i < s.expandidos.size(); ++i) exteriores << u'c' + QString::number(i);
        if (conFila) exteriores << QStringLiteral("c_rowid");
        QString limite = QString::number(s.top);
        QString total;
        if (s.topPercent) {
            limite = QStringLiteral("(jet_total * %1 + 99) / 100").arg(s.top);
            total = QStringLiteral(", COUNT(*) OVER () AS jet_total");
        }
        return QStringLiteral("SELECT %1 FROM (SELECT %2, RANK() OVER (%3) AS jet_rango, ROW_NUMBER() OVER (%3) AS jet_fila%4%5)%7 "
                              "WHERE jet_rango <= %6 ORDER BY jet_fila")
            .arg(exteriores.join(QStringLiteral(", ")), items.join(QStringLiteral(", ")), ventana, total, cuerpo, limite, aliasAnonimo());
    }
    QString sql = QStringLiteral("SELECT ") + distinto + items.join(QStringLiteral(", ")) + cuerpo;
    // A sort by a key that no two rows share leaves nothing to settle.
    if (const QString d = desempate(s); !d.isEmpty() && (orden.isEmpty() || !SinEmpates(s))) orden << d;
    if (!orden.isEmpty()) sql += QStringLiteral(" ORDER BY ") + orden.join(QStringLiteral(", "));
    if (s.top >= 0) {
        if (s.topPercent) {
            const QString sinLimite = sql;
            sql += QStringLiteral(" LIMIT (SELECT (COUNT(*) * %1 + 99) / 100 FROM (%2)%3)").arg(s.top).arg(sinLimite, aliasAnonimo());
        } else {
            sql += QStringLiteral(" LIMIT %1").arg(s.top);
        }
    }
    return sql;
}

QString Emisor::fuente(const FuenteFrom& f) {
    Profundidad nivel(profundidad_);
    switch (f.clase) {
    case FuenteFrom::Tabla:
        return Une({nombreTabla(f), u" AS \"", f.aliasSql, u"\""});
    case FuenteFrom::Derivada:
        return u'(' + select(*f.sub, false, nullptr) + QStringLiteral(") AS ") + CitaNombre(f.aliasSql);
    case FuenteFrom::Join: {
        QString der = fuente(*f.derecha);
        if (f.derecha->clase == FuenteFrom::Join) der = u'(' + der + u')';
        QString tipo = f.tipoJoin == QLatin1String("LEFT") ? QStringLiteral(" LEFT JOIN ")
                       : f.tipoJoin == QLatin1String("RIGHT") ? QStringLiteral(" RIGHT JOIN ")
                                                              : QStringLiteral(" INNER JOIN ");
        QString izq = fuente(*f.izquierda);
        if (f.izquierda->clase == FuenteFrom::Join) izq = u'(' + izq + u')';
        return izq + tipo + der + QStringLiteral(" ON ") + condicion(*f.on);
    }
    }
    return {};
}

QString Emisor::expresion(const Expr& e) { return condicion(e); }

QString Emisor::like(const Expr& e) {
    return Une({e.negado ? u"(NOT jet_like(" : u"(jet_like(", comoTexto(*e.args[0]), u", ", comoTexto(*e.args[1]), u"))"});
}

QString Emisor::comoTexto(const Expr& e) {
    if (EsTexto(e.tipoDato)) return expr(e);
    if (e.tipo == TipoExpr::Literal) {
        if (e.valor.isNull()) return QStringLiteral("NULL");
        return CitaTexto(e.valor.toString());
    }
    return Une({u"jet_str(", expr(e), u", ", QString::number(static_cast<int>(e.tipoDato)), u")"});
}

QString Emisor::comoNumero(const Expr& e) {
    if (EsTexto(e.tipoDato) || e.tipoDato == TipoCampo::Ninguno) return Une({u"jet_num(", expr(e), u")"});
    if (e.tipoDato == TipoCampo::Currency) return Une({u"(", expr(e), u" / 10000.0)"});
    return expr(e);
}

QString Emisor::crudo(const Expr& e) {
    if (e.tipoDato == TipoCampo::Currency) return expr(e);
    if (EsNulo(e)) return QStringLiteral("NULL");
    if (auto v = CrudoLiteral(e, false)) return TextoCrudo(*v);
    if (EsEntero(e.tipoDato)) return Une({u"(", expr(e), u" * 10000)"});
    return Une({u"jet_acur(", expr(e), u")"});
}

QString Emisor::enTipo(const Expr& e, TipoCampo tipo) {
    if (tipo == TipoCampo::Currency) return crudo(e);
    if (e.tipoDato != TipoCampo::Currency) return expr(e);
    return EsTexto(tipo) ? comoTexto(e) : comoNumero(e);
}

QString Emisor::aCampo(const Expr& e, const CampoDef& c) {
    // Money, or a number written with its exact amount, goes into a money field as ten-thousandths.
    if (c.tipo == TipoCampo::Currency && (e.tipoDato == TipoCampo::Currency || CrudoLiteral(e, false)))
        return paraCampo(crudo(e), TipoCampo::Currency, c);
    return paraCampo(expr(e), e.tipoDato, c);
}

namespace {

// Operands of a chain written as SQLite reads them without a deep tree: runs of a few dozen flat, the runs
// joined two by two. SQLite's parser and its limit on expression depth then see a shallow tree however
// long the chain is; the operator being associative, the value is the same.
constexpr qsizetype TramoPlano = 48;

void Agrupa(const QStringList& partes, qsizetype desde, qsizetype hasta, QStringView separador, QString& salida) {
    if (hasta - desde <= TramoPlano) {
        salida += u'(';
        for (qsizetype i = desde; i < hasta; ++i) {
            if (i > desde) salida += separador;
            salida += partes[i];
        }
        salida += u')';
        return;
    }
    const qsizetype medio = desde + (hasta - desde) / 2;
    salida += u'(';
    Agrupa(partes, desde, medio, separador, salida);
    salida += separador;
    Agrupa(partes, medio, hasta, separador, salida);
    salida += u')';
}

// The same for a function of any number of arguments: at most a hundred to a call (SQLite takes 127).
void AgrupaLlamada(const QStringList& partes, qsizetype desde, qsizetype hasta, QStringView funcion, QString& salida) {
    salida += funcion;
    salida += u'(';
    if (hasta - desde <= 100) {
        for (qsizetype i = desde; i < hasta; ++i) {
            if (i > desde) salida += QLatin1String(", ");
            salida += partes[i];
        }
    } else {
        const qsizetype medio = desde + (hasta - desde) / 2;
        AgrupaLlamada(partes, desde, medio, funcion, salida);
        salida += QLatin1String(", ");
        AgrupaLlamada(partes, medio, hasta, funcion, salida);
    }
    salida += u')';
}

}  // namespace

QString Emisor::cadena(const Expr& e) {
    const QStringView op = e.op;
    QStringList partes;
    partes.reserve(static_cast<qsizetype>(e.args.size()));
    QString salida;
    if (op == u"&") {
        for (const auto& x : e.args) partes << comoTexto(*x);
        AgrupaLlamada(partes, 0, partes.size(), funcionConcatenacion(), salida);
        return salida;
    }
    if (op == u"AND" || op == u"OR") {
        for (const auto& x : e.args) partes << condicion(*x);
        Agrupa(partes, 0, partes.size(), op == u"AND" ? QStringView(u" AND ") : QStringView(u" OR "), salida);
        return salida;
    }
    if (op == u"+" && EsTexto(e.tipoDato)) {
        for (const auto& x : e.args) partes << expr(*x);
        Agrupa(partes, 0, partes.size(), u" || ", salida);
        return salida;
    }
    if (e.tipoDato == TipoCampo::Currency) {
        // Money: sums of whole ten-thousandths; a product scales by whole numbers, or by other amounts
        // rounding each step.
        int montos = 0;
        for (const auto& x : e.args) montos += x->tipoDato == TipoCampo::Currency ? 1 : 0;
        if (op == u"*" && montos > 1) {
            for (const auto& x : e.args) partes << crudo(*x);
            AgrupaLlamada(partes, 0, partes.size(), u"jet_mulcur", salida);
            return salida;
        }
        for (const auto& x : e.args) partes << (op == u"+" ? crudo(*x) : expr(*x));
        Agrupa(partes, 0, partes.size(), op == u"+" ? QStringView(u" + ") : QStringView(u" * "), salida);
        return salida;
    }
    // + and * of numbers.
    for (const auto& x : e.args) partes << comoNumero(*x);
    Agrupa(partes, 0, partes.size(), op == u"+" ? QStringView(u" + ") : QStringView(u" * "), salida);
    return salida;
}

QString Emisor::binario(const Expr& e) {
    if (e.args.size() > 2) return cadena(e);
    const Expr& a = *e.args[0];
    const Expr& b = *e.args[1];
    const QStringView op = e.op;
    if (EsComparacion(op)) {
        switch (DominioDe({&a, &b})) {
        case Dominio::Crudo: return Une({u"(", crudo(a), u" ", op, u" ", crudo(b), u")"});
        case Dominio::Real: return Une({u"(", comoNumero(a), u" ", op, u" ", comoNumero(b), u")"});
        case Dominio::Propio: break;
        }
        const bool texto = EsTexto(a.tipoDato) || EsTexto(b.tipoDato);
        const bool numerico = EsNumerico(a.tipoDato) || EsNumerico(b.tipoDato);
        if (texto && numerico) {
            return Une({u"(", comoNumero(a), u" ", op, u" ", comoNumero(b), u")"});
        }
        if (texto) return Une({u"(", expr(a), u" ", op, u" (", expr(b), u") COLLATE JETTEXT)"});
        return Une({u"(", expr(a), u" ", op, u" ", expr(b), u")"});
    }
    if (op == u"AND" || op == u"OR") return Une({u"(", condicion(a), u" ", op, u" ", condicion(b), u")"});
    if (op == u"XOR") return QStringLiteral("((%1 <> 0) <> (%2 <> 0))").arg(expr(a), expr(b));
    if (op == u"EQV") return QStringLiteral("((%1 <> 0) = (%2 <> 0))").arg(expr(a), expr(b));
    if (op == u"IMP") return QStringLiteral("((%1 = 0) OR (%2 <> 0))").arg(expr(a), expr(b));
    if (op == u"&") return Une({funcionConcatenacion(), u"(", comoTexto(a), u", ", comoTexto(b), u")"});
    if (op == u"+" && EsTexto(e.tipoDato)) return QStringLiteral("(%1 || %2)").arg(expr(a), expr(b));
    if ((op == u"+" || op == u"-") && (a.tipoDato == TipoCampo::Date || b.tipoDato == TipoCampo::Date)) {
        if (op == u"-" && a.tipoDato == TipoCampo::Date && b.tipoDato == TipoCampo::Date)
            return QStringLiteral("jet_fecha_dif(%1, %2)").arg(expr(a), expr(b));
        if (a.tipoDato == TipoCampo::Date)
            return op == u"-" ? QStringLiteral("jet_fecha_mas(%1, -(%2))").arg(expr(a), comoNumero(b))
                              : QStringLiteral("jet_fecha_mas(%1, %2)").arg(expr(a), comoNumero(b));
        return QStringLiteral("jet_fecha_mas(%1, %2)").arg(expr(b), comoNumero(a));
    }
    if (e.tipoDato == TipoCampo::Currency && (op == u"+" || op == u"-" || op == u"*")) {
        if (op != u"*") return Une({u"(", crudo(a), u" ", op, u" ", crudo(b), u")"});
        if (a.tipoDato == TipoCampo::Currency && b.tipoDato == TipoCampo::Currency)
            return Une({u"jet_mulcur(", expr(a), u", ", expr(b), u")"});
        return Une({u"(", expr(a), u" * ", expr(b), u")"});
    }
    if (op == u"/") return QStringLiteral("(CAST(%1 AS REAL) / %2)").arg(comoNumero(a), comoNumero(b));
    if (op == u"\\") return QStringLiteral("jet_divent(%1, %2)").arg(comoNumero(a), comoNumero(b));
    if (op == u"MOD") return QStringLiteral("jet_mod(%1, %2)").arg(comoNumero(a), comoNumero(b));
    if (op == u"^") return QStringLiteral("jet_pot(%1, %2)").arg(comoNumero(a), comoNumero(b));
    return Une({u"(", comoNumero(a), u" ", op, u" ", comoNumero(b), u")"});
}

QString Emisor::funcion(const Expr& e) {
    const QString n = e.nombre.toUpper();
    auto arg = [&](size_t i) { return expr(*e.args[i]); };
    if (n == "COUNT") {
        if (e.args[0]->tipo == TipoExpr::Estrella) return QStringLiteral("count(*)");
        return QStringLiteral("count(%1)").arg(arg(0));
    }
    const bool moneda = !e.args.empty() && e.args[0]->tipoDato == TipoCampo::Currency;
    if (moneda) {
        // Money in, money out, in ten-thousandths: sums exact in 64 bits, the mean rounded half to even.
        if (n == "SUM") return Une({u"sum(", arg(0), u")"});
        if (n == "AVG") {
            const QString x = arg(0);
            return Une({u"jet_promcur(sum(", x, u"), count(", x, u"))"});
        }
        if (n == "ABS") return Une({u"abs(", arg(0), u")"});
        if (n == "CCUR") return arg(0);
        if (n == "INT" || n == "FIX") return Une({u"jet_redcur(", arg(0), n == "INT" ? u", 0)" : u", 1)"});
        if (n == "ROUND")
            return Une({u"jet_redcur(", arg(0), u", 2", e.args.size() > 1 ? QStringLiteral(", ") + comoNumero(*e.args[1]) : QString(), u")"});
    }
    if (n == "SUM" || n == "AVG") return QStringLiteral("%1(%2)").arg(n.toLower(), comoNumero(*e.args[0]));
    if (n == "MIN" || n == "MAX")
        return QStringLiteral("%1(%2%3)").arg(n.toLower(), arg(0), EsTexto(e.args[0]->tipoDato) ? QLatin1String(Colacion) : QLatin1String(""));
    if (n == u"IIF")
        return Une({u"(CASE WHEN ", condicion(*e.args[0]), u" THEN ", enTipo(*e.args[1], e.tipoDato), u" ELSE ", enTipo(*e.args[2], e.tipoDato), u" END)"});
    if (n == u"ISNULL") return Une({u"(-(", arg(0), u" IS NULL))"});   // True is -1, as IsNull(x) = True expects
    if (n == "NZ")
        return QStringLiteral("coalesce(%1, %2)").arg(enTipo(*e.args[0], e.tipoDato),
                                                     e.args.size() > 1 ? enTipo(*e.args[1], e.tipoDato) : QStringLiteral("0"));
    if (n == "ABS") return QStringLiteral("abs(%1)").arg(comoNumero(*e.args[0]));
    if (n == "CSTR" || n == "STR") return comoTexto(*e.args[0]);
    if (n == "FORMAT") {
        QString r = QStringLiteral("jet_format(%1, %2").arg(arg(0)).arg(static_cast<int>(e.args[0]->tipoDato));
        if (e.args.size() > 1) r += QStringLiteral(", ") + comoTexto(*e.args[1]);
        return r + u')';
    }
    if (n == "NOW" || n == "DATE") return QStringLiteral("jet_%1()").arg(n.toLower());
    if (n == "CVDATE" || n == "DATEVALUE") return QStringLiteral("jet_cdate(%1)").arg(arg(0));
    QStringList args;
    for (const auto& a : e.args) {
        // Text functions read typed values as text; the others get what SQLite holds.
        const bool textual = n == "MID" || n == "LEFT" || n == "RIGHT" || n == "LEN" || n.endsWith("TRIM") ||
                             n == "UCASE" || n == "LCASE" || n == "REPLACE" || n == "VAL";
        args << (textual && &a == &e.args[0] ? comoTexto(*a) : a->tipoDato == TipoCampo::Currency ? comoNumero(*a) : expr(*a));
    }
    return Une({u"jet_", n.toLower(), u"(", args.join(QStringLiteral(", ")), u")"});
}

QString Emisor::nodo(const Expr& e) {
    Profundidad nivel(profundidad_);
    switch (e.tipo) {
    case TipoExpr::Literal:
        return literal(e.valor);
    case TipoExpr::Columna:
        if (e.parametro >= 0) return parametro(e);
        if (e.alias) return u'(' + expr(*e.alias) + u')';
        if (e.campo) return columna(e);
        if (e.fuente && e.columnaSub >= 0) return Une({u"\"", e.fuente->aliasSql, u"\".c", QString::number(e.columnaSub)});
        Lanza(ErrPocosParametros, QStringLiteral("1"));
    case TipoExpr::Estrella:
        return QStringLiteral("*");
    case TipoExpr::Unario:
        if (e.op == u"NOT") return Une({u"(NOT ", condicion(*e.args[0]), u")"});
    {
        // A blank keeps a sign before a negative operand (True is -1) from reading as the start of a comment.
        const QString operando = e.tipoDato == TipoCampo::Currency ? expr(*e.args[0]) : comoNumero(*e.args[0]);
        return Une({u"(", e.op, operando.startsWith(u'-') ? u" " : u"", operando, u")"});
    }
    case TipoExpr::Binario:
        return binario(e);
    case TipoExpr::Between: {
        const bool texto = EsTexto(e.args[0]->tipoDato);
        const Dominio d = DominioDe({e.args[0].get(), e.args[1].get(), e.args[2].get()});
        auto valor = [&](size_t i) {
            return d == Dominio::Crudo ? crudo(*e.args[i]) : d == Dominio::Real ? comoNumero(*e.args[i]) : expr(*e.args[i]);
        };
        return QStringLiteral("(%1%2 %3BETWEEN %4 AND %5)")
            .arg(valor(0), texto ? QLatin1String(Colacion) : QLatin1String(""),
                 e.negado ? QStringLiteral("NOT ") : QString(), valor(1), valor(2));
    }
    case TipoExpr::EnLista: {
        Dominio d = Dominio::Propio;
        for (size_t i = 1; i < e.args.size(); ++i) {
            const Dominio di = DominioDe({e.args[0].get(), e.args[i].get()});
            if (di == Dominio::Real || (di == Dominio::Crudo && d == Dominio::Propio)) d = di;
        }
        auto valor = [&](size_t i) {
            return d == Dominio::Crudo ? crudo(*e.args[i]) : d == Dominio::Real ? comoNumero(*e.args[i]) : expr(*e.args[i]);
        };
        QStringList l;
        for (size_t i = 1; i < e.args.size(); ++i) l << valor(i);
        const bool texto = EsTexto(e.args[0]->tipoDato);
        return QStringLiteral("(%1%2 %3IN (%4))")
            .arg(valor(0), texto ? QLatin1String(Colacion) : QLatin1String(""),
                 e.negado ? QStringLiteral("NOT ") : QString(), l.join(QStringLiteral(", ")));
    }
    case TipoExpr::EnSelect: {
        const Expr& v = *e.args[0];
        const bool texto = EsTexto(v.tipoDato);
        QString izquierda = expr(v);
        QString sub = select(*e.sub);
        // Money on one side only: both in ten-thousandths when the other side is whole, else as Doubles.
        const TipoCampo otro = e.sub->salida.empty() ? TipoCampo::Ninguno : e.sub->salida[0].tipo;
        if ((v.tipoDato == TipoCampo::Currency) != (otro == TipoCampo::Currency)) {
            if (v.tipoDato == TipoCampo::Currency) {
                if (EsEntero(otro)) sub = Une({u"SELECT c0 * 10000 FROM (", sub, u")", aliasAnonimo()});
                else izquierda = comoNumero(v);
            } else if (CabeEnCrudo(v)) {
                izquierda = crudo(v);
            } else {
                sub = Une({u"SELECT c0 / 10000.0 FROM (", sub, u")", aliasAnonimo()});
            }
        }
        return QStringLiteral("(%1%2 %3IN (%4))")
            .arg(izquierda, texto ? QLatin1String(Colacion) : QLatin1String(""), e.negado ? QStringLiteral("NOT ") : QString(), sub);
    }
    case TipoExpr::Exists:
        return QStringLiteral("EXISTS (%1)").arg(select(*e.sub));
    case TipoExpr::EsNulo:
        return Une({u"(", expr(*e.args[0]), e.negado ? u" IS NOT NULL)" : u" IS NULL)"});
    case TipoExpr::Like:
        return like(e);
    case TipoExpr::Funcion:
        return funcion(e);
    case TipoExpr::Subconsulta:
        return u'(' + select(*e.sub) + u')';
    }
    return {};
}

}  // namespace jet
