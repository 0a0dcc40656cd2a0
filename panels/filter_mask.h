// A file mask made ready for many names: the same results as WildMatchWide. Immutable; any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "foundation/westring.h"

namespace zt {

class FilterMask {
public:
    explicit FilterMask(const Westring& mask);

    bool Matches(const wchar_t* name) const;

private:
    // What one character of a name must be: a character in upper case, kAnyCharacter, or a set.
    using Element = int32_t;
    static constexpr Element kAnyCharacter = -1;
    static constexpr Element kFirstSet = -2;  // the second set is -3, and so on
    using Piece = std::vector<Element>;
    // A mask without alternatives: the pieces between its '*'.
    using Form = std::vector<Piece>;
    struct Set {
        uint64_t ascii[2];  // a bit for each character
        Westring text;      // with its brackets
    };

    void Expand(const wchar_t* mask, Form form);
    const wchar_t* AppendOne(const wchar_t* mask, Form& form);
    Element AddSet(const wchar_t* begin, const wchar_t* end);
    const Set& SetOf(Element e) const { return sets_[static_cast<size_t>(kFirstSet - e)]; }
    bool IsIn(const Set& set, wchar_t ch) const;
    bool Fits(const Piece& piece, const wchar_t* text) const;
    bool Matches(const Form& form, const wchar_t* name, size_t length) const;

    Westring mask_;
    bool isPlain_;             // false: has too many alternatives, is left to WildMatchWide
    std::vector<Form> forms_;  // one for each choice of alternatives
    std::vector<Set> sets_;
};

}  // namespace zt
