// Rader's form for a prime p, L = p - 1, g a primitive root modulo p:
//
//   u[m] = x[g^m mod p]                          (x[0] takes no part)
//   A = DFT_L(u), with z = exp(-2 pi i / L)      first half, always forward
//   X[0] = A[0] + x[0]
//   B[0] = x[0] - A[0] / L, B[k] = C[k] A[k]
//   v = the unscaled inverse DFT_L of B          second half
//   X[g^(-q) mod p] = v[q]
//
// with the spectrum C[k] = (1/L) sum_t w^(g^t) z^(-t k), w = exp(-+2 pi i / p)
// (the normalising 1/L folded in; C[0] = -1/L).
#include <complex>

#include "core/number.h"
#include "rules/transform.h"

namespace zptg::gen {
namespace {

int power_mod(int base, int e, int p)
{
    long long r = 1, b = base % p;
    for (; e > 0; e >>= 1, b = b * b % p)
        if (e & 1) r = r * b % p;
    return int(r);
}

// C[k] of the spectrum of a prime p with root g, for direction dir.
std::complex<long double> spectrum(int p, int g, int k, Dir dir)
{
    const int l = p - 1;
    std::complex<long double> sum = 0;
    for (int t = 0; t < l; ++t) {
        const int e = power_mod(g, t, p);
        const std::complex<long double> w(cos_2pi(e, p), sign_of(dir) * sin_2pi(e, p));
        const std::complex<long double> zk(cos_2pi((long long)t * k, l), sin_2pi((long long)t * k, l));
        sum += w * zk;
    }
    return sum / (long double)l;
}

}  // namespace

CVec rader_form(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir)
{
    const int p = rule.n, l = p - 1, g = rule.root;
    CVec u(l);
    for (int m = 0; m < l; ++m) u[m] = x[power_mod(g, m, p)];
    const CVec a = transform(ops, *rule.cycle_rule, u, Dir::Forward);
    CVec X(p);
    X[0] = ops.add(a[0], x[0]);
    CVec b(l);
    b[0] = ops.sub(x[0], ops.scale(1.0L / l, a[0]));
    for (int k = 1; k < l; ++k) {
        const std::complex<long double> c = spectrum(p, g, k, dir);
        b[k] = ops.rotate(a[k], c.real(), c.imag());
    }
    const CVec v = transform(ops, *rule.cycle_rule, b, Dir::Inverse);
    const int g_inv = power_mod(g, l - 1, p);
    for (int q = 0; q < l; ++q) X[power_mod(g_inv, q, p)] = v[q];
    return X;
}

}  // namespace zptg::gen
