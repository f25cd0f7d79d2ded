#pragma once
// The large collection the search and listing benchmarks share: 100,000 requested titles in 30,000 requests,
// 20,000 donated titles in 2,000 donations, and 250,000 accession numbers, two in ten of donated titles.
// The numbers run in fifty series of 5,000 ("2000-00001" ... "2049-05000"), so that a series' prefix
// ("2012-") finds 5,000 copies over both sides. Made once per run, as the open database.
#include "core/Esquema.h"
#include "core/Globales.h"
#include "core/dao/Dao.h"

#include <QTemporaryDir>
#include <sqlite3.h>

namespace banco {

constexpr int Solicitados = 100000;
constexpr int Solicitudes = 30000;
constexpr int Donados = 20000;
constexpr int Donaciones = 2000;
constexpr int Numeros = 250000;
constexpr int PorSerie = 5000;
constexpr int Bibliotecas = 20;

// The accession number of copy i (from 1).
inline QString NumeroDeAdquisicion(int i) {
    return QStringLiteral("%1-%2").arg(2000 + (i - 1) / PorSerie).arg((i - 1) % PorSerie + 1, 5, 10, QLatin1Char('0'));
}

struct BaseColeccion {
    QTemporaryDir dir;
    BaseColeccion() {
        auto db = dao::Database::CreateDatabase(dir.filePath(QStringLiteral("KORVEL8.mdb")));
        esquema::CreaTablas(*db);
        auto ejecuta = [&db](const QString& sql) { db->Execute(sql, dao::dbFailOnError); };
        sqlite3_exec(db->sqlite(), "BEGIN", nullptr, nullptr, nullptr);
        for (int b = 1; b <= Bibliotecas; ++b)
            ejecuta(QStringLiteral("INSERT INTO Bibliotecas ([No], Nombre) VALUES (%1, 'Biblioteca %1')").arg(b));
        for (int n = 1; n <= Solicitudes; ++n)
            ejecuta(QStringLiteral("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, "
                                   "Estado) VALUES (%1, #2025/02/%2#, 'Solicitante %1', 1, %3, 'R')")
                        .arg(n).arg(1 + n % 28).arg(1 + n % Bibliotecas));
        for (int i = 1; i <= Solicitados; ++i)
            ejecuta(QStringLiteral("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, NoSolicitud, Estado, "
                                   "[Fecha de Recepcion], [Ejemplares recibidos], Costo) VALUES (%1, 'Curso de materia %2, "
                                   "tomo %1', 'Autor número %3', %4, 'A', #2025/03/%5#, 3, 245.5)")
                        .arg(i).arg(i % 100).arg(i % 5000).arg(1 + i % Solicitudes).arg(1 + i % 28));
        for (int n = 1; n <= Donaciones; ++n)
            ejecuta(QStringLiteral("INSERT INTO [Donaciones General] (NoDonacion, Fecha, NoInstitucion, NoBiblioteca, "
                                   "[Donacion o Intercambio]) VALUES (%1, #2025/04/%2#, 1, %3, 'D')")
                        .arg(n).arg(1 + n % 28).arg(1 + n % Bibliotecas));
        for (int i = 1; i <= Donados; ++i)
            ejecuta(QStringLiteral("INSERT INTO [Donaciones Libros] (ClaveLibro, Titulo, Autor, Edicion, Ejemplares, Costo, "
                                   "NoDonacion) VALUES (%1, 'Obra donada de materia %2, tomo %1', 'Donante %3', 1, 2, 0, %4)")
                        .arg(i).arg(i % 100).arg(i % 700).arg(1 + i % Donaciones));
        // Two numbers in ten belong to donated titles.
        for (int i = 1; i <= Numeros; ++i) {
            const bool donado = i % 10 < 2;
            ejecuta(QStringLiteral("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) "
                                   "VALUES ('%1', %2, '%3')")
                        .arg(NumeroDeAdquisicion(i))
                        .arg(donado ? 1 + i % Donados : 1 + i % Solicitados)
                        .arg(donado ? QLatin1Char('D') : QLatin1Char('S')));
        }
        sqlite3_exec(db->sqlite(), "COMMIT", nullptr, nullptr, nullptr);
        globales::BaseDatos = std::move(db);
    }
};

inline BaseColeccion& Coleccion() {
    static BaseColeccion base;
    return base;
}

}  // namespace banco
