#include "core/jet/Parser.h"

#include "core/jet/ErroresMotor.h"
#include "core/jet/Lexer.h"

#include <QRegularExpression>
#include <QSet>

#include <cmath>

namespace jet {

namespace {

bool EsReservada(const Token& t) { return t.tipo == Tok::Nombre && t.reservada; }
bool EsFuncionReservada(const Token& t) { return t.esPalabra("LEFT") || t.esPalabra("RIGHT"); }

// The operator's text as a static string, so the tree holds no copy of it.
QStringView OpEstatico(QStringView t) {
    static const char16_t* const ops[] = {u"=", u"<>", u"<", u">", u"<=", u">=", u"+", u"-", u"*", u"/", u"\\",
                                          u"^", u"&", u"AND", u"OR", u"XOR", u"EQV", u"IMP", u"MOD", u"NOT"};
    if (t == u"!=") return u"<>";
    for (const char16_t* o : ops)
        if (t.compare(QStringView(o), Qt::CaseInsensitive) == 0) return QStringView(o);
    return u"?";
}

class Analizador {
public:
    explicit Analizador(const QString& texto) : texto_(texto), toks_(Tokeniza(texto)) {}

    Sentencia sentencia();
    ExprPtr soloExpresion() {
        contexto_ = ErrSintaxisExpresion;
        auto e = expresion();
        if (actual().tipo != Tok::Fin) falla();
        return e;
    }

private:
    const QString& texto_;
    std::vector<Token> toks_;
    size_t i_ = 0;
    int contexto_ = ErrSentenciaNoValida;
    int inicioExpr_ = 0;
    int profundidad_ = 0;

    // One level more of the tree being built, given back when the construct is read. An operator loop that
    // wraps what it read before takes one more level per wrap, so the right operands read after it start
    // deeper: the depth counted is the height of the tree.
    class Nivel {
    public:
        explicit Nivel(Analizador& a, bool cuenta = true) : a_(a) { if (cuenta) mas(); }
        ~Nivel() { a_.profundidad_ -= n_; }
        Nivel(const Nivel&) = delete;
        Nivel& operator=(const Nivel&) = delete;
        void mas() {
            ++n_;
            if (++a_.profundidad_ > LimiteAnidamiento) Lanza(ErrConsultaCompleja);
        }

    private:
        Analizador& a_;
        int n_ = 0;
    };

    const Token& actual() const { return toks_[i_]; }
    const Token& siguiente(size_t k = 1) const { return toks_[std::min(i_ + k, toks_.size() - 1)]; }
    void avanza() { if (i_ + 1 < toks_.size()) ++i_; }

    [[noreturn]] void falla() {
        if (contexto_ == ErrSintaxisExpresion) {
            const int fin = actual().tipo == Tok::Fin ? static_cast<int>(texto_.size()) : actual().pos + 1;
            Lanza(ErrSintaxisExpresion, texto_.mid(inicioExpr_, fin - inicioExpr_).trimmed());
        }
        Lanza(contexto_);
    }
    // Whether the current token can begin an expression: a value left out ("x= WHERE", "(1, , 3)") is an
    // error of the statement, not of an expression.
    bool empiezaExpresion() const {
        const Token& t = actual();
        switch (t.tipo) {
        case Tok::Fin: return false;
        case Tok::Operador: return t.esOp("(") || t.esOp("-") || t.esOp("+");
        case Tok::Nombre:
            return !EsReservada(t) || t.esPalabra("NOT") || t.esPalabra("NULL") || t.esPalabra("EXISTS") ||
                   (EsFuncionReservada(t) && siguiente().esOp("("));
        default: return true;
        }
    }
    bool palabra(const char* p) {
        if (actual().esPalabra(p)) { avanza(); return true; }
        return false;
    }
    void exigePalabra(const char* p) { if (!palabra(p)) falla(); }
    bool op(const char* o) {
        if (actual().esOp(o)) { avanza(); return true; }
        return false;
    }
    void exigeOp(const char* o) { if (!op(o)) falla(); }

    // A name: plain (not reserved) or bracketed.
    bool esNombre(const Token& t) const {
        return t.tipo == Tok::NombreCorchete || (t.tipo == Tok::Nombre && !EsReservada(t));
    }
    QString nombre() {
        if (!esNombre(actual())) falla();
        QString n = actual().texto.toString();
        avanza();
        return n;
    }

    std::unique_ptr<Select> selectCompleto();
    std::unique_ptr<Select> miembro();
    std::unique_ptr<Select> nucleoSelect();
    void listaFrom(std::vector<FuentePtr>& destino);
    FuentePtr elementoFrom();
    FuentePtr primarioFrom();
    void aliasOpcional(FuenteFrom& f);
    std::vector<ItemOrden> listaOrden();

    ExprPtr expresion() {
        Nivel nivel(*this);
        return imp();
    }
    ExprPtr imp();
    ExprPtr eqv();
    ExprPtr xorE();
    ExprPtr orE();
    ExprPtr andE();
    ExprPtr notE();
    ExprPtr comparacion();
    ExprPtr concatenacion();
    ExprPtr suma();
    ExprPtr modulo();
    ExprPtr divEntera();
    ExprPtr producto();
    ExprPtr unario();
    ExprPtr potencia();
    ExprPtr primario();
    ExprPtr binario(QStringView op, ExprPtr a, ExprPtr b, int pos);
    ExprPtr encadena(QStringView op, ExprPtr a, int pos, Nivel& nivel, ExprPtr (Analizador::*operando)());

