// The one-line editor above the function-key bar: its text, the insertion point and the drawing.
// Owned by the main loop; first thread only.
#pragma once

#include "foundation/westring.h"

namespace zt {

class CommandLine {
public:
    static constexpr int kMaxLength = 512;

    const Westring& Text() const { return text; }
    bool IsEmpty() const { return text.IsEmpty(); }
    int Position() const { return linePos; }

    void SetText(const Westring& value);  // the insertion point goes to the end
    void Clear();
    // At the insertion point, which moves behind it. A character or text that does not fit is
    // dropped whole.
    void Insert(wchar_t character);
    void Insert(const Westring& insertion);

    // The part from `start` up to `end` becomes the text; the insertion point goes behind it. What
    // does not fit changes nothing.
    void Replace(int start, int end, const Westring& replacement);

    void MoveTo(int position);  // clamped to the text
    void DeleteBackward();
    void DeleteForward();
    void MoveWordLeft();
    void MoveWordRight();
    void DeleteWordBackward();
    void DeleteWordForward();

    // Draws prompt and text over the whole of `row`, in the colour class "Command Line".
    void Draw(const Westring& prompt, int row);
    // Where the insertion point stood when the line was last drawn.
    int CursorColumn() const { return cursorColumn; }

private:
    Westring text;
    int linePos = 0;
    int lineScroll = 0;  // characters of the text that are scrolled out at the left
    int cursorColumn = 0;
};

}  // namespace zt
