// The 21 colour classes: everything that draws takes its attribute from one of them.
#pragma once

#include <cstdint>

namespace zt {

enum class ColourClass {
    kPanel,
    kHighlight,
    kTagged,
    kHighlightTagged,
    kDirectories,
    kDirectoryHigh,
    kCommandLine,
    kMessages,
    kErrors,
    kInputFields,
    kScreenSaver,
    kMenu,
    kMenuBar,
    kMenuHighlight,
    kMenuQuickKey,
    kDisabledMenu,
    kFileViewer,
    kClock,
    kColumnHeading,
    kSynchUpdate,
    kSynchDelete,
};

inline constexpr int kColourClassCount = 21;

struct ColourClassRow {
    const char* name;           // as the colours dialog and the configuration show it
    uint8_t defaultAttribute;  // low four bits foreground, high four background
};

inline constexpr ColourClassRow kColourClasses[] = {
    {"Panel", 0x1B},
    {"Highlight", 0x30},
    {"Tagged", 0x1E},
    {"Highlight-Tagged", 0x3E},
    {"Directories", 0x1A},
    {"Directory High", 0x20},
    {"Command Line", 0x07},
    {"Messages", 0x70},
    {"Errors", 0x4F},
    {"Input Fields", 0x30},
    {"Screen Saver", 0x03},
    {"Menu", 0x3F},
    {"Menu Bar", 0x30},
    {"Menu Highlight", 0x0F},
    {"Menu Quick Key", 0x0E},
    {"Disabled Menu", 0x07},
    {"File Viewer", 0x1B},
    {"Clock", 0x30},
    {"Column Heading", 0x3E},
    {"Synch Update", 0x3A},
    {"Synch Delete", 0x3E},
};
static_assert(sizeof(kColourClasses) / sizeof(kColourClasses[0]) == kColourClassCount);

// The attribute that the settings give a class.
uint8_t Colour(ColourClass colourClass);
void ResetColours();

}  // namespace zt
