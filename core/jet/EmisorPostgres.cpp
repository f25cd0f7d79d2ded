#include "core/jet/EmisorPostgres.h"

#include "core/jet/ErroresMotor.h"

namespace jet {

using namespace detalle;

namespace {

// Nodes the server evaluates to a boolean. Where the dialect wants their value they become -1/0; where it
// wants a condition a value becomes `<> 0`.
bool EsPredicado(const Expr& e) {
    switch (e.tipo) {
    case TipoExpr::Binario:
        return e.op == u"=" || e.op == u"<>" || e.op == u"<" || e.op == u">" || e.op == u"<=" || e.op == u">=" ||
               e.op == u"AND" || e.op == u"OR" || e.op == u"XOR" || e.op == u"EQV" || e.op == u"IMP";
    case TipoExpr::Unario: return e.op == u"NOT";
    case TipoExpr::Between:
    case TipoExpr::EnLista:
    case TipoExpr::EnSelect:
    case TipoExpr::Exists:
    case TipoExpr::EsNulo:
    case TipoExpr::Like: return true;
    default: return false;
    }
}

// A text literal's SQL, as the library's functions take it. The server's texts can't hold the character 0:
// a text carrying one is refused whole rather than cut short where it stands.
QString Texto(const QString& t) {
    if (t.contains(QChar(0))) Lanza(ErrTiposNoCoinciden);
    return CitaTexto(t);
}

// The description the engine gives error `numero` about field `campo`: the server raises it as it is.
QString Descripcion(int numero, const QString& campo) { return CitaTexto(DescripcionError(numero, campo)); }

}  // namespace

QString EmisorPostgres::TipoValor(TipoCampo tipo) {
    switch (tipo) {
    case TipoCampo::Boolean:
    case TipoCampo::Byte:
    case TipoCampo::Integer:
    case TipoCampo::Long: return QStringLiteral("integer");
    case TipoCampo::Currency: return QStringLiteral("numeric");
    case TipoCampo::Single:
    case TipoCampo::Double: return QStringLiteral("double precision");
    case TipoCampo::Date: return QStringLiteral("timestamp(0)");
    case TipoCampo::Binary:
    case TipoCampo::LongBinary: return QStringLiteral("bytea");
    default: return QStringLiteral("text");
    }
}

QString EmisorPostgres::expr(const Expr& e) {
    if (EsPredicado(e)) return Une({u"(-(", nodo(e), u")::integer)"});
    return nodo(e);
}

QString EmisorPostgres::condicion(const Expr& e) {
    if (EsPredicado(e)) return nodo(e);
    if (EsNulo(e)) return QStringLiteral("NULL::boolean");
    return Une({u"(", comoNumero(e), u" <> 0)"});
}

QString EmisorPostgres::literal(const vb::Variant& v) {
    switch (v.type()) {
    case vb::VarType::Single:
    case vb::VarType::Double: {
        const QString t = LiteralComun(v);
        if (t.contains(QLatin1String("inf")) || t.contains(QLatin1String("nan")))
            return Une({u"'", t.contains(QLatin1String("nan")) ? u"NaN" : t.startsWith(u'-') ? u"-Infinity" : u"Infinity",
                        u"'::double precision"});
        return Une({t, u"::double precision"});
    }
    case vb::VarType::Date: return Une({u"TIMESTAMP ", CitaTexto(v.toDate().toIso())});
    case vb::VarType::String: return Texto(v.toString());
    default: return LiteralComun(v);
    }
}

QString EmisorPostgres::columna(const Expr& e) {
    const QString c = Emisor::columna(e);
    // Money is kept in natural units; expressions count it in ten-thousandths.
    if (e.campo->tipo == TipoCampo::Currency) return Une({u"(", c, u" * 10000)"});
    return c;
}

QString EmisorPostgres::parametro(const Expr& e) {
    return Une({u"$", QString::number(e.parametro + 1), u"::", TipoValor(e.tipoDato)});
}

QString EmisorPostgres::textoDe(const QString& valor, TipoCampo tipo) {
    switch (tipo) {
    case TipoCampo::Text:
    case TipoCampo::Memo: return valor;
    case TipoCampo::Boolean: return Une({u"jet_str_sino(", valor, u")"});
    case TipoCampo::Byte:
    case TipoCampo::Integer:
    case TipoCampo::Long: return Une({u"(", valor, u")::text"});
    case TipoCampo::Currency: return Une({u"jet_str_moneda(", valor, u")"});
    case TipoCampo::Single: return Une({u"jet_str_num(", valor, u", 7)"});
    case TipoCampo::Double: return Une({u"jet_str_num(", valor, u", 15)"});
    case TipoCampo::Date: return Une({u"jet_str_fecha(", valor, u")"});
    default: return Une({u"(", valor, u")::text"});
    }
}

QString EmisorPostgres::comoTexto(const Expr& e) {
    if (EsTexto(e.tipoDato)) return expr(e);
    if (e.tipo == TipoExpr::Literal) {
        if (e.valor.isNull()) return QStringLiteral("NULL::text");
        return Texto(e.valor.toString());
    }
    return textoDe(expr(e), e.tipoDato);
}

QString EmisorPostgres::comoNumero(const Expr& e) {
    if (EsNulo(e)) return QStringLiteral("NULL::double precision");
    if (EsTexto(e.tipoDato) || e.tipoDato == TipoCampo::Ninguno) return Une({u"jet_num(", expr(e), u")"});
    if (e.tipoDato == TipoCampo::Currency) return Une({u"(", expr(e), u"::double precision / 10000)"});
    // Whole numbers of a field widen before arithmetic: the dialect's sums of Integers don't stop at 32767.
    if (EsEntero(e.tipoDato) && e.tipo != TipoExpr::Literal) return Une({u"(", expr(e), u")::bigint"});
    return expr(e);
}

QString EmisorPostgres::crudo(const Expr& e) {
    if (e.tipoDato == TipoCampo::Currency) return expr(e);
    if (EsNulo(e)) return QStringLiteral("NULL::numeric");
    if (auto v = CrudoLiteral(e, false)) return TextoCrudo(*v);
    if (EsEntero(e.tipoDato)) return Une({u"(", expr(e), u" * 10000::numeric)"});
    if (EsTexto(e.tipoDato) || e.tipoDato == TipoCampo::Ninguno) return Une({u"jet_acur_texto(", expr(e), u")"});
    return Une({u"jet_acur(", expr(e), u")"});
}

QString EmisorPostgres::enTipo(const Expr& e, TipoCampo tipo) {
    if (EsNulo(e)) return Une({u"NULL::", TipoValor(tipo)});
    if (EsTexto(tipo) && !EsTexto(e.tipoDato)) return comoTexto(e);
    if ((tipo == TipoCampo::Double || tipo == TipoCampo::Single) && EsTexto(e.tipoDato)) return comoNumero(e);
    return Emisor::enTipo(e, tipo);
}

QString EmisorPostgres::conversion(const QString& valor, const CampoDef& campo) {
    return paraCampo(valor, TipoCampo::Ninguno, campo);
}

QString EmisorPostgres::paraCampo(const QString& valor, TipoCampo origen, const CampoDef& c) {
    const QString requerido = c.requerido && !c.contador() ? QStringLiteral("true") : QStringLiteral("false");
    const QString faltante = Descripcion(ErrRequerido, c.nombre);
    switch (c.tipo) {
    case TipoCampo::Text:
    case TipoCampo::Memo:
        return Une({u"jet_a_texto(", textoDe(valor, origen), u", ", QString::number(c.tipo == TipoCampo::Text ? c.tamano : 0),
                    u", ", requerido, u", ", c.permiteLongitudCero ? u"true" : u"false", u", ", faltante, u", ",
                    Descripcion(ErrCampoDemasiadoPequeno, c.nombre), u", ", Descripcion(ErrLongitudCero, c.nombre), u")"});
    case TipoCampo::Currency: {
        QString diezmilesimos = valor;
        if (origen != TipoCampo::Currency) {
            if (EsEntero(origen)) diezmilesimos = Une({u"(", valor, u" * 10000::numeric)"});
            // Unbounded here: a value beyond the type is the field's overflow, told below with its name.
            else if (EsTexto(origen) || origen == TipoCampo::Ninguno)
                diezmilesimos = Une({u"jet_par(jet_numerico(", valor, u") * 10000)"});
            else if (origen == TipoCampo::Date) diezmilesimos = Une({u"jet_acur(", valor, u")"});
            else diezmilesimos = Une({u"jet_par((", valor, u")::numeric * 10000)"});
        }
        return Une({u"jet_a_moneda(", diezmilesimos, u", ", requerido, u", ", faltante, u", ",
                    Descripcion(ErrDesbordamientoCampo, c.nombre), u")"});
    }
    case TipoCampo::Date: {
        QString fecha = valor;
        if (EsTexto(origen) || origen == TipoCampo::Ninguno) fecha = Une({u"jet_lee_fecha(", valor, u"::text)"});
        else if (origen != TipoCampo::Date) fecha = Une({u"jet_lee_fecha((", valor, u")::double precision)"});
        return Une({u"jet_a_fecha(", fecha, u", ", requerido, u", ", faltante, u")"});
    }
    case TipoCampo::Binary:
    case TipoCampo::LongBinary:
        return Une({u"jet_a_binario(", valor, u", ", requerido, u", ", faltante, u")"});
    default: break;
    }
    // Numbers: from text through the engine's reading of numbers, from money by its worth.
    QString numero = valor;
    if (EsTexto(origen) || origen == TipoCampo::Ninguno) numero = Une({u"jet_num(", valor, u"::text)"});
    else if (origen == TipoCampo::Currency) numero = Une({u"(", valor, u"::double precision / 10000)"});
    else if (origen == TipoCampo::Date) numero = Une({u"jet_serial(", valor, u")"});
    switch (c.tipo) {
    case TipoCampo::Boolean: return Une({u"jet_a_sino(", numero, u", ", requerido, u", ", faltante, u")"});
    case TipoCampo::Byte:
    case TipoCampo::Integer:
    case TipoCampo::Long: {
        const QString minimo = c.tipo == TipoCampo::Byte ? QStringLiteral("0") : c.tipo == TipoCampo::Integer ? QStringLiteral("-32768")
                                                                                                            : QStringLiteral("-2147483648");
        const QString maximo = c.tipo == TipoCampo::Byte ? QStringLiteral("255") : c.tipo == TipoCampo::Integer ? QStringLiteral("32767")
                                                                                                              : QStringLiteral("2147483647");
        return Une({u"jet_a_entero(", numero, u", ", minimo, u", ", maximo, u", ", requerido, u", ", faltante, u", ",
                    Descripcion(ErrDesbordamientoCampo, c.nombre), u")"});
    }
    default:
        return Une({u"jet_a_real(", numero, u", ", requerido, u", ", faltante, u")"});
    }
}

QString EmisorPostgres::binario(const Expr& e) {
    if (e.args.size() == 2) {
        const Expr& a = *e.args[0];
        const Expr& b = *e.args[1];
        // Division by zero gives Null, as it does on the file engine.
        if (e.op == u"/") return QStringLiteral("(%1::double precision / NULLIF(%2, 0)::double precision)").arg(comoNumero(a), comoNumero(b));
    }
    return Emisor::binario(e);
}

QString EmisorPostgres::funcion(const Expr& e) {
    const QString n = e.nombre.toUpper();
    const TipoCampo t0 = e.args.empty() ? TipoCampo::Ninguno : e.args[0]->tipoDato;
    if (n == u"ISNULL") return Une({u"(-(", expr(*e.args[0]), u" IS NULL)::integer)"});
    if (n == u"NZ" && e.args.size() == 1) {
        // Null as zero, in the value's own type.
        const QString cero = EsTexto(e.tipoDato) ? QStringLiteral("'0'")
                             : e.tipoDato == TipoCampo::Date ? QStringLiteral("TIMESTAMP '1899-12-30 00:00:00'")
                                                             : QStringLiteral("0");
        return Une({u"coalesce(", expr(*e.args[0]), u", ", cero, u")"});
    }
    // A sum of money beyond 64 bits of ten-thousandths overflows, as it does in the file engine.
    if (n == u"SUM" && t0 == TipoCampo::Currency) return Une({u"jet_acur_num(sum(", expr(*e.args[0]), u"))"});
    if (n == u"AVG" && t0 != TipoCampo::Currency) return Une({u"avg(", comoNumero(*e.args[0]), u"::double precision)"});
    // Int, Fix and Abs of whole numbers keep them whole; Round of a whole number is the number.
    if ((n == u"INT" || n == u"FIX" || (n == u"ROUND" && e.args.size() == 1)) && EsEntero(t0)) return expr(*e.args[0]);
    if (n == u"FORMAT") {
        const Expr& x = *e.args[0];
        const QString mascara = e.args.size() > 1 ? comoTexto(*e.args[1]) : QStringLiteral("NULL::text");
        if (t0 == TipoCampo::Date) return Une({u"jet_format_fecha(", expr(x), u", ", mascara, u")"});
        if (EsNumerico(t0)) {
            const QString numero = t0 == TipoCampo::Currency ? Une({u"(", expr(x), u" / 10000)"}) : Une({u"(", expr(x), u")::numeric"});
            return Une({u"jet_format_num(", numero, u", ", comoTexto(x), u", ", mascara, u")"});
        }
        return Une({u"jet_format_texto(", comoTexto(x), u", ", mascara, u")"});
    }
    if (n == u"YEAR" || n == u"MONTH" || n == u"DAY" || n == u"HOUR" || n == u"MINUTE" || n == u"SECOND" || n == u"WEEKDAY" ||
        n == u"CDATE" || n == u"CVDATE" || n == u"DATEVALUE") {
        // Dates by value; a text or a number is read as one first.
        const Expr& x = *e.args[0];
        QString fecha = t0 == TipoCampo::Date ? expr(x)
                        : EsTexto(t0) || t0 == TipoCampo::Ninguno ? Une({u"jet_lee_fecha(", expr(x), u"::text)"})
                                                                  : Une({u"jet_lee_fecha(", comoNumero(x), u"::double precision)"});
        if (n == u"CDATE" || n == u"CVDATE" || n == u"DATEVALUE") {
            // A Null has no date.
            return t0 == TipoCampo::Date ? fecha : Une({u"jet_cdate(", fecha, u")"});
        }
        return Une({u"jet_", n.toLower(), u"(", fecha, u")"});
    }
    if (n == u"CCUR" || n == u"CINT" || n == u"CLNG" || n == u"CDBL" || n == u"CSNG" || n == u"CBOOL" || n == u"VAL") {
        if (n == u"CCUR" && t0 == TipoCampo::Currency) return Emisor::funcion(e);
        const Expr& x = *e.args[0];
        const QString v = EsTexto(t0) || t0 == TipoCampo::Ninguno ? Une({u"(", expr(x), u")::text"}) : comoNumero(x);
        return Une({u"jet_", n.toLower(), u"(", v, u")"});
    }
    if (n == u"INSTR") {
        QStringList args;
        if (e.args.size() == 3) args << comoNumero(*e.args[0]) + QStringLiteral("::double precision");
        for (size_t i = e.args.size() == 3 ? 1 : 0; i < e.args.size(); ++i) args << comoTexto(*e.args[i]);
        return Une({u"jet_instr(", args.join(QStringLiteral(", ")), u")"});
    }
    if (n == u"MID" || n == u"LEFT" || n == u"RIGHT" || n == u"SPACE") {
        QStringList args;
        for (size_t i = 0; i < e.args.size(); ++i)
            args << (i == 0 && n != u"SPACE" ? comoTexto(*e.args[i]) : comoNumero(*e.args[i]) + QStringLiteral("::double precision"));
        return Une({u"jet_", n.toLower(), u"(", args.join(QStringLiteral(", ")), u")"});
    }
    if (n == u"REPLACE") {
        return Une({u"jet_replace(", comoTexto(*e.args[0]), u", ", comoTexto(*e.args[1]), u", ", comoTexto(*e.args[2]), u")"});
    }
    if (n == u"INT" || n == u"FIX" || n == u"SGN" || n == u"ROUND" || n == u"ABS") {
        if (t0 == TipoCampo::Currency) return Emisor::funcion(e);
        QStringList args;
        for (const auto& a : e.args) args << comoNumero(*a) + QStringLiteral("::double precision");
        if (n == u"ABS") return Une({u"abs(", args.first(), u")"});
        return Une({u"jet_", n.toLower(), u"(", args.join(QStringLiteral(", ")), u")"});
    }
    return Emisor::funcion(e);
}

std::optional<QString> PatronComoRegex(const QString& patron) {
    QString r = QStringLiteral("^");
    for (qsizetype j = 0; j < patron.size(); ++j) {
        const QChar c = patron[j];
        if (c == u'*') {
            r += QLatin1String(".*");
        } else if (c == u'?') {
            r += u'.';
        } else if (c == u'#') {
            r += QLatin1String("[[:digit:]]");
        } else if (c == u'[') {
            const qsizetype cierre = patron.indexOf(u']', j + 1);
            if (cierre < 0) return std::nullopt;
            QString clase = patron.mid(j + 1, cierre - j - 1);
            r += u'[';
            if (clase.startsWith(u'!')) {
                r += u'^';
                clase = clase.mid(1);
            }
            if (clase.isEmpty()) return std::nullopt;
            for (qsizetype k = 0; k < clase.size(); ++k) {
                const QChar x = clase[k];
                const bool rango = x == u'-' && k > 0 && k + 1 < clase.size();
                if (!rango && (x == u'\\' || x == u'^' || x == u'[' || x == u']' || x == u'-')) r += u'\\';
                r += x;
            }
            r += u']';
            j = cierre;
        } else {
            if (QStringLiteral("\\.^$|?*+()[]{}").contains(c)) r += u'\\';
            r += c;
        }
    }
    return r + u'$';
}

QString EmisorPostgres::like(const Expr& e) {
    const Expr& patron = *e.args[1];
    // A written pattern becomes a regular expression once, here; any other one is translated by the
    // library as the statement runs. Case-blind in every alphabet: the match runs under ICU's root locale.
    if (patron.tipo == TipoExpr::Literal && patron.valor.isString()) {
        if (auto regex = PatronComoRegex(patron.valor.toString()))
            return Une({u"(", e.negado ? u"NOT " : u"", u"(", comoTexto(*e.args[0]), u") COLLATE \"und-x-icu\" ~* ",
                        CitaTexto(*regex), u")"});
    }
    return Emisor::like(e);
}

// The tables of a FROM clause from left to right; false when one of them is not a stored table.
static bool TablasEnOrden(const FuenteFrom& f, std::vector<const FuenteFrom*>& tablas) {
    switch (f.clase) {
    case FuenteFrom::Tabla:
        if (!f.baseExterna.isEmpty()) return false;
        tablas.push_back(&f);
        return true;
    case FuenteFrom::Join:
        return TablasEnOrden(*f.izquierda, tablas) && TablasEnOrden(*f.derecha, tablas);
    case FuenteFrom::Derivada:
        break;
    }
    return false;
}

// Rows the sort leaves tied come as a file gives them: in the order they were written, the leftmost table's
// order first, then each joined table's within it.
QString EmisorPostgres::desempate(const Select& s) const {
    if (s.from.empty() || s.agregada || s.distinct || !s.groupBy.empty() || !s.uniones.empty()) return {};
    std::vector<const FuenteFrom*> tablas;
    for (const auto& f : s.from)
        if (!TablasEnOrden(*f, tablas)) return {};
    // The keys travel as hidden columns: a list already as long as the server allows has no room for them.
    if (s.expandidos.size() + tablas.size() > static_cast<size_t>(columnasMaximas())) return {};
    QStringList claves;
    for (const FuenteFrom* t : tablas) claves << CitaNombre(t->aliasSql) + QStringLiteral(".rowid");
    return claves.join(QStringLiteral(", "));
}

QString EmisorPostgres::conEmpates(const Select& s, const QString& sinTop) {
    return sinTop + QStringLiteral(" FETCH FIRST %1 ROWS WITH TIES").arg(s.top);
}

}  // namespace jet
