// The program's own case table, after Unicode's simple case mappings: it is the same in every
// locale. One instance, made at first use by whichever thread comes first and never changed after.
#pragma once

#include <cstdint>

#include <array>
#include <memory>

namespace zt {

class CUnicodeCaseFold {
public:
    static constexpr int kPageCount = 261;  // pages 0 to 0x104 of 256 codes each

    CUnicodeCaseFold();
    static const CUnicodeCaseFold& Instance();

    // A code outside the pages, or without another case, maps to itself.
    wchar_t ToLower(wchar_t code) const;
    wchar_t ToUpper(wchar_t code) const;

private:
    struct Page {
        uint16_t lower[256];
        uint16_t upper[256];
    };

    const Page* PageOf(wchar_t code) const;
    void Apply(uint32_t code, uint32_t lower, uint32_t upper);

    std::array<std::unique_ptr<Page>, kPageCount> pages;
};

inline wchar_t LowerCaseOf(wchar_t code) {
    return CUnicodeCaseFold::Instance().ToLower(code);
}
inline wchar_t UpperCaseOf(wchar_t code) {
    return CUnicodeCaseFold::Instance().ToUpper(code);
}

}  // namespace zt
