// The list that every other list is made of: untyped pointers and one cursor. It does not own its
// items. A walk moves the cursor, so two walks over one list must not be interleaved; At, Append,
// InsertAt and the finders move it too. Nothing locks: a shared list is guarded by its owner.
#pragma once

#include <cstdint>

namespace zt {

class ObjectList {
public:
    ObjectList();
    virtual ~ObjectList();
    ObjectList(const ObjectList&) = delete;
    ObjectList& operator=(const ObjectList&) = delete;

    int Count() const { return count; }
    int Capacity() const { return capacity; }
    int CurrentIndex() const { return current; }  // may be out of range

    void Append(void* item);  // the cursor goes to the new item
    // The cursor goes to `index`, held within 0 and the count, and stays on the new item.
    void InsertAt(void* item, int index);
    void InsertAtCurrent(void* item);

    // Each gives the item that the cursor has come to, or null when it has left the list.
    void* First();
    void* Next();
    void* Prev();
    void* Last();
    void* Current() const { return Peek(current); }

    void* At(int index);  // sets the cursor, even out of range; then null
    void* Peek(int index) const { return index >= 0 && index < count ? items[index] : nullptr; }

    // Take the item out without freeing it and leave the cursor: after RemoveCurrent, Current()
    // is the item that followed. Null when out of range.
    void* RemoveCurrent() { return RemoveAt(current); }
    void* RemoveAt(int index);
    // Takes out n items, or as many as there are from `index` on; gives how many. Frees nothing.
    int RemoveRange(int index, int n);
    void Forget() { count = 0; }  // empties the list and frees nothing

protected:
    int32_t current;
    int32_t count;
    void** items;
    int32_t capacity;

private:
    void Grow();
};

}  // namespace zt
