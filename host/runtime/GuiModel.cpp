/*
 * GuiModel.cpp - the records of the in-memory dialog toolkit and the user
 * actions that drive them.
 */
#include <algorithm>
#include <map>
#include <string>

#include "GuiStore.h"

namespace corvane::host::gui {

namespace {
/* Every dialog and control by id; ids are shared and start at 1. Reset by
   resetGui. std::map keeps records in place while callbacks add more. */
std::map<LgIndex_t, Dialog> dialogs;
std::map<LgIndex_t, Control> controls;
LgIndex_t lastId = 0;

/* The control when a user could act on it now. */
Control *actionable(LgIndex_t id, std::initializer_list<ControlKind> kinds)
{
    Control *control = controlRecord(id, kinds);
    if (control == nullptr || !control->sensitive)
        return nullptr;
    const Dialog *owner = findDialog(control->dialog);
    return owner != nullptr && owner->up ? control : nullptr;
}

void callInt(CvnGUIIntCallback_pf callback, LgIndex_t value)
{
    if (callback != nullptr)
        callback(&value);
}
} // namespace

Dialog *dialogRecord(LgIndex_t id)
{
    auto found = dialogs.find(id);
    return found != dialogs.end() ? &found->second : nullptr;
}

Control *controlRecord(LgIndex_t id, std::initializer_list<ControlKind> kinds)
{
    auto found = controls.find(id);
    if (found == controls.end())
        return nullptr;
    return std::find(kinds.begin(), kinds.end(), found->second.kind) != kinds.end()
               ? &found->second
               : nullptr;
}

LgIndex_t addDialog(Dialog dialog)
{
    dialog.id = ++lastId;
    dialog.up = false;
    dialog.controls.clear();
    dialogs.emplace(dialog.id, std::move(dialog));
    return lastId;
}

LgIndex_t addControl(LgIndex_t dialog, Control control)
{
    Dialog *owner = dialogRecord(dialog);
    if (owner == nullptr)
        return CVNGUI_BAD_ID;
    control.id = ++lastId;
    control.dialog = dialog;
    owner->controls.push_back(control.id);
    controls.emplace(control.id, std::move(control));
    return lastId;
}

const Dialog *findDialog(LgIndex_t id)
{
    return dialogRecord(id);
}

const Control *findControl(LgIndex_t id)
{
    auto found = controls.find(id);
    return found != controls.end() ? &found->second : nullptr;
}

LgIndex_t dialogByTitle(std::string_view title)
{
    for (const auto &[id, dialog] : dialogs)
        if (dialog.title == title)
            return id;
    return CVNGUI_BAD_ID;
}

LgIndex_t controlByLabel(LgIndex_t dialog, ControlKind kind, std::string_view label)
{
    const Dialog *owner = findDialog(dialog);
    if (owner == nullptr)
        return CVNGUI_BAD_ID;
    for (LgIndex_t id : owner->controls) {
        const Control *control = findControl(id);
        if (control->kind == kind && control->label == label)
            return id;
    }
    return CVNGUI_BAD_ID;
}

std::vector<LgIndex_t> controlsOfKind(LgIndex_t dialog, ControlKind kind)
{
    std::vector<LgIndex_t> found;
    if (const Dialog *owner = findDialog(dialog))
        for (LgIndex_t id : owner->controls)
            if (findControl(id)->kind == kind)
                found.push_back(id);
    return found;
}

bool pressDialogButton(LgIndex_t dialog, DialogButton button)
{
    const Dialog *owner = findDialog(dialog);
    if (owner == nullptr || !owner->up)
        return false;
    CvnGUIDialogCallback_pf callback = nullptr;
    switch (button) {
    case DialogButton::ok:
        callback = owner->ok;
        break;
    case DialogButton::apply:
        callback = owner->apply;
        break;
    case DialogButton::cancel:
        callback = owner->cancel;
        break;
    case DialogButton::help:
        callback = owner->help;
        break;
    }
    if (callback == nullptr)
        return false;
    callback();
    return true;
}

bool pressButton(LgIndex_t button)
{
    Control *control = actionable(button, {ControlKind::button});
    if (control == nullptr)
        return false;
    if (CvnGUIButtonCallback_pf callback = control->buttonCallback)
        callback();
    return true;
}

bool setToggle(LgIndex_t toggle, bool on)
{
    Control *control = actionable(toggle, {ControlKind::toggle});
    if (control == nullptr)
        return false;
    control->value = on ? 1 : 0;
    callInt(control->intCallback, control->value);
    return true;
}

bool chooseOption(LgIndex_t id, LgIndex_t option)
{
    Control *control = actionable(id, {ControlKind::radioBox, ControlKind::optionMenu});
    if (control == nullptr || option < 1 || option > static_cast<LgIndex_t>(control->items.size()))
        return false;
    control->value = option;
    callInt(control->intCallback, option);
    return true;
}

bool typeText(LgIndex_t id, std::string_view text)
{
    Control *control = actionable(id, {ControlKind::textField, ControlKind::text});
    if (control == nullptr || control->readOnly)
        return false;
    control->text = std::string(text);
    CvnGUITextCallback_pf callback = control->textCallback;
    if (callback == nullptr)
        return true;
    std::string copy(text); /* the callback may change the field */
    return callback(copy.c_str()) != 0;
}

bool selectItem(LgIndex_t list, LgIndex_t position)
{
    return selectItems(list, std::span<const LgIndex_t>(&position, 1));
}

bool selectItems(LgIndex_t list, std::span<const LgIndex_t> positions)
{
    Control *control = actionable(list, {ControlKind::list});
    if (control == nullptr || positions.empty() || (positions.size() > 1 && !control->multiSelection))
        return false;
    auto count = static_cast<LgIndex_t>(control->items.size());
    for (LgIndex_t position : positions)
        if (position < 1 || position > count)
            return false;
    control->selection.assign(positions.begin(), positions.end());
    callInt(control->intCallback, positions.back());
    return true;
}

void resetGui()
{
    dialogs.clear();
    controls.clear();
    lastId = 0;
}

} // namespace corvane::host::gui
