#!/usr/bin/env bash
# Times a variant of the library against the library that scripts/bench.sh
# built, both in one process (zptg_ab): the variant is this tree with one
# line of one source file replaced, built with the same options in a
# temporary directory.
#
#   bash scripts/ab.sh <i386|native> <file> '<line>' '<new line>' [zptg_ab subjects]
#
# <line> is the line as it stands, without its indentation, and must occur
# exactly once in <file>. The subjects are zptg_ab's (`kernels`, `dct4 lo
# hi`); printed are the variant's times over the library's. For example,
# blocked root rows of the DCT-IV under x87 from 32 KiB:
#
#   bash scripts/ab.sh i386 src/dct4/compute_env.cpp \
#       'constexpr int64_t kBlockedRowsFromBytes = INT64_MAX;' \
#       'constexpr int64_t kBlockedRowsFromBytes = 32768;' dct4 12 20
set -euo pipefail
source "$(dirname "$0")/common.sh"

if [ $# -lt 4 ]; then
    sed -n '2,16p' "$0" | sed 's/^# \{0,1\}//'
    exit 2
fi
configuration=$1 file=$2 line=$3 replacement=$4
shift 4
case $configuration in
i386 | native) ;;
*)
    echo "the configuration is i386 or native, not '$configuration'" >&2
    exit 2
    ;;
esac

root=${ZPTG_BUILD_ROOT:-$ZPTG_ROOT/build}
base=$root/bench-$configuration
ab=$base/bench/zptg_ab
library=$base/src/libzptgenpx.so.6.1
if [ ! -x "$ab" ] || [ ! -f "$library" ]; then
    echo "no benchmark build in $base: run scripts/bench.sh first" >&2
    exit 1
fi
if [ "$configuration" = i386 ]; then
    zptg_probe_i386 >/dev/null
    if [ -n "$ZPTG_EMULATOR" ]; then
        echo "this machine cannot run 32-bit programs natively: no timing under an emulator" >&2
        exit 1
    fi
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# The tracked files as they stand in the working tree, as the library was built.
(cd "$ZPTG_ROOT" && git ls-files -z | tar --null -T - -cf -) | tar -xf - -C "$work" --one-top-level=tree
target=$work/tree/$file
[ -f "$target" ] || { echo "no file $file" >&2; exit 1; }
count=$(awk -v l="$line" '{ s = $0; sub(/^[ \t]+/, "", s) } s == l { n++ } END { print n + 0 }' "$target")
if [ "$count" != 1 ]; then
    echo "the line occurs $count times in $file, not once" >&2
    exit 1
fi
awk -v l="$line" -v r="$replacement" '{
    s = $0; sub(/^[ \t]+/, "", s)
    if (s == l) { match($0, /^[ \t]*/); print substr($0, 1, RLENGTH) r } else print
}' "$target" > "$work/replaced"
mv "$work/replaced" "$target"
echo "=== $configuration: building the variant ($file: $replacement)"
ZPTG_SOURCE=$work/tree zptg_configure_bench "$work/build" "$configuration"
cmake --build "$work/build" -j "$ZPTG_JOBS" --target zptgenpx >/dev/null
echo "=== $configuration: variant / library (uptime: $(uptime | sed 's/.*load/load/'))"
"$ab" "$library" "$work/build/src/libzptgenpx.so.6.1" "$@"
