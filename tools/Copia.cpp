#include "tools/Copia.h"

#include "core/ArchivosTemporales.h"
#include "core/dao/Dao.h"

namespace copia {

namespace {

// A field's definition as the origin has it, for a table not yet appended.
dao::Field DefinicionDeCampo(const dao::TableDef& destino, const dao::Field& f) {
    dao::Field nuevo = destino.CreateField(f.Name(), f.Type(), f.Size());
    nuevo.setSize(f.Size());
    nuevo.setAttributes(f.Attributes());
    nuevo.setRequired(f.Required());
    nuevo.setAllowZeroLength(f.AllowZeroLength());
    nuevo.setDefaultValue(f.DefaultValue());
    return nuevo;
}

dao::Index DefinicionDeIndice(const dao::TableDef& destino, const dao::Index& x) {
    dao::Index nuevo = destino.CreateIndex(x.Name());
    for (const QString& campo : x.FieldNames()) nuevo.AppendField(nuevo.CreateField(campo));
    nuevo.setPrimary(x.Primary());
    nuevo.setUnique(x.Unique());
    nuevo.setRequired(x.Required());
    nuevo.setIgnoreNulls(x.IgnoreNulls());
    return nuevo;
}

qint64 CuentaFilas(dao::Database& db, const QString& tabla) {
    auto rs = db.OpenRecordset(QStringLiteral("SELECT Count(*) AS N FROM [%1]").arg(tabla), dao::dbOpenSnapshot);
    return rs->Eof() ? 0 : rs->Fields(0).Value().toLong();
}

// The rows of one table, each written through a new record with every field given, counters included.
qint64 CopiaFilas(dao::Database& origen, dao::Database& destino, const QString& tabla,
                  const std::function<void(const legado::Progreso&)>& progreso) {
    legado::Progreso p{tabla, 0, CuentaFilas(origen, tabla), false};
    if (progreso) progreso(p);
    auto lectura = origen.OpenRecordset(tabla, dao::dbOpenTable);
    auto escritura = destino.OpenRecordset(tabla, dao::dbOpenTable);
    const int campos = lectura->Fields().Count();
    // The same fields in the same order: the origin's definition made the destination's.
    std::vector<dao::Field*> de, a;
    for (int i = 0; i < campos; ++i) {
        de.push_back(&lectura->Fields(i));
        a.push_back(&escritura->Fields(lectura->Fields(i).Name()));
    }
    for (; !lectura->Eof(); lectura->MoveNext()) {
        escritura->AddNew();
        for (int i = 0; i < campos; ++i) a[static_cast<size_t>(i)]->setValue(de[static_cast<size_t>(i)]->Value());
        escritura->Update();
        if (++p.filas % 2000 == 0 && progreso) progreso(p);
    }
    p.terminada = true;
    if (progreso) progreso(p);
    return p.filas;
}

}  // namespace

legado::ResultadoMigracion Copia(const QString& origen, const QString& destino,
                                 const std::function<void(const legado::Progreso&)>& progreso) {
    archivos::ExigeNueva(destino);
    auto o = dao::Database::OpenDatabase(origen, true);
    legado::ResultadoMigracion r;
    archivos::CreaBaseEntera(destino, [&](dao::Database& d) {
        dao::TableDefsCollection& tablas = o->TableDefs();
        QStringList nombres;
        for (int i = 0; i < tablas.Count(); ++i) nombres << tablas[i].Name();
        for (const QString& nombre : nombres) {
            dao::TableDef& t = tablas[nombre];
            auto def = d.CreateTableDef(nombre);
            for (auto& f : t.Fields()) def->Fields().Append(DefinicionDeCampo(*def, *f));
            d.TableDefs().Append(std::move(def));
            const qint64 filas = CopiaFilas(*o, d, nombre, progreso);
            r.tablas.push_back({nombre, filas});
            r.filas += filas;
        }
        // The indexes over the rows once they are in, which is quicker than keeping them up row by row.
        for (const QString& nombre : nombres) {
            dao::TableDef& nueva = d.TableDefs()[nombre];
            for (const dao::Index& x : tablas[nombre].Indexes()) nueva.AppendIndex(DefinicionDeIndice(nueva, x));
        }
    });
    return r;
}

}  // namespace copia
