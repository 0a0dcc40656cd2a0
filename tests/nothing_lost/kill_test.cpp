// The program is killed in the middle of a move across file systems: at no moment is a file nowhere
// whole. What it was just writing may be left behind under its temporary name.
#include <csignal>
#include <random>

#include "tests/nothing_lost/work_case.h"

namespace zt::headless {
namespace {

using faults::Fault;

constexpr auto kTwo = WorkPlace::Kind::kTwoFileSystems;
constexpr WorkCase kCases[] = {
    {"MoveAcross", Work::kMove, kTwo, Existing::kNothing},
    {"MoveAcrossMerging", Work::kMove, kTwo, Existing::kAlways},
};
constexpr Leniency kAfterAKill{.rightsAndTimes = false, .temporaryFiles = true, .tags = true};

class Killed : public testing::Test {
protected:
    explicit Killed() : place(kTwo) {}

    void Begin(const WorkCase& work) {
        BuildTrees(place, work);
        before = TakeSnapshot(place.tree.Path());
        SessionOptions options;
        options.directory = place.From();
        options.arguments = {"-r", place.To()};
        options.environment = control.Environment();
        options.strict = false;
        session = std::make_unique<Session>(options);
        session->Send(Keys({"Home", "Ins", "Ins", "Ins", "Ins", "Ins", "F6"}));
        ASSERT_TRUE(session->WaitForQuiet());
        if (work.existing == Existing::kAlways) session->Press("Alt-a");
    }

    // True when nothing is missing.
    bool Look(const WorkCase& work, const std::string& when) {
        EXPECT_TRUE(session->WaitForEnd());
        session.reset();
        const TreeSnapshot after = TakeSnapshot(place.tree.Path());
        const std::string wrong = Complaints(work, before, after, {}, kAfterAKill);
        EXPECT_EQ("", wrong) << when << "\n" << Differences(before, after) << control.History();
        return wrong.empty();
    }

    // How many calls the whole move makes.
    uint32_t CallsOf(const WorkCase& work) {
        Begin(work);
        FaultOrder order;
        order.untilListed = place.From();
        control.Arm(order);
        session->Press("Enter");
        const uint32_t calls = control.Seen();
        EXPECT_TRUE(session->AtPrompt()) << session->Text();
        kill(session->ProcessId(), SIGKILL);
        EXPECT_TRUE(Look(work, "at the end"));
        return calls;
    }

    WorkPlace place;
    FaultControl control{place.tree.Path(), place.Apart()};
    TreeSnapshot before;
    std::unique_ptr<Session> session;
};

TEST_F(Killed, BeforeEachCallLosesNothing) {
    const WorkCase& work = kCases[1];
    const uint32_t calls = CallsOf(work);
    ASSERT_GT(calls, 30u);
    FaultOrder order;
    order.fault = Fault::kKill;
    for (order.first = 1; order.first <= calls; order.first++) {
        Begin(work);
        control.Arm(order);
        session->Send(KeyPress("Enter"));
        ASSERT_TRUE(session->WaitForEnd());
        if (!Look(work, "before call " + std::to_string(order.first))) break;
        EXPECT_EQ(1u, control.Hits());
    }
}

// Not a sleep: the moment is to be met within microseconds.
void SpinUntil(const std::function<bool()>& condition, std::chrono::microseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition() && std::chrono::steady_clock::now() < end) {
    }
}

// A hundred moments each, so that several processors share the five hundred.
class KilledAtRandom : public Killed, public testing::WithParamInterface<uint32_t> {};

TEST_P(KilledAtRandom, LosesNothing) {
    constexpr int kMoments = 100;
    constexpr int kLongestSpinMicroseconds = 50;
    std::mt19937 random(GetParam());
    const WorkCase& work = kCases[GetParam() % std::size(kCases)];
    const uint32_t calls = CallsOf(work);
    int early = 0;
    for (int i = 0; i < kMoments; i++) {
        Begin(work);
        const uint32_t target = std::uniform_int_distribution<uint32_t>(0, calls)(random);
        const int spin = std::uniform_int_distribution<int>(0, kLongestSpinMicroseconds)(random);
        control.Arm({});
        session->Send(KeyPress("Enter"));
        SpinUntil([&] { return control.Seen() >= target; }, WaitLimit());
        SpinUntil([] { return false; }, std::chrono::microseconds(spin));
        kill(session->ProcessId(), SIGKILL);
        ASSERT_TRUE(session->WaitForEnd());
        EXPECT_EQ(-SIGKILL, session->ExitStatus());
        early += control.Seen() < calls;
        if (!Look(work, "call " + std::to_string(control.Seen()))) break;
    }
    EXPECT_GT(early, kMoments / 4) << "the kills come too late to tell anything";
}

INSTANTIATE_TEST_SUITE_P(Moments, KilledAtRandom, testing::Range(1u, 6u));

}  // namespace
}  // namespace zt::headless
