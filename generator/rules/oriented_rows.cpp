#include "rules/oriented_rows.h"

#include <deque>

namespace zptg::gen {
namespace {

struct Made {
    const RealRule* rule;
    bool inverse;
    Orientation stages;
    RealRule row;
};

Orientation with_stages(Orientation o, const Orientation& s)
{
    o.pair_differences |= s.pair_differences;
    o.cosine_sums |= s.cosine_sums;
    o.sine_sums |= s.sine_sums;
    o.forward_complex_rows |= s.forward_complex_rows;
    o.forward_real_rows |= s.forward_real_rows;
    o.inverse_complex_rows |= s.inverse_complex_rows;
    o.inverse_real_rows |= s.inverse_real_rows;
    return o;
}

}  // namespace

const RealRule& oriented_rows(const RealRule& rule, bool inverse, const Orientation& stages)
{
    const Orientation s = stage_fields(stages);
    if (s == Orientation{}) return rule;
    static std::deque<Made> made;  // the generator's own rows, built once each
    for (const Made& m : made)
        if (m.rule == &rule && m.inverse == inverse && m.stages == s) return m.row;

    RealRule row = rule;
    row.orientation = with_stages(rule.orientation, s);
    auto table = inverse ? real_inverse_rule : real_forward_rule;
    switch (rule.form) {
    case RealForm::Direct: break;
    case RealForm::GoodThomas:
    case RealForm::CooleyTukey:
        row.a_rule = &oriented_rows(rule.a_rule ? *rule.a_rule : table(rule.a), inverse, s);
        row.b_rule = &oriented_rows(rule.b_rule ? *rule.b_rule : table(rule.b), inverse, s);
        break;
    case RealForm::Rader:
        row.first = &oriented_rows(rule.first ? *rule.first : real_forward_rule(rule.n - 1), false, s);
        row.second = &oriented_rows(rule.second ? *rule.second : real_inverse_rule(rule.n - 1), true, s);
        break;
    }
    made.push_back({&rule, inverse, s, row});
    return made.back().row;
}

}  // namespace zptg::gen
