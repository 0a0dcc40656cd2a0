#include "foundation/object_store.h"

namespace zt {

// The items are gone by now: the most derived class has freed them while its FreeItem stood.
ObjectStore::~ObjectStore() = default;

void ObjectStore::DeleteCurrent() {
    if (current < 0 || current >= count) return;
    FreeItem(items[current]);
    RemoveCurrent();
}

void ObjectStore::Clear() {
    for (current = 0; current < count; current++)
        FreeItem(items[current]);
    count = 0;
}

}  // namespace zt
