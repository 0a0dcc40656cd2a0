// The work, the trees it is done on, and the looks at what it left behind.
#include "tests/nothing_lost/work_case.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace zt::headless {

namespace {

constexpr auto kOne = WorkPlace::Kind::kOneFileSystem;
constexpr auto kTwo = WorkPlace::Kind::kTwoFileSystems;
constexpr size_t kEntries = 4;  // in "from"
constexpr const char* kRenamed = "small";
constexpr const char* kNewName = "newname";
constexpr std::string_view kTemporary = ".zt@@@";  // and a number, and ".tmp"

std::string Pattern(size_t size, char first) {
    std::string bytes(size, first);
    for (size_t i = 0; i < size; i++)
        bytes[i] = static_cast<char>(static_cast<size_t>(first) + i * 7 + i / 251);
    return bytes;
}

bool IsFolder(const FileState& state) {
    return state.type == S_IFDIR;
}

class Judge {
public:
    Judge(const WorkCase& theWork, const TreeSnapshot& was, const TreeSnapshot& is,
          const Leniency& mild)
        : work(theWork), before(was), after(is), leniency(mild) {}

    std::string Complaints() {
        for (const auto& [path, state] : before) {
            if (!IsSource(path)) {
                if (!IsTarget(path)) Untouched(path, state);
            } else if (work.work == Work::kDelete) {
                Deleted(path, state);
            } else {
                Transferred(path, state);
            }
        }
        for (const auto& [path, state] : after) {
            if (!before.contains(path) && !IsTarget(path) && !MayBeThere(path)) {
                Complain("left over", path);
            }
        }
        return complaints;
    }

    bool IsSource(const std::string& path) const {
        if (work.work == Work::kRename) return path == std::string("from/") + kRenamed;
        return path.starts_with("from/");
    }

    // Whether the work on that one is done. A source that could not be taken away after it had
    // arrived is told of, and counts as moved.
    bool IsDone(const std::string& path, const FileState& state) const {
        if (work.work == Work::kDelete) return !after.contains(path);
        const auto target = after.find(Target(path));
        return target != after.end() && IsWhole(target->second, state);
    }

private:
    static std::string TargetOf(const std::string& path) {
        return "to" + path.substr(std::string_view("from").size());
    }

    std::string Target(const std::string& path) const {
        return work.work == Work::kRename ? std::string("from/") + kNewName : TargetOf(path);
    }

    bool IsTarget(const std::string& path) const {
        if (work.work == Work::kDelete) return false;
        if (work.work == Work::kRename) return path == std::string("from/") + kNewName;
        return path.starts_with("to/") && before.contains("from" + path.substr(2));
    }

    bool MayBeThere(const std::string& path) const {
        return leniency.temporaryFiles && path.find(kTemporary) != std::string::npos;
    }

    bool IsWhole(const FileState& target, const FileState& source) const {
        if (IsFolder(source)) return IsFolder(target);
        // The time of a link is not carried.
        if (source.type == S_IFLNK || leniency.rightsAndTimes) return target.HoldsSameAs(source);
        return target.IsWholeCopyOf(source);
    }

    void Complain(const char* what, const std::string& path) {
        complaints += std::string(what) + ": " + Shown(path) + "\n";
    }

    void Untouched(const std::string& path, const FileState& state) {
        const auto now = after.find(path);
        if (now == after.end() || !(now->second == state)) Complain("touched", path);
    }

    void Deleted(const std::string& path, const FileState& state) {
        const auto now = after.find(path);
        if (now != after.end() && !IsSame(now->second, state)) Complain("changed", path);
    }

    static bool IsSame(const FileState& now, const FileState& then) {
        return IsFolder(then) ? IsFolder(now) : now == then;
    }

    void Transferred(const std::string& path, const FileState& state) {
        const auto source = after.find(path);
        const bool whole = source != after.end() && IsSame(source->second, state);
        const std::string targetPath = Target(path);
        const auto target = after.find(targetPath);
        const bool done = target != after.end() && IsWhole(target->second, state);
        const auto old = before.find(targetPath);
        const bool asBefore = old == before.end()
                                  ? target == after.end()
                                  : target != after.end() && IsSame(target->second, old->second);
        // A folder and the file in its way change places; a disk that dies then leaves them so.
        const bool changedPlaces = leniency.temporaryFiles && source != after.end() &&
                                   old != before.end() && IsSame(source->second, old->second);
        if (!whole && source != after.end() && !changedPlaces) {
            Complain("its source is changed", path);
        }
        if (!whole && !(done && work.work != Work::kCopy)) Complain("LOST", path);
        if (!done && !asBefore) Complain("neither the old nor the new one", targetPath);
        const bool kept = work.existing == Existing::kNever && old != before.end();
        if (kept && !IsFolder(state) && !(asBefore && whole)) {
            Complain("overwritten without leave", targetPath);
        }
    }

    const WorkCase& work;
    const TreeSnapshot& before;
    const TreeSnapshot& after;
    const Leniency& leniency;
    std::string complaints;
};

std::string TopEntry(const std::string& path) {
    const size_t from = path.find('/') + 1;
    return path.substr(from, path.find('/', from) - from);
}

}  // namespace

