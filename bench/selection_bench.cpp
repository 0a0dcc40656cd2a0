// Tagging a million entries by an expression, and adding up directories beside du on the same tree,
// with warm caches and, where they can be dropped, with cold ones.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cwchar>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench/figures.h"
#include "foundation/file_name.h"
#include "foundation/settings.h"
#include "panels/cursor_movement.h"
#include "panels/directory_sizes.h"
#include "panels/group_selection.h"
#include "panels/panel_window.h"
#include "tests/console/fake_console.h"
#include "tests/support/file_tree.h"

namespace zt::bench {
namespace {

using Clock = std::chrono::steady_clock;
using headless::FileTree;

constexpr int kEntries = 1000000;
constexpr int kRuns = 7;
constexpr int kColdRuns = 3;

double MillisecondsOf(const std::function<void()>& work) {
    const Clock::time_point start = Clock::now();
    work();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// As a directory of a million files has them: a third ends in .txt, half of those are large.
void FillList(CPanel& panel) {
    entry* made = NewEntry(L"file0000000.jpeg");
    for (int i = 0; i < kEntries; ++i) {
        swprintf(made->name, 17, L"file%07d.%ls", i, i % 3 == 0 ? L"txt" : L"jpeg");
        made->size = i % 2 == 0 ? 100 : 5000;
        made->group = kGroupFile;
        panel.entries.Append(*made);
    }
    FreeEntry(made);
}

void TagAMillion(Figures& figures) {
    const auto panels = std::make_unique<PanelPair>();
    CPanel& panel = panels->panel[0];
    FillList(panel);
    std::vector<double> times, untagTimes;
    for (int run = 0; run < kRuns; ++run) {
        times.push_back(MillisecondsOf([&panel] {
            CompiledFilter filter("*.txt & %size>1k");
            TagMatching(panel, filter, TagMode::kSet, false);
        }));
        if (panel.taggedCount != (kEntries + 2) / 6) std::printf("wrong: %d\n", panel.taggedCount);
        untagTimes.push_back(MillisecondsOf([&panel] { TagAll(panel, TagMode::kClear, 0); }));
    }
    figures.Budget("tag 1,000,000 by *.txt & %size>1k", Median(times), "ms", 1000);
    figures.Budget("  nanoseconds an entry", Median(times) * 1e6 / kEntries, "ns", 1000);
    figures.Budget("untag them all", Median(untagTimes), "ms", 1000);
}

// Directories in three levels with `files` empty files in each of the lowest.
void FillTree(const FileTree& tree, int directories, int files) {
    const int kWidth = 20;
    for (int d = 0; d < directories; ++d) {
        const std::string middle = "tree/m" + std::to_string(d / kWidth);
        if (d == 0) mkdir(tree.PathOf("tree").c_str(), 0755);
        if (d % kWidth == 0) mkdir(tree.PathOf(middle).c_str(), 0755);
        const std::string path = tree.PathOf(middle + "/d" + std::to_string(d));
        mkdir(path.c_str(), 0755);
        const int folder = open(path.c_str(), O_DIRECTORY | O_RDONLY | O_CLOEXEC);
        for (int i = 0; i < files; ++i) {
            const std::string name = "file" + std::to_string(i);
            const int file = openat(folder, name.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644);
            if (file >= 0) close(file);
        }
        close(folder);
    }
}

void RunDu(const std::string& path) {
    const pid_t child = fork();
    if (child == 0) {
        const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
        dup2(nowhere, STDOUT_FILENO);
        execlp("du", "du", "-s", path.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) std::printf("du failed\n");
}

bool DropCaches() {
    sync();
    const int file = open("/proc/sys/vm/drop_caches", O_WRONLY | O_CLOEXEC);
    if (file < 0) return false;
    const bool done = write(file, "3", 1) == 1;
    close(file);
    return done;
}

// The tree is the only directory in the panel, under the cursor.
class SizedPanel {
public:
    explicit SizedPanel(const FileTree& tree) : panels_(std::make_unique<PanelPair>()) {
        for (CPanel& panel : panels_->panel) {
            panel.path = NameFromBytes(tree.Path().c_str());
            InitFromSettings(panel, panel.side);
        }
        if (!FindName(Panel(), L"tree")) std::printf("no tree\n");
    }
    CPanel& Panel() { return panels_->panel[0]; }

private:
    std::unique_ptr<PanelPair> panels_;
};

void Compare(Figures& figures, const char* shape, int directories, int files) {
    FileTree tree;
    FillTree(tree, directories, files);
    SizedPanel sized(tree);
    const auto ours = [&sized] {
        if (!CalculateDirSizes(sized.Panel(), true)) std::printf("stopped\n");
    };
    const auto theirs = [&tree] { RunDu(tree.PathOf("tree")); };
    // In turn, so that what else the machine does falls on both.
    const auto measure = [&](const char* state, int runs, const std::function<bool()>& prepare) {
        std::vector<double> our, their;
        for (int run = 0; run < runs; ++run) {
            if (!prepare()) return;
            our.push_back(MillisecondsOf(ours));
            if (!prepare()) return;
            their.push_back(MillisecondsOf(theirs));
        }
        figures.Ratio(std::string(shape) + state, Median(our), Median(their), "ms", 1.3);
    };
    ours();
    measure(", warm", kRuns, [] { return true; });
    measure(", cold", kColdRuns, DropCaches);
}

int Run() {
    FakeConsole screen;
    settings = Settings();
    Figures figures("Selection");
    TagAMillion(figures);
    Compare(figures, "sizes beside du -s: 2,000 directories x 50", 2000, 50);
    Compare(figures, "sizes beside du -s: 1 directory x 100,000", 1, 100000);
    return figures.Failures() == 0 ? 0 : 1;
}

}  // namespace
}  // namespace zt::bench

int main() {
    return zt::bench::Run();
}
