// A sorted list that owns its items, and its typed form. Owner and thread as ObjectList.
//
// A class that overrides FreeItem must call Clear (or Forget, when a pool holds its items) in its
// own destructor: by the time that of TSortedCollection runs, the override is gone.
#pragma once

#include "foundation/sorted_object_list.h"

namespace zt {

class SortedCollection : public SortedObjectList {
public:
    ~SortedCollection() override;
    void DeleteCurrent();  // frees and removes the item under the cursor, if there is one
    void Clear();          // frees all items in order; the cursor ends at the old count

protected:
    virtual void FreeItem(void* item) = 0;
};

template <class T, class K>
class TSortedCollection : public SortedFacade<T, K, SortedCollection> {
public:
    ~TSortedCollection() override { this->Clear(); }
    using SortedCollection::Clear;
    using SortedCollection::DeleteCurrent;

protected:
    void FreeItem(void* item) override { delete static_cast<T*>(item); }
};

}  // namespace zt
