/*
 * GuiDialogs.cpp - the CvnGUI* calls for dialogs, sensitivity, frames,
 * labels and buttons.
 */
#include <string>

#include "GuiStore.h"

using namespace corvane::host::gui;

namespace {
/* Only blanks, or nothing. */
bool blank(const std::string &text)
{
    return text.find_first_not_of(" \t") == std::string::npos;
}
} // namespace

extern "C" {

LgIndex_t CvnGUIDialogCreateModal(LgIndex_t ParentDialogID, LgIndex_t Width, LgIndex_t Height,
                                  const char *Title, CvnGUIDialogCallback_pf InitCallback,
                                  CvnGUIDialogCallback_pf OkButtonCallback,
                                  CvnGUIDialogCallback_pf ApplyButtonCallback,
                                  CvnGUIDialogCallback_pf CancelButtonCallback,
                                  CvnGUIDialogCallback_pf HelpButtonCallback)
{
    return addDialog({.parent = ParentDialogID, .title = textOf(Title), .width = Width,
                      .height = Height, .init = InitCallback, .ok = OkButtonCallback,
                      .apply = ApplyButtonCallback, .cancel = CancelButtonCallback,
                      .help = HelpButtonCallback});
}

/* Does not wait for the dialog to close: the dialog goes on top of those
   up and its init callback runs before the call returns. */
void CvnGUIDialogLaunch(LgIndex_t DialogID)
{
    launchDialog(DialogID);
}

void CvnGUIDialogDrop(LgIndex_t DialogID)
{
    dropDialog(DialogID);
}

Boolean_t CvnGUIDialogIsUp(LgIndex_t DialogID)
{
    const Dialog *dialog = findDialog(DialogID);
    return dialog != nullptr && dialog->up ? TRUE : FALSE;
}

void CvnGUISetSensitivity(LgIndex_t ControlID, Boolean_t IsSensitive)
{
    if (Control *control = controlRecord(
            ControlID, {ControlKind::frame, ControlKind::label, ControlKind::button,
                        ControlKind::toggle, ControlKind::radioBox, ControlKind::optionMenu,
                        ControlKind::textField, ControlKind::text, ControlKind::list}))
        change(*control, control->sensitive, IsSensitive != FALSE, Change::sensitivity);
}

LgIndex_t CvnGUIFrameAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, LgIndex_t Width,
                         LgIndex_t Height, const char *Label)
{
    return addControl(ParentDialogID, {.kind = ControlKind::frame, .x = X, .y = Y,
                                       .width = Width, .height = Height, .label = textOf(Label)});
}

/* A label created blank shows a value the add-on sets later; any other
   names a control beside or below it. */
LgIndex_t CvnGUILabelAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, const char *Label)
{
    std::string text = textOf(Label);
    bool showsValue = blank(text);
    return addControl(ParentDialogID, {.kind = ControlKind::label, .x = X, .y = Y,
                                       .label = std::move(text), .showsValue = showsValue});
}

void CvnGUILabelSetText(LgIndex_t LabelID, const char *Text)
{
    if (Control *control = controlRecord(LabelID, {ControlKind::label}))
        change(*control, control->label, textOf(Text),
               control->showsValue ? Change::text : Change::label);
}

LgIndex_t CvnGUIButtonAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, LgIndex_t Width,
                          LgIndex_t Height, const char *Label, CvnGUIButtonCallback_pf Callback)
{
    return addControl(ParentDialogID, {.kind = ControlKind::button, .x = X, .y = Y,
                                       .width = Width, .height = Height, .label = textOf(Label),
                                       .buttonCallback = Callback});
}

} // extern "C"
