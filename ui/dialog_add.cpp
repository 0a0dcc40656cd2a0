// Building a dialog: one function an element kind.
#include "ui/check_box.h"
#include "ui/colour_selector.h"
#include "ui/dialog.h"
#include "ui/integer_field.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/progress_indicator.h"
#include "ui/push_button.h"
#include "ui/radio_button.h"
#include "ui/static_text.h"
#include "ui/string_field.h"

namespace zt {

namespace {

// What a button takes in a row: its brackets, and a blank on each side.
constexpr int kButtonCells = 6;
constexpr int kButtonGap = 1;

constexpr ButtonRow kOkCancel[] = {{kExitEnter, "OK"}, {kExitEscape, "Cancel"}, {0, nullptr}};

int RowWidth(const ButtonRow* buttons) {
    int width = 0;
    for (; buttons->code; ++buttons)
        width += Label(buttons->label).text.Length() + kButtonCells;
    return width;
}

}  // namespace

int Dialog::AddText(int x, int y, const char* text, Attribute attribute) {
    return Add(std::make_unique<StaticText>(x, y, text, attribute), false);
}

int Dialog::AddText(int x, int y, const wchar_t* text, Attribute attribute) {
    return Add(std::make_unique<StaticText>(x, y, text, attribute), false);
}

int Dialog::AddText(int x, int y, const Westring& text, Attribute attribute) {
    return Add(std::make_unique<StaticText>(x, y, text, attribute), false);
}

int Dialog::AddButton(int x, int y, bool startsGroup, int code, const char* label) {
    const Label parsed(label);
    SetNextQuickKey(parsed.quickKey);
    if (defaultExit == 0) defaultExit = code;
    return Add(std::make_unique<PushButton>(x, y, code, parsed.text), startsGroup);
}

int Dialog::AddButtons(int x, int y, bool startsGroup, const ButtonRow* buttons) {
    if (x < 0) x = (ClientWidth() - RowWidth(buttons)) / 2 + kButtonGap;
    if (y < 0) y += ClientHeight();
    int first = -1;
    for (; buttons->code; ++buttons) {
        const int index = AddButton(x, y, startsGroup, buttons->code, buttons->label);
        if (first < 0) first = index;
        startsGroup = false;
        x += Label(buttons->label).text.Length() + kButtonCells;
    }
    return first;
}

int Dialog::AddOkCancel(int x, int y, bool startsGroup) {
    return AddButtons(x, y, startsGroup, kOkCancel);
}

int Dialog::AddString(int x, int y, bool startsGroup, Westring& value, int width, int maxLength,
                      int history) {
    return Add(std::make_unique<StringField>(x, y, &value, width, maxLength, history), startsGroup);
}

int Dialog::AddInteger(int x, int y, bool startsGroup, int& value, int width, bool keepTyped,
                       int history) {
    return Add(std::make_unique<IntegerField>(x, y, &value, width, keepTyped, history),
               startsGroup);
}

int Dialog::AddCheck(int x, int y, bool startsGroup, bool& variable, const char* label,
                     bool labelRight) {
    const Label parsed(label);
    SetNextQuickKey(parsed.quickKey);
    return Add(std::make_unique<CheckBox>(x, y, &variable, parsed.text, labelRight), startsGroup);
}

int Dialog::AddCheck3(int x, int y, bool startsGroup, uint8_t& variable, const char* label,
                      bool labelRight) {
    const Label parsed(label);
    SetNextQuickKey(parsed.quickKey);
    return Add(std::make_unique<CheckBox3S>(x, y, &variable, parsed.text, labelRight), startsGroup);
}

int Dialog::AddRadio(int x, int y, bool startsGroup, int& variable, int value, const char* label) {
    const Label parsed(label);
    SetNextQuickKey(parsed.quickKey);
    return Add(std::make_unique<RadioButton>(x, y, &variable, value, parsed.text), startsGroup);
}

int Dialog::AddList(int x, int y, bool startsGroup, int width, int height, const char* const* items,
                    int count, int& variable, int listExit) {
    return Add(
        std::make_unique<ListBoxString>(x, y, width, height, items, count, &variable, listExit),
        startsGroup);
}

int Dialog::AddList(int x, int y, bool startsGroup, int width, int height, EstringStore& items,
                    int count, int& variable, int listExit) {
    return Add(
        std::make_unique<ListBoxEstring>(x, y, width, height, &items, count, &variable, listExit),
        startsGroup);
}

int Dialog::AddList(int x, int y, bool startsGroup, int width, int height, WestringStore& items,
                    int count, int& variable, int listExit) {
    return Add(
        std::make_unique<ListBoxWestring>(x, y, width, height, &items, count, &variable, listExit),
        startsGroup);
}

int Dialog::AddColours(int x, int y, bool startsGroup, int width, int height,
                       const char* const* names, Attribute* attributes, int count, int& variable,
                       int listExit) {
    return Add(std::make_unique<ColourSelector>(x, y, width, height, names, attributes, count,
                                                &variable, listExit),
               startsGroup);
}

int Dialog::AddProgress(int x, int y, int width, const float* fraction) {
    return Add(std::make_unique<ProgressIndicator>(x, y, width, fraction), false);
}

int Dialog::AddExitKey(int key) {
    return Add(std::make_unique<ExitKey>(key), false);
}

}  // namespace zt
