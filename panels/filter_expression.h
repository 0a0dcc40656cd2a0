// Filter expressions: whether an entry is meant. Masks and tests, joined by '&', '|', '!' and
// parentheses; all parts are always evaluated.
//
//   *.c | *.h        "two words*" & %size>=10k        !(%attrib=D) & %age<7d
//
// A test is a keyword, a comparator (< > = <= >= != ==) and a value: %size, %date, %age, %attrib,
// %owner, %group, %perm, %timestamp. These functions parse the text anew for every entry; for many
// entries see filter_compiled.h. A FilterEvaluator belongs to its caller; one thread at a time.
#pragma once

#include <cstdint>

#include "foundation/westring.h"
#include "panels/entry.h"

namespace zt {

// Values that may wait at one time; an expression that needs more is an error.
inline constexpr int kFilterStackCells = 100;

// The state of one evaluation. Kept over several entries it remembers the time of the file that
// the last "@" named, and the last error text.
struct FilterEvaluator {
    const wchar_t* text = nullptr;   // read position in the expression
    const entry* subject = nullptr;  // the entry under test
    int32_t stack[kFilterStackCells];
    bool hadError = false;
    int32_t stackTop = -1;      // index of the top value; counts on past the last cell
    int64_t stampFileTime = 0;  // seconds since the epoch
    Westring stampFileName;     // the file that it belongs to
    Westring errorText;         // the last error's
};

// 1 for a match, 0 for none, -1 for an error, of which evaluator.errorText then tells.
[[nodiscard]] int EvaluateFilter(FilterEvaluator& evaluator, const wchar_t* expression,
                                 const entry& subject);
// For an entry of which only the name is known; all else in it is 0.
[[nodiscard]] int EvaluateFilterName(FilterEvaluator& evaluator, const wchar_t* expression,
                                     const wchar_t* name);

// The same with an evaluator of their own, so without the error's text.
[[nodiscard]] int MatchesFilter(const wchar_t* expression, const entry& subject);
[[nodiscard]] int MatchesFilterName(const wchar_t* expression, const wchar_t* name);

}  // namespace zt
