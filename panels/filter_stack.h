// The stack of truth values on which a filter expression is computed. A view of its owner's cells;
// values past the last cell are counted but not kept, and count as false.
#pragma once

#include <cstdint>

#include "panels/filter_expression.h"

namespace zt {

inline constexpr const wchar_t* kFilterStackFull = L"Expression too complex";

class FilterStack {
public:
    // `top` is the index of the top value, -1 for an empty stack.
    FilterStack(int32_t (&cells)[kFilterStackCells], int32_t& top) : cells_(cells), top_(top) {}

    // False when there is no cell left for the value.
    [[nodiscard]] bool Push(bool value) {
        ++top_;
        Set(value);
        return top_ < kFilterStackCells;
    }
    void Not() { Set(!Get(top_)); }
    void And() {
        --top_;
        Set(Get(top_) & Get(top_ + 1));
    }
    void Or() {
        --top_;
        Set(Get(top_) | Get(top_ + 1));
    }
    int32_t Top() const { return Get(top_); }

private:
    int32_t Get(int32_t index) const { return index < kFilterStackCells ? cells_[index] : 0; }
    void Set(int32_t value) {
        if (top_ < kFilterStackCells) cells_[top_] = value;
    }

    int32_t (&cells_)[kFilterStackCells];
    int32_t& top_;
};

}  // namespace zt
