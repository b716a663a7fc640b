// The in-memory dialog toolkit driven as a dialog and its user would.
#include <string>
#include <vector>

#include "Gui.h"
#include "HostFixture.h"

using namespace corvane::host;
using namespace corvane::host::gui;

namespace {
// What the callbacks saw, in order.
std::vector<std::string> calls;
LgIndex_t nameField = CVNGUI_BAD_ID;

void onInit() { calls.push_back("init"); }
void onOk() { calls.push_back("ok"); }
void onCancel() { calls.push_back("cancel"); }
void onBrowse() { calls.push_back("browse"); }
void onInt(const LgIndex_t *value) { calls.push_back("int " + std::to_string(*value)); }
LgIndex_t onName(const char *text)
{
    calls.push_back(std::string("text ") + text);
    if (CvnGUITextFieldValidateLgIndex(nameField, "Start line", 1, 99, FALSE))
        return TRUE;
    CvnGUITextFieldSetString(nameField, "1");
    return FALSE;
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
} // namespace

TEST_F(GuiTest, DialogsAreUpOnlyBetweenLaunchAndDrop)
{
    EXPECT_FALSE(CvnGUIDialogIsUp(CVNGUI_BAD_ID));
    EXPECT_FALSE(CvnGUIDialogIsUp(42));
    LgIndex_t dialog = CvnGUIDialogCreateModal(CVNGUI_MAIN_DIALOG_ID, 400, 300, "Ordalis Loader",
                                               onInit, onOk, nullptr, onCancel, nullptr);
    EXPECT_FALSE(CvnGUIDialogIsUp(dialog));
    LgIndex_t browse = CvnGUIButtonAdd(dialog, 1, 1, 10, 2, "Browse...", onBrowse);
    EXPECT_FALSE(pressButton(browse)) << "nobody can press a button of a hidden dialog";

    CvnGUIDialogLaunch(dialog);
    EXPECT_TRUE(CvnGUIDialogIsUp(dialog));
    EXPECT_TRUE(pressButton(browse));
    CvnGUISetSensitivity(browse, FALSE);
    EXPECT_FALSE(pressButton(browse));
    EXPECT_TRUE(pressDialogButton(dialog, DialogButton::ok));
    EXPECT_FALSE(pressDialogButton(dialog, DialogButton::apply)); // no callback
    EXPECT_TRUE(pressDialogButton(dialog, DialogButton::cancel));
    CvnGUIDialogDrop(dialog);
    EXPECT_FALSE(CvnGUIDialogIsUp(dialog));
    EXPECT_EQ(calls, (std::vector<std::string>{"init", "browse", "ok", "cancel"}));

    EXPECT_EQ(dialogByTitle("Ordalis Loader"), dialog);
    EXPECT_EQ(controlByLabel(dialog, ControlKind::button, "Browse..."), browse);
    EXPECT_EQ(CvnGUILabelAdd(77, 1, 1, "orphan"), CVNGUI_BAD_ID);
}

TEST_F(GuiTest, TogglesRadioBoxesAndOptionMenus)
{
    LgIndex_t dialog = CvnGUIDialogCreateModal(CVNGUI_MAIN_DIALOG_ID, 1, 1, "Data", nullptr,
                                               nullptr, nullptr, nullptr, nullptr);
    LgIndex_t toggle = CvnGUIToggleAdd(dialog, 1, 1, 1, 1, "Block format", onInt);
    LgIndex_t radio = CvnGUIRadioBoxAdd(dialog, 1, 1, 1, 1, "Auto", "Tab", "Space", "", "Fixed",
                                        onInt);
    LgIndex_t menu = CvnGUIOptionMenuAdd(dialog, 1, 1, 1, 1, "IJK,Point,,Block", onInt);
    CvnGUIDialogLaunch(dialog);

    CvnGUIToggleSet(toggle, TRUE); // set by the dialog: no callback
    EXPECT_TRUE(CvnGUIToggleGet(toggle));
    EXPECT_TRUE(setToggle(toggle, false));
    EXPECT_FALSE(CvnGUIToggleGet(toggle));

    EXPECT_EQ(findControl(radio)->items, (std::vector<std::string>{"Auto", "Tab", "Space"}));
    EXPECT_EQ(CvnGUIRadioBoxGetSelectedOption(radio), 1);
    CvnGUIRadioBoxSetSelectedOption(radio, 4); // beyond the items: ignored
    EXPECT_EQ(CvnGUIRadioBoxGetSelectedOption(radio), 1);
    EXPECT_TRUE(chooseOption(radio, 3));
    EXPECT_EQ(CvnGUIRadioBoxGetSelectedOption(radio), 3);

    EXPECT_EQ(findControl(menu)->items, (std::vector<std::string>{"IJK", "Point", "", "Block"}));
    CvnGUIOptionMenuSet(menu, 4);
    EXPECT_EQ(CvnGUIOptionMenuGet(menu), 4);
    EXPECT_FALSE(chooseOption(menu, 5));
    EXPECT_FALSE(chooseOption(toggle, 1)) << "a toggle is not a menu";
    EXPECT_EQ(calls, (std::vector<std::string>{"int 0", "int 3"}));
}

TEST_F(GuiTest, TextFieldsReadNumbersAndReportBadEntriesByName)
{
    LgIndex_t dialog = CvnGUIDialogCreateModal(CVNGUI_MAIN_DIALOG_ID, 1, 1, "Title", nullptr,
                                               nullptr, nullptr, nullptr, nullptr);
    nameField = CvnGUITextFieldAdd(dialog, 1, 1, 1, 1, onName);
    LgIndex_t percent = CvnGUITextFieldAdd(dialog, 1, 1, 1, 1, nullptr);
    CvnGUIDialogLaunch(dialog);

    CvnGUITextFieldSetLgIndex(percent, 25, TRUE);
    char *text = CvnGUITextFieldGetString(percent);
    EXPECT_STREQ(text, "25%");
    CvnUtilStringDealloc(&text);
    LgIndex_t index = 0;
    EXPECT_TRUE(CvnGUITextFieldGetLgIndex(percent, &index));
    EXPECT_EQ(index, 25);
    double number = 0;
    CvnGUITextFieldSetString(percent, " -2.5e1 ");
    EXPECT_TRUE(CvnGUITextFieldGetDouble(percent, &number));
    EXPECT_EQ(number, -25.0);
    EXPECT_FALSE(CvnGUITextFieldGetLgIndex(percent, &index)) << "not a whole number";
    EXPECT_FALSE(CvnGUITextFieldValidateDouble(percent, "Scale", 0.5, 100, TRUE));

    EXPECT_TRUE(typeText(nameField, "12"));
    EXPECT_FALSE(typeText(nameField, "12x"));
    text = CvnGUITextFieldGetString(nameField);
    EXPECT_STREQ(text, "1") << "the callback reset the field";
    CvnUtilStringDealloc(&text);
    EXPECT_EQ(calls, (std::vector<std::string>{"text 12", "text 12x"}));
    EXPECT_EQ(ui().errors(), (std::vector<std::string>{
                                 "Scale must be a number from 0.5% to 100%.",
                                 "Start line must be a whole number from 1 to 99.",
                             }));

    LgIndex_t preview = CvnGUITextAdd(dialog, 1, 1, 1, 1, TRUE, nullptr);
    CvnGUITextSetString(preview, "line 1\n");
    CvnGUITextAppendString(preview, "line 2\n");
    text = CvnGUITextGetString(preview);
    EXPECT_STREQ(text, "line 1\nline 2\n");
    CvnUtilStringDealloc(&text);
    EXPECT_FALSE(typeText(preview, "edit")) << "read-only";
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(GuiTest, ListsKeepSelectionsThroughDeletes)
{
    LgIndex_t dialog = CvnGUIDialogCreateModal(CVNGUI_MAIN_DIALOG_ID, 1, 1, "Variables", nullptr,
                                               nullptr, nullptr, nullptr, nullptr);
    LgIndex_t list = CvnGUIListAdd(dialog, 1, 1, 1, 1, TRUE, onInt);
    LgIndex_t single = CvnGUIListAdd(dialog, 1, 1, 1, 1, FALSE, nullptr);
    for (const char *name : {"X", "Y", "Z", "P"})
        CvnGUIListAppendItem(list, name);
    CvnGUIListAppendItem(single, "only");
    CvnGUIDialogLaunch(dialog);

    const LgIndex_t chosen[] = {4, 2, 3};
    CvnGUIListSetSelectedItems(list, chosen, 3);
    CvnGUIListDeleteItemAtPos(list, 2);
    LgIndex_t *items = nullptr;
    LgIndex_t count = 0;
    CvnGUIListGetSelectedItems(list, &items, &count);
    ASSERT_EQ(count, 2);
    EXPECT_EQ(std::vector<LgIndex_t>(items, items + count), (std::vector<LgIndex_t>{3, 2}));
    CvnUtilArrayDealloc(reinterpret_cast<void **>(&items));
    EXPECT_EQ(items, nullptr);
    EXPECT_EQ(CvnGUIListGetItemCount(list), 3);
    char *third = CvnGUIListGetString(list, 3);
    EXPECT_STREQ(third, "P");
    CvnUtilStringDealloc(&third);
    EXPECT_EQ(CvnGUIListGetString(list, 4), nullptr);

    EXPECT_TRUE(selectItem(list, 1));
    EXPECT_EQ(CvnGUIListGetSelectedItem(list), 1);
    const LgIndex_t two[] = {1, 1};
    EXPECT_FALSE(selectItems(single, two)) << "one item at a time";
    EXPECT_FALSE(selectItem(single, 2));
    CvnGUIListDeleteAllItems(list);
    EXPECT_EQ(CvnGUIListGetSelectedItem(list), 0);
    CvnGUIListGetSelectedItems(list, &items, &count);
    EXPECT_EQ(items, nullptr);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(calls, std::vector<std::string>{"int 1"});
    EXPECT_EQ(hostObjectsMade(), 0);
}
