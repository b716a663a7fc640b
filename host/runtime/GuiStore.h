/*
 * GuiStore.h - the dialog toolkit's records as the CvnGUI* calls change
 * them (runtime use only; tests read them through Gui.h).
 */
#ifndef CORVANE_HOST_GUISTORE_H
#define CORVANE_HOST_GUISTORE_H

#include <initializer_list>
#include <string>

#include "Gui.h"

namespace corvane::host::gui {

Dialog *dialogRecord(LgIndex_t id);
/* The control with that id when it is of one of the kinds, else nullptr. */
Control *controlRecord(LgIndex_t id, std::initializer_list<ControlKind> kinds);
/* Adds a dialog; its new id. */
LgIndex_t addDialog(Dialog dialog);
/* Adds a control to an existing dialog; its new id, or CVNGUI_BAD_ID when
   there is no such dialog. */
LgIndex_t addControl(LgIndex_t dialog, Control control);

/* The text of a C string argument; NULL reads as empty. */
inline std::string textOf(const char *text)
{
    return text != nullptr ? std::string(text) : std::string();
}

} // namespace corvane::host::gui

#endif
