// Migration of whole legacy files into databases of this program, checked against what Debian's mdb-export
// reads from the same files (parsed here with exact decimal arithmetic) and against values found by hand in
// the files' bytes; what a careless analyst may hand to "adq-util migrar"; the origin never written; and a
// reader that crashes or hangs.
#include "texto_gtest.h"
#include "tools/ayuda_util.h"

#include "core/dao/Dao.h"
#include "core/jet/ErroresMotor.h"
#include "core/legado/Legado.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QElapsedTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

using ayuda::Corre;

QString Datos(const char* archivo) { return QStringLiteral(ADQ_SOURCE_DIR "/../shared/testdata/jet/") + QLatin1String(archivo); }

// The records of mdb-export's CSV: quoted fields may hold commas, doubled quotes and line breaks.
std::vector<QStringList> Exporta(const QString& archivo, const QString& tabla) {
    QProcess p;
    p.start(QStringLiteral("mdb-export"), {QStringLiteral("-T"), QStringLiteral("%Y-%m-%d %H:%M:%S"), archivo, tabla});
    EXPECT_TRUE(p.waitForFinished(30000)) << "mdb-export (paquete mdbtools) hace falta para estas pruebas";
    const QString texto = QString::fromUtf8(p.readAllStandardOutput());
    std::vector<QStringList> filas;
    QStringList fila;
    QString campo;
    bool comillas = false;
    for (qsizetype i = 0; i < texto.size(); ++i) {
        const QChar c = texto[i];
        if (comillas) {
            if (c == u'"' && i + 1 < texto.size() && texto[i + 1] == u'"') campo += c, ++i;
            else if (c == u'"') comillas = false;
            else campo += c;
        } else if (c == u'"') {
            comillas = true;
        } else if (c == u',') {
            fila << campo;
            campo.clear();
        } else if (c == u'\n') {
            fila << campo;
            filas.push_back(fila);
            fila.clear();
            campo.clear();
        } else {
            campo += c;
        }
    }
    return filas;
}

// "12.7500" in ten-thousandths, exactly.
qint64 Diezmilesimos(const QString& decimal) {
    const QString entero = decimal.section(u'.', 0, 0);
    const QString fraccion = (decimal.section(u'.', 1, 1) + QStringLiteral("0000")).left(4);
    const qint64 magnitud = entero.mid(entero.startsWith(u'-') ? 1 : 0).toLongLong() * 10000 + fraccion.toLongLong();
    return entero.startsWith(u'-') ? -magnitud : magnitud;
}

QByteArray Lee(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}
QByteArray Huella(const QString& ruta) { return QCryptographicHash::hash(Lee(ruta), QCryptographicHash::Sha256); }

class Migracion : public ::testing::Test {
protected:
    QTemporaryDir dir;
    QString ruta(const QString& nombre) const { return dir.filePath(nombre); }
    std::unique_ptr<dao::Database> db;

    // The file migrated with the library; the database left open.
    legado::ResultadoMigracion migra(const char* archivo) {
        legado::ResultadoMigracion r = legado::Migra(Datos(archivo), ruta(QStringLiteral("nueva.mdb")));
        db = dao::Database::OpenDatabase(ruta(QStringLiteral("nueva.mdb")));
        return r;
    }
    QString valor(const QString& sql) {
        auto rs = db->OpenRecordset(sql);
        if (rs->Eof()) return {};
        const vb::Variant v = rs->Fields(0).Value();
        return v.isNull() ? QStringLiteral("NULL") : v.type() == vb::VarType::Date ? v.toDate().toIso() : v.text();
    }
    // Name, type, size and attributes of each field, as the catalog keeps them.
    QStringList campos(const QString& tabla) {
        QStringList r;
        for (auto& f : db->TableDefs()[tabla].Fields()) r << QStringLiteral("%1 %2 %3 %4").arg(f->Name()).arg(f->Type()).arg(f->Size()).arg(f->Attributes());
        return r;
    }
    QString escribe(const QString& nombre, const QByteArray& bytes) const {
        QFile f(ruta(nombre));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
        return f.fileName();
    }
    QStringList sobrantes() const {
        return QDir(dir.path()).entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
    }
};

