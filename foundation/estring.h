// The 8-bit string of the program. Its bytes are UTF-8 unless the user of it says otherwise.
// A string belongs to one thread at a time; nothing here locks. There is no error state.
#pragma once

#include <cstdarg>
#include <cstdint>

namespace zt {

class Estring {
public:
    static constexpr int kInlineCapacity = 21;

    // Reads one character without letting a caller write past the terminator.
    class Reader {
    public:
        Reader(const Estring& text, int index) : text_(text), index_(index) {}
        operator char() const;

    private:
        const Estring& text_;
        int index_;
    };

    Estring();
    Estring(const char* text);  // null gives an empty string
    Estring(const Estring& other);
    Estring(Estring&& other) noexcept;
    explicit Estring(int reserve);  // empty, with room for `reserve` characters
    ~Estring();

    Estring& operator=(const Estring& other);
    Estring& operator=(Estring&& other) noexcept;
    Estring& operator=(const char* text);  // null empties the string

    void Assign(const char* bytes, int n);
    void Clear();
    int Length() const { return length; }
    int Capacity() const { return capacity; }
    bool IsEmpty() const { return length == 0; }
    const char* c_str() const { return data; }

    Estring& operator+=(const Estring& other);
    Estring& operator+=(const char* text);  // null is ignored
    Estring& operator+=(char ch);           // so is a 0
    // Appends exactly n bytes; a NUL among them ends the text there.
    void Append(const char* bytes, int n);

    // The index is clamped to the capacity less one.
    Reader operator[](int index) const { return Reader(*this, index); }
    // At or past the length: the length becomes index + 1 and the bytes between keep what the
    // block held. Storing 0 below the length cuts the text there.
    void SetAt(int index, char ch);

    Estring Left(int n) const;
    Estring Mid(int start, int n = 0) const;  // n of 0, or one too long, means up to the end
    Estring Right(int n) const;
    Estring DropRight(int n) const;
    Estring PadRight(int width, char fill = ' ') const;
    Estring PadLeft(int width, char fill = ' ') const;
    static Estring Repeat(char ch, int n);

    int Find(char ch) const;  // index or -1
    int FindLast(char ch) const;
    int FindOutsideQuotes(char ch, char quote = '"') const;

    Estring TrimLeft() const;
    Estring TrimRight() const;
    Estring Trim() const;

    // At most 1023 characters; what is longer is cut.
    static Estring Format(const char* format, ...) __attribute__((format(printf, 1, 2)));

    // Radix 2 to 36, digits above 9 in upper case.
    static Estring FromInteger(int32_t value, int radix = 10);
    static Estring FromUnsigned(uint32_t value, int radix = 10);
    static Estring FromInteger64(int64_t value, int radix = 10);
    // n bytes (a NUL ends them), right end trimmed.
    static Estring FromBuffer(const char* bytes, int n);
    // The system's text for an errno value, right end trimmed.
    static Estring ErrorText(int errnum);
    // Expands tabs with this program's own stops: a tab at column c becomes
    // tabSize - c % tabSize - 1 blanks.
    static Estring ExpandTabs(const char* text, int tabSize);

    void AddTrailingSlash();
    void RemoveTrailingSlash();
    // For text that somebody wrote; for real paths see file_name.h.
    static int LastSlash(const char* text);  // '/' and '\' both separate; index or -1
    Estring FileNamePart() const;
    Estring DirectoryPart() const;

private:
    void ReallocateDiscarding(int n);
    void GrowPreserving(int n);
    void Release();

    char* data;
    int32_t capacity;
    int32_t length;
    char inlineBuffer[kInlineCapacity];
};

Estring operator+(const Estring& a, const Estring& b);
Estring operator+(const char* a, const Estring& b);
Estring operator+(const Estring& a, const char* b);

// All relations ignore case (strcasecmp); a case-sensitive comparison is strcmp on c_str().
bool operator==(const Estring& a, const Estring& b);
bool operator==(const Estring& a, const char* b);
bool operator!=(const Estring& a, const Estring& b);
bool operator!=(const Estring& a, const char* b);
bool operator<(const Estring& a, const Estring& b);
bool operator<(const Estring& a, const char* b);
bool operator<=(const Estring& a, const Estring& b);
bool operator<=(const Estring& a, const char* b);
bool operator>(const Estring& a, const Estring& b);
bool operator>(const Estring& a, const char* b);
bool operator>=(const Estring& a, const Estring& b);
bool operator>=(const Estring& a, const char* b);

}  // namespace zt
