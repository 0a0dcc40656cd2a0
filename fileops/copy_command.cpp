// The steps of the copy and move command.
#include "fileops/copy_command.h"

#include <cwchar>
#include <memory>

#include "fileops/abort_guard.h"
#include "fileops/copy.h"
#include "fileops/copy_destination.h"
#include "fileops/copy_dialog.h"
#include "fileops/copy_progress_window.h"
#include "fileops/descriptions.h"
#include "fileops/panel_paths.h"
#include "fileops/screen_user.h"
#include "foundation/file_name.h"
#include "foundation/result_codes.h"
#include "foundation/settings.h"
#include "panels/cursor_movement.h"
#include "panels/directory_reader.h"
#include "panels/directory_sizes.h"
#include "panels/navigation.h"
#include "panels/panel_window.h"
#include "panels/tagging.h"
#include "ui/message_box.h"

namespace zt {

namespace {

const char* FaultText(DestinationFault fault) {
    switch (fault) {
        case DestinationFault::kInvalidPath:
            return "Invalid path";
        case DestinationFault::kMissingDirectory:
            return "Directory does not exist";
        default:
            return "Destination must be a valid directory";
    }
}

bool IsReadOnlyMedia(const Westring& fileSystem) {
    return fileSystem == L"CDFS" || fileSystem == L"UDF";
}

class CopyMove {
public:
    CopyMove(CPanel& source_, CPanel& other_, int flags_)
        : source(source_), other(other_), flags(flags_) {}

    void Run(const Westring* preset);

private:
    bool Moves() const { return (flags & kCommandMoves) != 0; }
    bool Ask(const Westring* preset);
    void RunGroup();
    void TransferTagged(const Westring& destination);
    void RunSingle();
    int TransferCurrent(const Westring& from, const Westring& to);
    // False when the user did not want to wait for the sizes.
    bool Prepare(const Westring& targetDirectory);
    void StartProgress(uint64_t bytes);
    int Transfer(const Westring& from, const Westring& to, int index, int total);
    void TellTree(const entry& e, const Westring& from, const Westring& to);
    void SaveTree();
    void Finish();

    CPanel& source;
    CPanel& other;
    const int flags;

    ScreenUser user;
    FileOperation operation{user};
    std::unique_ptr<CopyProgressWindow> progress;
    StdFile descriptions;  // of the source directory; closed when there is none

