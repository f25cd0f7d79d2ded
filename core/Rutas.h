#pragma once
// Installation files beside the program are named as the original system names them ("xsls\Formato.xsl",
// "XSLs\logo.gif", "ayuda\ADQUIS.htm"): backslashes become separators and each component is found without
// regard to case, so "XSLs" and "xsls" are one folder.
#include <QString>

namespace rutas {

// The path as it exists on disk; when some component can't be found, the path with separators turned.
QString ArchivoInstalacion(const QString& ruta);

// A file beside the program, e.g. Instalacion("xsls\\Formato.xsl").
QString Instalacion(const QString& relativa);

}  // namespace rutas
