#!/usr/bin/env bash
# Builds the library for its default target (32-bit x86) and runs the demo.
set -euo pipefail
source "$(dirname "$0")/common.sh"

zptg_install_build_deps
zptg_probe_i386
dir=${ZPTG_BUILD_ROOT:-$ZPTG_ROOT/build}/demo
zptg_configure "$dir" -DZPTG_TARGET=i386 -DZPTG_TESTS=OFF
cmake --build "$dir" -j "$ZPTG_JOBS" --target zptg_demo
echo "built $(ls "$dir"/src/libzptgenpx.so.*)"
if [ -n "$ZPTG_EMULATOR" ]; then
    "$ZPTG_EMULATOR" "$dir/demo/zptg_demo"
else
    "$dir/demo/zptg_demo"
fi
