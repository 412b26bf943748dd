// Rader's form for a prime p, L = p - 1, g a primitive root modulo p, C the
// spectrum of rader_spectrum.h:
//
//   u[m] = x[g^m mod p]                          (x[0] takes no part)
//   A = DFT_L(u) with z = exp(-2 pi i / L)       first half
//   X[0] = A[0] + x[0]
//   B[0] = x[0] - A[0] / L, B[k] = C[k] A[k]
//   v = the unscaled inverse DFT_L of B          second half
//   X[g^(-q) mod p] = v[q]
//
// The first half is the real forward transform of length L of the real
// parts of u and the same of the imaginary parts. So no A[k] is ever a
// complete value: for a pair k, L - k (0 < k < L/2) there are, for each
// part, the cosine sum M and the sine sum T with A[k] = M - i T and
// A[L-k] = M + i T. With C[k] = alpha + i beta and C[L-k] = e conj(C[k]),
// e = (-1)^k, the second half needs of the pair only
//
//   P = B[k] + B[L-k] and Q = B[k] - B[L-k], which are, with
//   U = 2 alpha M + 2 beta T and V = 2 beta M - 2 alpha T (on each part),
//   e = +1:  P = U,   Q = i V
//   e = -1:  P = i V, Q = U
//
// four real two-term sums per pair: one rotation per pair and part, eight
// products. The second half is then the real inverse transform of length L
// of the real parts of v and the same of the imaginary parts, which take
// Re P, Im Q resp. Im P, -Re Q as their doubled cosine and sine terms (the
// 2 of 2 Re C, 2 Im C is that doubling), B[0] as their first term and
// B[L/2] = C[L/2] A[L/2] as their last (C[L/2] imaginary for p = 3 mod 4,
// which swaps the parts). Where the second half multiplies one of the
// rotation's sums by a constant of its own (the sine factor of a 3-point
// stage), that constant goes into the rotation's two products.
//
// The inverse is the forward transform read at -k: X_inv[k] = X[p - k]. So
// both directions make the same operations with the same constants.
//
// Which of the form's differences are taken the other way round (B[0], the
// rotations' sums and differences) is the row's orientation
// (rules/orientation.h); its fields of the real stages hold for the rows of
// the two halves (rules/oriented_rows.h).
#include "rules/oriented_rows.h"
#include "rules/rader_spectrum.h"
#include "rules/real.h"
#include "rules/transform.h"

namespace zptg::gen {
namespace {

CVec forward_rader(const ComplexOps& ops, const Rule& rule, const CVec& x)
{
    Graph& g = ops.graph();
    const int p = rule.n, l = p - 1, root = rule.root;
    const Orientation& o = rule.orientation;
    const RealRule& first =
        oriented_rows(rule.first_half ? *rule.first_half : real_forward_rule(l), false, o);
    const RealRule& second =
        oriented_rows(rule.second_half ? *rule.second_half : real_inverse_rule(l), true, o);

    RVec ure(l), uim(l);
    for (int m = 0; m < l; ++m) {
        const Cplx& v = x[power_mod(root, m, p)];
        ure[m] = v.re;
        uim[m] = v.im;
    }
    const HalfSpectrum are = real_forward(g, first, ure);
    const HalfSpectrum aim = real_forward(g, first, uim);
    const Cplx a0{are[0].re, aim[0].re};

    CVec X(p);
    X[0] = ops.add(a0, x[0]);
    Cplx b0 = ops.sub(x[0], ops.scale(1.0L / l, a0));
    b0 = ops.oriented(b0, o.start);
    HalfSpectrum vre(l / 2 + 1), vim(l / 2 + 1);
    vre[0] = {b0.re, Real{}};
    vim[0] = {b0.im, Real{}};
    for (int k = 1; k < l / 2; ++k) {
        const auto c = rader_spectrum(p, root, k, Dir::Forward, 1);
        const long double alpha2 = 2 * c.real(), beta2 = 2 * c.imag();
        // U and V of one part, from A_part[k] = M - i T.
        auto rotation = [&](const Cplx& a, Real* u, Real* v) {
            const Real m = a.re, t = -a.im;
            // The products in a fixed order, each sum's second term first.
            const Real beta_t = g.mul(beta2, t);
            const Real alpha_m = g.mul(alpha2, m);
            *u = g.add(alpha_m, beta_t);
            const Real alpha_t = g.mul(-alpha2, t);
            const Real beta_m = g.mul(beta2, m);
            *v = g.add(beta_m, alpha_t);
            *u = g.oriented(*u, o.rotation_sums);
            *v = g.oriented(*v, o.rotation_differences);
        };
        Real ure_k, vre_k, uim_k, vim_k;
        rotation(are[k], &ure_k, &vre_k);
        rotation(aim[k], &uim_k, &vim_k);
        if (k % 2 == 0) {
            vre[k] = {ure_k, vre_k};
            vim[k] = {uim_k, vim_k};
        } else {
            vre[k] = {-vim_k, uim_k};
            vim[k] = {vre_k, -ure_k};
        }
    }
    {
        const auto c = rader_spectrum(p, root, l / 2, Dir::Forward, 1);
        const Cplx half = ops.rotate({are[l / 2].re, aim[l / 2].re}, c.real(), c.imag());
        vre[l / 2] = {half.re, Real{}};
        vim[l / 2] = {half.im, Real{}};
    }
    const RVec outre = real_inverse(g, second, vre);
    const RVec outim = real_inverse(g, second, vim);
    const int g_inv = power_mod(root, l - 1, p);
    for (int q = 0; q < l; ++q) X[power_mod(g_inv, q, p)] = {outre[q], outim[q]};
    return X;
}

}  // namespace

CVec rader_form(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir)
{
    const int p = rule.n;
    const CVec y = forward_rader(ops, rule, x);
    if (dir == Dir::Forward) return y;
    CVec out(p);
    for (int k = 0; k < p; ++k) out[k] = y[(p - k) % p];
    return out;
}

}  // namespace zptg::gen
