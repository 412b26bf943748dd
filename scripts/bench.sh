#!/usr/bin/env bash
# Benchmarks the library against FFTW: installs FFTW 3, Google Benchmark and
# gnuplot from Debian's packages (the i386 builds too, for the 32-bit
# configuration), builds the benchmark in both configurations, and times
# the 32-bit build where this machine runs 32-bit programs natively (never
# under an emulator; elsewhere only its accuracy is taken, under qemu-i386)
# and the x86-64 build always. Tables and CSV files go to
# <build>/bench/results of each configuration, with one PNG plot per family.
#
#   bash scripts/bench.sh [zptg_bench options, e.g. --only complex,accuracy]
#
# ZPTG_BENCH_CONFIGURATIONS="native" (or "i386") builds and runs only that
# configuration; the default is both.
set -euo pipefail
source "$(dirname "$0")/common.sh"

# Like zptg_install, but an index that fails to update (a mirror in the
# middle of a sync) only costs a warning: what is listed still installs.
bench_install() {
    local missing=() arch
    arch=$(dpkg --print-architecture)
    for p in "$@"; do
        # A name installed for two architectures needs the native one spelt out.
        dpkg -s "$p" >/dev/null 2>&1 || dpkg -s "$p:$arch" >/dev/null 2>&1 || missing+=("$p")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "installing: ${missing[*]}"
    local sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    $sudo apt-get update -qq || echo "apt-get update reported errors; using the lists it has"
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}" >/dev/null
}

configurations=${ZPTG_BENCH_CONFIGURATIONS:-i386 native}
wants() { [[ " $configurations " == *" $1 "* ]]; }

bench_install cmake make g++ g++-multilib binutils libfftw3-dev libbenchmark-dev gnuplot-nox
if wants i386; then
    if ! dpkg --print-foreign-architectures | grep -qx i386; then
        sudo=""
        [ "$(id -u)" -eq 0 ] || sudo="sudo"
        $sudo dpkg --add-architecture i386
    fi
    bench_install libfftw3-dev:i386 libbenchmark-dev:i386
fi

root=${ZPTG_BUILD_ROOT:-$ZPTG_ROOT/build}
build() {
    local name=$1 target=$2
    local dir=$root/bench-$name
    echo "=== $name: configure and build"
    zptg_configure_bench "$dir" "$target"
    cmake --build "$dir" -j "$ZPTG_JOBS" --target zptg_bench
}
if wants i386; then build i386 i386; fi
if wants native; then build native native; fi

plot() {
    local results=$1
    (cd "$results" && for gp in *.gp; do gnuplot "$gp"; done)
    echo "plots: $(cd "$results" && ls ./*.png | tr '\n' ' ')"
}
run() {
    local name=$1
    shift
    local dir=$root/bench-$name
    echo "=== $name: $* (uptime: $(uptime | sed 's/.*load/load/'))"
    ${ZPTG_EMULATOR:-} "$dir/bench/zptg_bench" --out "$dir/bench/results" "$@"
    plot "$dir/bench/results"
}

if wants i386; then
    probe=$(mktemp -d)
    printf 'int main(void) { return 0; }\n' > "$probe/probe.c"
    gcc -m32 "$probe/probe.c" -o "$probe/probe"
    if "$probe/probe" >/dev/null 2>&1; then
        rm -rf "$probe"
        run i386 "$@"
    else
        rm -rf "$probe"
        echo "this machine cannot run 32-bit programs natively: the 32-bit build is built but not timed (no timings under an emulator)"
        # Accuracy is no timing: the 32-bit (x87) numbers come from qemu-i386.
        bench_install qemu-user
        ZPTG_EMULATOR="$(command -v qemu-i386) -L /" run i386 --only accuracy
    fi
fi
if wants native; then run native "$@"; fi
