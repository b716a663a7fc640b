/*
 * GuiCaptions.cpp - the caption of a control from the layout of its dialog
 * (the rules are in GuiState.h).
 */
#include <algorithm>
#include <cstdlib>

#include "GuiState.h"

namespace corvane::host::gui {

namespace {

constexpr LgIndex_t rowSlack = 4;   /* rows closer than this are the same row */
constexpr LgIndex_t aboveReach = 24; /* how far above a caption may sit */

bool hasText(const std::string &text)
{
    return text.find_first_not_of(" \t") != std::string::npos;
}

bool isSource(const Control &control)
{
    return ((control.kind == ControlKind::label && !control.showsValue) ||
            control.kind == ControlKind::toggle) &&
           hasText(control.label);
}

bool takesCaption(const Control &control)
{
    switch (control.kind) {
    case ControlKind::textField:
    case ControlKind::text:
    case ControlKind::optionMenu:
    case ControlKind::list:
        return true;
    case ControlKind::label:
        return control.showsValue;
    default:
        return false;
    }
}

/* The controls of c's dialog that pass keep, in the order they were added. */
template <class Keep>
std::vector<const Control *> neighbours(const Control &c, Keep keep)
{
    std::vector<const Control *> found;
    for (LgIndex_t id : findDialog(c.dialog)->controls) {
        const Control *other = findControl(id);
        if (other->id != c.id && keep(*other))
            found.push_back(other);
    }
    return found;
}

/* The first of candidates that no later one beats. */
template <class Better>
const Control *best(const std::vector<const Control *> &candidates, Better better)
{
    const Control *chosen = nullptr;
    for (const Control *candidate : candidates)
        if (chosen == nullptr || better(*candidate, *chosen))
            chosen = candidate;
    return chosen;
}

const Control *leftOnRow(const Control &c)
{
    auto sources = neighbours(c, [&](const Control &s) {
        return isSource(s) && s.x < c.x && std::abs(s.y - c.y) <= rowSlack;
    });
    return best(sources, [](const Control &a, const Control &b) { return a.x > b.x; });
}

const Control *above(const Control &c)
{
    LgIndex_t reach = std::max<LgIndex_t>(c.width, 1);
    auto sources = neighbours(c, [&](const Control &s) {
        return isSource(s) && c.y - aboveReach <= s.y && s.y < c.y - rowSlack &&
               c.x - rowSlack <= s.x && s.x < c.x + reach;
    });
    return best(sources, [](const Control &a, const Control &b) {
        return a.y > b.y || (a.y == b.y && a.x < b.x);
    });
}

const Control *enclosingFrame(const Control &c)
{
    auto frames = neighbours(c, [&](const Control &f) {
        return f.kind == ControlKind::frame && f.x <= c.x && c.x < f.x + f.width &&
               f.y <= c.y && c.y < f.y + f.height;
    });
    return best(frames, [](const Control &a, const Control &b) {
        return a.width * a.height < b.width * b.height;
    });
}

} // namespace

std::optional<std::string> captionOf(LgIndex_t id)
{
    const Control *control = findControl(id);
    if (control == nullptr || !takesCaption(*control))
        return std::nullopt;
    for (auto rule : {leftOnRow, above, enclosingFrame})
        if (const Control *source = rule(*control))
            return hasText(source->label) ? std::optional(source->label) : std::nullopt;
    return std::nullopt;
}

} // namespace corvane::host::gui
