// Cuts what a program writes to its terminal into text, control bytes and escape sequences, after
// ECMA-48 "Control Functions for Coded Character Sets" as far as an xterm's common sequences go.
// Keeps its state between calls, so that the bytes may be cut anywhere, and stores nothing that
// grows. First thread only.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace zt {

// A control sequence: ESC [, at most one prefix, numbers, and the byte that names it.
struct CsiSequence {
    static constexpr int kMostNumbers = 32;  // further ones are dropped
    static constexpr int32_t kLargestNumber = 999999;
    static constexpr int32_t kMissing = -1;

    char prefix = 0;  // '?', '>' or 0
    char final = 0;
    int count = 0;  // numbers written down; those that were left out count where a ';' shows them
    std::array<int32_t, kMostNumbers> numbers{};

    int32_t Number(int index) const {
        return index < count ? numbers[static_cast<size_t>(index)] : kMissing;
    }
    // A number left out, and 0, mean `fallback`.
    int32_t NumberOr(int index, int32_t fallback) const {
        const int32_t number = Number(index);
        return number > 0 ? number : fallback;
    }
};

class IEscapeHandler {
public:
    virtual ~IEscapeHandler() = default;
    // Bytes from 32 up. A UTF-8 character is cut only by a control byte behind it.
    virtual void TakeRun(const unsigned char* bytes, int n) = 0;
    // A byte below 32 other than ESC.
    virtual void TakeControl(unsigned char byte) = 0;
    // The byte behind ESC. False when it means nothing: it then goes on as text.
    [[nodiscard]] virtual bool TakeEscape(unsigned char byte) = 0;
    // The byte behind ESC (.
    virtual void TakeCharset(unsigned char byte) = 0;
    virtual void TakeCsi(const CsiSequence& sequence) = 0;
};

class EscapeParser {
public:
    // Borrows the handler.
    explicit EscapeParser(IEscapeHandler& handler_) : handler(handler_) {}

    void Feed(const char* bytes, int n);

private:
    enum class State : uint8_t {
        kText,
        kEscape,     // behind ESC
        kCharset,    // behind ESC (
        kCsiStart,   // behind ESC [
        kCsi,        // within its numbers
        kCsiSkip,    // a form that means nothing; its end is looked for
        kOsc,        // behind ESC ], up to BEL, the byte 156 or ESC backslash
        kOscEscape,  // behind an ESC in it
    };
    using Byte = unsigned char;

    void Parse(const Byte* at, const Byte* end);
    const Byte* TakeText(const Byte* at, const Byte* end);
    const Byte* TakeEscapeByte(const Byte* at);
    const Byte* TakeCharsetByte(const Byte* at);
    const Byte* TakeCsiByte(const Byte* at);
    const Byte* TakeOsc(const Byte* at, const Byte* end);
    void TakeDigit(Byte digit);
    void NextNumber();

    IEscapeHandler& handler;
    State state = State::kText;
    CsiSequence sequence;
    std::string partial;  // the beginning of a UTF-8 character: at most 3 bytes
    std::string joined;   // it and the bytes that come behind it
};

}  // namespace zt
