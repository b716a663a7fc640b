/* The title dialog as a user meets it from the main dialog's "Title..." button. */
#include <string>

#include "DialogFixture.h"
#include "StringUtil.h"

namespace {

using namespace corvane::cvnutildataio;
namespace gui = corvane::host::gui;

class TitleDialogTest : public DialogTest {
protected:
    /* The loader picked, then dialog 3 opened as "Title..." opens it. */
    void openTitle()
    {
        openLoader();
        BuildDialog3(CVNGUI_MAIN_DIALOG_ID);
        CvnGUIDialogLaunch(Dialog3Manager);
        ASSERT_TRUE(CvnGUIDialogIsUp(Dialog3Manager));
    }
    static LgIndex_t radio() { return nth(Dialog3Manager, Kind::radioBox, 1); }
    static LgIndex_t delimiter() { return nth(Dialog3Manager, Kind::optionMenu, 1); }
    /* Text fields in dialog order: title, line number, keyword, width. */
    static LgIndex_t field(size_t rank) { return nth(Dialog3Manager, Kind::textField, rank); }
    static bool sensitive(LgIndex_t id) { return gui::findControl(id)->sensitive; }
    static bool press(gui::DialogButton button)
    {
        return gui::pressDialogButton(Dialog3Manager, button);
    }
};

TEST_F(TitleDialogTest, OpensWithTheSetsTitleSettings)
{
    openLoader();
    TW_ConfigInstructions_s *set = current();
    set->TitleSearchMode = SearchMode_Keyword;
    TW_Strcpy(set->TitleName, "Run 7");
    set->TitleLine = 4;
    TW_Strcpy(set->TitleKeyword, "TITLE=");
    set->TitleDelimiter = Delimiter_Semicolon;
    set->TitleWidth = 12;
    BuildDialog3(CVNGUI_MAIN_DIALOG_ID);
    CvnGUIDialogLaunch(Dialog3Manager);

    EXPECT_EQ(gui::findDialog(Dialog3Manager)->title, "Dataset Title");
    EXPECT_EQ(gui::findControl(radio())->items,
              (std::vector<std::string>{"Use Title", "Use Line Number:",
                                        "Use First Line Containing Keyword:"}));
    EXPECT_EQ(gui::findControl(radio())->value, 3);
    EXPECT_EQ(text(field(1)), "Run 7");
    EXPECT_EQ(text(field(2)), "4");
    EXPECT_EQ(text(field(3)), "TITLE=");
    EXPECT_EQ(text(field(4)), "12");
    EXPECT_EQ(gui::findControl(delimiter())->items,
              (std::vector<std::string>{"Auto", "Tab", "Space", "Semicolon", "Comma", "Fixed"}));
    EXPECT_EQ(gui::findControl(delimiter())->value, 4);
    for (const char *label : {"Title:", "Line Number:", "Keyword:", "Title Text Delimeter:",
                              "Width:"})
        EXPECT_NE(control(Dialog3Manager, Kind::label, label), CVNGUI_BAD_ID) << label;

    ui().clearTranscript();
    ASSERT_TRUE(press(gui::DialogButton::help));
    ASSERT_EQ(ui().transcript().size(), 1u);
    EXPECT_EQ(ui().transcript()[0].kind, corvane::host::UiEvent::Kind::help);
    EXPECT_EQ(ui().transcript()[0].text, "addon_ordalis_loader_titles.html");
}

TEST_F(TitleDialogTest, EachRadioItemEnablesItsFieldAndTheWidthFollowsFixedAlone)
{
    openTitle();
    struct Case {
        LgIndex_t item, delimiterItem;
        bool title, line, keyword, menu, width;
    };
    const Case cases[] = {
        {1, 1, true, false, false, false, false},
        {1, 6, true, false, false, false, true}, /* "Use Title" with "Fixed" */
        {2, 1, false, true, false, true, false},
        {2, 6, false, true, false, true, true},
        {3, 5, false, false, true, true, false},
        {3, 6, false, false, true, true, true},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(::testing::Message() << "item " << c.item << ", delimiter " << c.delimiterItem);
        /* The menu can be changed only while it is sensitive: pick it under item 2. */
        ASSERT_TRUE(gui::chooseOption(radio(), 2));
        ASSERT_TRUE(gui::chooseOption(delimiter(), c.delimiterItem));
        ASSERT_TRUE(gui::chooseOption(radio(), c.item));
        EXPECT_EQ(sensitive(field(1)), c.title);
        EXPECT_EQ(sensitive(field(2)), c.line);
        EXPECT_EQ(sensitive(field(3)), c.keyword);
        EXPECT_EQ(sensitive(delimiter()), c.menu);
        EXPECT_EQ(sensitive(field(4)), c.width);
        EXPECT_TRUE(sensitive(radio()));
    }
}

TEST_F(TitleDialogTest, OkStoresEveryControlAndCancelNothing)
{
    openTitle();
    ASSERT_TRUE(gui::chooseOption(radio(), 2));
    ASSERT_TRUE(gui::typeText(field(2), "17"));
    ASSERT_TRUE(gui::chooseOption(delimiter(), 6));
    ASSERT_TRUE(gui::typeText(field(4), "6400"));
    ASSERT_TRUE(gui::chooseOption(radio(), 3));
    ASSERT_TRUE(gui::typeText(field(3), std::string(300, 'k')));
    ASSERT_TRUE(gui::chooseOption(radio(), 1));
    ASSERT_TRUE(gui::typeText(field(1), std::string(2000, 't')));
    ASSERT_TRUE(gui::chooseOption(radio(), 2));
    ASSERT_TRUE(press(gui::DialogButton::ok));

    const TW_ConfigInstructions_s *set = current();
    EXPECT_FALSE(CvnGUIDialogIsUp(Dialog3Manager));
    EXPECT_EQ(set->TitleSearchMode, SearchMode_Line);
    EXPECT_EQ(std::string(set->TitleName), std::string(1023, 't'));
    EXPECT_EQ(set->TitleLine, 17);
    EXPECT_EQ(std::string(set->TitleKeyword), std::string(256, 'k'));
    EXPECT_EQ(set->TitleDelimiter, Delimiter_Fixed);
    EXPECT_EQ(set->TitleWidth, 6400);
    EXPECT_TRUE(ui().errors().empty());

    /* Reopened, changed and cancelled: the set stays as OK left it. */
    CvnGUIDialogLaunch(Dialog3Manager);
    EXPECT_EQ(gui::findControl(radio())->value, 2);
    ASSERT_TRUE(gui::typeText(field(2), "3"));
    ASSERT_TRUE(gui::chooseOption(delimiter(), 2));
    ASSERT_TRUE(gui::chooseOption(radio(), 1));
    ASSERT_TRUE(gui::typeText(field(1), "Other"));
    ASSERT_TRUE(press(gui::DialogButton::cancel));
    EXPECT_FALSE(CvnGUIDialogIsUp(Dialog3Manager));
    EXPECT_EQ(set->TitleSearchMode, SearchMode_Line);
    EXPECT_EQ(set->TitleLine, 17);
    EXPECT_EQ(set->TitleDelimiter, Delimiter_Fixed);
    EXPECT_EQ(std::string(set->TitleName), std::string(1023, 't'));
}

TEST_F(TitleDialogTest, BadIntegersResetWhileTypingAndKeepTheOldValuesAtOk)
{
    openTitle();
    ASSERT_TRUE(gui::chooseOption(radio(), 2));
    ASSERT_TRUE(gui::chooseOption(delimiter(), 6));
    EXPECT_FALSE(gui::typeText(field(2), "0"));
    EXPECT_EQ(text(field(2)), "1");
    EXPECT_FALSE(gui::typeText(field(4), "6401"));
    EXPECT_EQ(text(field(4)), "1");
    EXPECT_TRUE(gui::typeText(field(2), "2147483647"));
    EXPECT_EQ(ui().errors(), (std::vector<std::string>{
                                 "Line Number must be a whole number from 1 to 2147483647.",
                                 "Width must be a whole number from 1 to 6400."}));

    /* Texts left in the fields without their checks (OK pressed while typing). */
    ui().clearTranscript();
    CvnGUITextFieldSetString(field(2), "12a");
    CvnGUITextFieldSetString(field(4), "");
    ASSERT_TRUE(press(gui::DialogButton::ok));
    EXPECT_FALSE(CvnGUIDialogIsUp(Dialog3Manager));
    EXPECT_EQ(ui().errors(), (std::vector<std::string>{
                                 "Line Number must be a whole number from 1 to 2147483647.",
                                 "Width must be a whole number from 1 to 6400."}));
    EXPECT_EQ(current()->TitleLine, 1);
    EXPECT_EQ(current()->TitleWidth, 10);
    EXPECT_EQ(current()->TitleSearchMode, SearchMode_Line);
    EXPECT_EQ(current()->TitleDelimiter, Delimiter_Fixed);
}

} // namespace
