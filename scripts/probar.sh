#!/bin/sh
# Installs what is needed, builds from scratch in build/ and runs the whole test suite. The fuzz targets of
# the statement front end are built with clang in build-fuzz/ and each runs a fixed number of inputs first.
set -e
cd "$(dirname "$0")/.."
sh scripts/instalar-dependencias.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DADQ_BUILD_BENCH=ON
cmake --build build -j2
sh scripts/fuzz.sh "${ADQ_EJECUCIONES_FUZZ:-300000}"
ctest --test-dir build --output-on-failure -j2