TEST_F(Migracion, Neptuno1997ComoLoLeeMdbExport) {
    const auto r = migra("nwind.mdb");
    EXPECT_TRUE(r.avisos.isEmpty()) << r.avisos.join(u'\n').toStdString();
    ASSERT_EQ(r.tablas.size(), 9u);
    qint64 total = 0;
    for (const auto& t : r.tablas) {
        // Every table's rows, counted by mdb-export (its first record is the header).
        const auto exportadas = Exporta(Datos("nwind.mdb"), t.nombre);
        EXPECT_EQ(t.filas, static_cast<qint64>(exportadas.size()) - 1) << t.nombre.toStdString();
        EXPECT_EQ(valor(QStringLiteral("SELECT Count(*) FROM [%1]").arg(t.nombre)), QString::number(t.filas));
        total += t.filas;
    }
    EXPECT_EQ(r.filas, total);

    // Each order as mdb-export reads it: key, customer, date and the freight to the ten-thousandth.
    const auto pedidos = Exporta(Datos("nwind.mdb"), QStringLiteral("Orders"));
    ASSERT_EQ(pedidos.front().value(0), QStringLiteral("OrderID"));
    ASSERT_EQ(pedidos.front().value(7), QStringLiteral("Freight"));
    qint64 flete = 0;
    QHash<QString, QStringList> porClave;
    for (size_t i = 1; i < pedidos.size(); ++i) {
        flete += Diezmilesimos(pedidos[i].value(7));
        porClave.insert(pedidos[i].value(0), pedidos[i]);
    }
    EXPECT_EQ(valor(QStringLiteral("SELECT Sum(Freight) FROM Orders")), vb::Currency::fromRaw(flete).toSql());
    auto rs = db->OpenRecordset(QStringLiteral("SELECT OrderID, CustomerID, OrderDate, Freight, ShipName FROM Orders"));
    int vistas = 0;
    for (; !rs->Eof(); rs->MoveNext(), ++vistas) {
        const QStringList e = porClave.value(rs->Fields(0).Value().text());
        ASSERT_FALSE(e.isEmpty());
        EXPECT_EQ(rs->Fields(1).Value().text(), e[1]);
        EXPECT_EQ(rs->Fields(2).Value().toDate().toIso(), e[3]);
        EXPECT_EQ(rs->Fields(3).Value().toCurrency().raw(), Diezmilesimos(e[7]));
        EXPECT_EQ(rs->Fields(4).Value().text(), e[8]);
    }
    EXPECT_EQ(vistas, 830);
    EXPECT_EQ(valor(QStringLiteral("SELECT ShipName FROM Orders WHERE OrderID = 10249")), QStringLiteral("Toms Spezialitäten"));

    // Types and sizes in the catalog: the counter keeps its attribute, money its type, text its size.
    const QStringList orders = campos(QStringLiteral("Orders"));
    EXPECT_TRUE(orders.contains(QStringLiteral("OrderID 4 4 17"))) << orders.join(u';').toStdString();
    EXPECT_TRUE(orders.contains(QStringLiteral("Freight 5 8 1")));
    EXPECT_TRUE(orders.contains(QStringLiteral("ShipName 10 40 2")));
    EXPECT_TRUE(orders.contains(QStringLiteral("OrderDate 8 8 1")));
    const QStringList empleados = campos(QStringLiteral("Employees"));
    EXPECT_TRUE(empleados.contains(QStringLiteral("Notes 12 0 2")) && empleados.contains(QStringLiteral("Photo 11 0 1")));
    // The OLE picture keeps its bytes: the same count as the file's long value.
    EXPECT_EQ(valor(QStringLiteral("SELECT Len(Photo) FROM Employees WHERE EmployeeID = 1")).toInt() > 10000, true);
    // The table's keys: a second line of the same order and product is refused as the original refused it.
    bool primaria = false;
    for (const auto& i : db->TableDefs()[QStringLiteral("Order Details")].Indexes())
        if (i.Primary()) primaria = i.FieldNames() == QStringList{QStringLiteral("OrderID"), QStringLiteral("ProductID")};
    EXPECT_TRUE(primaria);
    try {
        db->Execute(QStringLiteral("INSERT INTO [Order Details] SELECT TOP 1 * FROM [Order Details]"), dao::dbFailOnError);
        ADD_FAILURE() << "duplicada aceptada";
    } catch (const vb::Error& e) {
        EXPECT_EQ(e.Number(), jet::ErrValorDuplicado);
    }
}

