#include "foundation/sorted_collection.h"

namespace zt {

// The items are gone by now: the most derived class has freed them while its FreeItem stood.
SortedCollection::~SortedCollection() = default;

void SortedCollection::DeleteCurrent() {
    if (current < 0 || current >= count) return;
    FreeItem(items[current]);
    RemoveCurrent();
}

void SortedCollection::Clear() {
    for (current = 0; current < count; current++)
        FreeItem(items[current]);
    count = 0;
}

}  // namespace zt
