// A file that takes another one's name once it is whole. Until then the other file stays as it is:
// whatever fails or breaks off, one of the two is there in full. First thread only.
#pragma once

#include "foundation/estring.h"
#include "foundation/westring.h"

namespace zt {

class ReplacingFile {
public:
    ReplacingFile() = default;
    ~ReplacingFile();  // removes the temporary file unless Commit came to its renaming
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;

    // Opens the temporary file beside `target`: its name has "!!!" for its last three characters.
    // 0 or an errno value; EAGAIN while another program is writing it, and what fits when the
    // target is there but no ordinary file, which is never replaced.
    [[nodiscard]] int Open(const Westring& target);

    // Writes the text, brings it to the disk and gives the file the target's name. 0 or the errno
    // value of the first failure. When only the renaming failed, the temporary file stays.
    [[nodiscard]] int Commit(const Estring& text);

    static Westring TemporaryName(const Westring& target);

private:
    int OpenTemporary();
    int LockedAndNamed() const;
    void TakeModeOf(const char* path) const;
    int WriteOut(const char* bytes, int n) const;
    void Close();

    Estring target_;  // in bytes
    Estring temporary_;
    int descriptor_ = -1;
};

}  // namespace zt
