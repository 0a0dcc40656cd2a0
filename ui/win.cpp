// A window's life: its rectangle, what it saves and restores, its frame, hiding and scrolling.
#include "ui/win.h"

#include "console/program_state.h"
#include "foundation/settings.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

constexpr const wchar_t* kTopLeft = L"\u2554";
constexpr const wchar_t* kTopRight = L"\u2557";
constexpr const wchar_t* kBottomLeft = L"\u255A";
constexpr const wchar_t* kBottomRight = L"\u255D";
constexpr wchar_t kHorizontal = 0x2550, kVertical = 0x2551;

}  // namespace

Win::Win(int x, int y, int rightOrWidth, int bottomOrHeight, int attribute, int frameAttribute,
         int noShadow) {
    int columns, rows;
    console->GetSize(columns, rows);
    edges.left = x >= 0 ? x : (columns - rightOrWidth) / 2;
    edges.right = x >= 0 ? rightOrWidth : edges.left + rightOrWidth - 1;
    edges.top = y >= 0 ? y : (bottomOrHeight - rows) / y;
    edges.bottom = y >= 0 ? bottomOrHeight : edges.top + bottomOrHeight - 1;
    originX = edges.left;
    originY = edges.top;
    hasFrame = frameAttribute >= 0;
    hasShadow = settings.shadows && hasFrame && noShadow == 0 && edges.bottom + 1 < rows &&
                edges.right + 2 < columns;
    ownAttribute = attribute >= 0 ? static_cast<Attribute>(attribute) : console->GetFillAttribute();

    UpdateFreeze freeze;
    saved.reset(console->ReadCells(edges.left, edges.top, SavedWidth(), SavedHeight()));
    if (attribute >= 0) Clear();
    if (hasShadow) DrawShadow();
    if (hasFrame) DrawFrame(static_cast<Attribute>(frameAttribute));
}

Win::~Win() {
    if (!hidden && saved) {
        console->WriteCells(edges.left, edges.top, SavedWidth(), SavedHeight(), saved.get());
    }
}

int Win::SavedCells() const {
    return saved ? SavedWidth() * SavedHeight() : 0;
}

void Win::Clear(int topMargin, int bottomMargin) {
    const int height = ClientHeight() - topMargin - bottomMargin;
    if (height > 0) {
        console->FillRect(originX, originY + topMargin, ClientWidth(), height, ownAttribute);
    }
}

void Win::Scroll(int x, int y, int width, int height, int lines) {
    if (lines > 0) {
        console->ScrollUp(originX + x, originY + y, width, height, lines, ownAttribute);
    } else {
        console->ScrollDown(originX + x, originY + y, width, height, -lines, ownAttribute);
    }
}

void Win::DrawFrame(Attribute frameAttribute) {
    UpdateFreeze freeze;
    const int inner = edges.right - edges.left - 1;
    const Westring bar = Westring::Repeat(kHorizontal, inner);
    console->WriteWide(edges.left, edges.top, (kTopLeft + bar + kTopRight).c_str(), frameAttribute);
    console->WriteWide(edges.left, edges.bottom, (kBottomLeft + bar + kBottomRight).c_str(),
                       frameAttribute);
    for (int row = edges.top + 1; row < edges.bottom; ++row) {
        console->FillChar(edges.left, row, 1, Cell{kVertical, frameAttribute});
        console->FillChar(edges.right, row, 1, Cell{kVertical, frameAttribute});
    }
    hasFrame = true;
    originX = edges.left + 1;
    originY = edges.top + 1;
}

void Win::SetHidden(bool value) {
    if (hidden == value) return;
    UpdateFreeze freeze;
    std::unique_ptr<Cell[]> shown(
        console->ReadCells(edges.left, edges.top, SavedWidth(), SavedHeight()));
    console->WriteCells(edges.left, edges.top, SavedWidth(), SavedHeight(), saved.get());
    saved = std::move(shown);
    hidden = value;
}

bool Win::ScreenToWindow(Point& point) const {
    const bool inside = point.x >= edges.left && point.x <= edges.right && point.y >= edges.top &&
                        point.y <= edges.bottom;
    point.x -= originX;
    point.y -= originY;
    return inside;
}

}  // namespace zt
