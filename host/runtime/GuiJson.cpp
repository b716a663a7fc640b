/*
 * GuiJson.cpp - the dialogs' state as JSON, keys in a fixed order so that
 * dumps compare as text.
 */
#include "GuiJson.h"

namespace corvane::host::gui {

namespace {

using Json = nlohmann::ordered_json;

Json optionalText(const std::optional<std::string> &text)
{
    return text ? Json(*text) : Json(nullptr);
}

Json controlJson(const ControlState &control, bool withId = false)
{
    Json json = Json::object();
    if (withId)
        json["id"] = control.id;
    json.update(Json{{"kind", kindName(control.kind)},
                     {"label", optionalText(control.label)},
                     {"caption", optionalText(control.caption)},
                     {"sensitive", control.sensitive},
                     {"x", control.x},
                     {"y", control.y},
                     {"width", control.width},
                     {"height", control.height}});
    switch (control.kind) {
    case ControlKind::toggle:
        json["on"] = control.on;
        break;
    case ControlKind::radioBox:
    case ControlKind::optionMenu:
    case ControlKind::list:
        json["items"] = control.items;
        json["selected"] = control.selected;
        break;
    case ControlKind::textField:
    case ControlKind::text:
    case ControlKind::label:
        json["text"] = optionalText(control.text);
        break;
    case ControlKind::frame:
    case ControlKind::button:
        break;
    }
    /* What a page needs to draw the control, beyond what a dump shows. */
    if (withId && control.kind == ControlKind::text)
        json["readOnly"] = control.readOnly;
    if (withId && control.kind == ControlKind::list)
        json["multi"] = control.multi;
    return json;
}

Json stateJson(const GuiState &state, bool withIds)
{
    Json dialogs = Json::array();
    for (const DialogState &dialog : state.dialogs) {
        Json controls = Json::array();
        for (const ControlState &control : dialog.controls)
            controls.push_back(controlJson(control, withIds));
        Json json = Json::object();
        if (withIds)
            json["id"] = dialog.id;
        json.update(Json{{"title", dialog.title}, {"width", dialog.width}, {"height", dialog.height}});
        if (withIds)
            json["buttons"] = dialog.buttons;
        json["controls"] = std::move(controls);
        dialogs.push_back(std::move(json));
    }
    return {{"dialogs", std::move(dialogs)}};
}

} // namespace

nlohmann::ordered_json toJson(const GuiState &state)
{
    return stateJson(state, false);
}

nlohmann::ordered_json toJsonWithIds(const GuiState &state)
{
    return stateJson(state, true);
}

std::string toJsonText(const GuiState &state)
{
    auto compact = [](const Json &json) {
        return json.dump(-1, ' ', false, Json::error_handler_t::replace);
    };
    std::string text = "{\n  \"dialogs\": [";
    const char *dialogSeparator = "\n";
    for (const DialogState &dialog : state.dialogs) {
        text += dialogSeparator;
        dialogSeparator = ",\n";
        text += "    {\n      \"title\": " + compact(dialog.title) + ",\n";
        text += "      \"width\": " + compact(dialog.width) + ",\n";
        text += "      \"height\": " + compact(dialog.height) + ",\n";
        text += "      \"controls\": [";
        const char *controlSeparator = "\n";
        for (const ControlState &control : dialog.controls) {
            text += controlSeparator;
            controlSeparator = ",\n";
            text += "        " + compact(controlJson(control));
        }
        text += dialog.controls.empty() ? "]\n    }" : "\n      ]\n    }";
    }
    text += state.dialogs.empty() ? "]\n}\n" : "\n  ]\n}\n";
    return text;
}

} // namespace corvane::host::gui