    entry* current = nullptr;  // when nothing is tagged
    CCopyDlg::Choice choice;
    int transferFlags = 0;
    bool sameFileSystem = true;
    bool treeTouched = false;
    Westring cursorName;  // what the cursor goes to in the end, or nothing
};

void CopyMove::Run(const Westring* preset) {
    if (source.Count() == 0) return;
    operation.caseFilterSource = FoldsCase(source);
    operation.panels = source.pair;
    operation.readOnlyMediaSource = IsReadOnlyMedia(source.fileSystem);
    if (source.taggedCount == 0) {
        current = source.Current();
        if (!current || current->IsDotDot()) return;
    }
    if (!Ask(preset)) return;
    operation.overwrite = static_cast<OverwriteMode>(choice.overwrite);
    transferFlags = choice.dereference ? kTransferDereference : 0;
    if (current) {
        RunSingle();
    } else {
        RunGroup();
    }
}

// False when the command ends here.
bool CopyMove::Ask(const Westring* preset) {
    if (preset) {
        choice.destination = *preset;
    } else {
        const bool bareName = (flags & kCommandSuggestsName) != 0;
        choice.destination = SuggestedDestination(source, other, bareName);
        CCopyDlg dialog({source, other, Moves(), source.taggedCount, current}, choice);
        if (!dialog.Ask()) return false;
    }
    const Westring name = current ? NameOfPath(current->name) : Westring();
    choice.destination =
        current ? AcceptedText(choice.destination, name) : choice.destination.Trim();
    return !choice.destination.IsEmpty();
}

// Sizes are wanted where bytes are to move.
bool CopyMove::Prepare(const Westring& targetDirectory) {
    if (Moves() && !source.path.IsEmpty()) {
        sameFileSystem = OnSameFileSystem(source.path, targetDirectory);
    }
    return (Moves() && sameFileSystem) || CalculateDirSizes(source, true);
}

void CopyMove::StartProgress(uint64_t bytes) {
    progress = std::make_unique<CopyProgressWindow>();
    progress->Begin(bytes);
    if (!source.path.IsEmpty()) OpenDescriptions(descriptions, source.path);
}

int CopyMove::Transfer(const Westring& from, const Westring& to, int index, int total) {
    if (!Moves()) {
        return CopyWithPrompts(operation, from, to, index, total, *progress, descriptions,
                               transferFlags);
    }
    const bool sameHere = source.path.IsEmpty()
                              ? OnSameFileSystem(ParentOfPath(from), ParentOfPath(to))
                              : sameFileSystem;
    return MoveWithPrompts(operation, from, to, index, total, progress.get(), descriptions,
                           sameHere);
}

void CopyMove::TellTree(const entry& e, const Westring& from, const Westring& to) {
    ITreeKeeper* trees = source.pair->seams.trees;
    if (!Moves() || !e.IsDirectory() || e.IsLink() || !trees) return;
    trees->DirectoryRenamed(source, from, to);
    treeTouched = true;
}

void CopyMove::SaveTree() {
    if (treeTouched) source.pair->seams.trees->Save(source);
}

void CopyMove::RunGroup() {
    Westring destination;
    const DestinationFault fault = ResolveForMany(choice.destination, source.path, destination);
    if (fault != DestinationFault::kNone) {
        user.Ask(nullptr, FaultText(fault), choice.destination, kBoxOk);
        return;
    }
    if (!Prepare(DirectoryOfMany(destination))) return;
    StartProgress(source.taggedBytes);
    TransferTagged(destination);
    Finish();
}

void CopyMove::TransferTagged(const Westring& destination) {
    const AbortGuard abortable;
    for (int i = 0; i < source.Count(); ++i)
        source.entries.At(i)->wasTagged = 0;
    const int total = source.taggedCount;
    int index = 0;
    for (int i = 0; i < source.Count(); ++i) {
        entry& e = *source.entries.At(i);
        if (!e.tagged) continue;
        const Westring from = PathOfEntry(source, e);
        const Westring to = TargetOfMany(from, destination);
        const int result = Transfer(from, to, ++index, total);
        if (result == kDone) {
            TellTree(e, from, to);
            SetTag(source, e, false);
            e.wasTagged = 1;
        }
        if (result == kCancelled || AbortGuard::Asked(operation)) return;
    }
}

void CopyMove::RunSingle() {
    const Westring from = PathOfEntry(source, *current);
    Westring to;
    const DestinationFault fault = ResolveForOne(choice.destination, from, source.path, to);
    if (fault != DestinationFault::kNone) {
        user.Ask(nullptr, FaultText(fault), choice.destination, kBoxOk);
        return;
    }
    if (!Prepare(ParentOfPath(to))) return;
    StartProgress(current->size);
    if (TransferCurrent(from, to) == kDone && Moves()) {
        TellTree(*current, from, to);
        const bool staysHere = wcscmp(ParentOfPath(to).c_str(), source.path.c_str()) == 0;
        if (staysHere) cursorName = NameOfPath(to);
    }
    Finish();
}

int CopyMove::TransferCurrent(const Westring& from, const Westring& to) {
    const AbortGuard abortable;
    return Transfer(from, to, 1, 1);
}

void CopyMove::Finish() {
    descriptions.Close();
    progress.reset();
    SaveTree();
    PanelPair& panels = *source.pair;
    if (source.path.IsEmpty()) {
        GoTo(panels, other.side, Westring(), true);
    } else {
        RereadBoth(panels);
    }
    if (!cursorName.IsEmpty()) FindName(source, cursorName.c_str());
    source.needPaint = true;
}

}  // namespace

void CopyMoveCommand(CPanel& source, CPanel& other, int flags, const Westring* presetDestination) {
    CopyMove(source, other, flags).Run(presetDestination);
}

}  // namespace zt
