#include "support/guarded.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace zptg::test {

GuardedBlock::GuardedBlock(std::size_t bytes, Guard side, std::size_t gap)
{
    const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t usable = (bytes + gap + page - 1) / page * page;
    mapped_ = usable + 2 * page;
    void* m = mmap(nullptr, mapped_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (m == MAP_FAILED) {
        std::perror("mmap");
        std::abort();
    }
    mapping_ = static_cast<unsigned char*>(m);
    if (mprotect(mapping_, page, PROT_NONE) != 0 || mprotect(mapping_ + page + usable, page, PROT_NONE) != 0) {
        std::perror("mprotect");
        std::abort();
    }
    data_ = side == Guard::Before ? mapping_ + page + gap : mapping_ + page + usable - gap - bytes;
}

GuardedBlock::~GuardedBlock() { munmap(mapping_, mapped_); }

}  // namespace zptg::test
