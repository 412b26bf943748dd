// Writing generated files: a file is only rewritten when its text changes,
// so that regenerating leaves unchanged kernels' objects up to date.
#ifndef ZPTG_GEN_OUTPUT_H
#define ZPTG_GEN_OUTPUT_H

#include <string>

namespace zptg::gen {

void write_if_changed(const std::string& path, const std::string& text);

}  // namespace zptg::gen

#endif
