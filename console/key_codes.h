// The program's own key codes. Plain characters and control characters stand as themselves; the
// other codes keep the shape of the scan codes of old PC keyboards.
#pragma once

#include <cstdint>

namespace zt {

inline constexpr int32_t kKeyExtended = 0x10000;         // + scan code
inline constexpr int32_t kKeyCtrlShiftLetter = 0x20000;  // + Ctrl code of the letter
inline constexpr int32_t kKeyShifted = 0x30000;          // + scan code; also Ctrl-Shift, Alt-Shift
inline constexpr int32_t kKeyCtrlDigit = 0x40000;        // + digit of the keypad
inline constexpr int32_t kKeyGrey = 0x400000;            // + character of a grey key: + - *
inline constexpr int32_t kKeyCtrlShiftDigit = 0x60000;   // + digit of the keypad

// What ReadKey gives that is no key.
inline constexpr int32_t kKeyNone = 0;
inline constexpr int32_t kKeyModifiersChanged = 0x10100;
inline constexpr int32_t kKeyMouse = 0x200000;
inline constexpr int32_t kKeyQuit = 0x800001;

inline constexpr int32_t kKeyTab = 9;
inline constexpr int32_t kKeyEnter = 0xD;
inline constexpr int32_t kKeyCtrlEnter = 0xA;
inline constexpr int32_t kKeyEsc = 0x1B;
inline constexpr int32_t kKeyCtrlBackspace = 0x7F;
inline constexpr int32_t kKeyBackspace = 0x10101;
inline constexpr int32_t kKeyCtrlI = 0x10102;
inline constexpr int32_t kKeyCtrlM = 0x10103;
inline constexpr int32_t kKeyCtrlShiftM = 0x30103;

inline constexpr int32_t kKeyF1 = 0x1003B;
inline constexpr int32_t kKeyF2 = 0x1003C;
inline constexpr int32_t kKeyF3 = 0x1003D;
inline constexpr int32_t kKeyF4 = 0x1003E;
inline constexpr int32_t kKeyF5 = 0x1003F;
inline constexpr int32_t kKeyF6 = 0x10040;
inline constexpr int32_t kKeyF7 = 0x10041;
inline constexpr int32_t kKeyF8 = 0x10042;
inline constexpr int32_t kKeyF9 = 0x10043;
inline constexpr int32_t kKeyF10 = 0x10044;
inline constexpr int32_t kKeyF11 = 0x10085;
inline constexpr int32_t kKeyF12 = 0x10086;
// F1 of each group; F2 to F10 follow it.
inline constexpr int32_t kKeyShiftF1 = 0x30054;
inline constexpr int32_t kKeyCtrlF1 = 0x1005E;
inline constexpr int32_t kKeyAltF1 = 0x10068;
inline constexpr int32_t kKeyCtrlShiftF1 = 0x3005E;
inline constexpr int32_t kKeyAltShiftF1 = 0x30068;
// F11 of each group; F12 follows it.
inline constexpr int32_t kKeyShiftF11 = 0x30087;
inline constexpr int32_t kKeyCtrlF11 = 0x10089;
inline constexpr int32_t kKeyAltF11 = 0x1008B;
inline constexpr int32_t kKeyCtrlShiftF11 = 0x30089;
inline constexpr int32_t kKeyAltShiftF11 = 0x3008B;

inline constexpr int32_t kKeyHome = 0x10047;
inline constexpr int32_t kKeyUp = 0x10048;
inline constexpr int32_t kKeyPageUp = 0x10049;
inline constexpr int32_t kKeyLeft = 0x1004B;
inline constexpr int32_t kKeyRight = 0x1004D;
inline constexpr int32_t kKeyEnd = 0x1004F;
inline constexpr int32_t kKeyDown = 0x10050;
inline constexpr int32_t kKeyPageDown = 0x10051;
inline constexpr int32_t kKeyInsert = 0x10052;
inline constexpr int32_t kKeyDelete = 0x10053;

inline constexpr int32_t kKeyShiftTab = 0x3000F;
inline constexpr int32_t kKeyShiftHome = 0x30047;
inline constexpr int32_t kKeyShiftUp = 0x30048;
inline constexpr int32_t kKeyShiftPageUp = 0x30049;
inline constexpr int32_t kKeyShiftLeft = 0x3004B;
inline constexpr int32_t kKeyShiftRight = 0x3004D;
inline constexpr int32_t kKeyShiftEnd = 0x3004F;
inline constexpr int32_t kKeyShiftDown = 0x30050;
inline constexpr int32_t kKeyShiftPageDown = 0x30051;
inline constexpr int32_t kKeyShiftInsert = 0x30052;
inline constexpr int32_t kKeyShiftDelete = 0x30053;

inline constexpr int32_t kKeyCtrlLeft = 0x10073;
inline constexpr int32_t kKeyCtrlRight = 0x10074;
inline constexpr int32_t kKeyCtrlEnd = 0x10075;
inline constexpr int32_t kKeyCtrlPageDown = 0x10076;
inline constexpr int32_t kKeyCtrlHome = 0x10077;
inline constexpr int32_t kKeyCtrlPageUp = 0x10084;
inline constexpr int32_t kKeyCtrlUp = 0x1008D;
inline constexpr int32_t kKeyCtrlGreyMinus = 0x1008E;
inline constexpr int32_t kKeyCtrlGreyPlus = 0x10090;
inline constexpr int32_t kKeyCtrlDown = 0x10091;
inline constexpr int32_t kKeyCtrlInsert = 0x10092;
inline constexpr int32_t kKeyCtrlDelete = 0x10093;
inline constexpr int32_t kKeyCtrlTab = 0x10094;

inline constexpr int32_t kKeyAltBackspace = 0x1000E;
inline constexpr int32_t kKeyAltEnter = 0x1001C;
inline constexpr int32_t kKeyAltGreyMinus = 0x1004A;
inline constexpr int32_t kKeyAltGreyPlus = 0x1004E;
inline constexpr int32_t kKeyAlt1 = 0x10078;  // Alt-2 to Alt-9 follow it, then Alt-0
inline constexpr int32_t kKeyAlt0 = 0x10081;
inline constexpr int32_t kKeyAltHome = 0x10097;
inline constexpr int32_t kKeyAltUp = 0x10098;
inline constexpr int32_t kKeyAltLeft = 0x1009B;
inline constexpr int32_t kKeyAltRight = 0x1009D;
inline constexpr int32_t kKeyAltDown = 0x100A0;

inline constexpr int32_t kKeyCtrlShiftEnter = 0x3001C;
inline constexpr int32_t kKeyCtrlShiftLeft = 0x30073;
inline constexpr int32_t kKeyCtrlShiftRight = 0x30074;
inline constexpr int32_t kKeyCtrlShiftEnd = 0x30075;
inline constexpr int32_t kKeyCtrlShiftPageDown = 0x30076;
inline constexpr int32_t kKeyCtrlShiftHome = 0x30077;
inline constexpr int32_t kKeyCtrlShiftPageUp = 0x30084;
inline constexpr int32_t kKeyCtrlShiftGreyMinus = 0x3008E;
inline constexpr int32_t kKeyCtrlShiftGreyPlus = 0x30090;
inline constexpr int32_t kKeyCtrlShiftInsert = 0x30092;
inline constexpr int32_t kKeyAltShiftBackspace = 0x3000E;
inline constexpr int32_t kKeyCtrlAltSpace = 0x90039;

inline constexpr int32_t kKeyGreyMultiply = kKeyGrey + '*';
inline constexpr int32_t kKeyGreyPlus = kKeyGrey + '+';
inline constexpr int32_t kKeyGreyMinus = kKeyGrey + '-';

// Ctrl with a letter; Ctrl-I and Ctrl-M have codes of their own, apart from Tab and Enter.
constexpr int32_t CtrlKey(char letter) {
    if (letter == 'i') return kKeyCtrlI;
    if (letter == 'm') return kKeyCtrlM;
    return letter - 'a' + 1;
}

// Alt with a letter: the scan codes of a PC keyboard, "a" to "z".
constexpr int32_t AltKey(char letter) {
    constexpr uint8_t kScanCodes[26] = {
        0x1E, 0x30, 0x2E, 0x20, 0x12, 0x21, 0x22, 0x23, 0x17, 0x24, 0x25, 0x26, 0x32,
        0x31, 0x18, 0x19, 0x10, 0x13, 0x1F, 0x14, 0x16, 0x2F, 0x11, 0x2D, 0x15, 0x2C,
    };
    return kKeyExtended + kScanCodes[letter - 'a'];
}

}  // namespace zt
