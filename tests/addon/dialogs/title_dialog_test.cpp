/* The title dialog as a user meets it from the main dialog's "Title..." button. */
#include <string>

#include "DialogFixture.h"
#include "StringUtil.h"

namespace {

using namespace corvane::cvnutildataio;
namespace gui = corvane::host::gui;
using Texts = std::vector<std::string>;

class TitleDialogTest : public DialogTest {
protected:
    static void launchTitle()
    {
        BuildDialog3(CVNGUI_MAIN_DIALOG_ID);
        CvnGUIDialogLaunch(Dialog3Manager);
    }
    static LgIndex_t radio() { return nth(Dialog3Manager, Kind::radioBox, 1); }
    static LgIndex_t menu() { return nth(Dialog3Manager, Kind::optionMenu, 1); }
    /* Text fields in dialog order: title, line number, keyword, width. */
    static LgIndex_t field(size_t rank) { return nth(Dialog3Manager, Kind::textField, rank); }
    static bool sensitive(LgIndex_t id) { return gui::findControl(id)->sensitive; }
    static bool press(gui::DialogButton b) { return gui::pressDialogButton(Dialog3Manager, b); }
};

TEST_F(TitleDialogTest, OpensWithTheSetAndEnablesEachFieldByItsRadioItem)
{
    openLoader();
    current()->TitleSearchMode = SearchMode_Keyword;
    TW_Strcpy(current()->TitleKeyword, "TITLE=");
    current()->TitleDelimiter = Delimiter_Semicolon;
    launchTitle();
    EXPECT_EQ(gui::findControl(radio())->items,
              (Texts{"Use Title", "Use Line Number:", "Use First Line Containing Keyword:"}));
    EXPECT_EQ(gui::findControl(menu())->items,
              (Texts{"Auto", "Tab", "Space", "Semicolon", "Comma", "Fixed"}));
    EXPECT_EQ(gui::findControl(radio())->value, 3);
    EXPECT_EQ(gui::findControl(menu())->value, 4);
    EXPECT_EQ((Texts{text(field(1)), text(field(2)), text(field(3)), text(field(4))}),
              (Texts{"New Dataset", "1", "TITLE=", "10"}));
    EXPECT_NE(control(Dialog3Manager, Kind::label, "Title Text Delimeter:"), CVNGUI_BAD_ID);

    struct Case {
        LgIndex_t item, delimiter;
        bool title, line, keyword, menu, width;
    } const cases[] = {
        {1, 1, true, false, false, false, false}, {1, 6, true, false, false, false, true},
        {2, 1, false, true, false, true, false},  {3, 6, false, false, true, true, true},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(::testing::Message() << "item " << c.item << ", delimiter " << c.delimiter);
        ASSERT_TRUE(gui::chooseOption(radio(), 2)); /* the menu is sensitive under item 2 */
        ASSERT_TRUE(gui::chooseOption(menu(), c.delimiter));
        ASSERT_TRUE(gui::chooseOption(radio(), c.item));
        EXPECT_EQ(sensitive(field(1)), c.title);
        EXPECT_EQ(sensitive(field(2)), c.line);
        EXPECT_EQ(sensitive(field(3)), c.keyword);
        EXPECT_EQ(sensitive(menu()), c.menu);
        EXPECT_EQ(sensitive(field(4)), c.width);
    }
    ui().clearTranscript();
    ASSERT_TRUE(press(gui::DialogButton::help));
    EXPECT_EQ(ui().transcript().at(0).text, "addon_ordalis_loader_titles.html");
}

TEST_F(TitleDialogTest, OkStoresValidEntriesAndCancelNothing)
{
    openLoader();
    launchTitle();
    ASSERT_TRUE(gui::typeText(field(1), std::string(2000, 't')));
    ASSERT_TRUE(gui::chooseOption(radio(), 3));
    ASSERT_TRUE(gui::typeText(field(3), std::string(300, 'k')));
    ASSERT_TRUE(gui::chooseOption(menu(), 6));
    EXPECT_FALSE(gui::typeText(field(4), "6401"));
    EXPECT_EQ(text(field(4)), "1");
    ASSERT_TRUE(gui::chooseOption(radio(), 2));
    EXPECT_FALSE(gui::typeText(field(2), "0"));
    EXPECT_EQ(text(field(2)), "1");
    ASSERT_TRUE(gui::typeText(field(2), "2147483647"));
    CvnGUITextFieldSetString(field(4), "12a"); /* OK pressed before the field's check */
    ASSERT_TRUE(press(gui::DialogButton::ok));

    const TW_ConfigInstructions_s *set = current();
    EXPECT_FALSE(CvnGUIDialogIsUp(Dialog3Manager));
    EXPECT_EQ(ui().errors(),
              (Texts{"Width: \"6401\" is not a whole number from 1 to 6400.",
                     "Line Number: \"0\" is not a whole number from 1 to 2147483647.",
                     "Width: \"12a\" is not a whole number from 1 to 6400."}));
    EXPECT_EQ(set->TitleSearchMode, SearchMode_Line);
    EXPECT_EQ(std::string(set->TitleName), std::string(1023, 't'));
    EXPECT_EQ(set->TitleLine, 2147483647);
    EXPECT_EQ(std::string(set->TitleKeyword), std::string(256, 'k'));
    EXPECT_EQ(set->TitleDelimiter, Delimiter_Fixed);
    EXPECT_EQ(set->TitleWidth, 10);

    launchTitle();
    ASSERT_TRUE(gui::typeText(field(2), "3"));
    ASSERT_TRUE(gui::chooseOption(radio(), 1));
    ASSERT_TRUE(press(gui::DialogButton::cancel));
    EXPECT_FALSE(CvnGUIDialogIsUp(Dialog3Manager));
    EXPECT_EQ(set->TitleSearchMode, SearchMode_Line);
    EXPECT_EQ(set->TitleLine, 2147483647);
}

} // namespace
