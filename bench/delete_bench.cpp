// Deleting: 20,000 files of 4 KiB beside rm -r on the same files, in 100 directories, all in one,
// and tagged in the panel. With what was just written still in memory, and read from the disk anew
// where the system lets us empty its caches.
//
//   delete_bench [RUNS]     of which the median counts; 5 without
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/figures.h"
#include "tests/support/file_tree.h"
#include "tests/support/session.h"

namespace zt::bench {

namespace {

using headless::FileTree;
using headless::Session;
using headless::SessionOptions;
using Clock = std::chrono::steady_clock;

constexpr int kFiles = 20000;
constexpr double kAtMost = 1.5;
// Of the setting "Confirmations": all questions of the delete command off.
constexpr char kSettings[] = "Confirmations=7\nHidden=on\n";

double MillisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void Fill(const std::string& folder, int first, int count) {
    static const std::vector<char> content(4096, 'x');
    const int directory = open(folder.c_str(), O_DIRECTORY | O_RDONLY);
    for (int i = first; i < first + count; i++) {
        char name[32];
        snprintf(name, sizeof name, "file%05d.txt", i);
        const int file = openat(directory, name, O_CREAT | O_WRONLY, 0644);
        if (file < 0 || write(file, content.data(), content.size()) < 0) abort();
        close(file);
    }
    close(directory);
}

// "top" with the files, in so many directories; one means "top" itself.
void Make(FileTree& tree, int directories) {
    tree.Folder("work/top");
    const int each = kFiles / directories;
    for (int i = 0; i < directories; i++) {
        const std::string name = directories == 1 ? "work/top" : "work/top/dir" + std::to_string(i);
        tree.Folder(name);
        Fill(tree.PathOf(name), i * each, each);
    }
}

bool EmptyCaches() {
    sync();
    const int file = open("/proc/sys/vm/drop_caches", O_WRONLY | O_CLOEXEC);
    if (file < 0) return false;
    const bool done = write(file, "3", 1) == 1;
    close(file);
    return done;
}

double Yardstick(const FileTree& tree) {
    const std::string path = tree.PathOf("work/top");
    const Clock::time_point start = Clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execlp("rm", "rm", "-r", path.c_str(), nullptr);
        _exit(127);
    }
    int status = -1;
    waitpid(child, &status, 0);
    const double time = MillisecondsSince(start);
    return status == 0 && !tree.Exists("work/top") ? time : -1;
}

// From the key until the program waits for the next one with nothing left; the panels are read
// again within that time.
double Ours(const FileTree& tree, bool isTagged, bool isCold) {
    FileTree home;
    home.File(".ztx/zt.ini", kSettings);
    SessionOptions options;
    options.home = home.Path();
    options.directory = tree.PathOf(isTagged ? "work/top" : "work");
    options.arguments = {"-r", home.Path()};
    Session session(options);
    session.Press("Down");
    if (isTagged) {
        session.Press("Grey+");
        session.Press("Enter");
    }
    if (isCold && !EmptyCaches()) return -1;
    session.Screen().ResetTraffic();
    const Clock::time_point start = Clock::now();
    session.Send(*headless::KeyEvent("F8"));
    const bool done = session.WaitFor(
        [&] { return session.LastTraffic().cursorShown > 0 && session.AtPrompt(); }, "the end");
    const double time = MillisecondsSince(start);
    const bool isGone = isTagged ? tree.Names("work/top").empty() : !tree.Exists("work/top");
    if (!done || !isGone) printf("%s\n", session.Text().c_str());
    return done && isGone ? time : -1;
}

struct Task {
    const char* name;
    int directories;
    bool isTagged;
};

constexpr Task kTasks[] = {
    {"in 100 directories", 100, false},
    {"in one directory", 1, false},
    {"tagged in the panel", 1, true},
};

void Compare(Figures& figures, const Task& task, bool isCold, int runs) {
    std::vector<double> ours, theirs;
    for (int i = 0; i < runs; i++) {
        FileTree tree;
        Make(tree, task.directories);
        if (isCold && !EmptyCaches()) break;
        theirs.push_back(Yardstick(tree));
        Make(tree, task.directories);
        ours.push_back(Ours(tree, task.isTagged, isCold));
    }
    const std::string name =
        std::string("20,000 files ") + task.name + (isCold ? ", cold" : ", warm");
    if (ours.empty()) {
        printf("%-46s the caches cannot be emptied here\n", name.c_str());
        return;
    }
    figures.Ratio(name, Median(ours), Median(theirs), "ms", kAtMost);
}

}  // namespace

int Main(int runs) {
    setenv("ZT_TEST_SLOWNESS", "12", 0);
    Figures figures("Deleting files of 4 KiB, the yardstick is rm -r");
    for (const Task& task : kTasks)
        Compare(figures, task, false, runs);
    for (const Task& task : kTasks)
        Compare(figures, task, true, runs);
    return figures.Failures();
}

}  // namespace zt::bench

int main(int count, char** words) {
    const int runs = count > 1 ? atoi(words[1]) : 0;
    return zt::bench::Main(runs > 0 ? runs : 5) == 0 ? 0 : 1;
}
