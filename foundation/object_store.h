// Lists that own their items: ObjectStore, and its typed forms. Owner and thread as ObjectList.
//
// A class that overrides FreeItem must call Clear (or Forget, when a pool holds its items) in its
// own destructor: by the time that of TObjectStore runs, the override is gone.
#pragma once

#include "foundation/list_facade.h"
#include "foundation/object_list.h"

namespace zt {

class ObjectStore : public ObjectList {
public:
    ~ObjectStore() override;
    void DeleteCurrent();  // frees and removes the item under the cursor, if there is one
    void Clear();          // frees all items in order; the cursor ends at the old count

protected:
    virtual void FreeItem(void* item) = 0;
};

template <class T>
class TObjectStoreAbstract : public ListFacade<T, ObjectStore> {
public:
    using ObjectStore::Clear;
    using ObjectStore::DeleteCurrent;

protected:
    virtual void FreeItem(T* item) = 0;
    void FreeItem(void* item) final { FreeItem(static_cast<T*>(item)); }
};

template <class T>
class TObjectStore : public TObjectStoreAbstract<T> {
public:
    ~TObjectStore() override { this->Clear(); }

protected:
    using TObjectStoreAbstract<T>::FreeItem;
    void FreeItem(T* item) override { delete item; }
};

}  // namespace zt
