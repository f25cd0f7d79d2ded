// adq-util copiar: a whole database into a new one, definitions, indexes and rows alike (counters with
// their own values, gaps included), and nothing left at the destination when the copy can't be finished.
#include "ayuda_util.h"

#include "base_prueba.h"
#include "core/dao/Dao.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

using ayuda::Corre;
using ayuda::Salida;

class Copia : public ayuda::ConCarpeta {
protected:
    void SetUp() override {
        ayuda::ConCarpeta::SetUp();
        copia = dir.filePath(QStringLiteral("copia.mdb"));
    }
    // What lies under the destination's name, its temporary files included.
    QStringList deLaCopia() const { return QDir(dir.path()).entryList({"*copia.mdb*"}, QDir::Files | QDir::Hidden); }
    QString copia;
};

// What a table is: each field's definition and each index's, in order.
QString Definicion(dao::TableDef& t) {
    QString d = t.Name();
    for (auto& f : t.Fields())
        d += QStringLiteral("\n%1 %2 %3 %4 %5 %6 [%7]").arg(f->Name()).arg(f->Type()).arg(f->Size()).arg(f->Attributes())
                 .arg(f->Required()).arg(f->AllowZeroLength()).arg(f->DefaultValue());
    for (const dao::Index& i : t.Indexes())
        d += QStringLiteral("\nindice %1 (%2) %3%4%5%6").arg(i.Name(), i.FieldNames().join(u','))
                 .arg(i.Primary()).arg(i.Unique()).arg(i.Required()).arg(i.IgnoreNulls());
    return d;
}

// Every row of the table, in the order it was stored, each value with its type.
std::vector<std::vector<vb::Variant>> Filas(dao::Database& db, const QString& tabla) {
    std::vector<std::vector<vb::Variant>> filas;
    auto rs = db.OpenRecordset(tabla, dao::dbOpenTable);
    for (; !rs->Eof(); rs->MoveNext()) {
        std::vector<vb::Variant> fila;
        for (int i = 0; i < rs->Fields().Count(); ++i) fila.push_back(rs->Fields(i).Value());
        filas.push_back(fila);
    }
    return filas;
}

// The two databases hold the same tables, alike in definition and rows.
void Iguales(const QString& a, const QString& b) {
    auto uno = dao::Database::OpenDatabase(a, true);
    auto otro = dao::Database::OpenDatabase(b, true);
    ASSERT_EQ(uno->TableDefs().Count(), otro->TableDefs().Count());
    for (int i = 0; i < uno->TableDefs().Count(); ++i) {
        dao::TableDef& t = uno->TableDefs()[i];
        EXPECT_EQ(Definicion(t).toStdString(), Definicion(otro->TableDefs()[i]).toStdString());
        EXPECT_TRUE(Filas(*uno, t.Name()) == Filas(*otro, t.Name())) << t.Name().toStdString();
    }
}

TEST_F(Copia, LaDemoEnteraConUnaLineaPorTabla) {
    ASSERT_EQ(Corre({"demo", base}).codigo, 0);
    // A counter with a gap keeps its values: the copy doesn't number its rows again.
    ASSERT_EQ(Corre({"sql", base, "DELETE FROM adqProyectos WHERE IdProyecto = 2"}).codigo, 0);
    const Salida s = Corre({"copiar", base, copia});
    ASSERT_EQ(s.codigo, 0) << s.err.toStdString();
    EXPECT_TRUE(s.err.isEmpty()) << s.err.toStdString();
    EXPECT_TRUE(s.out.contains("\nAnalistas: 2 filas\n"));
    EXPECT_TRUE(s.out.contains("\nadqProyectos: 2 filas\n"));
    EXPECT_TRUE(s.out.contains("\nadqMaterialComplementario: 0 filas\n"));
    EXPECT_TRUE(s.out.endsWith(QStringLiteral("Se copiaron 21 tablas con 62 filas a '%1'.\n").arg(copia))) << s.out.toStdString();
    Iguales(base, copia);
    EXPECT_EQ(Corre({"sql", copia, "SELECT IdProyecto FROM adqProyectos ORDER BY IdProyecto"}).out, "IdProyecto\n1\n3\n");
    EXPECT_EQ(Corre({"verificar", copia}).codigo, 0);
    // The copy is a database like any other: it logs an analyst in and takes new rows.
    EXPECT_EQ(Corre({"sql", copia, "INSERT INTO Editoriales ([No], Nombre) VALUES (99, 'Nueva')"}).codigo, 0);
}

