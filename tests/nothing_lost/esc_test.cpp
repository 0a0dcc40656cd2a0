// The user breaks off before each call in turn: what is not done is as it was.
#include "tests/nothing_lost/work_case.h"

namespace zt::headless {
namespace {

using faults::Fault;

class EscAtEachCall : public testing::TestWithParam<WorkCase> {
protected:
    // False when the work has no such call.
    bool Round(FileWork& session, uint32_t number) {
        BuildTrees(place, GetParam());
        const TreeSnapshot before = TakeSnapshot(place.tree.Path());
        const std::string key = Prepare(session, GetParam());
        FaultOrder order;
        order.fault = Fault::kPause;
        order.first = number;
        order.untilListed = place.From();
        if (!session.RunToPause(key, order)) return false;
        session.Screen().Send(KeyPress("Esc"));
        session.GoOn();
        WorkReport report;
        EXPECT_TRUE(session.AnswerBoxes(BoxPolicy::kCancel, &report.boxes));
        session.Faults().Disarm();
        report.tagged = session.Tagged();
        const TreeSnapshot after = TakeSnapshot(place.tree.Path());
        // An Esc that comes too late for the work is the panels'.
        const Leniency leniency{
            .rightsAndTimes = false, .temporaryFiles = false, .tags = report.tagged.empty()};
        const std::string wrong = Complaints(GetParam(), before, after, report, leniency);
        EXPECT_EQ("", wrong) << "before call " << number << "\n"
                             << Differences(before, after) << session.Faults().History()
                             << session.Screen().Text();
        stopped += !report.tagged.empty();
        session.StartAgain();
        return true;
    }

    WorkPlace place{GetParam().place};
    int stopped = 0;
};

TEST_P(EscAtEachCall, LeavesTheRestAsItWas) {
    constexpr uint32_t kMostCalls = 2000;
    FileWork session(place, SettingsOf(GetParam()));
    const auto stride = static_cast<uint32_t>(WaitLimit() / std::chrono::seconds(10));
    uint32_t number = 1;
    for (; number < kMostCalls && !HasFailure(); number += stride) {
        if (!Round(session, number)) break;
    }
    EXPECT_GT(number, 10u);
    EXPECT_GT(stopped, 0) << "no Esc came in time";
}

std::string NameOf(const testing::TestParamInfo<WorkCase>& tested) {
    return tested.param.name;
}

std::vector<WorkCase> LongCases() {
    std::vector<WorkCase> out;
    for (const WorkCase& work : kWorkCases) {
        const std::string_view name = work.name;
        if (name == "CopyOver" || name == "MoveAcrossMerging" || name == "Delete") {
            out.push_back(work);
        }
    }
    return out;
}

INSTANTIATE_TEST_SUITE_P(In, EscAtEachCall, testing::ValuesIn(LongCases()), NameOf);

}  // namespace
}  // namespace zt::headless
