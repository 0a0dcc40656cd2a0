// Adds up what lies below a directory on the disk: the size of every file, hidden ones too, once
// for each of its names. Symbolic links are not followed and add nothing; mount points are not
// entered. Paths may be longer and trees deeper than the system takes in one call: descriptors and
// memory do not grow with the depth.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <vector>

#include "panels/panel_seams.h"
#include "panels/walk_progress.h"

namespace zt {

// One walk after the other. For one thread.
class DirectoryWalk {
public:
    static constexpr int64_t kStopped = -1;

    // `stopWanted` is called all the time: it must be cheap. `totals`, if there is one, takes the
    // total of each directory that the tree holds.
    DirectoryWalk(WalkProgress& progress, StopWanted stopWanted, ITreeTotals* totals = nullptr);
    ~DirectoryWalk();
    DirectoryWalk(const DirectoryWalk&) = delete;
    DirectoryWalk& operator=(const DirectoryWalk&) = delete;

    // The bytes below `directory`, which is entered even where a file system is mounted on it;
    // kStopped when it was asked to stop. What cannot be read adds nothing. `node` is the
    // directory's in the tree, or null.
    [[nodiscard]] int64_t Total(const char* directory, TREENODE* node = nullptr);

private:
    // Where a directory is: found again by it after its descriptor was closed.
    struct Place {
        dev_t device = 0;
        ino_t inode = 0;
        bool operator==(const Place&) const = default;
    };
    // A directory on the way down to where the walk is.
    struct Level {
        int descriptor = -1;
        Place place;
        uint64_t total = 0;
        size_t waiting = 0;  // subdirectories still to be entered
        TREENODE* node = nullptr;
    };

    bool ReadLevel();
    bool TakeBatch(const char* batch, size_t length);
    void TakeEntry(const char* name, unsigned char type);
    void TakeFile(const char* name);
    void TakeWaiting(const char* name);
    std::string NextWaiting();
    void EnterNext();
    void LeaveLevel();
    void ReturnTo(Level& level, int child);
    int WayDown(size_t depth) const;
    void CloseAll();

    WalkProgress& progress_;
    const StopWanted stopWanted_;
    ITreeTotals* const totals_;
    std::vector<Level> levels_;  // outermost first
    std::vector<char> names_;    // of what waits: zero-ended, the deepest level's at the end
    std::vector<char> batch_;    // of directory entries, as the system gives them
};

}  // namespace zt
