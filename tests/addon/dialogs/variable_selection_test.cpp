/* The variable selection dialog as a user meets it from "Select Variables to Load...". */
#include <string>
#include <vector>

#include "VariableDialogsFixture.h"

namespace {

using namespace corvane::cvnutildataio;
namespace gui = corvane::host::gui;
using VariableSelectionTest = VariableDialogsTest;

/* Sensitivities of "Move >>", "Move All >>", "<< Move", "<< Move All". */
std::vector<bool> buttons()
{
    std::vector<bool> states;
    for (const char *label : {"Move >>", "Move All >>", "<< Move", "<< Move All"})
        states.push_back(gui::findControl(gui::controlByLabel(Dialog7Manager,
                                                              gui::ControlKind::button, label))
                             ->sensitive);
    return states;
}

TEST_F(VariableSelectionTest, MovesKeepSelectionOrderAndRebuildTheSet)
{
    openSelectionOnNames("a b c d e");
    EXPECT_EQ(summary(), "All");
    EXPECT_EQ(items(loadList()), (Texts{"a", "b", "c", "d", "e"}));
    EXPECT_EQ(buttons(), (std::vector<bool>{false, false, false, true}));
    move(loadList(), {4, 2}, "<< Move");
    EXPECT_EQ(items(skipList()), (Texts{"d", "b"}));
    EXPECT_EQ(items(loadList()), (Texts{"a", "c", "e"}));
    EXPECT_EQ(loaded(), (Members{1, 3, 5}));
    EXPECT_EQ(summary(), "1,3,5");
    EXPECT_EQ(buttons(), (std::vector<bool>{false, true, false, true}));
    ASSERT_TRUE(gui::selectItems(skipList(), Members{2}));
    EXPECT_EQ(buttons(), (std::vector<bool>{true, true, false, true}));

    /* The load list's order does not matter to the set: positions of the names. */
    move(skipList(), {2, 1}, "Move >>");
    EXPECT_EQ(items(loadList()), (Texts{"a", "c", "e", "b", "d"}));
    EXPECT_EQ(loaded(), Members{});
    EXPECT_EQ(summary(), "All");
    move(loadList(), {}, "<< Move All");
    ASSERT_TRUE(press(d7(), Button::ok));
    EXPECT_EQ(ui().errors(), (Texts{"Must load at least one variable"}));
    EXPECT_TRUE(CvnGUIDialogIsUp(d7()));
    move(skipList(), {5, 1}, "Move >>");
    ASSERT_TRUE(press(d7(), Button::ok));
    EXPECT_FALSE(CvnGUIDialogIsUp(d7()));
    EXPECT_EQ(loaded(), (Members{1, 4}));

    /* Reopened, every variable is offered again under the set's summary; Cancel loads all. */
    ASSERT_TRUE(gui::pressButton(selectButton()));
    EXPECT_EQ(summary(), "1,4");
    EXPECT_EQ(items(skipList()), Texts{});
    EXPECT_EQ(items(loadList()), (Texts{"a", "b", "c", "d", "e"}));
    ASSERT_TRUE(press(d7(), Button::cancel));
    EXPECT_EQ(loaded(), Members{});
}

TEST_F(VariableSelectionTest, SummaryShowsTenMembersThenDots)
{
    openSelectionOnNames("v1 v2 v3 v4 v5 v6 v7 v8 v9 v10 v11 v12");
    move(loadList(), {12}, "<< Move");
    EXPECT_EQ(summary(), "1,2,3,4,5,6,7,8,9,10,...");
    move(loadList(), {11}, "<< Move");
    EXPECT_EQ(summary(), "1,2,3,4,5,6,7,8,9,10...");
    move(loadList(), {1}, "<< Move");
    EXPECT_EQ(summary(), "2,3,4,5,6,7,8,9,10");
}

TEST_F(VariableSelectionTest, EnteredNamesAreFoundByTheirFirstPosition)
{
    openVariables(write("data.txt", "1 2 3 4\n"));
    ASSERT_TRUE(gui::typeText(names(), "p\nQ,P\nr"));
    ASSERT_TRUE(gui::pressButton(selectButton()));
    EXPECT_EQ(items(loadList()), (Texts{"p", "Q", "P", "r"}));
    move(loadList(), {2, 4}, "<< Move");
    EXPECT_EQ(loaded(), Members{1});
    ASSERT_TRUE(press(d7(), Button::ok));
    ASSERT_TRUE(press(d4(), Button::ok));
    EXPECT_EQ(current()->Variables.NumNames, 4);
    EXPECT_EQ(loaded(), Members{1});
}

} // namespace
