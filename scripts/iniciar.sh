#!/bin/sh
# Installs what is needed, builds, creates a demo database beside the program if there is none, and starts
# the program on it. Until the windows of the program are built, that is the utility's SQL shell: type one
# statement of the program's dialect per line, end with Ctrl-D.
set -e
cd "$(dirname "$0")/.."
sh scripts/instalar-dependencias.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build -j2 --target adq-util
BASE=build/KORVEL8.mdb
[ -f "$BASE" ] || build/adq-util demo "$BASE"
echo "Base de datos: $BASE. Escriba una sentencia por línea (Ctrl-D para salir), por ejemplo:"
echo "  SELECT [No] & ' ' & Nombre AS Resultado FROM Bibliotecas"
exec build/adq-util sql "$BASE"
