#pragma once
// The statement as a PostgreSQL server reads it, over tables made by EsquemaPostgres and the library of
// FuncionesPostgres. What the back end relies on:
// - every table has a hidden `rowid bigint`; an updatable query carries it as its last column and
//   `sqlPorFila` reads one row by `rowid = $1`;
// - host values are $1, $2 ..., bound as text in the stored form (Boolean -1/0, money as its whole count
//   of ten-thousandths, Double with 17 digits, Date "yyyy-mm-dd hh:mm:ss"), each cast where it is used;
// - money output columns hold ten-thousandths (numeric, maybe with a ".0000" tail); Yes/No are -1/0,
//   never a boolean; dates are timestamp(0);
// - what fails inside the library raises "JET:<number>:<description>".
#include "core/jet/Emisor.h"

namespace jet {

class EmisorPostgres : public Emisor {
public:
    EmisorPostgres() = default;

    // The type a value of `tipo` has inside an expression on the server (money: numeric ten-thousandths).
    static QString TipoValor(TipoCampo tipo);

protected:
    QString expr(const Expr& e) override;
    QString condicion(const Expr& e) override;
    QString literal(const vb::Variant& v) override;
    QString columna(const Expr& e) override;
    QString parametro(const Expr& e) override;
    QString filaPorId() const override { return QStringLiteral("$1::bigint"); }
    qsizetype columnasMaximas() const override { return 1664; }
    QString comoTexto(const Expr& e) override;
    QString comoNumero(const Expr& e) override;
    QString crudo(const Expr& e) override;
    QString enTipo(const Expr& e, TipoCampo tipo) override;
    QString paraCampo(const QString& valor, TipoCampo origen, const CampoDef& campo) override;
    QString conversion(const QString& valor, const CampoDef& campo) override;
    QString binario(const Expr& e) override;
    QString funcion(const Expr& e) override;
    QString like(const Expr& e) override;
    QString aliasAnonimo() const override { return QStringLiteral(" AS jet_q"); }
    QString colacionGrupo() const override { return {}; }
    QString colacionPosicion() const override { return {}; }
    QString conEmpates(const Select& s, const QString& sinTop) override;
    // The server gives rows in no particular order: those of one table come in the order they were written.
    QString desempate(const Select& s) const override;
    // The server counts Null above every value; the dialect below.
    QString sentido(bool descendente) const override {
        return descendente ? QStringLiteral(" DESC NULLS LAST") : QStringLiteral(" NULLS FIRST");
    }
    QStringView funcionConcatenacion() const override { return u"concat"; }

private:
    QString textoDe(const QString& valor, TipoCampo tipo);
};

// A LIKE pattern of the dialect (* ? # [abc] [a-z] [!abc]) as an anchored regular expression for the
// server's case-blind match (~*); nullopt when the pattern is malformed (an unclosed bracket), which
// the library's run-time matcher reports as the engine does.
std::optional<QString> PatronComoRegex(const QString& patron);

}  // namespace jet
