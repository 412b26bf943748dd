#include "core/emit.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <stdexcept>
#include <tuple>

#include "core/analysis.h"
#include "core/number.h"

namespace zptg::gen {
namespace {

// "x3", "k0", "t12": a value's name in the text.
std::string numbered(char prefix, size_t i)
{
    std::string s(1, prefix);
    s += std::to_string(i);
    return s;
}

// The order in which the operations are written. The compiler keeps the
// order of a straight-line body nearly as written, so the order decides how
// many values are alive at once; a value alive beyond the registers (16 or
// 8 on x86-64 and in 32-bit SSE code, the 8-deep x87 stack) goes to memory
// and back, and every such trip is code. The order is made in two steps:
// the nested order below, and then release_pressure() (further down), which
// follows it while few values are alive and departs from it where too many
// would be.
//
// The nested order: the set of operations is cut by depth (the longest chain
// of operations of the set that ends at a node) into a first and a second
// half; each half falls apart into parts that share no value, and the parts
// are written one after the other, each ordered the same way. For a
// transform this writes each small transform of a stage, and within it each
// butterfly, before the next begins, and leaves the core independent work
// side by side. All of the first half comes before the second, so the order
// is topological; it depends on the graph alone. Where the graph is deep and
// uneven (a Rader body, whose second half needs values that its first half
// makes at very different depths), a cut by depth computes many values long
// before their use, and they pile up.
class NestedOrder {
public:
    NestedOrder(const Graph& g, const std::vector<int>& ops)
        : g_(g), in_set_(g.nodes().size(), 0), depth_(g.nodes().size(), 0), up_(g.nodes().size(), -1)
    {
        if (!ops.empty()) order(ops);
    }
    const std::vector<int>& result() const { return result_; }

private:
    // `set` is in increasing node order, which is topological.
    void order(const std::vector<int>& set)
    {
        if (set.size() == 1) {
            result_.push_back(set[0]);
            return;
        }
        for (int i : set) in_set_[i] = 1;
        int deepest = 0;
        for (int i : set) {
            const Node& n = g_.node(i);
            int d = 0;
            if (n.a >= 0 && in_set_[n.a]) d = std::max(d, depth_[n.a] + 1);
            if (n.b >= 0 && in_set_[n.b]) d = std::max(d, depth_[n.b] + 1);
            depth_[i] = d;
            deepest = std::max(deepest, d);
        }
        for (int i : set) in_set_[i] = 0;
        if (deepest == 0) {
            // No operation of the set needs another: part by part.
            for (const std::vector<int>& p : split(set)) result_.insert(result_.end(), p.begin(), p.end());
            return;
        }
        const int cut = (deepest + 1) / 2;
        std::vector<int> first, second;
        for (int i : set) (depth_[i] < cut ? first : second).push_back(i);
        for (const std::vector<int>& p : split(first)) order(p);
        for (const std::vector<int>& p : split(second)) order(p);
    }

    // The parts of `set`: two operations are in one part when one is an
    // operand of the other or they have an operand in common. Parts in the
    // order of their first node, each in increasing node order.
    std::vector<std::vector<int>> split(const std::vector<int>& set)
    {
        std::vector<int> touched;
        auto find = [&](int i) {
            if (up_[i] < 0) {
                up_[i] = i;
                touched.push_back(i);
            }
            while (up_[i] != i) i = up_[i] = up_[up_[i]];
            return i;
        };
        auto join = [&](int i, int j) { up_[find(i)] = find(j); };
        for (int i : set) {
            const Node& n = g_.node(i);
            find(i);
            if (n.a >= 0) join(n.a, i);
            if (n.b >= 0) join(n.b, i);
        }
        std::map<int, size_t> index;  // representative -> part
        std::vector<std::vector<int>> parts;
        for (int i : set) {
            const auto [it, fresh] = index.emplace(find(i), parts.size());
            if (fresh) parts.emplace_back();
            parts[it->second].push_back(i);
        }
        for (int i : touched) up_[i] = -1;
        return parts;
    }

