// The wide string of the program: one Unicode code point per element. Names that come from the
// file system may also hold the private codes of file_name.h.
// A string belongs to one thread at a time; nothing here locks. There is no error state.
#pragma once

#include <cstdint>

#include "foundation/estring.h"

namespace zt {

static_assert(sizeof(wchar_t) == 4, "one element holds one code point");

class Westring {
public:
    static constexpr int kInlineCapacity = 21;

    // Reads one character without letting a caller write past the terminator.
    class Reader {
    public:
        Reader(const Westring& text, int index) : text_(text), index_(index) {}
        operator wchar_t() const;

    private:
        const Westring& text_;
        int index_;
    };

    Westring();
    Westring(const char* utf8);     // null gives an empty string
    Westring(const wchar_t* text);  // null gives an empty string
    Westring(const Estring& utf8);
    Westring(const Westring& other);
    Westring(Westring&& other) noexcept;
    explicit Westring(int reserve);  // empty, with room for `reserve` characters
    ~Westring();

    Westring& operator=(const Westring& other);
    Westring& operator=(Westring&& other) noexcept;
    Westring& operator=(const wchar_t* text);  // null empties the string
    Westring& operator=(const char* utf8);     // null empties the string

    void Assign(const wchar_t* text, int n);
    // Decodes; false when some sequence was malformed. Its lead byte then stands as the code
    // point of the same value, and decoding goes on behind it.
    bool AssignUtf8(const char* utf8);
    bool AssignUtf8(const char* utf8, int n);
    void Clear();
    int Length() const { return length; }
    int Capacity() const { return capacity; }
    bool IsEmpty() const { return length == 0; }
    const wchar_t* c_str() const { return data; }

    Westring& operator+=(const Westring& other);
    Westring& operator+=(const wchar_t* text);  // null is ignored
    Westring& operator+=(const char* utf8);     // null is ignored
    Westring& operator+=(wchar_t ch);           // so is a 0
    Westring& operator+=(char ch);              // sign-extended
    // Appends n elements; a 0 among them ends the text there.
    void Append(const wchar_t* text, int n);

    // The index is clamped to the capacity less one.
    Reader operator[](int index) const { return Reader(*this, index); }
    // As Estring::SetAt.
    void SetAt(int index, wchar_t ch);

    Westring Left(int n) const;
    Westring Mid(int start, int n = 0) const;  // n of 0, or one too long, means up to the end
    Westring Right(int n) const;
    Westring DropRight(int n) const;
    Westring PadRight(int width, wchar_t fill = L' ') const;
    Westring PadLeft(int width, wchar_t fill = L' ') const;
    static Westring Repeat(wchar_t ch, int n);

    int Find(wchar_t ch) const;  // index or -1
    int FindLast(wchar_t ch) const;
    int Find(const Westring& text) const;
    int Find(const Westring& text, int from) const;
    int FindNoCase(const Westring& text) const;
    int FindNth(wchar_t ch, int n) const;  // the n-th occurrence, counted from 1; index or -1
    int FindOutsideQuotes(wchar_t ch) const;

    bool ReplaceFirst(const Westring& old, const Westring& replacement);
    bool ReplaceAll(const Westring& old, const Westring& replacement);

    Westring TrimLeft() const;
    Westring TrimRight() const;
    Westring Trim() const;
    Westring ToUpper() const;
    Westring ToLower() const;

    Estring ToUtf8() const;
    Estring ToNarrow() const;                          // each element cut to its low byte
    static Westring FromWiden(const Estring& bytes);   // Latin-1
    static Westring FromUtf16(const uint16_t* units);  // zero-ended
    // Code pages by number, converted with iconv. False when a byte had no meaning (it becomes
    // U+2302) or when the code page is unknown (the target is then left empty).
    static bool FromCodePage(const char* bytes, int codePage, Westring& target);
    // Empty when the code page is unknown; stops before the first character it lacks.
    Estring ToCodePage(int codePage) const;

    void AddTrailingSlash();
    void RemoveTrailingSlash();
    // For text that somebody wrote; for real paths see file_name.h.
    static int LastSlash(const wchar_t* text);  // '/' and '\' both separate; index or -1
    Westring FileNamePart() const;
    Westring DirectoryPart() const;

private:
    void ReallocateDiscarding(int n);
    void GrowPreserving(int n);
    void Release();

    wchar_t* data;
    int32_t capacity;
    int32_t length;
    wchar_t inlineBuffer[kInlineCapacity];
};

Westring operator+(const Westring& a, const Westring& b);
Westring operator+(const wchar_t* a, const Westring& b);
Westring operator+(const Westring& a, const wchar_t* b);
Westring operator+(const char* utf8, const Westring& b);
Westring operator+(const Westring& a, const char* utf8);

// Both ignore case (wcscasecmp); a case-sensitive comparison is wcscmp on c_str().
bool operator==(const Westring& a, const Westring& b);
bool operator==(const Westring& a, const wchar_t* b);
bool operator!=(const Westring& a, const Westring& b);
bool operator!=(const Westring& a, const wchar_t* b);

}  // namespace zt
