#include "commands/command_template.h"

#include "console/program_state.h"
#include "foundation/settings.h"
#include "foundation/shell_text.h"
#include "panels/panel_pair.h"
#include "ui/dialog.h"
#include "ui/file_error_box.h"

namespace zt {

namespace {

constexpr wchar_t kFileMacros[] = L"fbep";
constexpr wchar_t kCommonMacros[] = L"dDoOtTlL";
constexpr wchar_t kGroupMacros[] = L"tTlL";
constexpr wchar_t kAskMacro = L'{';
constexpr int kAskColumns = 60;

bool IsOneOf(wchar_t macro, const wchar_t* macros) {
    return macro != 0 && wcschr(macros, macro) != nullptr;
}

Westring PathIn(const CPanel& panel, const Westring& name) {
    if (name[0] == L'/') return name;
    Westring path = panel.path;
    path.AddTrailingSlash();
    return path + name;
}

Westring BaseOf(const Westring& name) {
    const int dot = name.FindLast(L'.');
    return dot < 0 ? name : name.Left(dot);
}

Westring ExtensionOf(const Westring& name) {
    const int dot = name.FindLast(L'.');
    return dot < 0 ? Westring() : name.Right(name.Length() - dot - 1);
}

// An extension follows something else in a word, so that a dash in front needs no path before it.
Westring ExtensionWord(const Westring& extension) {
    int dashes = 0;
    while (extension[dashes] == L'-')
        dashes++;
    return extension.Left(dashes) + ShellWord(extension.Right(extension.Length() - dashes));
}

// The names of the tagged entries, or of the one under the cursor.
std::vector<Westring> ChosenNames(const CPanel& panel, bool asPaths) {
    std::vector<Westring> names;
    for (int i = 0; i < panel.Count() && panel.taggedCount > 0; i++) {
        const entry* e = panel.entries.At(i);
        if (e->tagged) names.push_back(asPaths ? PathIn(panel, e->name) : Westring(e->name));
    }
    const entry* current = panel.Current();
    if (names.empty() && current)
        names.push_back(asPaths ? PathIn(panel, current->name) : Westring(current->name));
    return names;
}

Westring AsWords(const std::vector<Westring>& names) {
    Westring words;
    for (const Westring& name : names) {
        if (!words.IsEmpty()) words += L' ';
        words += ShellWord(name);
    }
    return words;
}

Westring OtherCurrent(const CPanel& other, bool asPath) {
    const entry* current = other.Current();
    if (!current) return Westring();
    return ShellWord(asPath ? PathIn(other, current->name) : Westring(current->name));
}

bool ListFile(const CPanel& panel, bool asPaths, TemporaryLists& lists, Westring& text) {
    Westring path;
    int code = lists.Add(ChosenNames(panel, asPaths), path);
    text = ShellWord(path);
    if (code == 0) return true;
    bool stop = false;
    const Westring directory = TemporaryDirectory();
    FileErrorBox(code, stop, directory.c_str());
    return false;
}

}  // namespace

CommandTemplate::CommandTemplate(const Westring& text) {
    const auto mark = static_cast<wchar_t>(static_cast<unsigned char>(settings.cmdChar));
    for (int i = 0; i < text.Length(); i++) {
        const wchar_t next = text[i] == mark ? static_cast<wchar_t>(text[i + 1]) : wchar_t{0};
        const int end = next == kAskMacro ? text.Find(L"}", i + 2) : -1;
        if (next == mark && mark != 0) {
            AddText(mark);
            i++;
        } else if (IsOneOf(next, kFileMacros) || IsOneOf(next, kCommonMacros)) {
            pieces.push_back({next, Westring()});
            i++;
        } else if (end >= 0) {
            const int start = i + 2;
            pieces.push_back({next, end > start ? text.Mid(start, end - start) : Westring()});
            i = end;
        } else {
            AddText(text[i]);
        }
    }
}

void CommandTemplate::AddText(wchar_t ch) {
    if (pieces.empty() || pieces.back().macro != 0) pieces.emplace_back();
    pieces.back().text += ch;
}

bool CommandTemplate::Has(const wchar_t* macros) const {
    for (const Piece& piece : pieces) {
        if (IsOneOf(piece.macro, macros)) return true;
    }
    return false;
}

bool CommandTemplate::HasFileMacros() const {
    return Has(kFileMacros);
}

bool CommandTemplate::NamesFiles() const {
    return Has(kFileMacros) || Has(kGroupMacros);
}

void CommandTemplate::AppendFileName() {
    AddText(L' ');
    pieces.push_back({L'f', Westring()});
}

bool CommandTemplate::ExpandCommon(const TemplateSource& source, TemporaryLists& lists) {
    for (Piece& piece : pieces) {
        bool ok = true;
        Westring text;
        switch (piece.macro) {
            case L'd':
                text = ShellWord(source.panel.path);
                break;
            case L'D':
                text = ShellWord(source.other.path);
                break;
            case L'o':
                text = OtherCurrent(source.other, false);
                break;
            case L'O':
                text = OtherCurrent(source.other, true);
                break;
            case L't':
                text = AsWords(ChosenNames(source.panel, false));
                break;
            case L'T':
                text = AsWords(ChosenNames(source.panel, true));
                break;
            case L'l':
                ok = ListFile(source.panel, false, lists, text);
                break;
            case L'L':
                ok = ListFile(source.panel, true, lists, text);
                break;
            case kAskMacro:
                ok = source.ask(piece.text, text);
                break;
            default:
                continue;
        }
        if (!ok) return false;
        piece = {0, text};
    }
    return true;
}

Westring CommandTemplate::ExpandFor(const TemplateSource& source, const Westring& name) const {
    Westring command;
    for (const Piece& piece : pieces) {
        switch (piece.macro) {
            case 0:
                command += piece.text;
                break;
            case L'f':
                command += ShellWord(name);
                break;
            case L'b':
                command += ShellWord(BaseOf(name));
                break;
            case L'e':
                command += ExtensionWord(ExtensionOf(name));
                break;
            case L'p':
                if (!name.IsEmpty()) command += ShellWord(PathIn(source.panel, name));
                break;
            default:
                break;
        }
    }
    return command;
}

bool AskForMacro(const Westring& prompt, Westring& answer) {
    Dialog dialog(-1, -4, kAskColumns, 7, Colour(ColourClass::kMessages));
    dialog.AddText(1, 0, prompt);
    dialog.AddString(1, 1, true, answer, kAskColumns - 6, -1, kNoHistory);
    dialog.AddOkCancel(-1, -1, true);
    return dialog.Run() == kExitEnter;
}

}  // namespace zt
