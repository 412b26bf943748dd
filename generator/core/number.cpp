#include "core/number.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace zptg::gen {
namespace {

constexpr long double kPi = 3.141592653589793238462643383279502884L;

// (cos, sin) of 2 pi num / den via the octant of the angle.
void cos_sin_2pi(long long num, long long den, long double* c, long double* s)
{
    long long r = num % den;
    if (r < 0) r += den;
    const long long r8 = 8 * r;
    const long long octant = r8 / den;
    const long long rest = r8 % den;  // angle within the octant: (pi/4) rest/den
    // For odd octants measure the angle back from the octant's upper end.
    const long double a = (octant % 2 == 0) ? kPi / 4 * rest / den : kPi / 4 * (den - rest) / den;
    const long double ca = std::cos(a);
    const long double sa = std::sin(a);
    // First-quadrant pair (x, y) = (cos, sin) of the reduced angle.
    long double x = 0, y = 0;
    switch (octant) {
    case 0: x = ca; y = sa; break;   // a
    case 1: x = sa; y = ca; break;   // pi/2 - a
    case 2: x = -sa; y = ca; break;  // pi/2 + a
    case 3: x = -ca; y = sa; break;  // pi - a
    case 4: x = -ca; y = -sa; break; // pi + a
    case 5: x = -sa; y = -ca; break; // 3pi/2 - a
    case 6: x = sa; y = -ca; break;  // 3pi/2 + a
    default: x = ca; y = -sa; break; // 2pi - a
    }
    *c = x;
    *s = y;
}

}  // namespace

long double cos_2pi(long long num, long long den)
{
    long double c, s;
    cos_sin_2pi(num, den, &c, &s);
    return c;
}

long double sin_2pi(long long num, long long den)
{
    long double c, s;
    cos_sin_2pi(num, den, &c, &s);
    return s;
}

std::string double_literal(double v)
{
    char buf[64];
    for (int digits = 15; digits <= 17; ++digits) {
        std::snprintf(buf, sizeof buf, "%.*g", digits, v);
        if (std::strtod(buf, nullptr) == v) break;
    }
    std::string s(buf);
    if (s.find_first_of(".e") == std::string::npos) s += ".0";
    return s;
}

std::string float_literal(float v)
{
    char buf[64];
    for (int digits = 6; digits <= 9; ++digits) {
        std::snprintf(buf, sizeof buf, "%.*g", digits, double(v));
        if (std::strtof(buf, nullptr) == v) break;
    }
    std::string s(buf);
    if (s.find_first_of(".e") == std::string::npos) s += ".0";
    return s + "f";
}

double inv_n_64(int n) { return 1.0 / double(n); }
double inv_sqrt_n_64(int n)
{
    volatile double root = std::sqrt(double(n));  // rounded to 64 bits
    return 1.0 / root;
}
float inv_n_32(int n) { return float(1.0L / n); }
float inv_sqrt_n_32(int n) { return float(1.0L / std::sqrt((long double)n)); }

}  // namespace zptg::gen
