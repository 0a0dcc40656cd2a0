// The key symbols and modifier masks of the X Window System that the key table speaks of, by the
// numbers published in "X Window System Protocol", appendix A. A printable Latin-1 character is
// its own symbol.
#pragma once

#include <cstdint>

namespace zt::keysym {

inline constexpr uint32_t kIsoLeftTab = 0xFE20;
inline constexpr uint32_t kBackSpace = 0xFF08;
inline constexpr uint32_t kTab = 0xFF09;
inline constexpr uint32_t kReturn = 0xFF0D;
inline constexpr uint32_t kEscape = 0xFF1B;
inline constexpr uint32_t kHome = 0xFF50;
inline constexpr uint32_t kLeft = 0xFF51;
inline constexpr uint32_t kUp = 0xFF52;
inline constexpr uint32_t kRight = 0xFF53;
inline constexpr uint32_t kDown = 0xFF54;
inline constexpr uint32_t kPageUp = 0xFF55;
inline constexpr uint32_t kPageDown = 0xFF56;
inline constexpr uint32_t kEnd = 0xFF57;
inline constexpr uint32_t kInsert = 0xFF63;
inline constexpr uint32_t kBreak = 0xFF6B;
inline constexpr uint32_t kKpEnter = 0xFF8D;
inline constexpr uint32_t kKpHome = 0xFF95;
inline constexpr uint32_t kKpLeft = 0xFF96;
inline constexpr uint32_t kKpUp = 0xFF97;
inline constexpr uint32_t kKpRight = 0xFF98;
inline constexpr uint32_t kKpDown = 0xFF99;
inline constexpr uint32_t kKpPageUp = 0xFF9A;
inline constexpr uint32_t kKpPageDown = 0xFF9B;
inline constexpr uint32_t kKpEnd = 0xFF9C;
inline constexpr uint32_t kKpBegin = 0xFF9D;  // the 5 of the keypad with Num Lock off
inline constexpr uint32_t kKpInsert = 0xFF9E;
inline constexpr uint32_t kKpDelete = 0xFF9F;
inline constexpr uint32_t kKpMultiply = 0xFFAA;
inline constexpr uint32_t kKpAdd = 0xFFAB;
inline constexpr uint32_t kKpSubtract = 0xFFAD;
inline constexpr uint32_t kKpDecimal = 0xFFAE;
inline constexpr uint32_t kKp0 = 0xFFB0;  // 1 to 9 follow
inline constexpr uint32_t kF1 = 0xFFBE;   // F2 to F12 follow
inline constexpr uint32_t kShiftL = 0xFFE1;
inline constexpr uint32_t kShiftR = 0xFFE2;
inline constexpr uint32_t kControlL = 0xFFE3;
inline constexpr uint32_t kControlR = 0xFFE4;
inline constexpr uint32_t kAltL = 0xFFE9;
inline constexpr uint32_t kAltR = 0xFFEA;
inline constexpr uint32_t kDelete = 0xFFFF;

// Bits of the modifier state.
inline constexpr uint32_t kShiftMask = 1;
inline constexpr uint32_t kControlMask = 4;
inline constexpr uint32_t kMod1Mask = 8;   // Alt
inline constexpr uint32_t kMod2Mask = 16;  // Num Lock on common set-ups

}  // namespace zt::keysym
