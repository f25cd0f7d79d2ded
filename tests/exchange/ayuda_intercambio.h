#pragma once
// What the import suites share: a writer and a reader of whole files; a fresh database with two libraries (one
// numbered above 255), three schools and four publishers; the request of the tests as an XML document and as
// workbooks; and a reader of the requests written, one text per row, to compare imports made from different files.
#include "ayuda_prueba.h"
#include "workflow/ayuda_cajas.h"

#include "core/dao/Dao.h"

#include <QFile>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>
#include <xlsxwriter.h>
#include <zip.h>

namespace ayuda_intercambio {
inline QString Escribe(const QString& ruta, const QByteArray& bytes) {
    QFile f(ruta);
    EXPECT_TRUE(f.open(QIODevice::WriteOnly)) << ruta.toStdString();
    f.write(bytes);
    return ruta;
}
inline QByteArray Lee(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}
}  // namespace ayuda_intercambio

class PruebaIntercambio : public ::testing::Test {
protected:
    QTemporaryDir dir;
    ui::PlataformaPrueba* sistema = nullptr;

    void SetUp() override {
        sistema = prueba::InstalaBaseNueva(dir);
        globales::LoginAnalista = QStringLiteral("ana");
        for (const char* sql : {"INSERT INTO Bibliotecas ([No], Nombre) VALUES (1, 'Central')",
                                "INSERT INTO Bibliotecas ([No], Nombre) VALUES (300, 'Anexo Sur')",
                                "INSERT INTO Escuelas ([No], Nombre, NoBiblioteca) VALUES (3, 'Ingeniería', 1)",
                                "INSERT INTO Escuelas ([No], Nombre, NoBiblioteca) VALUES (8, 'Artes', 300)",
                                "INSERT INTO Escuelas ([No], Nombre) VALUES (9, 'Música')",
                                "INSERT INTO Editoriales ([No], Nombre) VALUES (1, 'Planeta')",
                                "INSERT INTO Editoriales ([No], Nombre) VALUES (2, 'Sudamericana')",
                                "INSERT INTO Editoriales ([No], Nombre) VALUES (3, 'S.N.')",
                                "INSERT INTO Editoriales ([No], Nombre) VALUES (12, 'Trillas')"})
            Ejecuta(sql);
    }
    void TearDown() override { globales::BaseDatos.reset(); }

    void Ejecuta(const char* sql) { globales::Base().Execute(QString::fromUtf8(sql), dao::dbFailOnError); }
    QString Valor(const char* sql) { return prueba::Valor(QString::fromUtf8(sql)); }

    QString Ruta(const QString& nombre) const { return dir.filePath(nombre); }
    QString Escribe(const QString& nombre, const QByteArray& bytes) const { return ayuda_intercambio::Escribe(Ruta(nombre), bytes); }
    static QByteArray Lee(const QString& ruta) { return ayuda_intercambio::Lee(ruta); }

    // The titles of the request: title, author, publisher, ISBN, edition, copies.
    static QList<QStringList> Titulos() {
        return {{QStringLiteral("Pedro Páramo"), QStringLiteral("Juan Rulfo"), QStringLiteral("Planeta"),
                 QStringLiteral("978-607-07-0001-1"), QStringLiteral("2"), QStringLiteral("3")},
                {QStringLiteral("Cien años de soledad"), QStringLiteral("Gabriel García Márquez"), QStringLiteral("Sudamericana"),
                 QStringLiteral("9786070000002"), QStringLiteral("1"), QStringLiteral("2")},
                {QStringLiteral("El laberinto de la soledad"), QStringLiteral("Octavio Paz"), QStringLiteral("S.N."), QString(),
                 QStringLiteral("3"), QStringLiteral("1")}};
    }
    // The request as a school writes it by hand: ISO-8859-1, indented, the fichas of `titulos`.
    static QByteArray Documento(const QList<QStringList>& titulos = Titulos(), const QString& totalLibros = QString(),
                                const QString& escuela = QStringLiteral("3")) {
        QString x = QStringLiteral("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<Solicitud>\n  <InformacionGeneral>\n"
                                   "    <FechaEnvio>15/03/2024</FechaEnvio>\n    <Director>Dra. Ana María Núñez</Director>\n"
                                   "    <ClaveEscuela>%1</ClaveEscuela>\n    <TotalLibros>%2</TotalLibros>\n"
                                   "    <TotalEjemplares>6</TotalEjemplares>\n  </InformacionGeneral>\n  <Bibliografia>\n")
                        .arg(escuela, totalLibros.isEmpty() ? QString::number(titulos.size()) : totalLibros);
        int id = 0;
        for (const QStringList& t : titulos)
            x += QStringLiteral("    <Ficha Id=\"%1\">\n      <Libro>%2</Libro>\n      <Autor>%3</Autor>\n"
                                "      <Editorial>%4</Editorial>\n      <ISBN>%5</ISBN>\n      <Publicacion>%6</Publicacion>\n"
                                "      <Ejemplares>%7</Ejemplares>\n    </Ficha>\n")
                     .arg(++id)
                     .arg(t[0], t[1], t[2], t[3], t[4], t[5]);
        return (x + QStringLiteral("  </Bibliografia>\n</Solicitud>\n")).toLatin1();
    }

