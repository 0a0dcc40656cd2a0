// The date dialog, and the walk over the entries.
#include "fileops/change_date_command.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

#include "fileops/change_date_form.h"
#include "fileops/command_targets.h"
#include "foundation/file_name.h"
#include "foundation/locale_formats.h"
#include "foundation/result_codes.h"
#include "foundation/settings.h"
#include "panels/panel.h"
#include "panels/panel_window.h"
#include "ui/dialog.h"
#include "ui/file_error_box.h"
#include "ui/message_box.h"

namespace zt {

namespace {

constexpr int kCaptionWidth = 26;
constexpr int kDateColumns[3] = {6, 12, 18};
constexpr int kTwelveHourColumns[3] = {3, 9, 15};
constexpr int kHalfColumn = 21;
constexpr int kNow = 'n';

// A field of the form: its label, where its value is, its width.
struct FieldRow {
    const char* label;
    int32_t DateForm::*value;
    int width;
};
constexpr FieldRow kMonth = {"Mon", &DateForm::month, 2};
constexpr FieldRow kDay = {"Day", &DateForm::day, 2};
constexpr FieldRow kYear = {"Year", &DateForm::year, 4};

// By DateOrder.
constexpr FieldRow kDateFields[3][3] = {
    {kMonth, kDay, kYear}, {kDay, kMonth, kYear}, {kYear, kMonth, kDay}};
constexpr FieldRow kTimeFields[3] = {
    {"Hour", &DateForm::hour, 2}, {"Min", &DateForm::minute, 2}, {"Sec", &DateForm::second, 2}};

class CDateDialog : public Dialog {
public:
    CDateDialog(const Westring& caption, DateForm& form, bool twelveHours);
    // True when `time` is what the user wants; false for Esc.
    bool Ask(TTime& time);

private:
    void AddFields(const FieldRow (&fields)[3], const int (&columns)[3], int labelRow);

    DateForm& form;
    const bool twelveHours;
};

CDateDialog::CDateDialog(const Westring& caption, DateForm& form_, bool twelveHours_)
    : Dialog(-1, -3, 33, 12, Colour(ColourClass::kMessages)),
      form(form_),
      twelveHours(twelveHours_) {
    PrintCentred(0, "Change date of");
    PrintCentred(1, caption);
    AddFields(kDateFields[localeFormats.dateOrder], kDateColumns, 3);
    AddFields(kTimeFields, twelveHours ? kTwelveHourColumns : kDateColumns, 6);
    if (twelveHours) {
        AddRadio(kHalfColumn, 6, true, form.half, kForenoon, " AM");
        AddRadio(kHalfColumn, 7, false, form.half, kAfternoon, " PM");
    }
    AddButton(2, 9, true, kExitEnter, "_OK");
    AddButton(10, 9, false, kExitEscape, "Cancel");
    AddButton(22, 9, false, kNow, "Now");
}

void CDateDialog::AddFields(const FieldRow (&fields)[3], const int (&columns)[3], int labelRow) {
    for (int i = 0; i < 3; ++i) {
        Print(columns[i], labelRow, fields[i].label);
        AddInteger(columns[i], labelRow + 1, true, form.*fields[i].value, fields[i].width, false,
                   kNoHistory);
    }
}

bool CDateDialog::Ask(TTime& time) {
    for (;;) {
        SetExitCode(0);
        const int code = Run();
        if (code == kExitEscape) return false;
        if (code == kNow) {
            form = DateFormOf(NowTime(), twelveHours);
            Redraw(-1);
        } else if (ComposeTime(form, twelveHours, time)) {
            return true;
        } else {
            MessageBox("Invalid date", nullptr, kBoxOk);
        }
    }
}

// False when the user wants no more.
bool SetWithRetry(const Westring& path, const TTime& time) {
    for (;;) {
        int code = SetModificationTime(path, time);
        if (code == 0) return true;
        bool stop = false;
        FileErrorBox(code, stop, path.c_str());
        if (stop) return code != kCancelled;
    }
}

}  // namespace

int SetModificationTime(const Westring& path, const TTime& time) {
    const timespec times[2] = {{0, UTIME_OMIT}, {time.seconds, time.nanoseconds}};
    const Estring bytes = NameToBytes(path);
    return utimensat(AT_FDCWD, bytes.c_str(), times, AT_SYMLINK_NOFOLLOW) == 0 ? 0 : errno;
}

void ChangeDateCommand(CPanel& panel) {
    const CommandTargets targets(panel);
    if (targets.IsEmpty()) return;
    const bool twelveHours = settings.timeMode != 24;
    DateForm form = DateFormOf(targets.IsGroup() ? NowTime() : targets.At(0).time, twelveHours);
    TTime time;
    if (!CDateDialog(targets.Caption(kCaptionWidth), form, twelveHours).Ask(time)) return;
    for (int i = 0; i < targets.Count(); ++i) {
        if (!SetWithRetry(targets.PathAt(i), time)) break;
    }
    RereadBoth(*panel.pair);
}

}  // namespace zt
