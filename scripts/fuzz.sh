#!/usr/bin/env bash
# Builds the libFuzzer harnesses (clang, AddressSanitizer and
# UndefinedBehaviorSanitizer; native x86-64) and runs each for a while on a
# corpus that is kept between runs:
#
#   bash scripts/fuzz.sh [seconds per fuzzer, default 600]
#
# A crash leaves its input in the corpus directory's parent as crash-*;
# rerun it with <fuzzer> <file>.
set -euo pipefail
source "$(dirname "$0")/common.sh"

seconds=${1:-600}
zptg_install_build_deps
zptg_install clang libclang-rt-14-dev
root=${ZPTG_BUILD_ROOT:-$ZPTG_ROOT/build}
dir=$root/fuzz
start=$SECONDS
zptg_configure "$dir" -DZPTG_TARGET=native -DZPTG_SANITIZE=address,undefined -DZPTG_FUZZ=ON \
    -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ -DZPTG_TESTS=OFF -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$dir" -j "$ZPTG_JOBS" --target dispatch_fuzzer dct4_fuzzer
echo "=== fuzz: built in $((SECONDS - start)) s"
for name in dispatch dct4; do
    corpus=$root/fuzz-corpus/$name
    mkdir -p "$corpus"
    echo "=== $name: $seconds s on $corpus ($(ls "$corpus" | wc -l) inputs)"
    (cd "$root/fuzz-corpus" && "$dir/fuzz/${name}_fuzzer" -max_total_time="$seconds" \
        -print_final_stats=1 "$corpus")
done
