// The variables of the whole program, and the values they start with.
#include "console/program_state.h"

namespace zt {

IConsole* console = nullptr;

int screenLines = 0;
int screenColumns = 0;
int panelRows = 0;

std::atomic<int> modifiersLive{0};
int modifiersSeen = 0;
int modifiersDrawn = 0;

std::atomic<int> abortState{kAbortIdle};

bool quitSeen = false;

}  // namespace zt
