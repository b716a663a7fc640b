/*
 * GuiSnapshot.cpp - the dialogs that are up, copied into one plain value.
 */
#include "GuiState.h"

namespace corvane::host::gui {

namespace {

std::optional<std::string> shownLabel(const Control &control)
{
    bool named = control.kind == ControlKind::frame || control.kind == ControlKind::button ||
                 control.kind == ControlKind::toggle ||
                 (control.kind == ControlKind::label && !control.showsValue);
    if (!named || control.label.find_first_not_of(" \t") == std::string::npos)
        return std::nullopt;
    return control.label;
}

ControlState stateOf(const Control &control)
{
    ControlState state{.id = control.id,
                       .kind = control.kind,
                       .label = shownLabel(control),
                       .caption = captionOf(control.id),
                       .sensitive = control.sensitive,
                       .x = control.x,
                       .y = control.y,
                       .width = control.width,
                       .height = control.height};
    switch (control.kind) {
    case ControlKind::toggle:
        state.on = control.value != 0;
        break;
    case ControlKind::radioBox:
    case ControlKind::optionMenu:
        state.items = control.items;
        if (control.value != 0)
            state.selected = {control.value};
        break;
    case ControlKind::list:
        state.items = control.items;
        state.selected = control.selection;
        state.multi = control.multiSelection;
        break;
    case ControlKind::textField:
    case ControlKind::text:
        state.text = control.text;
        state.readOnly = control.readOnly;
        break;
    case ControlKind::label:
        state.text = control.label;
        break;
    case ControlKind::frame:
    case ControlKind::button:
        break;
    }
    return state;
}

} // namespace

std::optional<ControlState> controlState(LgIndex_t id)
{
    const Control *control = findControl(id);
    return control != nullptr ? std::optional(stateOf(*control)) : std::nullopt;
}

GuiState snapshot()
{
    GuiState state;
    for (LgIndex_t id : dialogsUp()) {
        const Dialog &dialog = *findDialog(id);
        DialogState &shown = state.dialogs.emplace_back(DialogState{
            .id = id, .title = dialog.title, .width = dialog.width, .height = dialog.height});
        shown.buttons = {"ok"};
        if (dialog.apply != nullptr)
            shown.buttons.push_back("apply");
        shown.buttons.insert(shown.buttons.end(), {"cancel", "help"});
        for (LgIndex_t control : dialog.controls)
            shown.controls.push_back(stateOf(*findControl(control)));
    }
    return state;
}

} // namespace corvane::host::gui
