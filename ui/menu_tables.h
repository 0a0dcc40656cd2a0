// The entries of the pull-down menu. Constant data; any thread.
#pragma once

namespace zt {

// What sets the mark in an entry's first column.
enum class MenuMark {
    kNone,
    kStyle0,  // the panel's style, while it shows files
    kStyle1,
    kStyle2,
    kStyle3,
    kStyle4,
    kFullWidth,
    kInfo,
    kTree,
    kSort0,  // the panel's sort order, forward or reversed
    kSort1,
    kSort2,
    kSort3,
    kSort4,
    kReverse,
    kHiddenFiles,  // from here on the settings of these names
    kPathPrompt,
    kFullScreen,
    kClock,
    kTagDirs,
    kThousandSep,
    kRetainCount,
};

struct PullDownEntry {
    const char* text;  // null: a separator line
    char quickKey;     // as it stands in the text; its first place is shown and counts
    int code;          // a key, or a command of its own; 0 for a separator
    MenuMark mark = MenuMark::kNone;
};

struct Menu {
    const PullDownEntry* entries;
    int count;
    int width;
};

inline constexpr int kMenuCount = 5;
extern const Menu kMenus[kMenuCount];

struct MenuTitle {
    const char* text;
    int column;
    char quickKey;  // lower case
};

extern const MenuTitle kMenuTitles[kMenuCount];
inline constexpr int kMenuTitlesEnd = 51;  // the column behind the last title
inline constexpr const char* kMenuBarText = "    Left    Files    Commands    Options    Right  ";

}  // namespace zt
