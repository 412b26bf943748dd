#!/usr/bin/env bash
# Runs the whole test suite from scratch: the 32-bit build (the default
# target), the native x86-64 build, and the native build with clang under
# AddressSanitizer and UndefinedBehaviorSanitizer, which also runs each
# fuzzer for a short while (scripts/fuzz.sh runs them longer, and
# scripts/tsan.sh runs the threads test under ThreadSanitizer).
set -euo pipefail
source "$(dirname "$0")/common.sh"

zptg_install_build_deps
zptg_install clang libclang-rt-14-dev
zptg_probe_i386

out=${ZPTG_BUILD_ROOT:-$ZPTG_ROOT/build/test}
rm -rf "$out"
status=0
run_suite() {
    local name=$1
    shift
    local dir=$out/$name
    echo "=== $name: configure and build"
    local start=$SECONDS
    zptg_configure "$dir" "$@"
    cmake --build "$dir" -j "$ZPTG_JOBS"
    echo "=== $name: built in $((SECONDS - start)) s; testing"
    start=$SECONDS
    (cd "$dir" && ctest --output-on-failure -j "$ZPTG_JOBS") || status=1
    echo "=== $name: tests took $((SECONDS - start)) s"
}

run_suite i386 -DZPTG_TARGET=i386 -DCMAKE_CROSSCOMPILING_EMULATOR="$ZPTG_EMULATOR"
run_suite native -DZPTG_TARGET=native
run_suite sanitize -DZPTG_TARGET=native -DZPTG_SANITIZE=address,undefined -DZPTG_FUZZ=ON \
    -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo
exit $status
