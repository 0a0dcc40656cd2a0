// The wild-card matcher that every file mask of the program comes down to. Pure functions; any
// thread.
//
//   ?            any one character
//   [abc] [a-z]  one character of the set; [^...] one outside it
//   *            any run of characters, the empty one too
//   {one,two}    one of the alternatives, in which ? and [...] count but * is a plain character
//
// Case is ignored everywhere, sets included. A '[' with no ']' behind it, and a '{' with no '}'
// or with no alternative that leads to a match, stand for themselves.
#pragma once

namespace zt {

// Zero-ended bytes; case by toupper and tolower, so that above 127 it depends on the locale.
bool WildMatch(const char* mask, const char* text);

// Zero-ended code points; case by CUnicodeCaseFold. A private raw-byte code of file_name.h matches
// as the character that it shows as. Sets hold the codes up to 0xFFFF: a text character above is
// in no plain set and in every inverted one.
bool WildMatchWide(const wchar_t* mask, const wchar_t* text);

}  // namespace zt
