#include "ui/word_movement.h"

#include "foundation/settings.h"
#include "ui/word_characters.h"

namespace zt {

namespace {

int Skip(const Westring& text, int from, bool wordCharacters) {
    while (from < text.Length() && IsFieldWordChar(text[from]) == wordCharacters)
        ++from;
    return from;
}

}  // namespace

int WordLeft(const Westring& text, int from) {
    while (from > 0 && !IsFieldWordChar(text[from - 1]))
        --from;
    while (from > 0 && IsFieldWordChar(text[from - 1]))
        --from;
    return from;
}

int WordRight(const Westring& text, int from) {
    if (settings.briefWordRight) return Skip(text, Skip(text, from, false), true);
    return Skip(text, Skip(text, from, true), false);
}

}  // namespace zt
