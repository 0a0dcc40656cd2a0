// A dialog's life, its colours and quick keys, and its elements as a whole.
#include "ui/dialog.h"

#include <algorithm>
#include <cstring>

#include "console/program_state.h"
#include "ui/push_button.h"
#include "ui/update_freeze.h"

namespace zt {

Dialog::Dialog(int x, int y, int rightOrWidth, int bottomOrHeight, Attribute attribute,
               DialogFrame frame)
    : Win(x, y, rightOrWidth, bottomOrHeight, attribute,
          frame == DialogFrame::kNone ? kNoAttribute : attribute),
      colours{attribute, Colour(ColourClass::kInputFields), Colour(ColourClass::kInputFields)} {}

// The elements go first and in order: a field still asks the dialog how it ended.
Dialog::~Dialog() {
    for (int i = 0; i < elementCount; ++i)
        elements[static_cast<size_t>(i)].reset();
    console->SetCursorSize(0);
}

bool Dialog::CanLeave(int /*from*/, int& /*to*/) {
    return true;
}

void Dialog::FocusChanged() {}

void Dialog::SetTitle(const Westring& title) {
    PrintCentred(-1, title, OwnAttribute());
}

void Dialog::SetColour(DialogColour which, Attribute attribute) {
    colours[static_cast<int>(which)] = attribute;
}

Attribute Dialog::DialogAttribute(DialogColour which) const {
    return colours[static_cast<int>(which)];
}

DialogElement* Dialog::Element(int elementIndex) const {
    const bool valid = elementIndex >= 0 && elementIndex < elementCount;
    return valid ? elements[static_cast<size_t>(elementIndex)].get() : nullptr;
}

int Dialog::Add(std::unique_ptr<DialogElement> element, bool startsGroup) {
    if (elementCount >= kMaxElements) return -1;
    MutexHold hold(lock);
    UpdateFreeze freeze;
    const int index = elementCount++;
    const DialogElement* before = Element(index - 1);
    element->dialog = this;
    element->index = index;
    element->startsGroup = startsGroup;
    element->groupLeader = startsGroup || !before ? index : before->groupLeader;
    element->groupCurrent = index;
    elements[static_cast<size_t>(index)] = std::move(element);
    Element(index)->Draw();
    return index;
}

void Dialog::SetQuickKeys(const char* letters, int n) {
    quickKeyCount = std::clamp(n, 0, kMaxElements);
    std::copy_n(letters, quickKeyCount, quickKeys.begin());
    Redraw(-1);
}

void Dialog::SetQuickKeys(const char* letters) {
    SetQuickKeys(letters, static_cast<int>(strlen(letters)));
}

char Dialog::QuickKey(int elementIndex) const {
    if (elementIndex < 0 || elementIndex >= quickKeyCount) return 0;
    const char letter = quickKeys[static_cast<size_t>(elementIndex)];
    return letter == ' ' ? '\0' : letter;
}

// The element is about to be added: it will have the next number.
void Dialog::SetNextQuickKey(char letter) {
    if (letter == 0 || elementCount >= kMaxElements) return;
    quickKeys[static_cast<size_t>(elementCount)] = letter;
    quickKeyCount = std::max(quickKeyCount, elementCount + 1);
}

void Dialog::SetDefaultButton(int elementIndex) {
    DialogElement* element = Element(elementIndex);
    if (!element || element->Type() != ElementType::kPushButton) return;
    defaultExit = static_cast<PushButton*>(element)->Code();
    Redraw(-1);
}

void Dialog::SetGroupCurrent(int elementIndex) {
    const DialogElement* element = Element(elementIndex);
    if (element) Element(element->groupLeader)->groupCurrent = elementIndex;
}

void Dialog::Redraw(int elementIndex) {
    MutexHold hold(lock);
    UpdateFreeze freeze;
    for (int i = 0; i < elementCount; ++i) {
        if (elementIndex < 0 || i == elementIndex) Element(i)->Draw();
    }
}

void Dialog::CommitAll() {
    for (int i = 0; i < elementCount; ++i)
        Element(i)->Commit();
}

int Dialog::SendEvent(int elementIndex, const DialogEvent& event) {
    MutexHold hold(lock);
    DialogElement* element = Element(elementIndex);
    return element ? element->HandleEvent(event) : 0;
}

}  // namespace zt
