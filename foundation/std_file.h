// A buffered binary file. It belongs to one thread at a time and closes itself when it goes. Every
// operation gives `lastError`: 0, the errno value of the last failure, or kEndOfFile. Reading and
// writing do nothing while it is set; Seek, Flush and Open clear it.
#pragma once

#include <cstdint>
#include <ctime>

#include <memory>

#include "foundation/westring.h"

namespace zt {

class StdFile {
public:
    enum OpenFlag {
        kReadWrite = 1,  // with kWrite: reading too
        kWrite = 2,      // empties the file unless kAppend is given
        kCreate = 4,
        kAppend = 8,       // keeps what is there; the position goes to the end
        kInherit = 16,     // programs started later get the descriptor
        kText = 32,        // WriteText turns each LF into CR LF
        kExecutable = 64,  // a file created gets mode 0775 in place of 0664
    };
    static constexpr int kEndOfFile = -1;  // the end of the file, and nothing read
    static constexpr int kBufferBytes = 4096;

    StdFile();
    virtual ~StdFile();
    StdFile(const StdFile&) = delete;
    StdFile& operator=(const StdFile&) = delete;

    // Close a file still open. The name is one of file_name.h, in wide form or in bytes.
    int Open(const Westring& fileName, int flags);
    int Open(const char* fileName, int flags);
    // Takes over an open descriptor, for instance the end of a pipe.
    int Attach(int descriptor);
    // A failed writing shows here too, unless it was cleared before.
    int Close();
    bool IsOpen() const { return handle != 0; }

    // One write of what is buffered. When the system takes only a part of it the rest is lost and
    // the result is ENOSPC.
    int Flush();
    // Reads up to n bytes and stores in *got how many: fewer only at the end or after a failure.
    // What the buffer could not hold anyway goes past it, both ways.
    int Read(void* target, int n, int* got);
    int Write(const void* bytes, int n);
    int WriteText(const char* text);  // zero-ended
    int WriteLine(const char* text);  // the text and a bare LF
    // Reads up to a LF, a NUL, the end, or size - 1 bytes, and drops trailing CR and LF. When
    // anything was read the result is 0, and the end of the file shows at the next call.
    int ReadLine(char* line, int size);

    int Seek(int64_t offset);
    int SeekRelative(int64_t delta);
    int Rewind() { return Seek(0); }
    int64_t Tell() const { return filePos - bufferFill + bufferPos; }
    int Truncate(int64_t size);
    // Whole seconds since 1970. Setting one writes out what is buffered first.
    int GetModificationTime(time_t* time);
    int SetModificationTime(time_t time);

    int Handle() const { return handle; }  // 0 when closed
    int LastError() const { return lastError; }
    const Westring& Name() const { return name; }

protected:
    int32_t handle;
    int32_t lastError;
    std::unique_ptr<char[]> buffer;
    int32_t bufferPos;
    int32_t bufferFill;  // bytes read into the buffer; 0 while it collects what to write
    int32_t writing;     // 1 while the buffer holds bytes to write, 0 while it holds bytes read
    int64_t filePos;     // where the descriptor stands
    Westring name;
    bool textMode;

private:
    int OpenBytes(const char* path, int flags);
    bool Refill();
    int ReadDirectly(char* target, int n);
    void WriteDirectly(const char* from, int n);
    bool StartReading();
    bool StartWriting();
    int MoveDescriptor(int64_t offset);
};

}  // namespace zt
