// The in-memory dialog toolkit driven as an add-on builds dialogs and a front end shows
// and uses them: captions from the layout, the state of the dialogs up, change events,
// callbacks, refused actions and the range checks of text fields.
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "GuiActions.h"
#include "GuiEvents.h"
#include "GuiJson.h"
#include "GuiState.h"
#include "HostFixture.h"

using namespace corvane::host;
using namespace corvane::host::gui;
using Strings = std::vector<std::string>;

namespace {
// What the add-on's callbacks saw, in order.
Strings calls;
LgIndex_t nested = CVNGUI_BAD_ID; // the dialog the "More..." button launches

void record(const std::string &call) { calls.push_back(call); }
void onInit() { record("init"); }
void onOk() { record("ok"); }
void onCancel() { record("cancel"); }
void onToggle(const LgIndex_t *value) { record("toggle " + std::to_string(*value)); }
void onRadio(const LgIndex_t *value) { record("radio " + std::to_string(*value)); }
void onOption(const LgIndex_t *value) { record("option " + std::to_string(*value)); }
void onList(const LgIndex_t *value) { record("list " + std::to_string(*value)); }
LgIndex_t onText(const char *text)
{
    record(std::string("text ") + text);
    return text[0] != '\0';
}
// Launches the nested dialog and adds a control to it while the user's press runs.
void onMore()
{
    record("more");
    CvnGUIDialogLaunch(nested);
    CvnGUILabelAdd(nested, 5, 5, "Added while up");
}

// One control of a layout: a blank label text makes a value-showing label.
struct Piece {
    ControlKind kind;
    LgIndex_t x, y, width = 0, height = 0;
    const char *text = "";
};

LgIndex_t add(LgIndex_t dialog, const Piece &p)
{
    switch (p.kind) {
    case ControlKind::frame:
        return CvnGUIFrameAdd(dialog, p.x, p.y, p.width, p.height, p.text);
    case ControlKind::label:
        return CvnGUILabelAdd(dialog, p.x, p.y, p.text);
    case ControlKind::button:
        return CvnGUIButtonAdd(dialog, p.x, p.y, p.width, p.height, p.text, nullptr);
    case ControlKind::toggle:
        return CvnGUIToggleAdd(dialog, p.x, p.y, p.width, p.height, p.text, onToggle);
    case ControlKind::radioBox:
        return CvnGUIRadioBoxAdd(dialog, p.x, p.y, p.width, p.height, "Point", "Block", nullptr,
                                 nullptr, nullptr, onRadio);
    case ControlKind::optionMenu:
        return CvnGUIOptionMenuAdd(dialog, p.x, p.y, p.width, p.height, p.text, onOption);
    case ControlKind::textField:
        return CvnGUITextFieldAdd(dialog, p.x, p.y, p.width, p.height, onText);
    case ControlKind::text:
        return CvnGUITextAdd(dialog, p.x, p.y, p.width, p.height, FALSE, onText);
    case ControlKind::list:
        return CvnGUIListAdd(dialog, p.x, p.y, p.width, p.height, TRUE, onList);
    }
    return CVNGUI_BAD_ID;
}

LgIndex_t newDialog(const char *title)
{
    return CvnGUIDialogCreateModal(CVNGUI_MAIN_DIALOG_ID, 300, 200, title, onInit, onOk, nullptr,
                                   onCancel, nullptr);
}

Strings titlesUp()
{
    Strings titles;
    for (const DialogState &dialog : snapshot().dialogs)
        titles.push_back(dialog.title);
    return titles;
}

class GuiTest : public HostTest {
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        resetGui();
        calls.clear();
    }
    void TearDown() override
    {
        resetGui();
        HostTest::TearDown();
    }
};

constexpr auto label = ControlKind::label, field = ControlKind::textField,
               frame = ControlKind::frame, list = ControlKind::list;
} // namespace

