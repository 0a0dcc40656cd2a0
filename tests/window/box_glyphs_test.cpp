// Box and block characters: they reach the edges of their cell where they must, and only there.
#include "console/window/box_glyphs.h"

#include <gtest/gtest.h>

#include <vector>

namespace zt {

namespace {

struct Drawn {
    int width;
    int height;
    std::vector<unsigned char> pixels;
    bool isDrawn;

    int At(int x, int y) const { return pixels[static_cast<size_t>(y * width + x)]; }
};

Drawn Draw(uint32_t character, int width, int height) {
    Drawn drawn{width, height, std::vector<unsigned char>(static_cast<size_t>(width * height)),
                false};
    drawn.isDrawn = DrawBoxGlyph(character, CellMask{drawn.pixels.data(), width, height, width});
    return drawn;
}

// Which of the four edges have ink: left, up, right, down.
std::string EdgesOf(const Drawn& drawn) {
    std::string edges = "....";
    for (int y = 0; y < drawn.height; y++) {
        if (drawn.At(0, y)) edges[0] = 'L';
        if (drawn.At(drawn.width - 1, y)) edges[2] = 'R';
    }
    for (int x = 0; x < drawn.width; x++) {
        if (drawn.At(x, 0)) edges[1] = 'U';
        if (drawn.At(x, drawn.height - 1)) edges[3] = 'D';
    }
    return edges;
}

// The pixels of two neighbours meet: what one has at the common edge, the other has too.
std::vector<int> RightEdge(const Drawn& drawn) {
    std::vector<int> edge;
    for (int y = 0; y < drawn.height; y++)
        edge.push_back(drawn.At(drawn.width - 1, y));
    return edge;
}

std::vector<int> LeftEdge(const Drawn& drawn) {
    std::vector<int> edge;
    for (int y = 0; y < drawn.height; y++)
        edge.push_back(drawn.At(0, y));
    return edge;
}

}  // namespace

TEST(BoxGlyphs, ReachTheEdgesTheyAreNamedFor) {
    struct Row {
        uint32_t character;
        const char* edges;
    };
    const Row kRows[] = {
        {0x2500, "L.R."}, {0x2502, ".U.D"}, {0x250C, "..RD"}, {0x2510, "L..D"}, {0x2514, ".UR."},
        {0x2518, "LU.."}, {0x251C, ".URD"}, {0x2524, "LU.D"}, {0x252C, "L.RD"}, {0x2534, "LUR."},
        {0x253C, "LURD"}, {0x2550, "L.R."}, {0x2551, ".U.D"}, {0x2554, "..RD"}, {0x2557, "L..D"},
        {0x255A, ".UR."}, {0x255D, "LU.."}, {0x2560, ".URD"}, {0x2563, "LU.D"}, {0x2566, "L.RD"},
        {0x2569, "LUR."}, {0x256C, "LURD"}, {0x255F, ".URD"}, {0x2562, "LU.D"}, {0x2564, "L.RD"},
        {0x2574, "L..."}, {0x2577, "...D"},
    };
    for (const auto& [width, height] : {std::pair{10, 20}, {7, 13}, {5, 9}, {24, 47}}) {
        for (const Row& row : kRows) {
            const Drawn drawn = Draw(row.character, width, height);
            EXPECT_TRUE(drawn.isDrawn);
            EXPECT_EQ(EdgesOf(drawn), row.edges)
                << std::hex << row.character << std::dec << " in " << width << "x" << height;
        }
    }
}

TEST(BoxGlyphs, JoinTheirNeighbours) {
    const std::pair<uint32_t, uint32_t> kNeighbours[] = {
        {0x2500, 0x2510}, {0x250C, 0x2500}, {0x2550, 0x2557}, {0x2554, 0x2550},
        {0x2560, 0x2550}, {0x255F, 0x2500}, {0x2500, 0x2562}, {0x2588, 0x258C},
    };
    for (const auto& [left, right] : kNeighbours) {
        EXPECT_EQ(RightEdge(Draw(left, 9, 18)), LeftEdge(Draw(right, 9, 18))) << std::hex << left;
    }
}

TEST(BoxGlyphs, FillTheirShareOfTheCell) {
    struct Row {
        uint32_t character;
        int percent;
    };
    const Row kRows[] = {{0x2588, 100}, {0x2580, 50}, {0x2584, 50}, {0x258C, 50},
                         {0x2590, 50},  {0x2591, 25}, {0x2592, 50}, {0x2593, 75},
                         {0x2596, 25},  {0x259F, 75}, {0x259A, 50}, {0x2599, 75}};
    for (const Row& row : kRows) {
        const Drawn drawn = Draw(row.character, 8, 16);
        int sum = 0;
        for (const unsigned char pixel : drawn.pixels)
            sum += pixel;
        EXPECT_NEAR(sum * 100.0 / (8 * 16 * 255), row.percent, 1) << std::hex << row.character;
    }
}

TEST(BoxGlyphs, LeaveTheOthersToTheFont) {
    for (const uint32_t character : {0x41u, 0x24FFu, 0x2504u, 0x256Du, 0x2571u, 0x25A0u}) {
        const Drawn drawn = Draw(character, 10, 20);
        EXPECT_FALSE(drawn.isDrawn) << std::hex << character;
        for (const unsigned char pixel : drawn.pixels)
            EXPECT_EQ(pixel, 0);
    }
}

TEST(BoxGlyphs, DrawInsideTheSmallestCell) {
    for (uint32_t character = 0x2500; character < 0x25A0; character++)
        Draw(character, 1, 1);
}

}  // namespace zt
