#!/usr/bin/env bash
# Runs the whole test suite from scratch: the 32-bit build (the default
# target), the native x86-64 build, and the native build with clang under
# AddressSanitizer and UndefinedBehaviorSanitizer, which also runs each
# fuzzer for a short while (scripts/fuzz.sh runs them longer, and
# scripts/tsan.sh runs the threads test under ThreadSanitizer). Each suite
# also installs its build and its Debian packages into scratch prefixes and
# builds a consumer against them, runs the examples and builds the
# documentation; then the packages of both architectures are installed side
# by side.
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

# The i386 and amd64 packages that the two suites made (their install_deb
# tests) install side by side into one scratch dpkg root: both
# architectures' runtime and -dev packages are Multi-Arch: same. The root
# has no libc6, hence --force-depends.
check_packages() {
    local root=$out/dpkg-root sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    echo "=== packages of both builds, side by side"
    mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates" "$root/var/lib/dpkg/triggers"
    touch "$root/var/lib/dpkg/status"
    # Without Multi-Arch: same the second architecture would replace the
    # first, and fewer than six packages would end up installed.
    local installed
    $sudo dpkg --root="$root" --add-architecture i386 &&
        $sudo dpkg --root="$root" --force-depends -i \
            "$out"/i386/tests/install/deb/debs/*.deb "$out"/native/tests/install/deb/debs/*.deb \
            >"$out/dpkg-root.log" 2>&1 &&
        installed=$(dpkg --root="$root" -l 'libzpt*' | grep '^ii') &&
        echo "$installed" && [ "$(echo "$installed" | wc -l)" -eq 6 ] ||
        { cat "$out/dpkg-root.log"; echo "packages: side by side install FAILED"; status=1; }
}

run_suite i386 -DZPTG_TARGET=i386 -DCMAKE_CROSSCOMPILING_EMULATOR="$ZPTG_EMULATOR"
run_suite native -DZPTG_TARGET=native
check_packages
run_suite sanitize -DZPTG_TARGET=native -DZPTG_SANITIZE=address,undefined -DZPTG_FUZZ=ON \
    -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo
exit $status