TEST_F(GuiTest, CaptionsFollowTheLayoutRules)
{
    using Caption = std::optional<std::string>;
    // Each layout in a dialog of its own; its last piece is the control captioned.
    const std::pair<std::vector<Piece>, Caption> layouts[] = {
        // 1: left on the same row, the nearest one; 4 units up or down is the same row
        {{{label, 10, 20, 0, 0, "Far:"}, {label, 30, 24, 0, 0, "Near:"}, {field, 50, 20, 80}},
         "Near:"},
        {{{label, 30, 20, 0, 0, "First"}, {label, 30, 20, 0, 0, "Second"}, {field, 50, 20}},
         "First"},
        {{{label, 10, 25, 0, 0, "Too low"}, {label, 60, 20, 0, 0, "Right of it"}, {field, 50, 20}},
         std::nullopt},
        // 2: above, within 24 units up and from 4 left of it to its width; the lowest, then
        // the leftmost
        {{{label, 20, 32, 0, 0, "High"}, {label, 30, 44, 0, 0, "Low"},
          {label, 25, 44, 0, 0, "Low left"}, {field, 20, 56, 60}},
         "Low left"},
        {{{label, 6, 40, 0, 0, "4 left"}, {label, 11, 40, 0, 0, "Past the width"},
          {label, 10, 60}},
         "4 left"},
        {{{label, 10, 31, 0, 0, "25 up"}, {label, 10, 52, 0, 0, "4 up"}, {list, 10, 56, 50, 40}},
         std::nullopt},
        {{{label, 10, 40, 0, 0, "Above"}, {ControlKind::toggle, 0, 58, 40, 10, "Beside"},
          {ControlKind::optionMenu, 50, 56, 60, 12, "a,b"}},
         "Beside"},
        // 3: the smallest frame holding its corner; a frame's far edges are outside it
        {{{frame, 0, 0, 200, 200, "Outer"}, {frame, 10, 10, 100, 100, "Inner"}, {list, 20, 50}},
         "Inner"},
        {{{frame, 0, 0, 200, 200, "Outer"}, {frame, 10, 10, 100, 100, "Inner"}, {list, 110, 50}},
         "Outer"},
        {{{frame, 0, 0, 200, 200, ""}, {ControlKind::text, 20, 50}}, std::nullopt},
        // value-showing labels and buttons name nothing
        {{{ControlKind::button, 10, 20, 30, 12, "Browse"}, {label, 20, 20, 0, 0, "  "},
          {field, 50, 20}},
         std::nullopt},
    };
    for (const auto &[pieces, caption] : layouts) {
        LgIndex_t dialog = newDialog("Layout");
        LgIndex_t captioned = CVNGUI_BAD_ID;
        for (const Piece &piece : pieces)
            captioned = add(dialog, piece);
        EXPECT_EQ(captionOf(captioned), caption) << caption.value_or("(none)");
    }
}

