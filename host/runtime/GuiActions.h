/*
 * GuiActions.h - what a user does in the dialogs, for front ends: press a
 * button, tick a toggle, pick an item, type into a field and leave it,
 * select list items. An action works only on a sensitive control of the top
 * dialog; otherwise it is refused, nothing is called, and the result says
 * why. The add-on's callback runs on the calling thread before the action
 * returns, and may add, set, launch and drop dialogs and controls.
 *
 * A toggle, radio box or option menu calls its callback only when its value
 * changes; setting the value it already has succeeds and calls nothing.
 */
#ifndef CORVANE_HOST_GUIACTIONS_H
#define CORVANE_HOST_GUIACTIONS_H

#include <optional>
#include <span>
#include <string_view>

#include "Gui.h"

namespace corvane::host::gui {

enum class Refusal {
    noSuchDialog,   /* no dialog has that id */
    noSuchControl,  /* no control has that id */
    wrongKind,      /* the control is not of a kind the action works on */
    notOnTop,       /* the dialog is not up, or another one is above it */
    insensitive,    /* the control is insensitive */
    readOnly,       /* a read-only multi-line text */
    noSuchButton,   /* the dialog has no such button of its own */
    noSuchItem,     /* an item number outside the items, or no item given */
    oneItemOnly,    /* several items for a list that selects one */
};

/* The refusal in words, e.g. "is insensitive" (to follow the control's
   name). */
std::string_view describe(Refusal refusal);

/* What an action did: done, or refused for a reason. */
class ActionResult {
public:
    ActionResult() = default; /* done */
    ActionResult(Refusal refusal) : refusal_(refusal) {}
    explicit operator bool() const { return !refusal_; }
    /* The reason; only for a refused action. */
    Refusal refusal() const { return *refusal_; }
    bool operator==(const ActionResult &) const = default;

private:
    std::optional<Refusal> refusal_;
};

namespace user {

/* A dialog's own OK, Apply, Cancel or Help button: there when the add-on
   gave the dialog that callback. */
ActionResult pressDialogButton(LgIndex_t dialog, DialogButton button);
ActionResult press(LgIndex_t button);
ActionResult setToggle(LgIndex_t toggle, bool on);
/* Radio box or option menu: picks the 1-based item. */
ActionResult choose(LgIndex_t control, LgIndex_t item);
/* Text field or editable multi-line text: replaces the text, then runs the
   callback as the user leaves the field. *accepted, when given, gets the
   callback's answer (true without a callback). */
ActionResult type(LgIndex_t control, std::string_view text, bool *accepted = nullptr);
/* List: selects the 1-based positions in that order (one, unless the list
   selects several); the callback gets the last one. */
ActionResult select(LgIndex_t list, std::span<const LgIndex_t> positions);

} // namespace user

} // namespace corvane::host::gui

#endif
