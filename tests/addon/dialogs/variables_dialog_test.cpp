/* The variables dialog as a user meets it from the main dialog's "Variables..." button. */
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "VariableDialogsFixture.h"

namespace {

using namespace corvane::cvnutildataio;
namespace gui = corvane::host::gui;
using VariablesDialogTest = VariableDialogsTest;
using Names = std::vector<std::pair<std::string, int>>; /* name, column width */

TEST_F(VariablesDialogTest, TypedNamesAreCutAtCommasAndLineFeeds)
{
    const std::string n200 = std::string(120, 'n') + std::string(80, 'm');
    const std::string n128 = n200.substr(0, 128);
    const std::pair<std::string, Names> cases[] = {
        {"a, b\r\n\r\nc,", {{"a", 3}, {"b", 3}, {"c", 3}}},
        {"b,c ", {{"b", 3}, {"c ", 4}}}, /* the last name keeps its blank */
        {"  x y \t,\n\n T [C]\r\nx y", {{"x y", 5}, {"T [C]", 7}, {"x y", 5}}},
        {n200 + ",z", {{n128, 130}, {"z", 3}}},
        {n200 + "\nz", {{n128, 130}, {"z", 3}}},
        {" ,\n, \r\n", {}},
    };
    openVariables();
    for (const auto &[typed, expected] : cases) {
        SCOPED_TRACE(typed.substr(0, 20));
        launchVariables();
        ASSERT_TRUE(gui::chooseOption(radio(), 2));
        ASSERT_TRUE(gui::typeText(names(), typed));
        ASSERT_TRUE(press(d4(), Button::ok));
        const TW_Variables_s &vars = current()->Variables;
        Names stored;
        for (int32_t i = 0; i < vars.NumNames; i++) {
            EXPECT_TRUE(vars.Names[i].Selected);
            EXPECT_EQ(vars.Names[i].NameLength, (int32_t)strlen(vars.Names[i].Name));
            stored.emplace_back(vars.Names[i].Name, vars.Names[i].ColumnWidth);
        }
        EXPECT_EQ(stored, expected);
        EXPECT_EQ(vars.SearchMode, SearchMode_None);
    }
    EXPECT_TRUE(ui().errors().empty());
}

TEST_F(VariablesDialogTest, ControlsFollowTheModeAndOkStoresValidEntries)
{
    openVariables();
    /* A new set: names entered (none), lines 1 to 1, "Auto", width 10; no data file. */
    EXPECT_EQ(gui::findControl(radio())->value, 2);
    EXPECT_EQ((Texts{text(field(1)), text(field(2)), text(field(3))}), (Texts{"1", "1", "10"}));
    EXPECT_FALSE(sensitive(selectButton()));
    const struct {
        LgIndex_t item, delimiter;
        bool scan, width, names;
    } cases[] = {{1, 1, true, false, false}, {1, 6, true, true, false}, {2, 6, false, false, true}};
    for (const auto &c : cases) {
        SCOPED_TRACE(::testing::Message() << "item " << c.item << ", delimiter " << c.delimiter);
        ASSERT_TRUE(gui::chooseOption(radio(), 1));
        ASSERT_TRUE(gui::chooseOption(menu(), c.delimiter));
        ASSERT_TRUE(gui::chooseOption(radio(), c.item));
        EXPECT_EQ(sensitive(field(1)), c.scan);
        EXPECT_EQ(sensitive(field(2)), c.scan);
        EXPECT_EQ(sensitive(menu()), c.scan);
        EXPECT_EQ(sensitive(field(3)), c.width);
        EXPECT_EQ(sensitive(names()), c.names);
    }
    ASSERT_TRUE(gui::typeText(names(), "x,y\nz"));
    ASSERT_TRUE(press(d4(), Button::ok));
    ASSERT_TRUE(ResetFile(write("data.txt", "1 2 3\n").c_str(), false));
    launchVariables();
    EXPECT_EQ(text(names()), "x\ny\nz\n");
    EXPECT_TRUE(sensitive(selectButton()));

    ASSERT_TRUE(gui::chooseOption(radio(), 1));
    ASSERT_TRUE(gui::chooseOption(menu(), 6));
    EXPECT_FALSE(gui::typeText(field(1), "-3"));
    EXPECT_EQ(text(field(1)), "1");
    EXPECT_FALSE(gui::typeText(field(2), "two"));
    ASSERT_TRUE(gui::typeText(field(2), "5"));
    ASSERT_TRUE(gui::typeText(field(3), "8"));
    CvnGUITextFieldSetString(field(1), "0"); /* OK pressed before the field's check */
    ASSERT_TRUE(press(d4(), Button::ok));
    const std::string range = " is not a whole number from 1 to 2147483647.";
    EXPECT_EQ(ui().errors(), (Texts{"Start Line Number: \"-3\"" + range,
                                    "End Line Number: \"two\"" + range,
                                    "Start Line: \"0\"" + range}));
    const TW_Variables_s &vars = current()->Variables;
    EXPECT_EQ(vars.SearchMode, SearchMode_Line);
    EXPECT_EQ((std::vector<int32_t>{vars.StartLine, vars.EndLine, vars.Delimiter, vars.Width}),
              (std::vector<int32_t>{1, 5, Delimiter_Fixed, 8}));
}

TEST_F(VariablesDialogTest, CancelUndoesTheSelectionAndSwitchingModesLoadsAll)
{
    openLoader();
    ASSERT_TRUE(ResetFile(write("data.txt", "x y z\n1 2 3\n").c_str(), false));
    CvnUtilSetAddMember(current()->Variables.LoadedVars, 2, TRUE);
    launchVariables();
    ASSERT_TRUE(gui::chooseOption(radio(), 1));
    ASSERT_TRUE(gui::chooseOption(menu(), 3));
    ASSERT_TRUE(gui::pressButton(selectButton()));
    move(loadList(), {2}, "<< Move");
    ASSERT_TRUE(press(d7(), Button::ok));
    EXPECT_EQ(loaded(), (Members{1, 3}));
    EXPECT_EQ(current()->Variables.Delimiter, Delimiter_Space);
    ASSERT_TRUE(press(d4(), Button::cancel));
    EXPECT_FALSE(CvnGUIDialogIsUp(d4()));
    EXPECT_EQ(loaded(), (Members{2}));
    EXPECT_EQ(current()->Variables.SearchMode, SearchMode_None);
    EXPECT_EQ(current()->Variables.Delimiter, Delimiter_Auto);

    launchVariables();
    ASSERT_TRUE(gui::chooseOption(radio(), 1));
    EXPECT_EQ(loaded(), Members{});
}

TEST_F(VariablesDialogTest, NoVariablesFoundKeepsTheSelectionClosed)
{
    openVariables(write("data.txt", "x y\n1 2\n"));
    ASSERT_TRUE(gui::pressButton(selectButton())); /* names entered, none typed */
    EXPECT_EQ(ui().errors(), (Texts{"No variables found"}));
    ASSERT_TRUE(gui::chooseOption(radio(), 1));
    ASSERT_TRUE(gui::typeText(field(1), "5"));
    ASSERT_TRUE(gui::typeText(field(2), "5"));
    ASSERT_TRUE(gui::pressButton(selectButton()));
    EXPECT_FALSE(CvnGUIDialogIsUp(d7()));
    EXPECT_EQ(ui().errors(), (Texts{"No variables found", "No variables found in this file",
                                    "No variables found"}));

    ASSERT_TRUE(gui::chooseOption(radio(), 2));
    ASSERT_TRUE(gui::typeText(names(), "a,b"));
    TW_AllocFailAt(1); /* the array of the typed names */
    ASSERT_TRUE(press(d4(), Button::ok));
    EXPECT_EQ(ui().errors().back(), "Out of memory");
    EXPECT_EQ(current()->Variables.NumNames, 0);
}

using VariablesDialogDeathTest = VariableDialogsTest;

TEST_F(VariablesDialogDeathTest, NoStringListForTheNamesEndsTheProcess)
{
    openVariables();
    ASSERT_TRUE(gui::typeText(names(), "a,b"));
    /* OK's first host allocation is the names' text, the second the string list. */
    EXPECT_EXIT(
        {
            corvane::host::failHostAllocationAt(2);
            press(d4(), Button::ok);
            std::exit(3);
        },
        ::testing::ExitedWithCode(0), "");
}

} // namespace