TEST_F(GuiTest, StateOfTheDialogsUpAsAValueAndAsJson)
{
    LgIndex_t main = newDialog("Main");
    LgIndex_t file = CvnGUILabelAdd(main, 10, 10, "Data File:");
    LgIndex_t shown = CvnGUILabelAdd(main, 60, 10, "");
    LgIndex_t skip = add(main, {ControlKind::toggle, 10, 30, 80, 12, "Skip"});
    LgIndex_t format = add(main, {ControlKind::radioBox, 100, 30, 80, 24});
    LgIndex_t vars = add(main, {list, 10, 50, 80, 40});
    add(main, {frame, 140, 50, 100, 40, "Columns"});
    LgIndex_t count = add(main, {field, 150, 60, 80, 12});
    CvnGUIButtonAdd(main, 200, 10, 40, 14, "More...", onMore);
    nested = newDialog("Options");
    LgIndex_t delimiter = add(nested, {ControlKind::optionMenu, 60, 10, 60, 12, "Auto,Comma"});
    LgIndex_t third = newDialog("Third");

    CvnGUILabelSetText(shown, "a.txt");
    CvnGUIToggleSet(skip, TRUE);
    CvnGUIRadioBoxSetSelectedOption(format, 2);
    for (const char *item : {"x", "y", "z"})
        CvnGUIListAppendItem(vars, item);
    const LgIndex_t picked[] = {3, 1};
    CvnGUIListSetSelectedItems(vars, picked, 2);
    CvnGUISetSensitivity(file, FALSE);
    CvnGUITextFieldSetLgIndex(count, 7, TRUE);
    EXPECT_EQ(snapshot(), GuiState{}) << "nothing is up yet";

    CvnGUIDialogLaunch(main);
    EXPECT_EQ(toJsonText(snapshot()), R"({
  "dialogs": [
    {
      "title": "Main",
      "width": 300,
      "height": 200,
      "controls": [
        {"kind":"label","label":"Data File:","caption":null,"sensitive":false,"x":10,"y":10,"width":0,"height":0,"text":"Data File:"},
        {"kind":"label","label":null,"caption":"Data File:","sensitive":true,"x":60,"y":10,"width":0,"height":0,"text":"a.txt"},
        {"kind":"toggle","label":"Skip","caption":null,"sensitive":true,"x":10,"y":30,"width":80,"height":12,"on":true},
        {"kind":"radio","label":null,"caption":null,"sensitive":true,"x":100,"y":30,"width":80,"height":24,"items":["Point","Block"],"selected":[2]},
        {"kind":"list","label":null,"caption":"Skip","sensitive":true,"x":10,"y":50,"width":80,"height":40,"items":["x","y","z"],"selected":[3,1]},
        {"kind":"frame","label":"Columns","caption":null,"sensitive":true,"x":140,"y":50,"width":100,"height":40},
        {"kind":"field","label":null,"caption":"Columns","sensitive":true,"x":150,"y":60,"width":80,"height":12,"text":"7%"},
        {"kind":"button","label":"More...","caption":null,"sensitive":true,"x":200,"y":10,"width":40,"height":14}
      ]
    }
  ]
}
)");
    EXPECT_EQ(snapshot().dialogs.at(0).controls.at(1).id, shown);
    /* With ids, for a page: the dialog's own buttons and how the list selects. */
    nlohmann::ordered_json withIds = toJsonWithIds(snapshot());
    EXPECT_EQ(withIds["dialogs"][0]["buttons"], nlohmann::ordered_json({"ok", "cancel", "help"}));
    EXPECT_EQ(withIds["dialogs"][0]["controls"][4]["id"], vars);
    EXPECT_EQ(withIds["dialogs"][0]["controls"][4]["multi"], true);

    // Launching is not waiting: the press returns with the nested dialog up and on top.
    ASSERT_TRUE(pressButton(controlByLabel(main, ControlKind::button, "More...")));
    CvnGUIDialogLaunch(third);
    CvnGUIDialogLaunch(main);
    EXPECT_EQ(titlesUp(), (Strings{"Main", "Options", "Third"})) << "main was up already";
    EXPECT_EQ(calls, (Strings{"init", "more", "init", "init"}));
    EXPECT_EQ(snapshot().dialogs[1].controls.size(), 2u) << "the label added while up";
    EXPECT_EQ(controlState(delimiter)->selected, std::vector<LgIndex_t>{1});
    CvnGUIDialogDrop(nested);
    EXPECT_EQ(titlesUp(), (Strings{"Main", "Third"})) << "dropped from the middle";
    EXPECT_EQ(topDialog(), third);
    dropAllDialogs();
    EXPECT_EQ(titlesUp(), Strings{});
    EXPECT_EQ(calls.size(), 4u) << "taking dialogs down calls nothing";
}

