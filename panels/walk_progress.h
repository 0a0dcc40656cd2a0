// What a walk through directories has seen so far, and where it is. Owned by who started the walk;
// written by the thread that walks, read by any.
#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

namespace zt {

class WalkProgress {
public:
    uint64_t Directories() const { return directories_.load(std::memory_order_relaxed); }
    uint64_t Files() const { return files_.load(std::memory_order_relaxed); }
    uint64_t Bytes() const { return bytes_.load(std::memory_order_relaxed); }
    std::string Path() const;  // where the walk is; a name of the file system

    void AddDirectory() { Add(directories_, 1); }
    void AddFile(uint64_t size) {
        Add(files_, 1);
        Add(bytes_, size);
    }
    void SetPath(const char* path);
    // One component behind the path, and off it again.
    void EnterName(const char* name);
    void LeaveName();
    // The components below the path that was set, outermost first. For the thread that walks.
    std::vector<std::string> NamesEntered() const;

private:
    // There is one writer, so that no step need be one with the read before it.
    static void Add(std::atomic<uint64_t>& sum, uint64_t value) {
        sum.store(sum.load(std::memory_order_relaxed) + value, std::memory_order_relaxed);
    }

    std::atomic<uint64_t> directories_{0};
    std::atomic<uint64_t> files_{0};
    std::atomic<uint64_t> bytes_{0};
    mutable std::mutex lock_;  // of the path
    std::string path_;
    std::vector<size_t> lengths_;  // of the path before each name that was entered
};

}  // namespace zt
