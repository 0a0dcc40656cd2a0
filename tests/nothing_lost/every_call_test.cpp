// Every file call that the work makes fails once, in every way that it may: whatever fails, each
// file is whole where it was or whole where it goes, and what is not done stays tagged.
//
// ZT_TEST_THOROUGH=1 meets each failure with each policy for boxes; otherwise they take turns.
// Where everything is slow (ZT_TEST_SLOWNESS) the calls take turns too.
#include <cerrno>

#include "tests/nothing_lost/work_case.h"

namespace zt::headless {
namespace {

using faults::Call;
using faults::Fault;

constexpr uint32_t kData = BitOf(Call::kRead) | BitOf(Call::kWrite) | BitOf(Call::kCopyRange);

struct FaultKind {
    const char* name;
    Fault fault;
    int error;
    uint32_t calls;
    bool lasting;
    bool leavesTemporaries;  // what is half written cannot be removed any more
};

void PrintTo(const FaultKind& kind, std::ostream* out) {
    *out << kind.name;
}

constexpr FaultKind kFaultKinds[] = {
    {"IoError", Fault::kError, EIO, faults::kAllCalls, false, false},
    {"NoSpace", Fault::kError, ENOSPC, faults::kAllCalls, false, false},
    {"NoAccess", Fault::kError, EACCES, faults::kAllCalls, false, false},
    {"Interrupted", Fault::kError, EINTR, faults::kAllCalls, false, false},
    {"HalfOfIt", Fault::kShort, 0, kData, false, false},
    {"FullFromThere", Fault::kError, ENOSPC, BitOf(Call::kWrite) | BitOf(Call::kCopyRange), true,
     false},
    {"UnreadableFromThere", Fault::kError, EIO, BitOf(Call::kRead) | BitOf(Call::kCopyRange), true,
     false},
    {"DeadFromThere", Fault::kError, EIO, faults::kAllCalls, true, true},
};

constexpr BoxPolicy kPolicies[] = {BoxPolicy::kSkip, BoxPolicy::kCancel, BoxPolicy::kRetryOnce};
constexpr const char* kPolicyNames[] = {"skip", "cancel", "retry once"};
constexpr int kMostFailures = 4;
constexpr uint32_t kMostCalls = 3000;

bool IsThorough() {
    const char* asked = getenv("ZT_TEST_THOROUGH");
    return asked && *asked && *asked != '0';
}

// Of so many calls one is made to fail.
uint32_t Stride() {
    return static_cast<uint32_t>(WaitLimit() / std::chrono::seconds(10));
}

using Parameters = std::tuple<WorkCase, FaultKind>;

class EveryCall : public testing::TestWithParam<Parameters> {
protected:
    const WorkCase& Case() const { return std::get<0>(GetParam()); }
    const FaultKind& Kind() const { return std::get<1>(GetParam()); }

    // One round on fresh trees.
    WorkReport Round(FileWork& session, const FaultOrder& order, BoxPolicy policy) {
        BuildTrees(place, Case());
        before = TakeSnapshot(place.tree.Path());
        const std::string key = Prepare(session, Case());
        WorkReport report = session.Run(key, order, policy);
        after = TakeSnapshot(place.tree.Path());
        return report;
    }

    // True when the fault was made.
    bool RoundWithFault(FileWork& session, uint32_t number, size_t policy) {
        FaultOrder order;
        order.fault = Kind().fault;
        order.error = Kind().error;
        order.calls = Kind().calls;
        order.lasting = Kind().lasting;
        order.first = number;
        const WorkReport report = Round(session, order, kPolicies[policy]);
        if (report.hits == 0) return false;
        Look(session, report, number, policy);
        if (!report.finished || !report.panelStands) session.StartAgain();
        return true;
    }

    void Look(FileWork& session, const WorkReport& report, uint32_t number, size_t policy) {
        const Call call = session.Faults().CallAt(number);
        const bool panelItself = report.hit.ends_with(place.From());
        Leniency leniency;
        leniency.rightsAndTimes = call == Call::kMode || call == Call::kTime;
        leniency.temporaryFiles = Kind().leavesTemporaries;
        leniency.tags = !report.panelStands || panelItself;
        std::string wrong = Complaints(Case(), before, after, report, leniency);
        if (!report.finished) wrong += "the panels did not come back\n";
        if (wrong.empty()) return;
        failures++;
        std::string boxes;
        for (const std::string& box : report.boxes)
            boxes += box;
        ADD_FAILURE() << "call " << number << " (" << report.hit << "), " << kPolicyNames[policy]
                      << "\n"
                      << wrong << Differences(before, after) << "calls:\n"
                      << session.Faults().History() << "boxes:\n"
                      << boxes;
    }

    WorkPlace place{Case().place};
    TreeSnapshot before, after;
    int failures = 0;
};

TEST_P(EveryCall, LosesNothing) {
    FileWork session(place, SettingsOf(Case()));
    FaultOrder counting;
    counting.calls = Kind().calls;
    const WorkReport clean = Round(session, counting, BoxPolicy::kSkip);
    ASSERT_EQ("", Complaints(Case(), before, after, clean, {}) +
                      ComplaintsAboutSuccess(Case(), before, after, clean))
        << session.Faults().History() << session.Screen().Text();
    uint32_t number = 1;
    for (; number < kMostCalls && failures < kMostFailures; number += Stride()) {
        bool hit = false;
        const size_t policies = IsThorough() ? std::size(kPolicies) : 1;
        for (size_t i = 0; i < policies; i++)
            hit = RoundWithFault(session, number, (number + i) % std::size(kPolicies)) || hit;
        // Where a box comes up without any fault, Esc ends the work before that call.
        if (!hit && number > clean.seen) break;
    }
    EXPECT_LT(number, kMostCalls) << "there is no end";
}

std::string NameOf(const testing::TestParamInfo<Parameters>& tested) {
    return std::string(std::get<0>(tested.param).name) + std::get<1>(tested.param).name;
}

INSTANTIATE_TEST_SUITE_P(All, EveryCall,
                         testing::Combine(testing::ValuesIn(kWorkCases),
                                          testing::ValuesIn(kFaultKinds)),
                         NameOf);

}  // namespace
}  // namespace zt::headless
