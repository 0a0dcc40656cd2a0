// Both ends of the wire against each other through pipes: whatever the program draws, the display
// shows the same.
#include <sys/socket.h>

#include <csignal>
#include <ctime>
#include <random>

#include <gtest/gtest.h>

#include "console/wire/remote_console.h"
#include "tests/console/wire_display.h"

namespace zt {
namespace {

// A far end that has met its display.
class Session {
public:
    explicit Session(int columns = 80, int rows = 25) : display(columns, rows) {
        far = std::make_unique<RemoteConsole>(display.farInput, display.farOutput);
        EXPECT_EQ(far->Start(), RemoteStart::kStarted);
        EXPECT_TRUE(display.Settle(*far));
        display.TakeBytes();
    }

    // Both sides hold the same, in every respect that a program can ask for.
    void ExpectAgreement(const std::string& where) {
        ASSERT_TRUE(display.Settle(*far)) << where;
        int columns = 0, rows = 0, shownColumns = 0, shownRows = 0;
        far->GetSize(columns, rows);
        display.screen.GetSize(shownColumns, shownRows);
        ASSERT_EQ(columns, shownColumns) << where;
        ASSERT_EQ(rows, shownRows) << where;
        const std::unique_ptr<Cell[]> wanted(far->ReadCells(0, 0, columns, rows));
        const std::unique_ptr<Cell[]> shown(display.screen.ReadCells(0, 0, columns, rows));
        for (int i = 0; i < columns * rows; i++)
            ASSERT_EQ(wanted[static_cast<size_t>(i)], shown[static_cast<size_t>(i)])
                << where << ": column " << i % columns << ", row " << i / columns;
        int column = 0, row = 0, shownColumn = 0, shownRow = 0;
        far->GetCursor(column, row);
        display.screen.GetCursor(shownColumn, shownRow);
        EXPECT_EQ(column, shownColumn) << where;
        EXPECT_EQ(row, shownRow) << where;
        EXPECT_EQ(far->GetCursorSize(), display.screen.GetCursorSize()) << where;
        EXPECT_EQ(far->GetFillAttribute(), display.screen.GetFillAttribute()) << where;
        EXPECT_EQ(far->GetSelectableRect(), display.screen.GetSelectableRect()) << where;
    }

    PipedDisplay display;
    std::unique_ptr<RemoteConsole> far;
};

// Draws at random, as programs do and as they should not.
class RandomDrawing {
public:
    RandomDrawing(IConsole& console, unsigned seed) : console_(console), random_(seed) {}

