// The remembered positions, by path.
#include "panels/position_stack.h"

#include <cwchar>
#include <memory>

namespace zt {

int CPosStack::Compare(const Westring* a, const Westring* b) {
    return wcscmp(a->c_str(), b->c_str());
}

void CPosStack::Store(const Westring& path, int top, const Westring& name) {
    TPanelPosition* known = Find(&path);
    if (known) {
        known->top = top;
        known->name = name;
        return;
    }
    auto position = std::make_unique<TPanelPosition>(TPanelPosition{path, top, name});
    if (Insert(position.get())) position.release();
}

const TPanelPosition* CPosStack::Lookup(const Westring& path) {
    return Find(&path);
}

}  // namespace zt
