// Results of one family: a table printed aligned on the console and into a
// text file, the same rows as CSV, and a gnuplot script that draws the CSV
// into a PNG. Everything goes to one results folder in the build tree.
#ifndef ZPTG_BENCH_REPORT_H
#define ZPTG_BENCH_REPORT_H

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "timing.h"

namespace zptg::bench {

// A line that every results file written after this call begins with (the
// CSV files as a comment, which gnuplot skips): the CPU and the build.
void set_results_note(const std::string& line);

class Table {
public:
    Table(std::string name, std::string title, std::vector<std::string> columns);

    // Starts a row; cells are appended in column order.
    void row();
    void cell(const std::string& text);
    void cell(double value, int precision);  // fixed notation
    void cell_sci(double value);             // 2 significant digits, scientific
    void cell(long value);

    const std::string& name() const { return name_; }
    bool empty() const { return rows_.empty(); }
    const std::vector<std::string>& columns() const { return columns_; }
    // Index of a column by its header, counted from 1 as gnuplot does.
    int column(const std::string& header) const;

    void print(std::FILE* f) const;
    void write(const std::string& dir) const;  // <name>.txt and <name>.csv

private:
    std::string name_, title_;
    std::vector<std::string> columns_;
    std::vector<std::vector<std::string>> rows_;
};

// The columns of a comparison of ours with the given peers: ours_ns,
// ours_spread_%, then for each peer P: P_ns, P_spread_%, ratio_P (ours / P)
// and ratio_P_spread_%. comparison_cells fills them from a Comparison whose
// subject 0 is ours.
std::vector<std::string> comparison_columns(const std::vector<std::string>& peers);
template <class... More>
std::vector<std::string> join(std::vector<std::string> first, const More&... more)
{
    (first.insert(first.end(), more.begin(), more.end()), ...);
    return first;
}
void comparison_cells(Table& table, const Comparison& c);

// One series of a panel: x against y over the rows of the table that pass
// every filter (a column and the value it must have, or "!value" it must
// not have).
struct Series {
    std::string title;
    std::string x, y;
    std::vector<std::pair<std::string, std::string>> filters;  // column, value
};

struct Panel {
    std::string title;
    std::string x_label, y_label;
    bool log_x = false, log_y = false;
    double y_line = 0;  // a dashed horizontal reference line if not 0
    std::vector<Series> series;
};

// Writes <name>.gp (drawing <name>.png beside it) with the panels stacked in
// a grid of `columns` columns.
void write_plot(const std::string& dir, const Table& table, const std::string& name,
                const std::vector<Panel>& panels, int columns);

}  // namespace zptg::bench

#endif
