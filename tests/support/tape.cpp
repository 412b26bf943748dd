#include "support/tape.h"

#include <stdexcept>

namespace zptg::test {
namespace {

Tape* recording = nullptr;

}  // namespace

Symbol::Symbol(const Step& step)
{
    if (recording == nullptr) throw std::logic_error("a symbol outside a recording");
    recording->push_back(step);
    position_ = int(recording->size()) - 1;
}
Symbol::Symbol(double literal) : Symbol(Step{Op::Constant, -1, -1, -1, literal}) {}

Symbol operator+(Symbol a, Symbol b) { return Symbol(Step{Op::Add, a.position(), b.position()}); }
Symbol operator-(Symbol a, Symbol b) { return Symbol(Step{Op::Sub, a.position(), b.position()}); }
Symbol operator*(Symbol a, Symbol b) { return Symbol(Step{Op::Mul, a.position(), b.position()}); }
Symbol operator-(Symbol a) { return Symbol(Step{Op::Neg, a.position()}); }

Symbol SymbolIn::operator()(int slot) const { return Symbol(Step{Op::Input, -1, -1, slot}); }
void SymbolOut::operator()(int slot, Symbol value) const { (void)Symbol(Step{Op::Store, value.position(), -1, slot}); }
void SymbolOut::zero(int slot) const { (void)Symbol(Step{Op::Zero, -1, -1, slot}); }

Tape record(SymbolicBody body)
{
    Tape tape;
    recording = &tape;
    body(SymbolIn{}, SymbolOut{}, Symbol(Step{Op::Scale}));
    recording = nullptr;
    return tape;
}

// One pass classifies every value: data (reads, sums, differences, constant products), constants,
// the scale, scale products and their sign flips (which may only be stored) and stores.
TapeSummary summarize(const Tape& tape, int slots)
{
    enum Kind { Data, Constant, Scale, ScaleProduct, Negated, Stored };
    TapeSummary s;
    s.reads.assign(slots, 0);
    s.stores.assign(slots, 0);
    s.stored.assign(slots, -1);
    std::vector<Kind> kind(tape.size());
    std::vector<int> uses(tape.size(), 0), data(tape.size(), -1);  // data: what a scale product scales
    auto fault = [&](size_t i, const char* what) {
        if (s.fault.empty()) s.fault = "step " + std::to_string(i) + ": " + what;
    };
    for (size_t i = 0; i < tape.size(); ++i) {
        const Step& t = tape[i];
        if (t.a >= 0) ++uses[t.a];
        if (t.b >= 0) ++uses[t.b];
        const bool slot_ok = t.slot >= 0 && t.slot < slots;
        if ((t.op == Op::Input || t.op == Op::Store || t.op == Op::Zero) && !slot_ok) fault(i, "slot out of range");
        switch (t.op) {
        case Op::Input:
            kind[i] = Data;
            s.last_read = int(i);
            if (slot_ok) ++s.reads[t.slot];
            break;
        case Op::Constant:
            kind[i] = Constant;
            ++s.held;
            if (!(t.value > 0)) fault(i, "a constant that is not a positive magnitude");
            break;
        case Op::Scale: kind[i] = Scale; break;
        case Op::Add:
        case Op::Sub:
            kind[i] = Data;
            if (kind[t.a] != Data || kind[t.b] != Data) fault(i, "a sum of something else than data");
            ++s.counts[t.op == Op::Add ? 0 : 1];
            break;
        case Op::Mul: {
            const std::multiset<Kind> k = {kind[t.a], kind[t.b]};
            kind[i] = k == std::multiset<Kind>{Data, Scale} ? ScaleProduct : Data;
            if (kind[i] == ScaleProduct) {
                ++s.scale_products;
                data[i] = kind[t.a] == Data ? t.a : t.b;
            } else if (k == std::multiset<Kind>{Data, Constant}) {
                const int c = kind[t.a] == Constant ? t.a : t.b;
                ++s.counts[2];
                s.constants.insert(tape[c].value);
                s.doublings += tape[c].value == 2 && tape[c == t.a ? t.b : t.a].op == Op::Input;
            } else {
                fault(i, "a product of something else than a constant or the scale with data");
            }
            break;
        }
        case Op::Neg:
            kind[i] = Negated;
            data[i] = data[t.a];
            ++s.negations;
            if (kind[t.a] != ScaleProduct) fault(i, "a sign flip of something else than a scale product");
            break;
        case Op::Store:
        case Op::Zero:
            kind[i] = Stored;
            if (s.first_store < 0) s.first_store = int(i);
            if (slot_ok) ++s.stores[t.slot];
            if (t.op == Op::Zero) ++s.zeros;
            else if (kind[t.a] != ScaleProduct && kind[t.a] != Negated) fault(i, "a store of something else than a scale product");
            else if (slot_ok) s.stored[t.slot] = data[t.a];
            break;
        }
    }
    for (size_t i = 0; i < tape.size(); ++i) {
        if ((kind[i] == ScaleProduct || kind[i] == Negated) && uses[i] != 1) fault(i, "a scale product used otherwise than by one store");
        if ((kind[i] == Data || kind[i] == Constant) && uses[i] == 0) fault(i, "computed for nothing");
    }
    s.counts[3] = int(s.constants.size());
    return s;
}

}  // namespace zptg::test