    void Step() {
        int columns = 0, rows = 0;
        console_.GetSize(columns, rows);
        const int column = Below(columns + 6) - 3;
        const int row = Below(rows + 4) - 2;
        const int width = Below(4) == 0 ? Below(columns + 4) : Below(20);
        const int height = Below(3) == 0 ? Below(rows + 4) : Below(5);
        switch (Below(20)) {
            case 0:
            case 1:
            case 2:
                console_.WriteWide(column, row, Text(width).c_str(), Colour());
                break;
            case 3:
                console_.WriteBytes(column, row, "bytes \x82\x81 \x01\x7F", Colour());
                break;
            case 4:
            case 5: {
                std::vector<Cell> cells = Cells(width);
                cells.push_back({0, 0});
                console_.WriteCellString(column, row, cells.data());
                break;
            }
            case 6:
            case 7:
                console_.WriteCells(column, row, width, height, Cells(width * height + 1).data());
                break;
            case 8:
                console_.FillRect(column, row, width, height, Colour());
                break;
            case 9:
                console_.FillChar(column, row, width, OneCell());
                break;
            case 10:
            case 11:
                console_.SetAttributes(column, row, width, Colour());
                break;
            case 12:
            case 13:
                console_.ScrollUp(column, row, width + 20, height + 4, Below(4), Colour());
                break;
            case 14:
            case 15:
                console_.ScrollDown(column, row, width + 20, height + 4, Below(4), Colour());
                break;
            case 16:
                console_.WriteStream("teletype \xE2\x95\x91\ttext\r\n\nmore");
                break;
            case 17:
                console_.SetCursor(column, row);
                console_.SetCursorSize(Below(3) * 15);
                break;
            case 18:
                Rare();
                break;
            case 19:
                Freeze();
                break;
        }
    }
    void Thaw() {
        for (; frozen_ > 0; frozen_--)
            console_.EndUpdate();
    }
    bool mayResize = true;

private:
    int Below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(std::max(n, 1))); }
    Attribute Colour() { return static_cast<Attribute>(Below(4) * 0x21); }
    uint32_t Code() {
        static constexpr uint32_t kOdd[] = {0,      1,      31,     127,      130,       159,
                                            0xE9,   0x2551, 0xD800, 0x1F600,  0x1100E9,  0x110090,
                                            0xFFFD, 0x4E2D, 160,    0x110000, 0xFFFFFFFF};
        return Below(12) == 0 ? kOdd[Below(17)] : static_cast<uint32_t>(" ab"[Below(3)]);
    }
    Cell OneCell() { return {Code(), Colour()}; }
    std::vector<Cell> Cells(int n) {
        std::vector<Cell> cells;
        const Attribute attribute = Colour();
        const bool mixed = Below(2) == 0;
        for (int i = 0; i < n; i++)
            cells.push_back({Code(), mixed ? Colour() : attribute});
        return cells;
    }
    Westring Text(int n) {
        Westring text;
        const bool blank = Below(3) == 0;
        for (int i = 0; i < n; i++) {
            const uint32_t code = blank ? ' ' : Code();
            if (code != 0 && code != 0xFFFFFFFF) text += static_cast<wchar_t>(code);
        }
        return text;
    }
    void Freeze() {
        if (frozen_ < 3 && Below(2) == 0) {
            console_.BeginUpdate();
            frozen_++;
        } else if (frozen_ > 0) {
            console_.EndUpdate();
            frozen_--;
        }
    }
    void Rare() {
        int columns = 0, rows = 0;
        console_.GetSize(columns, rows);
        switch (Below(12)) {
            case 0:
                console_.Clear();
                break;
            case 1:
                console_.SetFillAttribute(Colour());
                break;
            case 2:
                console_.SetSelectableRect(Below(9), Below(9), Below(9), Below(9), Below(2) == 0);
                break;
            case 3:
                console_.ClearSelectableRect();
                break;
            case 4:
                console_.Invalidate(0, 0, columns, rows);
                break;
            case 5:
                console_.SetTitle(Text(10));
                break;
            case 6:
                if (mayResize && Below(4) == 0)
                    console_.Resize(columns + Below(7) - 3, rows + Below(5) - 2, nullptr, 0);
                break;
            default:
                break;
        }
    }

    IConsole& console_;
    std::mt19937 random_;
    int frozen_ = 0;
};

class WireSessionOfSize : public ::testing::TestWithParam<std::pair<int, int>> {};

