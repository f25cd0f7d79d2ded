#!/bin/sh
# Builds the fuzz targets with clang (libFuzzer, address and undefined-behaviour sanitizers) in build-fuzz/
# and runs each for a fixed number of inputs from the given random seed (1 by default): the statement
# fuzzer for the given number (300,000 by default, about a minute) over the seed corpus made from the
# statement corpus; then the request import's targets (the document loader, the .xls and the .xlsx readers)
# for their own numbers, about 40 seconds together, over the seeds in fuzz/. The same numbers and seed make
# the same run on every machine, so a run that passes here passes in CI; another seed explores further.
# With a third argument only that target runs, for the given number of inputs (-1 runs until stopped):
#   sh scripts/fuzz.sh -1 7 fuzz_xlsx
# A crash leaves its input in build-fuzz/ and fails the run.
set -e
cd "$(dirname "$0")/.."
EJECUCIONES="${1:-300000}"
SEMILLA="${2:-1}"
SOLO="${3:-}"
cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
  -DADQ_FUZZ=ON -DADQ_BUILD_TESTS=OFF -DADQ_BUILD_BENCH=OFF > build-fuzz.log 2>&1 || { cat build-fuzz.log; exit 1; }
rm -f build-fuzz.log
cmake --build build-fuzz -j2 --target ${SOLO:-fuzz_sentencia fuzz_documento fuzz_xls fuzz_xlsx}

# corre OBJETIVO ENTRADAS LARGO_MAXIMO SEMILLAS [DICCIONARIO]
corre() {
  rm -rf "build-fuzz/corpus_$1"
  mkdir -p "build-fuzz/corpus_$1"
  echo "Fuzzing de $1: $2 entradas, semilla ${SEMILLA}"
  # The .xls reader forks a child per workbook: a small quarantine keeps each fork cheap.
  opciones="${ASAN_OPTIONS:-}"
  if [ "$1" = fuzz_xls ]; then opciones="${ASAN_OPTIONS:-quarantine_size_mb=16}"; fi
  ASAN_OPTIONS="$opciones" "build-fuzz/fuzz/$1" -runs="$2" -seed="$SEMILLA" -timeout=30 -rss_limit_mb=4096 -max_len="$3" \
    ${5:+-dict=build-fuzz/fuzz/$5} -artifact_prefix=build-fuzz/ -print_final_stats=1 \
    "build-fuzz/corpus_$1" "build-fuzz/fuzz/$4" > "build-fuzz/$1.log" 2>&1 || {
    tail -60 "build-fuzz/$1.log"
    exit 1
  }
  grep -E "^(Done|stat::number_of_executed_units)" "build-fuzz/$1.log" || true
}

case "$SOLO" in
  "")
    corre fuzz_sentencia "$EJECUCIONES" 4096 semillas dialecto.dict
    corre fuzz_documento 100000 4096 semillas_documento solicitud.dict
    corre fuzz_xls 1500 16384 semillas_xls
    corre fuzz_xlsx 15000 16384 semillas_xlsx solicitud.dict ;;
  fuzz_sentencia) corre fuzz_sentencia "$EJECUCIONES" 4096 semillas dialecto.dict ;;
  fuzz_documento) corre fuzz_documento "$EJECUCIONES" 4096 semillas_documento solicitud.dict ;;
  fuzz_xls) corre fuzz_xls "$EJECUCIONES" 16384 semillas_xls ;;
  fuzz_xlsx) corre fuzz_xlsx "$EJECUCIONES" 16384 semillas_xlsx solicitud.dict ;;
  *) echo "Objetivo desconocido: $SOLO" >&2; exit 2 ;;
esac
