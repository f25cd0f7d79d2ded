#pragma once
// Exchange files (*.exp): a numbered range of requests or of donations, with their titles and accession
// numbers, carried from one installation to another. The export writes them as databases of this program's
// own format; the import reads them through the one opening below.
#include <QString>
#include <memory>

namespace dao { class Database; }

namespace intercambio {

// Opens an exchange file to be read, never written. A missing file is the engine's 3024; anything that is no
// database this program reads (a text, an empty or cut file, a damaged database) is 3343. A file written by
// an older installation in the legacy format is read into a private copy of this program's format, which is
// what opens; the copy goes once no database has it open.
std::unique_ptr<dao::Database> AbreBaseIntercambio(const QString& ruta);

// The lookups the import repeats over a whole file, each by one number (the titles of a head, the copies of
// a title), indexed in the file where its tables are, so that they don't read every row every time. The
// indexes are the engine's own: no table definition shows them.
void IndicesDeLectura(dao::Database& base);

// Deletes a file that is to be written anew (the language's Kill), with the logs a database of the same name
// left beside it, which must not be taken for the new file's. A file this program has open is not deleted
// (70 "Permiso denegado"), nor one the system refuses to delete (75).
void BorraArchivo(const QString& ruta);

}  // namespace intercambio
