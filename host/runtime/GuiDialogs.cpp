/*
 * GuiDialogs.cpp - the CvnGUI* calls for dialogs, frames, labels, buttons,
 * toggles, radio boxes and option menus.
 */
#include <string>

#include "GuiStore.h"

using namespace corvane::host::gui;

namespace {
std::string textOf(const char *text)
{
    return text != nullptr ? std::string(text) : std::string();
}

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
    Dialog dialog;
    dialog.parent = ParentDialogID;
    dialog.title = textOf(Title);
    dialog.init = InitCallback;
    dialog.ok = OkButtonCallback;
    dialog.apply = ApplyButtonCallback;
    dialog.cancel = CancelButtonCallback;
    dialog.help = HelpButtonCallback;
    return addDialog(std::move(dialog));
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
    Control control;
    control.kind = ControlKind::frame;
    control.label = textOf(Label);
    return addControl(ParentDialogID, std::move(control));
}

LgIndex_t CvnGUILabelAdd(LgIndex_t ParentDialogID, LgIndex_t /*X*/, LgIndex_t /*Y*/,
                         const char *Label)
{
    Control control;
    control.kind = ControlKind::label;
    control.label = textOf(Label);
    return addControl(ParentDialogID, std::move(control));
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
    Control control;
    control.kind = ControlKind::button;
    control.label = textOf(Label);
    control.buttonCallback = Callback;
    return addControl(ParentDialogID, std::move(control));
}

LgIndex_t CvnGUIToggleAdd(LgIndex_t ParentDialogID, LgIndex_t /*X*/, LgIndex_t /*Y*/,
                          LgIndex_t /*Width*/, LgIndex_t /*Height*/, const char *Label,
                          CvnGUIIntCallback_pf Callback)
{
    Control control;
    control.kind = ControlKind::toggle;
    control.label = textOf(Label);
    control.intCallback = Callback;
    return addControl(ParentDialogID, std::move(control));
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
    Control control;
    control.kind = ControlKind::radioBox;
    for (const char *label : {Label1, Label2, Label3, Label4, Label5}) {
        if (label == nullptr || *label == '\0')
            break;
        control.items.emplace_back(label);
    }
    control.value = control.items.empty() ? 0 : 1;
    control.intCallback = Callback;
    return addControl(ParentDialogID, std::move(control));
}

void CvnGUIRadioBoxSetSelectedOption(LgIndex_t RadioBoxID, LgIndex_t Option)
{
    Control *control = controlRecord(RadioBoxID, {ControlKind::radioBox});
    if (control != nullptr && Option >= 1 && Option <= static_cast<LgIndex_t>(control->items.size()))
        control->value = Option;
}

LgIndex_t CvnGUIRadioBoxGetSelectedOption(LgIndex_t RadioBoxID)
{
    const Control *control = controlRecord(RadioBoxID, {ControlKind::radioBox});
    return control != nullptr ? control->value : 0;
}

LgIndex_t CvnGUIOptionMenuAdd(LgIndex_t ParentDialogID, LgIndex_t /*X*/, LgIndex_t /*Y*/,
                              LgIndex_t /*Width*/, LgIndex_t /*Height*/, const char *OptionList,
                              CvnGUIIntCallback_pf Callback)
{
    Control control;
    control.kind = ControlKind::optionMenu;
    control.items = splitOptions(OptionList);
    control.value = control.items.empty() ? 0 : 1;
    control.intCallback = Callback;
    return addControl(ParentDialogID, std::move(control));
}

void CvnGUIOptionMenuSet(LgIndex_t OptionMenuID, LgIndex_t Option)
{
    Control *control = controlRecord(OptionMenuID, {ControlKind::optionMenu});
    if (control != nullptr && Option >= 1 && Option <= static_cast<LgIndex_t>(control->items.size()))
        control->value = Option;
}

LgIndex_t CvnGUIOptionMenuGet(LgIndex_t OptionMenuID)
{
    const Control *control = controlRecord(OptionMenuID, {ControlKind::optionMenu});
    return control != nullptr ? control->value : 0;
}

} // extern "C"
