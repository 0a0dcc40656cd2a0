// The rows of a box on the screen of a session, frame included, for tests that expect a dialog
// cell by cell.
#pragma once

#include <string>
#include <vector>

#include "tests/support/session.h"

namespace zt::headless {

// Coordinates are cells of the screen.
inline std::vector<std::string> BoxRows(const Session& session, int left, int top, int width,
                                        int height) {
    std::vector<std::string> rows;
    for (int row = top; row < top + height; ++row)
        rows.push_back(session.Piece(left, row, width));
    return rows;
}

inline bool Shows(const Session& session, const std::string& text) {
    return session.Text().find(text) != std::string::npos;
}

}  // namespace zt::headless
