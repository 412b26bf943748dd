#!/usr/bin/env python3
"""Plants known faults, one at a time, in a scratch copy of the tree and
records which tests fail on each: the test suite must fail on every one.

    scripts/plant_faults.py <scratch tree> <its configured build dir> [fault ...]

The scratch tree is a copy of the sources (never the work tree itself: each
fault is an edit of a source file, undone after its run). Each fault is one
or a few textual replacements in one file; the build is rebuilt and the suite
run with ctest, all of it for a fault in the DCT-IV (unless ZPTG_FAULTS_SHORT
is set); for any other, the DCT-IV's long accuracy tests (minutes under an
emulator) are left out. Prints one line per fault: its name, the file, and
the failed tests.
"""
import os
import re
import subprocess
import sys

# name, file, text, replacement, configuration ("" for any); text and replacement may be tuples
# of as many edits of the one file. In emit.cpp, `planted_body` is the name of the body function
# being written (see PRELUDE).
STORE = '        text_ << "    out(" << p.position << ", ";'
HEADER = r'                << "(const In& in, const Out& out, T s)\n{\n";'
FAULTS = [
    ("wrong constant: a twiddle of forward_16 one unit off", "generator/core/emit.cpp",
     '<< "(" << double_literal(double(g.constants()[n.constant]))',
     '<< "(" << double_literal(name == "forward_16" && constant_name.size() == 2 '
     '? __builtin_nextafter(double(g.constants()[n.constant]), 2.0) : double(g.constants()[n.constant]))', ""),
    # Every output of a DFT depends on every input, so no store of a complex body can come before
    # its last read; a moved read is a read again after the stores, as here: X[0] of the
    # Walsh-Hadamard transform of order 3 summed once more from src after dst is written.
    ("moved read: order 3 of the Walsh-Hadamard transform reads src again after its stores",
     "src/wht/network.h",
     "    detail::store<Stride>(v, out, finish, std::make_index_sequence<P>{});\n}",
     "    detail::store<Stride>(v, out, finish, std::make_index_sequence<P>{});\n"
     "    if constexpr (P == 8 && Stride == 1) {\n"
     "        T sum = in[0];\n"
     "        for (int i = 1; i < P; ++i) sum = sum + in[i];\n"
     "        out[0] = finish(sum);\n"
     "    }\n}", ""),
    ("swapped stores: positions 2 and 4 of forward_20", "generator/core/emit.cpp", STORE,
     '        text_ << "    out(" << (planted_body == "forward_20" && (p.position == 2 || p.position == 4) '
     '? 6 - p.position : p.position) << ", ";', ""),
    ("missing store: position 5 of forward_20", "generator/core/emit.cpp", STORE,
     '        if (planted_body == "forward_20" && p.position == 5) {\n'
     '            text_ << "    (void)" << value << ";\\n";\n'
     '            ++stored_;\n'
     '            return;\n'
     '        }\n' + STORE, ""),
    ("wrong rule choice: length 10 as 5 x 2 instead of 2 x 5", "generator/rules/table.cpp",
     "t[10] = gt(10, 2, 5);", "t[10] = gt(10, 5, 2);", ""),
    ("wrong scale constant: 1/sqrt(7) of 64fc the nearest value", "generator/core/number.cpp",
     "    return 1.0 / root;", "    return n == 7 ? double(1.0L / std::sqrt(7.0L)) : 1.0 / root;", ""),
    ("wrong scale constant: 1/sqrt(2) of the 64f Walsh-Hadamard kernel of order 1", "src/wht/scale.h",
     "static constexpr Bits by_sqrt_n[] = {0x3FE6A09E667F3BCC,",
     "static constexpr Bits by_sqrt_n[] = {0x3FE6A09E667F3BCD,", ""),
    ("blocked path one block short: the last group of the three-pass orders", "src/wht/passes.h",
     "    for (int g = 0; g < n / group; ++g) {", "    for (int g = 0; g < n / group - 1; ++g) {", ""),
    ("blocked path one block short: the root's row blocks (SSE arithmetic only)", "src/dct4/compute_env.cpp",
     "    for (int32_t k0 = 0; k0 < rows; k0 += B) {", "    for (int32_t k0 = 0; k0 + B < rows; k0 += B) {", "native"),
    ("wrong status order: the Walsh-Hadamard flag before dst", "src/wht/scale.h",
     "    if (dst == nullptr) return zptgStatusNullPtr;\n    if (flag == zptgScaleNone) {",
     "    if (dst == nullptr && (flag == 1 || flag == 2 || flag == 4 || flag == 8)) return zptgStatusNullPtr;\n"
     "    if (dst == nullptr) return zptgStatusBadFlag;\n    if (flag == zptgScaleNone) {", ""),
    ("wrong status order: DCT-IV Init tests the buffer after planning", "src/dct4/interface.cpp",
     "    if (pBuffer == nullptr) return zptgStatusNullPtr;\n", "", ""),
    ("write one past the end: the Walsh-Hadamard scratch buffer", "src/wht/blocked.cpp",
     "    blocked_passes<Order>(src, dst, buffer, factor);",
     "    blocked_passes<Order>(src, dst, buffer, factor);\n    buffer[scratch_elements(Order)] = factor;", ""),
    ("DCT-IV size-table entry off by one: the direct rule of 8 at 9", "src/dct4/plan_common.h",
     "    1, 0, 2, 0, 0, 0, 3, 0, 0, 0,", "    1, 0, 2, 0, 0, 0, 0, 3, 0, 0,", ""),
    # The real DFT and Hartley families.
    ("wrong constant: the second constant of the real inverse_pack_20 one unit off", "generator/core/emit.cpp",
     '<< "(" << double_literal(double(g.constants()[n.constant]))',
     '<< "(" << double_literal(name == "inverse_pack_20" && constant_name.size() == 2 '
     '? __builtin_nextafter(double(g.constants()[n.constant]), 2.0) : double(g.constants()[n.constant]))', ""),
    ("CCS zeros stored first: forward_ccs_10 stores Im X[0] and Im X[5] before its reads", "generator/core/emit.cpp",
     (HEADER, "    body.store_zeros();\n"),
     (HEADER + '\n    if (name == "forward_ccs_10") body.store_zeros();',
      '    if (name != "forward_ccs_10") body.store_zeros();\n'), ""),
    ("inverse kernel loads CCS position 1: inverse_ccs_8 reads Re X[0] from Im X[0]",
     "generator/families/real_family.cpp",
     "    for (int j = 0; j < n; ++j) l.reads.push_back(packed_position(p, n, half_slot(n, j)));",
     "    for (int j = 0; j < n; ++j)\n"
     "        l.reads.push_back(p == Packing::CCS && n == 8 && j == 0 ? 1 : packed_position(p, n, half_slot(n, j)));", ""),
    ("Hartley output sign: H[3] of hartley_16 negated", "generator/core/emit.cpp",
     "        if (p.negated != outputs_[k].neg)",
     '        if (p.negated != (outputs_[k].neg != (planted_body == "hartley_16" && k == 3)))', ""),
    ("wrong rule choice: Hartley length 12 from the real spectrum instead of the pairs",
     "generator/rules/hartley_kernel.cpp",
     "constexpr int kFromSpectrum[] = {8,  9,  16,", "constexpr int kFromSpectrum[] = {8,  9,  12, 16,", ""),
]

