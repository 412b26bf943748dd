// zptMalloc / zptFree for the test program: guarded blocks, logged.
#include "wht/allocator.h"

#include <map>
#include <memory>

#include "core/zptcore.h"
#include "wht/guarded_memory.h"

namespace zptg::test::wht {
namespace {

AllocationLog log_;

std::map<void*, std::unique_ptr<GuardedBlock>>& live()
{
    static std::map<void*, std::unique_ptr<GuardedBlock>> blocks;
    return blocks;
}

}  // namespace

const AllocationLog& allocation_log() { return log_; }

void reset_allocation_log()
{
    const int live_blocks = log_.live_blocks;
    log_ = AllocationLog{};
    log_.live_blocks = live_blocks;
}

}  // namespace zptg::test::wht

using zptg::test::wht::Guard;
using zptg::test::wht::GuardedBlock;

extern "C" void* zptMalloc(int length)
{
    auto& log = zptg::test::wht::log_;
    ++log.allocations;
    log.last_length = length;
    log.last_block = nullptr;
    if (length <= 0) return nullptr;
    auto block = std::make_unique<GuardedBlock>(static_cast<std::size_t>(length), Guard::After);
    void* p = block->data();
    zptg::test::wht::live().emplace(p, std::move(block));
    ++log.live_blocks;
    log.last_block = p;
    return p;
}

extern "C" void zptFree(void* ptr)
{
    auto& log = zptg::test::wht::log_;
    ++log.releases;
    log.last_released = ptr;
    if (ptr == nullptr) return;
    auto& blocks = zptg::test::wht::live();
    const auto it = blocks.find(ptr);
    if (it == blocks.end()) {
        ++log.unknown_releases;
        return;
    }
    blocks.erase(it);
    --log.live_blocks;
}
