// The tape that Symbol's operations append to while a body is recorded.
#include "dft_complex/symbolic.h"

#include <stdexcept>
#include <string>

namespace zptg::test {
namespace {

Tape* recording = nullptr;

}  // namespace

class SymbolAccess {
public:
    static Symbol append(const Step& s)
    {
        if (recording == nullptr) throw std::logic_error("a symbol outside a recording");
        recording->push_back(s);
        return Symbol(int(recording->size()) - 1, 0);
    }
};

Symbol::Symbol(double literal) : position_(SymbolAccess::append({Op::Constant, -1, -1, -1, literal}).position_) {}

Symbol Symbol::scale() { return SymbolAccess::append({Op::Scale}); }

Symbol operator+(Symbol a, Symbol b) { return SymbolAccess::append({Op::Add, a.position(), b.position()}); }
Symbol operator-(Symbol a, Symbol b) { return SymbolAccess::append({Op::Sub, a.position(), b.position()}); }
Symbol operator*(Symbol a, Symbol b) { return SymbolAccess::append({Op::Mul, a.position(), b.position()}); }
Symbol operator-(Symbol a) { return SymbolAccess::append({Op::Neg, a.position()}); }

Symbol SymbolIn::operator()(int slot) const { return SymbolAccess::append({Op::Input, -1, -1, slot}); }

void SymbolOut::operator()(int slot, Symbol value) const
{
    SymbolAccess::append({Op::Store, value.position(), -1, slot});
}

void SymbolOut::zero(int slot) const { SymbolAccess::append({Op::Zero, -1, -1, slot}); }

Tape record(SymbolicBody body)
{
    if (body == nullptr) throw std::logic_error("no such body");
    Tape tape;
    recording = &tape;
    const Symbol s = Symbol::scale();
    body(SymbolIn{}, SymbolOut{}, s);
    recording = nullptr;
    return tape;
}

}  // namespace zptg::test
