#include "rules/transform.h"

#include <numeric>
#include <stdexcept>

namespace zptg::gen {

CVec transform(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir, int power)
{
    if (int(x.size()) != rule.n) throw std::logic_error("rule applied to a sequence of another length");
    power = ((power % rule.n) + rule.n) % rule.n;
    if (std::gcd(power, rule.n) != 1) throw std::logic_error("a transform's power must be a unit");
    // A transform built inside another one is a stage of it.
    Graph& g = ops.graph();
    const bool as_stage = g.transform_depth > 0;
    const ScopedValue<int> nested(g.transform_depth, g.transform_depth + 1);
    // Only a direct form can run as the second stage of a Cooley-Tukey
    // form with its pair differences reversed; a composite form sets this
    // for its own stages.
    const ComplexOps inner = ops.with_pair_differences_reversed(false);
    CVec plain;
    switch (rule.form) {
    case Form::Direct: plain = direct_form(ops, x, dir); break;
    case Form::GoodThomas: plain = good_thomas_form(inner, rule, x, dir); break;
    case Form::CooleyTukey: plain = cooley_tukey_form(inner, rule, x, dir, as_stage); break;
    case Form::Rader: plain = rader_form(inner, rule, x, dir, as_stage); break;
    }
    if (power == 1) return plain;
    // sum over n of x[n] w^(r n k) = X[r k mod N].
    CVec out(rule.n);
    for (int k = 0; k < rule.n; ++k) out[k] = plain[(long long)power * k % rule.n];
    return out;
}

CVec transform(const ComplexOps& ops, const CVec& x, Dir dir, int power)
{
    return transform(ops, complex_rule(int(x.size())), x, dir, power);
}

}  // namespace zptg::gen
