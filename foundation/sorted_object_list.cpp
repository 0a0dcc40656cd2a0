#include "foundation/sorted_object_list.h"

#include <memory>
#include <utility>

namespace zt {

int SortedObjectList::Search(const void* key, int& index) {
    int low = 0;
    int high = count - 1;
    while (low <= high) {
        int middle = low + (high - low) / 2;
        int relation = Compare(KeyOf(items[middle]), key);
        if (relation == 0) {
            index = middle;
            return 0;
        }
        if (relation < 0) {
            low = middle + 1;
        } else {
            high = middle - 1;
        }
    }
    index = low;
    return -1;
}

bool SortedObjectList::Insert(void* item) {
    if (bulkMode) {
        Append(item);
        return true;
    }
    int index = 0;
    if (Search(KeyOf(item), index) == 0 && !duplicatesAllowed) return false;
    InsertAt(item, index);
    return true;
}

void* SortedObjectList::Find(const void* key) {
    int index = 0;
    return Search(key, index) == 0 ? At(index) : nullptr;
}

void* SortedObjectList::FindNotLess(const void* key) {
    int index = 0;
    Search(key, index);
    return index < count ? At(index) : nullptr;
}

void* SortedObjectList::FindNotGreater(const void* key) {
    int index = 0;
    if (Search(key, index) != 0) index--;
    return index >= 0 ? At(index) : nullptr;
}

// Each key is asked for once: in a long list, most of the time of a comparison is the way to it.
void SortedObjectList::Sort() {
    auto block = std::make_unique<KeyedItem[]>(static_cast<size_t>(count));
    KeyedItem* keyed = block.get();
    for (int i = 0; i < count; i++)
        keyed[i] = {KeyOf(items[i]), items[i]};
    SortRange(keyed, 0, count - 1);
    for (int i = 0; i < count; i++)
        items[i] = keyed[i].item;
}

// The smaller side is sorted by a call and the larger one in the loop, so that the depth of calls
// stays below 32 whatever the order of the items; the sides do not touch each other.
void SortedObjectList::SortRange(KeyedItem* keyed, int low, int high) {
    while (low < high) {
        if (low + 1 == high) {
            if (Compare(keyed[low].key, keyed[high].key) > 0) std::swap(keyed[low], keyed[high]);
            return;
        }
        int middle = Partition(keyed, low, high);
        if (middle - low < high - middle) {
            SortRange(keyed, low, middle - 1);
            low = middle + 1;
        } else {
            SortRange(keyed, middle + 1, high);
            high = middle - 1;
        }
    }
}

// Puts the middle item into its place within low..high, with no greater one before it and no
// smaller one behind it, and gives that place. Items that are out of order among equals end where
// exactly this sequence of swaps leaves them.
int SortedObjectList::Partition(KeyedItem* keyed, int low, int high) {
    std::swap(keyed[low], keyed[low + (high - low) / 2]);
    const KeyedItem pivot = keyed[low];
    int i = low + 1;
    int j = high;
    bool leftStops = false;
    bool rightStops = false;
    while (j >= i) {
        if (!leftStops) {
            leftStops = Compare(keyed[i].key, pivot.key) >= 0;
            if (!leftStops) i++;
        }
        if (!rightStops) {
            rightStops = Compare(keyed[j].key, pivot.key) <= 0;
            if (!rightStops) j--;
        }
        if (leftStops && rightStops) {
            std::swap(keyed[i++], keyed[j--]);
            leftStops = rightStops = false;
        }
    }
    keyed[low] = keyed[i - 1];
    keyed[i - 1] = pivot;
    return i - 1;
}

}  // namespace zt
