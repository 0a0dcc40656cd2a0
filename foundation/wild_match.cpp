// The matcher for both widths of characters, written once over the traits of each.
//
// A mask without alternatives is walked with one point to come back to, the last '*': the piece
// between two '*' is of fixed length, so its leftmost place is as good as any other. With
// alternatives that no longer holds; then all places of the text that the mask can have reached
// are carried along together. Both ways take time of mask length times text length at most.
#include "foundation/wild_match.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <map>
#include <utility>
#include <vector>

#include "foundation/case_fold.h"
#include "foundation/file_name.h"

namespace zt {

namespace {

// What a member of a set may be, and the end of a range whose right side is missing.
constexpr unsigned kLastSetCode = 0xFFFF;
constexpr unsigned kOpenRangeEnd = 255;

struct NarrowTraits {
    using Char = char;
    static unsigned Code(char ch) { return static_cast<unsigned char>(ch); }
    static unsigned Fold(unsigned code) {
        return static_cast<unsigned>(toupper(static_cast<int>(code)));
    }
    static unsigned SetFold(unsigned code) {
        return static_cast<unsigned>(tolower(static_cast<int>(code)));
    }
    // The left side of a range is kept as a signed byte.
    static bool CanStartRange(unsigned code) { return code <= 127; }
    static bool RangeHolds(unsigned first, unsigned last, unsigned folded) {
        for (unsigned code = first; code <= last; code++) {
            if (SetFold(code) == folded) return true;
        }
        return false;
    }
    static size_t Length(const char* text) { return strlen(text); }
    static const char* Find(const char* text, char ch) { return strchr(text, ch); }
    static const char* FindLast(const char* text, char ch) { return strrchr(text, ch); }
};

// (upper-case form, code) of every code of the first plane that is not its own upper-case form.
const std::vector<std::pair<unsigned, unsigned>>& FoldedCodes() {
    static const std::vector<std::pair<unsigned, unsigned>> codes = [] {
        std::vector<std::pair<unsigned, unsigned>> made;
        for (unsigned code = 1; code <= kLastSetCode; code++) {
            const auto upper = static_cast<unsigned>(UpperCaseOf(static_cast<wchar_t>(code)));
            if (upper != code) made.emplace_back(upper, code);
        }
        std::sort(made.begin(), made.end());
        return made;
    }();
    return codes;
}

struct WideTraits {
    using Char = wchar_t;
    static unsigned Code(wchar_t ch) { return static_cast<unsigned>(ShownCharacter(ch)); }
    static unsigned Fold(unsigned code) {
        return static_cast<unsigned>(UpperCaseOf(static_cast<wchar_t>(code)));
    }
    static unsigned SetFold(unsigned code) { return Fold(code); }
    static bool CanStartRange(unsigned) { return true; }
    static bool RangeHolds(unsigned first, unsigned last, unsigned folded) {
        last = std::min(last, kLastSetCode);
        if (first <= folded && folded <= last && Fold(folded) == folded) return true;
        const auto& codes = FoldedCodes();
        auto it = std::lower_bound(codes.begin(), codes.end(), std::make_pair(folded, first));
        return it != codes.end() && it->first == folded && it->second <= last;
    }
    static size_t Length(const wchar_t* text) { return wcslen(text); }
    static const wchar_t* Find(const wchar_t* text, wchar_t ch) { return wcschr(text, ch); }
    static const wchar_t* FindLast(const wchar_t* text, wchar_t ch) { return wcsrchr(text, ch); }
};

// Whether the set whose '[' stands at `set` and whose ']' at `end` holds the text character. The
// members are taken in order, since each one overrules what an earlier one said.
template <class Traits>
bool InSet(const typename Traits::Char* set, const typename Traits::Char* end, unsigned textCode) {
    const auto* p = set + 1;
    const bool inverted = *p == '^';
    if (inverted) p++;
    bool held = inverted;
    if (textCode > kLastSetCode) return held;
    const unsigned folded = Traits::SetFold(textCode);
    bool sense = !inverted;
    unsigned previous = 0;
    for (; p < end; p++) {
        const unsigned code = Traits::Code(*p);
        if (code == '^') {
            sense = !sense;
        } else if (code == '-' && Traits::CanStartRange(previous)) {
            unsigned last = kOpenRangeEnd;
            if (p + 1 < end) last = Traits::Code(*++p);
            if (Traits::RangeHolds(previous, last, folded)) held = sense;
            previous = last;
        } else {
            if (Traits::SetFold(code) == folded) held = sense;
            previous = code;
        }
    }
    return held;
}

template <class Traits>
class Matcher {
    using Char = typename Traits::Char;

public:
    Matcher(const Char* mask, const Char* text)
        : text_(text), lastBracket_(Traits::FindLast(mask, ']')) {}

