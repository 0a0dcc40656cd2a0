// A display that can do less: without the RENDER extension the same picture comes as images.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include "console/window/window_console.h"
#include "wait_for.h"
#include "x_client.h"
#include "x_server.h"

namespace zt::testing {

namespace {

constexpr int kAllSeen = 42;

// What is looked for, a line on standard error for what is missing.
class PlainDisplay {
public:
    int Look() {
        XServer server("RENDER");
        setenv("DISPLAY", server.Display().c_str(), 1);
        int argc = 0;
        char* nothing[] = {nullptr};
        char** argv = nothing;
        const auto window = OpenWindowConsole(argc, argv);
        XClient user;
        if (window == nullptr || !WaitFor([&] { return user.FindWindow(); })) return 1;
        GridConsole& console = window->Console();
        console.FillRect(0, 0, 80, 25, 0x1F);
        console.WriteWide(0, 0, L"\u2588H\u4e2dH", 0x1F);
        console.ScrollUp(0, 20, 80, 5, 2, 0x20);
        window->WaitPainted();
        picture = user.Grab();
        if (picture.width == 0) return 1;
        cellWidth = picture.width / 80;
        cellHeight = picture.height / 25;
        Expect(0, 0, kWhite, true);
        Expect(0, 0, kBlue, false);
        Expect(1, 0, kWhite, true);
        Expect(1, 0, kBlue, true);
        Expect(79, 10, kBlue, true);
        Expect(79, 10, kWhite, false);
        Expect(40, 24, Rgb{0, 0x7F, 0}, true);
        // The second H is not shifted by the wide character before it.
        for (int y = 0; y < cellHeight; y++) {
            for (int x = 0; x < cellWidth; x++) {
                if (picture.At(cellWidth + x, y) == picture.At(3 * cellWidth + x, y)) continue;
                std::fprintf(stderr, "the letters differ at %d, %d\n", x, y);
                return 1;
            }
        }
        return missing == 0 ? kAllSeen : 1;
    }

private:
    static constexpr Rgb kWhite{0xFF, 0xFF, 0xFF};
    static constexpr Rgb kBlue{0, 0, 0x7F};

    void Expect(int column, int row, Rgb colour, bool expected) {
        bool seen = false;
        for (int y = row * cellHeight; y < (row + 1) * cellHeight; y++) {
            for (int x = column * cellWidth; x < (column + 1) * cellWidth; x++) {
                seen |= picture.At(x, y) == colour;
            }
        }
        if (seen == expected) return;
        std::fprintf(stderr, "cell %d, %d: colour %d %d %d is %s\n", column, row, colour.red,
                     colour.green, colour.blue, seen ? "there" : "missing");
        missing++;
    }

    Picture picture;
    int cellWidth = 0;
    int cellHeight = 0;
    int missing = 0;
};

}  // namespace

TEST(PlainDisplay, GetsTheSamePictureAsImages) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(_exit(PlainDisplay().Look()), ::testing::ExitedWithCode(kAllSeen), "");
}

}  // namespace zt::testing
