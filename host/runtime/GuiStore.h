/*
 * GuiStore.h - the dialog toolkit's records as the CvnGUI* calls change
 * them (runtime use only; tests read them through Gui.h and GuiState.h).
 */
#ifndef CORVANE_HOST_GUISTORE_H
#define CORVANE_HOST_GUISTORE_H

#include <initializer_list>
#include <string>

#include "Gui.h"
#include "GuiEvents.h"

namespace corvane::host::gui {

Dialog *dialogRecord(LgIndex_t id);
/* The control with that id when it is of one of the kinds, else nullptr. */
Control *controlRecord(LgIndex_t id, std::initializer_list<ControlKind> kinds);
/* Adds a dialog; its new id. */
LgIndex_t addDialog(Dialog dialog);
/* Adds a control to an existing dialog and tells the listeners; its new
   id, or CVNGUI_BAD_ID when there is no such dialog. */
LgIndex_t addControl(LgIndex_t dialog, Control control);

/* Marks the dialog up, puts it on top of the stack, tells the listeners and
   runs its init callback; nothing when it is up already or unknown. */
void launchDialog(LgIndex_t id);
/* Takes the dialog out of the stack wherever it is and tells the
   listeners; nothing when it is not up. */
void dropDialog(LgIndex_t id);

/* Tells every listener (GuiEvents.cpp). */
void notify(const GuiEvent &event);
void controlChanged(const Control &control, Change change);
void forgetListeners();

/* Replaces field with value; tells the listeners about the control when
   that changed it. True when it did. */
template <class Value>
bool change(Control &control, Value &field, Value value, Change what)
{
    if (field == value)
        return false;
    field = std::move(value);
    controlChanged(control, what);
    return true;
}

/* The text of a C string argument; NULL reads as empty. */
inline std::string textOf(const char *text)
{
    return text != nullptr ? std::string(text) : std::string();
}

} // namespace corvane::host::gui

#endif
