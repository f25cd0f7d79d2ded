#pragma once
// One error type for the whole program: the language runtime raises its own numbers (13 type mismatch,
// 6 overflow, 94 invalid use of Null, 5 invalid procedure call) and the database engine raises its numbers
// (3022, 3061, 3078, ...) through the same class, so a handler catches one thing and reads Number and
// Description as the screens expect.
#include <QString>
#include <stdexcept>

namespace vb {

class Error : public std::runtime_error {
public:
    Error(int numero, QString descripcion, QString origen = QString());

    int Number() const { return numero_; }
    const QString& Description() const { return descripcion_; }
    const QString& Source() const { return origen_; }

private:
    int numero_;
    QString descripcion_;
    QString origen_;
};

// The runtime's own errors, with the texts the program shows.
[[noreturn]] void ErrorTiposNoCoinciden();   // 13 "No coinciden los tipos"
[[noreturn]] void ErrorDesbordamiento();     // 6 "Desbordamiento"
[[noreturn]] void ErrorUsoNoValidoDeNull();  // 94 "Uso no válido de Null"
[[noreturn]] void ErrorArgumentoNoValido();  // 5 "Llamada a procedimiento o argumento no válido"
[[noreturn]] void ErrorDivisionPorCero();    // 11 "División por cero"
[[noreturn]] void ErrorObjetoNoEstablecido(); // 91, an object used before it was set
[[noreturn]] void ErrorPermisoDenegado();    // 70 "Permiso denegado"
[[noreturn]] void ErrorAccesoArchivo();      // 75 "Error de acceso a la ruta o el archivo"

}  // namespace vb
