// The histories of input fields: 13 lists of texts, oldest first. They live in memory here; a
// higher room that keeps them on disk puts itself in the place. First thread only.
#pragma once

#include "foundation/string_lists.h"
#include "foundation/westring.h"

namespace zt {

inline constexpr int kFieldHistoryCount = 13;
inline constexpr int kNoHistory = 13;

// Some of the numbers in use.
inline constexpr int kHistoryMasks = 2;
inline constexpr int kHistoryFindText = 3;
inline constexpr int kHistoryGroup = 4;
inline constexpr int kHistorySearch = 5;
inline constexpr int kHistoryReplace = 6;
inline constexpr int kHistoryFilters = 7;
inline constexpr int kHistoryDestinations = 10;
inline constexpr int kHistorySaveAs = 11;

// The list of a number from 0 to 12.
WestringStore& FieldHistory(int number);

// Removes entries equal without regard to case and appends the text: the newest is last.
void AppendFieldHistory(const Westring& text, int number);

// What a field calls when its dialog was accepted. The keeper, set once at start-up, takes the
// text (and calls AppendFieldHistory); without one it is only appended. Null takes it away.
using FieldHistoryKeeper = void (*)(const Westring& text, int number);
void SetFieldHistoryKeeper(FieldHistoryKeeper keeper);
void RememberFieldText(const Westring& text, int number);

}  // namespace zt
