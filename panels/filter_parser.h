// The grammar of filter expressions. Walks the text once and says what it meets, operands before
// their operators, to who evaluates or compiles it. Nesting costs memory, not stack. Pure; any
// thread.
//
//   expression   andTerm { '|' andTerm }
//   andTerm      unary { '&' unary }
//   unary        '!' unary, or '(' expression ')', or a test
//   test         a comparison when it begins with '%', otherwise a mask
//
// Blanks before each of these are skipped. What follows a whole expression is not looked at.
#pragma once

#include "foundation/westring.h"

namespace zt {

// A comparison as it is written.
struct FilterComparison {
    Westring keyword;     // with its '%'
    Westring comparator;  // at most two characters; empty at the end of the text
    Westring value;       // without its quotes; begins with '@' when it names a file
};

class IFilterActions {
public:
    virtual ~IFilterActions() = default;
    virtual void Mask(const Westring& mask) = 0;
    virtual void Compare(const FilterComparison& comparison) = 0;
    virtual void Not() = 0;  // the last value becomes its negation
    virtual void And() = 0;  // the last two values become one
    virtual void Or() = 0;
    // A fault of the text at this place; parsing goes on behind it.
    virtual void Error(const Westring& text) = 0;
};

// `text` moves on as far as the expression reaches.
void ParseFilter(const wchar_t*& text, IFilterActions& actions);

}  // namespace zt