    bool Match(const Char* mask) const {
        return Traits::Find(mask, '{') ? MatchAlternatives(mask) : MatchPlain(mask);
    }

private:
    // The ']' of a set that begins here, or null.
    const Char* SetEnd(const Char* mask) const {
        return *mask == '[' && mask < lastBracket_ ? Traits::Find(mask, ']') : nullptr;
    }
    const Char* Behind(const Char* mask) const {
        const Char* end = SetEnd(mask);
        return end ? end + 1 : mask + 1;
    }
    // Whether one text character, which may be the end, fits a '?', a set or a plain character.
    bool Fits(const Char* mask, Char ch) const {
        if (ch == 0) return false;
        if (*mask == '?') return true;
        if (const Char* end = SetEnd(mask)) return InSet<Traits>(mask, end, Traits::Code(ch));
        return Traits::Fold(Traits::Code(*mask)) == Traits::Fold(Traits::Code(ch));
    }

    bool MatchPlain(const Char* mask) const;
    bool MatchAlternatives(const Char* mask) const;

    // For each position of the text, its end included, whether the mask can have come there.
    using Places = std::vector<char>;
    bool Advance(const Char* mask, Places& places) const;
    void AddAlternatives(const Char* list, const Char* end, const Places& from, Places& to) const;
    const Char* ListEnd(const Char* list) const;

    const Char* text_;
    const Char* lastBracket_;
};

template <class Traits>
bool Matcher<Traits>::MatchPlain(const Char* mask) const {
    const Char* text = text_;
    const Char* starMask = nullptr;  // behind the last '*'
    const Char* starText = nullptr;  // where the text for it was tried last
    for (;;) {
        if (*mask == '*') {
            starMask = ++mask;
            starText = text;
            if (*mask == 0) return true;
        } else if (*mask == 0 && *text == 0) {
            return true;
        } else if (*mask != 0 && Fits(mask, *text)) {
            mask = Behind(mask);
            text++;
        } else {
            if (!starMask || *starText == 0) return false;
            mask = starMask;
            text = ++starText;
        }
    }
}

// Takes every place over one text character that fits; false when no place is left.
template <class Traits>
bool Matcher<Traits>::Advance(const Char* mask, Places& places) const {
    bool any = false;
    for (size_t i = places.size() - 1; i > 0; i--) {
        places[i] = places[i - 1] && Fits(mask, text_[i - 1]);
        any = any || places[i];
    }
    places[0] = 0;
    return any;
}

template <class Places>
void Join(Places& to, const Places& from) {
    for (size_t i = 0; i < to.size(); i++) {
        if (from[i]) to[i] = 1;
    }
}

// The '}' that ends a list of alternatives: the first one outside sets, or null.
template <class Traits>
const typename Traits::Char* Matcher<Traits>::ListEnd(const Char* list) const {
    while (*list != 0 && *list != '}')
        list = Behind(list);
    return *list ? list : nullptr;
}

// Adds the places behind each alternative of list..end. An empty alternative counts in front of a
// ',' only.
template <class Traits>
void Matcher<Traits>::AddAlternatives(const Char* list, const Char* end, const Places& from,
                                      Places& to) const {
    for (const Char* p = list; p < end; p++) {
        Places places = from;
        bool any = true;
        for (; p < end && *p != ','; p = Behind(p))
            any = any && Advance(p, places);
        if (any) Join(to, places);
    }
}

template <class Traits>
bool Matcher<Traits>::MatchAlternatives(const Char* mask) const {
    Places places(Traits::Length(text_) + 1, 0);
    places[0] = 1;
    bool any = true;
    std::map<const Char*, Places> later;  // what alternatives reached, by the place behind the '}'
    for (;;) {
        if (auto joined = later.find(mask); joined != later.end()) {
            Join(places, joined->second);
            later.erase(joined);
            any = any || std::find(places.begin(), places.end(), 1) != places.end();
        }
        if (*mask == 0) return places.back() != 0;
        if (!any && later.empty()) return false;
        if (*mask == '*') {
            std::fill(std::find(places.begin(), places.end(), 1), places.end(), 1);
            mask++;
            continue;
        }
        const Char* end = any && *mask == '{' ? ListEnd(mask + 1) : nullptr;
        if (end) {
            Places& target = later.try_emplace(end + 1, places.size(), 0).first->second;
            AddAlternatives(mask + 1, end, places, target);
        }
        any = Advance(mask, places);
        mask = Behind(mask);
    }
}

}  // namespace

bool WildMatch(const char* mask, const char* text) {
    return Matcher<NarrowTraits>(mask, text).Match(mask);
}

bool WildMatchWide(const wchar_t* mask, const wchar_t* text) {
    return Matcher<WideTraits>(mask, text).Match(mask);
}

}  // namespace zt
