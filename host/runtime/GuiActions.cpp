/*
 * GuiActions.cpp - user actions on the dialog toolkit: the checks that let
 * an action through, the change it makes and the callback it runs.
 */
#include "GuiActions.h"

#include <algorithm>
#include <string>

#include "GuiStore.h"

namespace corvane::host::gui {

namespace {

bool onTop(LgIndex_t dialog)
{
    return dialog != CVNGUI_BAD_ID && topDialog() == dialog;
}

/* The control when a user can act on it now, else why not. */
struct Target {
    Control *control = nullptr;
    ActionResult result;
};

Target target(LgIndex_t id, std::initializer_list<ControlKind> kinds)
{
    if (findControl(id) == nullptr)
        return {nullptr, Refusal::noSuchControl};
    Control *control = controlRecord(id, kinds);
    if (control == nullptr)
        return {nullptr, Refusal::wrongKind};
    if (!onTop(control->dialog))
        return {nullptr, Refusal::notOnTop};
    if (!control->sensitive)
        return {nullptr, Refusal::insensitive};
    return {control, {}};
}

void callInt(CvnGUIIntCallback_pf callback, LgIndex_t value)
{
    if (callback != nullptr)
        callback(&value);
}

CvnGUIDialogCallback_pf buttonCallback(const Dialog &dialog, DialogButton button)
{
    switch (button) {
    case DialogButton::ok:
        return dialog.ok;
    case DialogButton::apply:
        return dialog.apply;
    case DialogButton::cancel:
        return dialog.cancel;
    case DialogButton::help:
        return dialog.help;
    }
    return nullptr;
}

/* Sets a toggle, radio box or option menu to value; the callback runs only
   when that changed it. The callback is read first: it may add controls. */
void setValue(Control &control, LgIndex_t value)
{
    CvnGUIIntCallback_pf callback = control.intCallback;
    if (change(control, control.value, value, Change::value))
        callInt(callback, value);
}

} // namespace

std::string_view describe(Refusal refusal)
{
    switch (refusal) {
    case Refusal::noSuchDialog:
        return "is not a dialog";
    case Refusal::noSuchControl:
        return "is not a control";
    case Refusal::wrongKind:
        return "is not of a kind this action works on";
    case Refusal::notOnTop:
        return "is not in the top dialog";
    case Refusal::insensitive:
        return "is insensitive";
    case Refusal::readOnly:
        return "is read-only";
    case Refusal::noSuchButton:
        return "has no such button";
    case Refusal::noSuchItem:
        return "has no such item";
    case Refusal::oneItemOnly:
        return "selects one item only";
    }
    return "cannot be used";
}

namespace user {

ActionResult pressDialogButton(LgIndex_t id, DialogButton button)
{
    const Dialog *dialog = findDialog(id);
    if (dialog == nullptr)
        return Refusal::noSuchDialog;
    if (!onTop(id))
        return Refusal::notOnTop;
    CvnGUIDialogCallback_pf callback = buttonCallback(*dialog, button);
    if (callback == nullptr)
        return Refusal::noSuchButton;
    callback();
    return {};
}

ActionResult press(LgIndex_t button)
{
    Target found = target(button, {ControlKind::button});
    if (!found.result)
        return found.result;
    if (CvnGUIButtonCallback_pf callback = found.control->buttonCallback)
        callback();
    return {};
}

ActionResult setToggle(LgIndex_t toggle, bool on)
{
    Target found = target(toggle, {ControlKind::toggle});
    if (found.result)
        setValue(*found.control, on ? 1 : 0);
    return found.result;
}

ActionResult choose(LgIndex_t id, LgIndex_t item)
{
    Target found = target(id, {ControlKind::radioBox, ControlKind::optionMenu});
    if (!found.result)
        return found.result;
    if (item < 1 || item > static_cast<LgIndex_t>(found.control->items.size()))
        return Refusal::noSuchItem;
    setValue(*found.control, item);
    return {};
}

ActionResult type(LgIndex_t id, std::string_view text, bool *accepted)
{
    Target found = target(id, {ControlKind::textField, ControlKind::text});
    if (!found.result)
        return found.result;
    Control &control = *found.control;
    if (control.readOnly)
        return Refusal::readOnly;
    CvnGUITextCallback_pf callback = control.textCallback;
    change(control, control.text, std::string(text), Change::text);
    bool answer = true;
    if (callback != nullptr) {
        std::string copy(text); /* the callback may change the field */
        answer = callback(copy.c_str()) != 0;
    }
    if (accepted != nullptr)
        *accepted = answer;
    return {};
}

ActionResult select(LgIndex_t list, std::span<const LgIndex_t> positions)
{
    Target found = target(list, {ControlKind::list});
    if (!found.result)
        return found.result;
    Control &control = *found.control;
    auto count = static_cast<LgIndex_t>(control.items.size());
    if (positions.empty() ||
        std::any_of(positions.begin(), positions.end(),
                    [count](LgIndex_t position) { return position < 1 || position > count; }))
        return Refusal::noSuchItem;
    if (positions.size() > 1 && !control.multiSelection)
        return Refusal::oneItemOnly;
    CvnGUIIntCallback_pf callback = control.intCallback;
    change(control, control.selection, std::vector<LgIndex_t>(positions.begin(), positions.end()),
           Change::selection);
    callInt(callback, positions.back());
    return {};
}

} // namespace user

bool pressDialogButton(LgIndex_t dialog, DialogButton button)
{
    return static_cast<bool>(user::pressDialogButton(dialog, button));
}

bool pressButton(LgIndex_t button)
{
    return static_cast<bool>(user::press(button));
}

bool setToggle(LgIndex_t toggle, bool on)
{
    return static_cast<bool>(user::setToggle(toggle, on));
}

bool chooseOption(LgIndex_t control, LgIndex_t option)
{
    return static_cast<bool>(user::choose(control, option));
}

bool typeText(LgIndex_t control, std::string_view text)
{
    bool accepted = false;
    return user::type(control, text, &accepted) && accepted;
}

bool selectItem(LgIndex_t list, LgIndex_t position)
{
    return selectItems(list, std::span<const LgIndex_t>(&position, 1));
}

bool selectItems(LgIndex_t list, std::span<const LgIndex_t> positions)
{
    return static_cast<bool>(user::select(list, positions));
}

} // namespace corvane::host::gui
