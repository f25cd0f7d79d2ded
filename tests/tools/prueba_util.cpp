// adq-util as a person runs it: create a database, fill the demo, run statements from the command line
// or one per line of its input, with errors on the error stream and the exit status to tell.
#include "ayuda_util.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>

namespace {

using ayuda::Corre;
using ayuda::Salida;

using Utilidad = ayuda::ConCarpeta;

TEST_F(Utilidad, DemoYConsulta) {
    ASSERT_EQ(Corre({"demo", base}).codigo, 0);
    const Salida s = Corre({"sql", base, "SELECT [No] & ' ' & Nombre AS Resultado FROM Bibliotecas ORDER BY [No]"});
    EXPECT_EQ(s.codigo, 0) << s.err.toStdString();
    EXPECT_EQ(s.out, "Resultado\n1 Biblioteca Central\n2 Biblioteca de Ingeniería\n3 Biblioteca de Humanidades\n");
    EXPECT_TRUE(s.err.isEmpty());
    // Columns by tabs, Null as NULL, dates and money as plain text.
    const Salida t = Corre({"sql", base, "SELECT TOP 1 Titulo, Costo, [Fecha de Recepcion], ISBN FROM [Solicitudes Libros] "
                                         "WHERE Factura IS NULL ORDER BY ClaveLibro"});
    EXPECT_EQ(t.out, "Titulo\tCosto\tFecha de Recepcion\tISBN\nMecánica de materiales\tNULL\tNULL\tNULL\n");
}

TEST_F(Utilidad, ErroresConSuNumeroYCodigoDeSalida) {
    ASSERT_EQ(Corre({"crear", base}).codigo, 0);
    const Salida s = Corre({"sql", base, "SELECT * FROM Nada"});
    EXPECT_EQ(s.codigo, 1);
    EXPECT_TRUE(s.out.isEmpty());
    EXPECT_TRUE(s.err.startsWith("Error 3078: ")) << s.err.toStdString();
    EXPECT_TRUE(s.err.endsWith('\n'));

    // crear never overwrites a file.
    QFile f(base);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray antes = f.readAll();
    f.close();
    const Salida c = Corre({"crear", base});
    EXPECT_EQ(c.codigo, 1);
    EXPECT_FALSE(c.err.isEmpty());
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), antes);

    EXPECT_EQ(Corre({"sql", dir.filePath("otra.mdb"), "SELECT 1"}).codigo, 1);
    EXPECT_FALSE(QFileInfo::exists(dir.filePath("otra.mdb")));
    EXPECT_EQ(Corre({"nada", base}).codigo, 2);
}

TEST_F(Utilidad, SentenciasDesdeLaEntradaUnaPorLinea) {
    ASSERT_EQ(Corre({"crear", base}).codigo, 0);
    const QByteArray entrada =
        "INSERT INTO Editoriales ([No], Nombre) VALUES (1, 'Alfaomega')\n"
        "\n"
        "INSERT INTO Editoriales ([No], Nombre) VALUES (1, 'Repetida')\n"
        "INSERT INTO Editoriales ([No], Nombre) VALUES (2, 'Siglo XXI')\n"
        "SELECT Count(*) AS N FROM Editoriales\n";
    const Salida s = Corre({"sql", base}, entrada);
    EXPECT_EQ(s.codigo, 1);                            // one line failed, the others ran
    EXPECT_EQ(s.out, "N\n2\n");
    EXPECT_TRUE(s.err.startsWith("Error 3022: ")) << s.err.toStdString();
    EXPECT_EQ(s.err.count(u'\n'), 1);

    const Salida bien = Corre({"sql", base}, "UPDATE Editoriales SET Nombre = 'FCE' WHERE [No] = 2\nSELECT Nombre FROM Editoriales WHERE [No] = 2\n");
    EXPECT_EQ(bien.codigo, 0);
    EXPECT_EQ(bien.out, "Nombre\nFCE\n");

    const Salida a = Corre({"analista", base, "luis", "clave"});
    EXPECT_EQ(a.codigo, 0);
    EXPECT_EQ(Corre({"sql", base, "SELECT Login FROM Analistas"}).out, "Login\nluis\n");
}

}  // namespace
