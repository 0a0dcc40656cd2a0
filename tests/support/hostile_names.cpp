// Making hostile names out of pieces that are each known to make trouble.
#include "tests/support/hostile_names.h"

#include <iterator>
#include <random>
#include <set>

namespace zt::headless {

namespace {

constexpr size_t kLongest = 255;

// What a name is put together of.
constexpr std::string_view kPieces[] = {
    "a",
    "Z",
    "0",
    "name",
    ".txt",
    ".",
    "..",
    "~",
    "#",
    "@",
    "%",
    "+",
    "=",
    ",",
    ";",
    ":",
    " ",
    "  ",
    "\n",
    "\t",
    "\r",
    "\x01",
    "\x1B[31m",
    "\x7F",
    "\b",
    "-",
    "--",
    "-rf",
    "-- ",
    "'",
    "\"",
    "`",
    "\\",
    "\\n",
    "$",
    "$HOME",
    "$(id)",
    "!",
    "!!",
    "*",
    "?",
    "[a-z]",
    "{x,y}",
    "|",
    "&",
    "<",
    ">",
    "(",
    ")",
    "^",
    // One character in the old code pages, no UTF-8.
    "\xE4",
    "\xFF",
    "\x80",
    "\xA0",
    "\xFE\xFF",
    "\xC3",
    "\xE2\x82",
    "\xF0\x9F\x98",
    // Forms that UTF-8 forbids: too long, halves of pairs, beyond the end.
    "\xC0\xAF",
    "\xE0\x80\xAF",
    "\xED\xA0\x80",
    "\xED\xB0\x80",
    "\xF4\x90\x80\x80",
    "\xF8\x88\x80\x80",
    // Accents composed and decomposed, and more marks than fit.
    "\xC3\xA4",
    "a\xCC\x88",
    "\xC3\xA9",
    "e\xCC\x81",
    "\xCC\x81\xCC\x81\xCC\x81",
    "\xEF\xAC\x81",
    "\xC4\xB0",
    "\xC4\xB1",
    "\xC3\x9F",
    "\xE1\xBA\x9E",
    // Right to left, with its controls; joiners and blanks that are not seen.
    "\xD7\xA9\xD7\x9C",
    "\xD8\xB3\xD9\x84",
    "\xE2\x80\xAE",
    "\xE2\x80\x8F",
    "\xE2\x80\x8D",
    "\xE2\x80\x8B",
    "\xC2\xA0",
    "\xE2\x80\xA8",
    "\xEF\xBB\xBF",
    "\xEF\xBF\xBD",
    "\xEF\xBF\xBF",
    // Beyond the first plane, wide characters, private use.
    "\xF0\x9F\x98\x80",
    "\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7",
    "\xF0\x9D\x84\x9E",
    "\xE4\xB8\xAD\xE6\x96\x87",
    "\xEE\x80\x80",
    "\xF3\xB0\x80\x80",
    "\xEF\xBF\xA5",
    // Names that programs give a meaning to.
    "descript.ion",
    "con",
    "nul",
    ".zt@@@.tmp",
    "!!!",
};

class Maker {
public:
    explicit Maker(uint32_t seed) : random(seed) {}

    std::string Next() {
        switch (Below(8)) {
            case 0:
                return FullLength();
            case 1:
                return RandomBytes(1 + Below(40));
            case 2:
                return std::string(1, '-').append(OfPieces(1 + Below(4)));
            default:
                return OfPieces(1 + Below(6));
        }
    }

private:
    size_t Below(size_t limit) {
        return std::uniform_int_distribution<size_t>(0, limit - 1)(random);
    }

    std::string OfPieces(size_t count) {
        std::string name;
        for (size_t i = 0; i < count; i++)
            name += kPieces[Below(std::size(kPieces))];
        return name;
    }

    std::string RandomBytes(size_t length) {
        std::string name;
        while (name.size() < length) {
            const char byte = static_cast<char>(1 + Below(255));
            if (byte != '/') name += byte;
        }
        return name;
    }

    std::string FullLength() {
        std::string name;
        while (name.size() < kLongest)
            name += OfPieces(1);
        name.resize(kLongest);
        return name;
    }

    std::mt19937 random;
};

}  // namespace

std::vector<std::string> HostileNames(size_t count, uint32_t seed) {
    Maker maker(seed);
    std::set<std::string> known = {".", "..", "descript.ion"};
    std::vector<std::string> names;
    while (names.size() < count) {
        std::string name = maker.Next();
        if (name.size() > kLongest || !known.insert(name).second) continue;
        names.push_back(std::move(name));
    }
    return names;
}

}  // namespace zt::headless