TEST_F(GuiTest, ListenersHearEachChangeOnceUntilTheyUnsubscribe)
{
    std::vector<GuiEvent> heard;
    Subscription subscription = subscribe([&](const GuiEvent &event) { heard.push_back(event); });
    // A listener that leaves while it is told does not hear the next change.
    int onceHeard = 0;
    Subscription once;
    once = subscribe([&](const GuiEvent &) { ++onceHeard, once.cancel(); });

    LgIndex_t dialog = newDialog("Events");
    LgIndex_t toggle = add(dialog, {ControlKind::toggle, 10, 10, 50, 12, "On"});
    LgIndex_t text = add(dialog, {field, 10, 30, 50, 12});
    LgIndex_t items = add(dialog, {list, 10, 50, 50, 40});
    LgIndex_t shown = add(dialog, {label, 70, 10});
    LgIndex_t named = add(dialog, {label, 70, 30, 0, 0, "Name"});
    CvnGUIDialogLaunch(dialog);
    CvnGUIToggleSet(toggle, FALSE); // unchanged: not told
    CvnGUIToggleSet(toggle, TRUE);
    CvnGUITextFieldSetString(text, "a");
    CvnGUIListAppendItem(items, "x");
    CvnGUIListSetSelectedItem(items, 1);
    CvnGUIListDeleteAllItems(items); // the items and the selection change
    CvnGUILabelSetText(shown, "value");
    CvnGUILabelSetText(named, "Other name");
    CvnGUISetSensitivity(text, FALSE);
    CvnGUISetSensitivity(text, FALSE);
    ASSERT_TRUE(setToggle(toggle, false));
    ASSERT_TRUE(setToggle(toggle, false));
    CvnGUIDialogDrop(dialog);
    subscription.cancel();
    CvnGUIDialogLaunch(dialog);

    auto control = [&](Change change, LgIndex_t id) { return GuiEvent{change, dialog, id}; };
    EXPECT_EQ(heard, (std::vector<GuiEvent>{
                         control(Change::added, toggle), control(Change::added, text),
                         control(Change::added, items), control(Change::added, shown),
                         control(Change::added, named), {Change::dialogUp, dialog, CVNGUI_BAD_ID},
                         control(Change::value, toggle), control(Change::text, text),
                         control(Change::items, items), control(Change::selection, items),
                         control(Change::items, items), control(Change::selection, items),
                         control(Change::text, shown), control(Change::label, named),
                         control(Change::sensitivity, text), control(Change::value, toggle),
                         {Change::dialogDown, dialog, CVNGUI_BAD_ID}}));
    EXPECT_EQ(onceHeard, 1);
    EXPECT_EQ(calls, (Strings{"init", "toggle 0", "init"}));
}

TEST_F(GuiTest, ChoicesCallBackOnlyWhenTheirValueChanges)
{
    LgIndex_t dialog = newDialog("Choices");
    LgIndex_t toggle = add(dialog, {ControlKind::toggle, 10, 10, 50, 12, "On"});
    LgIndex_t radio = add(dialog, {ControlKind::radioBox, 10, 30, 50, 24});
    LgIndex_t option = add(dialog, {ControlKind::optionMenu, 10, 60, 50, 12, "a,b,c"});
    LgIndex_t items = add(dialog, {list, 10, 80, 50, 40});
    LgIndex_t text = add(dialog, {ControlKind::text, 70, 10, 50, 40});
    for (const char *item : {"x", "y"})
        CvnGUIListAppendItem(items, item);
    CvnGUIDialogLaunch(dialog);
    calls.clear();

    const std::pair<std::function<ActionResult()>, Strings> actions[] = {
        {[&] { return user::setToggle(toggle, true); }, {"toggle 1"}},
        {[&] { return user::setToggle(toggle, true); }, {}},
        {[&] { return user::choose(radio, 1); }, {}},
        {[&] { return user::choose(radio, 2); }, {"radio 2"}},
        {[&] { return user::choose(option, 3); }, {"option 3"}},
        {[&] { return user::choose(option, 3); }, {}},
        {[&] { return user::select(items, std::vector<LgIndex_t>{2, 1}); }, {"list 1"}},
        {[&] { return user::select(items, std::vector<LgIndex_t>{2, 1}); }, {"list 1"}},
        {[&] { return user::type(text, "same"); }, {"text same"}},
        {[&] { return user::type(text, "same"); }, {"text same"}},
    };
    for (const auto &[action, called] : actions) {
        calls.clear();
        EXPECT_TRUE(action());
        EXPECT_EQ(calls, called);
    }
    EXPECT_EQ(CvnGUIToggleGet(toggle), TRUE);
    EXPECT_EQ(CvnGUIOptionMenuGet(option), 3);
    EXPECT_EQ(controlState(items)->selected, (std::vector<LgIndex_t>{2, 1}));
    bool accepted = true;
    EXPECT_TRUE(user::type(text, "", &accepted));
    EXPECT_FALSE(accepted) << "the callback refused the empty text";
    EXPECT_FALSE(typeText(text, "")) << "the boolean form gives the callback's answer";
}

