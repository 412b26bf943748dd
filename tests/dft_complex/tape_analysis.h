// What a recorded tape says about its body: the operations it counts, the
// constants it holds, how often each slot is read and stored and where the
// reads and stores stand, and every step outside the bodies' contract
// (a product that is not constant times value, a sum with a constant in it,
// a store of anything but the scale product or its negation, a negation of
// anything else, a value computed for nothing).
#ifndef ZPTG_TESTS_DFT_COMPLEX_TAPE_ANALYSIS_H
#define ZPTG_TESTS_DFT_COMPLEX_TAPE_ANALYSIS_H

#include <bitset>
#include <set>
#include <string>
#include <vector>

#include "dft_complex/symbolic.h"

namespace zptg::test {

struct TapeSummary {
    int additions = 0;
    int subtractions = 0;
    int products = 0;        // constant times value
    int scale_products = 0;  // scale times value
    int negations = 0;       // sign flips of scale products, not operations of the body
    int zeros = 0;           // literal zeros stored
    std::set<double> constants;  // distinct values used in products
    int constants_held = 0;      // constants the body declares
    std::vector<int> reads;   // per slot
    std::vector<int> stores;  // per slot, values and literal zeros
    int last_read = -1;       // tape positions
    int first_store = -1;
    std::vector<std::string> faults;
};

// n is the length: slots 0 .. 2n - 1.
TapeSummary summarize(const Tape& tape, int n);

// The set of input slots whose plain sum a value is, for every tape
// position: a read is its own slot, a sum of two such values with no slot
// in common is their union; every other value has no set (none()).
std::vector<std::bitset<128>> plain_sums(const Tape& tape);

}  // namespace zptg::test

#endif
