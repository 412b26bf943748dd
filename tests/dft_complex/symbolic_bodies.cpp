// The table of Symbol bodies, put together from the parts.
#include "dft_complex/symbolic_bodies.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace zptg::test {
namespace {

template <int... Parts>
SymbolicBodies collect(std::integer_sequence<int, Parts...>)
{
    SymbolicBodies bodies;
    (add_symbolic_bodies<Parts>(bodies), ...);
    return bodies;
}

}  // namespace

SymbolicBody symbolic_body(int n, Dir d)
{
    static const SymbolicBodies bodies = collect(std::make_integer_sequence<int, kBodyParts>());
    if (n < kMinLength || n > kMaxLength) return nullptr;
    return d == Dir::Forward ? bodies.forward[n] : bodies.inverse[n];
}

Tape record(int n, Dir d)
{
    const SymbolicBody body = symbolic_body(n, d);
    if (body == nullptr) throw std::logic_error("no body of length " + std::to_string(n));
    return record(body);
}

}  // namespace zptg::test
