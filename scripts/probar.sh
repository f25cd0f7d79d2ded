#!/bin/sh
# Installs what is needed, builds from scratch in build/ and runs the whole test suite. The fuzz targets of
# the statement front end are built with clang in build-fuzz/ and each runs a fixed number of inputs first.
# The suite runs twice: on database files, then against a throw-away PostgreSQL server
# (scripts/servidor-prueba.sh), whose URI the tests find in ADQ_PRUEBA_SERVIDOR; the server is stopped and
# removed however the run ends.
set -e
cd "$(dirname "$0")/.."
sh scripts/instalar-dependencias.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DADQ_BUILD_BENCH=ON
cmake --build build -j2
sh scripts/fuzz.sh "${ADQ_EJECUCIONES_FUZZ:-300000}"
ctest --test-dir build --output-on-failure -j2
echo "Las pruebas otra vez, con un servidor PostgreSQL de prueba"
sh scripts/servidor-prueba.sh exec ctest --test-dir build --output-on-failure -j2
