// Running work on files under faults.
#include "tests/support/file_work.h"

#include "tests/support/panel_view.h"

namespace zt::headless {

namespace {

constexpr int kMostBoxes = 60;
constexpr std::string_view kTreeQuestion = "Delete tree?";
constexpr std::string_view kLinkArrow = " \u00BB ";  // between a link and what it points to

bool Has(const std::string& text, std::string_view piece) {
    return text.find(piece) != std::string::npos;
}

// The question with the field is the one that shows the cursor as the command line does.
bool IsAtRest(const Session& session) {
    return session.AtPrompt() && !Has(session.Text(), kTreeQuestion);
}

// A question with buttons.
bool HasBox(const Session& session) {
    const std::string screen = session.Text();
    return Has(screen, "[ ") || Has(screen, kTreeQuestion);
}

// The key that answers the box on the screen.
std::string_view AnswerTo(const std::string& screen, BoxPolicy policy, int boxesBefore) {
    if (policy == BoxPolicy::kCancel || Has(screen, kTreeQuestion)) return "Esc";
    const bool mayRetry = Has(screen, "Retry");
    if (policy == BoxPolicy::kRetryOnce && boxesBefore == 0 && mayRetry) return "Alt-r";
    if (Has(screen, "Skip")) return "Alt-s";
    return boxesBefore > kMostBoxes / 2 ? "Esc" : "Enter";
}

}  // namespace

std::vector<WireEvent> Keys(std::initializer_list<std::string_view> names) {
    std::vector<WireEvent> all;
    for (std::string_view name : names) {
        const std::vector<WireEvent> press = KeyPress(name);
        all.insert(all.end(), press.begin(), press.end());
    }
    return all;
}

WorkPlace::WorkPlace(Kind kind, uint64_t bytes) {
    if (kind == Kind::kOneFileSystem) {
        systems.push_back(std::make_unique<SmallFileSystem>(tree.Path(), bytes));
    }
    tree.Folder("from").Folder("to");
    if (kind == Kind::kTwoFileSystems) {
        systems.push_back(std::make_unique<SmallFileSystem>(From(), bytes));
        systems.push_back(std::make_unique<SmallFileSystem>(To(), bytes));
        isSimulated = !IsMounted();
    }
}

void WorkPlace::Clear() {
    for (const std::string& folder : {std::string("from"), std::string("to")}) {
        for (const std::string& name : tree.Names(folder))
            tree.Remove(folder + "/" + name);
    }
}

FileWork::FileWork(WorkPlace& where, const std::string& settings) : place(where) {
    home.File(".ztx/zt.ini", "[General Options]\nHidden=on\n" + settings);
    faults = std::make_unique<FaultControl>(place.tree.Path(), place.Apart());
    StartAgain();
}

FileWork::~FileWork() {
    faults->Disarm();
}

void FileWork::StartAgain() {
    faults->Disarm();
    session.reset();
    SessionOptions options;
    options.home = home.Path();
    options.directory = place.From();
    options.arguments = {"-r", place.To()};
    options.environment = faults->Environment();
    session = std::make_unique<Session>(options);
    EXPECT_TRUE(faults->IsLoaded()) << session->StandardError();
}

void FileWork::Settle(const std::vector<WireEvent>& events) {
    session->Send(events);
    ASSERT_TRUE(session->WaitForQuiet());
}

void FileWork::TagAll(size_t count) {
    std::vector<WireEvent> events = Keys({"Ctrl-r", "Ctrl-Grey-", "Home", "Ins"});
    for (size_t i = 0; i < count; i++) {
        const std::vector<WireEvent> press = KeyPress("Ins");
        events.insert(events.end(), press.begin(), press.end());
    }
    Settle(events);
}

void FileWork::GoTo(size_t number) {
    std::vector<WireEvent> events = Keys({"Ctrl-r", "Ctrl-Grey-", "Home"});
    for (size_t i = 0; i < number; i++) {
        const std::vector<WireEvent> press = KeyPress("Down");
        events.insert(events.end(), press.begin(), press.end());
    }
    Settle(events);
}

bool FileWork::AnswerBoxes(BoxPolicy policy, std::vector<std::string>* boxes) {
    for (int i = 0; i < kMostBoxes; i++) {
        // The program also sleeps where it waits for another program's lock.
        const auto ready = [this] {
            return IsAtRest(*session) || HasBox(*session) || session->HasEnded();
        };
        EXPECT_TRUE(session->WaitFor(ready, "a box or the panels"));
        if (IsAtRest(*session) || session->HasEnded()) break;
        const std::string screen = session->Text();
        if (boxes && (boxes->empty() || boxes->back() != screen)) boxes->push_back(screen);
        Settle(KeyPress(AnswerTo(screen, policy, i)));
    }
    return IsAtRest(*session);
}

WorkReport FileWork::Run(const std::string& trigger, const FaultOrder& order, BoxPolicy policy) {
    WorkReport report;
    FaultOrder whole = order;
    whole.untilListed = place.From();
    faults->Arm(whole);
    Settle(KeyPress(trigger));
    report.finished = AnswerBoxes(policy, &report.boxes);
    faults->Disarm();
    report.seen = faults->Seen();
    report.hits = faults->Hits();
    if (report.hits > 0) report.hit = faults->NameOf(order.first);
    report.tagged = Tagged();
    report.panelStands = PanelView(*session, 0).Title() == place.From() &&
                         PanelView(*session, 1).Title() == place.To();
    return report;
}

bool FileWork::RunToPause(const std::string& trigger, const FaultOrder& order) {
    faults->Arm(order);
    Settle(KeyPress(trigger));
    return faults->Pausing() != 0;
}

void FileWork::GoOn() {
    faults->GoOn();
    ASSERT_TRUE(session->WaitFor([this] { return faults->Pausing() == 0; }, "the call to go on"));
    ASSERT_TRUE(session->WaitForQuiet());
}

std::set<std::string> FileWork::Tagged() const {
    const PanelView panel(*session, 0);
    std::set<std::string> out;
    for (const std::string& name : panel.Names()) {
        const uint8_t attribute = panel.AttributeOf(name);
        const bool tagged = attribute == kTagged || attribute == kHighlightTagged;
        if (tagged) out.insert(name.substr(0, name.find(kLinkArrow)));
    }
    return out;
}

}  // namespace zt::headless
