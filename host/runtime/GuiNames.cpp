/*
 * GuiNames.cpp - finding controls and items by the names a user reads:
 * labels, captions, item texts, and "kind#N".
 */
#include <algorithm>
#include <charconv>

#include "GuiState.h"

namespace corvane::host::gui {

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

struct KindName {
    ControlKind kind;
    std::string_view name;
};

constexpr KindName kindNames[] = {
    {ControlKind::frame, "frame"},       {ControlKind::label, "label"},
    {ControlKind::button, "button"},     {ControlKind::toggle, "toggle"},
    {ControlKind::radioBox, "radio"},    {ControlKind::optionMenu, "option"},
    {ControlKind::textField, "field"},   {ControlKind::text, "text"},
    {ControlKind::list, "list"},
};

bool wanted(ControlKind kind, std::span<const ControlKind> kinds)
{
    return kinds.empty() || std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

/* "field#2" as the kind and the rank 2; nothing for any other name. */
std::optional<std::pair<ControlKind, LgIndex_t>> rankedName(std::string_view name)
{
    auto hash = name.find('#');
    if (hash == std::string_view::npos)
        return std::nullopt;
    auto kind = kindNamed(name.substr(0, hash));
    std::string_view digits = name.substr(hash + 1);
    LgIndex_t rank = 0;
    auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), rank);
    if (!kind || digits.empty() || error != std::errc() || end != digits.data() + digits.size() ||
        rank < 1)
        return std::nullopt;
    return std::pair(*kind, rank);
}

bool optionalMatches(std::string_view name, const std::optional<std::string> &text)
{
    return text && namesMatch(name, *text);
}

} // namespace

std::string_view kindName(ControlKind kind)
{
    for (const KindName &entry : kindNames)
        if (entry.kind == kind)
            return entry.name;
    return "control";
}

std::optional<ControlKind> kindNamed(std::string_view name)
{
    for (const KindName &entry : kindNames)
        if (entry.name == name)
            return entry.kind;
    return std::nullopt;
}

std::string normalName(std::string_view text)
{
    std::string name;
    for (char c : text) {
        if (!isBlank(c))
            name += c;
        else if (!name.empty() && name.back() != ' ')
            name += ' ';
    }
    if (!name.empty() && name.back() == ' ')
        name.pop_back();
    if (!name.empty() && name.back() == ':')
        name.pop_back();
    if (!name.empty() && name.back() == ' ')
        name.pop_back();
    return name;
}

bool namesMatch(std::string_view name, std::string_view text)
{
    return normalName(name) == normalName(text);
}

LgIndex_t findNamed(LgIndex_t dialog, std::string_view name, std::span<const ControlKind> kinds)
{
    return findNamed(dialog, name,
                     [kinds](const ControlState &state) { return wanted(state.kind, kinds); });
}

LgIndex_t findNamed(LgIndex_t dialog, std::string_view name,
                    const std::function<bool(const ControlState &)> &accept)
{
    const Dialog *owner = findDialog(dialog);
    if (owner == nullptr)
        return CVNGUI_BAD_ID;
    if (auto ranked = rankedName(name)) {
        auto [kind, rank] = *ranked;
        std::vector<LgIndex_t> ofKind = controlsOfKind(dialog, kind);
        if (rank > static_cast<LgIndex_t>(ofKind.size()))
            return CVNGUI_BAD_ID;
        LgIndex_t id = ofKind[static_cast<std::size_t>(rank - 1)];
        return accept(*controlState(id)) ? id : CVNGUI_BAD_ID;
    }
    for (LgIndex_t id : owner->controls) {
        ControlState state = *controlState(id);
        if (accept(state) &&
            (optionalMatches(name, state.label) || optionalMatches(name, state.caption)))
            return id;
    }
    return CVNGUI_BAD_ID;
}

std::optional<LgIndex_t> findItem(LgIndex_t id, std::string_view name)
{
    const Control *control = findControl(id);
    if (control == nullptr)
        return std::nullopt;
    auto found = std::find_if(control->items.begin(), control->items.end(),
                              [&](const std::string &item) { return namesMatch(name, item); });
    if (found == control->items.end())
        return std::nullopt;
    return static_cast<LgIndex_t>(found - control->items.begin()) + 1;
}

} // namespace corvane::host::gui
