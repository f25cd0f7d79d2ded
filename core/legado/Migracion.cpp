#include "core/legado/Legado.h"

#include "core/ArchivosTemporales.h"
#include "core/dao/Dao.h"
#include "core/jet/Catalogo.h"
#include "core/jet/ErroresMotor.h"
#include "core/jet/FuncionesSqlite.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstring>
#include <sqlite3.h>
#include <unistd.h>

namespace legado {

namespace {

// Every row of the file goes into the new database by one prepared statement per table, inside one
// transaction: the file is not in place yet, so nobody else can see it half made. A table's definition is
// made through the engine's own catalog, which keeps its own transaction; so the rows' one is closed
// around each table's creation.
class Migrador : public Receptor {
public:
    Migrador(dao::Database& db, ResultadoMigracion& r, const std::function<void(const Progreso&)>& progreso)
        : db_(db), r_(r), progreso_(progreso) {}
    ~Migrador() override { suelta(); }

    void Tabla(const legado::Tabla& t, Formato) override {
        terminaTransaccion();
        suelta();
        auto def = db_.CreateTableDef(t.nombre);
        for (const Columna& c : t.columnas) {
            dao::Field f = def->CreateField(c.nombre, static_cast<int>(c.tipo), c.tamano);
            if (c.tipo == jet::TipoCampo::Binary) f.setSize(c.tamano);
            if (c.contador) {
                f.setAttributes(dao::dbFixedField | dao::dbAutoIncrField);
                f.setRequired(true);
            }
            def->Fields().Append(f);
        }
        db_.TableDefs().Append(std::move(def));
        tablas_.push_back(t);

        QStringList columnas, marcas;
        for (size_t i = 0; i < t.columnas.size(); ++i) {
            columnas << jet::CitaNombre(t.columnas[i].nombre);
            marcas << QStringLiteral("?%1").arg(i + 1);
        }
        const QByteArray sql = QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                   .arg(jet::CitaNombre(t.nombre), columnas.join(u','), marcas.join(u','))
                                   .toUtf8();
        sqlite3* s = db_.sqlite();
        const int rc = sqlite3_prepare_v3(s, sql.constData(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT, &insercion_, nullptr);
        if (rc != SQLITE_OK) db_.lanzaSqlite(rc);
        ejecuta("BEGIN");
        enTransaccion_ = true;
        enCurso_ = Progreso{t.nombre, 0, t.filasSegunArchivo, false};
        avisa();
    }

    void Fila(const std::vector<Valor>& valores) override {
        for (size_t i = 0; i < valores.size(); ++i) {
            const Valor& v = valores[i];
            const int indice = static_cast<int>(i) + 1;
            if (v.binario) sqlite3_bind_blob64(insercion_, indice, v.bytes.constData(), static_cast<sqlite3_uint64>(v.bytes.size()), SQLITE_TRANSIENT);
            else jet::Enlaza(insercion_, indice, v.valor);
        }
        const int rc = sqlite3_step(insercion_);
        sqlite3_reset(insercion_);
        if (rc != SQLITE_DONE) db_.lanzaSqlite(rc);
        if (++enCurso_.filas % 2000 == 0) avisa();
    }

    void FinTabla(const legado::Tabla& t, qint64 filas) override {
        // The file keeps each table's count of rows; a page that lost rows shows here.
        if (filas != t.filasSegunArchivo)
            r_.avisos << QStringLiteral("La tabla '%1' tiene %2 filas según el archivo y se leyeron %3; el archivo puede estar dañado.")
                             .arg(t.nombre).arg(t.filasSegunArchivo).arg(filas);
        r_.tablas.push_back({t.nombre, filas});
        r_.filas += filas;
        enCurso_.filas = filas;
        enCurso_.terminada = true;
        avisa();
    }

    void Aviso(const QString& texto) override { r_.avisos << texto; }

    // The rows are in: their transaction ends, and the indexes are made over them.
    void termina() {
        terminaTransaccion();
        suelta();
        for (const legado::Tabla& t : tablas_) {
            dao::TableDef* def = db_.TableDefs().busca(t.nombre);
            for (const Indice& x : t.indices) {
                if (x.relacion || x.columnas.empty() || !def) continue;
                dao::Index i = def->CreateIndex(x.nombre);
                for (int c : x.columnas) i.AppendField(i.CreateField(t.columnas[static_cast<size_t>(c)].nombre));
                i.setPrimary(x.primario);
                i.setUnique(x.unico);
                i.setRequired(x.requerido);
                i.setIgnoreNulls(x.ignoraNulos);
                try {
                    def->AppendIndex(i);
                } catch (const vb::Error& e) {
                    r_.avisos << QStringLiteral("El índice '%1' de la tabla '%2' no se creó: %3").arg(x.nombre, t.nombre, e.Description());
                }
            }
        }
    }

private:
    dao::Database& db_;
    ResultadoMigracion& r_;
    const std::function<void(const Progreso&)>& progreso_;
    std::vector<legado::Tabla> tablas_;
    sqlite3_stmt* insercion_ = nullptr;
    bool enTransaccion_ = false;
    Progreso enCurso_;

    void avisa() {
        if (progreso_) progreso_(enCurso_);
    }
    void ejecuta(const char* sql) {
        const int rc = sqlite3_exec(db_.sqlite(), sql, nullptr, nullptr, nullptr);
        if (rc != SQLITE_OK) db_.lanzaSqlite(rc);
    }
    void terminaTransaccion() {
        if (!enTransaccion_) return;
        enTransaccion_ = false;
        ejecuta("COMMIT");
    }
    void suelta() {
        sqlite3_finalize(insercion_);
        insercion_ = nullptr;
    }
};

}  // namespace

ResultadoMigracion Migra(const QString& origen, const QString& destino, const std::function<void(const Progreso&)>& progreso) {
    // The rows go in through the file's own engine: a server's database is made from a migrated file.
    if (archivos::EsUri(destino))
        throw vb::Error(jet::ErrNombreNoValido,
                        QStringLiteral("La migración se hace a un archivo; cópielo después al servidor con 'adq-util copiar'."),
                        QStringLiteral("Motor de base de datos"));
    archivos::ExigeNueva(destino);
    // What is wrong with the file as a whole is said before anything is made.
    const QString problema = RevisaArchivo(origen);
    if (!problema.isEmpty()) throw vb::Error(jet::ErrFormatoNoReconocido, problema, QStringLiteral("Motor de base de datos"));

    ResultadoMigracion r;
    archivos::CreaBaseEntera(destino, [&](dao::Database& db) {
        Migrador m(db, r, progreso);
        Lee(origen, m);
        m.termina();
    });
    return r;
}

QString NombreRespaldo(const QString& ruta) {
    const QFileInfo i(ruta);
    const QString extension = i.suffix().isEmpty() ? QString() : u'.' + i.suffix();
    for (int n = 1;; ++n) {
        const QString nombre = i.completeBaseName() + QStringLiteral("-legado") + (n > 1 ? QStringLiteral("-%1").arg(n) : QString()) + extension;
        const QString candidata = i.absoluteDir().filePath(nombre);
        if (!QFileInfo::exists(candidata) && !QFileInfo(candidata).isSymLink()) return candidata;
    }
}

namespace {

[[noreturn]] void FallaArchivo(const QString& texto) {
    throw vb::Error(jet::ErrDiscoORed, texto, QStringLiteral("Motor de base de datos"));
}

// The original under its second name: a link to the same bytes, or where the filesystem has none, a copy
// that takes the name only when whole.
bool GuardaOriginal(const QString& ruta, const QString& respaldo) {
    const QByteArray r = QFile::encodeName(ruta);
    const QByteArray c = QFile::encodeName(respaldo);
    if (::link(r.constData(), c.constData()) == 0) return true;
    if (errno == EEXIST) return false;
    const QString temporal = archivos::TemporalJunto(respaldo);
    archivos::BorraTemporal(temporal);
    QFile origen(ruta);
    QFile copia(temporal);
    bool bien = origen.open(QIODevice::ReadOnly) && copia.open(QIODevice::WriteOnly | QIODevice::NewOnly);
    while (bien && !origen.atEnd()) {
        const QByteArray trozo = origen.read(1 << 20);
        bien = copia.write(trozo) == trozo.size();
    }
    bien = bien && copia.flush() && ::fsync(copia.handle()) == 0;
    copia.close();
    QString error;
    if (!bien || !archivos::MueveSinReemplazar(temporal, respaldo, error)) {
        QFile::remove(temporal);
        return false;
    }
    return true;
}

}  // namespace

ResultadoEnSuLugar MigraEnSuLugar(const QString& ruta, const std::function<void(const Progreso&)>& progreso) {
    const QString nombre = QDir::toNativeSeparators(ruta);
    const QFileInfo i(ruta);
    const QString nueva = i.absoluteDir().filePath(QStringLiteral(".%1.migrada-%2").arg(i.fileName()).arg(::getpid()));
    archivos::BorraTemporal(nueva);
    ResultadoEnSuLugar r;
    r.migracion = Migra(ruta, nueva, progreso);
    r.respaldo = NombreRespaldo(ruta);
    if (!GuardaOriginal(ruta, r.respaldo)) {
        archivos::BorraTemporal(nueva);
        FallaArchivo(QStringLiteral("No se pudo guardar el archivo original '%1' como '%2'; no se cambió nada.")
                         .arg(nombre, QDir::toNativeSeparators(r.respaldo)));
    }
    if (::rename(QFile::encodeName(nueva).constData(), QFile::encodeName(ruta).constData()) != 0) {
        const QString porque = QString::fromLocal8Bit(std::strerror(errno));
        QFile::remove(r.respaldo);
        archivos::BorraTemporal(nueva);
        FallaArchivo(QStringLiteral("No se pudo poner la base de datos convertida en lugar de '%1' (%2); no se cambió nada.").arg(nombre, porque));
    }
    return r;
}

}  // namespace legado
