/*
 * GuiDialogs.cpp - the CvnGUI* calls for dialogs, frames, labels, buttons,
 * toggles, radio boxes and option menus.
 */
#include <string>

#include "GuiStore.h"

using namespace corvane::host::gui;

namespace {
/* The comma-separated labels of an option menu. */
std::vector<std::string> splitOptions(const char *list)
{
    std::vector<std::string> items;
    std::string rest = textOf(list);
    if (rest.empty())
        return items;
    std::size_t start = 0;
    for (;;) {
        std::size_t comma = rest.find(',', start);
        items.push_back(rest.substr(start, comma - start));
        if (comma == std::string::npos)
            break;
        start = comma + 1;
    }
    return items;
}

/* Adds a radio box or option menu with its items, the first one chosen. */
LgIndex_t addChoices(LgIndex_t dialog, ControlKind kind, std::vector<std::string> items,
                     CvnGUIIntCallback_pf callback)
{
    LgIndex_t chosen = items.empty() ? 0 : 1;
    return addControl(dialog, {.kind = kind, .value = chosen, .items = std::move(items),
                               .intCallback = callback});
}

/* Chooses the 1-based item of a radio box or option menu; other numbers
   are ignored. */
void setChoice(LgIndex_t id, ControlKind kind, LgIndex_t option)
{
    Control *control = controlRecord(id, {kind});
    if (control != nullptr && option >= 1 && option <= static_cast<LgIndex_t>(control->items.size()))
        control->value = option;
}

/* The chosen 1-based item, 0 for an unknown control. */
LgIndex_t choice(LgIndex_t id, ControlKind kind)
{
    const Control *control = controlRecord(id, {kind});
    return control != nullptr ? control->value : 0;
}
} // namespace

