// What reading and writing the configuration needs of the rest of the program. The program
// implements it over its screen and panels; a test over a list of messages. First thread only.
#pragma once

#include "foundation/westring.h"

namespace zt {

class IConfigurationHost {
public:
    virtual ~IConfigurationHost() = default;

    // A box with one button; `name` stands on a line of its own and may be null.
    virtual void ShowMessage(const Westring& message, const wchar_t* name) = 0;

    // Whether the mask of a rule is a filter expression; otherwise `error` says why not.
    virtual bool CheckRule(const Westring& mask, Westring& error) {
        static_cast<void>(mask), static_cast<void>(error);
        return true;
    }
    // Replaces the environment variables in the text by their values.
    virtual void ExpandVariables(Westring& text) { static_cast<void>(text); }
    // After reading, when the console's size or font is set otherwise than it was.
    virtual void ScreenSettingsChanged() {}
    // Before writing: the rows that the screen has, 0 when there is none.
    virtual int ScreenRows() { return 0; }
    // Before writing: brings what the panels show now into the settings.
    virtual void CopyPanelState() {}
};

}  // namespace zt
