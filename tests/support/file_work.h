// Copying, moving and deleting as a test does it many times in one session: a folder "from" in the
// left panel, a folder "to" in the right one, faults between the program and the file system, boxes
// answered by a rule. Belongs to the test's thread.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "tests/support/fault_control.h"
#include "tests/support/file_tree.h"
#include "tests/support/session.h"
#include "tests/support/small_file_system.h"
#include "tests/support/tree_snapshot.h"

namespace zt::headless {

// How a user meets boxes that tell of an error.
enum class BoxPolicy { kCancel, kSkip, kRetryOnce };

// What happened between the key that begins the work and the panels at rest.
struct WorkReport {
    std::vector<std::string>
        boxes;              // the screen of each box that came up; twice the same one counts once
    bool finished = false;  // the panels are there again
    uint32_t seen = 0;      // calls
    uint32_t hits = 0;      // faults
    std::string hit;        // the first call that was hit
    std::set<std::string> tagged;  // what is tagged afterwards
    bool panelStands = false;      // the left panel shows "from", so that `tagged` counts
};

struct WorkPlace {
    enum class Kind { kOneFileSystem, kTwoFileSystems };

    // Two file systems; where nothing can be mounted (Reason() tells why) the injector makes the
    // folders seem so.
    explicit WorkPlace(Kind kind, uint64_t bytes = 32u << 20);

    std::string From() const { return tree.PathOf("from"); }
    std::string To() const { return tree.PathOf("to"); }
    // Of the two, that "to" lies on one of its own.
    bool IsMounted() const { return systems.back()->IsMounted(); }
    // What FaultControl is to keep apart; empty: nothing.
    std::string Apart() const { return isSimulated ? To() : ""; }
    const std::string& Reason() const { return systems.back()->Reason(); }
    // Both folders are empty again.
    void Clear();

    FileTree tree;
    std::vector<std::unique_ptr<SmallFileSystem>> systems;  // go before the tree does
    bool isSimulated = false;
};

class FileWork {
public:
    // Hidden files are shown. `settings` are further lines of the section [General Options].
    explicit FileWork(WorkPlace& place, const std::string& settings = "");
    ~FileWork();

    FileWork(const FileWork&) = delete;
    FileWork& operator=(const FileWork&) = delete;

    Session& Screen() { return *session; }
    FaultControl& Faults() { return *faults; }

    // Reads the left panel again, and tags all that it shows (`count` entries), or none and puts
    // the cursor on the entry of that number (from 1).
    void TagAll(size_t count);
    void GoTo(size_t number);

    // Presses `trigger` with the order in force and answers the boxes until the panels are there.
    WorkReport Run(const std::string& trigger, const FaultOrder& order, BoxPolicy policy);
    // Presses `trigger` and comes back when the program stands before the call of the order, which
    // must ask for a pause. False: that call did not come.
    bool RunToPause(const std::string& trigger, const FaultOrder& order);
    // Lets it go on until it waits for a key.
    void GoOn();
    // Answers what stands on the screen; false when nothing helps.
    bool AnswerBoxes(BoxPolicy policy, std::vector<std::string>* boxes = nullptr);
    // What is tagged in the left panel, as far as it is to be seen.
    std::set<std::string> Tagged() const;

    // A new session, when the last one is no longer where it began.
    void StartAgain();

private:
    void Settle(const std::vector<WireEvent>& events);

    WorkPlace& place;
    FileTree home;
    std::unique_ptr<FaultControl> faults;
    std::unique_ptr<Session> session;
};

// Events of keys in a row, for sending at once.
std::vector<WireEvent> Keys(std::initializer_list<std::string_view> names);

}  // namespace zt::headless
