#include "core/DatosActualiza.h"

#include "core/Globales.h"
#include "core/dao/Dao.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Fecha.h"
#include "core/vb/Formato.h"

namespace Datos {

namespace {

const QString vbCrLf = QStringLiteral("\r\n");

// The table whose name is exactly `nombre`, from the definitions as they stand; nullptr if none.
dao::TableDef* TablaExacta(const QString& nombre) {
    auto& tablas = globales::Base().TableDefs();
    for (int i = 0; i < tablas.Count(); ++i)
        if (tablas[i].Name() == nombre) return &tablas[i];
    return nullptr;
}

bool ExisteTablaExacta(const QString& nombre) { return TablaExacta(nombre) != nullptr; }

// True if the table is there and has a column named exactly `campo`.
bool TieneCampoExacto(const QString& tabla, const QString& campo) {
    dao::TableDef* t = TablaExacta(tabla);
    if (!t) return false;
    auto& campos = t->Fields();
    for (int i = 0; i < campos.Count(); ++i)
        if (campos[i].Name() == campo) return true;
    return false;
}

QString ErrorEntreCorchetes(const vb::Error& e) {
    return QStringLiteral("Ocurrió el error: %1 [%2]").arg(e.Number()).arg(e.Description());
}

}  // namespace

bool CorrigeSolDonNumAdqui() {
    if (globales::FixSolDonNumAdqui) return true;
    try {
        dao::Database& db = globales::Base();
        db.Execute(QStringLiteral("UPDATE [Adquisiciones Numadqui] SET [Solicitud o donacion]='S' "
                                  "WHERE [Solicitud o donacion] <> 'D'"),
                   dao::dbFailOnError);
        const QString hoy = vb::Format(vb::Variant(vb::Fecha::Today()), QStringLiteral("yyyy-mm-dd"));
        db.Execute(QStringLiteral("INSERT INTO Configuracion VALUES ('FixSolDonNumAdqui','83.26a=") + hoy +
                       QStringLiteral("')"),
                   dao::dbFailOnError);
        return true;
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(QStringLiteral("Ocurrió el error: %1 %2").arg(e.Number()).arg(e.Description()),
                             ui::vbExclamation, QStringLiteral("Actualización de Tabla NumAdqui"));
        return false;
    }
}

QString AgregaISBN() {
    try {
        if (ExisteTablaExacta(QStringLiteral("Solicitudes Libros")) &&
            !TieneCampoExacto(QStringLiteral("Solicitudes Libros"), QStringLiteral("ISBN")))
            globales::Base().Execute(QStringLiteral("ALTER TABLE [Solicitudes Libros] ADD ISBN TEXT(20)"),
                                     dao::dbFailOnError);
        return QString();
    } catch (const vb::Error& e) {
        return QStringLiteral("Ocurrió el error: %1 [ %2 ]").arg(e.Number()).arg(e.Description());
    }
}

bool CreaTablasPagoFacturas(QString& mensaje) {
    try {
        dao::Database& db = globales::Base();
        QString general, detalle;
        if (!ExisteTablaExacta(QStringLiteral("PagoFacturasGral"))) {
            db.Execute(QStringLiteral(
                           "CREATE Table PagoFacturasGral(IdPagoFactura COUNTER CONSTRAINT PK_IdPagoFactura PRIMARY KEY, "
                           "FuenteFinanciamiento TEXT(40), IdProveedor LONG, Monto CURRENCY, Concepto TEXT(100), "
                           "Observaciones MEMO, FechaSolicitud DATETIME, FechaPago DATETIME, FechaMod DATETIME, "
                           "IdCapturista TEXT(10), IdCapMod TEXT(10), Estado TEXT(1) )"),
                       dao::dbFailOnError);
            general = QStringLiteral("La tabla 'PagoFacturasGral'");
        }
        if (!ExisteTablaExacta(QStringLiteral("PagoFacturasDetalle"))) {
            db.Execute(QStringLiteral(
                           "CREATE Table PagoFacturasDetalle(IdFacturaItem COUNTER CONSTRAINT PK_IdFacturaItem PRIMARY KEY, "
                           "IdPagoFactura LONG, IdProyecto LONG, NoFactura TEXT(20), MontoFactura CURRENCY, "
                           "Observaciones MEMO, FechaCaptura DATETIME, FechaMod DATETIME, IdCapturista TEXT(10), "
                           "IdCapMod TEXT(10) )"),
                       dao::dbFailOnError);
            detalle = QStringLiteral("La tabla 'PagoFacturasDetalle'");
        }
        if (general.isEmpty() && detalle.isEmpty())
            mensaje = QStringLiteral("Ya estaban actualizadas");
        else if (!general.isEmpty() && !detalle.isEmpty())
            mensaje = general + QStringLiteral(" y ") + detalle + QStringLiteral(" se han creado con éxito");
        else
            mensaje = general + detalle + QStringLiteral("se ha creado con éxito");
        return true;
    } catch (const vb::Error& e) {
        mensaje = ErrorEntreCorchetes(e);
        return false;
    }
}

bool CreaMaterialComplementario(QString& mensaje) {
    try {
        dao::Database& db = globales::Base();
        QString tabla, columna;
        if (!ExisteTablaExacta(QStringLiteral("adqMaterialComplementario"))) {
            db.Execute(QStringLiteral(
                           "CREATE Table adqMaterialComplementario (IdMatComp COUNTER CONSTRAINT PK_IdMatComp PRIMARY KEY, "
                           "ClaveLibro LONG NOT NULL, FechaCaptura DATETIME NOT NULL, Titulo TEXT(255) NOT NULL, "
                           "Observaciones MEMO, IdCapturista TEXT(10) NOT NULL, TipoMatComp LONG NOT NULL )"),
                       dao::dbFailOnError);
            tabla = QStringLiteral("La tabla 'adqMaterialComplementario' se creó con éxito");
        }
        if (!TieneCampoExacto(QStringLiteral("Adquisiciones Numadqui"), QStringLiteral("MatComplementario"))) {
            db.Execute(QStringLiteral("ALTER TABLE [Adquisiciones Numadqui] ADD COLUMN MatComplementario TEXT(15) NULL "),
                       dao::dbFailOnError);
            columna = QStringLiteral("La tabla de [Numeros de Adquisicion] ha sido actualizada con éxito");
        }
        if (tabla.isEmpty() && columna.isEmpty())
            mensaje = QStringLiteral("Ya estaban actualizadas");
        else
            mensaje = tabla + vbCrLf + columna;
        return true;
    } catch (const vb::Error& e) {
        mensaje = ErrorEntreCorchetes(e);
        return false;
    }
}

}  // namespace Datos
