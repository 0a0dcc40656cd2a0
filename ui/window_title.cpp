#include "ui/window_title.h"

#include "console/program_state.h"

namespace zt {

void SetWindowTitle(const wchar_t* text) {
    console->SetTitle(text ? Westring("Zanthe: ") + text : Westring("Zanthe V2.50-dev"));
}

}  // namespace zt
