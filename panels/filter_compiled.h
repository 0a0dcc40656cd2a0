// A filter expression that is parsed once and evaluated for many entries, with the results and
// error texts of filter_expression.h; only the users, groups and files that the expression names
// are looked up once instead of each time. Owned by who evaluates; one thread at a time.
#pragma once

#include <memory>

#include "foundation/westring.h"
#include "panels/entry.h"

namespace zt {

class FilterProgram;

class CompiledFilter {
public:
    // Any text will do: one that is no expression gives -1 when it is evaluated.
    explicit CompiledFilter(const Westring& expression);
    ~CompiledFilter();
    CompiledFilter(CompiledFilter&&) noexcept;
    CompiledFilter& operator=(CompiledFilter&&) noexcept;

    // 1 for a match, 0 for none, -1 for an error, of which errorText then tells. As one
    // FilterEvaluator kept over all the entries: a file behind an "@" that is missing is an error
    // for the first entry only, and has the time 0 from then on.
    [[nodiscard]] int Evaluate(const entry& subject);
    [[nodiscard]] int EvaluateName(const wchar_t* name);  // all else in the entry is 0

    // As MatchesFilter and MatchesFilterName, with an evaluator of its own for each entry: a
    // missing file is an error each time.
    [[nodiscard]] int Matches(const entry& subject);
    [[nodiscard]] int MatchesName(const wchar_t* name);

    // What is kept for long looks for the files behind "@" again from time to time.
    void ForgetFiles();
    // True when this was made from exactly that text, under the date format that holds now: what
    // is kept for long is made anew when this is false.
    bool StandsFor(const Westring& expression) const;

    Westring errorText;  // of the last error; kept over evaluations without one

private:
    std::unique_ptr<FilterProgram> program_;
};

}  // namespace zt