extern "C" {

LgIndex_t CvnGUIDialogCreateModal(LgIndex_t ParentDialogID, LgIndex_t /*Width*/,
                                  LgIndex_t /*Height*/, const char *Title,
                                  CvnGUIDialogCallback_pf InitCallback,
                                  CvnGUIDialogCallback_pf OkButtonCallback,
                                  CvnGUIDialogCallback_pf ApplyButtonCallback,
                                  CvnGUIDialogCallback_pf CancelButtonCallback,
                                  CvnGUIDialogCallback_pf HelpButtonCallback)
{
    return addDialog({.parent = ParentDialogID, .title = textOf(Title), .init = InitCallback,
                      .ok = OkButtonCallback, .apply = ApplyButtonCallback,
                      .cancel = CancelButtonCallback, .help = HelpButtonCallback});
}

void CvnGUIDialogLaunch(LgIndex_t DialogID)
{
    Dialog *dialog = dialogRecord(DialogID);
    if (dialog == nullptr || dialog->up)
        return;
    dialog->up = true;
    if (CvnGUIDialogCallback_pf init = dialog->init)
        init();
}

void CvnGUIDialogDrop(LgIndex_t DialogID)
{
    if (Dialog *dialog = dialogRecord(DialogID))
        dialog->up = false;
}

Boolean_t CvnGUIDialogIsUp(LgIndex_t DialogID)
{
    const Dialog *dialog = dialogRecord(DialogID);
    return dialog != nullptr && dialog->up ? TRUE : FALSE;
}

void CvnGUISetSensitivity(LgIndex_t ControlID, Boolean_t IsSensitive)
{
    if (Control *control = controlRecord(
            ControlID, {ControlKind::frame, ControlKind::label, ControlKind::button,
                        ControlKind::toggle, ControlKind::radioBox, ControlKind::optionMenu,
                        ControlKind::textField, ControlKind::text, ControlKind::list}))
        control->sensitive = IsSensitive != FALSE;
}

LgIndex_t CvnGUIFrameAdd(LgIndex_t ParentDialogID, LgIndex_t /*X*/, LgIndex_t /*Y*/,
                         LgIndex_t /*Width*/, LgIndex_t /*Height*/, const char *Label)
{
    return addControl(ParentDialogID, {.kind = ControlKind::frame, .label = textOf(Label)});
}

LgIndex_t CvnGUILabelAdd(LgIndex_t ParentDialogID, LgIndex_t /*X*/, LgIndex_t /*Y*/,
                         const char *Label)
{
    return addControl(ParentDialogID, {.kind = ControlKind::label, .label = textOf(Label)});
}

void CvnGUILabelSetText(LgIndex_t LabelID, const char *Text)
{
    if (Control *control = controlRecord(LabelID, {ControlKind::label}))
        control->label = textOf(Text);
}

LgIndex_t CvnGUIButtonAdd(LgIndex_t ParentDialogID, LgIndex_t /*X*/, LgIndex_t /*Y*/,
                          LgIndex_t /*Width*/, LgIndex_t /*Height*/, const char *Label,
                          CvnGUIButtonCallback_pf Callback)
{
    return addControl(ParentDialogID, {.kind = ControlKind::button, .label = textOf(Label),
                                       .buttonCallback = Callback});
}

LgIndex_t CvnGUIToggleAdd(LgIndex_t ParentDialogID, LgIndex_t /*X*/, LgIndex_t /*Y*/,
                          LgIndex_t /*Width*/, LgIndex_t /*Height*/, const char *Label,
                          CvnGUIIntCallback_pf Callback)
{
    return addControl(ParentDialogID, {.kind = ControlKind::toggle, .label = textOf(Label),
                                       .intCallback = Callback});
}

void CvnGUIToggleSet(LgIndex_t ToggleID, Boolean_t SetOn)
{
    if (Control *control = controlRecord(ToggleID, {ControlKind::toggle}))
        control->value = SetOn != FALSE ? 1 : 0;
}

Boolean_t CvnGUIToggleGet(LgIndex_t ToggleID)
{
    const Control *control = controlRecord(ToggleID, {ControlKind::toggle});
    return control != nullptr && control->value != 0 ? TRUE : FALSE;
}

LgIndex_t CvnGUIRadioBoxAdd(LgIndex_t ParentDialogID, LgIndex_t /*X*/, LgIndex_t /*Y*/,
                            LgIndex_t /*Width*/, LgIndex_t /*Height*/, const char *Label1,
                            const char *Label2, const char *Label3, const char *Label4,
                            const char *Label5, CvnGUIIntCallback_pf Callback)
{
    std::vector<std::string> items;
    for (const char *label : {Label1, Label2, Label3, Label4, Label5}) {
        if (label == nullptr || *label == '\0')
            break;
        items.emplace_back(label);
    }
    return addChoices(ParentDialogID, ControlKind::radioBox, std::move(items), Callback);
}

void CvnGUIRadioBoxSetSelectedOption(LgIndex_t RadioBoxID, LgIndex_t Option)
{
    setChoice(RadioBoxID, ControlKind::radioBox, Option);
}

LgIndex_t CvnGUIRadioBoxGetSelectedOption(LgIndex_t RadioBoxID)
{
    return choice(RadioBoxID, ControlKind::radioBox);
}

LgIndex_t CvnGUIOptionMenuAdd(LgIndex_t ParentDialogID, LgIndex_t /*X*/, LgIndex_t /*Y*/,
                              LgIndex_t /*Width*/, LgIndex_t /*Height*/, const char *OptionList,
                              CvnGUIIntCallback_pf Callback)
{
    return addChoices(ParentDialogID, ControlKind::optionMenu, splitOptions(OptionList), Callback);
}

void CvnGUIOptionMenuSet(LgIndex_t OptionMenuID, LgIndex_t Option)
{
    setChoice(OptionMenuID, ControlKind::optionMenu, Option);
}

LgIndex_t CvnGUIOptionMenuGet(LgIndex_t OptionMenuID)
{
    return choice(OptionMenuID, ControlKind::optionMenu);
}

} // extern "C"
