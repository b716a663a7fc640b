/*
 * GuiChoices.cpp - the CvnGUI* calls for toggles, radio boxes and option
 * menus: controls holding one value the user picks.
 */
#include <string>

#include "GuiStore.h"

using namespace corvane::host::gui;

namespace {
/* The comma-separated labels of an option menu. */
std::vector<std::string> splitOptions(const char *list)
{
    std::vector<std::string> items;
    std::string rest = textOf(list);
    if (rest.empty())
        return items;
    std::size_t start = 0;
    for (;;) {
        std::size_t comma = rest.find(',', start);
        items.push_back(rest.substr(start, comma - start));
        if (comma == std::string::npos)
            break;
        start = comma + 1;
    }
    return items;
}

/* Adds a radio box or option menu with its items, the first one chosen. */
LgIndex_t addChoices(Control control, std::vector<std::string> items)
{
    control.value = items.empty() ? 0 : 1;
    control.items = std::move(items);
    return addControl(control.dialog, std::move(control));
}

/* Chooses the 1-based item of a radio box or option menu; other numbers
   are ignored. */
void setChoice(LgIndex_t id, ControlKind kind, LgIndex_t option)
{
    Control *control = controlRecord(id, {kind});
    if (control != nullptr && option >= 1 && option <= static_cast<LgIndex_t>(control->items.size()))
        change(*control, control->value, option, Change::value);
}

/* The chosen 1-based item, 0 for an unknown control. */
LgIndex_t choice(LgIndex_t id, ControlKind kind)
{
    const Control *control = controlRecord(id, {kind});
    return control != nullptr ? control->value : 0;
}
} // namespace

extern "C" {

LgIndex_t CvnGUIToggleAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, LgIndex_t Width,
                          LgIndex_t Height, const char *Label, CvnGUIIntCallback_pf Callback)
{
    return addControl(ParentDialogID, {.kind = ControlKind::toggle, .x = X, .y = Y,
                                       .width = Width, .height = Height, .label = textOf(Label),
                                       .intCallback = Callback});
}

void CvnGUIToggleSet(LgIndex_t ToggleID, Boolean_t SetOn)
{
    if (Control *control = controlRecord(ToggleID, {ControlKind::toggle}))
        change(*control, control->value, LgIndex_t{SetOn != FALSE ? 1 : 0}, Change::value);
}

Boolean_t CvnGUIToggleGet(LgIndex_t ToggleID)
{
    const Control *control = controlRecord(ToggleID, {ControlKind::toggle});
    return control != nullptr && control->value != 0 ? TRUE : FALSE;
}

LgIndex_t CvnGUIRadioBoxAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, LgIndex_t Width,
                            LgIndex_t Height, const char *Label1, const char *Label2,
                            const char *Label3, const char *Label4, const char *Label5,
                            CvnGUIIntCallback_pf Callback)
{
    std::vector<std::string> items;
    for (const char *label : {Label1, Label2, Label3, Label4, Label5}) {
        if (label == nullptr || *label == '\0')
            break;
        items.emplace_back(label);
    }
    return addChoices({.dialog = ParentDialogID, .kind = ControlKind::radioBox, .x = X, .y = Y,
                       .width = Width, .height = Height, .intCallback = Callback},
                      std::move(items));
}

void CvnGUIRadioBoxSetSelectedOption(LgIndex_t RadioBoxID, LgIndex_t Option)
{
    setChoice(RadioBoxID, ControlKind::radioBox, Option);
}

LgIndex_t CvnGUIRadioBoxGetSelectedOption(LgIndex_t RadioBoxID)
{
    return choice(RadioBoxID, ControlKind::radioBox);
}

LgIndex_t CvnGUIOptionMenuAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, LgIndex_t Width,
                              LgIndex_t Height, const char *OptionList,
                              CvnGUIIntCallback_pf Callback)
{
    return addChoices({.dialog = ParentDialogID, .kind = ControlKind::optionMenu, .x = X, .y = Y,
                       .width = Width, .height = Height, .intCallback = Callback},
                      splitOptions(OptionList));
}

void CvnGUIOptionMenuSet(LgIndex_t OptionMenuID, LgIndex_t Option)
{
    setChoice(OptionMenuID, ControlKind::optionMenu, Option);
}

LgIndex_t CvnGUIOptionMenuGet(LgIndex_t OptionMenuID)
{
    return choice(OptionMenuID, ControlKind::optionMenu);
}

} // extern "C"
