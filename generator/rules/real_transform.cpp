// Dispatch of the real transforms by rule, and the helpers the real forms
// share: reading and storing a half spectrum by any index, and the complex
// rows that a real rule runs at a power of the root.
#include <stdexcept>

#include "rules/real.h"
#include "rules/transform.h"

namespace zptg::gen {
namespace {

int reduced(int power, int n)
{
    const int r = ((power % n) + n) % n;
    return r == 0 ? n : r;  // only n = 1 would give 0: a unit is never 0 mod n > 1
}

}  // namespace

HalfSpectrum real_forward(Graph& g, const RealRule& rule, const RVec& x, int power)
{
    if (int(x.size()) != rule.n) throw std::logic_error("real rule applied to another length");
    power = reduced(power, rule.n);
    switch (rule.form) {
    case RealForm::Direct: return real_direct_forward(g, rule, x, power);
    case RealForm::GoodThomas: return real_good_thomas_forward(g, rule, x, power);
    case RealForm::CooleyTukey: return real_cooley_tukey_forward(g, rule, x, power);
    case RealForm::Rader: return real_rader_forward(g, rule, x, power);
    }
    throw std::logic_error("unknown real form");
}

RVec real_inverse(Graph& g, const RealRule& rule, const HalfSpectrum& X, int power)
{
    if (int(X.size()) != rule.n / 2 + 1) throw std::logic_error("real inverse of another length");
    power = reduced(power, rule.n);
    switch (rule.form) {
    case RealForm::Direct: return real_direct_inverse(g, rule.n, X, power);
    case RealForm::GoodThomas: return real_good_thomas_inverse(g, rule, X, power);
    case RealForm::CooleyTukey: return real_cooley_tukey_inverse(g, rule, X, power);
    case RealForm::Rader: return real_rader_inverse(g, rule, X, power);
    }
    throw std::logic_error("unknown real form");
}

HalfSpectrum real_forward_halves(Graph& g, const RealRule& rule, const RVec& plus,
                                 const RVec& minus, int power)
{
    const int n = rule.n;
    if (n % 2 != 0 || int(plus.size()) != n / 2 || int(minus.size()) != n / 2)
        throw std::logic_error("halves of another length");
    power = reduced(power, n);
    switch (rule.form) {
    case RealForm::Direct:
        if (n == 2) return {{plus[0], Real{}}, {minus[0], Real{}}};
        break;
    case RealForm::GoodThomas: return real_good_thomas_forward_halves(g, rule, plus, minus, power);
    case RealForm::CooleyTukey:
        return real_cooley_tukey_forward_halves(g, rule, plus, minus, power);
    case RealForm::Rader: break;
    }
    throw std::logic_error("no form from halves for this rule");
}

// Good-Thomas a x b writes x[(b n1 + a n2) mod n]: with a even the pair is
// (n1, n1 + a/2) of one size-a inverse, else (n2, n2 + b/2) of two cosets.
// Cooley-Tukey a x b writes x[s + b n1]: the pair is (n1, n1 + a/2).
bool real_inverse_keeps(const RealRule& rule, int j)
{
    const int n = rule.n;
    j = ((j % n) + n) % n;
    switch (rule.form) {
    case RealForm::Direct:
        if (n == 2) return j == 0;
        break;
    case RealForm::GoodThomas:
        for (int n1 = 0; n1 < rule.a; ++n1)
            for (int n2 = 0; n2 < rule.b; ++n2) {
                if ((rule.b * n1 + rule.a * n2) % n != j) continue;
                if (rule.a % 2 == 0)
                    return real_inverse_keeps(rule.a_rule ? *rule.a_rule : real_inverse_rule(rule.a), n1);
                return 2 * n2 < rule.b;
            }
        break;
    case RealForm::CooleyTukey:
        if (rule.a % 2 == 0)
            return real_inverse_keeps(rule.a_rule ? *rule.a_rule : real_inverse_rule(rule.a),
                                      j / rule.b);
        break;
    case RealForm::Rader: break;
    }
    throw std::logic_error("no pair of outputs in this inverse rule");
}

std::pair<Real, Real> halves_at(const RVec& plus, const RVec& minus, int q)
{
    const int half = int(plus.size());
    q %= 2 * half;
    if (q < half) return {plus[q], minus[q]};
    return {plus[q - half], -minus[q - half]};
}

Cplx spectrum_at(const HalfSpectrum& X, int n, int k)
{
    k = ((k % n) + n) % n;
    if (2 * k <= n) return X[k];
    const Cplx& v = X[n - k];
    return {v.re, -v.im};
}

void store_spectrum(HalfSpectrum* X, int n, int k, Cplx value)
{
    k = ((k % n) + n) % n;
    if (2 * k <= n)
        (*X)[k] = value;
    else
        (*X)[n - k] = {value.re, -value.im};
}

CVec complex_row(const ComplexOps& ops, const CVec& y, Dir dir, int power)
{
    return transform(ops, complex_stage_rule(int(y.size())), y, dir, power);
}

CVec complex_row_halves(const ComplexOps& ops, const CVec& plus, const CVec& minus, Dir dir,
                        int power)
{
    const int n = 2 * int(plus.size());
    CVec plain(n);
    if (n == 2) {
        plain = {plus[0], minus[0]};
    } else if (n == 4) {
        // The 2 x 2 Cooley-Tukey form after its first butterflies: the
        // difference of the odd pair turned by -+i, then the second ones.
        const Cplx turned = ComplexOps::times_i(minus[1], sign_of(dir));
        plain[0] = ops.add(plus[0], plus[1]);
        plain[2] = ops.sub(plus[0], plus[1]);
        plain[1] = ops.add(minus[0], turned);
        plain[3] = ops.sub(minus[0], turned);
    } else if (const Rule& rule = complex_stage_rule(n);
               rule.form == Form::CooleyTukey && rule.first == 2) {
        // The Cooley-Tukey form 2 x n/2 after its first butterflies: the
        // differences turned by their twiddles, then the rows of n/2.
        const Rule& second = stage_rule(rule.second_rule, n / 2);
        for (int k = 0; k < 2; ++k) {
            CVec row(n / 2);
            for (int r = 0; r < n / 2; ++r)
                row[r] = k == 0 ? plus[r]
                                : twiddle(ops, minus[r], r, n, dir, rule.orientation.negated_turns);
            const CVec v = transform(ops, second, row, dir);
            for (int j = 0; j < n / 2; ++j) plain[k + 2 * j] = v[j];
        }
    } else {
        throw std::logic_error("no complex row from halves of this length");
    }
    CVec out(n);
    for (int k = 0; k < n; ++k) out[k] = plain[(long long)power * k % n];
    return out;
}

}  // namespace zptg::gen
