// What counts as part of a word when the cursor of an input field moves by words. Any thread.
#pragma once

namespace zt {

// Letters, digits and the low line. Coarse above the alphabets: whole blocks of scripts count.
bool IsFieldWordChar(wchar_t character);

}  // namespace zt
