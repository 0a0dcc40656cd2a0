// A filter expression that is parsed once and evaluated for many entries. Gives for every text and
// entry what a FilterEvaluator kept over the same entries would give, error texts included; only
// the users, groups and files that the expression names are looked up once instead of each time.
// Owned by who evaluates; one thread at a time.
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

    // 1 for a match, 0 for none, -1 for an error, of which errorText then tells.
    [[nodiscard]] int Evaluate(const entry& subject);
    // For an entry of which only the name is known; all else in it is 0.
    [[nodiscard]] int EvaluateName(const wchar_t* name);

    // True when this was made from exactly that text, under the date format that holds now: what
    // is kept for long is made anew when this is false.
    bool StandsFor(const Westring& expression) const;

    Westring errorText;  // of the last error; kept over evaluations without one

private:
    std::unique_ptr<FilterProgram> program_;
};

}  // namespace zt
