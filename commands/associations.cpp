#include "commands/associations.h"

#include <algorithm>

#include "commands/command_template.h"
#include "console/program_state.h"
#include "foundation/configuration.h"
#include "foundation/normalize_path.h"
#include "foundation/shell_text.h"
#include "panels/effective_permissions.h"
#include "panels/filter_compiled.h"
#include "ui/dialog.h"

namespace zt {

namespace {

constexpr int kLeastWidth = 20;
constexpr int kColumnsLeftFree = 6;
constexpr int kRowsLeftFree = 6;

// Plain rules end the walk; one behind others of the menu does not join it.
void CollectRules(AssociationSet& set, const entry& e, CAssociationList& found) {
    for (int i = 0; i < set.Count(); i++) {
        Association* rule = set.Peek(i);
        if (CompiledFilter(rule->mask).Matches(e) <= 0) continue;
        if (rule->multiple || found.Count() == 0) found.Append(rule);
        if (!rule->multiple) return;
    }
}

bool ChooseCommand(const CAssociationList& rules, Westring& command) {
    WestringStore commands;
    int width = kLeastWidth;
    for (int i = 0; i < rules.Count(); i++) {
        commands.Append(new Westring(rules.Peek(i)->command));
        width = std::max(width, rules.Peek(i)->command.Length());
    }
    width = std::min(width, screenColumns - kColumnsLeftFree);
    const int height = std::clamp(commands.Count(), 1, std::max(1, screenLines - kRowsLeftFree));
    int chosen = 0;
    Dialog dialog(-1, -2, width + 2, height + 2, Colour(ColourClass::kMenu));
    dialog.SetTitle(" Choose command ");
    dialog.AddList(0, 0, true, width, height, commands, commands.Count(), chosen, kExitEnter);
    if (dialog.Run() != kExitEnter) return false;
    command = *commands.Peek(chosen);
    return true;
}

}  // namespace

bool FindFirstAssociation(AssociationSet& set, const wchar_t* name, Westring& command) {
    for (int i = 0; i < set.Count(); i++) {
        const Association* rule = set.Peek(i);
        if (CompiledFilter(rule->mask).MatchesName(name) <= 0) continue;
        command = rule->command;
        return true;
    }
    return false;
}

AssociationResult FindAssociation(AssociationSet& set, const entry& e, Westring& command) {
    CAssociationList found;
    CollectRules(set, e, found);
    if (found.Count() == 0) return AssociationResult::kNone;
    if (found.Count() == 1) {
        command = found.Peek(0)->command;
        return AssociationResult::kFound;
    }
    return ChooseCommand(found, command) ? AssociationResult::kFound
                                         : AssociationResult::kCancelled;
}

bool ExpandForFile(LoopState& state, const Westring& text, const Westring& name,
                   TemporaryLists& lists, Westring& command) {
    const TemplateSource source{state.Active(), state.Other(), AskForMacro};
    CommandTemplate expansion(text);
    if (!expansion.NamesFiles()) expansion.AppendFileName();
    if (!expansion.ExpandCommon(source, lists)) return false;
    command = expansion.ExpandFor(source, name);
    return true;
}

AssociationResult RunAssociation(LoopState& state, const entry& e, Westring& command,
                                 TemporaryLists& lists) {
    Westring text;
    const AssociationResult found = FindAssociation(configuration.rules[kRunRules], e, text);
    if (found == AssociationResult::kCancelled) return found;
    if (found == AssociationResult::kFound) {
        const bool expanded = ExpandForFile(state, text, e.name, lists, command);
        return expanded ? AssociationResult::kFound : AssociationResult::kCancelled;
    }
    if (!(ProcessRights::OfThisProcess().Of(e) & kMayExecute)) return AssociationResult::kNone;
    Westring path = e.name;
    if (MakeAbsolute(path, state.Active().path.c_str()) != 0) return AssociationResult::kNone;
    command = ShellWord(path);
    return AssociationResult::kFound;
}

}  // namespace zt
