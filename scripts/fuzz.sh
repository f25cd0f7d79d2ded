#!/bin/sh
# Builds the fuzz targets with clang (libFuzzer, address and undefined-behaviour sanitizers) in build-fuzz/
# and runs each for the given number of inputs (300,000 by default, about a minute) from the given random
# seed (1 by default) over the seed corpus made from the statement corpus. The same number and seed make
# the same run on every machine, so a run that passes here passes in CI; another seed explores further.
# A crash leaves its input in build-fuzz/ and fails the run.
set -e
cd "$(dirname "$0")/.."
EJECUCIONES="${1:-300000}"
SEMILLA="${2:-1}"
cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
  -DADQ_FUZZ=ON -DADQ_BUILD_TESTS=OFF -DADQ_BUILD_BENCH=OFF > build-fuzz.log 2>&1 || { cat build-fuzz.log; exit 1; }
rm -f build-fuzz.log
cmake --build build-fuzz -j2 --target fuzz_sentencia
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
