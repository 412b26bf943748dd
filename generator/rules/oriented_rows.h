// The rows of the real stages inside a Rader form's halves. A Rader row
// names, in its orientation, how the real stages of its halves take their
// differences (rules/orientation.h); those stages are rows of their own,
// made here once from the tables: the rule tree of a half, every row of it
// (the table rows its forms would take by default included) copied with
// those fields set. So a stage reads its own row only, and the table rows,
// which are the real kernels', stay as they are.
#ifndef ZPTG_GEN_RULES_ORIENTED_ROWS_H
#define ZPTG_GEN_RULES_ORIENTED_ROWS_H

#include "rules/orientation.h"
#include "rules/real.h"

namespace zptg::gen {

// The tree of `rule`, run as a forward transform or (inverse) an inverse
// one, with the stage fields of `stages` set on every row. The rule itself
// where there is nothing to set. Rows live as long as the program.
const RealRule& oriented_rows(const RealRule& rule, bool inverse, const Orientation& stages);

}  // namespace zptg::gen

#endif
