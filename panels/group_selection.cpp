// The question for a group, and the rules of what is left out.
#include "panels/group_selection.h"

#include <cwchar>
#include <optional>

#include "console/event.h"
#include "console/key_codes.h"
#include "foundation/settings.h"
#include "panels/filter_check.h"
#include "panels/panel_drawing.h"
#include "panels/panel_pair.h"
#include "ui/dialog.h"
#include "ui/field_history.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

// Files that other programs keep beside the files they speak of.
constexpr const wchar_t* kProtectedNames[] = {L"descript.ion", L"EA DATA. SF", L"WP ROOT. SF"};

constexpr int kDirectoriesKey = AltKey('d');

class GroupDialog : public Dialog {
public:
    GroupDialog(TagMode mode, Westring& pattern)
        : Dialog(-1, 6, 34, 6 + 10 - 1, Colour(ColourClass::kMessages)), mode_(mode) {
        AddString(1, 1, true, pattern, 30, -1, kHistoryGroup);
        AddExitKey(kDirectoriesKey);
        AddText(19, 3, " Alt-D=Dirs ");
    }

    void ShowCaption(bool directories) {
        const char* verb = mode_ == TagMode::kSet ? "Select" : "Unselect";
        const char* what = directories ? "/directories" : "";
        Print(1, 0, Westring(Estring::Format("%s the files%-12s", verb, what)));
    }

private:
    TagMode mode_;
};

// Nothing after Esc.
std::optional<CompiledFilter> AskForGroup(CPanel& panel, TagMode mode, bool& directories) {
    Westring pattern = panel.pair->lastGroupPattern;
    GroupDialog dialog(mode, pattern);
    for (;;) {
        dialog.ShowCaption(directories);
        const int code = dialog.Run();
        if (code == kExitEscape) return std::nullopt;
        if (code == kDirectoriesKey) {
            directories = !directories;
            continue;
        }
        CompiledFilter filter(pattern);
        if (!CheckFilter(filter, "Error in search expression")) continue;
        panel.pair->lastGroupPattern = pattern;
        return filter;
    }
}

bool HasShift(int modifiers) {
    return (modifiers & kModifierShift) != 0;
}

}  // namespace

bool IsProtectedName(const wchar_t* name) {
    for (const wchar_t* protectedName : kProtectedNames) {
        if (wcscmp(name, protectedName) == 0) return true;
    }
    return false;
}

void TagMatching(CPanel& panel, CompiledFilter& filter, TagMode mode, bool directories) {
    const UpdateFreeze freeze;
    for (int i = 0; i < panel.Count(); ++i) {
        const entry& e = *panel.entries.At(i);
        if (e.IsDirectory() && !directories) continue;
        if (mode == TagMode::kSet && IsProtectedName(e.name)) continue;
        if (filter.Evaluate(e) > 0) TagEntry(panel, i, mode);
    }
    DrawPanel(panel);
}

void SelectGroup(CPanel& panel, TagMode mode, int modifiers) {
    if (!panel.IsFiles() || panel.IsTree()) return;
    // What is untagged may always be a directory, however it was tagged.
    bool directories = settings.tagDirs != HasShift(modifiers) || mode == TagMode::kClear;
    std::optional<CompiledFilter> filter = AskForGroup(panel, mode, directories);
    if (filter) TagMatching(panel, *filter, mode, directories);
}

void TagAll(CPanel& panel, TagMode mode, int modifiers) {
    const bool clears = mode == TagMode::kClear;
    const bool directories = settings.tagDirs != HasShift(modifiers);
    const UpdateFreeze freeze;
    for (int i = 0; i < panel.Count(); ++i) {
        const entry& e = *panel.entries.At(i);
        const bool isLeft = (e.IsDirectory() && !directories) || IsProtectedName(e.name);
        if (clears || !isLeft) TagEntry(panel, i, mode);
    }
}

void RestoreSelection(CPanel& panel) {
    if (!panel.IsFiles() || panel.IsTree()) return;
    for (int i = 0; i < panel.Count(); ++i) {
        entry& e = *panel.entries.At(i);
        const bool wanted = e.wasTagged != 0;
        if (wanted != (e.tagged != 0)) SetTag(panel, e, wanted);
    }
    DrawEntries(panel);
}

}  // namespace zt