# Minutes under an emulator, and blind to faults outside the DCT-IV.
LONG_DCT4_TESTS = "EveryOutputOfPowersOfTwo|LengthsNineTo16385|BlockedRows|ReferencesAgree"

# Helpers some faults need in the file they edit.
PRELUDE = {
    "generator/core/emit.cpp": (
        "class BodyText {",
        "[[maybe_unused]] std::string planted_body;  // planted\n\nclass BodyText {",
        "    BodyText body(g, outputs, layout);",
        "    planted_body = name;\n    BodyText body(g, outputs, layout);"),
}


def failed_tests(log):
    """The tests that ctest's log lists as failed, typed tests with their kind."""
    failed = re.findall(r"^\s*\d+ - (.*) \([^()]*\)\s*$", open(log).read(), re.M)
    failed = [re.sub(r"<\w+/(\w+)\..*>", r" (\1)", f) for f in failed]
    return ", ".join(failed) if failed else "NOT CAUGHT"


def run(cmd, log):
    with open(log, "w") as out:
        return subprocess.call(cmd, stdout=out, stderr=subprocess.STDOUT)


def main():
    tree, build = sys.argv[1], sys.argv[2]
    wanted = sys.argv[3:]
    cache = open(os.path.join(build, "CMakeCache.txt")).read()
    config = re.search(r"^ZPTG_TARGET:\w+=(\w+)", cache, re.M).group(1)
    results = []
    for name, path, text, replacement, only in FAULTS:
        if wanted and not any(w in name for w in wanted):
            continue
        if only and only != config:
            results.append((name, path, "not run: %s configuration only" % only))
            continue
        full = os.path.join(tree, path)
        original = planted = open(full).read()
        edits = [(text, replacement)] if isinstance(text, str) else list(zip(text, replacement))
        if any(original.count(t) != 1 for t, _ in edits):
            results.append((name, path, "NOT PLANTED: the text is not in the file once"))
            print("%s | %s | %s" % results[-1], flush=True)
            continue
        for t, r in edits:
            planted = planted.replace(t, r)
        if path in PRELUDE:
            a, b, c, d = PRELUDE[path]
            planted = planted.replace(a, b, 1).replace(c, d, 1)
        open(full, "w").write(planted)
        try:
            tag = re.sub(r"\W+", "_", name)[:40]
            if run(["cmake", "--build", build, "-j2"], os.path.join(build, "fault_%s.build.log" % tag)):
                results.append((name, path, "BUILD FAILED"))
                print("%s | %s | %s" % results[-1], flush=True)
                continue
            log = os.path.join(build, "fault_%s.test.log" % tag)
            long_too = path.startswith("src/dct4") and not os.environ.get("ZPTG_FAULTS_SHORT")
            skip = [] if long_too else ["-E", LONG_DCT4_TESTS]
            run(["ctest", "--test-dir", build, "-j2", "--timeout", "900"] + skip, log)
            results.append((name, path, failed_tests(log)))
        finally:
            open(full, "w").write(original)
        print("%s | %s | %s" % results[-1], flush=True)
    print("\nfault | file | failed tests")
    for r in results:
        print("%s | %s | %s" % r)


if __name__ == "__main__":
    main()
