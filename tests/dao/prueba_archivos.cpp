// The database file is never lost nor damaged by opening it: what is not a database is refused untouched,
// a damaged file is told before anything is written, a file that can't be written opens read-only, and a
// network share runs without the log.
#include "jet/ayuda_jet.h"

#include "core/jet/ErroresMotor.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>
#include <sys/stat.h>

namespace {

using ayuda::ErrorDe;

QByteArray Bytes(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// The file as it was: its bytes and its modification time.
struct Huella {
    QByteArray bytes;
    QDateTime cambio;
    explicit Huella(const QString& ruta) : bytes(Bytes(ruta)), cambio(QFileInfo(ruta).lastModified()) {}
    bool operator==(const Huella&) const = default;
};

QString ModoDiario(dao::Database& db) {
    sqlite3_stmt* st = nullptr;
    sqlite3_prepare_v2(db.sqlite(), "PRAGMA journal_mode", -1, &st, nullptr);
    QString modo;
    if (sqlite3_step(st) == SQLITE_ROW) modo = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)));
    sqlite3_finalize(st);
    return modo;
}

class Archivos : public ayuda::BaseJet {
protected:
    bool soloArchivo() const override { return true; }
protected:
    void escribe(const QString& r, const QByteArray& datos) {
        QFile f(r);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(datos);
    }
    void sinRestos(const QString& r) {
        for (const char* resto : {"-wal", "-shm", "-journal"})
            EXPECT_FALSE(QFileInfo::exists(r + QLatin1String(resto))) << resto;
    }
};

TEST_F(Archivos, LoQueNoEsBaseDeDatosSeRechazaSinTocarlo) {
    const QString vacio = ruta(QStringLiteral("vacio.mdb")), texto = ruta(QStringLiteral("texto.mdb"));
    escribe(vacio, {});
    escribe(texto, QByteArray("Esto no es una base de datos, solamente texto.\n").repeated(40));
    for (const QString& r : {vacio, texto}) {
        const Huella antes(r);
        for (bool soloLectura : {false, true})
            EXPECT_EQ(ErrorDe([&] { dao::Database::OpenDatabase(r, soloLectura); }), jet::ErrFormatoNoReconocido);
        EXPECT_EQ(ErrorDe([&] { dao::Database::CreateDatabase(r); }), jet::ErrBaseYaExiste);
        EXPECT_TRUE(Huella(r) == antes) << r.toStdString();
        sinRestos(r);
    }
}

TEST_F(Archivos, CopiaCortadaODanadaSeAvisaSinEscribirNada) {
    sqlite3_exec(db->sqlite(), "BEGIN", nullptr, nullptr, nullptr);
    for (int i = 1; i <= 3000; ++i)
        ejecuta(QStringLiteral("INSERT INTO Editoriales ([No], Nombre) VALUES (%1, 'Editorial número %1 con un nombre largo')").arg(i));
    sqlite3_exec(db->sqlite(), "COMMIT", nullptr, nullptr, nullptr);
    db.reset();
    const QString sana = ruta(QStringLiteral("KORVEL8.mdb"));
    const QByteArray bytes = Bytes(sana);
    ASSERT_TRUE(bytes.size() > 40 * 4096 && bytes.size() % 4096 == 0) << bytes.size();
    const std::pair<const char*, QByteArray> copias[] = {
        {"media-pagina.mdb", bytes.left(bytes.size() - 1000)},      // the last page cut partway
        {"sin-ultima.mdb", bytes.left(bytes.size() - 4096)},         // the last page gone whole
        {"con-ceros.mdb", bytes.left(bytes.size() / 2) + QByteArray(4096, '\0') + bytes.mid(bytes.size() / 2 + 4096)},
        {"solo-cabecera.mdb", bytes.left(100)},
    };
    for (const auto& [nombre, datos] : copias) {
        const QString r = ruta(QString::fromLatin1(nombre));
        escribe(r, datos);
        const Huella antes(r);
        QString d;
        try {
            dao::Database::OpenDatabase(r);
        } catch (const vb::Error& e) {
            d = QStringLiteral("%1 %2").arg(e.Number()).arg(e.Description());
        }
        EXPECT_TRUE(d.startsWith(QStringLiteral("3343 ")) && d.contains(QStringLiteral("dañada")) &&
                    d.contains(QStringLiteral("respaldo"))) << nombre << ' ' << d.toStdString();
        EXPECT_TRUE(Huella(r) == antes) << nombre;
        EXPECT_FALSE(dao::RevisaBaseDeDatos(r).isEmpty()) << nombre;
        EXPECT_FALSE(QFileInfo::exists(r + "-journal"));
    }
    // The sound one opens and takes writes.
    EXPECT_TRUE(dao::RevisaBaseDeDatos(sana).isEmpty());
    db = dao::Database::OpenDatabase(sana);
    ejecuta(QStringLiteral("INSERT INTO Editoriales ([No], Nombre) VALUES (0, 'Cero')"));
    EXPECT_EQ(cuenta(QStringLiteral("Editoriales")), 3001);
}