    const Graph& g_;
    std::vector<char> in_set_;
    std::vector<int> depth_;
    std::vector<int> up_;  // union-find links of split(), -1 outside a call
    std::vector<int> result_;
};

// Values alive at which release_pressure() stops following the nested order:
// the registers of x86-64 code.
constexpr int kCrowded = 16;
// Bodies of this many operations and more come to about 25 KB and more of
// x86-64 code: near or beyond the 32 KiB first-level instruction cache of
// current x86 cores, from where the code of a larger body arrives at about
// 16 bytes per cycle, a third of the rate from the cache, and where a body
// just below the cache's size runs at either speed depending on where it and
// the code around it lie. Such a body is made for the fewest bytes: its order
// goes on with the work at hand rather than leaving independent work side by
// side, and GCC compiles it for size (a tenth fewer bytes; as fast where the
// body stays in the cache, and a tenth faster where it streams). The pragma
// takes effect only where the compiler optimizes: the tests'
// instantiations, built without optimisation, stay as they are.
//
// With x87 arithmetic (the 32-bit build) GCC also schedules such a body
// before it allocates the registers, weighing register pressure: on the
// 8-deep x87 stack its own allocation of the long order spills more than it
// must. All 48 long bodies of the complex, real and Hartley families ran in
// 0.83 to 0.99 of their time (0.92 on geometric mean) on an AMD EPYC of
// family 25, in two whole runs. Not for the short bodies (up to 4 % slower)
// nor for SSE code, where that scheduler undoes the emitted order.
constexpr size_t kLongBody = 2200;
const char* const kForSize = "#if defined(__GNUC__) && !defined(__clang__) && defined(__OPTIMIZE__)\n";
const char* const kLongBodyOptions =
    "#pragma GCC push_options\n#pragma GCC optimize(\"Os\")\n#if !defined(__SSE2_MATH__)\n"
    "#pragma GCC optimize(\"schedule-insns\", \"sched-pressure\")\n#endif\n";

// List scheduling over the nested order. Of the operations whose operands
// are made, the next one is, while fewer than kCrowded values are alive, the
// first in the nested order; with kCrowded or more, the one that adds the
// fewest live values (an operation ends the life of each operand it is the
// last use of and starts its own value's, and a first read of an input used
// again starts the input's), among those the first in the nested order, in
// a long body the one whose operands were made most recently (which goes on
// with the work at hand) and then the first in the nested order. Inputs are
// read at their first use (see emit_body), so an input counts from there.
std::vector<int> release_pressure(const Graph& g, const std::vector<int>& nested)
{
    const size_t nodes = g.nodes().size();
    const bool long_body = nested.size() >= kLongBody;
    std::vector<int> rank(nodes, -1), uses_left(nodes, 0), waiting(nodes, 0), made(nodes, -1);
    std::vector<std::vector<int>> users(nodes);
    for (size_t k = 0; k < nested.size(); ++k) rank[size_t(nested[k])] = int(k);
    // The distinct operands of an operation.
    auto operands = [&](int i) {
        const Node& n = g.node(i);
        std::vector<int> o;
        if (n.a >= 0) o.push_back(n.a);
        if (n.b >= 0 && n.b != n.a) o.push_back(n.b);
        return o;
    };
    for (int i : nested)
        for (int o : operands(i)) {
            ++uses_left[size_t(o)];
            users[size_t(o)].push_back(i);
            if (rank[size_t(o)] >= 0) ++waiting[size_t(i)];
        }
    std::vector<int> ready, order;
    for (int i : nested)
        if (waiting[size_t(i)] == 0) ready.push_back(i);
    int live = 0;
    while (!ready.empty()) {
        size_t best = 0;
        std::tuple<int, int, int> best_key;
        for (size_t r = 0; r < ready.size(); ++r) {
            const int i = ready[r];
            int added = 1, recent = -1;
            for (int o : operands(i)) {
                const bool alive = made[size_t(o)] >= 0;
                if (alive && uses_left[size_t(o)] == 1) --added;
                if (!alive && uses_left[size_t(o)] > 1) ++added;
                recent = std::max(recent, made[size_t(o)]);
            }
            const std::tuple<int, int, int> key =
                live < kCrowded ? std::tuple(0, 0, rank[size_t(i)])
                                : std::tuple(added, long_body ? -recent : 0, rank[size_t(i)]);
            if (r == 0 || key < best_key) {
                best = r;
                best_key = key;
            }
        }
        const int i = ready[best];
        ready.erase(ready.begin() + long(best));
        made[size_t(i)] = int(order.size());
        order.push_back(i);
        if (uses_left[size_t(i)] > 0) ++live;
        for (int o : operands(i)) {
            if (made[size_t(o)] < 0) {  // an input, read here
                made[size_t(o)] = int(order.size()) - 1;
                ++live;
            }
            if (--uses_left[size_t(o)] == 0) --live;
        }
        for (int u : users[size_t(i)])
            if (--waiting[size_t(u)] == 0) ready.push_back(u);
    }
    return order;
}

// The operations that `outputs` need, in the order in which they are written.
std::vector<int> schedule(const Graph& g, const std::vector<Real>& outputs)
{
    std::vector<int> ops;
    for (int i : live_nodes(g, outputs))
        if (g.node(i).op != Op::Input) ops.push_back(i);
    return release_pressure(g, NestedOrder(g, ops).result());
}

// The input that node i is, or -1 for an operation or no node.
int input_of(const Graph& g, int i) { return i >= 0 && g.node(i).op == Op::Input ? g.node(i).input : -1; }

// The text of a body as it is written: inputs read at their first use,
// stores held back until every input has been read, literal zeros last.
class BodyText {
public:
    BodyText(const Graph& g, const std::vector<Real>& outputs, const Layout& layout)
        : g_(g), outputs_(outputs), layout_(layout), read_(size_t(g.input_count()), 0)
    {
        for (const Node& n : g.nodes())
            if (n.op == Op::Input) ++unread_;
    }

