// The text of a description file: its lines, and the names in front of them. Pure functions on
// bytes.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>

namespace zt {

// One line with its line end, if it has one.
struct DescriptionLine {
    std::string_view whole;
    std::string_view name;  // empty when the line is not one of a file
    std::string_view rest;  // what stands behind the name: a blank, the text, the line end
};

// Cuts the first line off `text`, which must not be empty.
DescriptionLine TakeDescriptionLine(std::string_view& text);

// The line of `name`; its `whole` is empty when there is none.
DescriptionLine FindDescription(std::string_view text, std::string_view name);

// The name as it stands in front of a line. False for one that no line can have: with a line feed,
// with a double quote where it would be taken for the end of the name, or with a carriage return
// where it would be taken for the end of the line.
[[nodiscard]] bool WrittenName(std::string_view name, std::string& written);

// The text without the lines of these names.
std::string WithoutDescriptions(std::string_view text,
                                const std::unordered_set<std::string>& names);

// The text with `written` and `rest` as the line of `name`: in place of the one it has, or last.
std::string WithDescription(std::string_view text, std::string_view name, std::string_view written,
                            std::string_view rest);

}  // namespace zt
