#include "commands/command_table.h"

#include "commands/attribute_commands.h"
#include "commands/browse_manual.h"
#include "commands/configuration_dialog.h"
#include "commands/confirmations_dialog.h"
#include "commands/copy_commands.h"
#include "commands/delete_commands.h"
#include "commands/directory_commands.h"
#include "commands/execute_command.h"
#include "commands/file_viewing.h"
#include "commands/file_window.h"
#include "commands/filter_command.h"
#include "commands/history_commands.h"
#include "commands/line_commands.h"
#include "commands/line_completion.h"
#include "commands/make_commands.h"
#include "commands/make_object.h"
#include "commands/movement_commands.h"
#include "commands/name_commands.h"
#include "commands/option_commands.h"
#include "commands/program_configuration.h"
#include "commands/quit_command.h"
#include "commands/screen_commands.h"
#include "commands/scroll_back_command.h"
#include "commands/selection_commands.h"
#include "commands/stored_paths_dialog.h"
#include "commands/user_menu.h"
#include "commands/view_commands.h"

namespace zt {

namespace {

void Ignore(LoopState&, const KeyPress&) {}

constexpr CommandRow kCommands[] = {
    // Modifiers alone
    {0, kNeedsNothing, Ignore},
    {0x10100, kNeedsNothing, Ignore},
    // Ctrl and a letter
    {1, kNeedsFiles | kNeedsNoArchive, FileAttributesKey},
    {2, kNeedsNothing, ShowScrollBackKey},
    {3, kNeedsFiles | kNeedsNoArchive, ChangeCaseKey},
    {4, kNeedsNothing, LineRightOrShiftName},
    {5, kNeedsNothing, RecallOlder},
    {0x1008D, kNeedsNothing, RecallOlder},
    {6, kNeedsNothing, InsertFullPath},
    {0x20006, kNeedsNothing, InsertFullPath},
    {0x90021, kNeedsNothing, InsertFullPath},
    {0xB0021, kNeedsNothing, InsertFullPath},
    {7, kNeedsFiles, GoToLinkTarget},
    {8, kNeedsNothing, ToggleHidden},
    {9, kNeedsNothing, SwitchPanelKey},
    {0x3000F, kNeedsNothing, SwitchPanelKey},
    {0xA, kNeedsNothing, CompleteLine},
    {0x3001C, kNeedsNothing, CompleteLine},
    {0x9001C, kNeedsNothing, CompleteLine},
    {0x90024, kNeedsNothing, CompleteLine},
    {0xB001C, kNeedsNothing, CompleteLine},
    {0xB0024, kNeedsNothing, CompleteLine},
    {0x2000A, kNeedsNothing, CompleteName},
    {0xB, kNeedsNothing, nullptr},
    {0xC, kNeedsNothing, nullptr},
    {0xD, kNeedsNothing, Enter},
    {0xF, kNeedsNothing, TogglePanels},
    {0x10, kNeedsNothing, ToggleOtherPanel},
    {0x11, kNeedsFiles, DirectorySizesKey},
    {0x12, kNeedsPanel, Reread},
    {0x13, kNeedsNothing, LineLeftOrShiftName},
    {0x1009B, kNeedsNothing, LineLeftOrShiftName},
    {0x14, kNeedsFiles, SelectGroupKey},
    {0x20014, kNeedsFiles, SelectGroupKey},
    {0x15, kNeedsNothing, Swap},
    {0x17, kNeedsFiles | kNeedsNoArchive, FileWindowKey},
    {0x18, kNeedsNothing, RecallNewer},
    {0x10091, kNeedsNothing, RecallNewer},
    {0x19, kNeedsFiles, UnselectGroupKey},
    {0x20019, kNeedsFiles, UnselectGroupKey},
    {0x1B, kNeedsNothing, Escape},
    {0x9001A, kNeedsNothing, Escape},
    {0x1C, kNeedsNothing, GoToTopOrOther},
    {0x1002B, kNeedsNothing, DirectoryHistoryCommand},
    {0x2001C, kNeedsNothing, GoToTopOrOther},
    {0x1D, kNeedsNothing, InsertRightPath},
    {0x1F, kNeedsPanel, GoBackKey},
    // Groups of entries: the grey keys and their menu entries
    {0x40002A, kNeedsFiles, InvertSelectionKey},
    {0x40002B, kNeedsFiles, SelectGroupKey},
    {0x40002D, kNeedsFiles, UnselectGroupKey},
    {0x10006D, kNeedsFiles, SelectGroupKey},
    {0x10006E, kNeedsFiles, UnselectGroupKey},
    {0x10006F, kNeedsFiles, InvertSelectionKey},
    // Command line and names
    {0x7F, kNeedsNothing, LineDeleteWordLeft},
    {0x1000E, kNeedsNothing, DropSearchCharacter},
    {0x1001C, kNeedsNothing, EnterSeparately},
    // Function keys
    {0x1003B, kNeedsNothing, nullptr},
    {0x1003C, kNeedsNothing, UserMenuKey},
    {0x30055, kNeedsNothing, UserMenuKey},
    {0x1003D, kNeedsFiles, ViewKey},
    {0x1006A, kNeedsFiles, ViewKey},
    {0x30060, kNeedsFiles, ViewKey},
    {0x1003E, kNeedsNothing, EditKey},
    {0x1006B, kNeedsNothing, EditKey},
    {0x30061, kNeedsNothing, EditKey},
    {0x1003F, kNeedsNothing, CopyKey},
    {0x10040, kNeedsNothing, MoveKey},
    {0x10041, kNeedsNoArchive, MakeDirectoryKey},
    {0x10042, kNeedsFiles | kNeedsNoArchive, Delete},
    {0x10044, kNeedsNothing, Quit},
    // Movement
    {0x10047, kNeedsNothing, HomeKey},
    {0x10048, kNeedsNothing, UpKey},
    {0x10049, kNeedsPanel, PageUpKey},
    {0x1004B, kNeedsNothing, LeftKey},
    {0x1004D, kNeedsNothing, RightKey},
    {0x1004E, kNeedsFiles, RestoreSelectionKey},
    {0x100072, kNeedsFiles, RestoreSelectionKey},
    {0x1004F, kNeedsNothing, EndKey},
    {0x10050, kNeedsNothing, DownKey},
    {0x10051, kNeedsPanel, PageDownKey},
    {0x10052, kNeedsFiles, TagKey},
    {0x10053, kNeedsNothing, LineDelete},
    {0x1005E, kNeedsNothing, ToggleLeftPanel},
    {0x1005F, kNeedsNothing, ToggleRightPanel},
    // Alt and function keys
    {0x10068, kNeedsNothing, nullptr},
    {0x10069, kNeedsNothing, nullptr},
    {0x1006C, kNeedsNothing, StoredPathsKey},
    {0x1006D, kNeedsFiles | kNeedsNoArchive, MakeObjectKey},
    {0x1006E, kNeedsNothing, nullptr},
    {0x3006E, kNeedsNothing, nullptr},
    {0x1006F, kNeedsNothing, CommandHistoryCommand},
    {0x10070, kNeedsNothing, ToggleLines},
    {0x10071, kNeedsNothing, nullptr},
    // Ctrl and movement keys
    {0x10073, kNeedsNothing, LineWordLeft},
    {0x10074, kNeedsNothing, LineWordRight},
    {0x10075, kNeedsNothing, LineEnd},
    {0x10076, kNeedsFiles, EnterCurrent},
    {0x10077, kNeedsNothing, LineHome},
    {0x10084, kNeedsPanel, GoUp},
    {0x1008E, kNeedsFiles, UntagAllKey},
    {0x3008E, kNeedsFiles, UntagAllKey},
    {0x10090, kNeedsFiles, TagAllKey},
    {0x30090, kNeedsFiles, TagAllKey},
    {0x10092, kNeedsNothing, CopyLine},
    {0x10093, kNeedsNothing, LineDeleteWordRight},
    {0x10094, kNeedsNothing, CompleteLineFromList},
    // Alt and movement keys
    {0x10097, kNeedsPanel, GoHome},
    {0x10098, kNeedsFiles, PreviousMatchOrTagKey},
    {0x100A0, kNeedsFiles, NextMatchOrTagKey},
    {0x1009D, kNeedsNothing, ExtendSearchOrLineRight},
    {0x10101, kNeedsNothing, LineBackspace},
    {0x10102, kNeedsFiles | kNeedsNoArchive, FileInformationKey},
    {0x10103, kNeedsNothing, nullptr},
    {0x30103, kNeedsNothing, nullptr},
    // Shift and function keys
    {0x30052, kNeedsNothing, PasteLine},
    {0x30054, kNeedsNothing, BrowseManual},
    {0x30056, kNeedsNothing, ViewNamedKey},
    {0x30057, kNeedsNothing, EditNamedKey},
    {0x30058, kNeedsFiles | kNeedsNoArchive, CopyInPlaceKey},
    {0x30059, kNeedsFiles | kNeedsNoArchive, RenameKey},
    {0x3005A, kNeedsNothing, nullptr},
    {0x3005B, kNeedsNoArchive, DeleteNamed},
    {0x3005C, kNeedsNothing, SaveConfiguration},
    {0x100134, kNeedsNothing, SaveConfiguration},
    {0x3005E, kNeedsNothing, ToggleLeftWidth},
    {0x3005F, kNeedsNothing, ToggleRightWidth},
    {0x30062, kNeedsFiles | kNeedsNoArchive, MakeLinksKey},
    {0x30066, kNeedsBothFiles, nullptr},
    {0x30068, kNeedsPanel, SetActiveStyle},
    {0x30069, kNeedsPanel, SetActiveStyle},
    {0x3006A, kNeedsPanel, SetActiveStyle},
    {0x3006B, kNeedsPanel, SetActiveStyle},
    {0x3006C, kNeedsPanel, SetActiveStyle},
    {0x3006F, kNeedsNothing, DirectoryHistoryCommand},
    {0x30070, kNeedsNothing, ToggleColumns},
    // The menu's own codes
    {0x100000, kNeedsNothing, nullptr},
    {0x100193, kNeedsNothing, nullptr},
    {0x100001, kNeedsNothing, SortByMenu},
    {0x100002, kNeedsNothing, SortByMenu},
    {0x100003, kNeedsNothing, SortByMenu},
    {0x100004, kNeedsNothing, SortByMenu},
    {0x100005, kNeedsNothing, SortByMenu},
    {0x100006, kNeedsNothing, ReverseByMenu},
    {0x100007, kNeedsNothing, SortByMenu},
    {0x100008, kNeedsNothing, SortByMenu},
    {0x100009, kNeedsNothing, SortByMenu},
    {0x10000A, kNeedsNothing, SortByMenu},
    {0x10000B, kNeedsNothing, SortByMenu},
    {0x10000C, kNeedsNothing, ReverseByMenu},
    {0x10000D, kNeedsNothing, StyleByMenu},
    {0x10000E, kNeedsNothing, StyleByMenu},
    {0x10000F, kNeedsNothing, StyleByMenu},
    {0x100010, kNeedsNothing, StyleByMenu},
    {0x100012, kNeedsNothing, FilterByMenu},
    {0x10019C, kNeedsNothing, FilterByMenu},
    {0x100013, kNeedsNothing, RereadByMenu},
    {0x10019B, kNeedsNothing, RereadByMenu},
    {0x100014, kNeedsNothing, StyleByMenu},
    {0x100015, kNeedsNothing, StyleByMenu},
    {0x100016, kNeedsNothing, nullptr},
    {0x100017, kNeedsNothing, nullptr},
    {0x100018, kNeedsNothing, StyleByMenu},
    {0x100019, kNeedsNothing, StyleByMenu},
    {0x10001A, kNeedsNothing, StyleByMenu},
    {0x10001B, kNeedsNothing, StyleByMenu},
    {0x100071, kNeedsFiles | kNeedsNoArchive, ChangeDateKey},
    {0x1000D0, kNeedsNothing, EditAssociations},
    {0x1000D1, kNeedsNothing, EditUserMenu},
    {0x10012C, kNeedsNothing, ConfigurationDialog},
    {0x10012D, kNeedsNothing, ColoursCommand},
    {0x10012E, kNeedsNothing, ToggleHidden},
    {0x10012F, kNeedsNothing, TogglePathPrompt},
    {0x100131, kNeedsNothing, ToggleFullScreen},
    {0x100132, kNeedsNothing, ToggleClock},
    {0x100133, kNeedsNothing, ToggleTagDirs},
    {0x100135, kNeedsNothing, ConfirmationsDialog},
    {0x100136, kNeedsNothing, ToggleThousandSep},
    {0x100137, kNeedsNothing, ToggleRetainCount},
};

constexpr bool EachCodeStandsOnce() {
    for (const CommandRow& a : kCommands) {
        int times = 0;
        for (const CommandRow& b : kCommands)
            times += a.code == b.code;
        if (times != 1) return false;
    }
    return true;
}
static_assert(EachCodeStandsOnce());

}  // namespace

const CommandRow* FindCommand(int32_t code) {
    for (const CommandRow& row : kCommands) {
        if (row.code == code) return &row;
    }
    return nullptr;
}

}  // namespace zt
