#!/bin/sh
# Builds the fuzz targets with clang (libFuzzer, address and undefined-behaviour sanitizers) in build-fuzz/
# and runs each for a fixed number of inputs from the given random seed (1 by default): the statement
# fuzzer the given number (300,000 by default, about a minute) over a seed corpus made from the statement
# corpus; the legacy reader ADQ_EJECUCIONES_LEGADO inputs (20,000 by default, some 10 seconds: each legacy
# file is read by a process of its own) over the first pages of the test files and a stream of the reader.
# The same numbers and seed make the same run on every machine, so a run that passes here passes in CI;
# another seed explores further. The request import's targets follow, each for a fixed number of inputs
# (about 40 seconds together). A crash leaves its input in build-fuzz/ and fails the run.
set -e
cd "$(dirname "$0")/.."
EJECUCIONES="${1:-300000}"
SEMILLA="${2:-1}"
EJECUCIONES_LEGADO="${ADQ_EJECUCIONES_LEGADO:-20000}"
cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
  -DADQ_FUZZ=ON -DADQ_BUILD_TESTS=OFF -DADQ_BUILD_BENCH=OFF > build-fuzz.log 2>&1 || { cat build-fuzz.log; exit 1; }
rm -f build-fuzz.log
cmake --build build-fuzz -j2 --target fuzz_sentencia fuzz_legado fuzz_documento fuzz_xls fuzz_xlsx
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

# Seeds of the legacy reader: the first pages of a file of each generation (0, then the bytes) and the
# reader's stream of a small file (1, then the stream).
JET=../shared/testdata/jet
rm -rf build-fuzz/corpus-legado build-fuzz/semillas-legado
mkdir -p build-fuzz/corpus-legado build-fuzz/semillas-legado
{ printf '\000'; head -c 24576 "$JET/nwind.mdb"; } > build-fuzz/semillas-legado/jet3
{ printf '\000'; head -c 24576 "$JET/testV2003.mdb"; } > build-fuzz/semillas-legado/jet4
{ printf '\001'; build-fuzz/adq-lector-legado "$JET/DateTestDatabase.mdb"; } > build-fuzz/semillas-legado/flujo
echo "Fuzzing del lector de archivos anteriores: ${EJECUCIONES_LEGADO} entradas, semilla ${SEMILLA}"
build-fuzz/fuzz/fuzz_legado -runs="$EJECUCIONES_LEGADO" -seed="$SEMILLA" -timeout=30 -rss_limit_mb=4096 -max_len=32768 \
  -artifact_prefix=build-fuzz/legado- -print_final_stats=1 \
  build-fuzz/corpus-legado build-fuzz/semillas-legado > build-fuzz/fuzz_legado.log 2>&1 || {
  tail -60 build-fuzz/fuzz_legado.log
  exit 1
}
grep -E "^(Done|stat::number_of_executed_units)" build-fuzz/fuzz_legado.log || true

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