    // The position input slot `input` is read from, named x<position>.
    int position(int input) const
    {
        if (size_t(input) >= layout_.reads.size() || layout_.reads[size_t(input)] < 0)
            throw std::logic_error("an input slot with no position in the layout");
        return layout_.reads[size_t(input)];
    }
    // Reads `input` unless it has been read already.
    void read(int input)
    {
        if (read_[size_t(input)]) return;
        read_[size_t(input)] = 1;
        --unread_;
        text_ << "    const T x" << position(input) << " = in(" << position(input) << ");\n";
        if (unread_ == 0) {
            for (const auto& [k, value] : waiting_) write_store(k, value);
            waiting_.clear();
        }
    }
    void read_operands(const Node& n)
    {
        for (int operand : {n.a, n.b})
            if (const int input = input_of(g_, operand); input >= 0) read(input);
    }
    // Output slot k takes `value` times the scale, now or once all is read.
    void store(size_t k, const std::string& value)
    {
        if (unread_ > 0)
            waiting_.emplace_back(k, value);
        else
            write_store(k, value);
    }
    void store_zeros()
    {
        for (int p : layout_.zeros) text_ << "    out.zero(" << p << ");\n";
    }
    std::ostringstream& text() { return text_; }
    size_t stored() const { return stored_; }

private:
    void write_store(size_t k, const std::string& value)
    {
        const Placement& p = layout_.stores[k];
        text_ << "    out(" << p.position << ", ";
        if (p.negated != outputs_[k].neg)
            text_ << "-(s * " << value << "));\n";
        else
            text_ << "s * " << value << ");\n";
        ++stored_;
    }

