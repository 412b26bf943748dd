#include "core/emit.h"

#include <map>
#include <sstream>
#include <stdexcept>

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

}  // namespace

std::string emit_body(const Graph& g, const std::vector<Real>& outputs, const std::string& name)
{
    for (const Real& r : outputs)
        if (r.is_zero() || r.neg) throw std::logic_error(name + ": an output is zero or negated");

    const std::vector<int> order = live_nodes(g, outputs);
    std::map<int, std::string> value_name;  // node -> its name in the text
    std::map<int, std::string> constant_name;
    std::ostringstream body;
    body << "template <class T, class In, class Out>\n"
         << "inline void " << name << "(const In& in, const Out& out, T s)\n{\n";

    // Every input is read before anything else happens.
    for (int i = 0; i < g.input_count(); ++i) body << "    const T x" << i << " = in(" << i << ");\n";
    for (int i : order) {
        const Node& n = g.node(i);
        if (n.op == Op::Input) value_name[i] = numbered('x', size_t(n.input));
    }
    // Each constant once, in order of first use.
    for (int i : order) {
        const Node& n = g.node(i);
        if (n.op != Op::Mul || constant_name.count(n.constant)) continue;
        const std::string k = numbered('k', constant_name.size());
        constant_name[n.constant] = k;
        body << "    const T " << k << "(" << double_literal(double(g.constants()[n.constant]))
             << ");\n";
    }
    size_t temps = 0;
    for (int i : order) {
        const Node& n = g.node(i);
        if (n.op == Op::Input) continue;
        const std::string t = numbered('t', temps++);
        value_name[i] = t;
        body << "    const T " << t << " = ";
        switch (n.op) {
        case Op::Add: body << value_name.at(n.a) << " + " << value_name.at(n.b); break;
        case Op::Sub: body << value_name.at(n.a) << " - " << value_name.at(n.b); break;
        case Op::Mul: body << constant_name.at(n.constant) << " * " << value_name.at(n.a); break;
        case Op::Input: break;
        }
        body << ";\n";
    }
    for (size_t k = 0; k < outputs.size(); ++k)
        body << "    out(" << k << ", s * " << value_name.at(outputs[k].node) << ");\n";
    body << "}\n";
    return body.str();
}

}  // namespace zptg::gen
