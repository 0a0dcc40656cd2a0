// The kinds of work on files whose every call is made to fail, and what must hold afterwards
// whatever failed: nothing is lost, nothing is left over, nothing is done that was not asked for.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "tests/support/file_work.h"

namespace zt::headless {

enum class Work { kCopy, kMove, kRename, kDelete };

// What stands in the folder "to", and what the dialog says to that.
enum class Existing {
    kNothing,
    kAlways,
    kNever,
    kFileForFolder,  // as kAlways, and a file stands where a folder goes
};

struct WorkCase {
    const char* name;
    Work work;
    WorkPlace::Kind place;
    Existing existing;
};

inline void PrintTo(const WorkCase& work, std::ostream* out) {
    *out << work.name;
}

extern const std::vector<WorkCase> kWorkCases;

// Files, folders and a link in "from"; older ones of the same names, and others, in "to".
void BuildTrees(WorkPlace& place, const WorkCase& work);
// Lines of the settings that the work needs.
std::string SettingsOf(const WorkCase& work);
// Tags what is meant and fills the dialog in; the key that is still missing comes back.
std::string Prepare(FileWork& session, const WorkCase& work);

// All that is wrong, a line each; empty: nothing. The snapshots are of the whole place.
struct Leniency {
    bool rightsAndTimes = false;  // a file may have others than its source's
    bool temporaryFiles = false;  // of files that are not finished may be there
    bool tags = false;            // they are not looked at
};
std::string Complaints(const WorkCase& work, const TreeSnapshot& before, const TreeSnapshot& after,
                       const WorkReport& report, const Leniency& leniency);
// And what must hold besides when nothing failed.
std::string ComplaintsAboutSuccess(const WorkCase& work, const TreeSnapshot& before,
                                   const TreeSnapshot& after, const WorkReport& report);

}  // namespace zt::headless