TEST_F(GuiTest, RefusedActionsCallNothingAndSayWhy)
{
    LgIndex_t lower = newDialog("Lower");
    LgIndex_t covered = CvnGUIButtonAdd(lower, 10, 10, 40, 12, "Covered", onMore);
    LgIndex_t top = CvnGUIDialogCreateModal(lower, 100, 100, "Top", nullptr, onOk, nullptr,
                                            nullptr, nullptr);
    LgIndex_t off = CvnGUIToggleAdd(top, 10, 10, 40, 12, "Off", onToggle);
    LgIndex_t shown = CvnGUITextAdd(top, 10, 30, 40, 40, TRUE, onText);
    LgIndex_t single = CvnGUIListAdd(top, 60, 30, 40, 40, FALSE, onList);
    LgIndex_t option = add(top, {ControlKind::optionMenu, 60, 10, 40, 12, "a,b"});
    CvnGUIListAppendItem(single, "x");
    CvnGUIListAppendItem(single, "y");
    CvnGUISetSensitivity(off, FALSE);
    CvnGUIDialogLaunch(lower);
    CvnGUIDialogLaunch(top);
    calls.clear();

    const LgIndex_t two[] = {1, 2}, third[] = {3};
    const std::pair<ActionResult, Refusal> refused[] = {
        {user::press(999), Refusal::noSuchControl},
        {user::press(off), Refusal::wrongKind},
        {user::press(covered), Refusal::notOnTop},
        {user::setToggle(off, true), Refusal::insensitive},
        {user::type(shown, "x"), Refusal::readOnly},
        {user::type(off, "x"), Refusal::wrongKind},
        {user::choose(option, 3), Refusal::noSuchItem},
        {user::select(single, third), Refusal::noSuchItem},
        {user::select(single, {}), Refusal::noSuchItem},
        {user::select(single, two), Refusal::oneItemOnly},
        {user::pressDialogButton(top, DialogButton::cancel), Refusal::noSuchButton},
        {user::pressDialogButton(lower, DialogButton::ok), Refusal::notOnTop},
        {user::pressDialogButton(999, DialogButton::ok), Refusal::noSuchDialog},
    };
    for (const auto &[result, refusal] : refused) {
        ASSERT_FALSE(result) << describe(refusal);
        EXPECT_EQ(describe(result.refusal()), describe(refusal));
    }
    EXPECT_EQ(calls, Strings{});
    EXPECT_FALSE(pressButton(covered));
    EXPECT_TRUE(pressDialogButton(top, DialogButton::ok));
    CvnGUIDialogDrop(top);
    EXPECT_TRUE(pressButton(covered)) << "the lower dialog is the top one again";
    EXPECT_EQ(calls, (Strings{"ok", "more"}));
}

