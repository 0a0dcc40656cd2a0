// Memory for many small records that are dropped all at once: a pointer moves through blocks of
// 65536 bytes. A pool has one owner and one thread at a time. No allocation is freed singly.
#pragma once

#include <cstddef>
#include <cstdint>

#include "foundation/object_store.h"

namespace zt {

struct MemoryPoolBlock {
    explicit MemoryPoolBlock(uint32_t bytes);  // `base` is null when there is no memory
    ~MemoryPoolBlock();
    MemoryPoolBlock(const MemoryPoolBlock&) = delete;
    MemoryPoolBlock& operator=(const MemoryPoolBlock&) = delete;

    size_t Left() const { return size - static_cast<size_t>(next - base); }

    char* base;
    char* next;  // the first free byte
    uint32_t size;
};

class MemoryPool : private TObjectStore<MemoryPoolBlock> {
public:
    static constexpr uint32_t kBlockBytes = 65536;

    MemoryPool();
    // n bytes, not aligned, or null when there is no memory or n has more than 31 bits.
    void* Allocate(size_t n);
    // The same, aligned to a power of two of at most alignof(max_align_t).
    void* AllocateAligned(size_t n, size_t alignment);
    void Reset();  // releases all that was allocated and starts a fresh block
    int BlockCount() const { return Count(); }

private:
    MemoryPoolBlock* AddBlock(size_t n);

    MemoryPoolBlock* currentBlock;
};

}  // namespace zt
