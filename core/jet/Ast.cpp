#include "core/jet/Ast.h"

#include "core/jet/ErroresMotor.h"

namespace jet {

Profundidad::Profundidad(int& n) : n_(n) {
    if (++n_ > 8 * LimiteAnidamiento) {
        --n_;
        Lanza(ErrConsultaCompleja);
    }
}

bool EsNumerico(TipoCampo t) {
    switch (t) {
    case TipoCampo::Boolean: case TipoCampo::Byte: case TipoCampo::Integer: case TipoCampo::Long:
    case TipoCampo::Currency: case TipoCampo::Single: case TipoCampo::Double:
        return true;
    default:
        return false;
    }
}

bool EsTexto(TipoCampo t) { return t == TipoCampo::Text || t == TipoCampo::Memo; }

int TamanoFijo(TipoCampo t) {
    switch (t) {
    case TipoCampo::Boolean: case TipoCampo::Byte: return 1;
    case TipoCampo::Integer: return 2;
    case TipoCampo::Long: case TipoCampo::Single: return 4;
    case TipoCampo::Currency: case TipoCampo::Double: case TipoCampo::Date: return 8;
    case TipoCampo::Guid: return 16;
    default: return 0;
    }
}

}  // namespace jet
