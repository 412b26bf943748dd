// Tables, CSV files and gnuplot scripts of the benchmark's results.
#include "report.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace zptg::bench {
namespace {

std::string& results_note()
{
    static std::string note;
    return note;
}

}  // namespace

void set_results_note(const std::string& line) { results_note() = line; }

Table::Table(std::string name, std::string title, std::vector<std::string> columns)
    : name_(std::move(name)), title_(std::move(title)), columns_(std::move(columns))
{
}

void Table::row() { rows_.emplace_back(); }

void Table::cell(const std::string& text) { rows_.back().push_back(text); }

void Table::cell(double value, int precision)
{
    char b[64];
    std::snprintf(b, sizeof b, "%.*f", precision, value);
    cell(std::string(b));
}

void Table::cell_sci(double value)
{
    char b[64];
    std::snprintf(b, sizeof b, "%.2e", value);
    cell(std::string(b));
}

void Table::cell(long value) { cell(std::to_string(value)); }

int Table::column(const std::string& header) const
{
    const auto it = std::find(columns_.begin(), columns_.end(), header);
    if (it == columns_.end()) throw std::logic_error(name_ + ": no column " + header);
    return int(it - columns_.begin()) + 1;
}

void Table::print(std::FILE* f) const
{
    std::vector<size_t> width(columns_.size());
    for (size_t c = 0; c < columns_.size(); ++c) width[c] = columns_[c].size();
    for (const auto& r : rows_)
        for (size_t c = 0; c < r.size() && c < width.size(); ++c)
            width[c] = std::max(width[c], r[c].size());
    std::fprintf(f, "\n%s\n\n", title_.c_str());
    auto line = [&](const std::vector<std::string>& cells) {
        for (size_t c = 0; c < cells.size() && c < width.size(); ++c)
            std::fprintf(f, "%s%*s", c ? "  " : "", int(width[c]), cells[c].c_str());
        std::fprintf(f, "\n");
    };
    line(columns_);
    for (const auto& r : rows_) line(r);
}

void Table::write(const std::string& dir) const
{
    const std::string txt = dir + "/" + name_ + ".txt";
    std::FILE* f = std::fopen(txt.c_str(), "w");
    if (!f) throw std::runtime_error("cannot write " + txt);
    if (!results_note().empty()) std::fprintf(f, "%s\n", results_note().c_str());
    print(f);
    std::fclose(f);
    std::ofstream csv(dir + "/" + name_ + ".csv");
    if (!results_note().empty()) csv << "# " << results_note() << "\n";
    for (size_t c = 0; c < columns_.size(); ++c) csv << (c ? "," : "") << columns_[c];
    csv << "\n";
    for (const auto& r : rows_) {
        for (size_t c = 0; c < r.size(); ++c) {
            // A cell with a comma is quoted (gnuplot reads it so too).
            const bool quote = r[c].find(',') != std::string::npos;
            csv << (c ? "," : "") << (quote ? "\"" : "") << r[c] << (quote ? "\"" : "");
        }
        csv << "\n";
    }
}

std::vector<std::string> comparison_columns(const std::vector<std::string>& peers)
{
    std::vector<std::string> c = {"ours_ns", "ours_spread_%"};
    for (const std::string& p : peers) {
        c.push_back(p + "_ns");
        c.push_back(p + "_spread_%");
        c.push_back("ratio_" + p);
        c.push_back("ratio_" + p + "_spread_%");
    }
    return c;
}

void comparison_cells(Table& table, const Comparison& c)
{
    table.cell(c.subjects[0].ns, 1);
    table.cell(100 * c.subjects[0].spread, 1);
    for (size_t i = 1; i < c.subjects.size(); ++i) {
        table.cell(c.subjects[i].ns, 1);
        table.cell(100 * c.subjects[i].spread, 1);
        table.cell(c.ratios[i], 3);
        table.cell(100 * c.ratio_spreads[i], 1);
    }
}

void write_plot(const std::string& dir, const Table& table, const std::string& name,
                const std::vector<Panel>& panels, int columns)
{
    const int rows = int((panels.size() + size_t(columns) - 1) / size_t(columns));
    std::ofstream gp(dir + "/" + name + ".gp");
    gp << "# Draws " << name << ".png from " << table.name() << ".csv (run in this folder).\n"
       << "set terminal pngcairo noenhanced size " << 640 * columns << "," << 420 * rows
       << " font 'sans,9'\n"
       << "set output '" << name << ".png'\n"
       << "set datafile separator ','\n"
       // Rows filtered out of a series are missing points: the line goes on.
       << "set datafile missing NaN\n"
       << "set key top left\nset grid\n"
       << "set multiplot layout " << rows << "," << columns << "\n";
    for (const Panel& p : panels) {
        gp << "set title '" << p.title << "'\n"
           << "set xlabel '" << p.x_label << "'\nset ylabel '" << p.y_label << "'\n"
           << (p.log_x ? "set logscale x 2\n" : "unset logscale x\n")
           << (p.log_y ? "set logscale y\n" : "unset logscale y\n");
        if (p.y_line != 0)
            gp << "set arrow 1 from graph 0, first " << p.y_line << " to graph 1, first "
               << p.y_line << " nohead dashtype 2 lc rgb 'gray40'\n";
        else
            gp << "unset arrow 1\n";
        gp << "plot ";
        for (size_t i = 0; i < p.series.size(); ++i) {
            const Series& s = p.series[i];
            std::string cond;
            for (const auto& [col, value] : s.filters) {
                const bool negated = !value.empty() && value[0] == '!';
                cond.append("strcol(").append(std::to_string(table.column(col))).append(")");
                cond.append(negated ? " ne '" : " eq '");
                cond.append(value, negated ? 1 : 0).append("' && ");
            }
            gp << (i ? ", \\\n     " : "") << "'" << table.name() << ".csv' every ::1 using "
               << table.column(s.x) << ":(" << cond << "1 ? $" << table.column(s.y) << " : NaN)"
               << " with linespoints pt 7 ps 0.5 title '" << s.title << "'";
        }
        gp << "\n";
    }
    gp << "unset multiplot\n";
}

}  // namespace zptg::bench
