// The link dialog, and the walk over the entries.
#include "fileops/make_link_command.h"

#include <sys/stat.h>

#include "console/key_codes.h"
#include "console/program_state.h"
#include "fileops/command_targets.h"
#include "fileops/destination_toggle.h"
#include "fileops/make_link.h"
#include "foundation/file_name.h"
#include "foundation/settings.h"
#include "panels/panel.h"
#include "panels/panel_pair.h"
#include "panels/panel_window.h"
#include "panels/tagging.h"
#include "ui/abbreviate_path.h"
#include "ui/dialog.h"
#include "ui/message_box.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

constexpr int kFieldWidth = 72;
constexpr int kFieldCharacters = 512;
constexpr int kNameWidth = 45;
constexpr int32_t kTreeKey = kKeyF10;
constexpr int32_t kDirectoryHistoryKey = 0x1002B;

constexpr ButtonRow kButtons[] = {{kExitEnter, "_OK"},
                                  {kExitEscape, "Cancel"},
                                  {kTreeKey, "F10-Tree"},
                                  {kDirectoryHistoryKey, "Dir Hist"},
                                  {0, nullptr}};

Westring Title(const CommandTargets& targets) {
    if (!targets.IsGroup()) {
        return "Make symbolic link to \"" + targets.Caption(kNameWidth) + "\" as";
    }
    const char* plural = targets.Count() == 1 ? "" : "s";
    return Estring::Format("Make symbolic link%s to %d file%s in", plural, targets.Count(), plural);
}

// What was typed may be relative to the panel.
Westring FullPath(const CPanel& panel, const Westring& typed) {
    if (typed.IsEmpty() || typed[0] == L'/') return typed;
    return PathInDirectory(panel.path, typed);
}

// Without slashes at the end, but for that of the root.
Westring WithoutTrailingSlash(const Westring& path) {
    Westring result = path;
    while (result.Length() > 1 && result[result.Length() - 1] == L'/')
        result = result.DropRight(1);
    return result;
}

bool IsDirectory(const Westring& path) {
    struct stat data;
    return stat(NameToBytes(path).c_str(), &data) == 0 && S_ISDIR(data.st_mode);
}

class CLinkDialog : public Dialog {
public:
    CLinkDialog(CPanel& panel, const CommandTargets& targets, const Westring& otherDirectory,
                Westring& destination);
    bool Ask();  // false for Esc

private:
    // False when the form is to stay.
    bool Accepts();
    void HandleKey(int key);

    CPanel& panel;
    const bool isGroup;
    const Westring& otherDirectory;
    Westring& destination;
};

CLinkDialog::CLinkDialog(CPanel& panel_, const CommandTargets& targets,
                         const Westring& otherDirectory_, Westring& destination_)
    : Dialog(-1, -4, 76, 9, Colour(ColourClass::kMessages)),
      panel(panel_),
      isGroup(targets.IsGroup()),
      otherDirectory(otherDirectory_),
      destination(destination_) {
    AddText(1, 0, Title(targets));
    AddString(1, 2, true, destination, kFieldWidth, kFieldCharacters, kHistoryDestinations);
    AddCheck(1, 4, true, settings.relativeLinks, "_Relative Link", true);
    AddButtons(-1, -1, true, kButtons);
    for (const int key : kToggleKeys) {
        if (!isGroup) AddExitKey(key);
    }
}

bool CLinkDialog::Ask() {
    for (;;) {
        SetExitCode(0);
        const int code = Run();
        if (code == kExitEscape) return false;
        if (code == kExitEnter && Accepts()) return true;
        HandleKey(code);
    }
}

bool CLinkDialog::Accepts() {
    if (!isGroup || IsDirectory(FullPath(panel, WithoutTrailingSlash(destination)))) return true;
    MessageBox("Destination must be a valid directory", destination.c_str(), kBoxOk);
    return false;
}

void CLinkDialog::HandleKey(int key) {
    const PanelSeams& seams = panel.pair->seams;
    Westring picked;
    if (IsToggleKey(key)) {
        destination = ToggleDestination(destination, otherDirectory);
    } else if (key == kTreeKey && seams.trees) {
        if (seams.trees->Pick(panel, picked, screenColumns / 2 - 2)) destination = picked;
    } else if (key == kDirectoryHistoryKey && seams.history) {
        if (seams.history->Pick(panel, picked)) destination = WithTrailingSlash(picked);
    }
    Redraw(-1);
}

void MakeLinks(CPanel& panel, const CommandTargets& targets, const Westring& directory) {
    for (int i = 0; i < targets.Count(); ++i) {
        entry& item = targets.At(i);
        const Westring link = PathInDirectory(directory, item.name);
        const bool isDirectory = item.IsDirectory();
        if (MakeLink(link, targets.PathAt(i), settings.relativeLinks, isDirectory) == 0) return;
        TagEntry(panel, targets.IndexAt(i), TagMode::kClear);
        item.wasTagged = 1;
    }
}

}  // namespace

void MakeLinkCommand(CPanel& panel, const Westring& otherDirectory) {
    const CommandTargets targets(panel);
    if (targets.IsEmpty() || (!targets.IsGroup() && targets.At(0).IsDotDot())) return;
    Westring destination = WithTrailingSlash(otherDirectory);
    if (!targets.IsGroup()) destination += targets.At(0).name;
    if (!CLinkDialog(panel, targets, otherDirectory, destination).Ask()) return;
    if (targets.IsGroup()) {
        MakeLinks(panel, targets, FullPath(panel, WithoutTrailingSlash(destination)));
    } else {
        // Its result only says whether to go on.
        static_cast<void>(MakeLink(FullPath(panel, destination), targets.PathAt(0),
                                   settings.relativeLinks, targets.At(0).IsDirectory()));
    }
    RereadBoth(*panel.pair);
}

}  // namespace zt
