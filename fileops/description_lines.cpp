#include "fileops/description_lines.h"

namespace zt {

namespace {

// The end of a file may have lost the line feed of a line, and a carriage return is left of it.
size_t LengthWithoutEnd(std::string_view line) {
    size_t length = line.size();
    if (length > 0 && line[length - 1] == '\n') length--;
    if (length > 0 && line[length - 1] == '\r') length--;
    return length;
}

// The end of a line, or what stands for it where the line is open.
std::string_view EndOf(std::string_view line, std::string_view usual) {
    if (line.ends_with("\r\n")) return "\r\n";
    return line.ends_with('\n') ? "\n" : usual;
}

// That of the text's first line, for a line that has none of its own.
std::string_view UsualEnd(std::string_view text) {
    if (text.empty()) return "\n";
    const std::string_view first = TakeDescriptionLine(text).whole;
    return EndOf(first, first.ends_with('\r') ? "\r\n" : "\n");
}

// So that what comes behind the text is a line of its own.
void Close(std::string& text, std::string_view end) {
    if (text.empty() || text.ends_with('\n')) return;
    text += text.ends_with('\r') ? "\n" : end;
}

}  // namespace

DescriptionLine TakeDescriptionLine(std::string_view& text) {
    DescriptionLine line;
    const size_t end = text.find('\n');
    line.whole = text.substr(0, end == std::string_view::npos ? end : end + 1);
    text.remove_prefix(line.whole.size());

    const std::string_view content = line.whole.substr(0, LengthWithoutEnd(line.whole));
    const bool isQuoted = !content.empty() && content[0] == '"';
    const size_t start = isQuoted ? 1 : 0;
    size_t stop = content.find(isQuoted ? '"' : ' ', start);
    if (stop == std::string_view::npos) {
        if (isQuoted) return line;
        stop = content.size();
    }
    const size_t behind = stop + start;
    if (behind < content.size() && content[behind] != ' ') return line;
    line.name = content.substr(start, stop - start);
    line.rest = line.whole.substr(behind);
    return line;
}

DescriptionLine FindDescription(std::string_view text, std::string_view name) {
    while (!text.empty()) {
        const DescriptionLine line = TakeDescriptionLine(text);
        if (!line.name.empty() && line.name == name) return line;
    }
    return {};
}

bool WrittenName(std::string_view name, std::string& written) {
    const bool hasBlank = name.find(' ') != std::string_view::npos;
    const bool hasQuote = name.find('"') != std::string_view::npos;
    if (name.empty() || name.find('\n') != std::string_view::npos) return false;
    if (name[0] == '"' || (hasBlank && hasQuote)) return false;
    if (!hasBlank && name.back() == '\r') return false;
    written = hasBlank ? '"' + std::string(name) + '"' : std::string(name);
    return true;
}

std::string WithoutDescriptions(std::string_view text,
                                const std::unordered_set<std::string>& names) {
    std::string left;
    while (!text.empty()) {
        const DescriptionLine line = TakeDescriptionLine(text);
        if (line.name.empty() || !names.contains(std::string(line.name))) left += line.whole;
    }
    return left;
}

std::string WithDescription(std::string_view text, std::string_view name, std::string_view written,
                            std::string_view rest) {
    const std::string_view usualEnd = UsualEnd(text);
    std::string changed;
    const auto put = [&](std::string_view end) {
        changed += written;
        changed += rest;
        Close(changed, end);
    };
    bool isPut = false;
    while (!text.empty()) {
        const DescriptionLine line = TakeDescriptionLine(text);
        const bool isSubject = line.name == name && !name.empty();
        if (!isSubject) {
            changed += line.whole;
        } else if (!isPut) {
            put(EndOf(line.whole, usualEnd));
            isPut = true;
        }
    }
    if (isPut) return changed;
    Close(changed, usualEnd);
    put(usualEnd);
    return changed;
}

}  // namespace zt