TEST(CabeceraDeBase, PaginasYTamanoDelArchivo) {
    QByteArray c(100, '\0');
    c.replace(0, 16, QByteArray("SQLite format 3\0", 16));
    c[16] = 0x10; c[21] = 64; c[22] = 32; c[23] = 32;    // 4096-byte pages
    c[31] = 10; c[27] = 7; c[95] = 7;                     // ten pages, counter valid for them
    EXPECT_TRUE(dao::RevisaCabecera(c, 10 * 4096, false).isEmpty());
    EXPECT_EQ(dao::RevisaCabecera(c, 9 * 4096, false).size(), 1);
    EXPECT_EQ(dao::RevisaCabecera(c.left(50), 10 * 4096, false).size(), 1);
    // A log with frames beside: the main file needn't agree yet.
    EXPECT_TRUE(dao::RevisaCabecera(c, 9 * 4096, true).isEmpty());
    // A count an old writer left stale (counters differ) doesn't count; whole pages still do.
    QByteArray otra = c;
    otra[95] = 6;
    EXPECT_TRUE(dao::RevisaCabecera(otra, 9 * 4096, false).isEmpty());
    EXPECT_EQ(dao::RevisaCabecera(otra, 9 * 4096 + 10, false).size(), 1);
    // Page size 1 means 65536; others must be powers of two from 512.
    otra = c;
    otra[16] = 0; otra[17] = 1;
    EXPECT_TRUE(dao::RevisaCabecera(otra, 10 * 65536, false).isEmpty());
    otra[16] = 0x11; otra[17] = 0;
    EXPECT_EQ(dao::RevisaCabecera(otra, 10 * 4096, false).size(), 1);
}

TEST(SoloLectura, SeDecidePorAccesoPermisosYMontaje) {
    // {file writable, folder writable, file mode, folder mode, read-only mount}; root passes access(2)
    // everywhere, so the bits alone must tell.
    const std::pair<dao::Permisos, bool> casos[] = {
        {{true, true, 0644, 0755, false}, false}, {{true, true, 0444, 0755, false}, true},
        {{true, true, 0644, 0555, false}, true},  {{false, true, 0644, 0755, false}, true},
        {{true, false, 0644, 0755, false}, true}, {{true, true, 0644, 0755, true}, true},
    };
    for (const auto& [permisos, soloLectura] : casos)
        EXPECT_EQ(dao::DecideSoloLectura(permisos), soloLectura) << std::oct << permisos.modoArchivo << ' ' << permisos.modoCarpeta;
}

TEST_F(Archivos, ArchivoYCarpetaDeSoloLecturaSeLeenYNoSeEscriben) {
    const QString carpeta = ruta(QStringLiteral("ro"));
    ASSERT_TRUE(QDir().mkpath(carpeta));
    const QString r = carpeta + QStringLiteral("/KORVEL8.mdb");
    db = dao::Database::CreateDatabase(r);
    esquema::CreaTablas(*db);
    ejecuta(QStringLiteral("INSERT INTO Editoriales ([No], Nombre) VALUES (1, 'Trillas')"));
    db.reset();
    ::chmod(QFile::encodeName(r).constData(), 0444);
    ::chmod(QFile::encodeName(carpeta).constData(), 0555);
    const Huella antes(r);
    db = dao::Database::OpenDatabase(r);
    EXPECT_TRUE(db->SoloLectura());
    EXPECT_EQ(filas(QStringLiteral("SELECT Nombre FROM Editoriales")), QStringList{QStringLiteral("Trillas")});
    EXPECT_EQ(error(QStringLiteral("INSERT INTO Editoriales ([No], Nombre) VALUES (2, 'Limusa')")), jet::ErrSoloLectura);
    auto rs = abre(QStringLiteral("Editoriales"));
    const auto agrega = [&] { rs->AddNew(); rs->Fields(QStringLiteral("No")) = vb::Variant(3); rs->Update(); };
    EXPECT_EQ(ErrorDe(agrega), jet::ErrSoloLectura);
    rs.reset();
    db.reset();
    EXPECT_TRUE(Huella(r) == antes);
    sinRestos(r);                     // read as it lies: the folder takes no log files
    ::chmod(QFile::encodeName(carpeta).constData(), 0755);
    ::chmod(QFile::encodeName(r).constData(), 0644);
    // Asked for, a writable file opens read-only as well.
    db = dao::Database::OpenDatabase(r, true);
    EXPECT_EQ(error(QStringLiteral("DELETE FROM Editoriales")), jet::ErrSoloLectura);
}

TEST_F(Archivos, EnRedSinRegistroDeEscrituraAnticipada) {
    EXPECT_TRUE(dao::EsSistemaDeRed(static_cast<long>(0xFF534D42)));     // CIFS, above 31 bits
    EXPECT_FALSE(dao::EsSistemaDeRed(0xEF53));                             // ext4
    // The database made in WAL mode here is turned to the rollback journal on the share.
    const QString r = ruta(QStringLiteral("KORVEL8.mdb"));
    EXPECT_FALSE(db->EnRed());
    EXPECT_EQ(ModoDiario(*db), QStringLiteral("wal"));
    db.reset();
    struct Restaura { ~Restaura() { dao::TipoSistemaArchivos = &dao::TipoSistemaArchivosReal; } } restaura;
    dao::TipoSistemaArchivos = [](const QString&) -> long { return static_cast<long>(0xFE534D42); };
    db = dao::Database::OpenDatabase(r);
    auto nueva = dao::Database::CreateDatabase(ruta(QStringLiteral("nueva.mdb")));
    EXPECT_TRUE(db->EnRed());
    EXPECT_EQ(ModoDiario(*db), QStringLiteral("delete"));
    EXPECT_EQ(ModoDiario(*nueva), QStringLiteral("delete"));
    ejecuta(QStringLiteral("INSERT INTO Editoriales ([No], Nombre) VALUES (1, 'Trillas')"));
    EXPECT_FALSE(QFileInfo::exists(r + "-wal"));
}

}  // namespace
