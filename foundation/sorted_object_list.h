// A list kept in the order of its items' keys. It does not own its items. Owner and thread as
// ObjectList.
#pragma once

#include "foundation/list_facade.h"
#include "foundation/object_list.h"

namespace zt {

class SortedObjectList : public ObjectList {
public:
    bool duplicatesAllowed = false;
    bool bulkMode = false;  // Insert only appends; Sort puts the list in order at the end

    // Binary search: 0 when found (any of several equal keys), -1 when not. `index` is where the
    // key is, or where it would go.
    int Search(const void* key, int& index);
    // False when an equal key is there and duplicates are not allowed: the caller keeps the item.
    [[nodiscard]] bool Insert(void* item);
    void* Find(const void* key);            // the match or null; the cursor moves on a hit only
    void* FindNotLess(const void* key);     // the match or the next above; null past the end
    void* FindNotGreater(const void* key);  // the match or the next below; null below the start
    void Sort();                            // not stable

protected:
    virtual const void* KeyOf(void* item) = 0;
    virtual int Compare(const void* keyA, const void* keyB) = 0;  // negative, 0 or positive

private:
    struct KeyedItem {
        const void* key;
        void* item;
    };
    void SortRange(KeyedItem* keyed, int low, int high);
    int Partition(KeyedItem* keyed, int low, int high);
};

// The typed operations on keys that the two sorted templates share.
template <class T, class K, class Base>
class SortedFacade : public ListFacade<T, Base> {
public:
    using Base::bulkMode;
    using Base::duplicatesAllowed;
    using Base::Sort;

    int Search(const K* key, int& index) { return Base::Search(key, index); }
    [[nodiscard]] bool Insert(T* item) { return Base::Insert(item); }
    T* Find(const K* key) { return static_cast<T*>(Base::Find(key)); }
    T* FindNotLess(const K* key) { return static_cast<T*>(Base::FindNotLess(key)); }
    T* FindNotGreater(const K* key) { return static_cast<T*>(Base::FindNotGreater(key)); }

protected:
    virtual const K* KeyOf(T* item) = 0;
    virtual int Compare(const K* keyA, const K* keyB) = 0;
    const void* KeyOf(void* item) final { return KeyOf(static_cast<T*>(item)); }
    int Compare(const void* keyA, const void* keyB) final {
        return Compare(static_cast<const K*>(keyA), static_cast<const K*>(keyB));
    }
};

template <class T, class K>
class TSortedObjectList : public SortedFacade<T, K, SortedObjectList> {};

}  // namespace zt
