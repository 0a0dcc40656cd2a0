#include "commands/history_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "commands/replacing_file.h"
#include "foundation/file_name.h"
#include "foundation/std_file.h"

namespace zt {

namespace {

constexpr char kFieldMark = 0x19;
constexpr char kLineEnd[] = "\r\n";
// Commands may hold what nobody else is to read.
constexpr mode_t kNewFileMode = 0600;
constexpr int kOpenTries = 100;

// Where the mark of a field stands in the line; 0: it is a command.
int MarkOf(const Estring& line) {
    for (int i = 1; i <= 2; i++) {
        if (line.Length() > i && line[i] == kFieldMark) return i;
    }
    return 0;
}

// The open file, locked, as long as this lives.
class LockedFile {
public:
    explicit LockedFile(const char* path) : path_(path) {}
    ~LockedFile() { Close(); }
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;

    // 0 or an errno value. A file that was replaced while its lock was waited for is not the one.
    int Open(int flags) {
        for (int i = 0; i < kOpenTries; i++) {
            descriptor_ = open(path_, flags | O_CLOEXEC | O_NONBLOCK, kNewFileMode);
            if (descriptor_ < 0) return errno;
            if (!IsOrdinary()) return EOPNOTSUPP;
            // Without locks, as on some networks, it goes as well as it can.
            while (flock(descriptor_, LOCK_EX) != 0 && errno == EINTR) {
            }
            if (StillNamed()) return 0;
            Close();
        }
        return EAGAIN;
    }
    int Descriptor() const { return descriptor_; }

private:
    bool IsOrdinary() const {
        struct stat held = {};
        return fstat(descriptor_, &held) == 0 && S_ISREG(held.st_mode);
    }
    bool StillNamed() const {
        struct stat held = {};
        struct stat named = {};
        return fstat(descriptor_, &held) == 0 && stat(path_, &named) == 0 &&
               held.st_dev == named.st_dev && held.st_ino == named.st_ino;
    }
    void Close() {
        if (descriptor_ >= 0) close(descriptor_);
        descriptor_ = -1;
    }

    const char* const path_;
    int descriptor_ = -1;
};

// A line that a broken write has left without an end gets one before the next.
bool LastLineIsOpen(int descriptor) {
    struct stat held = {};
    if (fstat(descriptor, &held) != 0 || held.st_size == 0) return false;
    char last = 0;
    return pread(descriptor, &last, 1, held.st_size - 1) == 1 && last != '\n';
}

// All or nothing: a part that was taken is taken off again.
int WriteAtEnd(int descriptor, const Estring& bytes) {
    const off_t end = lseek(descriptor, 0, SEEK_END);
    if (end < 0) return errno;
    ssize_t written = 0;
    do {
        written = write(descriptor, bytes.c_str(), static_cast<size_t>(bytes.Length()));
    } while (written < 0 && errno == EINTR);
    if (written == bytes.Length()) return 0;
    const int reason = written < 0 ? errno : ENOSPC;
    return ftruncate(descriptor, end) == 0 ? reason : errno;
}

}  // namespace

HistoryLine ParseHistoryLine(const Estring& line) {
    const int mark = MarkOf(line);
    if (mark == 0) return {-1, NameFromBytes(line.c_str())};
    return {atoi(line.c_str()), NameFromBytes(line.c_str() + mark + 1)};
}

Estring FormatHistoryLine(const HistoryLine& line) {
    const Estring text = NameToBytes(line.text);
    const bool oneLine = strpbrk(text.c_str(), kLineEnd) == nullptr;
    if (!oneLine || (line.field < 0 && MarkOf(text) != 0)) return Estring();
    const Estring whole =
        line.field < 0 ? text : Estring::Format("%d%c", line.field, kFieldMark) + text;
    return whole.Length() + 2 > kHistoryLineBytes ? Estring() : whole;
}

int HistoryFile::Read(EstringStore& lines) const {
    StdFile file;
    if (const int reason = file.Open(path, StdFile::kReadWrite)) return reason;
    char line[kHistoryLineBytes + 1];
    int result = 0;
    while ((result = file.ReadLine(line, sizeof line)) == 0)
        lines.Append(new Estring(line));
    return result == StdFile::kEndOfFile ? 0 : result;
}

int HistoryFile::Append(const Estring& line) const {
    const Estring name = NameToBytes(path);
    LockedFile file(name.c_str());
    if (const int reason = file.Open(O_RDWR | O_CREAT | O_APPEND)) return reason;
    const Estring begin = LastLineIsOpen(file.Descriptor()) ? kLineEnd : "";
    return WriteAtEnd(file.Descriptor(), begin + line + kLineEnd);
}

int HistoryFile::Change(const std::function<void(EstringStore& lines)>& change) const {
    const Estring name = NameToBytes(path);
    LockedFile file(name.c_str());
    if (const int reason = file.Open(O_RDWR)) return reason;
    EstringStore lines;
    if (const int reason = Read(lines)) return reason;
    change(lines);
    Estring text;
    for (int i = 0; i < lines.Count(); i++)
        text += *lines.Peek(i) + kLineEnd;
    ReplacingFile replacing;
    if (const int reason = replacing.Open(path)) return reason;
    return replacing.Commit(text);
}

}  // namespace zt
