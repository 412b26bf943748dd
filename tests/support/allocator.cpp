#include "support/allocator.h"

#include <cstring>
#include <map>
#include <memory>

#include "core/zptcore.h"
#include "support/guarded.h"

namespace zptg::test {
namespace {

AllocationLog log_;

std::map<void*, std::unique_ptr<GuardedBlock>>& live()
{
    static std::map<void*, std::unique_ptr<GuardedBlock>> blocks;
    return blocks;
}

}  // namespace

AllocationLog& allocation_log() { return log_; }

void reset_allocation_log()
{
    const int live_blocks = log_.live_blocks;
    log_ = AllocationLog{};
    log_.live_blocks = live_blocks;
}

}  // namespace zptg::test

extern "C" void* zptMalloc(int length)
{
    zptg::test::AllocationLog& log = zptg::test::log_;
    ++log.allocations;
    log.last_length = length;
    log.last_block = nullptr;
    if (length <= 0 || log.fail) return nullptr;
    auto block = std::make_unique<zptg::test::GuardedBlock>(static_cast<std::size_t>(length));
    void* p = block->data();
    zptg::test::live().emplace(p, std::move(block));
    ++log.live_blocks;
    log.last_block = p;
    return p;
}

extern "C" void zptFree(void* ptr)
{
    zptg::test::AllocationLog& log = zptg::test::log_;
    ++log.releases;
    log.last_released = ptr;
    if (ptr == nullptr) return;
    const auto it = zptg::test::live().find(ptr);
    if (it == zptg::test::live().end()) {
        ++log.unknown_releases;
        return;
    }
    void* word;
    std::memcpy(&word, ptr, sizeof word);
    log.word_at_release = reinterpret_cast<uintptr_t>(word);
    zptg::test::live().erase(it);
    --log.live_blocks;
}
