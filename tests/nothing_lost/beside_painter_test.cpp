// Copies with their painter at work: what the thread sanitizer looks at.
#include "tests/nothing_lost/two_folders.h"

namespace zt::headless {
namespace {

using faults::Call;
using faults::Fault;

class BesideThePainter : public TwoFileSystems {
protected:
    BesideThePainter() : TwoFileSystems(128u << 20) {}
};

// The work stands before one of its reads, so that the painter has its time; then it goes on, at
// full speed and with the painter beside it.
TEST_F(BesideThePainter, CopiesAndMovesArriveWhole) {
    const std::string large(20u << 20, 'L');
    tree.File("from/large", large);
    for (int i = 0; i < 300; i++)
        tree.File("from/dir/f" + std::to_string(i), std::string(5000, 'f'));
    const TreeSnapshot files = TakeSnapshot(place.From());
    Open();
    for (const char* key : {"F5", "F6"}) {
        Begin(key, 2);
        Screen().Press("Alt-a");
        FaultOrder order;
        order.fault = Fault::kPause;
        order.calls = BitOf(Call::kRead) | BitOf(Call::kCopyRange);
        order.ending = "/from/large";
        order.first = 100;
        order.untilListed = place.From();
        ASSERT_TRUE(work->RunToPause("Enter", order)) << Screen().Text();
        EXPECT_TRUE(Screen().WaitForText("BPS:"));
        EXPECT_TRUE(Screen().WaitForText("\u2588"));
        work->GoOn();
        EXPECT_TRUE(work->AnswerBoxes(BoxPolicy::kSkip));
        ExpectTidyEnd();
        const TreeSnapshot arrived = TakeSnapshot(place.To());
        EXPECT_EQ(files.size(), arrived.size());
        for (const auto& [path, state] : files) {
            const auto found = arrived.find(path);
            if (found == arrived.end()) {
                ADD_FAILURE() << path;
            } else {
                EXPECT_TRUE(found->second.HoldsSameAs(state)) << path;
            }
        }
    }
    EXPECT_THAT(tree.Names("from"), testing::ElementsAre());
}

}  // namespace
}  // namespace zt::headless
