/*
 * GuiState.h - the dialogs that are up as one plain value, for front ends
 * that show them and scripts that check them; the captions that name
 * fields, texts, option menus, lists and value-showing labels by the
 * layout; finding controls and items by the text a user reads.
 *
 * Captions. A label created with an empty or blank text shows a value (the
 * add-on sets it later); other labels are static. Static labels and toggles
 * with a text are caption sources. A text field, multi-line text, option
 * menu, list or value-showing label C takes its caption from:
 *  1. the source S of its dialog left of it on the same row: S.x < C.x and
 *     |S.y - C.y| <= 4; the one with the largest x;
 *  2. else the source above it: C.y - 24 <= S.y < C.y - 4 and
 *     C.x - 4 <= S.x < C.x + max(C.width, 1); the largest y, then the
 *     smallest x;
 *  3. else the smallest frame (by area) whose rectangle holds (C.x, C.y):
 *     F.x <= C.x < F.x + F.width and F.y <= C.y < F.y + F.height;
 *  4. else none. Ties go to the control added first.
 * Frames, labels that name something, buttons, toggles and radio boxes have
 * no caption: their own label names them.
 */
#ifndef CORVANE_HOST_GUISTATE_H
#define CORVANE_HOST_GUISTATE_H

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Gui.h"

namespace corvane::host::gui {

struct ControlState {
    LgIndex_t id = CVNGUI_BAD_ID;
    ControlKind kind = ControlKind::label;
    std::optional<std::string> label{};   /* none when blank, and for value-showing labels */
    std::optional<std::string> caption{}; /* by the rules above */
    bool sensitive = true;
    LgIndex_t x = 0, y = 0, width = 0, height = 0;
    bool on = false;                  /* toggle */
    std::vector<std::string> items{}; /* radio box, option menu, list */
    /* Radio box and option menu: the 1-based item picked (none: empty);
       list: the selected positions, in selection order. */
    std::vector<LgIndex_t> selected{};
    std::optional<std::string> text{}; /* text field, multi-line text, label */
    bool readOnly = false; /* multi-line text the user cannot edit */
    bool multi = false;    /* list that selects several items */
    bool operator==(const ControlState &) const = default;
};

struct DialogState {
    LgIndex_t id = CVNGUI_BAD_ID;
    std::string title{};
    LgIndex_t width = 0, height = 0;
    /* The dialog's own buttons in the order shown: "ok", "apply" (when the
       add-on gave one), "cancel", "help". */
    std::vector<std::string> buttons{};
    std::vector<ControlState> controls{}; /* in the order they were added */
    bool operator==(const DialogState &) const = default;
};

struct GuiState {
    std::vector<DialogState> dialogs{}; /* the dialogs up, bottom to top */
    bool operator==(const GuiState &) const = default;
};

GuiState snapshot();
/* One control's state, or nothing for an unknown id. */
std::optional<ControlState> controlState(LgIndex_t id);

/* The control's caption, or nothing. */
std::optional<std::string> captionOf(LgIndex_t control);

/* The name of a kind in dumps and in "kind#N" names: frame, label, button,
   toggle, radio, option, field, text, list. */
std::string_view kindName(ControlKind kind);
std::optional<ControlKind> kindNamed(std::string_view name);

/* Texts as a user names them: blanks around trimmed, a run of blanks
   counted as one, and a final ':' left out. */
std::string normalName(std::string_view text);
/* The text read by the rule above is the name. */
bool namesMatch(std::string_view name, std::string_view text);

/* The first control of the dialog of one of the kinds (any kind when none
   are given) named name: "kind#N" for the N-th control of that kind, else
   by its label or caption; CVNGUI_BAD_ID when there is none. */
LgIndex_t findNamed(LgIndex_t dialog, std::string_view name,
                    std::span<const ControlKind> kinds = {});
/* The same among the controls accept lets through. */
LgIndex_t findNamed(LgIndex_t dialog, std::string_view name,
                    const std::function<bool(const ControlState &)> &accept);
/* The 1-based position of the first item of a radio box, option menu or
   list with that name, or nothing. */
std::optional<LgIndex_t> findItem(LgIndex_t control, std::string_view name);

} // namespace corvane::host::gui

#endif
