// A list of alternatives stands for as many masks, and for one more in which its '{' is a plain
// character. Of a mask without alternatives the first piece stands at the start of the name, the
// last at its end, the others at the leftmost place that follows the one before.
#include "panels/filter_mask.h"

#include <algorithm>
#include <cwchar>

#include "foundation/case_fold.h"
#include "foundation/file_name.h"
#include "foundation/wild_match.h"

namespace zt {

namespace {

constexpr wchar_t kAsciiEnd = 0x80;
// More are not worth their memory.
constexpr size_t kMostForms = 64;
constexpr int kMostLists = 6;

int32_t Folded(wchar_t ch) {
    if (ch >= 0 && ch < kAsciiEnd) return ch >= L'a' && ch <= L'z' ? ch - (L'a' - L'A') : ch;
    return UpperCaseOf(ShownCharacter(ch));
}

// Behind the character or the set that stands here.
const wchar_t* Behind(const wchar_t* mask) {
    const wchar_t* end = *mask == L'[' ? wcschr(mask, L']') : nullptr;
    return end ? end + 1 : mask + 1;
}

// The '}' of a list of alternatives, or null.
const wchar_t* ListEnd(const wchar_t* list) {
    while (*list != 0 && *list != L'}')
        list = Behind(list);
    return *list != 0 ? list : nullptr;
}

}  // namespace

FilterMask::FilterMask(const Westring& mask) : mask_(mask) {
    const wchar_t* text = mask_.c_str();
    isPlain_ = std::count(text, text + mask_.Length(), L'{') <= kMostLists;
    if (isPlain_) Expand(text, Form(1));
}

// An alternative that is empty counts only in front of a ','.
void FilterMask::Expand(const wchar_t* mask, Form form) {
    while (*mask != 0 && isPlain_) {
        if (*mask == L'*') {
            form.emplace_back();
            ++mask;
            continue;
        }
        if (const wchar_t* end = *mask == L'{' ? ListEnd(mask + 1) : nullptr) {
            for (const wchar_t* at = mask + 1; at < end; ++at) {
                Form chosen = form;
                while (at < end && *at != L',')
                    at = AppendOne(at, chosen);
                Expand(end + 1, chosen);
            }
        }
        mask = AppendOne(mask, form);
    }
    if (forms_.size() == kMostForms) isPlain_ = false;
    if (isPlain_) forms_.push_back(std::move(form));
}

const wchar_t* FilterMask::AppendOne(const wchar_t* mask, Form& form) {
    const wchar_t* end = Behind(mask);
    if (end > mask + 1) {
        form.back().push_back(AddSet(mask, end));
    } else {
        const Element element = *mask == L'?' ? kAnyCharacter : Folded(*mask);
        if (*mask < 0) isPlain_ = false;  // no character at all
        form.back().push_back(element);
    }
    return end;
}

FilterMask::Element FilterMask::AddSet(const wchar_t* begin, const wchar_t* end) {
    Set set = {};
    set.text.Assign(begin, static_cast<int>(end - begin));
    for (wchar_t ch = 1; ch < kAsciiEnd; ++ch) {
        const wchar_t text[] = {ch, 0};
        if (WildMatchWide(set.text.c_str(), text)) set.ascii[ch / 64] |= uint64_t{1} << ch % 64;
    }
    sets_.push_back(std::move(set));
    return kFirstSet - static_cast<Element>(sets_.size() - 1);
}

bool FilterMask::IsIn(const Set& set, wchar_t ch) const {
    if (ch >= 0 && ch < kAsciiEnd) return set.ascii[ch / 64] >> ch % 64 & 1;
    const wchar_t text[] = {ch, 0};
    return WildMatchWide(set.text.c_str(), text);
}

// The text has at least as many characters.
bool FilterMask::Fits(const Piece& piece, const wchar_t* text) const {
    for (size_t i = piece.size(); i-- > 0;) {
        const Element wanted = piece[i];
        const bool fits = wanted >= 0 ? wanted == Folded(text[i])
                                      : wanted == kAnyCharacter || IsIn(SetOf(wanted), text[i]);
        if (!fits) return false;
    }
    return true;
}

bool FilterMask::Matches(const wchar_t* name) const {
    if (!isPlain_) return WildMatchWide(mask_.c_str(), name);
    const size_t length = wcslen(name);
    for (const Form& form : forms_) {
        if (Matches(form, name, length)) return true;
    }
    return false;
}

bool FilterMask::Matches(const Form& form, const wchar_t* name, size_t length) const {
    const Piece& first = form.front();
    if (form.size() == 1) return length == first.size() && Fits(first, name);
    const Piece& last = form.back();
    if (length < first.size() + last.size()) return false;
    const size_t end = length - last.size();
    if (!Fits(last, name + end) || !Fits(first, name)) return false;
    size_t at = first.size();
    for (size_t i = 1; i + 1 < form.size(); ++i) {
        const Piece& piece = form[i];
        while (at + piece.size() <= end && !Fits(piece, name + at))
            ++at;
        if (at + piece.size() > end) return false;
        at += piece.size();
    }
    return true;
}

}  // namespace zt