TEST_P(WireSessionOfSize, ShowsWhatIsDrawn) {
    Session session(GetParam().first, GetParam().second);
    RandomDrawing drawing(*session.far, static_cast<unsigned>(GetParam().first));
    for (int round = 0; round < 40; round++) {
        for (int i = 0; i < 100; i++)
            drawing.Step();
        drawing.Thaw();
        ASSERT_NO_FATAL_FAILURE(session.ExpectAgreement("round " + std::to_string(round)));
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, WireSessionOfSize,
                         ::testing::Values(std::pair{1, 1}, std::pair{30, 8}, std::pair{80, 25},
                                           std::pair{200, 60}, std::pair{400, 200}),
                         [](const auto& size) {
                             return std::to_string(size.param.first) + "x" +
                                    std::to_string(size.param.second);
                         });

TEST(WireSession, ShowsEachStepAtOnce) {
    Session session(40, 12);
    RandomDrawing drawing(*session.far, 17);
    for (int i = 0; i < 1500; i++) {
        drawing.Step();
        drawing.Thaw();
        ASSERT_NO_FATAL_FAILURE(session.ExpectAgreement("step " + std::to_string(i)));
    }
}

TEST(WireSession, ShowsWhatSeveralThreadsDraw) {
    Session session;
    std::vector<std::thread> threads;
    for (unsigned seed = 1; seed <= 3; seed++) {
        threads.emplace_back([&session, seed] {
            RandomDrawing drawing(*session.far, seed);
            drawing.mayResize = false;
            for (int i = 0; i < 1000; i++)
                drawing.Step();
            drawing.Thaw();
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    ASSERT_NO_FATAL_FAILURE(session.ExpectAgreement("at the end"));
}

TEST(WireSession, MovesTheClipboardBothWays) {
    Session session;
    session.far->SetClipboardText(L"\u00E9\n\U0001F600");
    Westring text;
    ASSERT_TRUE(session.far->GetClipboardText(text));
    EXPECT_STREQ(text.c_str(), L"\u00E9\n\U0001F600");
    session.display.screen.clipboard = Westring::Repeat(L'\u2551', 100000);
    ASSERT_TRUE(session.far->GetClipboardText(text));
    EXPECT_EQ(text.Length(), 21845);  // what one payload holds
    session.display.screen.clipboardWorks = false;
    EXPECT_FALSE(session.far->GetClipboardText(text));
}

TEST(WireSession, BringsEventsInOrder) {
    Session session;
    for (int i = 0; i < 300; i++)
        ASSERT_TRUE(session.display.connection->SendEvent(TEvent{0, i + 1, i % 8, 0, 0, 0}));
    for (int i = 0; i < 300; i++) {
        TEvent event;
        ASSERT_TRUE(session.far->ReadEvent(event, 10000));
        EXPECT_EQ(event.code, i + 1);
        EXPECT_EQ(event.modifiers, i % 8);
    }
}

TEST(WireSession, QuitsWhenTheDisplayIsGone) {
    Session session;
    session.display.CloseAnswers();
    for (int i = 0; i < 3; i++) {
        TEvent event;
        ASSERT_TRUE(session.far->ReadEvent(event, -1));
        EXPECT_EQ(event.kind, static_cast<int32_t>(EventKind::kQuit));
    }
}

TEST(WireSession, DrawsWhileTheDisplayIsSlow) {
    Session session;
    session.display.paused = true;
    RandomDrawing drawing(*session.far, 3);
    for (int i = 0; i < 300; i++)
        drawing.Step();
    drawing.Thaw();
    session.display.paused = false;
    ASSERT_NO_FATAL_FAILURE(session.ExpectAgreement("afterwards"));
}

// Interrupts system calls of the thread that made it, every few microseconds.
class SignalStorm {
public:
    SignalStorm() {
        struct sigaction action {};
        action.sa_handler = [](int) { taken++; };  // without SA_RESTART
        sigaction(SIGUSR1, &action, &before_);
        sigevent where{};
        where.sigev_notify = SIGEV_THREAD_ID;
        where.sigev_signo = SIGUSR1;
        where._sigev_un._tid = gettid();
        EXPECT_EQ(timer_create(CLOCK_MONOTONIC, &where, &timer_), 0);
        const itimerspec often{{0, 20000}, {0, 20000}};
        timer_settime(timer_, 0, &often, nullptr);
    }
    ~SignalStorm() {
        timer_delete(timer_);
        sigaction(SIGUSR1, &before_, nullptr);
    }
    static inline std::atomic<int> taken{0};

private:
    struct sigaction before_;
    timer_t timer_;
};

// Signals that interrupt the writer, and a pipe that takes little at a time.
TEST(WireSession, LosesNothingToSignalsAndShortWrites) {
    for (const bool nonBlocking : {false, true}) {
        Session session(200, 60);
        fcntl(session.display.farOutput, F_SETPIPE_SZ, 4096);
        session.display.pieceBytes = 512;
        if (nonBlocking) fcntl(session.display.farOutput, F_SETFL, O_NONBLOCK);
        SignalStorm::taken = 0;
        std::thread drawer([&] {
            const SignalStorm storm;
            RandomDrawing drawing(*session.far, 8);
            for (int i = 0; i < 500 || (SignalStorm::taken < 500 && i < 100000); i++)
                drawing.Step();
            drawing.Thaw();
        });
        drawer.join();
        ASSERT_NO_FATAL_FAILURE(session.ExpectAgreement(nonBlocking ? "waiting" : "blocking"));
    }
}

// The same for the display's side: long replies through a small non-blocking socket.
TEST(WireSession, LosesNoReplyToSignalsAndShortWrites) {
    int ends[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends), 0);
    const int small = 1;  // the system makes it the least it has
    setsockopt(ends[1], SOL_SOCKET, SO_SNDBUF, &small, sizeof(small));
    fcntl(ends[0], F_SETFL, 0);
    FakeConsole screen;
    screen.clipboard = Westring::Repeat(L'c', 60000);
    RecordingSession around;
    constexpr int kReplies = 50;
    std::thread writer([&] {
        const SignalStorm storm;
        CRemoteConnection connection(screen, around, ends[1]);
        const std::string question = WireBytes::Request(21, 0);
        for (int i = 0; i < kReplies; i++)
            connection.Feed(question.data(), static_cast<int>(question.size()));
    });
    // The end of the connection ends what can be read.
    std::string all;
    char piece[200];
    for (ssize_t got = 0; (got = read(ends[0], piece, sizeof(piece))) > 0;)
        all.append(piece, static_cast<size_t>(got));
    writer.join();
    close(ends[0]);
    const std::string reply = WireBytes::Reply(2).Int(1).Uni(std::string(60000, 'c'));
    ASSERT_EQ(all.size(), reply.size() * kReplies);
    for (int i = 0; i < kReplies; i++)
        EXPECT_TRUE(all.compare(static_cast<size_t>(i) * reply.size(), reply.size(), reply) == 0);
}

// Two panels with names, sizes and times, as the program draws them.
void DrawPanels(IConsole& console, int firstFile) {
    const auto wide = [](const std::wstring& text) { return Westring(text.c_str()); };
    console.BeginUpdate();
    for (int panel = 0; panel < 2; panel++) {
        const int left = panel * 40;
        console.WriteWide(left, 0,
                          wide(L"\u2554" + std::wstring(38, L'\u2550') + L"\u2557").c_str(), 0x1B);
        console.WriteWide(left + 10, 0, L" /home/user/projects ", panel == 0 ? 0x30 : 0x1B);
        for (int row = 1; row < 22; row++) {
            const int file = firstFile + row + panel * 100;
            const bool isDirectory = row < 4;
            std::wstring name = isDirectory ? L"directory" + std::to_wstring(file)
                                            : L"document_" + std::to_wstring(file * 37) + L".txt";
            name.resize(18, L' ');
            std::wstring size = isDirectory ? L"<DIR>" : std::to_wstring(file * 7919);
            size.insert(0, 9 - size.size(), L' ');
            const std::wstring line =
                name + size + L" 12.03." + std::to_wstring(10 + file % 15) + L"  ";
            console.WriteWide(left, row, L"\u2551", 0x1B);
            console.WriteWide(left + 1, row, wide(line.substr(0, 38)).c_str(),
                              row == 6 && panel == 0 ? 0x30
                              : isDirectory          ? 0x1A
                                                     : 0x1B);
            console.WriteWide(left + 39, row, L"\u2551", 0x1B);
        }
        console.WriteWide(left, 22,
                          wide(L"\u255A" + std::wstring(38, L'\u2550') + L"\u255D").c_str(), 0x1B);
    }
    console.WriteWide(0, 23, L"/home/user/projects>", 0x07);
    for (int key = 0; key < 10; key++) {
        console.WriteWide(key * 8, 24, wide(std::to_wstring(key + 1)).c_str(), 0x07);
        console.WriteWide(key * 8 + 1, 24, L"Label ", 0x30);
    }
    console.EndUpdate();
}

// The numbers are for the log; the limits keep them from growing unseen.
TEST(WireSession, SendsFewBytes) {
    Session session;
    const auto sent = [&](const char* what) {
        EXPECT_TRUE(session.display.Settle(*session.far));
        // The mark that Settle sets is a request with one short string.
        const int markBytes = 6 + 4 + static_cast<int>(session.display.screen.title.size());
        const int bytes = session.display.TakeBytes() - markBytes;
        std::printf("%s: %d bytes\n", what, bytes);
        return bytes;
    };
    DrawPanels(*session.far, 1);
    EXPECT_LT(sent("first screen of 80x25"), 4200);
    DrawPanels(*session.far, 200);
    EXPECT_LT(sent("other files in both panels"), 2600);
    session.far->WriteWide(5, 5, L"x", 0x1B);
    EXPECT_EQ(sent("one cell"), 29);
    session.far->SetAttributes(1, 6, 38, 0x1B);
    EXPECT_EQ(sent("bar taken from a row"), 35);
    session.far->ScrollUp(1, 4, 38, 18, 1, 0x1B);
    EXPECT_EQ(sent("38x18 scrolled by one line"), 51);
    ASSERT_NO_FATAL_FAILURE(session.ExpectAgreement("at the end"));
}

}  // namespace
}  // namespace zt
