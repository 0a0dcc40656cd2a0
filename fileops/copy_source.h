// The file that a copy reads: opened without ever waiting where Esc would not be heard, read in
// blocks, with a failing disk tried again. First thread only.
#pragma once

#include <sys/stat.h>

#include "fileops/copy_progress.h"
#include "fileops/file_operation.h"
#include "foundation/estring.h"
#include "foundation/std_file.h"
#include "foundation/westring.h"

namespace zt {

class CopySource {
public:
    // `name` is what boxes show. All is borrowed; `progress` may be null.
    CopySource(FileOperation& operation, const Westring& name, CopyProgress* progress)
        : operation_(operation), name_(name), progress_(progress) {}

    // 0, an errno value, kCancelled, or kOpenForWriting when another program has the file for
    // itself and `evenWhenWritten` is not given. `found` is what the name stands for.
    [[nodiscard]] int Open(const Estring& path, const struct stat& found, bool evenWhenWritten,
                           bool followLinks);
    // Up to `size` bytes; *got of 0 is the end. A FIFO or terminal is waited for. A disk that fails
    // is read three times, then the user is asked: EIO when he gives up.
    [[nodiscard]] int Read(char* block, int size, int* got);

    // The state of the open file at the opening, and now.
    const struct stat& Status() const { return status_; }
    [[nodiscard]] int Examine(struct stat& now) const;
    bool IsRegular() const { return S_ISREG(status_.st_mode); }
    StdFile& File() { return file_; }

private:
    int OpenOnce(const char* path);
    int OpenPatiently(const char* path);
    int AskAboutReadError();

    FileOperation& operation_;
    const Westring& name_;
    CopyProgress* progress_;
    StdFile file_;
    struct stat status_ {};
    int systemFlags_ = 0;
    bool waits_ = false;  // for whoever is to write
    int failures_ = 0;    // in a row
};

// Waits until the descriptor is ready for `events` of poll, or kCancelled. A descriptor below 0
// stands for nothing but a short while.
[[nodiscard]] int WaitReady(FileOperation& operation, int descriptor, short events);

}  // namespace zt