    // An Open XML workbook written by libxlsxwriter: the request's sheet as the offices fill it (the date a
    // date cell, numbers as numbers, the titles from row `filaTitulos`), then a second sheet that must not be
    // read. `cambia` writes over it.
    QString LibroXlsx(const QString& nombre, const std::function<void(lxw_worksheet*)>& cambia = {}, int filaTitulos = 7) const {
        const QString ruta = Ruta(nombre);
        lxw_workbook* libro = workbook_new(ruta.toLocal8Bit().constData());
        lxw_worksheet* hoja = workbook_add_worksheet(libro, "Solicitud");
        lxw_format* fecha = workbook_add_format(libro);
        format_set_num_format(fecha, "dd/mm/yyyy");
        lxw_datetime dia = {2024, 3, 15, 0, 0, 0};
        worksheet_write_string(hoja, 0, 0, "Fecha de envío", nullptr);
        worksheet_write_datetime(hoja, 0, 1, &dia, fecha);
        worksheet_write_string(hoja, 1, 1, "Dra. Ana María Núñez", nullptr);
        worksheet_write_number(hoja, 2, 1, 3, nullptr);
        const QList<QStringList> titulos = Titulos();
        for (int i = 0; i < titulos.size(); ++i) {
            const QStringList& t = titulos[i];
            const lxw_row_t fila = static_cast<lxw_row_t>(filaTitulos - 1 + i);
            worksheet_write_string(hoja, fila, 0, t[0].toUtf8().constData(), nullptr);
            worksheet_write_string(hoja, fila, 1, t[1].toUtf8().constData(), nullptr);
            if (t[2] != u"S.N.") worksheet_write_string(hoja, fila, 2, t[2].toUtf8().constData(), nullptr);
            worksheet_write_number(hoja, fila, 3, t[4].toDouble(), nullptr);
            worksheet_write_number(hoja, fila, 4, t[5].toDouble(), nullptr);
            if (i == 1) worksheet_write_number(hoja, fila, 5, t[3].toDouble(), nullptr);
            else if (!t[3].isEmpty()) worksheet_write_string(hoja, fila, 5, t[3].toUtf8().constData(), nullptr);
        }
        if (cambia) cambia(hoja);
        lxw_worksheet* otra = workbook_add_worksheet(libro, "Notas");
        worksheet_write_string(otra, 6, 0, "Esta hoja no es la solicitud", nullptr);
        EXPECT_EQ(workbook_close(libro), LXW_NO_ERROR);
        return ruta;
    }

    // A zip of the given parts (name, content), for workbooks no program writes as they are.
    QString Zip(const QString& nombre, const QList<QPair<const char*, QByteArray>>& partes) const {
        const QString ruta = Ruta(nombre);
        int error = 0;
        zip_t* z = zip_open(ruta.toLocal8Bit().constData(), ZIP_CREATE | ZIP_TRUNCATE, &error);
        EXPECT_NE(z, nullptr);
        std::vector<QByteArray> guardados;
        for (const auto& [parte, contenido] : partes) {
            guardados.push_back(contenido);
            zip_source_t* s = zip_source_buffer(z, guardados.back().constData(), static_cast<zip_uint64_t>(guardados.back().size()), 0);
            zip_file_add(z, parte, s, ZIP_FL_OVERWRITE);
        }
        EXPECT_EQ(zip_close(z), 0);
        return ruta;
    }

    // The request n as written: its head, then one line per title in the order written.
    QStringList Escrita(int n) {
        QStringList filas;
        auto rs = globales::Base().OpenRecordset(
            QStringLiteral("SELECT Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado, IdCapturista FROM [Solicitudes General] "
                           "WHERE NoSolicitud = %1").arg(n));
        if (rs->Eof()) return filas;
        QStringList cabeza;
        for (int i = 0; i < 6; ++i) cabeza << (rs->Fields(i).Value().isNull() ? QStringLiteral("NULL") : rs->Fields(i).Value().text());
        filas << cabeza.join(u'|');
        rs = globales::Base().OpenRecordset(
            QStringLiteral("SELECT Titulo, Autor, Edicion, [Ejemplares pedidos], NoEditorial, ISBN, Estado, IdCapturista "
                           "FROM [Solicitudes Libros] WHERE NoSolicitud = %1 ORDER BY ClaveLibro").arg(n));
        for (; !rs->Eof(); rs->MoveNext()) {
            QStringList fila;
            for (int i = 0; i < 8; ++i) fila << (rs->Fields(i).Value().isNull() ? QStringLiteral("NULL") : rs->Fields(i).Value().text());
            filas << fila.join(u'|');
        }
        return filas;
    }
};
