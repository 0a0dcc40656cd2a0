// A mask without sets and alternatives is its pieces between the '*': the first stands at the start
// of the name, the last at its end, the others at the leftmost place that follows the one before.
#include "panels/filter_mask.h"

#include <cwchar>

#include "foundation/case_fold.h"
#include "foundation/file_name.h"
#include "foundation/wild_match.h"

namespace zt {

namespace {

constexpr wchar_t kAsciiEnd = 0x80;
constexpr wchar_t kAnyCharacter = -1;  // stands for a '?' in a piece

wchar_t Folded(wchar_t ch) {
    if (ch >= 0 && ch < kAsciiEnd) return ch >= L'a' && ch <= L'z' ? ch - (L'a' - L'A') : ch;
    return UpperCaseOf(ShownCharacter(ch));
}

// The text has at least as many characters.
bool Fits(const std::wstring& piece, const wchar_t* text) {
    for (size_t i = piece.size(); i-- > 0;) {
        if (piece[i] != kAnyCharacter && piece[i] != Folded(text[i])) return false;
    }
    return true;
}

}  // namespace

FilterMask::FilterMask(const Westring& mask)
    : mask_(mask), hasLists_(mask.Find(L'[') >= 0 || mask.Find(L'{') >= 0), pieces_(1) {
    for (const wchar_t* at = mask_.c_str(); *at != 0; ++at) {
        if (*at == L'*') {
            pieces_.emplace_back();
        } else {
            pieces_.back() += *at == L'?' ? kAnyCharacter : Folded(*at);
        }
    }
}

bool FilterMask::Matches(const wchar_t* name) const {
    return hasLists_ ? WildMatchWide(mask_.c_str(), name) : MatchesPieces(name);
}

bool FilterMask::MatchesPieces(const wchar_t* name) const {
    const size_t length = wcslen(name);
    const std::wstring& first = pieces_.front();
    if (pieces_.size() == 1) return length == first.size() && Fits(first, name);
    const std::wstring& last = pieces_.back();
    if (length < first.size() + last.size()) return false;
    const size_t end = length - last.size();
    if (!Fits(last, name + end) || !Fits(first, name)) return false;
    size_t at = first.size();
    for (size_t i = 1; i + 1 < pieces_.size(); ++i) {
        const std::wstring& piece = pieces_[i];
        while (at + piece.size() <= end && !Fits(piece, name + at))
            ++at;
        if (at + piece.size() > end) return false;
        at += piece.size();
    }
    return true;
}

}  // namespace zt
