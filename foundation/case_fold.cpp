#include "foundation/case_fold.h"

namespace zt {

namespace {

struct CaseRow {
    uint16_t code;  // within its plane; 0 ends a table
    uint16_t lower;
    uint16_t upper;
};

#include "foundation/case_table.inc"

constexpr uint32_t kFirstPlane = 0x10000;
constexpr uint32_t kPlaneBits = 0xF0000;

}  // namespace

CUnicodeCaseFold::CUnicodeCaseFold() {
    for (const CaseRow* row = kBasicPlaneRows; row->code != 0; row++) {
        Apply(row->code, row->lower, row->upper);
    }
    for (const CaseRow* row = kFirstPlaneRows; row->code != 0; row++) {
        Apply(kFirstPlane + row->code, row->lower, row->upper);
    }
}

const CUnicodeCaseFold& CUnicodeCaseFold::Instance() {
    static const CUnicodeCaseFold instance;
    return instance;
}

void CUnicodeCaseFold::Apply(uint32_t code, uint32_t lower, uint32_t upper) {
    std::unique_ptr<Page>& page = pages[code >> 8];
    if (page == nullptr) {
        page = std::make_unique<Page>();
        for (uint32_t i = 0; i < 256; i++) {
            page->lower[i] = page->upper[i] = static_cast<uint16_t>((code & 0xFF00) | i);
        }
    }
    if (lower != 0) page->lower[code & 0xFF] = static_cast<uint16_t>(lower);
    if (upper != 0) page->upper[code & 0xFF] = static_cast<uint16_t>(upper);
}

const CUnicodeCaseFold::Page* CUnicodeCaseFold::PageOf(wchar_t code) const {
    uint32_t page = static_cast<uint32_t>(code) >> 8;
    return page < kPageCount ? pages[page].get() : nullptr;
}

wchar_t CUnicodeCaseFold::ToLower(wchar_t code) const {
    const Page* page = PageOf(code);
    if (page == nullptr) return code;
    auto bits = static_cast<uint32_t>(code);
    return static_cast<wchar_t>((bits & kPlaneBits) | page->lower[bits & 0xFF]);
}

wchar_t CUnicodeCaseFold::ToUpper(wchar_t code) const {
    const Page* page = PageOf(code);
    if (page == nullptr) return code;
    auto bits = static_cast<uint32_t>(code);
    return static_cast<wchar_t>((bits & kPlaneBits) | page->upper[bits & 0xFF]);
}

}  // namespace zt