    const Graph& g_;
    const std::vector<Real>& outputs_;
    const Layout& layout_;
    std::vector<char> read_;
    int unread_ = 0;
    std::vector<std::pair<size_t, std::string>> waiting_;
    size_t stored_ = 0;
    std::ostringstream text_;
};

size_t stores_expected(const std::vector<Real>& outputs)
{
    return size_t(std::count_if(outputs.begin(), outputs.end(), [](const Real& r) { return !r.is_zero(); }));
}

// Every output is stored at one position of its own or is the exact zero
// and not stored; no position is written twice.
void check_layout(const std::vector<Real>& outputs, const Layout& layout, const std::string& name)
{
    if (layout.stores.size() != outputs.size())
        throw std::logic_error(name + ": the layout places another number of outputs");
    std::vector<int> written = layout.zeros;
    for (size_t k = 0; k < outputs.size(); ++k) {
        const int p = layout.stores[k].position;
        if ((p < 0) != outputs[k].is_zero())
            throw std::logic_error(name + ": output slot " + std::to_string(k) +
                                   (p < 0 ? " has a value and no position" : " is zero and stored"));
        if (p >= 0) written.push_back(p);
    }
    std::sort(written.begin(), written.end());
    if (std::adjacent_find(written.begin(), written.end()) != written.end())
        throw std::logic_error(name + ": a position is written twice");
}

}  // namespace

// Each input is read where it is first used, so that the compiler can take
// it straight from memory as an operand instead of holding it in a register
// (or spilling it) from the top; inputs that no operation uses are read
// first. Each output is stored as soon as its value is made and every input
// has been read: all reads come before the first store, so dst may equal src.
std::string emit_body(const Graph& g, const std::vector<Real>& outputs, const std::string& name)
{
    return emit_body(g, outputs, name, identity_layout(g.input_count(), int(outputs.size())));
}

std::string emit_body(const Graph& g, const std::vector<Real>& outputs, const std::string& name,
                      const Layout& layout)
{
    check_layout(outputs, layout, name);
    const std::vector<int> order = schedule(g, outputs);
    std::map<int, std::vector<size_t>> stores;  // node -> the output slots that take it
    for (size_t k = 0; k < outputs.size(); ++k)
        if (!outputs[k].is_zero()) stores[outputs[k].node].push_back(k);

    BodyText body(g, outputs, layout);
    const bool for_size = order.size() >= kLongBody;
    if (for_size)
        body.text() << kForSize << kLongBodyOptions << "#endif\n";
    body.text() << "template <class T, class In, class Out>\n"
                << "inline void " << name
                << "(const In& in, const Out& out, T s)\n{\n";

    std::map<int, std::string> value_name;  // node -> its name in the text
    std::vector<char> used(size_t(g.input_count()), 0);
    for (int i : order)
        for (int operand : {g.node(i).a, g.node(i).b})
            if (const int input = input_of(g, operand); input >= 0) used[size_t(input)] = 1;
    for (size_t i = 0; i < g.nodes().size(); ++i) {
        const Node& n = g.node(int(i));
        if (n.op != Op::Input) continue;
        value_name[int(i)] = numbered('x', size_t(body.position(n.input)));
        if (!used[size_t(n.input)]) body.read(n.input);
    }
    // Each constant once, in order of first use.
    std::map<int, std::string> constant_name;
    for (int i : order) {
        const Node& n = g.node(i);
        if (n.op != Op::Mul || constant_name.count(n.constant)) continue;
        const std::string k = numbered('k', constant_name.size());
        constant_name[n.constant] = k;
        body.text() << "    const T " << k << "(" << double_literal(double(g.constants()[n.constant]))
                    << ");\n";
    }
    for (size_t k = 0; k < outputs.size(); ++k)
        if (!outputs[k].is_zero() && g.node(outputs[k].node).op == Op::Input)
            body.store(k, value_name.at(outputs[k].node));
    // The operations in the scheduler's order.
    size_t temps = 0;
    for (int i : order) {
        const Node& n = g.node(i);
        body.read_operands(n);
        const std::string t = numbered('t', temps++);
        value_name[i] = t;
        std::ostringstream& text = body.text();
        text << "    const T " << t << " = ";
        switch (n.op) {
        case Op::Add: text << value_name.at(n.a) << " + " << value_name.at(n.b); break;
        case Op::Sub: text << value_name.at(n.a) << " - " << value_name.at(n.b); break;
        case Op::Mul: text << constant_name.at(n.constant) << " * " << value_name.at(n.a); break;
        case Op::Input: break;
        }
        text << ";\n";
        const auto it = stores.find(i);
        if (it == stores.end()) continue;
        for (size_t k : it->second) body.store(k, t);
    }
    if (body.stored() != stores_expected(outputs)) throw std::logic_error(name + ": an output is not stored");
    body.store_zeros();
    body.text() << "}\n";
    if (for_size) body.text() << kForSize << "#pragma GCC pop_options\n#endif\n";
    return body.text().str();
}

}  // namespace zptg::gen
