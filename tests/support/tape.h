// What a recorded tape says about its body: the operations it counts, the constants it holds, how
// often each slot is read and stored and where reads and stores stand, and the first step outside
// the bodies' contract (a product that is not constant or scale times data, a sum of anything but
// data, a constant that is not a positive magnitude, a scale product used otherwise than by one
// store, as it is or through one sign flip, a value computed for nothing, a slot out of range).
#ifndef ZPTG_TESTS_SUPPORT_TAPE_H
#define ZPTG_TESTS_SUPPORT_TAPE_H

#include <array>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "support/symbolic.h"

namespace zptg::test {

using SymbolicBody = void (*)(const SymbolIn&, const SymbolOut&, Symbol);

inline Tape record(SymbolicBody body)
{
    return record([&](Symbol s) { body(SymbolIn{}, SymbolOut{}, s); });
}

// Table with every part's bodies: add<Part>(table) for Part = 0 .. Parts - 1.
template <class Table, int Parts, class Add>
Table collect_parts(Add add)
{
    Table table;
    [&]<int... P>(std::integer_sequence<int, P...>) { (add.template operator()<P>(table), ...); }(
        std::make_integer_sequence<int, Parts>());
    return table;
}

// Additions, subtractions, products with a constant, distinct constants.
using Counts = std::array<int, 4>;

struct TapeSummary {
    Counts counts{};
    std::set<double> constants;      // distinct values in products
    int held = 0;                    // constants the body declares
    int scale_products = 0, negations = 0, zeros = 0;
    int doublings = 0;               // products of a read by the constant 2
    std::vector<int> reads, stores;  // per slot; stores count literal zeros
    int last_read = -1, first_store = -1;
    std::string fault;               // the first step outside the contract
};

// Slots 0 .. slots - 1.
TapeSummary summarize(const Tape& tape, int slots);

}  // namespace zptg::test

#endif
