// The person at the screen, as the work on files sees him: asked when a decision is his, able to
// stop the work. The program's own answers through boxes (screen_user.h); a test answers by itself.
// First thread only.
#pragma once

#include "foundation/westring.h"
#include "ui/pausable_painter.h"

namespace zt {

inline constexpr int kAnswerEscape = 27;

class IOperationUser {
public:
    virtual ~IOperationUser() = default;

    // As MessageBox of ui/message_box.h: the answer is its letter, kAnswerEscape, or a blank. The
    // painter, when there is one, is stopped first.
    virtual int Ask(IPausablePainter* painter, const Westring& message, const Westring& name,
                    int type) = 0;
    // As FileErrorBox of ui/file_error_box.h; `secondName` may be empty.
    virtual void TellError(IPausablePainter* painter, int& code, bool& stop, const Westring& name,
                           const Westring& secondName) = 0;
    // Takes what has been typed off the keyboard's queue, without waiting; true for Esc.
    virtual bool EscapePressed() = 0;

    // The question before a directory that is not empty is deleted: 'y', 'a' for this and all
    // further ones, anything else no.
    virtual int AskDeleteTree(const Westring& directory) = 0;
    // The window of running deletions: brings it up, or shows another path in it; takes it down.
    virtual void ShowDeleting(const Westring& path) = 0;
    virtual void HideDeleting() = 0;
};

}  // namespace zt
