#include "core/ActualizaBDsAdq.h"

#include "core/Globales.h"
#include "core/dao/Dao.h"

#include <initializer_list>

namespace ActualizaBDsAdq {

namespace {

const QString vbCrLf = QStringLiteral("\r\n");

// A column that a later version added to an existing table.
struct ColumnaNueva {
    const char* nombre;
    int tipo;
    int tamano;
    bool predeterminadoVacio;   // gets an empty default value
};

// A column of a table the module creates.
struct Campo {
    const char* nombre;
    int tipo;
    int tamano;
    bool clave;                 // the auto-increment key
    bool requerido;
    const char* predeterminado; // nullptr: none
};

QString NoSePudo(const QString& tabla, const vb::Error& e) {
    return QStringLiteral("03 No se pudo actualizar la tabla ") + tabla + vbCrLf + QString::number(e.Number()) +
           u' ' + e.Description();
}

// Adds the columns the table lacks. "01" if any of them stood there already, empty if all were added.
QString AgregaColumnas(const QString& tabla, std::initializer_list<ColumnaNueva> columnas,
                       bool financiamientoEnCero = false) {
    try {
        if (!ExisteTabla(tabla)) return QStringLiteral("02 No se encontró la tabla ") + tabla;
        dao::Database& db = globales::Base();
        dao::TableDef& def = db.TableDefs()[tabla];
        bool yaEstaba = false;
        bool financiamientoAgregado = false;
        for (const auto& c : columnas) {
            const QString nombre = QString::fromUtf8(c.nombre);
            if (ExisteCampo(tabla, nombre)) {
                yaEstaba = true;
                continue;
            }
            dao::Field f = def.CreateField(nombre, c.tipo, c.tamano);
            f.setAttributes(dao::dbFixedField);
            f.setRequired(false);
            if (c.predeterminadoVacio) f.setDefaultValue(QString());
            def.Fields().Append(f);
            if (nombre == QLatin1String("IdFinanciamiento")) financiamientoAgregado = true;
        }
        if (financiamientoEnCero && financiamientoAgregado) {
            db.TableDefs().Refresh();
            db.Execute(QStringLiteral("UPDATE [Solicitudes General] SET IdFinanciamiento=0"), dao::dbFailOnError);
        }
        if (yaEstaba) return QStringLiteral("01 La tabla") + tabla + QStringLiteral(" ya estaba actualizada");
        return QString();
    } catch (const vb::Error& e) {
        return NoSePudo(tabla, e);
    }
}

// Creates the table through its definition, unless it exists.
QString CreaTabla(const QString& tabla, std::initializer_list<Campo> campos, const char* indicePrimario = nullptr) {
    try {
        if (ExisteTabla(tabla)) return QStringLiteral("01 La tabla ") + tabla + QStringLiteral(" ya existía...");
        dao::Database& db = globales::Base();
        auto def = db.CreateTableDef(tabla);
        QString clave;
        for (const auto& c : campos) {
            dao::Field f = def->CreateField(QString::fromUtf8(c.nombre), c.tipo, c.tamano);
            if (c.clave) {
                f.setAttributes(dao::dbFixedField | dao::dbAutoIncrField);
                f.setRequired(true);
                clave = f.Name();
            } else {
                f.setAttributes(dao::dbFixedField);
                f.setRequired(c.requerido);
            }
            if (c.predeterminado) f.setDefaultValue(QString::fromUtf8(c.predeterminado));
            def->Fields().Append(f);
        }
        if (indicePrimario) {
            dao::Index indice = def->CreateIndex(QString::fromUtf8(indicePrimario));
            indice.setPrimary(true);
            indice.AppendField(indice.CreateField(clave));
            def->AppendIndex(indice);
        }
        db.TableDefs().Append(std::move(def));
        return QString();
    } catch (const vb::Error& e) {
        return NoSePudo(tabla, e);
    }
}

using dao::dbCurrency;
using dao::dbDate;
using dao::dbInteger;
using dao::dbLong;
using dao::dbMemo;
using dao::dbText;

QString Paso1() {
    return AgregaColumnas(QStringLiteral("Solicitudes General"),
                          {{"FechaPedido", dbDate, 0, false},
                           {"FechaRecepcion", dbDate, 0, false},
                           {"FechaCaptura", dbDate, 0, true},
                           {"FechaEnvio", dbDate, 0, true},
                           {"IdCapturista", dbText, 10, false},
                           {"TipoMaterial", dbInteger, 0, false},
                           {"IdFinanciamiento", dbInteger, 0, false}},
                          true);
}

QString Paso2() {
    return AgregaColumnas(QStringLiteral("Solicitudes Libros"),
                          {{"IdCapturista", dbText, 10, false}, {"Ejemp_Recibidos", dbInteger, 0, false}});
}

QString Paso3() {
    return AgregaColumnas(QStringLiteral("Adquisiciones Numadqui"),
                          {{"IdCapturista", dbText, 10, false}, {"FechaIngreso", dbDate, 0, false}});
}

QString Paso4() {
    return CreaTabla(QStringLiteral("adqProyectos"),
                     {{"IdProyecto", dbLong, 0, true, true, nullptr},
                      {"Nombre", dbText, 100, false, false, nullptr},
                      {"Responsable", dbText, 100, false, false, nullptr},
                      {"IdEscuela", dbInteger, 0, false, false, nullptr},
                      {"FuenteFinanciamiento", dbText, 100, false, false, nullptr},
                      {"FechaAsignacion", dbDate, 0, false, false, nullptr},
                      {"FechaVigencia", dbDate, 0, false, false, ""},
                      {"TotalAsignado", dbCurrency, 0, false, false, nullptr},
                      {"UltimoMovimiento", dbDate, 0, false, false, nullptr},
                      {"MontoDisponible", dbCurrency, 0, false, false, nullptr},
                      {"Descripcion", dbMemo, 0, false, false, nullptr},
                      {"FechaCaptura", dbDate, 0, false, false, nullptr},
                      {"IdCapturista", dbText, 10, false, false, nullptr},
                      {"IdFinanciamiento", dbInteger, 0, false, true, nullptr}},
                     "PrimaryKey");
}

QString Paso5() {
    return AgregaColumnas(QStringLiteral("Donaciones Libros"), {{"IdCapturista", dbText, 10, false},
                                                                {"Costo", dbCurrency, 0, false},
                                                                {"FechaCaptura", dbDate, 0, false}});
}

QString Paso6() {
    return CreaTabla(QStringLiteral("adqSaldoProyectos"),
                     {{"IdEscuela", dbLong, 0, false, true, nullptr},
                      {"IdFinanciamiento", dbLong, 0, false, true, nullptr},
                      {"UltimoMovimiento", dbDate, 0, false, false, nullptr},
                      {"Monto", dbCurrency, 0, false, false, "0"},
                      {"Saldo", dbCurrency, 0, false, false, "0"},
                      {"Operacion", dbText, 10, false, false, nullptr},
                      {"IdCapturista", dbText, 10, false, false, nullptr}});
}

QString Paso7() {
    return AgregaColumnas(QStringLiteral("PagoFacturasGral"), {{"IdFinanciamiento", dbLong, 0, false}});
}

QString Paso8() {
    return CreaTabla(QStringLiteral("adqFinanciamiento"),
                     {{"IdFinanciamiento", dbLong, 0, true, true, nullptr},
                      {"Nombre", dbText, 100, false, false, nullptr},
                      {"MontoTotal", dbCurrency, 0, false, false, "0"},
                      {"FechaCaptura", dbDate, 0, false, false, nullptr},
                      {"MontoAsignadoDisponible", dbCurrency, 0, false, false, "0"},
                      {"UltimoMovimiento", dbDate, 0, false, false, nullptr},
                      {"MontoXAsignar", dbCurrency, 0, false, false, "0"},
                      {"IdCapturista", dbText, 10, false, false, nullptr}});
}

QString Paso9() {
    return CreaTabla(QStringLiteral("adqSaldoFinanciamientos"),
                     {{"IdFinanciamiento", dbLong, 0, false, true, nullptr},
                      {"UltimoMovimiento", dbDate, 0, false, false, nullptr},
                      {"Monto", dbCurrency, 0, false, false, "0"},
                      {"Saldo", dbCurrency, 0, false, false, "0"},
                      {"Operacion", dbText, 10, false, false, nullptr},
                      {"IdCapturista", dbText, 10, false, false, nullptr}});
}

QString Paso10() {
    return AgregaColumnas(QStringLiteral("adqProyectos"), {{"IdFinanciamiento", dbLong, 0, false}});
}

QString Paso11() {
    return AgregaColumnas(QStringLiteral("PagoFacturasDetalle"),
                          {{"IdSolicitud", dbLong, 0, false}, {"IdEscuela", dbLong, 0, false}});
}

}  // namespace

bool ExisteTabla(const QString& tabla) {
    auto& tablas = globales::Base().TableDefs();
    tablas.Refresh();
    const QString buscada = tabla.toUpper();
    for (int i = 0; i < tablas.Count(); ++i)
        if (tablas[i].Name().toUpper() == buscada) return true;
    return false;
}

bool ExisteCampo(const QString& tabla, const QString& campo) {
    auto& campos = globales::Base().TableDefs()[tabla].Fields();
    campos.Refresh();
    const QString buscado = campo.toUpper();
    for (int i = 0; i < campos.Count(); ++i)
        if (campos[i].Name().toUpper() == buscado) return true;
    return false;
}

QString ActualizaBDs() {
    QString reporte;
    for (auto paso : {Paso1, Paso2, Paso3, Paso4, Paso5, Paso6, Paso7, Paso8, Paso9, Paso10, Paso11}) {
        const QString r = paso();
        if (r.startsWith(QLatin1String("01"))) continue;
        reporte += r + vbCrLf;
    }
    return reporte;
}

}  // namespace ActualizaBDsAdq
