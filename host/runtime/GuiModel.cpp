/*
 * GuiModel.cpp - the records of the in-memory dialog toolkit: dialogs and
 * controls by id, and the stack of the dialogs that are up.
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
/* The dialogs that are up, bottom to top. */
std::vector<LgIndex_t> stack;
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
    auto added = controls.emplace(control.id, std::move(control)).first;
    controlChanged(added->second, Change::added);
    return added->first;
}

void launchDialog(LgIndex_t id)
{
    Dialog *dialog = dialogRecord(id);
    if (dialog == nullptr || dialog->up)
        return;
    dialog->up = true;
    stack.push_back(id);
    CvnGUIDialogCallback_pf init = dialog->init;
    notify({Change::dialogUp, id, CVNGUI_BAD_ID});
    if (init != nullptr)
        init();
}

void dropDialog(LgIndex_t id)
{
    Dialog *dialog = dialogRecord(id);
    if (dialog == nullptr || !dialog->up)
        return;
    dialog->up = false;
    std::erase(stack, id);
    notify({Change::dialogDown, id, CVNGUI_BAD_ID});
}

const std::vector<LgIndex_t> &dialogsUp()
{
    return stack;
}

LgIndex_t topDialog()
{
    return stack.empty() ? CVNGUI_BAD_ID : stack.back();
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

void dropAllDialogs()
{
    while (!stack.empty())
        dropDialog(stack.back());
}

void closeAllDialogs()
{
    while (!stack.empty()) {
        LgIndex_t top = stack.back();
        pressDialogButton(top, DialogButton::cancel);
        if (!stack.empty() && stack.back() == top)
            dropDialog(top);
    }
}

void resetGui()
{
    dialogs.clear();
    controls.clear();
    stack.clear();
    lastId = 0;
    forgetListeners();
}

} // namespace corvane::host::gui
