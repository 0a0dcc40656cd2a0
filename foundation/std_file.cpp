#include "foundation/std_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <cstring>

#include <algorithm>

#include "foundation/file_name.h"
#include "foundation/system_call.h"

namespace zt {

namespace {

constexpr int kFirstFreeDescriptor = 3;

// Descriptor 0 stands for a closed file, so a real descriptor 0 gets another number.
int AwayFromZero(int descriptor, bool inherit) {
    if (descriptor != 0) return descriptor;
    int moved = fcntl(0, inherit ? F_DUPFD : F_DUPFD_CLOEXEC, kFirstFreeDescriptor);
    int error = errno;
    close(0);
    errno = error;
    return moved;
}

int SystemFlags(int flags) {
    int result = O_RDONLY;
    if ((flags & StdFile::kWrite) != 0) {
        result = (flags & StdFile::kReadWrite) != 0 ? O_RDWR : O_WRONLY;
        if ((flags & StdFile::kAppend) == 0) result |= O_TRUNC;
    }
    if ((flags & StdFile::kCreate) != 0) result |= O_CREAT;
    if ((flags & StdFile::kInherit) == 0) result |= O_CLOEXEC;
    return result;
}

}  // namespace

StdFile::StdFile()
    : handle(0),
      lastError(0),
      buffer(new char[kBufferBytes]),
      bufferPos(0),
      bufferFill(0),
      writing(0),
      filePos(0),
      textMode(false) {}

StdFile::~StdFile() {
    Close();
}

int StdFile::Open(const Westring& fileName, int flags) {
    Westring wide(fileName);  // the argument may be this file's own name
    Close();
    name = wide;
    return OpenBytes(NameToBytes(wide).c_str(), flags);
}

int StdFile::Open(const char* fileName, int flags) {
    Estring path(fileName);
    Close();
    name = NameFromBytes(path.c_str());
    return OpenBytes(path.c_str(), flags);
}

int StdFile::OpenBytes(const char* path, int flags) {
    lastError = 0;
    mode_t mode = (flags & kExecutable) != 0 ? 0775 : 0664;
    int descriptor = Uninterrupted([&] { return open(path, SystemFlags(flags), mode); });
    descriptor = AwayFromZero(descriptor, (flags & kInherit) != 0);
    if (descriptor < 0) return lastError = errno;
    handle = descriptor;
    textMode = (flags & kText) != 0;
    if ((flags & kAppend) != 0) filePos = std::max<int64_t>(lseek(handle, 0, SEEK_END), 0);
    return lastError;
}

int StdFile::Attach(int descriptor) {
    Close();
    lastError = 0;
    name.Clear();
    textMode = false;
    descriptor = AwayFromZero(descriptor, false);
    if (descriptor < 0) return lastError = EBADF;
    handle = descriptor;
    filePos = std::max<int64_t>(lseek(handle, 0, SEEK_CUR), 0);  // a pipe stands nowhere
    return lastError;
}

int StdFile::Close() {
    if (handle == 0) return lastError;
    int unreported = writing != 0 && lastError > 0 ? lastError : 0;
    int flushed = writing != 0 ? Flush() : 0;
    int closed = close(handle) < 0 ? errno : 0;
    handle = 0;
    bufferPos = bufferFill = writing = 0;
    filePos = 0;
    lastError = unreported != 0 ? unreported : flushed != 0 ? flushed : closed;
    return lastError;
}

int StdFile::Flush() {
    lastError = 0;
    if (writing == 0 || bufferPos == 0) return lastError;
    ssize_t written = Uninterrupted(
        [this] { return write(handle, buffer.get(), static_cast<size_t>(bufferPos)); });
    if (written < 0) {
        lastError = errno;
    } else {
        filePos += written;
        if (written < bufferPos) lastError = ENOSPC;
    }
    bufferPos = 0;
    return lastError;
}

// Sets the descriptor's place and empties the buffer. After a failure the place is what it was.
int StdFile::MoveDescriptor(int64_t offset) {
    if (lseek(handle, offset, SEEK_SET) < 0) return errno;
    bufferPos = bufferFill = 0;
    filePos = offset;
    return 0;
}

bool StdFile::StartReading() {
    if (writing == 0) return true;
    if (Flush() != 0) return false;
    writing = 0;
    return true;
}

bool StdFile::StartWriting() {
    if (writing != 0) return true;
    if (bufferPos < bufferFill) {
        lastError = MoveDescriptor(Tell());
        if (lastError != 0) return false;
    }
    bufferPos = bufferFill = 0;
    writing = 1;
    return true;
}

// False, with lastError set, at the end of the file and after a failure.
bool StdFile::Refill() {
    ssize_t got = Uninterrupted([this] { return read(handle, buffer.get(), kBufferBytes); });
    if (got <= 0) {
        lastError = got < 0 ? errno : kEndOfFile;
        return false;
    }
    bufferPos = 0;
    bufferFill = static_cast<int32_t>(got);
    filePos += got;
    return true;
}

// One read past the buffer, which is used up. 0, with lastError set, at the end of the file and
// after a failure.
int StdFile::ReadDirectly(char* target, int n) {
    bufferPos = bufferFill = 0;
    ssize_t got = Uninterrupted([&] { return read(handle, target, static_cast<size_t>(n)); });
    if (got <= 0) {
        lastError = got < 0 ? errno : kEndOfFile;
        return 0;
    }
    filePos += got;
    return static_cast<int>(got);
}

// Writes past the buffer, which is empty. What the system took only a part of goes on behind it.
void StdFile::WriteDirectly(const char* from, int n) {
    while (n > 0) {
        ssize_t written =
            Uninterrupted([&] { return write(handle, from, static_cast<size_t>(n)); });
        if (written <= 0) {
            lastError = written < 0 ? errno : ENOSPC;
            return;
        }
        filePos += written;
        from += written;
        n -= static_cast<int>(written);
    }
}

int StdFile::Read(void* target, int n, int* got) {
    *got = 0;
    if (lastError != 0) return lastError;
    if (handle == 0) return lastError = EBADF;
    if (!StartReading()) return lastError;
    while (*got < n) {
        const int wanted = n - *got;
        if (bufferPos == bufferFill && wanted >= kBufferBytes) {
            const int direct = ReadDirectly(static_cast<char*>(target) + *got, wanted);
            if (direct == 0) break;
            *got += direct;
            continue;
        }
        if (bufferPos == bufferFill && !Refill()) break;
        int piece = std::min(wanted, bufferFill - bufferPos);
        std::memcpy(static_cast<char*>(target) + *got, buffer.get() + bufferPos,
                    static_cast<size_t>(piece));
        bufferPos += piece;
        *got += piece;
    }
    if (*got > 0 && lastError == kEndOfFile) lastError = 0;
    return lastError;
}

int StdFile::Write(const void* bytes, int n) {
    if (lastError != 0) return lastError;
    if (handle == 0) return lastError = EBADF;
    if (!StartWriting()) return lastError;
    const char* from = static_cast<const char*>(bytes);
    while (n > 0) {
        if (bufferPos == 0 && n >= kBufferBytes) {
            WriteDirectly(from, n);
            break;
        }
        int piece = std::min(n, kBufferBytes - bufferPos);
        std::memcpy(buffer.get() + bufferPos, from, static_cast<size_t>(piece));
        bufferPos += piece;
        from += piece;
        n -= piece;
        if (bufferPos == kBufferBytes && Flush() != 0) break;
    }
    return lastError;
}

int StdFile::WriteText(const char* text) {
    while (text != nullptr && *text != 0) {
        const char* lineFeed = textMode ? std::strchr(text, '\n') : nullptr;
        size_t piece =
            lineFeed == nullptr ? std::strlen(text) : static_cast<size_t>(lineFeed - text);
        while (piece > 0 && lastError == 0) {
            int part = static_cast<int>(std::min<size_t>(piece, 1 << 30));
            Write(text, part);
            text += part;
            piece -= static_cast<size_t>(part);
        }
        if (lastError != 0) break;
        if (lineFeed != nullptr) {
            Write("\r\n", 2);
            text++;
        }
    }
    return lastError;
}

int StdFile::WriteLine(const char* text) {
    WriteText(text);
    return Write("\n", 1);
}

int StdFile::ReadLine(char* line, int size) {
    int stored = 0;
    while (stored < size - 1) {
        int got;
        if (Read(line + stored, 1, &got) != 0 || line[stored] == 0) break;
        if (line[stored++] == '\n') break;
    }
    if (stored > 0) lastError = 0;
    while (stored > 0 && (line[stored - 1] == '\r' || line[stored - 1] == '\n'))
        stored--;
    if (size > 0) line[stored] = 0;
    return lastError;
}

int StdFile::Seek(int64_t offset) {
    if (handle == 0) return lastError = EBADF;
    if (writing == 0 && offset >= filePos - bufferFill && offset <= filePos) {
        bufferPos = static_cast<int32_t>(offset - (filePos - bufferFill));
        return lastError = 0;
    }
    int flushed = writing != 0 ? Flush() : 0;
    writing = 0;
    int moved = MoveDescriptor(offset);
    return lastError = flushed != 0 ? flushed : moved;
}

int StdFile::SeekRelative(int64_t delta) {
    int64_t offset;
    if (__builtin_add_overflow(Tell(), delta, &offset)) return lastError = EOVERFLOW;
    return Seek(offset);
}

int StdFile::Truncate(int64_t size) {
    if (handle == 0) return lastError = EBADF;
    // Bytes read ahead may lie behind the new end: they are read again when they are wanted.
    int settled = writing != 0 ? Flush() : bufferFill > 0 ? MoveDescriptor(Tell()) : 0;
    int cut = Uninterrupted([&] { return ftruncate(handle, size); }) < 0 ? errno : 0;
    return lastError = settled != 0 ? settled : cut;
}

int StdFile::GetModificationTime(time_t* time) {
    struct stat status;
    if (handle == 0) return lastError = EBADF;
    if (fstat(handle, &status) < 0) return lastError = errno;
    *time = status.st_mtime;
    return lastError = 0;
}

int StdFile::SetModificationTime(time_t time) {
    if (handle == 0) return lastError = EBADF;
    // Bytes written later would set the time to now again.
    if (writing != 0 && Flush() != 0) return lastError;
    timespec times[2] = {{0, UTIME_OMIT}, {time, 0}};
    if (futimens(handle, times) < 0) return lastError = errno;
    return lastError = 0;
}

}  // namespace zt
