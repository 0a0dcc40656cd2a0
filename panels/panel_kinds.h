// The numbers by which a panel's order, kind, style and width are kept in the settings.
#pragma once

namespace zt {

// A reversed order is its plain order plus kReversed.
inline constexpr int kSortName = 0;
inline constexpr int kSortExtension = 1;
inline constexpr int kSortTime = 2;
inline constexpr int kSortSize = 3;
inline constexpr int kSortUnsorted = 4;
inline constexpr int kReversed = 5;
inline constexpr int kSortCount = 10;

inline constexpr int kKindFiles = 0;
inline constexpr int kKindInfo = 1;

inline constexpr int kStyleBrief = 0;
inline constexpr int kStyleFull = 1;
inline constexpr int kStyleWide = 2;
inline constexpr int kStyleBriefWide = 3;
inline constexpr int kStyleUnix = 4;
inline constexpr int kStyleTree = 5;
inline constexpr int kFileStyleCount = 5;  // the styles below the tree have a column layout

inline constexpr int kWidthHalf = 0;
inline constexpr int kWidthForcedHalf = 1;  // half for as long as the other side shows info
inline constexpr int kWidthFull = 2;

inline constexpr int kPathLimit = 512;  // characters of a path, its end mark included

// Entry columns that a style shows side by side.
constexpr int EntryColumns(int style) {
    return style == kStyleBrief ? 3 : style == kStyleBriefWide ? 2 : 1;
}

}  // namespace zt
