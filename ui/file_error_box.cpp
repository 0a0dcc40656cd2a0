// Texts and answer sets of file errors.
#include "ui/file_error_box.h"

#include <cerrno>

#include "foundation/result_codes.h"
#include "ui/dialog.h"
#include "ui/message_box.h"

namespace zt {

namespace {

struct ErrorRow {
    int code;
    const char* text;
    int answers;
    bool showsSecondName;
};

constexpr ErrorRow kErrors[] = {
    {ENOENT, "File not found", kBoxOkCancel, false},
    {EIO, "Error reading disk", kBoxRetrySkipCancel, false},
    {EACCES, "Access Denied", kBoxRetrySkipCancel, false},
    {ENOTDIR, "Path not found", kBoxOkCancel, true},
    {ENOSPC, "No room for", kBoxRetrySkipCancel, false},
    {EROFS, "Disk write protected, cannot write", kBoxRetrySkipCancel, false},
    {ENAMETOOLONG, "Name too long", kBoxOkCancel, true},
    {kDriveNotReady, "Drive not ready", kBoxRetrySkipCancel, false},
};

int Ask(int code, const wchar_t* name, const wchar_t* secondName) {
    for (const ErrorRow& row : kErrors) {
        if (row.code != code) continue;
        const wchar_t* shown = row.showsSecondName && secondName ? secondName : name;
        return MessageBox(row.text, shown, row.answers);
    }
    const Westring text = Estring::ErrorText(code) + Estring::Format(" (%d)", code);
    return MessageBox(text, name, kBoxRetrySkipCancel);
}

}  // namespace

void FileErrorBox(int& code, bool& stop, const wchar_t* name, const wchar_t* secondName) {
    const int answer = Ask(code, name, secondName);
    if (answer == kExitEscape) code = kCancelled;
    stop = answer != 'r';
}

}  // namespace zt
