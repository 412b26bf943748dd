#include "rules/transform.h"

#include <numeric>
#include <stdexcept>

namespace zptg::gen {

CVec transform(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir, int power)
{
    if (int(x.size()) != rule.n) throw std::logic_error("rule applied to a sequence of another length");
    power = ((power % rule.n) + rule.n) % rule.n;
    if (std::gcd(power, rule.n) != 1) throw std::logic_error("a transform's power must be a unit");
    switch (rule.form) {
    case Form::Direct: return direct_form(ops, x, dir, power);
    case Form::GoodThomas: return good_thomas_form(ops, rule, x, dir, power);
    case Form::CooleyTukey: return cooley_tukey_form(ops, rule, x, dir, power);
    case Form::Rader: return rader_form(ops, rule, x, dir, power);
    }
    throw std::logic_error("unknown form");
}

CVec transform(const ComplexOps& ops, const CVec& x, Dir dir, int power)
{
    return transform(ops, complex_rule(int(x.size())), x, dir, power);
}

}  // namespace zptg::gen
