// The keys by which names are compared: a character's key, the two forms of name comparison, and
// the same order as a row of bytes for sorting in bulk. Pure functions but for the setting
// NaturalSort, which callers pass in.
#pragma once

#include <cstdint>
#include <vector>

namespace zt {

// The upper-case form of the shown character; the underscore counts as 1, before every printable
// character.
wchar_t ToSortKey(wchar_t ch);

// Below 0, 0, above 0. Plain: by the keys, character by character. Natural: where both have
// digits, by the numbers; numbers above 64 bits count as the largest. A difference that has no
// 32-bit form keeps its sign.
int CompareNames(const wchar_t* a, const wchar_t* b, bool natural);

// The text behind the last full stop; an empty text when there is none.
const wchar_t* ExtensionOf(const wchar_t* name);

// Appends bytes such that the bytes of two names compare (as unsigned, a prefix before what it
// begins) as CompareNames does. No byte is 0.
void AppendSortBytes(const wchar_t* name, bool natural, std::vector<uint8_t>& bytes);

}  // namespace zt
