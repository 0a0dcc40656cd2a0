// The link dialog, and the walk over the entries.
#include "fileops/make_link_command.h"

#include <sys/stat.h>

#include "fileops/command_targets.h"
#include "fileops/destination_dialog.h"
#include "fileops/destination_toggle.h"
#include "fileops/make_link.h"
#include "fileops/panel_paths.h"
#include "foundation/file_name.h"
#include "foundation/settings.h"
#include "panels/panel.h"
#include "panels/panel_pair.h"
#include "panels/panel_window.h"
#include "panels/tagging.h"
#include "ui/message_box.h"

namespace zt {

namespace {

constexpr int kHeight = 9;
constexpr int kNameWidth = 45;

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

bool IsDirectory(const Westring& path) {
    struct stat data;
    return stat(NameToBytes(path).c_str(), &data) == 0 && S_ISDIR(data.st_mode);
}

class CLinkDialog : public CDestinationDialog {
public:
    CLinkDialog(CPanel& panel, const CommandTargets& targets, const Westring& otherDirectory,
                Westring& destination);
    bool Ask();  // false for Esc

private:
    // False when the form is to stay.
    bool Accepts();

    const CPanel& panel;
    const bool isGroup;
    const Westring& destination;
};

CLinkDialog::CLinkDialog(CPanel& panel_, const CommandTargets& targets,
                         const Westring& otherDirectory_, Westring& destination_)
    : CDestinationDialog(panel_, otherDirectory_, kHeight, destination_),
      panel(panel_),
      isGroup(targets.IsGroup()),
      destination(destination_) {
    AddField(Title(targets));
    AddCheck(1, 4, true, settings.relativeLinks, "_Relative Link", true);
    const ButtonRow buttons[] = {{kExitEnter, "_OK"},
                                 {kExitEscape, "Cancel"},
                                 {kPickFromTree, "F10-Tree"},
                                 {kPickFromHistory, "Dir Hist"},
                                 {0, nullptr}};
    AddButtons(-1, -1, true, buttons);
    if (!isGroup) AddToggle();
}

bool CLinkDialog::Ask() {
    for (;;) {
        SetExitCode(0);
        const int code = Run();
        if (code == kExitEscape) return false;
        if (!FillField(code) && Accepts()) return true;
    }
}

bool CLinkDialog::Accepts() {
    if (!isGroup || IsDirectory(FullPath(panel, WithoutTrailingSlash(destination)))) return true;
    MessageBox("Destination must be a valid directory", destination.c_str(), kBoxOk);
    return false;
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
