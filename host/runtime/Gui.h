/*
 * Gui.h - the in-memory dialog toolkit behind the CvnGUI* calls: dialogs
 * and their controls as plain records, and the actions of a user (press a
 * button, tick a toggle, type into a field, pick list items) for tests and
 * scripted sessions. Actions call the control's callback as the toolkit
 * would; the CvnGUI*Set* calls of add-ons change values without callbacks.
 */
#ifndef CORVANE_HOST_GUI_H
#define CORVANE_HOST_GUI_H

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "CvnAPI.h"

namespace corvane::host::gui {

enum class ControlKind { frame, label, button, toggle, radioBox, optionMenu, textField, text, list };

/* The buttons every modal dialog has. */
enum class DialogButton { ok, apply, cancel, help };

struct Dialog {
    LgIndex_t id = CVNGUI_BAD_ID;
    LgIndex_t parent = CVNGUI_MAIN_DIALOG_ID;
    std::string title{};
    CvnGUIDialogCallback_pf init = nullptr;
    CvnGUIDialogCallback_pf ok = nullptr;
    CvnGUIDialogCallback_pf apply = nullptr;
    CvnGUIDialogCallback_pf cancel = nullptr;
    CvnGUIDialogCallback_pf help = nullptr;
    bool up = false;
    std::vector<LgIndex_t> controls{}; /* in the order they were added */
};

struct Control {
    LgIndex_t id = CVNGUI_BAD_ID;
    LgIndex_t dialog = CVNGUI_BAD_ID;
    ControlKind kind = ControlKind::label;
    std::string label{};            /* frame, label, button, toggle */
    LgIndex_t value = 0;            /* toggle 0/1; radio box and option menu: the 1-based item */
    std::string text{};             /* text field and multi-line text */
    std::vector<std::string> items{}; /* radio box, option menu and list items */
    std::vector<LgIndex_t> selection{}; /* list: selected positions, in selection order */
    bool sensitive = true;
    bool readOnly = false;          /* multi-line text */
    bool multiSelection = false;    /* list */
    CvnGUIButtonCallback_pf buttonCallback = nullptr;
    CvnGUIIntCallback_pf intCallback = nullptr;
    CvnGUITextCallback_pf textCallback = nullptr;
};

/* The dialog or control with that id, or nullptr. The pointer stays valid
   until resetGui(). */
const Dialog *findDialog(LgIndex_t id);
const Control *findControl(LgIndex_t id);
/* The id of the first dialog with that title, or CVNGUI_BAD_ID. */
LgIndex_t dialogByTitle(std::string_view title);
/* The id of the first control of the dialog with that kind and label, or
   CVNGUI_BAD_ID. */
LgIndex_t controlByLabel(LgIndex_t dialog, ControlKind kind, std::string_view label);
/* The dialog's controls of one kind, in the order they were added. */
std::vector<LgIndex_t> controlsOfKind(LgIndex_t dialog, ControlKind kind);

/* User actions. Each fails (false, nothing called) when the control is
   unknown, of another kind, insensitive, or its dialog is not up. */
bool pressDialogButton(LgIndex_t dialog, DialogButton button);
bool pressButton(LgIndex_t button);
bool setToggle(LgIndex_t toggle, bool on);
/* Radio box or option menu: picks the 1-based item. */
bool chooseOption(LgIndex_t control, LgIndex_t option);
/* Text field or multi-line text: replaces the text and calls the callback;
   the result is the callback's acceptance (true without a callback). */
bool typeText(LgIndex_t control, std::string_view text);
/* List: selects one item, or several in a multi-selection list; the
   callback gets the last position given. */
bool selectItem(LgIndex_t list, LgIndex_t position);
bool selectItems(LgIndex_t list, std::span<const LgIndex_t> positions);

/* Forgets every dialog and control (ids start again at 1). */
void resetGui();

} // namespace corvane::host::gui

#endif