TEST_F(Migracion, CadaTipoDeLaTabla1Del2000) {
    const auto r = migra("testV2003.mdb");
    ASSERT_EQ(r.tablas.size(), 4u);
    EXPECT_EQ(r.tablas[0].filas, 2);
    for (size_t i = 1; i < 4; ++i) EXPECT_EQ(r.tablas[i].filas, 0);
    EXPECT_EQ(campos(QStringLiteral("Table1")),
              (QStringList{QStringLiteral("A 10 50 2"), QStringLiteral("B 10 100 2"), QStringLiteral("C 2 1 1"),
                           QStringLiteral("D 3 2 1"), QStringLiteral("E 4 4 1"), QStringLiteral("F 7 8 1"),
                           QStringLiteral("G 8 8 1"), QStringLiteral("H 5 8 1"), QStringLiteral("I 1 1 1")}));
    auto rs = db->OpenRecordset(QStringLiteral("SELECT * FROM Table1 ORDER BY A DESC"));
    auto fila = [&rs] {
        QStringList f;
        for (int i = 0; i < rs->Fields().Count(); ++i) {
            const vb::Variant v = rs->Fields(i).Value();
            f << (v.type() == vb::VarType::Date ? v.toDate().toIso() : v.type() == vb::VarType::Currency ? v.toCurrency().toSql() : v.text());
        }
        rs->MoveNext();
        return f.join(u'|');
    };
    // The values mdb-export shows for these two rows.
    EXPECT_EQ(fila(), QStringLiteral("abcdefg|hijklmnop|2|222|333333333|444.555|1974-09-21 00:00:00|3.5|Verdadero"));
    EXPECT_EQ(fila(), QStringLiteral("a|b|0|0|0|0|1981-12-12 00:00:00|0|Falso"));
    EXPECT_TRUE(rs->Eof());
    EXPECT_EQ(db->TableDefs()[QStringLiteral("Table2")].Fields().Count(), 89);
}

TEST_F(Migracion, FechasDel2000HastaElAnio9999) {
    migra("DateTestDatabase.mdb");
    // The stored doubles, found in the file's bytes: 2958101 is 9999-01-01, -728 is 1898-01-01, -463126 is
    // 632-01-01 (proleptic Gregorian calendar).
    EXPECT_EQ(valor(QStringLiteral("SELECT DateTimeCol FROM DateTest WHERE IDCol = 2")), QStringLiteral("9999-01-01 00:00:00"));
    EXPECT_EQ(valor(QStringLiteral("SELECT ShortTextCol FROM DateTest WHERE IDCol = 2")), QStringLiteral("Year 1999"));
    EXPECT_EQ(valor(QStringLiteral("SELECT DateTimeCol FROM DateTest WHERE IDCol = 3")), QStringLiteral("1898-01-01 00:00:00"));
    EXPECT_EQ(valor(QStringLiteral("SELECT DateCol FROM DateTest WHERE IDCol = 3")), QStringLiteral("1899-01-01 00:00:00"));
    EXPECT_EQ(valor(QStringLiteral("SELECT TimeCol FROM DateTest WHERE IDCol = 4")), QStringLiteral("0634-01-01 00:00:00"));
    EXPECT_EQ(valor(QStringLiteral("SELECT Count(*) FROM DateTest WHERE DateTimeCol = #2021/12/02#")), QStringLiteral("3"));
    // A Memo and a Text with a line break inside, compressed in the file.
    EXPECT_EQ(valor(QStringLiteral("SELECT LongTextCol FROM DateTest WHERE IDCol = 6")), QStringLiteral("New line\r\nin field"));
    EXPECT_EQ(valor(QStringLiteral("SELECT LongTextCol FROM DateTest WHERE IDCol = 5")), QStringLiteral("Escaped new line \\r\\n in field"));
    EXPECT_TRUE(campos(QStringLiteral("DateTest")).contains(QStringLiteral("LongTextCol 12 0 2")));
    EXPECT_TRUE(campos(QStringLiteral("DateTest")).contains(QStringLiteral("ShortTextCol 10 255 2")));
}

