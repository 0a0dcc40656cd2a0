#include "foundation/sorted_object_list.h"

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

void SortedObjectList::Sort() {
    SortRange(0, count - 1);
}

// The smaller side is sorted by a call and the larger one in the loop, so that the depth of calls
// stays below 32 whatever the order of the items; the sides do not touch each other.
void SortedObjectList::SortRange(int low, int high) {
    while (low < high) {
        if (low + 1 == high) {
            if (Compare(KeyOf(items[low]), KeyOf(items[high])) > 0) {
                std::swap(items[low], items[high]);
            }
            return;
        }
        int middle = Partition(low, high);
        if (middle - low < high - middle) {
            SortRange(low, middle - 1);
            low = middle + 1;
        } else {
            SortRange(middle + 1, high);
            high = middle - 1;
        }
    }
}

// Puts the middle item into its place within low..high, with no greater one before it and no
// smaller one behind it, and gives that place. Items that are out of order among equals end where
// exactly this sequence of swaps leaves them.
int SortedObjectList::Partition(int low, int high) {
    std::swap(items[low], items[low + (high - low) / 2]);
    void* pivot = items[low];
    const void* pivotKey = KeyOf(pivot);
    int i = low + 1;
    int j = high;
    bool leftStops = false;
    bool rightStops = false;
    while (j >= i) {
        if (!leftStops) {
            leftStops = Compare(KeyOf(items[i]), pivotKey) >= 0;
            if (!leftStops) i++;
        }
        if (!rightStops) {
            rightStops = Compare(KeyOf(items[j]), pivotKey) <= 0;
            if (!rightStops) j--;
        }
        if (leftStops && rightStops) {
            std::swap(items[i++], items[j--]);
            leftStops = rightStops = false;
        }
    }
    items[low] = items[i - 1];
    items[i - 1] = pivot;
    return i - 1;
}

}  // namespace zt
