// The typed face that the template lists share: the operations of ObjectList with T* in place of
// untyped pointers. The untyped base is hidden from users, so that no item of another type gets in.
// It adds no state; see object_list.h for what the operations do.
#pragma once

#include "foundation/object_list.h"

namespace zt {

template <class T, class Base>
class ListFacade : protected Base {
public:
    using Base::Capacity;
    using Base::Count;
    using Base::CurrentIndex;
    using Base::Forget;
    using Base::RemoveRange;

    void Append(T* item) { Base::Append(item); }
    void InsertAt(T* item, int index) { Base::InsertAt(item, index); }
    void InsertAtCurrent(T* item) { Base::InsertAtCurrent(item); }
    T* First() { return static_cast<T*>(Base::First()); }
    T* Next() { return static_cast<T*>(Base::Next()); }
    T* Prev() { return static_cast<T*>(Base::Prev()); }
    T* Last() { return static_cast<T*>(Base::Last()); }
    T* Current() const { return static_cast<T*>(Base::Current()); }
    T* At(int index) { return static_cast<T*>(Base::At(index)); }
    T* Peek(int index) const { return static_cast<T*>(Base::Peek(index)); }
    T* RemoveCurrent() { return static_cast<T*>(Base::RemoveCurrent()); }
    T* RemoveAt(int index) { return static_cast<T*>(Base::RemoveAt(index)); }
};

template <class T>
class TObjectList : public ListFacade<T, ObjectList> {};

}  // namespace zt
