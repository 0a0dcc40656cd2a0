// Cutting of 8-bit text at separators, with quotes, and of lines into a key and a value. No state.
#pragma once

#include "foundation/estring.h"
#include "foundation/string_lists.h"

namespace zt {

// Appends the pieces of `text` to `out`; the last piece always, even when it is empty. `quote`
// keeps separators between two of it together and is dropped; doubled within quotes it stands for
// itself.
void Split(EstringStore& out, const char* text, char separator, char quote = '"');

// Cuts the line at its first separator: the trimmed text before it goes to `key`, that behind it
// up to a ';' trimmed to `value`. Without a separator, or with a ';' before it, the whole line
// goes to `key`, `value` is empty and the result false.
bool SplitKeyValue(const char* line, char separator, Estring& key, Estring& value);
// The same into buffers of so many bytes; what does not fit is cut.
bool SplitKeyValue(const char* line, char separator, char* key, int keySize, char* value,
                   int valueSize);

// Cuts the first token off `text`. A comma outside quotes ends it. Double quotes are dropped, but
// doubled within quotes they stand for one. '\' and one to three decimal digits are the byte of
// that value, '\' and another character is that character. LFs are dropped.
Estring NextToken(Estring& text);

// Adds each token of `text` to the list.
void ParseCommaList(StringCollection& list, const Estring& text);
// The items joined with ',' and not quoted.
Estring JoinCommaList(const StringCollection& list);

}  // namespace zt
