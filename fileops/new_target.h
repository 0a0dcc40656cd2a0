// The file that a copy writes. A file appears under its name only when it is whole: until then it
// has a temporary name beside it, and what stood there stays. Devices, and files in directories
// that take no new one, are written themselves. First thread only.
//
// Open, Write and SkipTo as often as wanted, Finish, Commit; Abandon at any place in between.
#pragma once

#include "fileops/file_operation.h"
#include "fileops/target_look.h"
#include "foundation/estring.h"
#include "foundation/std_file.h"

namespace zt {

class NewTarget {
public:
    // `look` is what stands at `path`; without `replaces` nothing may (but a device).
    NewTarget(FileOperation& operation, const Estring& path, const TargetLook& look, bool replaces)
        : operation_(operation), path_(path), look_(look), replaces_(replaces) {}
    ~NewTarget();
    NewTarget(const NewTarget&) = delete;
    NewTarget& operator=(const NewTarget&) = delete;

    // These four give 0, an errno value or kCancelled (a device or FIFO is waited for).
    [[nodiscard]] int Open();
    [[nodiscard]] int Write(const char* block, int n);
    // Data, mode (the permissions of `source`) and time are in and the file is closed. With
    // `hurries` the data is on its way to the disk as well.
    [[nodiscard]] int Finish(const struct stat& source, bool hurries);
    // The file gets its name. EEXIST when something has appeared under it meanwhile.
    [[nodiscard]] int Commit();

    // Leaves what comes before `offset` unwritten, up to what has been written. Regular files only.
    [[nodiscard]] int SkipTo(int64_t offset) { return file_.Seek(offset); }
    [[nodiscard]] int EndAt(int64_t size) { return file_.Truncate(size); }
    // Nothing of what was written stays, unless it was written in place; nothing after Commit. An
    // errno value when the temporary file cannot be removed.
    int Abandon();

    bool IsDevice() const { return how_ == How::kDevice; }
    // Whether a new file was begun that Abandon takes away.
    bool IsPartial() const { return how_ == How::kBeside; }
    StdFile& File() { return file_; }
    const Estring& Temporary() const { return temporary_; }

private:
    enum class How { kNone, kBeside, kInPlace, kDevice };

    int OpenBeside();
    Estring ShortPath();
    int OpenInPlace();
    int OpenDevice();
    int SetModeAndTime(const struct stat& source);
    int CopyOver();
    int WriteToDevice(const char* block, int n);

    FileOperation& operation_;
    const Estring& path_;
    const TargetLook& look_;
    const bool replaces_;
    How how_ = How::kNone;
    Estring temporary_;
    int directory_ = -1;  // open where the temporary name leads through it
    StdFile file_;
    struct stat source_ {};  // as Finish was told
};

}  // namespace zt
