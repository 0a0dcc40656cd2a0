// The field histories of this run.
#include "ui/field_history.h"

#include <wchar.h>

#include <array>

namespace zt {

namespace {

std::array<WestringStore, kFieldHistoryCount> histories;
FieldHistoryKeeper keeperInUse = nullptr;

}  // namespace

WestringStore& FieldHistory(int number) {
    const bool valid = number >= 0 && number < kFieldHistoryCount;
    return histories[static_cast<size_t>(valid ? number : 0)];
}

void AppendFieldHistory(const Westring& text, int number) {
    if (number < 0 || number >= kFieldHistoryCount) return;
    WestringStore& history = FieldHistory(number);
    for (int i = history.Count() - 1; i >= 0; --i) {
        if (*history.At(i) == text) history.DeleteCurrent();
    }
    history.Append(new Westring(text));
}

void SetFieldHistoryKeeper(FieldHistoryKeeper keeper) {
    keeperInUse = keeper;
}

void RememberFieldText(const Westring& text, int number) {
    if (keeperInUse) {
        keeperInUse(text, number);
    } else {
        AppendFieldHistory(text, number);
    }
}

}  // namespace zt
