/*
 * Gui.h - the in-memory dialog toolkit behind the CvnGUI* calls: dialogs
 * and their controls as plain records, the stack of dialogs that are up,
 * and the actions of a user (press a button, tick a toggle, type into a
 * field, pick list items) as booleans. GuiActions.h gives the same actions
 * with the reason of a refusal, GuiState.h the whole state as one value
 * with captions and lookups by name, GuiEvents.h change notifications.
 *
 * The toolkit is single-threaded: every call, and every add-on callback it
 * makes, runs on the thread of the host's user interface.
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
    LgIndex_t width = 0; /* dialog units, as created */
    LgIndex_t height = 0;
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
    /* Position and size in dialog units, as given; a label has no size. */
    LgIndex_t x = 0, y = 0, width = 0, height = 0;
    std::string label{};            /* frame, button, toggle; a label's current text */
    bool showsValue = false;        /* label created blank: it shows a value, not a name */
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

/* The dialogs that are up, in the order they were launched: the last one is
   the top dialog, the one the user works in. */
const std::vector<LgIndex_t> &dialogsUp();
/* The top dialog, or CVNGUI_BAD_ID when none is up. */
LgIndex_t topDialog();

/* User actions. Each fails (false, nothing called) when the control is
   unknown, of another kind, insensitive, or not in the top dialog; see
   GuiActions.h for the reason. */
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

/* Takes down every dialog that is up, top first, calling nothing. */
void dropAllDialogs();
/* Closes every dialog that is up, top first, as a user closing the host's
   windows does: the dialog's Cancel runs (and takes it down, as it gives
   back what the dialog held); a dialog without one, or that stays up, is
   dropped. The boxes its Cancel raises go to the current user interface. */
void closeAllDialogs();
/* Forgets every dialog, control and subscription (ids start again at 1). */
void resetGui();

} // namespace corvane::host::gui

#endif
