/*
 * GuiJson.h - the state of the dialogs that are up as JSON, for every front
 * end that hands it on (the scripts' dump, a browser):
 *
 *   {"dialogs": [{"title", "width", "height", "controls": [
 *       {"kind", "label", "caption", "sensitive", "x", "y", "width", "height",
 *        and by kind: "on" (toggle); "items", "selected" (radio, option,
 *        list); "text" (field, text, label)}]}]}
 *
 * Dialogs from the bottom to the top, controls in the order the add-on
 * added them; a missing label or caption is null. "selected" holds the
 * 1-based item picked in a radio box or option menu (none: empty), the
 * selected positions of a list.
 */
#ifndef CORVANE_HOST_GUIJSON_H
#define CORVANE_HOST_GUIJSON_H

#include <string>

#include <nlohmann/json.hpp>

#include "GuiState.h"

namespace corvane::host::gui {

nlohmann::ordered_json toJson(const GuiState &state);
/* The same with the toolkit's "id" first in every dialog and control, for
   front ends that send actions back by id. */
nlohmann::ordered_json toJsonWithIds(const GuiState &state);
/* The same JSON as text: indented by two blanks with one control a line,
   ending in a line feed; bytes that are not UTF-8 are replaced. */
std::string toJsonText(const GuiState &state);

} // namespace corvane::host::gui

#endif
