// The window that offers texts of earlier times, of which one is chosen: oldest first, opened on
// the newest. Modal; first thread only.
#pragma once

#include <span>

#include "commands/keyed_list.h"
#include "foundation/string_lists.h"
#include "ui/dialog.h"

namespace zt {

struct HistoryShape {
    const char* title;
    int leastWidth;
    int margin;  // blank columns on each side of the list; with them the width is even
    int rowsLeftFree;
};

class HistoryDialog {
public:
    // The texts, of which there is at least one, and the keys are borrowed.
    HistoryDialog(const HistoryShape& shape, WestringStore& texts,
                  std::span<const int32_t> exitKeys);

    // kExitEnter, kExitEscape or one of the keys. May be called again.
    int Run();

    int32_t chosen;  // index of the text under the cursor

private:
    const int width_, height_;
    Dialog dialog_;
};

}  // namespace zt
