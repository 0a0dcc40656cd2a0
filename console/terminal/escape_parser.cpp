// The states of the escape-sequence parser, one function each.
#include "console/terminal/escape_parser.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace zt {

namespace {

constexpr unsigned char kBell = 7;
constexpr unsigned char kCancel = 0x18;
constexpr unsigned char kSubstitute = 0x1A;
constexpr unsigned char kEsc = 0x1B;
constexpr unsigned char kDelete = 0x7F;
constexpr unsigned char kStringTerminator = 156;
constexpr uint64_t kEachByte = 0x0101010101010101;

// True when one of eight bytes is below 32.
bool HasControl(uint64_t bytes) {
    return ((bytes - kEachByte * 32) & ~bytes & (kEachByte * 0x80)) != 0;
}

const unsigned char* FindControl(const unsigned char* at, const unsigned char* end) {
    for (; end - at >= 8; at += 8) {
        uint64_t bytes;
        std::memcpy(&bytes, at, sizeof bytes);
        if (HasControl(bytes)) break;
    }
    while (at < end && *at >= 32)
        at++;
    return at;
}

// How many bytes follow the lead byte of a UTF-8 character.
int PromisedBytes(unsigned char lead) {
    if ((lead & 0xE0) == 0xC0) return 1;
    if ((lead & 0xF0) == 0xE0) return 2;
    return (lead & 0xF8) == 0xF0 ? 3 : 0;
}

// The length of the character at the end of the run that lacks bytes; 0 when none does.
int IncompleteTail(const unsigned char* run, const unsigned char* end) {
    const int look = static_cast<int>(std::min<std::ptrdiff_t>(3, end - run));
    for (int length = 1; length <= look; length++) {
        const unsigned char byte = end[-length];
        if ((byte & 0xC0) == 0x80) continue;
        return PromisedBytes(byte) >= length ? length : 0;
    }
    return 0;
}

}  // namespace

void EscapeParser::Feed(const char* bytes, int n) {
    if (n <= 0) return;
    const auto* at = reinterpret_cast<const Byte*>(bytes);
    if (partial.empty()) return Parse(at, at + n);
    joined = partial;
    joined.append(bytes, static_cast<size_t>(n));
    partial.clear();
    at = reinterpret_cast<const Byte*>(joined.data());
    Parse(at, at + joined.size());
}

void EscapeParser::Parse(const Byte* at, const Byte* end) {
    while (at < end) {
        switch (state) {
            case State::kText:
                at = TakeText(at, end);
                break;
            case State::kEscape:
                at = TakeEscapeByte(at);
                break;
            case State::kCharset:
                at = TakeCharsetByte(at);
                break;
            case State::kCsiStart:
            case State::kCsi:
            case State::kCsiSkip:
                at = TakeCsiByte(at);
                break;
            case State::kOsc:
            case State::kOscEscape:
                at = TakeOsc(at, end);
                break;
        }
    }
}

const EscapeParser::Byte* EscapeParser::TakeText(const Byte* at, const Byte* end) {
    const Byte* runEnd = FindControl(at, end);
    if (runEnd > at) {
        const int tail = runEnd == end ? IncompleteTail(at, end) : 0;
        const int whole = static_cast<int>(runEnd - at) - tail;
        if (whole > 0) handler.TakeRun(at, whole);
        partial.assign(reinterpret_cast<const char*>(runEnd) - tail, static_cast<size_t>(tail));
    }
    if (runEnd == end) return end;
    if (*runEnd == kEsc) {
        state = State::kEscape;
    } else {
        handler.TakeControl(*runEnd);
    }
    return runEnd + 1;
}

const EscapeParser::Byte* EscapeParser::TakeEscapeByte(const Byte* at) {
    state = State::kText;
    switch (*at) {
        case '[':
            sequence.prefix = 0;
            sequence.count = 0;
            state = State::kCsiStart;
            return at + 1;
        case ']':
            state = State::kOsc;
            return at + 1;
        case '(':
            state = State::kCharset;
            return at + 1;
        default:
            return handler.TakeEscape(*at) ? at + 1 : at;
    }
}

const EscapeParser::Byte* EscapeParser::TakeCharsetByte(const Byte* at) {
    state = State::kText;
    if (*at < 32) return at;  // no name of a set; it counts as itself
    handler.TakeCharset(*at);
    return at + 1;
}

void EscapeParser::NextNumber() {
    if (sequence.count < CsiSequence::kMostNumbers)
        sequence.numbers[static_cast<size_t>(sequence.count)] = CsiSequence::kMissing;
    sequence.count++;
}

void EscapeParser::TakeDigit(Byte digit) {
    if (sequence.count == 0) NextNumber();
    if (sequence.count > CsiSequence::kMostNumbers) return;
    int32_t& number = sequence.numbers[static_cast<size_t>(sequence.count) - 1];
    number = std::min(std::max(number, 0) * 10 + (digit - '0'), CsiSequence::kLargestNumber);
}

const EscapeParser::Byte* EscapeParser::TakeCsiByte(const Byte* at) {
    const Byte byte = *at;
    const bool isFirst = state == State::kCsiStart;
    if (byte < 32) {
        // A control byte inside a sequence acts at once, as on the terminals that this one is
        // taken for; some of them end it.
        if (byte == kEsc || byte == kCancel || byte == kSubstitute) {
            state = byte == kEsc ? State::kEscape : State::kText;
        } else {
            handler.TakeControl(byte);
        }
        return at + 1;
    }
    if (byte >= 0x80) {
        state = State::kText;
        return at;
    }
    if (byte >= '@' && byte != kDelete) {
        const bool isKnown = state != State::kCsiSkip;
        state = State::kText;
        sequence.final = static_cast<char>(byte);
        sequence.count = std::min(sequence.count, CsiSequence::kMostNumbers);
        if (isKnown) handler.TakeCsi(sequence);
        return at + 1;
    }
    if (byte == kDelete || state == State::kCsiSkip) return at + 1;
    state = State::kCsi;
    if (byte >= '0' && byte <= '9') {
        TakeDigit(byte);
    } else if (byte == ';') {
        if (sequence.count == 0) NextNumber();
        NextNumber();
    } else if (isFirst && (byte == '?' || byte == '>')) {
        sequence.prefix = static_cast<char>(byte);
    } else {
        state = State::kCsiSkip;
    }
    return at + 1;
}

const EscapeParser::Byte* EscapeParser::TakeOsc(const Byte* at, const Byte* end) {
    for (; at < end; at++) {
        const bool isBehindEscape = state == State::kOscEscape;
        state = *at == kEsc ? State::kOscEscape : State::kOsc;
        if (*at == kBell || *at == kStringTerminator || (isBehindEscape && *at == '\\')) {
            state = State::kText;
            return at + 1;
        }
    }
    return end;
}

}  // namespace zt
