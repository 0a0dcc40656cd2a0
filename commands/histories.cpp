#include "commands/histories.h"

#include <array>
#include <cwchar>

#include "commands/application_paths.h"
#include "commands/history_file.h"
#include "foundation/settings.h"
#include "ui/field_history.h"

namespace zt {

namespace {

HistoryFile TheFile() {
    return HistoryFile(ApplicationFilePath(ApplicationFile::kHistory));
}

// A failure to write costs the next run a line, and no question: the work goes on.
void AppendToFile(const HistoryLine& line) {
    const Estring text = FormatHistoryLine(line);
    if (text.IsEmpty() && !line.text.IsEmpty()) return;
    if (MakePersonalDirectory() == 0) static_cast<void>(TheFile().Append(text));
}

// What a file holds once equal lines are one.
struct HistoryContents {
    WestringStore commands;
    int commandLines = 0;
    std::array<WestringStore, kStoredFields> fields;

    explicit HistoryContents(const EstringStore& lines);
    bool IsTooLong() const;
    void WriteTo(EstringStore& lines) const;

private:
    void AddCommandLine(const Westring& text, CommandCollection& seen);
    void AddFieldLine(const Westring& text, WestringStore& list);
};

HistoryContents::HistoryContents(const EstringStore& lines) {
    CommandCollection seen;
    for (int i = 0; i < lines.Count(); i++) {
        const HistoryLine line = ParseHistoryLine(*lines.Peek(i));
        if (line.field < 0) {
            AddCommandLine(line.text.TrimLeft(), seen);
        } else if (line.field < kStoredFields) {
            AddFieldLine(line.text, fields[static_cast<size_t>(line.field)]);
        }
    }
}

void HistoryContents::AddCommandLine(const Westring& text, CommandCollection& seen) {
    commandLines++;
    if (!seen.AddCopy(text)) {
        for (int i = commands.Count() - 1; i >= 0; i--) {
            if (wcscmp(commands.At(i)->c_str(), text.c_str()) == 0) commands.DeleteCurrent();
        }
    }
    commands.Append(new Westring(text));
}

void HistoryContents::AddFieldLine(const Westring& text, WestringStore& list) {
    for (int i = list.Count() - 1; i >= 0; i--) {
        if (*list.At(i) == text) list.DeleteCurrent();
    }
    list.Append(new Westring(text));
}

bool HistoryContents::IsTooLong() const {
    if (commandLines > settings.maxHist) return true;
    for (const WestringStore& list : fields) {
        if (list.Count() > settings.maxFieldHist) return true;
    }
    return false;
}

// Where the newest `limit` of `count` texts begin.
int FirstKept(int count, int limit) {
    return count > limit ? count - (limit > 0 ? limit : 0) : 0;
}

void HistoryContents::WriteTo(EstringStore& lines) const {
    lines.Clear();
    for (int i = FirstKept(commands.Count(), settings.maxHist); i < commands.Count(); i++)
        lines.Append(new Estring(FormatHistoryLine({-1, *commands.Peek(i)})));
    for (int number = 0; number < kStoredFields; number++) {
        const WestringStore& list = fields[static_cast<size_t>(number)];
        for (int i = FirstKept(list.Count(), settings.maxFieldHist); i < list.Count(); i++)
            lines.Append(new Estring(FormatHistoryLine({number, *list.Peek(i)})));
    }
}

void Shorten(EstringStore& lines) {
    const HistoryContents contents(lines);
    contents.WriteTo(lines);
}

}  // namespace

bool CommandCollection::AddCopy(const Westring& text) {
    if (Find(text.c_str())) return false;
    const size_t bytes = (static_cast<size_t>(text.Length()) + 1) * sizeof(wchar_t);
    auto* copy = static_cast<wchar_t*>(pool.AllocateAligned(bytes, alignof(wchar_t)));
    if (!copy) return true;
    wmemcpy(copy, text.c_str(), static_cast<size_t>(text.Length()) + 1);
    return Insert(copy);
}

int CommandCollection::Compare(const wchar_t* a, const wchar_t* b) {
    return wcscmp(a, b);
}

void LoadHistory(CommandHistory& history) {
    EstringStore lines;
    if (TheFile().Read(lines) != 0) return;
    const HistoryContents contents(lines);
    const WestringStore& commands = contents.commands;
    for (int i = FirstKept(commands.Count(), settings.maxHist); i < commands.Count(); i++)
        history.Append(*commands.Peek(i));
    for (int number = 0; number < kStoredFields; number++) {
        const WestringStore& list = contents.fields[static_cast<size_t>(number)];
        for (int i = 0; i < list.Count(); i++)
            FieldHistory(number).Append(new Westring(*list.Peek(i)));
    }
    if (contents.IsTooLong()) static_cast<void>(TheFile().Change(Shorten));
}

void AddCommand(CommandHistory& history, const Westring& text) {
    const Westring command = text.TrimLeft();
    history.Add(command);
    AppendToFile({-1, command});
}

void AddFieldHistory(const Westring& text, int number) {
    AppendFieldHistory(text, number);
    if (number >= 0 && number < kStoredFields) AppendToFile({number, text});
}

void RemoveCommand(CommandHistory& history, const Westring& text) {
    history.Remove(text);
    static_cast<void>(TheFile().Change([&text](EstringStore& lines) {
        for (int i = lines.Count() - 1; i >= 0; i--) {
            const HistoryLine line = ParseHistoryLine(*lines.At(i));
            // As it is known here: read without the white space before it.
            const Westring command = line.text.TrimLeft();
            if (line.field < 0 && wcscmp(command.c_str(), text.c_str()) == 0) lines.DeleteCurrent();
        }
    }));
}

}  // namespace zt
