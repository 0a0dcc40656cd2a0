#include "foundation/environment.h"

namespace zt {

const char* Environment::Get(const char* name) {
    if (const KeyedValue* found = FindText(name)) return found->value.c_str();
    return parent ? parent->Get(name) : nullptr;
}

void Environment::Set(const char* name, const char* value) {
    if (KeyedValue* found = FindText(name)) {
        if (value) {
            found->value = Estring(value);
        } else {
            DeleteCurrent();
        }
    } else if (value) {
        AddCopy(name, value);
    }
}

void Environment::Flatten(Environment& target) {
    if (parent) parent->Flatten(target);
    for (KeyedValue* item = First(); item; item = Next()) {
        target.Set(item->key.c_str(), item->value.c_str());
    }
}

}  // namespace zt
