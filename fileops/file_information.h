// The box that shows what the system knows of one file. First thread only.
#pragma once

#include "fileops/file_information_items.h"
#include "ui/dialog.h"

namespace zt {

class CFileInfoDlg : public Dialog {
public:
    // `items` are in the order of the screen and are copied.
    CFileInfoDlg(const Westring& path, const CFileInfoItems& items);

private:
    int labelWidth;  // of the widest label
};

// Shows the box until Enter or Esc. A path of which the system knows nothing ends it silently.
void FileInfoCommand(const Westring& path);

}  // namespace zt