TEST_F(Migracion, ElOrigenNoSeEscribeYElDestinoNoSeSobrescribe) {
    // A copy the test owns, read-only as an archive would be: its bytes and date stay as they were.
    const QString origen = ruta(QStringLiteral("KORVEL8.mdb"));
    ASSERT_TRUE(QFile::copy(Datos("nwind.mdb"), origen));
    QFile(origen).setPermissions(QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    const QDateTime fecha = QDateTime::currentDateTime().addDays(-400);
    {
        QFile f(origen);
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        ASSERT_TRUE(f.setFileTime(fecha, QFileDevice::FileModificationTime));
    }
    const QByteArray huella = Huella(origen);
    const auto s = Corre({QStringLiteral("migrar"), origen, ruta(QStringLiteral("nueva.mdb"))});
    EXPECT_EQ(s.codigo, 0) << s.err.toStdString();
    EXPECT_TRUE(s.out.contains(QStringLiteral("Orders: 830 filas\n")));
    EXPECT_TRUE(s.out.contains(QStringLiteral("Order Details: 2155 filas\n")));
    EXPECT_TRUE(s.out.contains(QStringLiteral("Umsätze: 830 filas\n")));
    EXPECT_TRUE(s.out.endsWith(QStringLiteral("Se migraron 9 tablas con 4032 filas a '%1'.\n").arg(ruta(QStringLiteral("nueva.mdb")))));
    EXPECT_EQ(Huella(origen), huella);
    EXPECT_EQ(QFileInfo(origen).lastModified(), fecha);
    EXPECT_EQ(sobrantes(), (QStringList{QStringLiteral("KORVEL8.mdb"), QStringLiteral("nueva.mdb")}));
    // The new file passes the whole check.
    EXPECT_TRUE(dao::RevisaBaseDeDatos(ruta(QStringLiteral("nueva.mdb"))).isEmpty());

    // A second run onto the same target: refused, the target and the origin as they were.
    const QByteArray nueva = Huella(ruta(QStringLiteral("nueva.mdb")));
    const auto otra = Corre({QStringLiteral("migrar"), origen, ruta(QStringLiteral("nueva.mdb"))});
    EXPECT_EQ(otra.codigo, 1);
    EXPECT_EQ(otra.err, QStringLiteral("Error 3204: El archivo '%1' ya existe; no se sobrescribe.\n").arg(ruta(QStringLiteral("nueva.mdb"))));
    EXPECT_EQ(Huella(ruta(QStringLiteral("nueva.mdb"))), nueva);
    EXPECT_EQ(Huella(origen), huella);
}

TEST_F(Migracion, ArchivosMalosSeRechazanEnEspanolSinDejarNada) {
    const QByteArray nwind = Lee(Datos("nwind.mdb"));
    ASSERT_GT(nwind.size(), 100000);
    auto danada = [&](const QString& nombre, int pagina, char relleno) {
        QByteArray b = nwind;
        b.replace(pagina * 2048, 2048, QByteArray(2048, relleno));
        return escribe(nombre, b);
    };
    // A table definition page (type 2) of a user table: one that names the column ShipName.
    int definicion = 0;
    for (int pagina = 3; pagina < nwind.size() / 2048 && !definicion; ++pagina) {
        const QByteArray p = nwind.mid(pagina * 2048, 2048);
        if (p[0] == '\x02' && p.contains("ShipName") && !p.contains("MSys")) definicion = pagina;
    }
    ASSERT_GT(definicion, 3);
    const struct {
        QString archivo;
        QString mensaje;
    } casos[] = {
        {escribe(QStringLiteral("texto.mdb"), "Lista de libros\n"), QStringLiteral("no es una base de datos del formato de las instalaciones anteriores")},
        {escribe(QStringLiteral("vacio.mdb"), {}), QStringLiteral("está vacío")},
        {escribe(QStringLiteral("cortado.mdb"), nwind.left(nwind.size() / 2 + 1000)), QStringLiteral("está cortado")},
        {escribe(QStringLiteral("cabecera.mdb"), nwind.left(1000)), QStringLiteral("está cortado")},
        // The catalog's definition, written over with zeros and with ones; a table's definition.
        {danada(QStringLiteral("catalogo.mdb"), 2, '\0'), QStringLiteral("está dañado")},
        {danada(QStringLiteral("catalogo-unos.mdb"), 2, '\xFF'), QStringLiteral("está dañado")},
        {danada(QStringLiteral("tabla.mdb"), definicion, '\0'), QStringLiteral("está dañado")},
    };
    for (const auto& c : casos) {
        const QString destino = ruta(QStringLiteral("nueva.mdb"));
        const auto s = Corre({QStringLiteral("migrar"), c.archivo, destino});
        EXPECT_EQ(s.codigo, 1) << c.archivo.toStdString();
        EXPECT_TRUE(s.err.startsWith(QStringLiteral("Error 3343: ")) && s.err.contains(c.mensaje))
            << c.archivo.toStdString() << ": " << s.err.toStdString();
        EXPECT_FALSE(QFileInfo::exists(destino));
        for (const QString& f : sobrantes()) EXPECT_FALSE(f.startsWith(u'.')) << f.toStdString();
    }
    // Pages of data written over with noise, each in its own copy: the reading ends, the program never
    // crashes or hangs, and it either migrates what it read (saying what it doubts) or refuses in Spanish.
    for (int pagina = 4; pagina < nwind.size() / 2048; pagina += 97) {
        QByteArray b = nwind;
        for (int i = 0; i < 2048; ++i) b[pagina * 2048 + i] = static_cast<char>((i * 131 + pagina * 7) & 0xFF);
        const QString archivo = escribe(QStringLiteral("ruido.mdb"), b);
        const QString destino = ruta(QStringLiteral("ruido.db"));
        const auto s = Corre({QStringLiteral("migrar"), archivo, destino});
        ASSERT_TRUE(s.codigo == 0 || s.codigo == 1) << pagina;
        if (s.codigo == 1) {
            EXPECT_TRUE(s.err.startsWith(QStringLiteral("Error 3343: "))) << s.err.toStdString();
            EXPECT_FALSE(QFileInfo::exists(destino));
        }
        QFile::remove(destino);
    }
    for (const QString& f : sobrantes()) EXPECT_FALSE(f.startsWith(u'.')) << f.toStdString();
}

// A reader that dies by a signal or stops writing: libmdb crashing or looping on a damaged page.
TEST_F(Migracion, UnLectorQueFallaOSeCuelgaEsUnMensaje) {
    auto lector = [&](const QString& nombre, const QByteArray& guion) {
        const QString archivo = escribe(nombre, "#!/bin/sh\n" + guion);
        QFile::setPermissions(archivo, QFile::permissions(archivo) | QFile::ExeOwner);
        return archivo;
    };
    struct Restaura {
        ~Restaura() { legado::RutaLector.clear(); }
    } restaura;
    struct Nada : legado::Receptor {
        void Tabla(const legado::Tabla&, legado::Formato) override {}
        void Fila(const std::vector<legado::Valor>&) override {}
    } nada;
    auto error = [&](const legado::Opciones& o = {}) {
        try {
            legado::Lee(Datos("nwind.mdb"), nada, o);
        } catch (const vb::Error& e) {
            return QStringLiteral("%1 %2").arg(e.Number()).arg(e.Description());
        }
        return QString();
    };
    legado::RutaLector = lector(QStringLiteral("choca.sh"), "printf 'ADQL\\001\\000T'\nkill -SEGV $$\n");
    EXPECT_TRUE(error().startsWith(QStringLiteral("3343 No se pudo leer el archivo"))) << error().toStdString();
    EXPECT_TRUE(error().endsWith(QStringLiteral("está dañado."))) << error().toStdString();

    legado::RutaLector = lector(QStringLiteral("cuelga.sh"), "printf 'ADQL\\001\\000'\nexec sleep 30\n");
    legado::Opciones poco;
    poco.silencioMaximoMs = 300;
    QElapsedTimer reloj;
    reloj.start();
    EXPECT_TRUE(error(poco).contains(QStringLiteral("dejó de avanzar"))) << error(poco).toStdString();
    EXPECT_LT(reloj.elapsed(), 5000);

    legado::RutaLector = ruta(QStringLiteral("no-existe"));
    EXPECT_TRUE(error().contains(QStringLiteral("debe estar junto al programa"))) << error().toStdString();

    // A migration whose reader crashes leaves nothing behind.
    legado::RutaLector = ruta(QStringLiteral("choca.sh"));
    EXPECT_THROW(legado::Migra(Datos("nwind.mdb"), ruta(QStringLiteral("nueva.mdb"))), vb::Error);
    EXPECT_FALSE(QFileInfo::exists(ruta(QStringLiteral("nueva.mdb"))));
    for (const QString& f : sobrantes()) EXPECT_FALSE(f.startsWith(u'.')) << f.toStdString();
}

TEST(Legado, LaCabeceraDiceSiEsDelFormatoAnterior) {
    EXPECT_TRUE(legado::EsArchivoLegado(Datos("nwind.mdb")));
    EXPECT_TRUE(legado::EsArchivoLegado(Datos("testV2003.mdb")));
    QByteArray c("\x00\x01\x00\x00Standard Jet DB\x00", 20);
    EXPECT_TRUE(legado::EsCabeceraLegada(c + QByteArray(1, '\x01')));
    EXPECT_FALSE(legado::EsCabeceraLegada(c + QByteArray(1, '\x02')));   // 2007 and later
    EXPECT_FALSE(legado::EsCabeceraLegada(QByteArray("SQLite format 3\0", 16) + QByteArray(16, '\0')));
    EXPECT_FALSE(legado::EsCabeceraLegada(c.left(10)));
    const auto tablas = legado::Tablas(Datos("nwind.mdb"));
    ASSERT_EQ(tablas.size(), 9u);
    EXPECT_EQ(tablas.back().nombre, QStringLiteral("Umsätze"));
    EXPECT_EQ(tablas[1].nombre, QStringLiteral("Orders"));
    EXPECT_EQ(tablas[1].filasSegunArchivo, 830);
}

}  // namespace
