#include "rules/rader_spectrum.h"

#include "core/number.h"

namespace zptg::gen {

int power_mod(int base, long long e, int p)
{
    long long r = 1, b = ((base % p) + p) % p;
    for (; e > 0; e >>= 1, b = b * b % p)
        if (e & 1) r = r * b % p;
    return int(r);
}

std::complex<long double> rader_spectrum(int p, int g, int k, Dir dir, int power)
{
    const int l = p - 1;
    std::complex<long double> sum = 0;
    for (int t = 0; t < l; ++t) {
        const long long e = (long long)power * power_mod(g, t, p);
        const std::complex<long double> w(cos_2pi(e, p), sign_of(dir) * sin_2pi(e, p));
        const std::complex<long double> z(cos_2pi((long long)t * k, l), sin_2pi((long long)t * k, l));
        sum += w * z;
    }
    return sum / (long double)l;
}

}  // namespace zptg::gen
