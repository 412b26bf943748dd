// Which way round a form takes its differences: one record on every rule
// row, complex and real, in the tables.
//
// A difference a - b can be made as the node a - b or as the node b - a
// carried with a negative sign (core/graph.h): the value is the same, but
// the sign decides whether each later sum that uses it is an addition or a
// subtraction. So these choices fix how a form's sums split into additions
// and subtractions and with which signs its outputs come, and nothing else:
// no value and no count of operations changes. Every field is off in a
// plain row; a form reads the record of its own row only, so what a stage
// makes depends on its row and its inputs alone. A length that is taken
// one way as a kernel and another way inside a larger kernel has one row
// for each use.
#ifndef ZPTG_GEN_RULES_ORIENTATION_H
#define ZPTG_GEN_RULES_ORIENTATION_H

namespace zptg::gen {

// Which twiddles of a complex Cooley-Tukey form are made as the negated
// turn by their angle less a half turn (rules/cooley_tukey.cpp).
enum class NegatedTurns {
    None,             // every twiddle as its signs fall
    PastHalfTurn,     // angles past pi
    PastQuarterTurn,  // angles past pi/2
};

struct Orientation {
    // Conjugate-pair forms (the complex direct forms of 3, 5 and 7, the
    // real forward direct forms): the pair differences d[j], taken as
    // x[p-j] - x[j]. Real forward direct forms: the cosine sums m[k] and
    // the sine sums t[k].
    bool pair_differences = false;
    bool cosine_sums = false;
    bool sine_sums = false;
    // Real Good-Thomas forms: the outputs of the complex rows and of the
    // real rows, of the forward form and of the inverse one.
    bool forward_complex_rows = false;
    bool forward_real_rows = false;
    bool inverse_complex_rows = false;
    bool inverse_real_rows = false;
    // Complex Cooley-Tukey forms: the twiddles made as negated turns.
    NegatedTurns negated_turns = NegatedTurns::None;
    // Rader forms, complex and real: the start B[0] = x[0] - A[0]/L, the
    // sum and the difference of each spectrum rotation, and (real forward)
    // the outputs of its two inverse halves.
    bool start = false;
    bool rotation_sums = false;
    bool rotation_differences = false;
    bool half_outputs = false;
    // On a Rader row, the fields of the conjugate-pair and Good-Thomas forms
    // above hold for every real stage of its two halves, at any depth
    // (rules/oriented_rows.h).

    friend bool operator==(const Orientation&, const Orientation&) = default;
};

// The fields of `o` that a Rader row hands to the real stages of its halves.
constexpr Orientation stage_fields(const Orientation& o)
{
    Orientation s;
    s.pair_differences = o.pair_differences;
    s.cosine_sums = o.cosine_sums;
    s.sine_sums = o.sine_sums;
    s.forward_complex_rows = o.forward_complex_rows;
    s.forward_real_rows = o.forward_real_rows;
    s.inverse_complex_rows = o.inverse_complex_rows;
    s.inverse_real_rows = o.inverse_real_rows;
    return s;
}

}  // namespace zptg::gen

#endif
