// Guarded blocks: one anonymous mapping with an inaccessible page on each
// side of the usable pages; the block is placed against the requested side.
#include "wht/guarded_memory.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <cstdio>

namespace zptg::test::wht {

GuardedBlock::GuardedBlock(std::size_t bytes, Guard side) : bytes_(bytes)
{
    const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t usable = (bytes + page - 1) / page * page;
    mapping_bytes_ = usable + 2 * page;
    void* m = mmap(nullptr, mapping_bytes_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS,
                   -1, 0);
    if (m == MAP_FAILED) {
        std::perror("mmap");
        std::abort();
    }
    mapping_ = static_cast<char*>(m);
    if (mprotect(mapping_, page, PROT_NONE) != 0 ||
        mprotect(mapping_ + page + usable, page, PROT_NONE) != 0) {
        std::perror("mprotect");
        std::abort();
    }
    data_ = side == Guard::Before ? mapping_ + page : mapping_ + page + usable - bytes;
}

GuardedBlock::~GuardedBlock() { munmap(mapping_, mapping_bytes_); }

}  // namespace zptg::test::wht
