// The message box: its answer sets, how the message folds, and how the box is laid out.
#include "ui/message_box.h"

#include <algorithm>
#include <array>

#include "console/program_state.h"
#include "ui/abbreviate_path.h"
#include "ui/dialog.h"
#include "ui/pausable_painter.h"

namespace zt {

namespace {

constexpr int kMaxLines = 10;
constexpr int kSideCells = 8;  // free columns left and right of the longest line
constexpr int kAnswerMask = 15;
constexpr int kMaxButtons = 6;

struct AnswerSet {
    ButtonRow buttons[kMaxButtons + 1];
    const char* quickKeys;  // one a button; a blank is none
    int minimumWidth;
};

constexpr ButtonRow kOk = {'y', "_OK"};
constexpr ButtonRow kCancel = {kExitEscape, "Cancel"};
constexpr ButtonRow kSkip = {'s', "Skip"};
constexpr ButtonRow kEnd = {0, nullptr};

constexpr AnswerSet kAnswerSets[] = {
    {{kOk, kEnd}, "o", 8},
    {{kOk, kCancel, kEnd}, "o", 20},
    {{kOk, kCancel, kSkip, {'a', "All"}, {'e', "None"}, kEnd}, "o sae", 50},
    {{{'r', "Retry"}, kSkip, kCancel, kEnd}, "rs", 33},
    {{kOk, kCancel, kSkip, {'a', "All"}, {'e', "None"}, {'d', "All Older"}, kEnd}, "o saed", 61},
};

const AnswerSet& AnswerSetOf(int type) {
    const auto wanted = static_cast<size_t>(type & kAnswerMask);
    return kAnswerSets[wanted < std::size(kAnswerSets) ? wanted : 0];
}

struct Lines {
    std::array<Westring, kMaxLines> text;
    int count = 1;
};

// Cuts the last line at a blank as long as it is too long. One without a blank moves whole into
// the next slot, and stays too long in the last.
Lines FoldMessage(const Westring& message, int columns) {
    Lines lines;
    lines.text[0] = message;
    while (lines.count < kMaxLines) {
        Westring& line = lines.text[static_cast<size_t>(lines.count - 1)];
        if (line.Length() < columns - kSideCells + 1) break;
        int fold = columns - kSideCells;
        while (fold > 0 && line[fold] != L' ')
            --fold;
        Westring& next = lines.text[static_cast<size_t>(lines.count++)];
        next = line.Right(line.Length() - fold - (fold > 0 ? 1 : 0));
        line = line.Left(fold);
    }
    return lines;
}

int LongestLine(const Lines& lines) {
    int longest = 0;
    for (const Westring& line : lines.text)
        longest = std::max(longest, line.Length());
    return longest;
}

}  // namespace

int MessageBox(const Westring& message, const wchar_t* name, int type) {
    int columns, rows;
    console->GetSize(columns, rows);
    const AnswerSet& answers = AnswerSetOf(type);
    const Lines lines = FoldMessage(message, columns);
    Westring shownName = name;
    AbbreviatePath(shownName, columns - kSideCells);

    int width = std::max({LongestLine(lines), shownName.Length(), answers.minimumWidth});
    width += width % 2 + 4;
    const auto colour = type & kBoxNotice ? ColourClass::kMessages : ColourClass::kErrors;

    Dialog box(-1, -3, width, lines.count + 4, Colour(colour));
    for (int i = 0; i < lines.count; ++i) {
        box.PrintCentred(i, lines.text[static_cast<size_t>(i)]);
    }
    box.PrintCentred(lines.count, shownName);
    box.AddButtons(-1, lines.count + 1, true, answers.buttons);
    box.SetQuickKeys(answers.quickKeys);

    const int answer = box.Run();
    if (answer == kExitEnter) return 'y';
    return answer < 0 ? ' ' : answer;
}

int MessageBoxWithProgress(IPausablePainter* progress, const Westring& message, const wchar_t* name,
                           int type) {
    if (progress) progress->Stop();
    return MessageBox(message, name, type);
}

}  // namespace zt
