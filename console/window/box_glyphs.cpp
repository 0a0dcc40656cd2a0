// Box-drawing and block characters, drawn to the very edges of a cell.
#include "console/window/box_glyphs.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace zt {

namespace {

constexpr uint32_t kFirstBox = 0x2500;
constexpr uint32_t kLastBox = 0x257F;
constexpr uint32_t kFirstBlock = 0x2580;
constexpr uint32_t kLastBlock = 0x259F;

// The weight of the four arms, left, up, right, down: '.' none, 'l' light, 'h' heavy, 'd' double.
// "...." rows (dashes, arcs, diagonals) are left to the font.
constexpr char kArms[kLastBox - kFirstBox + 1][5] = {
    // 2500
    "l.l.", "h.h.", ".l.l", ".h.h", "....", "....", "....", "....",  //
    "....", "....", "....", "....", "..ll", "..hl", "..lh", "..hh",  //
    // 2510
    "l..l", "h..l", "l..h", "h..h", ".ll.", ".lh.", ".hl.", ".hh.",  //
    "ll..", "hl..", "lh..", "hh..", ".lll", ".lhl", ".hll", ".llh",  //
    // 2520
    ".hlh", ".hhl", ".lhh", ".hhh", "ll.l", "hl.l", "lh.l", "ll.h",  //
    "lh.h", "hh.l", "hl.h", "hh.h", "l.ll", "h.ll", "l.hl", "h.hl",  //
    // 2530
    "l.lh", "h.lh", "l.hh", "h.hh", "lll.", "hll.", "llh.", "hlh.",  //
    "lhl.", "hhl.", "lhh.", "hhh.", "llll", "hlll", "llhl", "hlhl",  //
    // 2540
    "lhll", "lllh", "lhlh", "hhll", "lhhl", "hllh", "llhh", "hhhl",  //
    "hlhh", "hhlh", "lhhh", "hhhh", "....", "....", "....", "....",  //
    // 2550
    "d.d.", ".d.d", "..dl", "..ld", "..dd", "d..l", "l..d", "d..d",  //
    ".ld.", ".dl.", ".dd.", "dl..", "ld..", "dd..", ".ldl", ".dld",  //
    // 2560
    ".ddd", "dl.l", "ld.d", "dd.d", "d.dl", "l.ld", "d.dd", "dld.",  //
    "ldl.", "ddd.", "dldl", "ldld", "dddd", "....", "....", "....",  //
    // 2570
    "....", "....", "....", "....", "l...", ".l..", "..l.", "...l",  //
    "h...", ".h..", "..h.", "...h", "l.h.", ".l.h", "h.l.", ".h.l",  //
};

enum Arm { kLeft, kUp, kRight, kDown };

void Fill(const CellMask& mask, int left, int top, int right, int bottom, int value = 0xFF) {
    left = std::max(left, 0);
    right = std::min(right, mask.width);
    if (left >= right) return;
    for (int y = std::max(top, 0); y < std::min(bottom, mask.height); y++) {
        std::memset(mask.pixels + static_cast<ptrdiff_t>(y) * mask.stride + left, value,
                    static_cast<size_t>(right - left));
    }
}

// Draws the arms as if they all went along the x axis; a vertical arm swaps the axes.
struct ArmPainter {
    const CellMask& mask;
    const char* arms;
    int light;   // thickness of a line
    int heavy;   // thickness of a heavy one
    int offset;  // of each half of a double line from the middle

    int Thickness(char weight) const { return weight == '.' ? 0 : weight == 'h' ? heavy : light; }

    // One line from the cell's edge to `stop`, its middle `shift` off the cell's middle.
    void Line(Arm arm, int thickness, int shift, int stop) const {
        const bool horizontal = arm == kLeft || arm == kRight;
        const int across = horizontal ? mask.height : mask.width;
        const int from = (across - thickness) / 2 + shift;
        const int length = horizontal ? mask.width : mask.height;
        const bool towardsZero = arm == kLeft || arm == kUp;
        const int begin = towardsZero ? 0 : stop;
        const int end = towardsZero ? stop : length;
        if (horizontal) {
            Fill(mask, begin, from, end, from + thickness);
        } else {
            Fill(mask, from, begin, from + thickness, end);
        }
    }

