#include "foundation/text_split.h"

#include <cstring>

#include <algorithm>

namespace zt {

namespace {

// Follows quotes through a text. A quote that reopens right behind one that closed means itself.
class QuoteState {
public:
    // Takes a quote; true when it stands for one literal quote.
    bool TakeQuote() {
        inQuotes_ = !inQuotes_;
        bool literal = inQuotes_ && justClosed_;
        justClosed_ = !inQuotes_;
        return literal;
    }
    void TakeOther() { justClosed_ = false; }
    bool InQuotes() const { return inQuotes_; }

private:
    bool inQuotes_ = false;
    bool justClosed_ = false;
};

bool IsDigit(char ch) {
    return ch >= '0' && ch <= '9';
}

// Reads what follows a backslash at `at` and gives the character; `at` is left behind it.
char EscapedCharacter(const char*& at) {
    if (!IsDigit(*at)) return *at == 0 ? '\0' : *at++;
    unsigned value = 0;
    for (int i = 0; i < 3 && IsDigit(*at); i++) {
        value = value * 10 + static_cast<unsigned>(*at++ - '0');
    }
    return static_cast<char>(static_cast<unsigned char>(value));
}

void CopyCut(char* target, int size, const Estring& text) {
    if (size <= 0) return;
    int n = std::min(text.Length(), size - 1);
    std::memcpy(target, text.c_str(), static_cast<size_t>(n));
    target[n] = 0;
}

}  // namespace

void Split(EstringStore& out, const char* text, char separator, char quote) {
    Estring piece;
    QuoteState quotes;
    for (; text != nullptr && *text != 0; text++) {
        if (*text == quote) {
            if (quotes.TakeQuote()) piece += quote;
            continue;
        }
        quotes.TakeOther();
        if (*text == separator && !quotes.InQuotes()) {
            out.Append(new Estring(piece));
            piece.Clear();
        } else {
            piece += *text;
        }
    }
    out.Append(new Estring(piece));
}

bool SplitKeyValue(const char* line, char separator, Estring& key, Estring& value) {
    Estring whole(line);
    int cut = whole.Find(separator);
    int comment = whole.Find(';');
    if (cut < 0 || (comment >= 0 && comment < cut)) {
        key = whole;
        value.Clear();
        return false;
    }
    Estring behind = whole.Right(whole.Length() - cut - 1);
    int behindComment = behind.Find(';');
    if (behindComment >= 0) behind = behind.Left(behindComment);
    key = whole.Left(cut).Trim();
    value = behind.Trim();
    return true;
}

bool SplitKeyValue(const char* line, char separator, char* key, int keySize, char* value,
                   int valueSize) {
    Estring keyText;
    Estring valueText;
    bool found = SplitKeyValue(line, separator, keyText, valueText);
    CopyCut(key, keySize, keyText);
    CopyCut(value, valueSize, valueText);
    return found;
}

// Gives the token that starts at `at`, which is left behind the comma that ended it.
static Estring TokenAt(const char*& at) {
    Estring token;
    QuoteState quotes;
    while (*at != 0) {
        char ch = *at++;
        if (ch == '"') {
            if (quotes.TakeQuote()) token += ch;
            continue;
        }
        quotes.TakeOther();
        if (ch == ',' && !quotes.InQuotes()) break;
        if (ch == '\\') {
            token += EscapedCharacter(at);
        } else if (ch != '\n') {
            token += ch;
        }
    }
    return token;
}

Estring NextToken(Estring& text) {
    const char* at = text.c_str();
    Estring token = TokenAt(at);
    text = at;
    return token;
}

void ParseCommaList(StringCollection& list, const Estring& text) {
    for (const char* at = text.c_str(); *at != 0;)
        list.AddCopy(TokenAt(at));
}

Estring JoinCommaList(const StringCollection& list) {
    Estring joined;
    for (int i = 0; i < list.Count(); i++) {
        if (i > 0) joined += ',';
        joined += *list.Peek(i);
    }
    return joined;
}

}  // namespace zt
