#include "catalog/ModuloCatalogo.h"

#include "core/Globales.h"
#include "core/dao/Dao.h"
#include "core/ui/Plataforma.h"

namespace ModuloCatalogo {

namespace {

QString ultima;
const QString saltoLinea = QStringLiteral("\r\n");

void Ejecuta(const QString& sentencia) {
    ultima = sentencia;
    globales::Base().Execute(sentencia, dao::dbFailOnError);
}

}  // namespace

const QString& UltimaSentencia() { return ultima; }

qint16 AgregarRegistroTabla(const QString& Campos, const QString& Valores, const QString& Tabla) {
    try {
        Ejecuta(QStringLiteral("INSERT INTO [") + Tabla + QStringLiteral("] (") + Campos + QStringLiteral(") VALUES (") +
                Valores + QStringLiteral(")"));
        return 0;
    } catch (const vb::Error& e) {
        auto& s = ui::Sistema();
        switch (e.Number()) {
        case 3022:
            s.MsgBox(QStringLiteral("El registro está repetido ") + saltoLinea +
                         QStringLiteral(" Verifique que el campo identificador no esté duplicado [rte3022]"),
                     ui::vbCritical, QStringLiteral("Error al agregar un nuevo registro"));
            break;
        case 3061:
            s.MsgBox(QStringLiteral("Verifique que los campos númericos tengan un valor apropiado y que los campos "
                                    "básicos estén completos [rte 3061]"),
                     ui::vbExclamation, QStringLiteral("No se pudo grabar el registro..."));
            break;
        case 3314:
            s.MsgBox(QStringLiteral("Hacen falta datos de un campo obligatorio, [rte 3314]") + saltoLinea + e.Description(),
                     ui::vbExclamation, QStringLiteral("Valor para campo requerido..."));
            break;
        case 3464:
            s.MsgBox(e.Description(), ui::vbInformation, QStringLiteral("Error raro [3464]"));
            break;
        default:
            s.MsgBox(QStringLiteral("Los datos no están completos o están incorrectos") + saltoLinea +
                         QStringLiteral("Favor de verificar la información del registro"),
                     ui::vbExclamation, QStringLiteral("Advertencia ") + QString::number(e.Number()));
            break;
        }
        return static_cast<qint16>(e.Number());
    }
}

qint16 ActualizarRegistroTabla(const QString& Asignaciones, const QString& Condicion, const QString& Tabla) {
    try {
        Ejecuta(QStringLiteral("UPDATE [") + Tabla + QStringLiteral("] SET ") + Asignaciones + QStringLiteral(" where (") +
                Condicion + QStringLiteral(")"));
        if (globales::Base().RecordsAffected() == 0) {
            ui::Sistema().MsgBox(QStringLiteral("No se pudo actualizar, registro no encontrado"), ui::vbCritical,
                                 QStringLiteral("Error 1001"));
            return -1;
        }
        return 0;
    } catch (const vb::Error& e) {
        auto& s = ui::Sistema();
        const QString titulo = QStringLiteral("Error ") + QString::number(e.Number());
        switch (e.Number()) {
        case 3022:
            s.MsgBox(QStringLiteral("El registro está repetido ") + saltoLinea +
                         QStringLiteral(" Verifique que el campo identificador no esté duplicado"),
                     ui::vbCritical, titulo);
            break;
        case 3464:
            s.MsgBox(e.Description(), ui::vbInformation, QStringLiteral("Error raro"));
            break;
        default:
            s.MsgBox(QStringLiteral("Los datos no están completos o están incorrectos") + saltoLinea + saltoLinea +
                         e.Description(),
                     ui::vbOKOnly, titulo);
            break;
        }
        return static_cast<qint16>(e.Number());
    }
}

long EliminarRegistroTabla(const QString& Condicion, const QString& Tabla) {
    try {
        Ejecuta(QStringLiteral("DELETE * FROM [") + Tabla + QStringLiteral("] WHERE ") + Condicion);
        return static_cast<long>(globales::Base().RecordsAffected());
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(e.Description(), ui::vbCritical, QStringLiteral("Error ") + QString::number(e.Number()));
        return 0;
    }
}

}  // namespace ModuloCatalogo
