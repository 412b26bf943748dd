# Shared by the build, test and bench scripts: install what the build needs,
# and find out whether this machine runs 32-bit x86 programs natively.

ZPTG_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
ZPTG_JOBS=${ZPTG_JOBS:-$(nproc)}

# zptg_install <package>...: installs the Debian packages that are missing.
zptg_install() {
    local missing=()
    for p in "$@"; do
        dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p")
    done
    if [ ${#missing[@]} -gt 0 ]; then
        echo "installing: ${missing[*]}"
        local sudo=""
        [ "$(id -u)" -eq 0 ] || sudo="sudo"
        $sudo apt-get update -qq || echo "apt-get update reported a problem; installing from the lists at hand"
        DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}" >/dev/null
    fi
}

zptg_install_build_deps() {
    zptg_install cmake make g++ g++-multilib googletest binutils pkgconf doxygen
}

# Sets ZPTG_EMULATOR to "" where 32-bit programs run natively, or to the
# qemu-i386 path (installing qemu-user) where the kernel refuses them.
# ZPTG_FORCE_EMULATOR=1 takes the emulator path anyway, to try it out on a
# machine that does run them.
zptg_probe_i386() {
    local dir
    dir=$(mktemp -d)
    printf 'int main(void) { return 0; }\n' > "$dir/probe.c"
    gcc -m32 "$dir/probe.c" -o "$dir/probe"
    if [ "${ZPTG_FORCE_EMULATOR:-0}" != 1 ] && "$dir/probe" >/dev/null 2>&1; then
        ZPTG_EMULATOR=""
        echo "32-bit programs run natively here"
    else
        zptg_install qemu-user
        ZPTG_EMULATOR=$(command -v qemu-i386)
        echo "this machine cannot run 32-bit programs: running them under $ZPTG_EMULATOR"
    fi
    rm -rf "$dir"
}

# zptg_configure <build dir> <cmake args>...: configures a build tree of
# this source tree, or of the one in ZPTG_SOURCE.
zptg_configure() {
    local dir=$1
    shift
    cmake -S "${ZPTG_SOURCE:-$ZPTG_ROOT}" -B "$dir" "$@" >/dev/null
}

# zptg_configure_bench <build dir> <i386|native>: a benchmark build tree
# (scripts/bench.sh, and the variants that scripts/ab.sh times against it).
zptg_configure_bench() {
    zptg_configure "$1" -DZPTG_TARGET="$2" -DZPTG_TESTS=OFF -DZPTG_BENCH=ON
}
