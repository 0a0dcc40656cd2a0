// The box that tells the user of a failure or asks what to do. First thread only; modal.
#pragma once

#include "foundation/westring.h"

namespace zt {

// Answer sets of MessageBox, in the low four bits of its type.
inline constexpr int kBoxOk = 0;
inline constexpr int kBoxOkCancel = 1;
inline constexpr int kBoxOkCancelSkipAllNone = 2;
inline constexpr int kBoxRetrySkipCancel = 3;
inline constexpr int kBoxOkCancelSkipAllNoneAllOlder = 4;
// Added to an answer set: a plain notice in the dialog colour, not an alert.
inline constexpr int kBoxNotice = 16;

// Shows the box and gives the answer: a letter ('y', 's', 'a', 'e', 'd', 'r'), 27 for Esc, or a
// blank. `name` stands on a line of its own and may be null.
int MessageBox(const Westring& message, const wchar_t* name, int type);

// Stops the painter first, when there is one.
class IPausablePainter;
int MessageBoxWithProgress(IPausablePainter* progress, const Westring& message, const wchar_t* name,
                           int type);

}  // namespace zt
