#!/bin/sh
# Installs what is needed, builds from scratch in build/ and runs the whole test suite.
set -e
cd "$(dirname "$0")/.."
sh scripts/instalar-dependencias.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DADQ_BUILD_BENCH=ON
cmake --build build -j2
ctest --test-dir build --output-on-failure -j2
