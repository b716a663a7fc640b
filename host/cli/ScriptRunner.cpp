/*
 * ScriptRunner.cpp - each step of a dialog script on the dialog toolkit,
 * and what it says when the step cannot be done or does not hold.
 */
#include "ScriptRunner.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <span>
#include <tuple>
#include <variant>
#include <vector>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "AddOns.h"
#include "DataModel.h"
#include "GuiActions.h"
#include "GuiJson.h"
#include "GuiState.h"
#include "OutputFile.h"

namespace corvane::cli {

namespace {

using namespace host::gui;
using host::Expected;
using host::unexpected;
using script::quote;
using Accept = std::function<bool(const ControlState &)>;

std::string_view kindWords(ControlKind kind)
{
    switch (kind) {
    case ControlKind::frame:
        return "frame";
    case ControlKind::label:
        return "label";
    case ControlKind::button:
        return "button";
    case ControlKind::toggle:
        return "toggle";
    case ControlKind::radioBox:
        return "radio box";
    case ControlKind::optionMenu:
        return "option menu";
    case ControlKind::textField:
        return "text field";
    case ControlKind::text:
        return "multi-line text";
    case ControlKind::list:
        return "list";
    }
    return "control";
}

Accept ofKinds(std::initializer_list<ControlKind> kinds)
{
    return [wanted = std::vector<ControlKind>(kinds)](const ControlState &state) {
        return std::find(wanted.begin(), wanted.end(), state.kind) != wanted.end();
    };
}

Expected<LgIndex_t> top()
{
    LgIndex_t dialog = topDialog();
    if (dialog == CVNGUI_BAD_ID)
        return unexpected("no dialog is up");
    return dialog;
}

std::string titleOf(LgIndex_t dialog)
{
    return quote(findDialog(dialog)->title);
}

/* A control of the top dialog as a step names it. */
struct Named {
    LgIndex_t id = CVNGUI_BAD_ID;
    std::string shown; /* its kind and the name, e.g. button "Browse..." */
};

/* The control of the top dialog named name among those accept lets
   through; what says what the step looks for, e.g. "list". */
Expected<Named> locate(std::string_view name, const Accept &accept, std::string_view what)
{
    auto dialog = top();
    if (!dialog)
        return unexpected(dialog.error());
    if (LgIndex_t id = findNamed(*dialog, name, accept); id != CVNGUI_BAD_ID)
        return Named{id, fmt::format("{} {}", kindWords(findControl(id)->kind), quote(name))};
    if (LgIndex_t other = findNamed(*dialog, name); other != CVNGUI_BAD_ID)
        return unexpected(fmt::format("{} {} is not a {}", kindWords(findControl(other)->kind),
                                      quote(name), what));
    return unexpected(fmt::format("no {} {} in the dialog {}", what, quote(name), titleOf(*dialog)));
}

Expected<void> acted(ActionResult result, std::string_view shown)
{
    if (result)
        return {};
    return unexpected(fmt::format("{} {}", shown, describe(result.refusal())));
}

std::string listed(const std::vector<std::string> &texts)
{
    std::vector<std::string> each;
    for (const std::string &text : texts)
        each.push_back(quote(text));
    return fmt::format("[{}]", fmt::join(each, ", "));
}

/* The dialog's own button a press names, when the top dialog has it. */
std::optional<DialogButton> ownButton(LgIndex_t dialog, std::string_view name)
{
    const Dialog &shown = *findDialog(dialog);
    const std::tuple<const char *, DialogButton, CvnGUIDialogCallback_pf> buttons[] = {
        {"OK", DialogButton::ok, shown.ok},
        {"Cancel", DialogButton::cancel, shown.cancel},
        {"Help", DialogButton::help, shown.help}};
    for (const auto &[label, button, callback] : buttons)
        if (namesMatch(name, label) && callback != nullptr)
            return button;
    return std::nullopt;
}

} // namespace

ScriptRunner::ScriptRunner(ScriptRunUi &ui, std::string loader, std::size_t firstSet)
    : ui_(ui), loader_(std::move(loader)), firstSet_(firstSet)
{
}

Expected<void> ScriptRunner::open()
{
    if (LgIndex_t dialog = topDialog(); dialog != CVNGUI_BAD_ID)
        return unexpected(
            fmt::format("cannot open the loader while the dialog {} is up", titleOf(dialog)));
    std::span<const host::DataSet> sets = host::dataSets();
    auto made = sets.subspan(std::min(firstSet_, sets.size()));
    return host::selectLoader(loader_, host::lastInstructions(made, loader_));
}

Expected<void> ScriptRunner::run(const script::Step &step)
{
    return std::visit([this](const auto &which) { return this->step(which); }, step);
}

Expected<void> ScriptRunner::step(const script::Press &press)
{
    auto dialog = top();
    if (!dialog)
        return unexpected(dialog.error());
    if (auto button = ownButton(*dialog, press.label))
        return acted(user::pressDialogButton(*dialog, *button),
                     fmt::format("the dialog's button {}", quote(press.label)));
    auto found = locate(press.label, ofKinds({ControlKind::button}), "button");
    if (!found)
        return unexpected(found.error());
    return acted(user::press(found->id), found->shown);
}

Expected<void> ScriptRunner::step(const script::Toggle &toggle)
{
    auto found = locate(toggle.label, ofKinds({ControlKind::toggle}), "toggle");
    if (!found)
        return unexpected(found.error());
    return acted(user::setToggle(found->id, toggle.on), found->shown);
}

Expected<void> ScriptRunner::step(const script::Choose &choose)
{
    auto dialog = top();
    if (!dialog)
        return unexpected(dialog.error());
    for (LgIndex_t radio : controlsOfKind(*dialog, ControlKind::radioBox))
        if (auto item = findItem(radio, choose.item))
            return acted(user::choose(radio, *item),
                         fmt::format("the radio box of {}", quote(choose.item)));
    return unexpected(fmt::format("no radio box item {} in the dialog {}", quote(choose.item),
                                  titleOf(*dialog)));
}

Expected<void> ScriptRunner::step(const script::Set &set)
{
    auto found = locate(set.caption,
                        ofKinds({ControlKind::textField, ControlKind::text, ControlKind::optionMenu}),
                        "text field, multi-line text or option menu");
    if (!found)
        return unexpected(found.error());
    if (findControl(found->id)->kind != ControlKind::optionMenu)
        return acted(user::type(found->id, set.text), found->shown);
    auto item = findItem(found->id, set.text);
    if (!item)
        return unexpected(fmt::format("{} has no item {}", found->shown, quote(set.text)));
    return acted(user::choose(found->id, *item), found->shown);
}

Expected<void> ScriptRunner::step(const script::Select &select)
{
    auto found = locate(select.caption, ofKinds({ControlKind::list}), "list");
    if (!found)
        return unexpected(found.error());
    auto count = static_cast<LgIndex_t>(findControl(found->id)->items.size());
    std::vector<LgIndex_t> positions;
    for (const script::ItemRef &item : select.items) {
        if (item.position > count)
            return unexpected(fmt::format("{} has no item #{} (it has {})", found->shown,
                                          item.position, count));
        auto position = item.position > 0 ? std::optional(item.position)
                                          : findItem(found->id, item.text);
        if (!position)
            return unexpected(fmt::format("{} has no item {}", found->shown, quote(item.text)));
        positions.push_back(*position);
    }
    return acted(user::select(found->id, positions), found->shown);
}

Expected<void> ScriptRunner::step(const script::File &file)
{
    ui_.queueFile(file.path);
    return {};
}

Expected<void> ScriptRunner::step(const script::Answer &answer)
{
    ui_.queueAnswer(answer.yes);
    return {};
}

Expected<void> ScriptRunner::step(const script::CancelAt &cancelAt)
{
    ui_.queueCancelAt(cancelAt.percent);
    return {};
}

Expected<void> ScriptRunner::step(const script::Open &)
{
    return open();
}

Expected<void> ScriptRunner::step(const script::ExpectDialog &expect)
{
    LgIndex_t dialog = topDialog();
    std::string found = dialog == CVNGUI_BAD_ID ? "no dialog" : "the dialog " + titleOf(dialog);
    if (!expect.title) {
        if (dialog == CVNGUI_BAD_ID)
            return {};
        return unexpected(fmt::format("expected no dialog, found {}", found));
    }
    if (dialog != CVNGUI_BAD_ID && namesMatch(*expect.title, findDialog(dialog)->title))
        return {};
    return unexpected(fmt::format("expected the dialog {}, found {}", quote(*expect.title), found));
}

Expected<void> ScriptRunner::step(const script::ExpectText &expect)
{
    auto found = locate(
        expect.caption,
        [](const ControlState &state) {
            return state.kind == ControlKind::textField || state.kind == ControlKind::text ||
                   (state.kind == ControlKind::label && !state.label);
        },
        "text field, multi-line text or value label");
    if (!found)
        return unexpected(found.error());
    std::string text = controlState(found->id)->text.value_or("");
    bool holds = expect.contains ? text.find(expect.text) != std::string::npos : text == expect.text;
    if (holds)
        return {};
    return unexpected(fmt::format("expected {} to {} {}, found {}", found->shown,
                                  expect.contains ? "contain" : "be", quote(expect.text),
                                  quote(text)));
}

Expected<void> ScriptRunner::step(const script::ExpectItems &expect)
{
    auto found = locate(expect.caption, ofKinds({ControlKind::list}), "list");
    if (!found)
        return unexpected(found.error());
    ControlState list = *controlState(found->id);
    std::vector<LgIndex_t> positions; /* of the items compared, 1-based */
    if (expect.selected)
        positions = list.selected;
    else
        for (std::size_t i = 1; i <= list.items.size(); i++)
            positions.push_back(static_cast<LgIndex_t>(i));
    std::vector<std::string> items;
    for (LgIndex_t position : positions)
        items.push_back(list.items[static_cast<std::size_t>(position - 1)]);
    bool same = positions.size() == expect.items.size();
    for (std::size_t i = 0; same && i < positions.size(); i++) {
        const script::ItemRef &ref = expect.items[i];
        same = ref.position != 0 ? ref.position == positions[i] : namesMatch(ref.text, items[i]);
    }
    if (same)
        return {};
    std::vector<std::string> expected;
    for (const script::ItemRef &ref : expect.items)
        expected.push_back(ref.position != 0 ? fmt::format("#{}", ref.position) : ref.text);
    return unexpected(fmt::format("expected the {} of {} to be {}, found {}",
                                  expect.selected ? "selected items" : "items", found->shown,
                                  listed(expected), listed(items)));
}

Expected<void> ScriptRunner::step(const script::ExpectSensitive &expect)
{
    auto found = locate(expect.name, [](const ControlState &) { return true; }, "control");
    if (!found)
        return unexpected(found.error());
    if (controlState(found->id)->sensitive == expect.sensitive)
        return {};
    return unexpected(fmt::format("expected {} to be {}, but it is {}", found->shown,
                                  expect.sensitive ? "sensitive" : "insensitive",
                                  expect.sensitive ? "insensitive" : "sensitive"));
}

Expected<void> ScriptRunner::step(const script::ExpectMessage &expect)
{
    const std::optional<std::string> &last = ui_.lastMessage();
    if (last == expect.text)
        return {};
    return unexpected(fmt::format("expected the message {}, found {}", quote(expect.text),
                                  last ? quote(*last) : "no message"));
}

Expected<void> ScriptRunner::step(const script::Dump &dump)
{
    auto file = OutputFile::create(dump.path);
    if (!file)
        return unexpected(file.error());
    std::fputs(toJsonText(snapshot()).c_str(), file->stream());
    return file->commit();
}

} // namespace corvane::cli
