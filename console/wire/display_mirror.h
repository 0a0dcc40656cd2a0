// What the display shows, and what it is to show. Finds the requests that make the one into the
// other and cost the fewest bytes. Owned by the far end's console; guarded by its lock.
#pragma once

#include <vector>

#include "console/cell.h"
#include "console/wire/blank_areas.h"
#include "console/wire/cell_grid.h"
#include "console/wire/frame_buffer.h"
#include "console/wire/row_plan.h"

namespace zt {

class DisplayMirror {
public:
    // Both are blank afterwards, as the display's grid is after the same change.
    void Resize(int columns, int rows);
    int Columns() const { return sent_.Columns(); }
    int Rows() const { return sent_.Rows(); }

    // The display has been wiped with the attribute, which is its fill attribute too, and that is
    // what is wanted.
    void Wipe(Attribute attribute);

    // These cells of a row are to be shown, whatever the row was to show before.
    void Want(int row, int column, const Cell* cells, int count);

    // The cells of `rect` have moved, and what they are to show now is wanted already. True when
    // it pays to have the display move them too; the request is noted, and Encode sends it first.
    // Positive `lines` move up.
    bool Scroll(const CellRect& rect, int lines, Attribute attribute);

    // The display's fill attribute, which a bare Clear uses.
    void SetFillAttribute(Attribute attribute) { fillAttribute_ = attribute; }

    // Appends the requests that bring the display up to date and gives how many there are. The
    // display is taken to have carried them out.
    int Encode(FrameBuffer& out);

    const Cell* SentRow(int row) const { return sent_.Row(row); }

private:
    struct ScrollRequest {
        CellRect rect;
        int lines;
        Attribute attribute;
    };
    // A row with something to send: its runs, and their cost in bytes.
    struct RowRuns {
        int row;
        size_t firstRun;
        size_t endRun;
        int cost;
    };
    // Rows that go together: as one rectangle of cells, or each by its runs.
    struct Band {
        int begin;  // indices of rows with something to send, half open
        int end;
        bool isRectangle;
        int64_t cost;  // of all rows up to the end
    };

    int EncodeScrolls(FrameBuffer& out);
    bool TrimSpans();
    int EncodeBlankAreas(FrameBuffer& out);
    void PlanRows();
    void SumRectangleBytes();
    void ChooseBands();
    int EncodeBands(FrameBuffer& out);
    int EncodeBand(FrameBuffer& out, const Band& band);
    void EncodeRun(FrameBuffer& out, const CellRun& run) const;
    void EncodeRectangle(FrameBuffer& out, const CellRect& rect);
    void MayDiffer(int row, int left, int right);

    CellGrid wanted_;
    CellGrid sent_;
    std::vector<ColumnSpan> spans_;  // what of each row may differ
    std::vector<ScrollRequest> scrolls_;
    Attribute fillAttribute_ = 7;

    // Working space of Encode, kept so that an update allocates nothing.
    RowPlanner planner_;
    CellRect bounds_;  // around all that differs
    std::vector<CellRun> runs_;
    std::vector<RowRuns> rows_;
    std::vector<int64_t> rectangleBytes_;  // of the bounds' rows, summed from the top
    std::vector<Band> bands_;              // the best last band for each number of rows
    std::vector<Band> chosen_;             // from the bottom up
    std::vector<Cell> rectangle_;
};

}  // namespace zt
