// The five menus, entry by entry.
#include "ui/menu_tables.h"

#include <iterator>

namespace zt {

namespace {

constexpr PullDownEntry kLeftEntries[] = {
    {"Brief       AlSh-F1", 'B', 0x10000D, MenuMark::kStyle0},
    {"Full        AlSh-F2", 'F', 0x10000F, MenuMark::kStyle1},
    {"Wide        AlSh-F3", 'W', 0x100014, MenuMark::kStyle2},
    {"Brief-Wide  AlSh-F4", 'e', 0x100018, MenuMark::kStyle3},
    {"Unix detail AlSh-F5", 'a', 0x10001A, MenuMark::kStyle4},
    {"Full Width  CtSh-F1", 'h', 0x3005E, MenuMark::kFullWidth},
    {"Info        Ctrl-L", 'I', 0x100000, MenuMark::kInfo},
    {"Tree", 'T', 0x100016, MenuMark::kTree},
    {"On/Off      Ctrl-F1", 'O', 0x1005E},
    {nullptr, 0, 0},
    {"Name        Ctrl-F3", 'N', 0x100001, MenuMark::kSort0},
    {"Extension   Ctrl-F4", 'x', 0x100002, MenuMark::kSort1},
    {"Time        Ctrl-F5", 'm', 0x100003, MenuMark::kSort2},
    {"Size        Ctrl-F6", 'S', 0x100004, MenuMark::kSort3},
    {"Unsorted    Ctrl-F7", 'U', 0x100005, MenuMark::kSort4},
    {"Reverse     Ctrl-F8", 'v', 0x100006, MenuMark::kReverse},
    {nullptr, 0, 0},
    {"Re-Read     Ctrl-R", 'R', 0x100013},
    {"Filter", 'l', 0x100012},
    {"Drive       Alt-F1", 'D', 0x10068},
};

constexpr PullDownEntry kRightEntries[] = {
    {"Brief       AlSh-F1", 'B', 0x10000E, MenuMark::kStyle0},
    {"Full        AlSh-F2", 'F', 0x100010, MenuMark::kStyle1},
    {"Wide        AlSh-F3", 'W', 0x100015, MenuMark::kStyle2},
    {"Brief-Wide  AlSh-F4", 'e', 0x100019, MenuMark::kStyle3},
    {"Unix detail AlSh-F5", 'a', 0x10001B, MenuMark::kStyle4},
    {"Full Width  CtSh-F2", 'h', 0x3005F, MenuMark::kFullWidth},
    {"Info        Ctrl-L", 'I', 0x100193, MenuMark::kInfo},
    {"Tree", 'T', 0x100017, MenuMark::kTree},
    {"On/Off      Ctrl-F2", 'O', 0x1005F},
    {nullptr, 0, 0},
    {"Name        Ctrl-F3", 'N', 0x100007, MenuMark::kSort0},
    {"Extension   Ctrl-F4", 'x', 0x100008, MenuMark::kSort1},
    {"Time        Ctrl-F5", 'm', 0x100009, MenuMark::kSort2},
    {"Size        Ctrl-F6", 'S', 0x10000A, MenuMark::kSort3},
    {"Unsorted    Ctrl-F7", 'U', 0x10000B, MenuMark::kSort4},
    {"Reverse     Ctrl-F8", 'v', 0x10000C, MenuMark::kReverse},
    {nullptr, 0, 0},
    {"Re-Read     Ctrl-R", 'R', 0x10019B},
    {"Filter", 'l', 0x10019C},
    {"Drive       Alt-F2", 'D', 0x10069},
};

constexpr PullDownEntry kFilesEntries[] = {
    {"Manual       Shift-F1", 'l', 0x30054},
    {"User Menu          F2", 'U', 0x1003C},
    {"View               F3", 'V', 0x1003D},
    {"Edit               F4", 'E', 0x1003E},
    {"Copy               F5", 'C', 0x1003F},
    {"Rename or Move     F6", 'R', 0x10040},
    {"Make Directory     F7", 'M', 0x10041},
    {"Delete             F8", 'D', 0x10042},
    {nullptr, 0, 0},
    {"File Attributes    Ctrl-A", 'A', 1},
    {"File Case          Ctrl-C", 'F', 3},
    {"File Date/Time", 'T', 0x100071},
    {"File Information   Ctrl-I", 'o', 0x10102},
    {nullptr, 0, 0},
    {"Select Group       Grey +", 'G', 0x10006D},
    {"Unselect Group     Grey -", 'n', 0x10006E},
    {"Invert Sel'n       Grey *", 'I', 0x10006F},
    {"Restore Sel'n  Alt-Grey +", 's', 0x100072},
    {nullptr, 0, 0},
    {"Quit               F10", 'Q', 0x10044},
};

constexpr PullDownEntry kCommandsEntries[] = {
    {"Tree                 Alt-F10", 'T', 0x10071},
    {"File Find            Alt-F7", 'F', 0x1006E},
    {"History              Alt-F8", 'H', 0x1006F},
    {"EGA Lines            Alt-F9", 'E', 0x10070},
    {"Directory History    Alt-\\", 'i', 0x1002B},
    {"Stored Paths         Alt-F5", 'P', 0x1006C},
    {nullptr, 0, 0},
    {"Swap Panels          Ctrl-U", 'S', 0x15},
    {"Panels On/Off        Ctrl-O", 'n', 0xF},
    {"Compare Directories  Ctrl-K", 'C', 0xB},
    {"Synchronize          CtSh-F9", 'y', 0x30066},
    {"Calculate Dir Size   Ctrl-Q", 'D', 0x11},
    {"Open GUI File Window Ctrl-W", 'O', 0x17},
    {nullptr, 0, 0},
    {"Edit Associations", 'A', 0x1000D0},
    {"Edit User Menu", 'M', 0x1000D1},
};

constexpr PullDownEntry kOptionsEntries[] = {
    {"Configuration", 'C', 0x10012C},
    {"Colours", 'o', 0x10012D},
    {"Confirmations", 'n', 0x100135},
    {nullptr, 0, 0},
    {"Hidden Files    Ctrl-H", 'H', 0x10012E, MenuMark::kHiddenFiles},
    {"Path Prompt", 'P', 0x10012F, MenuMark::kPathPrompt},
    {"Full Screen", 'F', 0x100131, MenuMark::kFullScreen},
    {"Clock", 'l', 0x100132, MenuMark::kClock},
    {"Tag Directories", 'T', 0x100133, MenuMark::kTagDirs},
    {"Thousand Separator", 'u', 0x100136, MenuMark::kThousandSep},
    {"Retain Dir Count", 'R', 0x100137, MenuMark::kRetainCount},
    {nullptr, 0, 0},
    {"Save Setup      Shft-F9", 'S', 0x100134},
};

template <int n>
constexpr Menu MakeMenu(const PullDownEntry (&entries)[n], int width) {
    return Menu{entries, n, width};
}

}  // namespace

constexpr Menu kMenus[kMenuCount] = {
    MakeMenu(kLeftEntries, 21),    MakeMenu(kFilesEntries, 27), MakeMenu(kCommandsEntries, 30),
    MakeMenu(kOptionsEntries, 25), MakeMenu(kRightEntries, 21),
};

constexpr MenuTitle kMenuTitles[kMenuCount] = {
    {"  Left  ", 2, 'l'},     {"  Files  ", 10, 'f'}, {"  Commands  ", 19, 'c'},
    {"  Options  ", 31, 'o'}, {"  Right  ", 42, 'r'},
};

}  // namespace zt
