// Commands with places for files in them, as associations, viewers, editors and the user menu have
// them. First thread only.
//
// A macro is the character of the setting CmdChar (written ! here) and a letter:
//
//     !f  the file's name               !b  that without its extension   !e  only the extension
//     !p  its full path
//     !d  this panel's directory        !D  the other panel's
//     !o  the name of the other panel's current entry                     !O  its full path
//     !t  the names of the tagged entries, or of the current one          !T  their full paths
//     !l  a temporary file that holds those names, one a line             !L  ... their paths
//     !{text}  what the user types when asked with this text
//     !!  the character itself
//
// Those of the first two lines belong to one file. Anything else behind the character stays as it
// stands. Every name becomes one word of the shell.
#pragma once

#include <functional>
#include <vector>

#include "commands/temporary_list.h"
#include "foundation/westring.h"

namespace zt {

struct CPanel;
struct PanelPair;

// What a template takes its names from.
struct TemplateSource {
    const CPanel& panel;
    const CPanel& other;
    // Asks the user for a text; false for Esc.
    std::function<bool(const Westring& prompt, Westring& answer)> ask;
};

class CommandTemplate {
public:
    explicit CommandTemplate(const Westring& text);

    // Whether it takes files at all, one by one or all together: a rule's command that does not
    // gets the file's name at its end.
    bool NamesFiles() const;
    // Whether it is to be expanded for each file anew.
    bool HasFileMacros() const;
    void AppendFileName();

    // Expands everything that does not belong to one file, once. False when the user did not answer
    // or a list could not be written; a box has told of the latter. `lists` keeps the temporary
    // files and must outlive the command.
    [[nodiscard]] bool ExpandCommon(const TemplateSource& source, TemporaryLists& lists);
    // The command for one file of the source's panel; `name` may be empty.
    Westring ExpandFor(const TemplateSource& source, const Westring& name) const;

private:
    struct Piece {
        wchar_t macro = 0;  // 0: text
        Westring text;      // or the prompt of a macro that asks
    };

    bool Has(const wchar_t* macros) const;
    void AddText(wchar_t ch);

    std::vector<Piece> pieces;
};

// A dialog with the text and a field.
bool AskForMacro(const Westring& prompt, Westring& answer);

}  // namespace zt
