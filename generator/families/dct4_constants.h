// The literal multipliers of the DCT-IV compute bodies: cos(pi a / 128) for
// a = 0 .. 128 and the two lifting slopes of the length-4 body, tan(7 pi / 32)
// and tan(5 pi / 32), each rounded once to the nearest double and to the
// nearest float. They are written as one header, dct4/compute_constants.h.
#ifndef ZPTG_GEN_FAMILIES_DCT4_CONSTANTS_H
#define ZPTG_GEN_FAMILIES_DCT4_CONSTANTS_H

#include <string>

namespace zptg::gen {

// cos(pi a / 128), 0 <= a <= 128, and tan(pi (2 i + 5) / 32) for i = 1, 0,
// in long double (the values then rounded to the element widths).
long double dct4_cos128(int a);
long double dct4_lift4(int i);

// The header's text; `command` is the generator's command line, recorded in it.
std::string dct4_constants_header(const std::string& command);

// Writes dct4/compute_constants.h below `dir`.
void write_dct4_constants(const std::string& dir, const std::string& command);

}  // namespace zptg::gen

#endif
