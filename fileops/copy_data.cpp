// The copy loop, with the holes of sparse files. Between regular files the system moves the blocks
// by itself, without a way through this program's memory.
#include "fileops/copy_data.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "fileops/abort_guard.h"
#include "fileops/copy_block.h"
#include "foundation/result_codes.h"
#include "foundation/system_call.h"

namespace zt {

namespace {

constexpr int64_t kUnitOfBlocks = 512;  // of st_blocks

class DataCopy {
public:
    DataCopy(FileOperation& operation, CopySource& source, NewTarget& target,
             CopyProgress* progress)
        : operation_(operation), source_(source), target_(target), progress_(progress) {}

    int Run();

private:
    int CopyAll();
    int CopySparse();
    int CopyBlocks(int64_t most);
    int CopyInSystem(int64_t& most);
    int FindData(int64_t from, int64_t& start, int64_t& end);
    void Advance(int64_t bytes);

    FileOperation& operation_;
    CopySource& source_;
    NewTarget& target_;
    CopyProgress* progress_;
    bool isLarge_ = false;  // worth while asking the system to move blocks
    bool atEnd_ = false;
};

int DataCopy::Run() {
    const struct stat& status = source_.Status();
    isLarge_ = source_.IsRegular() && !target_.IsDevice() && status.st_size > kCopyBlockBytes;
    if (isLarge_) posix_fadvise(source_.File().Handle(), 0, 0, POSIX_FADV_SEQUENTIAL);
    const bool sparse = source_.IsRegular() && !target_.IsDevice() &&
                        status.st_blocks < status.st_size / kUnitOfBlocks;
    return sparse ? CopySparse() : CopyAll();
}

void DataCopy::Advance(int64_t bytes) {
    if (!progress_) return;
    progress_->bytesDone.fetch_add(static_cast<uint64_t>(bytes), std::memory_order_relaxed);
    progress_->dirty.store(true, std::memory_order_relaxed);
}

int DataCopy::CopyAll() {
    while (!atEnd_) {
        const int code = CopyBlocks(INT64_MAX);
        if (code != kDone) return code;
    }
    return kDone;
}

// Takes what it copied off `most`. Whatever the system does not do, for whatever reason, and the
// end of the file are left to reading and writing, which tell the reason.
int DataCopy::CopyInSystem(int64_t& most) {
    const int from = source_.File().Handle(), to = target_.File().Handle();
    const int64_t start = source_.File().Tell();
    off_t readAt = start, writeAt = target_.File().Tell();
    int code = kDone;
    while (code == kDone && most > 0) {
        const auto wanted = static_cast<size_t>(std::min<int64_t>(most, kCopyBlockBytes));
        const ssize_t moved =
            Uninterrupted([&] { return copy_file_range(from, &readAt, to, &writeAt, wanted, 0); });
        if (moved <= 0) break;
        most -= moved;
        Advance(moved);
        if (AbortGuard::Asked(operation_)) code = kCancelled;
    }
    if (code != kDone || readAt == start) return code;
    code = source_.File().Seek(readAt);
    return code == kDone ? target_.SkipTo(writeAt) : code;
}

// From where the source stands, up to `most` bytes or the end.
int DataCopy::CopyBlocks(int64_t most) {
    char* block = CopyBlock(operation_);
    const int moved = isLarge_ ? CopyInSystem(most) : kDone;
    if (moved != kDone) return moved;
    while (most > 0) {
        const int wanted = static_cast<int>(std::min<int64_t>(most, kCopyBlockBytes));
        int got = 0;
        int code = source_.Read(block, wanted, &got);
        if (code != kDone) return code;
        // A regular file gives less than it is asked for at its end only.
        atEnd_ = got == 0 || (got < wanted && source_.IsRegular());
        if (got == 0) return kDone;
        Advance(got);
        code = target_.Write(block, got);
        if (code != kDone) return code;
        if (AbortGuard::Asked(operation_)) return kCancelled;
        if (atEnd_) return kDone;
        most -= got;
    }
    return kDone;
}

// The next run of data at or behind `from`; kNoMoreEntries with the end of the file in `start` when
// there is none.
int DataCopy::FindData(int64_t from, int64_t& start, int64_t& end) {
    const int descriptor = source_.File().Handle();
    int code = kDone;
    start = lseek(descriptor, from, SEEK_DATA);
    if (start >= 0) {
        end = lseek(descriptor, start, SEEK_HOLE);
        if (end < 0) code = errno;
    } else {
        code = errno == ENXIO ? kNoMoreEntries : errno;
        start = lseek(descriptor, 0, SEEK_END);
    }
    // The file's object knows nothing of all this.
    if (lseek(descriptor, source_.File().Tell(), SEEK_SET) < 0) return errno;
    return code;
}

int DataCopy::CopySparse() {
    int64_t at = 0;
    while (!atEnd_) {
        int64_t start = 0, end = 0;
        int code = FindData(at, start, end);
        if (code == EINVAL || code == EOPNOTSUPP) return CopyAll();
        if (code == kNoMoreEntries) {
            Advance(std::max<int64_t>(start - at, 0));
            return target_.EndAt(std::max(start, at));
        }
        if (code == kDone && start > at) {
            Advance(start - at);
            code = source_.File().Seek(start);
            if (code == kDone) code = target_.SkipTo(start);
        }
        if (code == kDone && AbortGuard::Asked(operation_)) code = kCancelled;
        if (code == kDone) code = CopyBlocks(end - start);
        if (code != kDone) return code;
        at = end;
    }
    return kDone;
}

}  // namespace

int CopyData(FileOperation& operation, CopySource& source, NewTarget& target,
             CopyProgress* progress) {
    return DataCopy(operation, source, target, progress).Run();
}

}  // namespace zt
