// A file mask made ready for many names: the same results as WildMatchWide. Immutable; any thread.
#pragma once

#include <string>
#include <vector>

#include "foundation/westring.h"

namespace zt {

class FilterMask {
public:
    explicit FilterMask(const Westring& mask);

    bool Matches(const wchar_t* name) const;

private:
    bool MatchesPieces(const wchar_t* name) const;

    Westring mask_;
    bool hasLists_;                     // sets or alternatives: left to WildMatchWide
    std::vector<std::wstring> pieces_;  // what stands between the '*', in upper case
};

}  // namespace zt
