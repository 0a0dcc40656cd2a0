// A list of texts in which some keys of its dialog's own end the dialog with themselves. Owned by
// that dialog; first thread only.
#pragma once

#include <algorithm>
#include <span>

#include "ui/dialog.h"
#include "ui/list_box.h"

namespace zt {

class KeyedList : public ListBoxWestring {
public:
    // `chosen` is the index of the text under the cursor; `exitKeys` are borrowed.
    KeyedList(int left, int columns, int rows, WestringStore& texts, int32_t& chosen,
              std::span<const int32_t> exitKeys)
        : ListBoxWestring(left, 0, columns, rows, &texts, texts.Count(), &chosen, kExitEnter),
          keys_(exitKeys) {}

protected:
    bool HandleOwnKey(int key) override {
        if (std::find(keys_.begin(), keys_.end(), key) == keys_.end()) return false;
        dialog->SetExitCode(key);
        return true;
    }

private:
    std::span<const int32_t> keys_;
};

}  // namespace zt
