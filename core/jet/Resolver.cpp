#include "core/jet/Resolver.h"

#include "core/jet/ErroresMotor.h"
#include "core/vb/Conversion.h"

#include <QHash>

namespace jet {

struct Resolver::Ambito {
    Ambito* padre = nullptr;
    std::vector<FuenteFrom*> hojas;                 // base and derived tables visible at this level
    Select* select = nullptr;
    int limiteAlias = -1;                           // select items [0, limite) may be named by their alias
    const std::vector<ColumnaSalida>* parametros = nullptr;
    QHash<QString, int> primerAlias;                // folded alias -> the first select item bearing it
};

namespace {

int Rango(TipoCampo t) {
    switch (t) {
    case TipoCampo::Boolean: return 1;
    case TipoCampo::Byte: return 2;
    case TipoCampo::Integer: return 3;
    case TipoCampo::Long: return 4;
    case TipoCampo::Currency: return 5;
    case TipoCampo::Single: return 6;
    case TipoCampo::Double: return 7;
    default: return 0;
    }
}

bool Iguales(const QString& a, const QString& b) {
    return a.size() == b.size() && (a == b || a.compare(b, Qt::CaseInsensitive) == 0);
}

struct InfoFuncion {
    int minimo, maximo;
    TipoCampo tipo;        // Ninguno: the type of the first argument
    bool agregado;
};

const QHash<QString, InfoFuncion>& Funciones() {
    static const QHash<QString, InfoFuncion> f = {
        {"COUNT", {1, 1, TipoCampo::Long, true}},
        {"SUM", {1, 1, TipoCampo::Ninguno, true}},
        {"AVG", {1, 1, TipoCampo::Double, true}},
        {"MIN", {1, 1, TipoCampo::Ninguno, true}},
        {"MAX", {1, 1, TipoCampo::Ninguno, true}},
        {"IIF", {3, 3, TipoCampo::Ninguno, false}},
        {"ISNULL", {1, 1, TipoCampo::Boolean, false}},
        {"NZ", {1, 2, TipoCampo::Ninguno, false}},
        {"MID", {2, 3, TipoCampo::Text, false}},
        {"LEFT", {2, 2, TipoCampo::Text, false}},
        {"RIGHT", {2, 2, TipoCampo::Text, false}},
        {"LEN", {1, 1, TipoCampo::Long, false}},
        {"TRIM", {1, 1, TipoCampo::Text, false}},
        {"LTRIM", {1, 1, TipoCampo::Text, false}},
        {"RTRIM", {1, 1, TipoCampo::Text, false}},
        {"UCASE", {1, 1, TipoCampo::Text, false}},
        {"LCASE", {1, 1, TipoCampo::Text, false}},
        {"INSTR", {2, 3, TipoCampo::Long, false}},
        {"REPLACE", {3, 3, TipoCampo::Text, false}},
        {"SPACE", {1, 1, TipoCampo::Text, false}},
        {"STR", {1, 1, TipoCampo::Text, false}},
        {"CCUR", {1, 1, TipoCampo::Currency, false}},
        {"CINT", {1, 1, TipoCampo::Integer, false}},
        {"CLNG", {1, 1, TipoCampo::Long, false}},
        {"CDBL", {1, 1, TipoCampo::Double, false}},
        {"CSNG", {1, 1, TipoCampo::Single, false}},
        {"CSTR", {1, 1, TipoCampo::Text, false}},
        {"CDATE", {1, 1, TipoCampo::Date, false}},
        {"CVDATE", {1, 1, TipoCampo::Date, false}},
        {"DATEVALUE", {1, 1, TipoCampo::Date, false}},
        {"CBOOL", {1, 1, TipoCampo::Boolean, false}},
        {"VAL", {1, 1, TipoCampo::Double, false}},
        {"INT", {1, 1, TipoCampo::Ninguno, false}},
        {"FIX", {1, 1, TipoCampo::Ninguno, false}},
        {"ABS", {1, 1, TipoCampo::Ninguno, false}},
        {"SGN", {1, 1, TipoCampo::Integer, false}},
        {"ROUND", {1, 2, TipoCampo::Ninguno, false}},
        {"NOW", {0, 0, TipoCampo::Date, false}},
        {"DATE", {0, 0, TipoCampo::Date, false}},
        {"YEAR", {1, 1, TipoCampo::Integer, false}},
        {"MONTH", {1, 1, TipoCampo::Integer, false}},
        {"DAY", {1, 1, TipoCampo::Integer, false}},
        {"HOUR", {1, 1, TipoCampo::Integer, false}},
        {"MINUTE", {1, 1, TipoCampo::Integer, false}},
        {"SECOND", {1, 1, TipoCampo::Integer, false}},
        {"WEEKDAY", {1, 1, TipoCampo::Integer, false}},
        {"FORMAT", {1, 2, TipoCampo::Text, false}},
    };
    return f;
}

bool TieneAgregado(const Expr& e) {
    if (e.agregado) return true;
    for (const auto& a : e.args)
        if (a && TieneAgregado(*a)) return true;
    return false;
}

bool EsNuloLiteral(const Expr& e) { return e.tipo == TipoExpr::Literal && e.valor.isNull(); }

// A text literal compared with a number or a date is read as one; a text that isn't is a mismatch.
void CoerceLiteral(Expr& literal, TipoCampo hacia) {
    if (literal.tipo != TipoExpr::Literal || !literal.valor.isString()) return;
    const QString t = literal.valor.toString();
    if (EsNumerico(hacia)) {
        if (!vb::IsNumeric(literal.valor)) Lanza(ErrTiposNoCoinciden);
        literal.valor = vb::Variant(literal.valor.toDouble());
        literal.tipoDato = TipoCampo::Double;
        literal.tamano = 8;
    } else if (hacia == TipoCampo::Date) {
        auto f = vb::LeeFecha(t);
        if (!f) Lanza(ErrTiposNoCoinciden);
        literal.valor = vb::Variant(*f);
        literal.tipoDato = TipoCampo::Date;
        literal.tamano = 8;
    }
}

// The type of a op b from the types of its two operands.
TipoCampo TipoDeOperacion(QStringView o, TipoCampo ta, TipoCampo tb, bool aNulo, bool bNulo) {
    if (o == u"=" || o == u"<>" || o == u"<" || o == u">" || o == u"<=" || o == u">=") return TipoCampo::Boolean;
    if (o == u"AND" || o == u"OR" || o == u"XOR" || o == u"EQV" || o == u"IMP") return TipoCampo::Boolean;
    if (o == u"&") return (ta == TipoCampo::Memo || tb == TipoCampo::Memo) ? TipoCampo::Memo : TipoCampo::Text;
    if (o == u"/" || o == u"^") return TipoCampo::Double;
    if (o == u"\\" || o == u"MOD")
        return Rango(ta) >= 4 || Rango(tb) >= 4 || EsTexto(ta) || EsTexto(tb) ? TipoCampo::Long : TipoCampo::Integer;
    // Text + text joins them; text + Null is Null, not a sum.
    if (o == u"+" && (EsTexto(ta) || EsTexto(tb)) && (EsTexto(ta) || aNulo) && (EsTexto(tb) || bNulo)) return TipoCampo::Text;
    if (ta == TipoCampo::Date || tb == TipoCampo::Date)
        return (o == u"-" && ta == TipoCampo::Date && tb == TipoCampo::Date) ? TipoCampo::Double : TipoCampo::Date;
    const TipoCampo x = EsTexto(ta) ? TipoCampo::Double : ta;
    const TipoCampo y = EsTexto(tb) ? TipoCampo::Double : tb;
    TipoCampo t = Unifica(x, y);
    if (t == TipoCampo::Boolean || t == TipoCampo::Byte) t = TipoCampo::Integer;
    if (t == TipoCampo::Ninguno) t = TipoCampo::Double;
    return t;
}

void TipaBinario(Expr& e) {
    e.tipoDato = TipoDeOperacion(e.op, e.args[0]->tipoDato, e.args[1]->tipoDato, EsNuloLiteral(*e.args[0]),
                                 EsNuloLiteral(*e.args[1]));
    e.tamano = EsTexto(e.tipoDato) ? 255 : TamanoFijo(e.tipoDato);
}


}  // namespace

TipoCampo Unifica(TipoCampo a, TipoCampo b) {
    if (a == b) return a;
    if (a == TipoCampo::Ninguno) return b;
    if (b == TipoCampo::Ninguno) return a;
    if (EsTexto(a) && EsTexto(b)) return TipoCampo::Memo;
    const int ra = Rango(a), rb = Rango(b);
    if (ra && rb) {
        // Currency with a floating type goes to Double.
        if ((a == TipoCampo::Currency && rb >= 6) || (b == TipoCampo::Currency && ra >= 6)) return TipoCampo::Double;
        return ra > rb ? a : b;
    }
    return TipoCampo::Text;
}

bool EsAgregado(const QString& n) {
    auto it = Funciones().constFind(n);
    return it != Funciones().constEnd() && it->agregado;
}

QStringList CamposDeInsercion(const Select& sel, const TablaDef& destino) {
    // Without a column list the selected columns go to the fields of the same names. A column that a * brings
    // and the target lacks stays behind, so that rows are copied into a table of fewer fields (an exchange
    // file's), as long as leaving it out changes no other column's rows.
    const bool sinEfecto =
        !sel.distinct && !sel.distinctRow && !sel.agregada && sel.uniones.empty() && sel.orderBy.empty();
    QStringList campos;
    QString primeraFaltante;
    bool alguno = false;
    for (size_t i = 0; i < sel.salida.size(); ++i) {
        QString n = sel.salida[i].nombre;
        if (!destino.campo(n) && n.contains(u'.')) n = n.mid(n.lastIndexOf(u'.') + 1);
        const CampoDef* c = destino.campo(n);
        if (!c) {
            if (!sinEfecto || !sel.expandidos[i].deEstrella) Lanza(ErrCampoInsertDesconocido, sel.salida[i].nombre);
            if (primeraFaltante.isEmpty()) primeraFaltante = sel.salida[i].nombre;
        }
        campos << (c ? c->nombre : QString());
        alguno = alguno || c;
    }
    if (!alguno) Lanza(ErrCampoInsertDesconocido, primeraFaltante);
    return campos;
}

QString Resolver::esquemaDe(const QString& baseExterna) {
    if (baseExterna.isEmpty()) return QStringLiteral("main");
    if (!adjunta_) Lanza(ErrOperacionNoValida);
    return adjunta_(baseExterna);
}

void Resolver::finaliza() {
    if (!faltantes_.isEmpty()) Lanza(ErrPocosParametros, QString::number(faltantes_.size()));
}

void Resolver::resuelve(Sentencia& s) {
    catalogo_.nuevaSentencia();
    faltantes_.clear();
    faltantesVistos_.clear();
    contadorAlias_ = 0;
    destino_ = nullptr;
    esquemaDestino_ = QStringLiteral("main");
    switch (s.clase) {
    case Sentencia::Consulta:
        select(*s.select, nullptr);
        break;
    case Sentencia::Insercion: {
        esquemaDestino_ = esquemaDe(s.baseExterna);
        destino_ = catalogo_.tabla(s.tabla, esquemaDestino_);
        if (!destino_) Lanza(ErrTablaNoEncontrada, s.tabla);
        for (const auto& c : s.columnas)
            if (!destino_->campo(c)) Lanza(ErrCampoInsertDesconocido, c);
        if (s.select) {
            select(*s.select, nullptr);
            if (s.columnas.isEmpty()) {
                Select& sel = *s.select;
                const QStringList campos = CamposDeInsercion(sel, *destino_);
                for (size_t i = sel.salida.size(); i-- > 0;) {
                    if (!campos[static_cast<qsizetype>(i)].isEmpty()) continue;
                    sel.expandidos.erase(sel.expandidos.begin() + static_cast<std::ptrdiff_t>(i));
                    sel.salida.erase(sel.salida.begin() + static_cast<std::ptrdiff_t>(i));
                }
                for (const QString& c : campos)
                    if (!c.isEmpty()) s.columnas << c;
            } else if (static_cast<int>(s.select->salida.size()) != s.columnas.size()) {
                Lanza(ErrValoresYCampos);
            }
        } else {
            if (s.columnas.isEmpty())
                for (const auto& c : destino_->campos) s.columnas << c.nombre;
            if (static_cast<int>(s.valores.size()) != s.columnas.size()) Lanza(ErrValoresYCampos);
            Ambito a;
            for (size_t i = 0; i < s.valores.size(); ++i) {
                expr(*s.valores[i], a);
                const CampoDef* c = destino_->campo(s.columnas[static_cast<int>(i)]);
                if (c && s.valores[i]->tipo == TipoExpr::Literal && !s.valores[i]->valor.isNull()) {
                    if (EsNumerico(c->tipo) || c->tipo == TipoCampo::Date) CoerceLiteral(*s.valores[i], c->tipo);
                }
            }
        }
        break;
    }
    case Sentencia::Actualizacion: {
        Ambito a;
        for (auto& f : s.from) fuente(*f, a, nullptr);
        FuenteFrom* objetivo = nullptr;
        for (auto& asig : s.asignaciones) {
            FuenteFrom* encontrada = nullptr;
            for (FuenteFrom* h : a.hojas) {
                if (h->clase != FuenteFrom::Tabla) continue;
                if (!asig.calificador.isEmpty() && !Iguales(h->nombreVisible(), asig.calificador) &&
                    !Iguales(h->tabla, asig.calificador))
                    continue;
                if (h->def->campo(asig.columna)) { encontrada = h; break; }
            }
            if (!encontrada) {
                faltantes_ << asig.columna;
                continue;
            }
            if (objetivo && objetivo != encontrada) Lanza(ErrConsultaNoActualizable);
            objetivo = encontrada;
            asig.columna = encontrada->def->campo(asig.columna)->nombre;
            expr(*asig.valor, a);
            CoerceLiteral(*asig.valor, encontrada->def->campo(asig.columna)->tipo);
        }
        if (s.where) expr(*s.where, a);
        finaliza();
        if (!objetivo) Lanza(ErrSintaxisUpdate);
        destino_ = objetivo->def;
        s.objetivoBorrado = objetivo->aliasSql;   // the emitter needs the target's alias
        break;
    }
    case Sentencia::Borrado: {
        Ambito a;
        for (auto& f : s.from) fuente(*f, a, nullptr);
        FuenteFrom* objetivo = nullptr;
        if (!s.objetivoBorrado.isEmpty()) {
            for (FuenteFrom* h : a.hojas)
                if (h->clase == FuenteFrom::Tabla &&
                    (Iguales(h->nombreVisible(), s.objetivoBorrado) || Iguales(h->tabla, s.objetivoBorrado)))
                    objetivo = h;
            if (!objetivo) Lanza(ErrSintaxisDelete);
        } else if (a.hojas.size() == 1 && a.hojas.front()->clase == FuenteFrom::Tabla) {
            objetivo = a.hojas.front();
        } else {
            Lanza(ErrSintaxisDelete);
        }
        if (s.where) expr(*s.where, a);
        destino_ = objetivo->def;
        s.objetivoBorrado = objetivo->aliasSql;
        break;
    }
    default:
        break;
    }
    finaliza();
}

void Resolver::resuelveCriterio(Expr& e, const std::vector<ColumnaSalida>& columnas) {
    faltantes_.clear();
    faltantesVistos_.clear();
    Ambito a;
    a.parametros = &columnas;
    expr(e, a);
    finaliza();
}

void Resolver::select(Select& s, Ambito* padre) {
    Profundidad nivel(profundidad_);
    nucleo(s, padre);
    if (s.uniones.empty()) return;
    for (auto& m : s.uniones) {
        select(*m.select, padre);
        if (m.select->salida.size() != s.salida.size()) Lanza(ErrValoresYCampos);
        for (size_t i = 0; i < s.salida.size(); ++i) {
            auto& c = s.salida[i];
            const auto& o = m.select->salida[i];
            const TipoCampo t = Unifica(c.tipo, o.tipo);
            if (t != c.tipo) {
                c.tipo = t;
                c.tamano = EsTexto(t) ? std::max(c.tamano, o.tamano) : TamanoFijo(t);
            }
            c.tablaOrigen.clear();
            c.campoOrigen.clear();
        }
    }
    // The union's ORDER BY names output columns, by number or by name.
    for (auto& o : s.ordenUnion) {
        Expr& e = *o.expr;
        if (e.tipo == TipoExpr::Literal && e.valor.type() == vb::VarType::Long) {
            const int n = e.valor.toLong();
            if (n < 1 || n > static_cast<int>(s.salida.size())) Lanza(ErrSintaxisOrderBy);
            e.columnaSub = n - 1;
            continue;
        }
        if (e.tipo == TipoExpr::Columna) {
            for (size_t i = 0; i < s.salida.size(); ++i) {
                const auto& c = s.salida[i];
                if (Iguales(c.nombre, e.nombre) ||
                    (!e.calificador.isEmpty() && Iguales(c.nombre, e.calificador + u'.' + e.nombre))) {
                    e.columnaSub = static_cast<int>(i);
                    break;
                }
            }
            if (e.columnaSub >= 0) continue;
        }
        faltantes_ << e.nombre;
    }
}

void Resolver::nucleo(Select& s, Ambito* padre) {
    Ambito a;
    a.padre = padre;
    a.select = &s;
    for (auto& f : s.from) fuente(*f, a, padre);
    expande(s, a);
    for (size_t i = 0; i < s.expandidos.size(); ++i)
        if (!s.expandidos[i].alias.isEmpty()) {
            const QString clave = ClaveNombre(s.expandidos[i].alias);
            if (!a.primerAlias.contains(clave)) a.primerAlias.insert(clave, static_cast<int>(i));
        }
    for (size_t i = 0; i < s.expandidos.size(); ++i) {
        a.limiteAlias = static_cast<int>(i);
        expr(*s.expandidos[i].expr, a);
    }
    a.limiteAlias = -1;
    if (s.where) expr(*s.where, a);
    for (auto& g : s.groupBy) expr(*g, a);
    if (s.having) expr(*s.having, a);
    a.limiteAlias = static_cast<int>(s.expandidos.size());
    for (auto& o : s.orderBy) {
        Expr& e = *o.expr;
        if (e.tipo == TipoExpr::Literal && e.valor.type() == vb::VarType::Long) {
            const int n = e.valor.toLong();
            if (n < 1 || n > static_cast<int>(s.expandidos.size())) Lanza(ErrSintaxisOrderBy);
            e.columnaSub = n - 1;
            continue;
        }
        try {
            expr(e, a);
        } catch (const vb::Error& err) {
            // A name that two tables share sorts by the selected column of that name.
            if (err.Number() != ErrCampoAmbiguo || e.tipo != TipoExpr::Columna || !e.calificador.isEmpty()) throw;
            int elegido = -1;
            for (size_t i = 0; i < s.expandidos.size(); ++i) {
                const auto& it = s.expandidos[i];
                const QString nombre = !it.alias.isEmpty() ? it.alias
                                       : (it.expr->tipo == TipoExpr::Columna && it.expr->campo) ? it.expr->campo->nombre
                                                                                              : QString();
                if (Iguales(nombre, e.nombre)) {
                    if (elegido >= 0) throw;
                    elegido = static_cast<int>(i);
                }
            }
            if (elegido < 0) throw;
            e.alias = s.expandidos[static_cast<size_t>(elegido)].expr.get();
            e.columnaSub = elegido;
            e.tipoDato = e.alias->tipoDato;
            e.tamano = e.alias->tamano;
        }
    }
    bool agregada = !s.groupBy.empty();
    for (const auto& it : s.expandidos)
        if (TieneAgregado(*it.expr)) agregada = true;
    if (s.having && TieneAgregado(*s.having)) agregada = true;
    // HAVING makes a totals query of the whole table: a column outside every total has no one value.
    if (s.having && !agregada && !s.expandidos.empty()) {
        const Expr& primero = *s.expandidos.front().expr;
        Lanza(ErrNoEsParteDelAgregado, primero.tipo == TipoExpr::Columna ? primero.nombre : QString());
    }
    s.agregada = agregada;
    salidaDe(s);
}

void Resolver::fuente(FuenteFrom& f, Ambito& a, Ambito* padreDerivadas) {
    Profundidad nivel(profundidad_);
    switch (f.clase) {
    case FuenteFrom::Tabla:
        f.esquemaSql = esquemaDe(f.baseExterna);
        f.def = catalogo_.tabla(f.tabla, f.esquemaSql);
        if (!f.def) Lanza(ErrTablaNoEncontrada, f.tabla);
        f.aliasSql = u's' + QString::number(contadorAlias_++);
        a.hojas.push_back(&f);
        break;
    case FuenteFrom::Derivada:
        select(*f.sub, padreDerivadas);
        f.aliasSql = u's' + QString::number(contadorAlias_++);
        a.hojas.push_back(&f);
        break;
    case FuenteFrom::Join:
        fuente(*f.izquierda, a, padreDerivadas);
        fuente(*f.derecha, a, padreDerivadas);
        expr(*f.on, a);
        break;
    }
}

void Resolver::expande(Select& s, Ambito& a) {
    s.expandidos.clear();
    // A star stands for every column of a source, each as a column named by its source.
    auto agregaColumnas = [&](FuenteFrom* h, int pos) {
        auto agrega = [&](const QString& nombre) {
            ItemSelect it;
            it.pos = pos;
            it.expr = std::make_unique<Expr>();
            it.expr->tipo = TipoExpr::Columna;
            it.expr->pos = pos;
            it.expr->calificador = h->nombreVisible();
            it.expr->nombre = nombre;
            it.deEstrella = true;
            s.expandidos.push_back(std::move(it));
        };
        if (h->clase == FuenteFrom::Tabla)
            for (const auto& c : h->def->campos) agrega(c.nombre);
        else
            for (const auto& c : h->sub->salida) agrega(c.nombre);
    };
    for (auto& it : s.items) {
        if (it.expr->tipo != TipoExpr::Estrella) {
            s.expandidos.push_back(std::move(it));
            continue;
        }
        if (it.expr->calificador.isEmpty()) {
            if (a.hojas.empty()) Lanza(ErrSintaxisFrom);
            for (FuenteFrom* h : a.hojas) agregaColumnas(h, it.pos);
        } else {
            FuenteFrom* encontrada = nullptr;
            for (FuenteFrom* h : a.hojas)
                if (Iguales(h->nombreVisible(), it.expr->calificador)) encontrada = h;
            if (!encontrada)
                for (FuenteFrom* h : a.hojas)
                    if (h->clase == FuenteFrom::Tabla && Iguales(h->tabla, it.expr->calificador)) encontrada = h;
            if (!encontrada) {
                faltantes_ << it.expr->calificador + QStringLiteral(".*");
                continue;
            }
            agregaColumnas(encontrada, it.pos);
        }
    }
    s.items.clear();
}

void Resolver::salidaDe(Select& s) {
    s.salida.clear();
    int expr1000 = 0;
    for (auto& it : s.expandidos) {
        ColumnaSalida c;
        const Expr& e = *it.expr;
        c.tipo = e.tipoDato;
        c.tamano = EsTexto(c.tipo) ? (c.tipo == TipoCampo::Memo ? 0 : (e.tamano > 0 ? e.tamano : 255)) : TamanoFijo(c.tipo);
        c.atributos = EsTexto(c.tipo) ? AtrVariable : AtrFijo;
        if (!it.alias.isEmpty()) {
            c.nombre = it.alias;
        } else if (e.tipo == TipoExpr::Columna && (e.campo || e.alias || (e.columnaSub >= 0 && e.fuente))) {
            // A column is named as the statement writes it, not as the schema spells it.
            c.nombre = e.nombre;
        } else {
            c.nombre = QStringLiteral("Expr%1").arg(1000 + expr1000++);
        }
        if (e.tipo == TipoExpr::Columna && e.campo) {
            c.atributos = e.campo->atributos | AtrActualizable;
            c.requerido = e.campo->requerido;
            c.permiteLongitudCero = e.campo->permiteLongitudCero;
            c.valorPredeterminado = e.campo->predeterminado;
            c.tablaOrigen = e.fuente->def->nombre;
            c.campoOrigen = e.campo->nombre;
            c.tamano = e.campo->tamano;
        }
        s.salida.push_back(c);
    }
    // Two columns of one name, from different tables: each is named by its table.
    QHash<QString, int> veces;
    veces.reserve(static_cast<qsizetype>(s.salida.size()));
    for (const auto& c : s.salida) ++veces[ClaveNombre(c.nombre)];
    for (size_t i = 0; i < s.salida.size(); ++i) {
        auto& c = s.salida[i];
        const Expr& e = *s.expandidos[i].expr;
        if (veces.value(ClaveNombre(c.nombre)) > 1 && s.expandidos[i].alias.isEmpty() && e.tipo == TipoExpr::Columna &&
            e.fuente)
            c.nombre = e.fuente->nombreVisible() + u'.' + c.nombre;
    }
}

void Resolver::columna(Expr& e, Ambito& a) {
    if (a.parametros) {
        const auto& cols = *a.parametros;
        for (size_t i = 0; i < cols.size(); ++i) {
            const QString& n = cols[i].nombre;
            if (Iguales(n, e.nombre) || (!e.calificador.isEmpty() && Iguales(n, e.calificador + u'.' + e.nombre)) ||
                (!e.calificador.isEmpty() && Iguales(n, e.nombre))) {
                e.parametro = static_cast<int>(i);
                e.tipoDato = cols[i].tipo;
                e.tamano = cols[i].tamano;
                return;
            }
        }
        faltantes_ << e.nombre;
        return;
    }
    auto enlaza = [&](FuenteFrom* h) -> bool {
        if (h->clase == FuenteFrom::Tabla) {
            const CampoDef* c = h->def->campo(e.nombre);
            if (!c) return false;
            e.fuente = h;
            e.campo = c;
            e.tipoDato = c->tipo;
            e.tamano = c->tamano;
            return true;
        }
        const auto& salida = h->sub->salida;
        for (size_t i = 0; i < salida.size(); ++i) {
            if (Iguales(salida[i].nombre, e.nombre) ||
                (!e.calificador.isEmpty() && Iguales(salida[i].nombre, e.calificador + u'.' + e.nombre))) {
                e.fuente = h;
                e.columnaSub = static_cast<int>(i);
                e.tipoDato = salida[i].tipo;
                e.tamano = salida[i].tamano;
                return true;
            }
        }
        return false;
    };
    for (Ambito* x = &a; x; x = x->padre) {
        if (!e.calificador.isEmpty()) {
            FuenteFrom* h = nullptr;
            for (FuenteFrom* f : x->hojas)
                if (Iguales(f->nombreVisible(), e.calificador)) h = f;
            if (!h)
                for (FuenteFrom* f : x->hojas)
                    if (f->clase == FuenteFrom::Tabla && Iguales(f->tabla, e.calificador)) h = f;
            if (h) {
                if (!enlaza(h)) faltantes_ << e.calificador + u'.' + e.nombre;
                return;
            }
            // A derived table without a name: a qualified name reaches into it by the column's own name.
            for (FuenteFrom* f : x->hojas)
                if (f->clase == FuenteFrom::Derivada && f->alias.isEmpty() && enlaza(f)) return;
            continue;
        }
        FuenteFrom* unica = nullptr;
        int cuantas = 0;
        for (FuenteFrom* f : x->hojas) {
            if (f->clase == FuenteFrom::Tabla ? f->def->campo(e.nombre) != nullptr : [&] {
                    for (const auto& c : f->sub->salida)
                        if (Iguales(c.nombre, e.nombre)) return true;
                    return false;
                }()) {
                ++cuantas;
                if (!unica) unica = f;
            }
        }
        if (cuantas > 1) Lanza(ErrCampoAmbiguo, e.nombre);
        if (unica) {
            enlaza(unica);
            return;
        }
        if (x == &a && x->select && x->limiteAlias > 0) {
            const auto& items = x->select->expandidos;
            const int i = x->primerAlias.value(ClaveNombre(e.nombre), -1);
            if (i >= 0 && i < x->limiteAlias && i < static_cast<int>(items.size())) {
                const Expr* destino = items[static_cast<size_t>(i)].expr.get();
                e.alias = destino;
                e.columnaSub = i;
                e.tipoDato = destino->tipoDato;
                e.tamano = destino->tamano;
                return;
            }
        }
    }
    const QString n = e.calificador.isEmpty() ? e.nombre : e.calificador + u'.' + e.nombre;
    if (!faltantesVistos_.contains(ClaveNombre(n))) {
        faltantesVistos_.insert(ClaveNombre(n));
        faltantes_ << n;
    }
}

void Resolver::compruebaComparacion(Expr& a, Expr& b) {
    if (b.tipo == TipoExpr::Literal && (EsNumerico(a.tipoDato) || a.tipoDato == TipoCampo::Date)) CoerceLiteral(b, a.tipoDato);
    if (a.tipo == TipoExpr::Literal && (EsNumerico(b.tipoDato) || b.tipoDato == TipoCampo::Date)) CoerceLiteral(a, b.tipoDato);
}

void Resolver::funcion(Expr& e, Ambito& a) {
    const QString n = e.nombre.toUpper();
    auto it = Funciones().constFind(n);
    if (it == Funciones().constEnd()) Lanza(ErrFuncionNoDefinida, e.nombre);
    const int nargs = static_cast<int>(e.args.size());
    if (nargs < it->minimo || nargs > it->maximo) Lanza(ErrSintaxisExpresion, e.nombre);
    for (auto& arg : e.args) {
        if (arg->tipo == TipoExpr::Estrella) {
            if (n != "COUNT") Lanza(ErrSintaxisExpresion, e.nombre);
            continue;
        }
        expr(*arg, a);
    }
    e.agregado = it->agregado;
    const TipoCampo t0 = nargs ? e.args[0]->tipoDato : TipoCampo::Ninguno;
    TipoCampo t = it->tipo;
    if (n == "IIF") {
        t = Unifica(e.args[1]->tipoDato, e.args[2]->tipoDato);
    } else if (n == "NZ") {
        t = nargs == 2 ? Unifica(t0, e.args[1]->tipoDato) : t0;
    } else if (n == "SUM") {
        switch (t0) {
        case TipoCampo::Currency: t = TipoCampo::Currency; break;
        case TipoCampo::Boolean: case TipoCampo::Byte: case TipoCampo::Integer: case TipoCampo::Long: t = TipoCampo::Long; break;
        default: t = TipoCampo::Double; break;
        }
    } else if (n == "AVG") {
        t = t0 == TipoCampo::Currency ? TipoCampo::Currency : TipoCampo::Double;
    } else if (t == TipoCampo::Ninguno) {
        t = t0;
        if ((n == "INT" || n == "FIX" || n == "ROUND" || n == "ABS") && EsTexto(t0)) t = TipoCampo::Double;
    }
    e.tipoDato = t;
    e.tamano = EsTexto(t) ? 255 : TamanoFijo(t);
    if (n == "MIN" || n == "MAX") e.tamano = nargs ? e.args[0]->tamano : 0;
}

// A chain of one associative operator, its operands resolved. Its type is the left fold of the operator's
// rule. A + chain is written flat only when every step is a sum of numbers or every step joins texts; any
// other (a date moved by days, a text turned into a number half way) goes back to nested pairs, each with
// its own rule, as long as the nesting stays within what the engine takes.
void Resolver::cadena(Expr& e) {
    const size_t n = e.args.size();
    TipoCampo t = e.args[0]->tipoDato;
    for (size_t i = 1; i < n; ++i)
        t = TipoDeOperacion(e.op, t, e.args[i]->tipoDato, i == 1 && EsNuloLiteral(*e.args[0]), EsNuloLiteral(*e.args[i]));
    bool uniforme = true;
    if (e.op == u"+") {
        bool textos = true, fechas = false;
        for (const auto& x : e.args) {
            if (!EsTexto(x->tipoDato) && !EsNuloLiteral(*x)) textos = false;
            if (x->tipoDato == TipoCampo::Date) fechas = true;
        }
        // All texts: each step joins. No text at the first step and no date: each step adds numbers.
        const bool primeroTexto = EsTexto(TipoDeOperacion(e.op, e.args[0]->tipoDato, e.args[1]->tipoDato,
                                                          EsNuloLiteral(*e.args[0]), EsNuloLiteral(*e.args[1])));
        uniforme = textos ? primeroTexto : (!primeroTexto && !fechas);
    }
    if (!uniforme) {
        if (n > static_cast<size_t>(LimiteAnidamiento)) Lanza(ErrConsultaCompleja);
        std::vector<ExprPtr> operandos = std::move(e.args);
        e.args.clear();
        ExprPtr izquierda = std::move(operandos[0]);
        for (size_t i = 1; i + 1 < n; ++i) {
            auto par = std::make_unique<Expr>();
            par->tipo = TipoExpr::Binario;
            par->op = e.op;
            par->pos = e.pos;
            par->args.push_back(std::move(izquierda));
            par->args.push_back(std::move(operandos[i]));
            TipaBinario(*par);
            izquierda = std::move(par);
        }
        e.args.push_back(std::move(izquierda));
        e.args.push_back(std::move(operandos[n - 1]));
        TipaBinario(e);
        return;
    }
    e.tipoDato = t;
    e.tamano = EsTexto(t) ? 255 : TamanoFijo(t);
}

void Resolver::expr(Expr& e, Ambito& a) {
    Profundidad nivel(profundidad_);
    switch (e.tipo) {
    case TipoExpr::Literal:
        switch (e.valor.type()) {
        case vb::VarType::Long: e.tipoDato = TipoCampo::Long; break;
        case vb::VarType::Double: e.tipoDato = TipoCampo::Double; break;
        case vb::VarType::Currency: e.tipoDato = TipoCampo::Currency; break;
        case vb::VarType::String: e.tipoDato = TipoCampo::Text; break;
        case vb::VarType::Date: e.tipoDato = TipoCampo::Date; break;
        case vb::VarType::Boolean: e.tipoDato = TipoCampo::Boolean; break;
        default: e.tipoDato = TipoCampo::Ninguno; break;
        }
        e.tamano = e.tipoDato == TipoCampo::Text ? static_cast<int>(e.valor.toString().size()) : TamanoFijo(e.tipoDato);
        return;
    case TipoExpr::Columna:
        columna(e, a);
        return;
    case TipoExpr::Estrella:
        Lanza(ErrSintaxisExpresion, QStringLiteral("*"));
    case TipoExpr::Unario:
        expr(*e.args[0], a);
        if (e.op == u"NOT") {
            e.tipoDato = TipoCampo::Boolean;
        } else {
            e.tipoDato = EsTexto(e.args[0]->tipoDato) ? TipoCampo::Double : e.args[0]->tipoDato;
            if (e.tipoDato == TipoCampo::Boolean) e.tipoDato = TipoCampo::Integer;
        }
        e.tamano = TamanoFijo(e.tipoDato);
        return;
    case TipoExpr::Binario: {
        for (auto& x : e.args) expr(*x, a);
        if (e.args.size() > 2) {
            cadena(e);
            return;
        }
        const QStringView o = e.op;
        if (o == u"=" || o == u"<>" || o == u"<" || o == u">" || o == u"<=" || o == u">=")
            compruebaComparacion(*e.args[0], *e.args[1]);
        TipaBinario(e);
        return;
    }
    case TipoExpr::Between:
        for (auto& x : e.args) expr(*x, a);
        compruebaComparacion(*e.args[0], *e.args[1]);
        compruebaComparacion(*e.args[0], *e.args[2]);
        e.tipoDato = TipoCampo::Boolean;
        e.tamano = 1;
        return;
    case TipoExpr::EnLista:
        for (auto& x : e.args) expr(*x, a);
        for (size_t i = 1; i < e.args.size(); ++i) compruebaComparacion(*e.args[0], *e.args[i]);
        e.tipoDato = TipoCampo::Boolean;
        e.tamano = 1;
        return;
    case TipoExpr::EnSelect:
        expr(*e.args[0], a);
        select(*e.sub, &a);
        e.tipoDato = TipoCampo::Boolean;
        e.tamano = 1;
        return;
    case TipoExpr::Exists:
        select(*e.sub, &a);
        e.tipoDato = TipoCampo::Boolean;
        e.tamano = 1;
        return;
    case TipoExpr::EsNulo:
        expr(*e.args[0], a);
        e.tipoDato = TipoCampo::Boolean;
        e.tamano = 1;
        return;
    case TipoExpr::Like:
        expr(*e.args[0], a);
        expr(*e.args[1], a);
        e.tipoDato = TipoCampo::Boolean;
        e.tamano = 1;
        return;
    case TipoExpr::Funcion:
        funcion(e, a);
        return;
    case TipoExpr::Subconsulta:
        select(*e.sub, &a);
        if (e.sub->salida.size() != 1) Lanza(ErrSubconsultaVariosCampos);
        e.tipoDato = e.sub->salida[0].tipo;
        e.tamano = e.sub->salida[0].tamano;
        return;
    }
}

}  // namespace jet
