// Copying beside cp, and moving across file systems beside mv, on the same files. Copied are one
// large file, many small ones in many directories, and all of them in one; with the sources in
// memory, and (as root, who may empty the caches) on the disk. Moves are for information. Driven by
// keys through zt-remote, from Enter in the dialog to the panels at rest.
//
//   copy_bench [MEGABYTES [FILES]]     2048 and 20000 without; TMPDIR says where
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "bench/figures.h"
#include "tests/support/file_tree.h"
#include "tests/support/session.h"
#include "tests/support/tree_elsewhere.h"

namespace zt::bench {

namespace {

using Clock = std::chrono::steady_clock;
using headless::FileTree;
using headless::Session;
using headless::SessionOptions;
using headless::TreeElsewhere;

constexpr int kRuns = 5;
constexpr int kBlockBytes = 1 << 20;
constexpr int kSmallBytes = 4096;
constexpr int kFolders = 100;
constexpr double kNoLimit = std::numeric_limits<double>::infinity();

constexpr char kElsewhere[] = "/dev/shm";  // another file system than that of TMPDIR

struct Task {
    std::string name;  // of the one entry in the source directory
    std::string title;
    const char* option;  // of cp
    double atMost;
    const char* yardstick = "cp";
    const char* key = "F5";
    const char* window = "Copying";
};

std::string Block(size_t bytes) {
    std::string block(bytes, 0);
    for (size_t i = 0; i < bytes; i++)
        block[i] = static_cast<char>(i * 2654435761u >> 13);
    return block;
}

void MakeFile(const std::string& path, const std::string& block, int blocks) {
    const int file = open(path.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644);
    for (int i = 0; i < blocks; i++) {
        if (write(file, block.data(), block.size()) < 0) std::abort();
    }
    close(file);
}

void MakeSmallFiles(const std::string& folder, int files, int folders) {
    const std::string block = Block(kSmallBytes);
    std::filesystem::create_directory(folder);
    for (int i = 0; i < files; i++) {
        std::string path = folder;
        if (folders > 1) path += "/d" + std::to_string(i % folders);
        if (i < folders && folders > 1) std::filesystem::create_directory(path);
        MakeFile(path + "/file" + std::to_string(i), block, 1);
    }
}

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

bool IsOneFileSystem(const FileTree& a, const FileTree& b) {
    struct stat first {
    }, second{};
    return stat(a.Path().c_str(), &first) == 0 && stat(b.Path().c_str(), &second) == 0 &&
           first.st_dev == second.st_dev;
}

// What one run has left to write does not burden the next one.
void Prepare(const FileTree& target, bool cold) {
    for (const auto& entry : std::filesystem::directory_iterator(target.Path()))
        std::filesystem::remove_all(entry.path());
    sync();
    if (!cold) return;
    const int caches = open("/proc/sys/vm/drop_caches", O_WRONLY | O_CLOEXEC);
    if (caches < 0 || write(caches, "3", 1) != 1) std::abort();
    close(caches);
}

bool AtRest(const Session& session, const Task& task) {
    if (!session.AtPrompt()) return false;
    const std::string text = session.Text();
    return text.find(task.window) == std::string::npos &&
           text.find("[ Cancel ]") == std::string::npos;
}

double Ours(const FileTree& source, const FileTree& target, const Task& task, bool cold) {
    SessionOptions options;
    options.directory = source.Path();
    options.arguments = {"-l", source.Path(), "-r", target.Path()};
    Session session(options);
    session.Press({"End", task.key});
    Prepare(target, cold);
    session.Screen().ResetTraffic();
    const Clock::time_point start = Clock::now();
    session.Send(*headless::KeyEvent("Enter"));
    const bool done = session.WaitFor(
        [&] { return session.LastTraffic().cursorShown > 0 && AtRest(session, task); },
        task.window);
    const double seconds = SecondsSince(start);
    const bool isThere = std::filesystem::exists(target.PathOf(task.name));
    if (!done || !isThere) std::printf("%s\n", session.Text().c_str());
    return done && isThere ? seconds : -1;
}

double Yardstick(const FileTree& source, const FileTree& target, const Task& task, bool cold) {
    Prepare(target, cold);
    const std::string from = source.PathOf(task.name), to = target.PathOf(task.name);
    const Clock::time_point start = Clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execlp(task.yardstick, task.yardstick, task.option, from.c_str(), to.c_str(),
               static_cast<char*>(nullptr));
        _exit(127);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return status == 0 ? SecondsSince(start) : -1;
}

void Compare(Figures& figures, const Task& task, const std::function<void(const FileTree&)>& fill) {
    const FileTree source, target;
    fill(source);
    for (const bool cold : {false, true}) {
        if (cold && geteuid() != 0) {
            std::printf("%s, cold: only root may empty the caches\n", task.title.c_str());
            continue;
        }
        std::vector<double> ours, theirs;
        Yardstick(source, target, task, false);  // fills the caches for both
        for (int i = 0; i < kRuns; i++) {
            theirs.push_back(Yardstick(source, target, task, cold));
            ours.push_back(Ours(source, target, task, cold));
        }
        figures.Ratio(task.title + (cold ? ", cold" : ", warm"), Median(ours), Median(theirs), "s",
                      task.atMost);
    }
    Prepare(target, false);
}

// There and back again, so that every run finds the files where they were. What is moved has been
// written just before, and is in memory.
void CompareMoves(Figures& figures, int files) {
    const FileTree here;
    const TreeElsewhere elsewhere(kElsewhere);
    if (IsOneFileSystem(here, *elsewhere)) {
        std::printf("moving: %s is no other file system\n", kElsewhere);
        return;
    }
    MakeSmallFiles(here.PathOf("tree"), files, kFolders);
    const Task task{"tree", "", "-f", kNoLimit, "mv", "F6", "Moving"};
    std::vector<double> ours[2], theirs[2];
    for (int i = 0; i < kRuns; i++) {
        theirs[0].push_back(Yardstick(here, *elsewhere, task, false));
        theirs[1].push_back(Yardstick(*elsewhere, here, task, false));
        ours[0].push_back(Ours(here, *elsewhere, task, false));
        ours[1].push_back(Ours(*elsewhere, here, task, false));
    }
    const std::string title = "move " + std::to_string(files) + " files ";
    figures.Ratio(title + "to memory", Median(ours[0]), Median(theirs[0]), "s", kNoLimit);
    figures.Ratio(title + "to the disk", Median(ours[1]), Median(theirs[1]), "s", kNoLimit);
}

int Main(int megabytes, int files) {
    setenv("ZT_TEST_SLOWNESS", "60", 0);
    Figures figures("Copying, the yardstick is cp");
    const std::string number = std::to_string(files);
    Compare(figures, {"large", std::to_string(megabytes) + " MiB in one file", "-p", 1.15},
            [&](const FileTree& tree) {
                MakeFile(tree.PathOf("large"), Block(kBlockBytes), megabytes);
            });
    Compare(figures, {"tree", number + " files in 100 directories", "-a", 1.5},
            [&](const FileTree& tree) { MakeSmallFiles(tree.PathOf("tree"), files, kFolders); });
    Compare(figures, {"flat", number + " files in one directory", "-a", 1.5},
            [&](const FileTree& tree) { MakeSmallFiles(tree.PathOf("flat"), files, 1); });
    CompareMoves(figures, files);
    return figures.Failures();
}

}  // namespace

}  // namespace zt::bench

int main(int count, char** words) {
    const int megabytes = count > 1 ? atoi(words[1]) : 2048;
    const int files = count > 2 ? atoi(words[2]) : 20000;
    return zt::bench::Main(megabytes, files) == 0 ? 0 : 1;
}
