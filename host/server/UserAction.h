/*
 * UserAction.h - what the user did in the page, as POST /api/action sends
 * it, and doing it in the dialog toolkit:
 *
 *   {"type": "openLoader", "loader": NAME}
 *   {"type": "press", "control": ID}
 *   {"type": "dialogButton", "dialog": ID, "button": "ok" | "cancel" | "help"}
 *   {"type": "toggle", "control": ID, "on": BOOL}
 *   {"type": "choose", "control": ID, "item": N}        (1-based)
 *   {"type": "text", "control": ID, "text": TEXT}
 *   {"type": "select", "control": ID, "items": [N...]}  (1-based, in order)
 */
#ifndef CORVANE_SERVER_USERACTION_H
#define CORVANE_SERVER_USERACTION_H

#include <string>
#include <string_view>
#include <vector>

#include "Expected.h"
#include "Gui.h"
#include "LoaderMenu.h"

namespace corvane::server {

struct UserAction {
    enum class Type { openLoader, press, dialogButton, toggle, choose, text, select };
    Type type = Type::press;
    std::string loader;                        /* openLoader */
    LgIndex_t target = CVNGUI_BAD_ID;          /* the control, or the dialog */
    host::gui::DialogButton button = host::gui::DialogButton::ok;
    bool on = false;                           /* toggle */
    LgIndex_t item = 0;                        /* choose */
    std::string text;                          /* text */
    std::vector<LgIndex_t> items;              /* select */
};

/* The action of a request body; the error says what is wrong with it. */
host::Expected<UserAction> parseAction(std::string_view body);

/* Does the action on the user-interface thread; the error says why it
   cannot be done (e.g. "control 7 is insensitive"). */
host::Expected<void> perform(const UserAction &action, LoaderMenu &menu);

} // namespace corvane::server

#endif
