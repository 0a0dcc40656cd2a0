// The settings: one record of plain variables for the whole program, first thread only. The keys
// under which they are read and written stand in commands/settings_table.cpp.
#pragma once

#include <cstdint>

#include "foundation/colour_classes.h"
#include "foundation/estring.h"
#include "foundation/westring.h"

namespace zt {

// What the configuration keeps for each panel.
struct SideSettings {
    Westring directory;  // start directory; empty for the working directory
    Westring filter = "*";
    int32_t sort = 0;   // a SortOrder
    int32_t style = 1;  // a PanelStyle
    bool showing = true;
    int32_t type = 0;   // a PanelKind
    int32_t width = 0;  // a PanelWidth
};

struct Settings {
    Settings();  // the colours get their defaults

    bool autoIndent = false;
    bool autoSave = false;
    Westring background = "gnome-terminal -x ! &";
    bool briefWordRight = true;
    Westring caseFilter;
    Estring caseMod = "ll";
    bool caseModRecurse = false;
    bool caseModDirs = true;
    bool caseModFiles = true;
    bool clock = false;
    char cmdChar = '!';
    bool cmpContents = false;
    Westring cmpMask = "*";
    int32_t cmpSize = 0;
    int32_t cmpTime = 1;
    bool cmpUnmatched = true;
    int32_t codePage = 0;
    int32_t confirmations = 0;
    Westring connectRemote = "ssh %h zt-remote";
    bool consoleScrollback = true;
    bool ctrlRDriveChng = false;
    bool disableInvert = false;
    Westring editor;
    Westring editor2 = "editor";
    bool escPanelSwitch = false;
    bool expandedTrees = true;
    bool ffRootSearch = true;
    bool ffRecurse = true;
    bool ffCase = false;
    bool ffWholeWord = false;
    bool ffMultiDrive = false;
    Estring ffDriveList;
    bool ffFollowLinks = false;
    Estring fontFamily = "DejaVu Sans Mono";
    int32_t fontSize = 12;
    bool fullScreen = true;
    bool hidden = false;
    int32_t indentWidth = 1;
    bool keepExtVisible = true;
    SideSettings sides[2];  // the left and the right panel
    int32_t lines = 0;
    int32_t columns = 0;
    int32_t maxHist = 500;
    int32_t maxFieldHist = 20;
    int32_t mouSpeed = 8;
    bool naturalSort = false;
    bool numLock = false;
    bool overStrike = false;
    Westring pathAppend;
    bool pathPrompt = true;
    bool pmClip = true;
    bool relativeLinks = false;
    bool retainCount = false;
    int32_t saver = 0;
    int32_t scrollDelay = 10;
    bool shadows = true;
    bool sizeCountPause = false;
    char startupSide = 'L';
    bool stickyAlt = true;
    bool syncCopyMissing = true;
    bool syncDeleteExtra = false;
    Westring syncDirFilter = "*";
    Westring syncFilter = "*";
    bool syncRevertNewer = false;
    bool syncUpdateOlder = true;
    int32_t tabWidth = 8;
    bool tagDirs = false;
    int32_t textCodePage = 0;
    int32_t timeMode = 12;
    bool thousandSep = false;
    Estring translateCP;
    Westring treeDir;
    Westring viewer;
    Westring viewer2 = "pager";
    bool viewerWrap = true;
    bool waitDOS = false;
    uint8_t colours[kColourClassCount];

    Westring storedPaths[10];  // d0 to d9
};

extern Settings settings;

}  // namespace zt
