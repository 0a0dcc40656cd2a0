// A panel as a person sees it on the screen of a session: title, rows, bar, status row.
#pragma once

#include <string>
#include <vector>

#include "tests/support/session.h"

namespace zt::headless {

// The attributes of the default colours.
inline constexpr uint8_t kPanelColour = 0x1B;
inline constexpr uint8_t kHighlight = 0x30;
inline constexpr uint8_t kTagged = 0x1E;
inline constexpr uint8_t kHighlightTagged = 0x3E;
inline constexpr uint8_t kDirectories = 0x1A;
inline constexpr uint8_t kDirectoryHigh = 0x20;

// Splits at the thin vertical line; the fields keep no blanks at their ends.
std::vector<std::string> Fields(const std::string& line);

class PanelView {
public:
    // Half the screen wide, or all of it. The panels leave the last two rows of the screen.
    PanelView(const Session& session, int side, bool fullWidth = false);

    bool IsShown() const;                  // its frame is there
    std::string Title() const;             // without the frame and the blanks around it
    bool IsActive() const;                 // by the colour of its title
    int Height() const { return height; }  // rows of entries
    std::string Line(int row) const;       // inside the frame, from 0
    std::string Status() const;            // without blanks at its ends
    // The first field of each row that is not blank, for the styles with a row an entry; a hidden
    // file's mark is left out.
    std::vector<std::string> Names() const;
    // The fields of the row with the given name; none when there is no such row.
    std::vector<std::string> FieldsOf(const std::string& name) const;
    std::string BarName() const;  // under the cursor bar; empty when there is no bar
    int BarRow() const;           // of the entries, from 0; -1: no bar
    uint8_t AttributeOf(const std::string& name) const;  // of the row's first character; 0: none

    int Left() const { return left; }
    int Width() const { return width; }

private:
    std::string NameAt(int row) const;

    const Session& session;
    int left;
    int width;
    int height;
};

}  // namespace zt::headless
