// The DEC special graphics character set ("VT220 Programmer Reference Manual", table 2-4): what
// the bytes 95 to 126 show while it is active.
#pragma once

#include <cstdint>

namespace zt {

inline constexpr unsigned char kFirstGraphicsByte = '_';
inline constexpr unsigned char kLastGraphicsByte = '~';

inline constexpr uint16_t kDecGraphics[] = {
    ' ',                                     // _ blank
    0x25C6, 0x2592, 0x2409, 0x240C, 0x240D,  // ` diamond, a shade, b HT, c FF, d CR
    0x240A, 0x00B0, 0x00B1, 0x2424, 0x240B,  // e LF, f degree, g plus-minus, h NL, i VT
    0x2518, 0x2510, 0x250C, 0x2514, 0x253C,  // j k l m corners, n crossing
    0x23BA, 0x23BB, 0x2500, 0x23BC, 0x23BD,  // o p q r s scan lines 1 3 5 7 9
    0x251C, 0x2524, 0x2534, 0x252C, 0x2502,  // t u v w tees, x vertical line
    0x2264, 0x2265, 0x03C0, 0x2260, 0x00A3,  // y at most, z at least, { pi, | unequal, } pound
    0x00B7,                                  // ~ middle dot
};
static_assert(sizeof kDecGraphics / sizeof kDecGraphics[0] ==
              kLastGraphicsByte - kFirstGraphicsByte + 1);

}  // namespace zt
