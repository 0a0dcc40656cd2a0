// A set of environment variables that can lean on another one: what it does not hold itself is
// looked up there. Names compare without regard to case. First thread only.
#pragma once

#include "foundation/string_lists.h"

namespace zt {

class Environment : public KeyedValueSet {
public:
    // `parentSet` is asked for what is not here; it may be null and must outlive this set.
    explicit Environment(Environment* parentSet = nullptr) : parent(parentSet) {}

    // Zero-ended, owned by the set that holds it and gone at its next change; null when unknown.
    const char* Get(const char* name);
    // Adds or replaces. A null value takes the variable out of this set alone, so that one of the
    // parent shows again.
    void Set(const char* name, const char* value);
    // Adds everything that can be seen from here: what an inner set holds replaces the outer one.
    void Flatten(Environment& target);

    Environment* parent;
};

}  // namespace zt