TEST_F(GuiTest, RangeChecksNameTheFieldTheTextAndTheRange)
{
    LgIndex_t dialog = newDialog("Checks");
    LgIndex_t entry = add(dialog, {field, 10, 10, 50, 12});
    struct Check {
        const char *text;
        bool whole;
        double min, max;
        Boolean_t percent;
        const char *error; // nullptr: the text passes
    };
    const Check checks[] = {
        {"12", true, 1, 2147483647, FALSE, nullptr},
        {" +12 ", true, 1, 12, FALSE, nullptr},
        {"12x", true, 1, 2147483647, FALSE,
         "Start Line: \"12x\" is not a whole number from 1 to 2147483647."},
        {"", true, 1, 99, FALSE, "Start Line: \"\" is not a whole number from 1 to 99."},
        {"150%", true, 0, 100, TRUE, "Start Line: \"150%\" is not a whole number from 0% to 100%."},
        {"1.5", true, 0, 9, FALSE, "Start Line: \"1.5\" is not a whole number from 0 to 9."},
        {"2.5e-1", false, 0, 1, FALSE, nullptr},
        {"-0.5", false, 0, 1.5, FALSE, "Start Line: \"-0.5\" is not a number from 0 to 1.5."},
        {"nan", false, 0, 1, FALSE, "Start Line: \"nan\" is not a number from 0 to 1."},
    };
    for (const Check &check : checks) {
        ui().clearTranscript();
        CvnGUITextFieldSetString(entry, check.text);
        Boolean_t valid =
            check.whole ? CvnGUITextFieldValidateLgIndex(entry, " Start Line: ",
                                                         static_cast<LgIndex_t>(check.min),
                                                         static_cast<LgIndex_t>(check.max),
                                                         check.percent)
                        : CvnGUITextFieldValidateDouble(entry, "Start Line", check.min, check.max,
                                                        check.percent);
        EXPECT_EQ(valid, check.error == nullptr ? TRUE : FALSE) << check.text;
        EXPECT_EQ(ui().errors(), check.error ? Strings{check.error} : Strings{}) << check.text;
    }
}

TEST_F(GuiTest, ControlsAndItemsFoundByTheNamesUsersRead)
{
    const std::pair<const char *, const char *> names[] = {
        {"Start Line", "Start Line:"},   {"Ignore Specific Lines", " Ignore  Specific\tLines "},
        {"Start Line:", "Start Line :"}, {"Comma", "Comma"},
    };
    for (const auto &[name, text] : names)
        EXPECT_TRUE(namesMatch(name, text)) << text;
    EXPECT_FALSE(namesMatch("Start line", "Start Line:")) << "case counts";
    EXPECT_FALSE(namesMatch("Start Line", "Start Line::"));

    LgIndex_t dialog = newDialog("Names");
    add(dialog, {label, 10, 10, 0, 0, "Start Line:"});
    LgIndex_t start = add(dialog, {field, 60, 10, 40, 12});
    add(dialog, {label, 10, 30, 0, 0, "Ignore  Specific Lines"});
    LgIndex_t ignore = add(dialog, {field, 100, 30, 40, 12});
    LgIndex_t items = add(dialog, {list, 10, 50, 40, 40});
    LgIndex_t browse = add(dialog, {ControlKind::button, 60, 50, 40, 12, "Browse..."});
    CvnGUIListAppendItem(items, "first");
    CvnGUIListAppendItem(items, "Second:");
    const ControlKind fields[] = {field}, buttons[] = {ControlKind::button};

    EXPECT_EQ(findNamed(dialog, "Start Line", fields), start);
    EXPECT_EQ(findNamed(dialog, "Start Line"), findNamed(dialog, "label#1")) << "the label first";
    EXPECT_EQ(findNamed(dialog, "Ignore Specific Lines", fields), ignore);
    EXPECT_EQ(findNamed(dialog, "field#2"), ignore);
    EXPECT_EQ(findNamed(dialog, "list#1"), items);
    EXPECT_EQ(findNamed(dialog, "Browse...", buttons), browse);
    for (const char *missing : {"field#3", "field#0", "field#", "knob#1", "Browse"})
        EXPECT_EQ(findNamed(dialog, missing), CVNGUI_BAD_ID) << missing;
    EXPECT_EQ(findNamed(dialog, "field#1", buttons), CVNGUI_BAD_ID);
    EXPECT_EQ(findItem(items, "Second"), 2);
    EXPECT_EQ(findItem(items, "third"), std::nullopt);
    EXPECT_EQ(kindNamed("option"), ControlKind::optionMenu);
    EXPECT_EQ(kindName(ControlKind::textField), "field");
}
