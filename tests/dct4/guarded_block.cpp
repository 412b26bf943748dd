// Guarded blocks over mmap and mprotect.
#include "dct4/guarded_block.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>

namespace zptg_test {

GuardedBlock::GuardedBlock(size_t bytes, size_t slack)
{
    const size_t page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    usable_ = (bytes + slack + page - 1) / page * page;
    mapped_ = usable_ + page;
    void* p = mmap(nullptr, mapped_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (p == MAP_FAILED) std::abort();
    region_ = static_cast<unsigned char*>(p);
    if (mprotect(region_ + usable_, page, PROT_NONE) != 0) std::abort();
    data_ = region_ + usable_ - slack - bytes;
}

GuardedBlock::~GuardedBlock()
{
    munmap(region_, mapped_);
}

}  // namespace zptg_test
