#!/usr/bin/env python3
# Writes compute_constants.h: the literal multipliers of the DCT-IV bodies,
# cos(pi a / 128) for a = 0 .. 128 and the two lifting slopes of length 4,
# each rounded once, from 60 exact digits, to the nearest double and to the
# nearest float. Run it from this folder; its output is committed.
import mpmath

mpmath.mp.dps = 60


def nearest(value, bits):
    """The value rounded to nearest with a mantissa of `bits` bits."""
    with mpmath.workprec(bits):
        rounded = +value
    return rounded


def literal(value, bits):
    exact = nearest(value, bits)
    # %.17g of an exactly representable value names that value.
    text = mpmath.nstr(exact, 17, strip_zeros=False, min_fixed=-5, max_fixed=1)
    if "e" not in text and "." not in text:
        text += ".0"
    return text + ("f" if bits == 24 else "")


def table(name, ctype, bits, values):
    lines = [f"constexpr {ctype} {name}[{len(values)}] = {{"]
    for i in range(0, len(values), 3):
        chunk = ", ".join(literal(v, bits) for v in values[i:i + 3])
        lines.append(f"    {chunk},")
    lines.append("};")
    return "\n".join(lines)


cosines = [mpmath.cospi(mpmath.mpf(a) / 128) for a in range(129)]
slopes = [mpmath.tan(7 * mpmath.pi / 32), mpmath.tan(5 * mpmath.pi / 32)]

header = f"""// Written by compute_constants_gen.py; do not edit.
//
// The literal multipliers of the DCT-IV bodies, in both element widths.
// kCos128[a] is cos(pi a / 128), a = 0 .. 128, the nearest value of the
// width; a rotation by pi a / 128 takes its sine as kCos128[|64 - a|].
// kLift4 holds tan(7 pi / 32) and tan(5 pi / 32), the slopes of the two
// lifting rotations of length 4.
#ifndef ZPTG_DCT4_COMPUTE_CONSTANTS_H
#define ZPTG_DCT4_COMPUTE_CONSTANTS_H

namespace zptg::dct4 {{

{table("kCos128_64f", "double", 53, cosines)}

{table("kCos128_32f", "float", 24, cosines)}

{table("kLift4_64f", "double", 53, slopes)}

{table("kLift4_32f", "float", 24, slopes)}

}}  // namespace zptg::dct4

#endif
"""

with open("compute_constants.h", "w") as f:
    f.write(header)
