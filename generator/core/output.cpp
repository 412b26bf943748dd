#include "core/output.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace zptg::gen {

void write_if_changed(const std::string& path, const std::string& text)
{
    {
        std::ifstream in(path, std::ios::binary);
        if (in) {
            std::ostringstream old;
            old << in.rdbuf();
            if (old.str() == text) return;
        }
    }
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << text;
    if (!out) throw std::runtime_error("cannot write " + path);
}

}  // namespace zptg::gen