TEST_F(Copia, ValoresDificilesYDefinicionesDeCampos) {
    {
        auto db = dao::Database::CreateDatabase(base);
        // Every property a field may have, set before the table is made.
        auto def = db->CreateTableDef("Notas");
        dao::Field id = def->CreateField("Id", dao::dbLong);
        id.setAttributes(dao::dbFixedField | dao::dbAutoIncrField);
        def->Fields().Append(id);
        dao::Field clave = def->CreateField("Clave", dao::dbText, 50);
        clave.setRequired(true);
        def->Fields().Append(clave);
        dao::Field texto = def->CreateField("Texto", dao::dbMemo);
        texto.setDefaultValue("\"sin texto\"");
        texto.setAllowZeroLength(false);
        def->Fields().Append(texto);
        def->Fields().Append(def->CreateField("Monto", dao::dbCurrency));
        dao::Field fecha = def->CreateField("Fecha", dao::dbDate);
        fecha.setDefaultValue("Now()");
        def->Fields().Append(fecha);
        def->Fields().Append(def->CreateField("Cuenta", dao::dbInteger));
        def->Fields().Append(def->CreateField("Activa", dao::dbBoolean));
        db->TableDefs().Append(std::move(def));
        db->Execute("CREATE UNIQUE INDEX PK_Notas ON Notas (Id) WITH PRIMARY");
        db->Execute("CREATE UNIQUE INDEX IX_Clave ON Notas (Clave)");
        db->Execute("CREATE INDEX IX_Fecha ON Notas (Fecha DESC, Cuenta) WITH IGNORE NULL");
        auto rs = db->OpenRecordset("Notas");
        const vb::Variant valores[][6] = {
            {"o'Higgins | \"comillas\"", QString(100000, u'ñ'), vb::Currency::fromRaw(12345678901), vb::Fecha(QDate(2024, 2, 29), QTime(23, 59, 58)),
             vb::Variant::Integer(-32768), true},
            {"josé", "x", vb::Variant::Null(), vb::Variant::Null(), vb::Variant::Null(), false},
            {"José 2", vb::Variant::Null(), vb::Currency::fromRaw(-1), vb::Fecha(), vb::Variant::Integer(0), vb::Variant::Null()},
        };
        for (const auto& v : valores) {
            rs->AddNew();
            for (int i = 0; i < 6; ++i) rs->Fields(i + 1).setValue(v[i]);
            rs->Update();
        }
    }
    const Salida s = Corre({"copiar", base, copia});
    ASSERT_EQ(s.codigo, 0) << s.err.toStdString();
    EXPECT_EQ(s.out, QStringLiteral("Notas: 3 filas\nSe copiaron 1 tabla con 3 filas a '%1'.\n").arg(copia));
    Iguales(base, copia);
    // The unique text key still folds case in the copy.
    EXPECT_EQ(Corre({"sql", copia, "INSERT INTO Notas (Clave) VALUES ('O''HIGGINS | \"COMILLAS\"')"}).codigo, 1);
}

TEST_F(Copia, UnArchivoDelFormatoAnteriorDirectoAlServidor) {
    if (!prueba::EnServidor()) GTEST_SKIP() << "sin ADQ_PRUEBA_SERVIDOR";
    const QString legado = QStringLiteral(ADQ_SOURCE_DIR "/../shared/testdata/jet/nwind.mdb");
    const QString uri = prueba::UriDe(prueba::detalle::NombreNuevo(QStringLiteral("migrada")));
    const Salida aArchivo = Corre({"migrar", legado, copia});
    ASSERT_EQ(aArchivo.codigo, 0) << aArchivo.err.toStdString();
    const Salida aServidor = Corre({"migrar", legado, uri});
    ASSERT_EQ(aServidor.codigo, 0) << aServidor.err.toStdString();
    // The same lines as a migration to a file, and the same database.
    EXPECT_EQ(aServidor.out.section(u'\n', 0, -3), aArchivo.out.section(u'\n', 0, -3));
    EXPECT_TRUE(aServidor.out.endsWith(QStringLiteral("a '%1'.\n").arg(uri))) << aServidor.out.toStdString();
    Iguales(copia, uri);
    // Never over a database that exists.
    const Salida otraVez = Corre({"migrar", legado, uri});
    EXPECT_EQ(otraVez.codigo, 1);
    EXPECT_TRUE(otraVez.err.startsWith("Error 3204: ")) << otraVez.err.toStdString();
}

TEST_F(Copia, NadaQuedaEnElDestinoSiNoSeTermina) {
    ASSERT_EQ(Corre({"crear", base}).codigo, 0);
    // A destination that exists is never replaced; the origin is only read.
    ASSERT_EQ(Corre({"crear", copia}).codigo, 0);
    QFile f(copia);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray antes = f.readAll();
    f.close();
    const Salida existe = Corre({"copiar", base, copia});
    EXPECT_EQ(existe.codigo, 1);
    EXPECT_EQ(existe.err, QStringLiteral("Error 3204: El archivo '%1' ya existe; no se sobrescribe.\n").arg(copia));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), antes);
    f.close();
    ASSERT_TRUE(QFile::remove(copia));

    // An origin that is missing or is no database of this program.
    EXPECT_EQ(Corre({"copiar", dir.filePath("nada.mdb"), copia}).codigo, 1);
    QFile basura(dir.filePath("basura.mdb"));
    ASSERT_TRUE(basura.open(QIODevice::WriteOnly));
    basura.write(QByteArray(8192, 'x'));
    basura.close();
    EXPECT_EQ(Corre({"copiar", basura.fileName(), copia}).codigo, 1);
    EXPECT_EQ(deLaCopia(), QStringList());

    // A row the destination refuses halfway (a field made required over rows that leave it empty): the
    // tables made so far go with the rest.
    {
        auto db = dao::Database::OpenDatabase(base);
        db->Execute("INSERT INTO Editoriales ([No], Nombre) VALUES (1, 'Alfaomega')");
        db->Execute("INSERT INTO Editoriales ([No]) VALUES (2)");
        db->TableDefs()["Editoriales"].Fields()["Nombre"].setRequired(true);
    }
    const Salida mitad = Corre({"copiar", base, copia});
    EXPECT_EQ(mitad.codigo, 1);
    EXPECT_TRUE(mitad.err.startsWith("Error 3314: ")) << mitad.err.toStdString();
    EXPECT_EQ(deLaCopia(), QStringList());

    // Missing arguments give the usage, which names the command and the URI form.
    const Salida uso = Corre({"copiar", base});
    EXPECT_EQ(uso.codigo, 2);
    EXPECT_TRUE(uso.err.contains("adq-util copiar ORIGEN DESTINO"));
    EXPECT_TRUE(uso.err.contains("postgresql://usuario@equipo:puerto/base"));
}

}  // namespace
