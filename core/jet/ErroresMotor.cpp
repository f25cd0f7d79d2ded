#include "core/jet/ErroresMotor.h"

#include <QHash>

namespace jet {

namespace {

const QHash<int, QString>& Textos() {
    static const QHash<int, QString> textos = {
        {6, QStringLiteral("Desbordamiento")},
        {3000, QStringLiteral("Error reservado (%1); no hay mensaje para este error.")},
        {3043, QStringLiteral("Error de disco o de red.")},
        {3190, QStringLiteral("Se definieron demasiados campos.")},
        {3360, QStringLiteral("Consulta demasiado compleja.")},
        {3095, QStringLiteral("No se puede tener una función de agregado en la expresión (%1).")},
        {3010, QStringLiteral("La tabla '%1' ya existe.")},
        {3020, QStringLiteral("Update o CancelUpdate sin AddNew o Edit.")},
        {3021, QStringLiteral("No hay un registro activo.")},
        {3022, QStringLiteral("Los cambios solicitados en la tabla no se realizaron correctamente porque "
                              "crearían valores duplicados en el índice, clave principal o relación. Cambie "
                              "los datos en el campo o los campos que contienen datos duplicados, quite el "
                              "índice o vuelva a definirlo para permitir entradas duplicadas e inténtelo de "
                              "nuevo.")},
        {3024, QStringLiteral("No se pudo encontrar el archivo '%1'.")},
        {3027, QStringLiteral("No se puede actualizar. La base de datos o el objeto es de sólo lectura.")},
        {3051, QStringLiteral("El motor de base de datos no puede abrir el archivo '%1'. %2")},
        {3061, QStringLiteral("Pocos parámetros. Se esperaba %1.")},
        {3073, QStringLiteral("La operación debe usar una consulta actualizable.")},
        {3075, QStringLiteral("Error de sintaxis (falta operador) en la expresión de consulta '%1'.")},
        {3078, QStringLiteral("El motor de base de datos no puede encontrar la tabla o consulta de entrada "
                              "'%1'. Asegúrese de que existe y de que su nombre está escrito correctamente.")},
        {3079, QStringLiteral("El campo especificado '%1' puede referirse a más de una tabla de las "
                              "enumeradas en la cláusula FROM de la instrucción SQL.")},
        {3306, QStringLiteral("Escribió una subconsulta que puede devolver más de un campo sin usar la "
                              "palabra reservada EXISTS en la cláusula FROM de la consulta principal. "
                              "Modifique la instrucción SELECT de la subconsulta para solicitar un único campo.")},
        {3035, QStringLiteral("Recursos del sistema excedidos.")},
        {3065, QStringLiteral("No se puede ejecutar una consulta de selección.")},
        {3164, QStringLiteral("No se puede actualizar el campo.")},
        {3264, QStringLiteral("No hay ningún campo definido; no se puede anexar el objeto TableDef o Index.")},
        {3167, QStringLiteral("El registro se eliminó.")},
        {3085, QStringLiteral("Función '%1' no definida en la expresión.")},
        {3122, QStringLiteral("Intentó ejecutar una consulta que no incluye la expresión especificada '%1' "
                              "como parte de una función de agregado.")},
        {3125, QStringLiteral("'%1' no es un nombre válido. Asegúrese de que no incluye caracteres o "
                              "puntuación no válidos y de que no es demasiado largo.")},
        {3127, QStringLiteral("La instrucción INSERT INTO contiene el siguiente nombre de campo "
                              "desconocido: '%1'. Asegúrese de que ha escrito el nombre correctamente e "
                              "inténtelo de nuevo.")},
        {3128, QStringLiteral("Especifique la tabla que contiene los registros que desea eliminar.")},
        {3129, QStringLiteral("Instrucción SQL no válida; se esperaba 'DELETE', 'INSERT', 'PROCEDURE', "
                              "'SELECT' o 'UPDATE'.")},
        {3131, QStringLiteral("Error de sintaxis en la cláusula FROM.")},
        {3134, QStringLiteral("Error de sintaxis en la instrucción INSERT INTO.")},
        {3135, QStringLiteral("Error de sintaxis en la operación JOIN.")},
        {3138, QStringLiteral("Error de sintaxis en la cláusula ORDER BY.")},
        {3142, QStringLiteral("Se encontraron caracteres después del final de la instrucción SQL.")},
        {3144, QStringLiteral("Error de sintaxis en la instrucción UPDATE.")},
        {3163, QStringLiteral("El campo '%1' es demasiado pequeño para aceptar la cantidad de datos que "
                              "intentó agregar. Intente insertar o pegar menos datos.")},
        {3204, QStringLiteral("La base de datos ya existe.")},
        {3219, QStringLiteral("Operación no válida.")},
        {3251, QStringLiteral("La operación no es compatible con este tipo de objeto.")},
        {3260, QStringLiteral("No se pudo actualizar; bloqueado por otro usuario.")},
        {3265, QStringLiteral("No se encontró el elemento en esta colección.")},
        {3290, QStringLiteral("Error de sintaxis en la instrucción CREATE TABLE.")},
        {3293, QStringLiteral("Error de sintaxis en la instrucción ALTER TABLE.")},
        {3314, QStringLiteral("El campo '%1' no puede contener un valor Null porque la propiedad Requerido "
                              "para este campo está establecida a True. Escriba un valor en este campo.")},
        {3315, QStringLiteral("El campo '%1' no puede ser una cadena de longitud cero.")},
        {3343, QStringLiteral("Formato de base de datos '%1' no reconocido.")},
        {3346, QStringLiteral("El número de valores de consulta y el de campos de destino no coinciden.")},
        {3349, QStringLiteral("Desbordamiento del campo numérico '%1'.")},
        {3354, QStringLiteral("Esta subconsulta puede devolver como máximo un registro.")},
        {3380, QStringLiteral("El campo '%1' ya existe en la tabla '%2'.")},
        {3464, QStringLiteral("No coinciden los tipos de datos en la expresión de criterios.")},
    };
    return textos;
}

}  // namespace

QString DescripcionError(int numero, const QString& a1, const QString& a2) {
    auto it = Textos().constFind(numero);
    if (it == Textos().constEnd()) return QStringLiteral("Error del motor de base de datos %1.").arg(numero);
    QString texto = *it;
    if (texto.contains(QLatin1String("%1"))) texto = texto.arg(a1);
    if (texto.contains(QLatin1String("%2"))) texto = texto.arg(a2);
    if (numero == 3051) texto = texto.trimmed();
    return texto;
}

void Lanza(int numero, const QString& a1, const QString& a2) {
    throw vb::Error(numero, DescripcionError(numero, a1, a2), QStringLiteral("Motor de base de datos"));
}

}  // namespace jet