const std::vector<WorkCase> kWorkCases = {
    {"Copy", Work::kCopy, kOne, Existing::kNothing},
    {"CopyOver", Work::kCopy, kOne, Existing::kAlways},
    {"CopyBeside", Work::kCopy, kOne, Existing::kNever},
    {"Move", Work::kMove, kOne, Existing::kNothing},
    {"MoveMerging", Work::kMove, kOne, Existing::kAlways},
    {"MoveBeside", Work::kMove, kOne, Existing::kNever},
    {"MoveAcross", Work::kMove, kTwo, Existing::kNothing},
    {"MoveAcrossMerging", Work::kMove, kTwo, Existing::kAlways},
    {"MoveAcrossBeside", Work::kMove, kTwo, Existing::kNever},
    {"CopyOverFile", Work::kCopy, kOne, Existing::kFileForFolder},
    {"MoveOverFile", Work::kMove, kOne, Existing::kFileForFolder},
    {"MoveAcrossOverFile", Work::kMove, kTwo, Existing::kFileForFolder},
    {"Rename", Work::kRename, kOne, Existing::kNothing},
    {"RenameOntoAnother", Work::kRename, kOne, Existing::kNever},
    {"Delete", Work::kDelete, kOne, Existing::kNothing},
};

void BuildTrees(WorkPlace& place, const WorkCase& work) {
    place.Clear();
    FileTree& tree = place.tree;
    tree.File("from/big", Pattern(40000, 'b')).File("from/small", Pattern(700, 's'));
    tree.File("from/dir/one", Pattern(300, '1')).File("from/dir/sub/two", Pattern(5000, '2'));
    tree.Link("from/link", "big").Mode("from/small", 0600).Mode("from/dir/one", 0640);
    time_t time = UtcTime(2001, 2, 3);
    for (const char* name : {"big", "small", "dir/one", "dir/sub/two", "link"}) {
        tree.Time(std::string("from/") + name, time += 1000);
    }
    if (work.existing == Existing::kNothing) return;
    if (work.work == Work::kRename) {
        tree.File(std::string("from/") + kNewName, "another").Remove("from/link");
        return;
    }
    if (work.existing == Existing::kFileForFolder) {
        tree.File("to/dir", "an older file").File("to/keep", "kept").Time("to/dir", time);
        return;
    }
    tree.File("to/big", Pattern(35000, 'B')).File("to/small", "older");
    tree.File("to/dir/one", "older one").File("to/dir/other", "other").File("to/keep", "kept");
    tree.Link("to/link", "elsewhere");
    for (const char* name : {"big", "small", "dir/one", "dir/other", "keep", "link"}) {
        tree.Time(std::string("to/") + name, time += 1000);
    }
}

std::string SettingsOf(const WorkCase& work) {
    return work.work == Work::kDelete ? "Confirmations=7\n" : "";
}

std::string Prepare(FileWork& session, const WorkCase& work) {
    Session& screen = session.Screen();
    if (work.work == Work::kRename) {
        session.GoTo(kEntries);  // the last one
        screen.Press("Shift-F6");
        screen.Type(kNewName);
        return "Enter";
    }
    session.TagAll(kEntries);
    if (work.work == Work::kDelete) return "F8";
    screen.Press(work.work == Work::kCopy ? "F5" : "F6");
    const bool always =
        work.existing == Existing::kAlways || work.existing == Existing::kFileForFolder;
    if (always) screen.Press("Alt-a");
    if (work.existing == Existing::kNever) screen.Press("Alt-e");
    return "Enter";
}

std::string Complaints(const WorkCase& work, const TreeSnapshot& before, const TreeSnapshot& after,
                       const WorkReport& report, const Leniency& leniency) {
    Judge judge(work, before, after, leniency);
    std::string all = judge.Complaints();
    if (leniency.tags || work.work == Work::kRename) return all;
    for (const auto& [path, state] : before) {
        if (!judge.IsSource(path) || judge.IsDone(path, state)) continue;
        const std::string entry = TopEntry(path);
        if (!after.contains("from/" + entry) || report.tagged.contains(entry)) continue;
        all += "not done and not tagged: " + Shown(path) + "\n";
    }
    return all;
}

std::string ComplaintsAboutSuccess(const WorkCase& work, const TreeSnapshot& before,
                                   const TreeSnapshot& after, const WorkReport& report) {
    std::string all;
    const Leniency none;
    const Judge judge(work, before, after, none);
    for (const auto& [path, state] : before) {
        if (work.existing == Existing::kNever) break;
        if (!judge.IsSource(path)) continue;
        if (!judge.IsDone(path, state)) all += "not done: " + path + "\n";
        if (work.work != Work::kCopy && after.contains(path)) all += "still there: " + path + "\n";
    }
    if (!report.tagged.empty() && work.existing != Existing::kNever) all += "tags are left\n";
    // A rename onto another file has to ask, and a folder that keeps a file is told of.
    if (work.existing != Existing::kNever && !report.boxes.empty()) {
        all += "a box came up:\n" + report.boxes[0];
    }
    return all;
}

}  // namespace zt::headless
