#include "rules/transform.h"

#include <stdexcept>

namespace zptg::gen {

CVec transform(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir)
{
    if (int(x.size()) != rule.n) throw std::logic_error("rule applied to a sequence of another length");
    switch (rule.form) {
    case Form::Direct: return direct_form(ops, x, dir);
    case Form::GoodThomas: return good_thomas_form(ops, rule, x, dir);
    case Form::CooleyTukey: return cooley_tukey_form(ops, rule, x, dir);
    case Form::Rader: return rader_form(ops, rule, x, dir);
    }
    throw std::logic_error("unknown form");
}

CVec transform(const ComplexOps& ops, const CVec& x, Dir dir)
{
    return transform(ops, complex_rule(int(x.size())), x, dir);
}

}  // namespace zptg::gen
