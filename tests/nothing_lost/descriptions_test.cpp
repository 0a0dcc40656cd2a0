// Each file call fails once while described files are copied, moved and deleted: every line of a
// description file stays in a description file as long as its file is there.
#include <algorithm>
#include <cerrno>
#include <set>

#include "tests/nothing_lost/two_folders.h"

namespace zt::headless {
namespace {

using faults::Fault;
using Kind = WorkPlace::Kind;

struct Way {
    const char* name;
    const char* key;
    Kind place;
    int error;
};

void PrintTo(const Way& way, std::ostream* out) {
    *out << way.name;
}

constexpr Way kWays[] = {
    {"CopyNoSpace", "F5", Kind::kOneFileSystem, ENOSPC},
    {"MoveNoSpace", "F6", Kind::kOneFileSystem, ENOSPC},
    {"MoveAcrossNoSpace", "F6", Kind::kTwoFileSystems, ENOSPC},
    {"MoveAcrossIoError", "F6", Kind::kTwoFileSystems, EIO},
    {"DeleteIoError", "F8", Kind::kOneFileSystem, EIO},
};

class Descriptions : public testing::TestWithParam<Way> {
protected:
    void Build() {
        place.Clear();
        place.tree.File("from/a", "a").File("from/b c", "bc").File("from/dir/x", "x");
        place.tree.File("from/descript.ion", "a about a\r\n\"b c\" about b c\nstays stays\n");
        place.tree.File("from/dir/descript.ion", "x about x\n");
        place.tree.File("from/stays", "stays");
        place.tree.File("to/keep", "keep").File("to/descript.ion", "keep about keep\r\n");
    }

    std::set<std::string> LinesIn(const std::string& name) {
        std::set<std::string> lines;
        if (!place.tree.Exists(name)) return lines;
        const std::string text = place.tree.Content(name);
        for (size_t start = 0; start < text.size();) {
            const size_t end = std::min(text.find('\n', start), text.size() - 1);
            lines.insert(text.substr(start, end + 1 - start));
            start = end + 1;
        }
        return lines;
    }

    // What is wrong with the line of one file.
    std::string LineComplaint(const std::string& folder, const std::string& file,
                              const std::string& line) {
        const bool here = LinesIn("from/" + folder + "descript.ion").contains(line);
        const bool there = LinesIn("to/" + folder + "descript.ion").contains(line);
        const bool moves = std::string_view(GetParam().key) == "F6";
        if (place.tree.Exists("from/" + folder + file) && !here && !(moves && there)) {
            return "the source has lost: " + line;
        }
        return {};
    }

    std::string Complaint() {
        std::string all = LineComplaint("", "a", "a about a\r\n") +
                          LineComplaint("", "b c", "\"b c\" about b c\n") +
                          LineComplaint("dir/", "x", "x about x\n");
        if (!LinesIn("from/descript.ion").contains("stays stays\n")) all += "lost: stays\n";
        if (!LinesIn("to/descript.ion").contains("keep about keep\r\n")) all += "lost: keep\n";
        for (const auto& [path, state] : TakeSnapshot(place.tree.Path())) {
            if (path.find(".zt@@@") != std::string::npos) all += "left over: " + path + "\n";
        }
        return all;
    }

    WorkReport Round(FileWork& work, const FaultOrder& order) {
        Build();
        work.TagAll(0);
        for (const char* name : {"Ins", "Ins", "Ins"})
            work.Screen().Press(name);  // dir, a, b c
        std::string trigger = GetParam().key;
        if (trigger != "F8") {
            work.Screen().Press(trigger);
            trigger = "Enter";
        }
        return work.Run(trigger, order, BoxPolicy::kSkip);
    }

    WorkPlace place{GetParam().place};
};

TEST_P(Descriptions, SurviveEachFailure) {
    FileWork work(place, "Confirmations=3\n");
    const WorkReport clean = Round(work, {});
    ASSERT_EQ("", Complaint()) << work.Screen().Text();
    const bool deletes = std::string_view(GetParam().key) == "F8";
    if (!deletes) {
        EXPECT_TRUE(LinesIn("to/descript.ion").contains("a about a\r\n"));
        EXPECT_TRUE(LinesIn("to/descript.ion").contains("\"b c\" about b c\n"));
        EXPECT_TRUE(LinesIn("to/dir/descript.ion").contains("x about x\n"));
    }
    FaultOrder order;
    order.fault = Fault::kError;
    order.error = GetParam().error;
    const auto stride = static_cast<uint32_t>(WaitLimit() / std::chrono::seconds(10));
    for (order.first = 1; order.first <= clean.seen && !HasFailure(); order.first += stride) {
        const WorkReport report = Round(work, order);
        EXPECT_EQ("", Complaint())
            << "call " << order.first << " " << report.hit << "\n"
            << work.Faults().History() << Differences({}, TakeSnapshot(place.tree.Path()));
        if (!report.finished || !report.panelStands) work.StartAgain();
    }
    EXPECT_GT(order.first, 15u);
}

std::string NameOf(const testing::TestParamInfo<Way>& tested) {
    return tested.param.name;
}

INSTANTIATE_TEST_SUITE_P(In, Descriptions, testing::ValuesIn(kWays), NameOf);

}  // namespace
}  // namespace zt::headless
