// One loop over the operands of the expression; what waits for its right side is kept in a list of
// levels, one for each parenthesis that is open.
#include "panels/filter_parser.h"

#include <vector>

#include "foundation/locale_formats.h"

namespace zt {

namespace {

bool IsLetter(wchar_t ch) {
    return (ch >= L'a' && ch <= L'z') || (ch >= L'A' && ch <= L'Z');
}

bool IsDigit(wchar_t ch) {
    return ch >= L'0' && ch <= L'9';
}

bool IsValueCharacter(wchar_t ch) {
    return IsLetter(ch) || IsDigit(ch) || (ch != 0 && ch == localeFormats.dateSeparator);
}

bool EndsMask(wchar_t ch) {
    return ch == L'&' || ch == L'|' || ch == L')';
}

bool EndsFileName(wchar_t ch) {
    return EndsMask(ch) || ch == L' ';
}

// What waits on one level of parentheses for the operand that comes next.
struct Level {
    bool orWaits = false;
    bool andWaits = false;
    bool negated = false;  // an odd number of '!'
};

class FilterParser {
public:
    FilterParser(const wchar_t*& text, IFilterActions& actions) : text_(text), actions_(actions) {}

    void Run();

private:
    void SkipBlanks();
    // Takes the character, and the blanks before it, when it comes next.
    bool Take(wchar_t ch);
    // Everything up to the end of the next test.
    void Operand();
    // What follows an operand; true when another operand has to come.
    bool Operators();
    // The level ends here: true when the one around it goes on with its value.
    bool Close();
    void Mask();
    void Comparison();
    Westring Quotable(bool (*ends)(wchar_t));
    Westring TakeAll(bool (*belongs)(wchar_t));

    const wchar_t*& text_;
    IFilterActions& actions_;
    Level level_;
    std::vector<Level> outer_;
};

void FilterParser::SkipBlanks() {
    while (*text_ == L' ')
        ++text_;
}

bool FilterParser::Take(wchar_t ch) {
    SkipBlanks();
    if (*text_ != ch) return false;
    ++text_;
    return true;
}

void FilterParser::Run() {
    do {
        Operand();
    } while (Operators());
}

void FilterParser::Operand() {
    for (;;) {
        if (Take(L'!')) {
            level_.negated = !level_.negated;
        } else if (Take(L'(')) {
            outer_.push_back(level_);
            level_ = Level();
        } else {
            break;
        }
    }
    if (*text_ == L'%') {
        Comparison();
    } else {
        Mask();
    }
}

bool FilterParser::Operators() {
    for (;;) {
        if (level_.negated) actions_.Not();
        level_.negated = false;
        if (level_.andWaits) actions_.And();
        level_.andWaits = Take(L'&');
        if (level_.andWaits) return true;
        if (level_.orWaits) actions_.Or();
        level_.orWaits = Take(L'|');
        if (level_.orWaits) return true;
        if (!Close()) return false;
    }
}

bool FilterParser::Close() {
    if (outer_.empty()) return false;
    if (!Take(L')')) actions_.Error(L") expected");
    level_ = outer_.back();
    outer_.pop_back();
    return true;
}

// The characters up to one that ends the text outside double quotes, without the quotes.
Westring FilterParser::Quotable(bool (*ends)(wchar_t)) {
    Westring taken;
    bool quoted = false;
    for (; *text_ != 0 && (quoted || !ends(*text_)); ++text_) {
        if (*text_ == L'"') {
            quoted = !quoted;
        } else {
            taken += *text_;
        }
    }
    return taken;
}

Westring FilterParser::TakeAll(bool (*belongs)(wchar_t)) {
    const wchar_t* start = text_;
    while (belongs(*text_))
        ++text_;
    Westring taken;
    taken.Assign(start, static_cast<int>(text_ - start));
    return taken;
}

void FilterParser::Mask() {
    Westring mask = Quotable(EndsMask);
    int length = mask.Length();
    while (length > 0 && mask[length - 1] == L' ')
        --length;
    mask = mask.DropRight(mask.Length() - length);
    if (mask.IsEmpty()) actions_.Error(L"File mask expected");
    actions_.Mask(mask);
}

void FilterParser::Comparison() {
    FilterComparison comparison;
    comparison.keyword += *text_++;
    comparison.keyword += TakeAll(IsLetter);
    SkipBlanks();
    if (*text_ != 0) comparison.comparator += *text_++;
    if (!comparison.comparator.IsEmpty() && *text_ == L'=') comparison.comparator += *text_++;
    SkipBlanks();
    comparison.value = *text_ == L'@' ? Quotable(EndsFileName) : TakeAll(IsValueCharacter);
    actions_.Compare(comparison);
}

}  // namespace

void ParseFilter(const wchar_t*& text, IFilterActions& actions) {
    FilterParser(text, actions).Run();
}

}  // namespace zt
