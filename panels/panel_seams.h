// Where the panel reaches what is built above it or beside it: archives, the tree, the info kind,
// the filter, colours by rule. Each is filled in at start-up; one that is null is not there, and
// the panel does without it. Borrowed pointers; first thread only.
#pragma once

#include <functional>
#include <memory>

#include "console/cell.h"
#include "foundation/westring.h"
#include "panels/entry_scanner.h"

namespace zt {

struct CPanel;
struct TREENODE;
class WalkProgress;
// True when work that takes long is to end early.
using StopWanted = std::function<bool()>;

class IPanelArchives {
public:
    virtual ~IPanelArchives() = default;
    // Closes each open archive of the panel that its path has left or whose file is gone.
    virtual void CloseLeft(CPanel& panel) = 0;
    // The listing of the panel's path inside its innermost archive.
    virtual std::unique_ptr<IEntryScanner> OpenListing(CPanel& panel) = 0;
    // Closes those archives that do not lie on `path`, innermost first.
    virtual void CloseBeside(CPanel& panel, const Westring& path) = 0;
    // True when the file, or the member of the open archive, is an archive and now is the
    // panel's innermost one.
    virtual bool Open(CPanel& panel, const Westring& path) = 0;
    // True when `path` is a directory inside the innermost open archive.
    virtual bool HasDirectory(CPanel& panel, const Westring& path) = 0;
    // The directory on disk that holds the outermost archive.
    virtual Westring RealDirectory(const CPanel& panel) = 0;
    // The target that the archive's record has for a link.
    virtual Westring LinkTarget(const CPanel& panel, const entry& link) = 0;
    // The bytes of all files below the directory `path` of the innermost open archive; -1 when
    // `stopWanted`, which is to be called often, said so.
    virtual int64_t DirectoryTotal(CPanel& panel, const Westring& path, WalkProgress& progress,
                                   const StopWanted& stopWanted) = 0;
};

class IPanelTree {
public:
    virtual ~IPanelTree() = default;
    // Fills the panel's entries with the rows of the tree.
    virtual void BuildRows(CPanel& panel) = 0;
    // Sets panel.tree to the tree that belongs to its path, or to null.
    virtual void Link(CPanel& panel) = 0;
    // The known total of the subdirectory `name`; false when unknown.
    virtual bool KnownTotal(const CPanel& panel, const wchar_t* name, uint64_t& total) = 0;
    // A read of panel.path has seen `filesTotal` bytes of plain files.
    virtual void ReadDone(CPanel& panel, uint64_t filesTotal) = 0;
    // Moves the highlight of a panel in the tree style to the directory `path`; repaints it.
    virtual void Follow(CPanel& treePanel, const Westring& path) = 0;
    virtual Westring SelectedPath(const CPanel& panel) = 0;
    virtual void DrawRow(CPanel& panel, int index, int attribute) = 0;
    // Shows or hides what lies below the highlighted directory, or below every one.
    virtual void SetExpanded(CPanel& panel, bool expanded, bool everywhere) = 0;
    // Moves the highlight to the next (1) or the previous (-1) row that is no deeper.
    virtual void ToSibling(CPanel& panel, int step) = 0;
};

// Totals of directories that are found by walking through them. Nodes are borrowed.
class ITreeTotals {
public:
    virtual ~ITreeTotals() = default;
    // The node of an absolute path in the panel's tree, or null.
    virtual TREENODE* NodeOf(CPanel& panel, const Westring& path) = 0;
    virtual TREENODE* ChildOf(TREENODE& node, const wchar_t* name) = 0;
    virtual void SetTotal(TREENODE& node, uint64_t bytes) = 0;
    // True when the panel's tree is no longer as its file has it.
    virtual bool HasChanged(CPanel& panel) = 0;
};

class ITreeKeeper {
public:
    virtual ~ITreeKeeper() = default;
    // Keep the panel's tree in step with what the program does to directories; paths are absolute.
    virtual void DirectoryAdded(CPanel& panel, const Westring& path) = 0;
    // False when the tree does not know the directory that it was in.
    virtual bool DirectoryRemoved(CPanel& panel, const Westring& path) = 0;
    virtual void DirectoryRenamed(CPanel& panel, const Westring& from, const Westring& to) = 0;
    // Writes the panel's tree to its file.
    virtual void Save(CPanel& panel) = 0;
    // Lets the user pick a directory in a window `width` columns wide; false for Esc.
    virtual bool Pick(CPanel& panel, Westring& path, int width) = 0;
};

class IPanelInfo {
public:
    virtual ~IPanelInfo() = default;
    virtual void Draw(CPanel& infoPanel) = 0;
};

class IEntryFilter {
public:
    virtual ~IEntryFilter() = default;
    // The panel is about to read a directory through its filter, which is other than "*".
    virtual void BeginRead(const CPanel& panel) { static_cast<void>(panel); }
    // Called with a filter other than "*", for entries that are no directories.
    virtual bool Accepts(const CPanel& panel, const entry& candidate) = 0;
};

class IEntryColours {
public:
    virtual ~IEntryColours() = default;
    // The attribute of the first rule that matches the entry, made over `base`; `base` when none
    // does.
    virtual Attribute ColourOf(const CPanel& panel, const entry& e, Attribute base) = 0;
};

class IDirectoryChooser {
public:
    virtual ~IDirectoryChooser() = default;
    // Lets the user pick one of the directories that were visited; false for Esc.
    virtual bool Pick(CPanel& panel, Westring& path) = 0;
};

struct PanelSeams {
    IPanelArchives* archives = nullptr;
    IPanelTree* tree = nullptr;
    ITreeTotals* totals = nullptr;
    ITreeKeeper* trees = nullptr;
    IPanelInfo* info = nullptr;
    IEntryFilter* filter = nullptr;
    IEntryColours* colours = nullptr;
    IDirectoryChooser* history = nullptr;
};

}  // namespace zt
