#include "foundation/object_list.h"

#include <cstring>

#include <algorithm>
#include <limits>

namespace zt {

namespace {

constexpr int kInitialCapacity = 10;

size_t PointerBytes(int n) {
    return static_cast<size_t>(n) * sizeof(void*);
}

}  // namespace

ObjectList::ObjectList()
    : current(0), count(0), items(new void*[kInitialCapacity]), capacity(kInitialCapacity) {}

ObjectList::~ObjectList() {
    delete[] items;
}

void ObjectList::Grow() {
    if (count < capacity) return;
    int64_t wanted = static_cast<int64_t>(capacity) * 13 / 10;
    auto grown =
        static_cast<int32_t>(std::min<int64_t>(wanted, std::numeric_limits<int32_t>::max()));
    void** bigger = new void*[static_cast<size_t>(grown)];
    std::memcpy(bigger, items, PointerBytes(count));
    delete[] items;
    items = bigger;
    capacity = grown;
}

void ObjectList::Append(void* item) {
    Grow();
    current = count;
    items[count++] = item;
}

void ObjectList::InsertAt(void* item, int index) {
    current = index;
    InsertAtCurrent(item);
}

void ObjectList::InsertAtCurrent(void* item) {
    Grow();
    current = std::clamp(current, 0, count);
    std::memmove(items + current + 1, items + current, PointerBytes(count - current));
    items[current] = item;
    count++;
}

void* ObjectList::First() {
    current = -1;
    return Next();
}

void* ObjectList::Next() {
    if (current < std::numeric_limits<int32_t>::max()) current++;
    return Current();
}

void* ObjectList::Prev() {
    if (current > std::numeric_limits<int32_t>::min()) current--;
    return Current();
}

void* ObjectList::Last() {
    current = count - 1;
    return Current();
}

void* ObjectList::At(int index) {
    current = index;
    return Current();
}

void* ObjectList::RemoveAt(int index) {
    void* item = Peek(index);
    RemoveRange(index, 1);
    return item;
}

int ObjectList::RemoveRange(int index, int n) {
    if (index < 0 || index >= count || n <= 0) return 0;
    n = std::min(n, count - index);
    int behind = count - index - n;
    std::memmove(items + index, items + index + n, PointerBytes(behind));
    count -= n;
    return n;
}

}  // namespace zt
