#include "commands/history_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
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

// Where the mark of a field stands in the line; 0: it is a command.
int MarkOf(const Estring& line) {
    for (int i = 1; i <= 2; i++) {
        if (line.Length() > i && line[i] == kFieldMark) return i;
    }
    return 0;
}

// The number in front of the mark; none of a list for what is no number.
int NumberBefore(const Estring& line, int mark) {
    int number = 0;
    for (int i = 0; i < mark; i++) {
        if (line[i] < '0' || line[i] > '9') return kNoStoredField;
        number = number * 10 + (line[i] - '0');
    }
    return number;
}

// Keeps other programs from writing the file, as long as this lives. The lock is on the directory:
// the file itself may be replaced while somebody waits. Where there are no locks, as on some
// networks, it goes as well as it can.
class DirectoryLock {
public:
    explicit DirectoryLock(const Westring& file)
        : descriptor(
              open(NameToBytes(ParentOfPath(file)).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        while (flock(descriptor, LOCK_EX) != 0 && errno == EINTR) {
        }
    }
    ~DirectoryLock() {
        if (descriptor >= 0) close(descriptor);
    }
    DirectoryLock(const DirectoryLock&) = delete;
    DirectoryLock& operator=(const DirectoryLock&) = delete;

private:
    const int descriptor;
};

// The descriptor, or less than 0: an errno value. A pipe in the file's place holds nobody up.
int OpenOrdinary(const Westring& path, int flags) {
    const int descriptor =
        open(NameToBytes(path).c_str(), flags | O_CLOEXEC | O_NONBLOCK, kNewFileMode);
    if (descriptor < 0) return -errno;
    struct stat held = {};
    if (fstat(descriptor, &held) == 0 && S_ISREG(held.st_mode)) return descriptor;
    close(descriptor);
    return -EOPNOTSUPP;
}

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
    return {NumberBefore(line, mark), NameFromBytes(line.c_str() + mark + 1)};
}

Estring FormatHistoryLine(const HistoryLine& line) {
    const Estring text = NameToBytes(line.text);
    const bool oneLine = strpbrk(text.c_str(), kLineEnd) == nullptr;
    if (!oneLine || (line.field < 0 && MarkOf(text) != 0)) return Estring();
    if (line.field >= kNoStoredField) return Estring();
    const Estring whole =
        line.field < 0 ? text : Estring::Format("%d%c", line.field, kFieldMark) + text;
    return whole.Length() + 2 > kHistoryLineBytes ? Estring() : whole;
}

int HistoryFile::Read(EstringStore& lines) const {
    const int descriptor = OpenOrdinary(path, O_RDONLY);
    if (descriptor < 0) return -descriptor;
    StdFile file;
    if (const int reason = file.Attach(descriptor)) return reason;
    char line[kHistoryLineBytes + 1];
    int result = 0;
    while ((result = file.ReadLine(line, sizeof line)) == 0)
        lines.Append(new Estring(line));
    return result == StdFile::kEndOfFile ? 0 : result;
}

int HistoryFile::Append(const Estring& line) const {
    const DirectoryLock lock(path);
    const int descriptor = OpenOrdinary(path, O_RDWR | O_CREAT | O_APPEND);
    if (descriptor < 0) return -descriptor;
    const Estring begin = LastLineIsOpen(descriptor) ? kLineEnd : "";
    const int result = WriteAtEnd(descriptor, begin + line + kLineEnd);
    close(descriptor);
    return result;
}

int HistoryFile::Change(const std::function<void(EstringStore& lines)>& change) const {
    const DirectoryLock lock(path);
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
