#!/bin/sh
# Builds the fuzz targets with clang (libFuzzer, address and undefined-behaviour sanitizers) in build-fuzz/
# and runs each for the given number of inputs (300,000 by default, about a minute) from the given random
# seed (1 by default) over the seed corpus made from the statement corpus. The same number and seed make
# the same run on every machine, so a run that passes here passes in CI; another seed explores further.
# The request import's targets follow, each for a fixed number of inputs (about 40 seconds together).
# A crash leaves its input in build-fuzz/ and fails the run.
set -e
cd "$(dirname "$0")/.."
EJECUCIONES="${1:-300000}"
SEMILLA="${2:-1}"
cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
  -DADQ_FUZZ=ON -DADQ_BUILD_TESTS=OFF -DADQ_BUILD_BENCH=OFF > build-fuzz.log 2>&1 || { cat build-fuzz.log; exit 1; }
rm -f build-fuzz.log
cmake --build build-fuzz -j2 --target fuzz_sentencia fuzz_documento fuzz_xls fuzz_xlsx
rm -rf build-fuzz/corpus
mkdir -p build-fuzz/corpus
echo "Fuzzing del lector de sentencias: ${EJECUCIONES} entradas, semilla ${SEMILLA}"
build-fuzz/fuzz/fuzz_sentencia -runs="$EJECUCIONES" -seed="$SEMILLA" -timeout=20 -rss_limit_mb=4096 -max_len=4096 \
  -dict=build-fuzz/fuzz/dialecto.dict -artifact_prefix=build-fuzz/ -print_final_stats=1 \
  build-fuzz/corpus build-fuzz/fuzz/semillas > build-fuzz/fuzz_sentencia.log 2>&1 || {
  tail -60 build-fuzz/fuzz_sentencia.log
  exit 1
}
grep -E "^(Done|stat::number_of_executed_units)" build-fuzz/fuzz_sentencia.log || true

# The request import: the document loader, the .xls reader (a child process per workbook, so a small
# quarantine keeps each fork cheap) and the .xlsx reader, over the seeds in fuzz/.
# importacion OBJETIVO ENTRADAS LARGO_MAXIMO SEMILLAS [DICCIONARIO]
importacion() {
  rm -rf "build-fuzz/corpus-$1"
  mkdir -p "build-fuzz/corpus-$1"
  echo "Fuzzing de $1: $2 entradas, semilla ${SEMILLA}"
  ASAN_OPTIONS="${ASAN_OPTIONS:-quarantine_size_mb=16}" "build-fuzz/fuzz/$1" -runs="$2" -seed="$SEMILLA" -timeout=30 \
    -rss_limit_mb=4096 -max_len="$3" ${5:+-dict=build-fuzz/fuzz/$5} -artifact_prefix="build-fuzz/$1-" -print_final_stats=1 \
    "build-fuzz/corpus-$1" "build-fuzz/fuzz/$4" > "build-fuzz/$1.log" 2>&1 || {
    tail -60 "build-fuzz/$1.log"
    exit 1
  }
  grep -E "^(Done|stat::number_of_executed_units)" "build-fuzz/$1.log" || true
}
importacion fuzz_documento 100000 4096 semillas_documento solicitud.dict
importacion fuzz_xls 1500 16384 semillas_xls
importacion fuzz_xlsx 15000 16384 semillas_xlsx solicitud.dict