    // Where a line stops that reaches `reach` pixels beyond the middle (below 0: short of it).
    int Stop(Arm arm, int thickness, int reach) const {
        const bool horizontal = arm == kLeft || arm == kRight;
        const int length = horizontal ? mask.width : mask.height;
        const int begin = (length - thickness) / 2;
        const bool towardsZero = arm == kLeft || arm == kUp;
        return towardsZero ? begin + thickness + reach : begin - reach;
    }

    // The two arms that cross this one: on its low side (up or left) and on its high side.
    char LowSide(Arm arm) const { return arms[arm == kLeft || arm == kRight ? kUp : kLeft]; }
    char HighSide(Arm arm) const { return arms[arm == kLeft || arm == kRight ? kDown : kRight]; }

    void Single(Arm arm) const {
        const char low = LowSide(arm);
        const char high = HighSide(arm);
        const int thickness = Thickness(arms[arm]);
        if (low != 'd' && high != 'd') {
            const int crossing = std::max({Thickness(low), Thickness(high), 1});
            Line(arm, thickness, 0, Stop(arm, crossing, 0));
            return;
        }
        // Through a double line; up to its near half; or round the corner to its far half.
        const bool through = arms[(arm + 2) % 4] != '.';
        const bool tee = low == 'd' && high == 'd';
        Line(arm, thickness, 0, Stop(arm, light, through ? 0 : tee ? -offset : offset));
    }

    void Double(Arm arm) const {
        const char sides[2] = {LowSide(arm), HighSide(arm)};
        for (int half = 0; half < 2; half++) {
            const char own = sides[half];
            const char other = sides[1 - half];
            int reach = 0;
            if (own == 'd') {
                reach = -offset;
            } else if (other == 'd') {
                reach = offset;
            }
            Line(arm, light, half == 0 ? -offset : offset, Stop(arm, light, reach));
        }
    }
};

bool DrawArms(uint32_t character, const CellMask& mask) {
    const char* arms = kArms[character - kFirstBox];
    if (std::strcmp(arms, "....") == 0) return false;
    const int light = std::max(1, mask.height / 16);
    const ArmPainter painter{mask, arms, light, light * 2 + 1, std::max(light, mask.width / 5)};
    for (const Arm arm : {kLeft, kUp, kRight, kDown}) {
        if (arms[arm] == 'd') {
            painter.Double(arm);
        } else if (arms[arm] != '.') {
            painter.Single(arm);
        }
    }
    return true;
}

// Quarters of U+2596 to U+259F: 1 upper left, 2 upper right, 4 lower left, 8 lower right.
constexpr unsigned char kQuadrants[] = {4, 8, 1, 13, 9, 7, 11, 2, 6, 14};

void DrawQuadrants(unsigned quarters, const CellMask& mask) {
    const int x = mask.width / 2;
    const int y = mask.height / 2;
    if (quarters & 1) Fill(mask, 0, 0, x, y);
    if (quarters & 2) Fill(mask, x, 0, mask.width, y);
    if (quarters & 4) Fill(mask, 0, y, x, mask.height);
    if (quarters & 8) Fill(mask, x, y, mask.width, mask.height);
}

void DrawBlock(uint32_t character, const CellMask& mask) {
    const int w = mask.width;
    const int h = mask.height;
    const auto eighths = [](int whole, int n) { return (whole * n + 4) / 8; };
    if (character == 0x2580) {
        Fill(mask, 0, 0, w, h / 2);
    } else if (character <= 0x2588) {
        Fill(mask, 0, h - eighths(h, static_cast<int>(character - 0x2580)), w, h);
    } else if (character <= 0x258F) {
        Fill(mask, 0, 0, eighths(w, static_cast<int>(0x2590 - character)), h);
    } else if (character == 0x2590) {
        Fill(mask, w / 2, 0, w, h);
    } else if (character <= 0x2593) {  // shades: a quarter, a half, three quarters
        Fill(mask, 0, 0, w, h, static_cast<int>(character - 0x2590) * 0x40);
    } else if (character == 0x2594) {
        Fill(mask, 0, 0, w, eighths(h, 1));
    } else if (character == 0x2595) {
        Fill(mask, w - eighths(w, 1), 0, w, h);
    } else {
        DrawQuadrants(kQuadrants[character - 0x2596], mask);
    }
}

}  // namespace

bool DrawBoxGlyph(uint32_t character, const CellMask& mask) {
    if (character >= kFirstBox && character <= kLastBox) return DrawArms(character, mask);
    if (character < kFirstBlock || character > kLastBlock) return false;
    DrawBlock(character, mask);
    return true;
}

}  // namespace zt
