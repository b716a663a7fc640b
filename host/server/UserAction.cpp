/*
 * UserAction.cpp - parsing and doing the page's actions.
 */
#include "UserAction.h"

#include <algorithm>
#include <limits>
#include <map>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "GuiActions.h"

namespace corvane::server {

using host::Expected;
using host::unexpected;
using nlohmann::json;
using Type = UserAction::Type;

namespace {

const std::map<std::string, Type, std::less<>> types = {
    {"openLoader", Type::openLoader}, {"press", Type::press}, {"dialogButton", Type::dialogButton},
    {"toggle", Type::toggle},         {"choose", Type::choose}, {"text", Type::text},
    {"select", Type::select}};

const std::map<std::string, host::gui::DialogButton, std::less<>> buttons = {
    {"ok", host::gui::DialogButton::ok},
    {"cancel", host::gui::DialogButton::cancel},
    {"help", host::gui::DialogButton::help}};

bool isId(const json &value)
{
    if (!value.is_number_integer())
        return false;
    auto number = value.get<long long>();
    return number >= std::numeric_limits<LgIndex_t>::min() &&
           number <= std::numeric_limits<LgIndex_t>::max();
}

bool isString(const json &value)
{
    return value.is_string();
}

bool isBool(const json &value)
{
    return value.is_boolean();
}

bool isIdList(const json &value)
{
    return value.is_array() && std::all_of(value.begin(), value.end(), isId);
}

/* The members of an action's body, with the first problem found. */
class Members {
public:
    explicit Members(const json &body) : body_(body) {}

    /* The member, when it holds what check accepts; else nullptr, and the
       problem names it and what it should hold. */
    const json *get(const char *name, bool (*check)(const json &), const char *what)
    {
        auto found = body_.find(name);
        if (found != body_.end() && check(*found))
            return &*found;
        if (problem_.empty())
            problem_ = fmt::format("the action needs \"{}\": {}", name, what);
        return nullptr;
    }
    const std::string &problem() const { return problem_; }

private:
    const json &body_;
    std::string problem_;
};

std::string refused(std::string_view subject, LgIndex_t id, host::gui::ActionResult result)
{
    return fmt::format("{} {} {}", subject, id, host::gui::describe(result.refusal()));
}

} // namespace

Expected<UserAction> parseAction(std::string_view text)
{
    json body = json::parse(text, nullptr, false);
    if (!body.is_object())
        return unexpected("the action is not a JSON object");
    Members members(body);
    const json *typeName = members.get("type", isString, "a text");
    if (!typeName)
        return unexpected(members.problem());
    auto type = types.find(typeName->get<std::string>());
    if (type == types.end())
        return unexpected(fmt::format("unknown action type \"{}\"", typeName->get<std::string>()));

    UserAction action;
    action.type = type->second;
    if (action.type == Type::openLoader) {
        if (const json *loader = members.get("loader", isString, "a text"))
            action.loader = loader->get<std::string>();
    } else if (action.type == Type::dialogButton) {
        if (const json *dialog = members.get("dialog", isId, "a dialog id"))
            action.target = dialog->get<LgIndex_t>();
        auto isButton = [](const json &value) {
            return value.is_string() && buttons.contains(value.get<std::string>());
        };
        if (const json *button = members.get("button", isButton, "ok, cancel or help"))
            action.button = buttons.find(button->get<std::string>())->second;
    } else if (const json *control = members.get("control", isId, "a control id")) {
        action.target = control->get<LgIndex_t>();
    }
    switch (action.type) {
    case Type::toggle:
        if (const json *on = members.get("on", isBool, "true or false"))
            action.on = on->get<bool>();
        break;
    case Type::choose:
        if (const json *item = members.get("item", isId, "an item number"))
            action.item = item->get<LgIndex_t>();
        break;
    case Type::text:
        if (const json *typed = members.get("text", isString, "a text"))
            action.text = typed->get<std::string>();
        break;
    case Type::select:
        if (const json *items = members.get("items", isIdList, "a list of item numbers"))
            action.items = items->get<std::vector<LgIndex_t>>();
        break;
    default:
        break;
    }
    if (!members.problem().empty())
        return unexpected(members.problem());
    return action;
}

Expected<void> perform(const UserAction &action, LoaderMenu &menu)
{
    using namespace host::gui;
    ActionResult result;
    switch (action.type) {
    case Type::openLoader:
        return menu.pick(action.loader);
    case Type::dialogButton:
        result = user::pressDialogButton(action.target, action.button);
        if (!result)
            return unexpected(refused("dialog", action.target, result));
        return {};
    case Type::press:
        result = user::press(action.target);
        break;
    case Type::toggle:
        result = user::setToggle(action.target, action.on);
        break;
    case Type::choose:
        result = user::choose(action.target, action.item);
        break;
    case Type::text:
        result = user::type(action.target, action.text);
        break;
    case Type::select:
        result = user::select(action.target, action.items);
        break;
    }
    if (!result)
        return unexpected(refused("control", action.target, result));
    return {};
}

} // namespace corvane::server
