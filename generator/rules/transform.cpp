#include "rules/transform.h"

#include <numeric>
#include <stdexcept>

namespace zptg::gen {

CVec transform(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir, int power)
{
    if (int(x.size()) != rule.n) throw std::logic_error("rule applied to a sequence of another length");
    power = ((power % rule.n) + rule.n) % rule.n;
    if (std::gcd(power, rule.n) != 1) throw std::logic_error("a transform's power must be a unit");
    CVec plain;
    switch (rule.form) {
    case Form::Direct: plain = direct_form(ops, rule, x, dir); break;
    case Form::GoodThomas: plain = good_thomas_form(ops, rule, x, dir); break;
    case Form::CooleyTukey: plain = cooley_tukey_form(ops, rule, x, dir); break;
    case Form::Rader: plain = rader_form(ops, rule, x, dir); break;
    }
    if (power == 1) return plain;
    // sum over n of x[n] w^(r n k) = X[r k mod N].
    CVec out(rule.n);
    for (int k = 0; k < rule.n; ++k) out[k] = plain[(long long)power * k % rule.n];
    return out;
}

const Rule& stage_rule(const Rule* named, int n) { return named ? *named : complex_stage_rule(n); }

}  // namespace zptg::gen
