#include "panels/filter_check.h"

#include "panels/filter_compiled.h"
#include "ui/message_box.h"

namespace zt {

bool CheckFilter(CompiledFilter& filter, const char* heading) {
    if (filter.EvaluateName(L"test") >= 0) return true;
    MessageBox(heading, filter.errorText.c_str(), kBoxOk);
    return false;
}

}  // namespace zt
