// What programs print, for measuring terminals: a million bytes of one kind of line, to be given
// again and again.
#pragma once

#include <string>

namespace zt::bench {

// At least a million bytes.
inline std::string Repeated(std::string (*line)(int)) {
    std::string text;
    for (int i = 0; text.size() < 1'000'000; i++)
        text += line(i) + "\r\n";
    return text;
}

inline std::string PlainLine(int i) {
    const std::string words = "the quick brown fox jumps over the lazy dog and away it goes again ";
    return std::to_string(i) + " " + words.substr(0, 20 + static_cast<size_t>(i) * 7 % 47);
}

// As a coloured listing or a compiler would give it.
inline std::string MixedLine(int i) {
    switch (i % 5) {
        case 0:
            return "-rw-r--r-- 1 user user " + std::to_string(i * 37) +
                   " Jan  1 12:00 \x1b[0m\x1b[01;34mfolder" + std::to_string(i) + "\x1b[0m";
        case 1:
            return "\x1b[1m/src/file.cpp:" + std::to_string(i) +
                   ":12: \x1b[35mwarning:\x1b[0m\x1b[1m unused variable\x1b[0m [\x1b[33m-Wunused"
                   "\x1b[m]";
        case 2:
            return "gr\u00FC\u00DFe aus \u041C\u043E\u0441\u043A\u0432\u0430 \u2500\u2500\u2502 " +
                   std::to_string(i);
        case 3:
            return "\t\tif (value > \x1b[32m" + std::to_string(i) + "\x1b[39m) return;\x1b[K";
        default:
            return PlainLine(i);
    }
}

}  // namespace zt::bench
