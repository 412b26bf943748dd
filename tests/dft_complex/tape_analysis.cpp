// One pass over the tape classifies every position by kind, then counts and
// checks each step against the kinds of its operands.
#include "dft_complex/tape_analysis.h"

namespace zptg::test {
namespace {

// Data values are reads and the results of sums, differences and constant
// products; the scale and the constants are not data, and a scale product
// may only be stored, as it is or negated.
enum class Kind { Data, Constant, Scale, ScaleProduct, NegatedScaleProduct, Stored };

std::string where(int position, const Step& s)
{
    static const char* const names[] = {"read", "constant", "scale", "sum", "difference",
                                        "product", "negation", "store", "zero store"};
    return std::string(names[int(s.op)]) + " at step " + std::to_string(position);
}

}  // namespace

TapeSummary summarize(const Tape& tape, int n)
{
    TapeSummary sum;
    sum.reads.assign(2 * n, 0);
    sum.stores.assign(2 * n, 0);
    std::vector<Kind> kind(tape.size());
    std::vector<int> uses(tape.size(), 0);
    std::vector<bool> stored(tape.size(), false);
    auto fault = [&](int i, const std::string& what) {
        sum.faults.push_back(where(i, tape[i]) + ": " + what);
    };
    for (int i = 0; i < int(tape.size()); ++i) {
        const Step& s = tape[i];
        if (s.a >= 0) ++uses[s.a];
        if (s.b >= 0) ++uses[s.b];
        switch (s.op) {
        case Op::Input:
            kind[i] = Kind::Data;
            sum.last_read = i;
            if (s.slot < 0 || s.slot >= 2 * n) fault(i, "slot out of range");
            else ++sum.reads[s.slot];
            break;
        case Op::Constant:
            kind[i] = Kind::Constant;
            ++sum.constants_held;
            if (!(s.value > 0)) fault(i, "a constant that is not a positive magnitude");
            break;
        case Op::Scale: kind[i] = Kind::Scale; break;
        case Op::Add:
        case Op::Sub:
            kind[i] = Kind::Data;
            if (kind[s.a] != Kind::Data || kind[s.b] != Kind::Data)
                fault(i, "an operand that is not a data value");
            ++(s.op == Op::Add ? sum.additions : sum.subtractions);
            break;
        case Op::Mul: {
            const Kind ka = kind[s.a], kb = kind[s.b];
            if ((ka == Kind::Constant && kb == Kind::Data) || (ka == Kind::Data && kb == Kind::Constant)) {
                kind[i] = Kind::Data;
                ++sum.products;
                sum.constants.insert(tape[ka == Kind::Constant ? s.a : s.b].value);
            } else if ((ka == Kind::Scale && kb == Kind::Data) || (ka == Kind::Data && kb == Kind::Scale)) {
                kind[i] = Kind::ScaleProduct;
                ++sum.scale_products;
            } else {
                kind[i] = Kind::Data;
                fault(i, "not the product of a constant or the scale with a data value");
            }
            break;
        }
        case Op::Neg:
            kind[i] = Kind::NegatedScaleProduct;
            ++sum.negations;
            if (kind[s.a] != Kind::ScaleProduct) fault(i, "negates a value that is not a scale product");
            stored[s.a] = true;  // its one use, checked below
            break;
        case Op::Store:
        case Op::Zero:
            kind[i] = Kind::Stored;
            if (sum.first_store < 0) sum.first_store = i;
            if (s.slot < 0 || s.slot >= 2 * n) fault(i, "slot out of range");
            else ++sum.stores[s.slot];
            if (s.op == Op::Zero) {
                ++sum.zeros;
                break;
            }
            stored[s.a] = true;
            if (kind[s.a] != Kind::ScaleProduct && kind[s.a] != Kind::NegatedScaleProduct)
                fault(i, "stores a value that is not a scale product");
            break;
        }
    }
    for (int i = 0; i < int(tape.size()); ++i) {
        const Kind k = kind[i];
        // A scale product is the last operation on its value: its one use is
        // a store, or a sign flip whose one use is a store.
        if ((k == Kind::ScaleProduct || k == Kind::NegatedScaleProduct) && !(uses[i] == 1 && stored[i]))
            fault(i, "a scale product used otherwise than by one store");
        if ((k == Kind::Data || k == Kind::Constant) && uses[i] == 0) fault(i, "computed for nothing");
    }
    return sum;
}

std::vector<std::bitset<128>> plain_sums(const Tape& tape)
{
    std::vector<std::bitset<128>> sets(tape.size());
    for (size_t i = 0; i < tape.size(); ++i) {
        const Step& s = tape[i];
        if (s.op == Op::Input) {
            sets[i].set(size_t(s.slot));
        } else if (s.op == Op::Add) {
            const std::bitset<128>& a = sets[s.a];
            const std::bitset<128>& b = sets[s.b];
            if (a.any() && b.any() && (a & b).none()) sets[i] = a | b;
        }
    }
    return sets;
}

}  // namespace zptg::test
