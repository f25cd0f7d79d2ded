#include "core/vb/Error.h"

namespace vb {

namespace {
std::string TextoDeError(int numero, const QString& descripcion) {
    return (QStringLiteral("Error %1: %2").arg(numero).arg(descripcion)).toStdString();
}
}  // namespace

Error::Error(int numero, QString descripcion, QString origen)
    : std::runtime_error(TextoDeError(numero, descripcion)),
      numero_(numero),
      descripcion_(std::move(descripcion)),
      origen_(std::move(origen)) {}

void ErrorTiposNoCoinciden() { throw Error(13, QStringLiteral("No coinciden los tipos")); }
void ErrorDesbordamiento() { throw Error(6, QStringLiteral("Desbordamiento")); }
void ErrorUsoNoValidoDeNull() { throw Error(94, QStringLiteral("Uso no válido de Null")); }
void ErrorArgumentoNoValido() {
    throw Error(5, QStringLiteral("Llamada a procedimiento o argumento no válido"));
}
void ErrorDivisionPorCero() { throw Error(11, QStringLiteral("División por cero")); }
void ErrorObjetoNoEstablecido() {
    throw Error(91, QStringLiteral("Variable de tipo Object o la variable de bloque With no está establecida"));
}
void ErrorPermisoDenegado() { throw Error(70, QStringLiteral("Permiso denegado")); }
void ErrorAccesoArchivo() { throw Error(75, QStringLiteral("Error de acceso a la ruta o el archivo")); }

}  // namespace vb
