#include "foundation/memory_pool.h"

#include <cstdlib>

#include <algorithm>
#include <limits>
#include <memory>

namespace zt {

MemoryPoolBlock::MemoryPoolBlock(uint32_t bytes)
    : base(static_cast<char*>(std::malloc(bytes))), next(base), size(base == nullptr ? 0 : bytes) {}

MemoryPoolBlock::~MemoryPoolBlock() {
    std::free(base);
}

MemoryPool::MemoryPool() : currentBlock(nullptr) {
    AddBlock(kBlockBytes);
}

// Makes a block for at least n bytes the current one; null when there is no memory.
MemoryPoolBlock* MemoryPool::AddBlock(size_t n) {
    if (n > static_cast<size_t>(std::numeric_limits<int32_t>::max())) return nullptr;
    auto block = std::make_unique<MemoryPoolBlock>(std::max(static_cast<uint32_t>(n), kBlockBytes));
    if (block->base == nullptr) return nullptr;
    currentBlock = block.get();
    Append(block.release());
    return currentBlock;
}

void* MemoryPool::Allocate(size_t n) {
    return AllocateAligned(n, 1);
}

void* MemoryPool::AllocateAligned(size_t n, size_t alignment) {
    size_t gap = 0;
    if (currentBlock != nullptr) {
        size_t beyond = reinterpret_cast<uintptr_t>(currentBlock->next) & (alignment - 1);
        gap = beyond == 0 ? 0 : alignment - beyond;
    }
    if (currentBlock == nullptr || gap + n < n || gap + n > currentBlock->Left()) {
        if (AddBlock(n) == nullptr) return nullptr;
        gap = 0;
    }
    char* start = currentBlock->next + gap;
    currentBlock->next = start + n;
    return start;
}

void MemoryPool::Reset() {
    Clear();
    currentBlock = nullptr;
    AddBlock(kBlockBytes);
}

}  // namespace zt