    Sentencia insercion();
    Sentencia actualizacion();
    Sentencia borrado();
    Sentencia creacion();
    Sentencia alteracion();
    DefColumna defColumna();
    DefRestriccion defRestriccion();
    void fin();
};

void Analizador::fin() {
    op(";");
    if (actual().tipo != Tok::Fin) Lanza(ErrCaracteresAlFinal);
}

Sentencia Analizador::sentencia() {
    Sentencia s;
    const Token& t = actual();
    if (t.esPalabra("SELECT") || (t.esOp("(") && siguiente().esPalabra("SELECT"))) {
        s.clase = Sentencia::Consulta;
        s.select = selectCompleto();
    } else if (t.esPalabra("INSERT")) {
        s = insercion();
    } else if (t.esPalabra("UPDATE")) {
        s = actualizacion();
    } else if (t.esPalabra("DELETE")) {
        s = borrado();
    } else if (t.esPalabra("CREATE")) {
        s = creacion();
    } else if (t.esPalabra("ALTER")) {
        s = alteracion();
    } else if (t.esPalabra("DROP")) {
        avanza();
        if (palabra("TABLE")) {
            s.clase = Sentencia::BorraTabla;
            s.posTabla = actual().pos;
            s.tabla = nombre();
        } else if (palabra("INDEX")) {
            s.clase = Sentencia::BorraIndice;
            s.indice = nombre();
            exigePalabra("ON");
            s.posTabla = actual().pos;
            s.tabla = nombre();
        } else {
            falla();
        }
    } else {
        Lanza(ErrSentenciaNoValida);
    }
    fin();
    return s;
}

// select [UNION [ALL] select]...: members may stand in parentheses with an ORDER BY of their own. The
// ORDER BY of the last member sorts the whole union; the others' are dropped.
std::unique_ptr<Select> Analizador::selectCompleto() {
    Nivel nivel(*this);
    auto primero = miembro();
    if (!actual().esPalabra("UNION")) return primero;
    while (palabra("UNION")) {
        Select::Miembro m;
        m.all = palabra("ALL");
        m.select = miembro();
        primero->uniones.push_back(std::move(m));
    }
    auto& ultimo = primero->uniones.back().select;
    primero->ordenUnion = std::move(ultimo->orderBy);
    ultimo->orderBy.clear();
    if (actual().esPalabra("ORDER")) {
        contexto_ = ErrSintaxisOrderBy;
        primero->ordenUnion = listaOrden();
    }
    primero->orderBy.clear();
    for (auto& u : primero->uniones) u.select->orderBy.clear();
    return primero;
}

std::unique_ptr<Select> Analizador::miembro() {
    if (op("(")) {
        auto s = selectCompleto();
        exigeOp(")");
        return s;
    }
    return nucleoSelect();
}

std::unique_ptr<Select> Analizador::nucleoSelect() {
    auto s = std::make_unique<Select>();
    s->pos = actual().pos;
    contexto_ = ErrSentenciaNoValida;
    exigePalabra("SELECT");
    for (;;) {
        if (palabra("DISTINCT")) s->distinct = true;
        else if (palabra("DISTINCTROW")) s->distinctRow = true;
        else if (palabra("ALL")) {}
        else if (actual().esPalabra("TOP")) {
            avanza();
            if (actual().tipo != Tok::Numero) falla();
            s->top = actual().texto.toLongLong();
            avanza();
            if (palabra("PERCENT")) s->topPercent = true;
        } else break;
    }
    // Select list.
    do {
        ItemSelect it;
        it.pos = actual().pos;
        inicioExpr_ = it.pos;
        contexto_ = ErrSintaxisExpresion;
        if (actual().esOp("*")) {
            auto e = std::make_unique<Expr>();
            e->tipo = TipoExpr::Estrella;
            e->pos = actual().pos;
            avanza();
            it.expr = std::move(e);
        } else if (esNombre(actual()) && (siguiente().esOp(".") || siguiente().esOp("!")) && siguiente(2).esOp("*")) {
            auto e = std::make_unique<Expr>();
            e->tipo = TipoExpr::Estrella;
            e->pos = actual().pos;
            e->calificador = actual().texto.toString();
            avanza(); avanza(); avanza();
            it.expr = std::move(e);
        } else {
            it.expr = expresion();
            if (palabra("AS")) {
                it.alias = nombre();
            }
        }
        s->items.push_back(std::move(it));
    } while (op(","));

    if (palabra("FROM")) {
        contexto_ = ErrSintaxisFrom;
        listaFrom(s->from);
    } else if (actual().esPalabra("INTO")) {
        Lanza(ErrSentenciaNoValida);
    }
    if (palabra("WHERE")) {
        contexto_ = ErrSintaxisExpresion;
        inicioExpr_ = actual().pos;
        s->where = expresion();
    }
    if (actual().esPalabra("GROUP")) {
        avanza();
        contexto_ = ErrSintaxisExpresion;
        exigePalabra("BY");
        do {
            inicioExpr_ = actual().pos;
            s->groupBy.push_back(expresion());
        } while (op(","));
    }
    if (palabra("HAVING")) {
        contexto_ = ErrSintaxisExpresion;
        inicioExpr_ = actual().pos;
        s->having = expresion();
    }
    if (actual().esPalabra("ORDER")) {
        contexto_ = ErrSintaxisOrderBy;
        s->orderBy = listaOrden();
    }
    return s;
}

std::vector<ItemOrden> Analizador::listaOrden() {
    std::vector<ItemOrden> orden;
    exigePalabra("ORDER");
    exigePalabra("BY");
    do {
        ItemOrden o;
        inicioExpr_ = actual().pos;
        const int anterior = contexto_;
        contexto_ = ErrSintaxisOrderBy;
        if (actual().tipo == Tok::Fin || actual().esOp(")") || actual().esOp(",")) falla();
        contexto_ = ErrSintaxisExpresion;
        o.expr = expresion();
        contexto_ = anterior;
        if (palabra("DESC")) o.desc = true;
        else palabra("ASC");
        orden.push_back(std::move(o));
    } while (op(","));
    return orden;
}

void Analizador::listaFrom(std::vector<FuentePtr>& destino) {
    do {
        destino.push_back(elementoFrom());
    } while (op(","));
}

FuentePtr Analizador::elementoFrom() {
    Nivel nivel(*this);
    auto izquierda = primarioFrom();
    for (;;) {
        QString tipo;
        if (actual().esPalabra("INNER")) { tipo = "INNER"; avanza(); }
        else if (actual().esPalabra("LEFT")) { tipo = "LEFT"; avanza(); palabra("OUTER"); }
        else if (actual().esPalabra("RIGHT")) { tipo = "RIGHT"; avanza(); palabra("OUTER"); }
        else if (actual().esPalabra("JOIN")) { tipo = "INNER"; }
        else break;
        const int anterior = contexto_;
        contexto_ = ErrSintaxisJoin;
        exigePalabra("JOIN");
        nivel.mas();
        auto j = std::make_unique<FuenteFrom>();
        j->clase = FuenteFrom::Join;
        j->pos = izquierda->pos;
        j->tipoJoin = tipo;
        j->izquierda = std::move(izquierda);
        j->derecha = primarioFrom();
        contexto_ = ErrSintaxisJoin;
        exigePalabra("ON");
        contexto_ = ErrSintaxisExpresion;
        inicioExpr_ = actual().pos;
        j->on = expresion();
        contexto_ = anterior;
        izquierda = std::move(j);
    }
    return izquierda;
}

FuentePtr Analizador::primarioFrom() {
    const int anterior = contexto_;
    contexto_ = ErrSintaxisFrom;
    if (actual().esOp("(")) {
        if (siguiente().esPalabra("SELECT") || (siguiente().esOp("(") && siguiente(2).esPalabra("SELECT"))) {
            auto f = std::make_unique<FuenteFrom>();
            f->clase = FuenteFrom::Derivada;
            f->pos = actual().pos;
            avanza();
            f->sub = selectCompleto();
            contexto_ = ErrSintaxisFrom;
            exigeOp(")");
            aliasOpcional(*f);
            contexto_ = anterior;
            return f;
        }
        avanza();
        auto dentro = elementoFrom();
        contexto_ = ErrSintaxisFrom;
        exigeOp(")");
        contexto_ = anterior;
        return dentro;
    }
    auto f = std::make_unique<FuenteFrom>();
    f->clase = FuenteFrom::Tabla;
    f->pos = actual().pos;
    f->tabla = nombre();
    if (actual().esPalabra("IN") && siguiente().tipo == Tok::Cadena) {
        avanza();
        f->baseExterna = actual().cadena;
        avanza();
    }
    aliasOpcional(*f);
    contexto_ = anterior;
    return f;
}

void Analizador::aliasOpcional(FuenteFrom& f) {
    if (palabra("AS")) {
        f.alias = nombre();
    } else if (esNombre(actual())) {
        f.alias = nombre();
    }
}

ExprPtr Analizador::binario(QStringView o, ExprPtr a, ExprPtr b, int pos) {
    auto e = std::make_unique<Expr>();
    e->tipo = TipoExpr::Binario;
    e->op = OpEstatico(o);
    e->pos = pos;
    e->args.push_back(std::move(a));
    e->args.push_back(std::move(b));
    return e;
}

// a op b. A chain of one associative operator grows in place, one level however long it is; any other
// operator wraps what was read before it, one level more.
ExprPtr Analizador::encadena(QStringView o, ExprPtr a, int pos, Nivel& nivel, ExprPtr (Analizador::*operando)()) {
    const QStringView estatico = OpEstatico(o);
    const bool asociativo = estatico == u"AND" || estatico == u"OR" || estatico == u"&" || estatico == u"+" ||
                            estatico == u"*";
    if (asociativo && a->tipo == TipoExpr::Binario && a->op == estatico) {
        a->args.push_back((this->*operando)());
        return a;
    }
    nivel.mas();
    return binario(estatico, std::move(a), (this->*operando)(), pos);
}

ExprPtr Analizador::imp() {
    Nivel nivel(*this, false);
    auto e = eqv();
    while (actual().esPalabra("IMP")) { int p = actual().pos; avanza(); e = encadena(u"IMP", std::move(e), p, nivel, &Analizador::eqv); }
    return e;
}
ExprPtr Analizador::eqv() {
    Nivel nivel(*this, false);
    auto e = xorE();
    while (actual().esPalabra("EQV")) { int p = actual().pos; avanza(); e = encadena(u"EQV", std::move(e), p, nivel, &Analizador::xorE); }
    return e;
}
ExprPtr Analizador::xorE() {
    Nivel nivel(*this, false);
    auto e = orE();
    while (actual().esPalabra("XOR")) { int p = actual().pos; avanza(); e = encadena(u"XOR", std::move(e), p, nivel, &Analizador::orE); }
    return e;
}
ExprPtr Analizador::orE() {
    Nivel nivel(*this, false);
    auto e = andE();
    while (actual().esPalabra("OR")) { int p = actual().pos; avanza(); e = encadena(u"OR", std::move(e), p, nivel, &Analizador::andE); }
    return e;
}
ExprPtr Analizador::andE() {
    Nivel nivel(*this, false);
    auto e = notE();
    while (actual().esPalabra("AND")) { int p = actual().pos; avanza(); e = encadena(u"AND", std::move(e), p, nivel, &Analizador::notE); }
    return e;
}
ExprPtr Analizador::notE() {
    if (actual().esPalabra("NOT")) {
        Nivel nivel(*this);
        auto e = std::make_unique<Expr>();
        e->tipo = TipoExpr::Unario;
        e->op = u"NOT";
        e->pos = actual().pos;
        avanza();
        e->args.push_back(notE());
        return e;
    }
    return comparacion();
}

ExprPtr Analizador::comparacion() {
    Nivel nivel(*this, false);
    auto e = concatenacion();
    for (;;) {
        const Token& t = actual();
        const int p = t.pos;
        if (t.tipo == Tok::Operador &&
            (t.texto == u"=" || t.texto == u"<>" || t.texto == u"<" || t.texto == u">" || t.texto == u"<=" ||
             t.texto == u">=" || t.texto == u"!=")) {
            const QStringView o = OpEstatico(t.texto);
            avanza();
            e = encadena(o, std::move(e), p, nivel, &Analizador::concatenacion);
            continue;
        }
        bool negado = false;
        if (t.esPalabra("NOT") && (siguiente().esPalabra("LIKE") || siguiente().esPalabra("BETWEEN") ||
                                   siguiente().esPalabra("IN"))) {
            negado = true;
            avanza();
        }
        if (palabra("LIKE")) {
            nivel.mas();
            auto l = std::make_unique<Expr>();
            l->tipo = TipoExpr::Like;
            l->pos = p;
            l->negado = negado;
            l->args.push_back(std::move(e));
            l->args.push_back(concatenacion());
            e = std::move(l);
        } else if (palabra("BETWEEN")) {
            nivel.mas();
            auto b = std::make_unique<Expr>();
            b->tipo = TipoExpr::Between;
            b->pos = p;
            b->negado = negado;
            b->args.push_back(std::move(e));
            b->args.push_back(concatenacion());
            exigePalabra("AND");
            b->args.push_back(concatenacion());
            e = std::move(b);
        } else if (palabra("IN")) {
            nivel.mas();
            exigeOp("(");
            auto in = std::make_unique<Expr>();
            in->pos = p;
            in->negado = negado;
            in->args.push_back(std::move(e));
            if (actual().esPalabra("SELECT")) {
                in->tipo = TipoExpr::EnSelect;
                const int anterior = contexto_;
                in->sub = selectCompleto();
                contexto_ = anterior;
            } else {
                in->tipo = TipoExpr::EnLista;
                do {
                    in->args.push_back(expresion());
                } while (op(","));
            }
            exigeOp(")");
            e = std::move(in);
        } else if (!negado && t.esPalabra("IS")) {
            nivel.mas();
            avanza();
            auto n = std::make_unique<Expr>();
            n->tipo = TipoExpr::EsNulo;
            n->pos = p;
            n->negado = palabra("NOT");
            exigePalabra("NULL");
            n->args.push_back(std::move(e));
            e = std::move(n);
        } else {
            if (negado) falla();
            break;
        }
    }
    return e;
}

ExprPtr Analizador::concatenacion() {
    Nivel nivel(*this, false);
    auto e = suma();
    while (actual().esOp("&")) { int p = actual().pos; avanza(); e = encadena(u"&", std::move(e), p, nivel, &Analizador::suma); }
    return e;
}
ExprPtr Analizador::suma() {
    Nivel nivel(*this, false);
    auto e = modulo();
    while (actual().esOp("+") || actual().esOp("-")) {
        const QStringView o = actual().texto;
        int p = actual().pos;
        avanza();
        e = encadena(o, std::move(e), p, nivel, &Analizador::modulo);
    }
    return e;
}
ExprPtr Analizador::modulo() {
    Nivel nivel(*this, false);
    auto e = divEntera();
    while (actual().esPalabra("MOD")) { int p = actual().pos; avanza(); e = encadena(u"MOD", std::move(e), p, nivel, &Analizador::divEntera); }
    return e;
}
ExprPtr Analizador::divEntera() {
    Nivel nivel(*this, false);
    auto e = producto();
    while (actual().esOp("\\")) { int p = actual().pos; avanza(); e = encadena(u"\\", std::move(e), p, nivel, &Analizador::producto); }
    return e;
}
ExprPtr Analizador::producto() {
    Nivel nivel(*this, false);
    auto e = unario();
    while (actual().esOp("*") || actual().esOp("/")) {
        const QStringView o = actual().texto;
        int p = actual().pos;
        avanza();
        e = encadena(o, std::move(e), p, nivel, &Analizador::unario);
    }
    return e;
}
ExprPtr Analizador::unario() {
    if (actual().esOp("-") || actual().esOp("+")) {
        Nivel nivel(*this);
        auto e = std::make_unique<Expr>();
        e->tipo = TipoExpr::Unario;
        e->op = OpEstatico(actual().texto);
        e->pos = actual().pos;
        avanza();
        e->args.push_back(unario());
        return e;
    }
    return potencia();
}
ExprPtr Analizador::potencia() {
    Nivel nivel(*this, false);
    auto e = primario();
    while (actual().esOp("^")) { int p = actual().pos; avanza(); e = encadena(u"^", std::move(e), p, nivel, &Analizador::primario); }
    return e;
}

ExprPtr Analizador::primario() {
    const Token& t = actual();
    auto e = std::make_unique<Expr>();
    e->pos = t.pos;
    switch (t.tipo) {
    case Tok::Numero: {
        avanza();
        e->tipo = TipoExpr::Literal;
        bool entero = !t.texto.contains(u'.') && !t.texto.contains(u'e') && !t.texto.contains(u'E');
        if (entero) {
            bool ok = false;
            const qlonglong v = t.texto.toLongLong(&ok);
            if (ok && v >= std::numeric_limits<qint32>::min() && v <= std::numeric_limits<qint32>::max()) {
                e->valor = vb::Variant::Long(static_cast<qint32>(v));
                return e;
            }
        }
        // Up to four decimals the number is also kept exact, for money.
        {
            const QStringView texto = t.texto;
            const qsizetype punto = texto.indexOf(u'.');
            const qsizetype decimales = punto < 0 ? 0 : texto.size() - punto - 1;
            bool digitos = decimales <= 4 && texto.size() <= 24;
            quint64 m = 0;
            for (qsizetype i = 0; digitos && i < texto.size(); ++i) {
                if (i == punto) continue;
                const unsigned dgt = static_cast<unsigned>(texto[i].unicode() - u'0');
                if (dgt > 9u || __builtin_mul_overflow(m, quint64{10}, &m) || __builtin_add_overflow(m, quint64{dgt}, &m))
                    digitos = false;
            }
            for (qsizetype i = decimales; digitos && i < 4; ++i)
                if (__builtin_mul_overflow(m, quint64{10}, &m)) digitos = false;
            if (digitos && m <= quint64{1} << 63) {
                e->decimalExacto = true;
                e->diezmilesimos = m;
            }
        }
        // A number beyond what a Double holds is no number of the dialect.
        const double d = t.texto.toDouble();
        if (!std::isfinite(d)) {
            inicioExpr_ = t.pos;
            contexto_ = ErrSintaxisExpresion;
            Lanza(ErrSintaxisExpresion, t.texto.toString());
        }
        e->valor = vb::Variant(d);
        return e;
    }
    case Tok::Cadena:
        avanza();
        e->tipo = TipoExpr::Literal;
        e->valor = vb::Variant(t.cadena);
        return e;
    case Tok::Fecha: {
        auto f = LeeLiteralFecha(t.texto.toString());
        if (!f) {
            inicioExpr_ = t.pos;
            contexto_ = ErrSintaxisExpresion;
            falla();
        }
        avanza();
        e->tipo = TipoExpr::Literal;
        e->valor = vb::Variant(*f);
        return e;
    }
    case Tok::Operador:
        if (t.esOp("(")) {
            avanza();
            if (actual().esPalabra("SELECT")) {
                e->tipo = TipoExpr::Subconsulta;
                const int anterior = contexto_;
                e->sub = selectCompleto();
                contexto_ = anterior;
                exigeOp(")");
                return e;
            }
            auto dentro = expresion();
            exigeOp(")");
            return dentro;
        }
        falla();
    case Tok::Nombre:
        if (t.esPalabra("NULL")) { avanza(); e->tipo = TipoExpr::Literal; e->valor = vb::Variant::Null(); return e; }
        if (t.esPalabra("TRUE")) { avanza(); e->tipo = TipoExpr::Literal; e->valor = vb::Variant(true); return e; }
        if (t.esPalabra("FALSE")) { avanza(); e->tipo = TipoExpr::Literal; e->valor = vb::Variant(false); return e; }
        if (t.esPalabra("EXISTS")) {
            avanza();
            exigeOp("(");
            e->tipo = TipoExpr::Exists;
            const int anterior = contexto_;
            e->sub = selectCompleto();
            contexto_ = anterior;
            exigeOp(")");
            return e;
        }
        // Left( and Right( are the text functions, not the joins.
        if (EsReservada(t) && !(EsFuncionReservada(t) && siguiente().esOp("("))) falla();
        if (siguiente().esOp("(")) {
            avanza();
            avanza();
            e->tipo = TipoExpr::Funcion;
            e->nombre = t.texto.toString();
            if (!op(")")) {
                do {
                    if (actual().esOp("*")) {
                        auto s = std::make_unique<Expr>();
                        s->tipo = TipoExpr::Estrella;
                        s->pos = actual().pos;
                        avanza();
                        e->args.push_back(std::move(s));
                    } else {
                        e->args.push_back(expresion());
                    }
                } while (op(","));
                exigeOp(")");
            }
            return e;
        }
        [[fallthrough]];
    case Tok::NombreCorchete: {
        avanza();
        e->tipo = TipoExpr::Columna;
        e->nombre = t.texto.toString();
        if ((actual().esOp(".") || actual().esOp("!")) && esNombre(siguiente())) {
            avanza();
            e->calificador = e->nombre;
            e->nombre = actual().texto.toString();
            avanza();
        }
        return e;
    }
    case Tok::Fin:
        falla();
    }
    falla();
}

Sentencia Analizador::insercion() {
    Sentencia s;
    s.clase = Sentencia::Insercion;
    contexto_ = ErrSintaxisInsert;
    exigePalabra("INSERT");
    exigePalabra("INTO");
    s.posTabla = actual().pos;
    s.tabla = nombre();
    if (palabra("IN")) {
        if (actual().tipo != Tok::Cadena) falla();
        s.baseExterna = actual().cadena;
        avanza();
    }
    s.posFuente = actual().pos;
    if (actual().esOp("(") && !siguiente().esPalabra("SELECT")) {
        avanza();
        do {
            s.columnas << nombre();
        } while (op(","));
        exigeOp(")");
    }
    if (palabra("VALUES")) {
        exigeOp("(");
        do {
            if (!empiezaExpresion()) falla();
            contexto_ = ErrSintaxisExpresion;
            inicioExpr_ = actual().pos;
            s.valores.push_back(expresion());
            contexto_ = ErrSintaxisInsert;
        } while (op(","));
        contexto_ = ErrSintaxisInsert;
        exigeOp(")");
    } else if (actual().esPalabra("SELECT") || (actual().esOp("(") && siguiente().esPalabra("SELECT"))) {
        s.posSelect = actual().pos;
        s.select = selectCompleto();
    } else {
        falla();
    }
    return s;
}

Sentencia Analizador::actualizacion() {
    Sentencia s;
    s.clase = Sentencia::Actualizacion;
    contexto_ = ErrSintaxisUpdate;
    exigePalabra("UPDATE");
    s.posTabla = actual().pos;
    s.from.push_back(elementoFrom());
    contexto_ = ErrSintaxisUpdate;
    exigePalabra("SET");
    do {
        Sentencia::Asignacion a;
        a.pos = actual().pos;
        a.columna = nombre();
        if (op(".") || op("!")) {
            a.calificador = a.columna;
            a.columna = nombre();
        }
        exigeOp("=");
        if (!empiezaExpresion()) falla();
        contexto_ = ErrSintaxisExpresion;
        inicioExpr_ = actual().pos;
        a.valor = expresion();
        contexto_ = ErrSintaxisUpdate;
        s.asignaciones.push_back(std::move(a));
    } while (op(","));
    if (palabra("WHERE")) {
        contexto_ = ErrSintaxisExpresion;
        inicioExpr_ = actual().pos;
        s.where = expresion();
    }
    return s;
}

Sentencia Analizador::borrado() {
    Sentencia s;
    s.clase = Sentencia::Borrado;
    contexto_ = ErrSintaxisDelete;
    exigePalabra("DELETE");
    if (op("*")) {
    } else if (esNombre(actual()) && (siguiente().esOp(".") || siguiente().esOp("!")) && siguiente(2).esOp("*")) {
        s.objetivoBorrado = actual().texto.toString();
        avanza(); avanza(); avanza();
    } else if (esNombre(actual()) && !actual().esPalabra("FROM")) {
        // DELETE t FROM ...
        s.objetivoBorrado = nombre();
    }
    exigePalabra("FROM");
    contexto_ = ErrSintaxisFrom;
    s.posTabla = actual().pos;
    listaFrom(s.from);
    if (palabra("WHERE")) {
        contexto_ = ErrSintaxisExpresion;
        inicioExpr_ = actual().pos;
        s.where = expresion();
    }
    return s;
}

TipoCampo TipoDeNombre(const QString& n, bool& contador) {
    const QString u = n.toUpper();
    contador = false;
    if (u == "COUNTER" || u == "AUTOINCREMENT" || u == "IDENTITY") { contador = true; return TipoCampo::Long; }
    if (u == "LONG" || u == "INTEGER" || u == "INT" || u == "INTEGER4") return TipoCampo::Long;
    if (u == "SHORT" || u == "SMALLINT" || u == "INTEGER2") return TipoCampo::Integer;
    if (u == "BYTE" || u == "TINYINT" || u == "INTEGER1") return TipoCampo::Byte;
    if (u == "TEXT" || u == "VARCHAR" || u == "CHAR" || u == "CHARACTER" || u == "STRING" || u == "NVARCHAR" ||
        u == "NCHAR" || u == "ALPHANUMERIC")
        return TipoCampo::Text;
    if (u == "MEMO" || u == "LONGTEXT" || u == "LONGCHAR" || u == "NOTE" || u == "NTEXT") return TipoCampo::Memo;
    if (u == "CURRENCY" || u == "MONEY") return TipoCampo::Currency;
    if (u == "DATETIME" || u == "DATE" || u == "TIME" || u == "TIMESTAMP") return TipoCampo::Date;
    if (u == "DOUBLE" || u == "FLOAT" || u == "FLOAT8" || u == "NUMBER" || u == "NUMERIC") return TipoCampo::Double;
    if (u == "SINGLE" || u == "REAL" || u == "FLOAT4") return TipoCampo::Single;
    if (u == "BIT" || u == "YESNO" || u == "LOGICAL" || u == "LOGICAL1" || u == "BOOLEAN") return TipoCampo::Boolean;
    if (u == "LONGBINARY" || u == "OLEOBJECT" || u == "GENERAL" || u == "IMAGE") return TipoCampo::LongBinary;
    if (u == "BINARY" || u == "VARBINARY") return TipoCampo::Binary;
    if (u == "GUID" || u == "UNIQUEIDENTIFIER") return TipoCampo::Guid;
    return TipoCampo::Ninguno;
}

DefColumna Analizador::defColumna() {
    DefColumna c;
    c.nombre = nombre();
    if (actual().tipo != Tok::Nombre) falla();
    const QString tipo = actual().texto.toString();
    avanza();
    if (tipo.compare(QLatin1String("DOUBLE"), Qt::CaseInsensitive) == 0) palabra("PRECISION");
    bool contador = false;
    c.tipo = TipoDeNombre(tipo, contador);
    if (c.tipo == TipoCampo::Ninguno) falla();
    c.contador = contador;
    if (op("(")) {
        if (actual().tipo != Tok::Numero) falla();
        c.tamano = actual().texto.toInt();
        avanza();
        if (op(",")) { if (actual().tipo != Tok::Numero) falla(); avanza(); }  // (seed, increment), (p, s)
        exigeOp(")");
    }
    if (c.tipo == TipoCampo::Text) {
        if (c.tamano <= 0) c.tamano = 255;
        if (c.tamano > 255) falla();
    } else {
        c.tamano = TamanoFijo(c.tipo);
    }
    for (;;) {
        if (actual().esPalabra("NOT") && siguiente().esPalabra("NULL")) {
            avanza(); avanza();
            c.noNulo = true;
        } else if (palabra("NULL")) {
        } else if (palabra("CONSTRAINT")) {
            c.nombreRestriccion = nombre();
        } else if (palabra("PRIMARY")) {
            exigePalabra("KEY");
            c.clavePrimaria = true;
        } else if (palabra("UNIQUE")) {
            c.unico = true;
        } else if (actual().esPalabra("DEFAULT")) {
            avanza();
            const Token& t = actual();
            if (t.tipo == Tok::Cadena) c.predeterminado = u'"' + t.cadena + u'"';
            else if (t.tipo == Tok::Numero || t.tipo == Tok::Nombre) c.predeterminado = t.texto.toString();
            else if (t.esOp("-") && siguiente().tipo == Tok::Numero) { avanza(); c.predeterminado = u'-' + actual().texto.toString(); }
            else falla();
            avanza();
            if (op("(")) { exigeOp(")"); c.predeterminado += "()"; }
        } else {
            break;
        }
    }
    return c;
}

DefRestriccion Analizador::defRestriccion() {
    DefRestriccion r;
    exigePalabra("CONSTRAINT");
    r.nombre = nombre();
    if (palabra("PRIMARY")) { exigePalabra("KEY"); r.primaria = true; }
    else if (palabra("UNIQUE")) r.unica = true;
    else falla();
    exigeOp("(");
    do {
        r.columnas << nombre();
        if (!palabra("ASC")) palabra("DESC");
    } while (op(","));
    exigeOp(")");
    return r;
}

Sentencia Analizador::creacion() {
    Sentencia s;
    exigePalabra("CREATE");
    if (palabra("TABLE")) {
        contexto_ = ErrSintaxisCreateTable;
        s.clase = Sentencia::CreaTabla;
        s.posTabla = actual().pos;
        s.tabla = nombre();
        exigeOp("(");
        do {
            if (actual().esPalabra("CONSTRAINT")) s.restricciones.push_back(defRestriccion());
            else s.defColumnas.push_back(defColumna());
        } while (op(","));
        exigeOp(")");
        return s;
    }
    contexto_ = ErrSentenciaNoValida;
    s.clase = Sentencia::CreaIndice;
    if (palabra("UNIQUE")) s.indiceUnico = true;
    exigePalabra("INDEX");
    s.indice = nombre();
    exigePalabra("ON");
    s.posTabla = actual().pos;
    s.tabla = nombre();
    exigeOp("(");
    do {
        s.columnas << nombre();
        if (!palabra("ASC")) palabra("DESC");
    } while (op(","));
    exigeOp(")");
    if (palabra("WITH")) {
        do {
            if (palabra("PRIMARY")) { s.indicePrimario = true; s.indiceUnico = true; }
            else if (palabra("DISALLOW")) exigePalabra("NULL");
            else if (palabra("IGNORE")) exigePalabra("NULL");
            else falla();
        } while (actual().tipo == Tok::Nombre);
    }
    return s;
}

Sentencia Analizador::alteracion() {
    Sentencia s;
    s.clase = Sentencia::AlteraTabla;
    contexto_ = ErrSintaxisAlterTable;
    exigePalabra("ALTER");
    exigePalabra("TABLE");
    s.posTabla = actual().pos;
    s.tabla = nombre();
    if (palabra("ADD")) {
        if (actual().esPalabra("CONSTRAINT")) {
            s.restricciones.push_back(defRestriccion());
        } else {
            palabra("COLUMN");
            s.defColumnas.push_back(defColumna());
        }
    } else if (palabra("DROP")) {
        if (palabra("CONSTRAINT")) s.restriccionBorrada = nombre();
        else {
            palabra("COLUMN");
            s.columnaBorrada = nombre();
        }
    } else if (palabra("ALTER")) {
        palabra("COLUMN");
        s.defColumnas.push_back(defColumna());
        s.columnaBorrada = s.defColumnas.back().nombre;   // change of type: drop and add in place
    } else {
        falla();
    }
    return s;
}

int NumeroMes(const QString& nombre) {
    static const char* es[] = {"ene", "feb", "mar", "abr", "may", "jun", "jul", "ago", "sep", "oct", "nov", "dic"};
    static const char* en[] = {"jan", "feb", "mar", "apr", "may", "jun", "jul", "aug", "sep", "oct", "nov", "dec"};
    const QString n = nombre.toLower();
    if (n.size() < 3) return 0;
    const QString tres = n.left(3);
    for (int m = 0; m < 12; ++m) {
        if (tres == QLatin1String(es[m]) || tres == QLatin1String(en[m])) return m + 1;
    }
    if (n.startsWith(QStringLiteral("set"))) return 9;   // "setiembre"
    return 0;
}

int AnioCompleto(int anio, int digitos) {
    if (digitos <= 2) return anio < 30 ? 2000 + anio : 1900 + anio;
    return anio;
}

}  // namespace

std::optional<vb::Fecha> LeeLiteralFecha(const QString& contenido) {
    QString t = contenido.trimmed();
    if (t.isEmpty()) return std::nullopt;
    // Time part: the last piece holding ':' (with AM/PM optionally).
    QTime hora(0, 0);
    static const QRegularExpression reHora(
        QStringLiteral("(\\d{1,2}):(\\d{1,2})(?::(\\d{1,2}))?\\s*([AaPp][Mm])?\\s*$"));
    auto mh = reHora.match(t);
    if (mh.hasMatch()) {
        int h = mh.captured(1).toInt(), mi = mh.captured(2).toInt(), se = mh.captured(3).toInt();
        const QString ampm = mh.captured(4).toUpper();
        if (ampm == "PM" && h < 12) h += 12;
        if (ampm == "AM" && h == 12) h = 0;
        if (h > 23 || mi > 59 || se > 59) return std::nullopt;
        hora = QTime(h, mi, se);
        t = t.left(mh.capturedStart()).trimmed();
        if (t.isEmpty()) return vb::Fecha(QDate(1899, 12, 30), hora);
    }
    static const QRegularExpression reSep(QStringLiteral("[/\\-\\s.,]+"));
    const QStringList partes = t.split(reSep, Qt::SkipEmptyParts);
    if (partes.size() != 3) return std::nullopt;
    auto numero = [](const QString& p, bool& ok) { ok = !p.isEmpty(); for (QChar c : p) if (!c.isDigit()) ok = false; return ok ? p.toInt() : 0; };
    bool ok0, ok1, ok2;
    const int a = numero(partes[0], ok0), b = numero(partes[1], ok1), c = numero(partes[2], ok2);
    QDate d;
    if (ok0 && ok1 && ok2) {
        if (partes[0].size() >= 3) {
            d = QDate(a, b, c);                                   // yyyy/mm/dd
        } else {
            const int anio = AnioCompleto(c, static_cast<int>(partes[2].size()));
            d = QDate(anio, a, b);                                // mm/dd/yyyy
            if (!d.isValid()) d = QDate(anio, b, a);              // dd/mm/yyyy when the month can't be first
        }
    } else if (ok0 && !ok1 && ok2) {
        const int m = NumeroMes(partes[1]);
        if (m) d = QDate(AnioCompleto(c, static_cast<int>(partes[2].size())), m, a);  // dd/mmm/yyyy
    } else if (!ok0 && ok1 && ok2) {
        const int m = NumeroMes(partes[0]);
        if (m) d = QDate(AnioCompleto(c, static_cast<int>(partes[2].size())), m, b);  // mmm/dd/yyyy
    }
    if (!d.isValid()) return std::nullopt;
    return vb::Fecha(d, hora);
}

Sentencia Analiza(const QString& sentencia) {
    Analizador a(sentencia);
    return a.sentencia();
}

ExprPtr AnalizaExpresion(const QString& expresion) {
    Analizador a(expresion);
    return a.soloExpresion();
}

}  // namespace jet
