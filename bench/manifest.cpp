// Reads manifest.csv: n,direction,rule,additions,subtractions,products,constants
// with the rule in double quotes (it may hold commas).
#include "manifest.h"

#include <fstream>
#include <sstream>
#include <vector>

namespace zptg::bench {

namespace {

std::vector<std::string> split_csv(const std::string& line)
{
    std::vector<std::string> cells(1);
    bool quoted = false;
    for (char c : line) {
        if (c == '"')
            quoted = !quoted;
        else if (c == ',' && !quoted)
            cells.emplace_back();
        else
            cells.back() += c;
    }
    return cells;
}

}  // namespace

Manifest read_manifest(const std::string& path)
{
    Manifest m;
    std::ifstream in(path);
    std::string line;
    std::getline(in, line);  // header
    while (std::getline(in, line)) {
        const std::vector<std::string> c = split_csv(line);
        if (c.size() < 7) continue;
        KernelCounts k;
        k.rule = c[2];
        k.additions = std::stol(c[3]);
        k.subtractions = std::stol(c[4]);
        k.products = std::stol(c[5]);
        k.constants = std::stol(c[6]);
        m[{std::stoi(c[0]), c[1]}] = k;
    }
    return m;
}

const KernelCounts* find_counts(const Manifest& m, int n, const std::vector<std::string>& names)
{
    for (const std::string& name : names) {
        const auto it = m.find({n, name});
        if (it != m.end()) return &it->second;
    }
    const std::string& stem = names.back();
    for (auto it = m.lower_bound({n, std::string()}); it != m.end() && it->first.first == n; ++it)
        if (it->first.second.rfind(stem, 0) == 0) return &it->second;
    return nullptr;
}

}  // namespace zptg::bench
