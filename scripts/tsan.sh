#!/usr/bin/env bash
# Builds the library and its threads test under ThreadSanitizer (native
# x86-64) and runs the test: every exported transform, the Walsh-Hadamard
# kernels with buffers of their own and with none, and DCT-IV contexts one
# per thread, all from several threads at once, compared bit for bit with
# serial runs. Any data race stops the run with a report.
set -euo pipefail
source "$(dirname "$0")/common.sh"

zptg_install_build_deps
dir=${ZPTG_BUILD_ROOT:-$ZPTG_ROOT/build}/tsan
start=$SECONDS
zptg_configure "$dir" -DZPTG_TARGET=native -DZPTG_SANITIZE=thread -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$dir" -j "$ZPTG_JOBS" --target threads_test
echo "=== tsan: built in $((SECONDS - start)) s; testing"
start=$SECONDS
TSAN_OPTIONS="halt_on_error=1 ${TSAN_OPTIONS:-}" "$dir/tests/threads/threads_test"
echo "=== tsan: test took $((SECONDS - start)) s"
