#include "commands/settings_table.h"

#include <strings.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>
#include <span>

#include "foundation/file_name.h"

namespace zt {

namespace {

// The makers of rows: each takes a pointer of its own type only.
constexpr SettingRow Text(const char* key, Estring* variable) {
    return {key, SettingType::kString, variable};
}
constexpr SettingRow Wide(const char* key, Westring* variable) {
    return {key, SettingType::kWideString, variable};
}
constexpr SettingRow Number(const char* key, int32_t* variable) {
    return {key, SettingType::kInteger, variable};
}
constexpr SettingRow OnOff(const char* key, bool* variable) {
    return {key, SettingType::kOnOff, variable};
}
constexpr SettingRow Character(const char* key, char* variable) {
    return {key, SettingType::kCharacter, variable};
}
constexpr SettingRow Word(const char* key, SettingType type, int32_t* variable) {
    return {key, type, variable};
}

constexpr SideSettings* kLeft = &settings.sides[0];
constexpr SideSettings* kRight = &settings.sides[1];

constexpr SettingRow kRows[] = {
    OnOff("AutoIndent", &settings.autoIndent),
    OnOff("AutoSave", &settings.autoSave),
    Wide("Background", &settings.background),
    OnOff("BriefWordRight", &settings.briefWordRight),
    Wide("CaseFilter", &settings.caseFilter),
    Text("CaseMod", &settings.caseMod),
    OnOff("CaseModRecurse", &settings.caseModRecurse),
    OnOff("CaseModDirs", &settings.caseModDirs),
    OnOff("CaseModFiles", &settings.caseModFiles),
    OnOff("Clock", &settings.clock),
    Character("CmdChar", &settings.cmdChar),
    OnOff("CMPContents", &settings.cmpContents),
    Wide("CMPMask", &settings.cmpMask),
    Number("CMPSize", &settings.cmpSize),
    Number("CMPTime", &settings.cmpTime),
    OnOff("CMPUnmatched", &settings.cmpUnmatched),
    Number("CodePage", &settings.codePage),
    Number("Confirmations", &settings.confirmations),
    Wide("ConnectRemote", &settings.connectRemote),
    OnOff("ConsoleScrollback", &settings.consoleScrollback),
    OnOff("CtrlRDriveChng", &settings.ctrlRDriveChng),
    OnOff("DisableInvert", &settings.disableInvert),
    Wide("Editor", &settings.editor),
    Wide("Editor2", &settings.editor2),
    OnOff("EscPanelSwitch", &settings.escPanelSwitch),
    OnOff("ExpandedTrees", &settings.expandedTrees),
    OnOff("FFRootSearch", &settings.ffRootSearch),
    OnOff("FFRecurse", &settings.ffRecurse),
    OnOff("FFCase", &settings.ffCase),
    OnOff("FFWholeWord", &settings.ffWholeWord),
    OnOff("FFMultiDrive", &settings.ffMultiDrive),
    Text("FFDriveList", &settings.ffDriveList),
    OnOff("FFFollowLinks", &settings.ffFollowLinks),
    Text("FontFamily", &settings.fontFamily),
    Number("FontSize", &settings.fontSize),
    OnOff("FullScreen", &settings.fullScreen),
    Text("Manual", nullptr),
    OnOff("Hidden", &settings.hidden),
    Number("IndentWidth", &settings.indentWidth),
    OnOff("KeepExtVisible", &settings.keepExtVisible),
    Wide("Left", &kLeft->directory),
    Wide("Right", &kRight->directory),
    Wide("LeftFilter", &kLeft->filter),
    Wide("RightFilter", &kRight->filter),
    Word("LeftSort", SettingType::kSort, &kLeft->sort),
    Word("RightSort", SettingType::kSort, &kRight->sort),
    Word("LeftStyle", SettingType::kStyle, &kLeft->style),
    Word("RightStyle", SettingType::kStyle, &kRight->style),
    OnOff("LeftShowing", &kLeft->showing),
    OnOff("RightShowing", &kRight->showing),
    Word("LeftType", SettingType::kPanelType, &kLeft->type),
    Word("RightType", SettingType::kPanelType, &kRight->type),
    Word("LeftWidth", SettingType::kPanelWidth, &kLeft->width),
    Word("RightWidth", SettingType::kPanelWidth, &kRight->width),
    Number("Lines", &settings.lines),
    Number("Columns", &settings.columns),
    Number("MaxHist", &settings.maxHist),
    Number("MaxFieldHist", &settings.maxFieldHist),
    Number("MouSpeed", &settings.mouSpeed),
    OnOff("NaturalSort", &settings.naturalSort),
    OnOff("NumLock", &settings.numLock),
    OnOff("OverStrike", &settings.overStrike),
    Wide("PathAppend", &settings.pathAppend),
    OnOff("PathPrompt", &settings.pathPrompt),
    OnOff("PMClip", &settings.pmClip),
    OnOff("RelativeLinks", &settings.relativeLinks),
    OnOff("RetainCount", &settings.retainCount),
    Number("Saver", &settings.saver),
    Number("ScrollDelay", &settings.scrollDelay),
    OnOff("Shadows", &settings.shadows),
    OnOff("SizeCountPause", &settings.sizeCountPause),
    Character("StartupSide", &settings.startupSide),
    OnOff("StickyAlt", &settings.stickyAlt),
    OnOff("SyncCopyMissing", &settings.syncCopyMissing),
    OnOff("SyncDeleteExtra", &settings.syncDeleteExtra),
    Wide("SyncDirFilter", &settings.syncDirFilter),
    Wide("SyncFilter", &settings.syncFilter),
    OnOff("SyncRevertNewer", &settings.syncRevertNewer),
    OnOff("SyncUpdateOlder", &settings.syncUpdateOlder),
    Number("TabWidth", &settings.tabWidth),
    OnOff("TagDirs", &settings.tagDirs),
    Number("TextCodePage", &settings.textCodePage),
    Word("TimeMode", SettingType::kTimeMode, &settings.timeMode),
    OnOff("ThousandSep", &settings.thousandSep),
    Text("TranslateCP", &settings.translateCP),
    Wide("TreeDir", &settings.treeDir),
    OnOff("Use132", nullptr),
    Wide("Viewer", &settings.viewer),
    Wide("Viewer2", &settings.viewer2),
    OnOff("ViewerWrap", &settings.viewerWrap),
    OnOff("WaitDOS", &settings.waitDOS),
    {"Colours", SettingType::kColours, settings.colours},
};
static_assert(std::size(kRows) == kSettingCount);

constexpr const char* kSortWords[] = {"name",  "extension",  "time",  "size", "unsorted",
                                      "rname", "rextension", "rtime", "rsize"};
constexpr const char* kStyleWords[] = {"brief", "full", "wide", "briefwide", "unix"};
constexpr const char* kTypeWords[] = {"files", "info"};
constexpr const char* kWidthWords[] = {"half", "forcedhalf", "full"};

constexpr int kUnsorted = 4;
constexpr int kReversedUnsorted = 9;  // has no word of its own

struct WordList {
    std::span<const char* const> words;
    int unknown;  // the index for a word that is not in the list
};

WordList WordsOf(SettingType type) {
    switch (type) {
        case SettingType::kSort:
            return {kSortWords, 0};
        case SettingType::kStyle:
            return {kStyleWords, 1};
        case SettingType::kPanelType:
            return {kTypeWords, 0};
        case SettingType::kPanelWidth:
            return {kWidthWords, 0};
        default:
            return {{}, 0};
    }
}

int IndexOfWord(SettingType type, const char* value) {
    const WordList list = WordsOf(type);
    for (size_t i = 0; i < list.words.size(); i++) {
        if (strcasecmp(list.words[i], value) == 0) return static_cast<int>(i);
    }
    return list.unknown;
}

// A value without a word of its own, as a panel may have while it runs, gets the nearest one.
const char* WordAt(SettingType type, int index) {
    const WordList list = WordsOf(type);
    if (type == SettingType::kSort && index == kReversedUnsorted) index = kUnsorted;
    if (index < 0 || static_cast<size_t>(index) >= list.words.size()) index = list.unknown;
    return list.words[static_cast<size_t>(index)];
}

int32_t ParseInteger(const char* value) {
    using Limits = std::numeric_limits<int32_t>;
    return static_cast<int32_t>(
        std::clamp<long>(strtol(value, nullptr, 10), Limits::min(), Limits::max()));
}

// Numbers that are missing leave their classes as they are; those beyond the last class are
// dropped.
void ParseColours(const char* value, uint8_t* colours) {
    for (int i = 0; i < kColourClassCount; i++) {
        char* end = nullptr;
        const long number = strtol(value, &end, 10);
        if (end == value) return;
        colours[i] = static_cast<uint8_t>(number);
        value = end;
    }
}

Estring ColoursText(const uint8_t* colours) {
    Estring text;
    for (int i = 0; i < kColourClassCount; i++)
        text += Estring::Format("%d ", colours[i]);
    return text;
}

template <class T>
T& As(const SettingRow& row) {
    return *static_cast<T*>(row.variable);
}

}  // namespace

const SettingRow* SettingsTable() {
    return kRows;
}

const SettingRow* FindSetting(const char* key) {
    for (const SettingRow& row : kRows) {
        if (strcasecmp(row.key, key) == 0) return &row;
    }
    return nullptr;
}

void StoreSetting(const SettingRow& row, const char* value) {
    if (!row.variable) return;
    switch (row.type) {
        case SettingType::kString:
            As<Estring>(row) = value;
            break;
        case SettingType::kWideString:
            As<Westring>(row) = NameFromBytes(value);
            break;
        case SettingType::kInteger:
            As<int32_t>(row) = ParseInteger(value);
            break;
        case SettingType::kOnOff:
            As<bool>(row) = strcasecmp(value, "on") == 0;
            break;
        case SettingType::kCharacter:
            As<char>(row) = value[0];
            break;
        case SettingType::kTimeMode:
            As<int32_t>(row) = strcmp(value, "24") == 0 ? 24 : 12;
            break;
        case SettingType::kSort:
        case SettingType::kStyle:
        case SettingType::kPanelType:
        case SettingType::kPanelWidth:
            As<int32_t>(row) = IndexOfWord(row.type, value);
            break;
        case SettingType::kColours:
            ParseColours(value, static_cast<uint8_t*>(row.variable));
            break;
    }
}

Estring SettingText(const SettingRow& row) {
    if (!row.variable) return Estring();
    switch (row.type) {
        case SettingType::kString:
            return As<Estring>(row);
        case SettingType::kWideString:
            return NameToBytes(As<Westring>(row));
        case SettingType::kInteger:
        case SettingType::kTimeMode:
            return Estring::FromInteger(As<int32_t>(row));
        case SettingType::kOnOff:
            return As<bool>(row) ? "on" : "off";
        case SettingType::kCharacter:
            return As<char>(row) ? Estring::Repeat(As<char>(row), 1) : "";
        case SettingType::kSort:
        case SettingType::kStyle:
        case SettingType::kPanelType:
        case SettingType::kPanelWidth:
            return WordAt(row.type, As<int32_t>(row));
        case SettingType::kColours:
            return ColoursText(static_cast<uint8_t*>(row.variable));
    }
    return Estring();
}

}  // namespace zt
