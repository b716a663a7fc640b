/* The general filters dialog as a user meets it from the main dialog's "General Filters..."
   button. */
#include "DialogFixture.h"
#include "StringUtil.h"

using namespace corvane::cvnutildataio;
namespace gui = corvane::host::gui;
using Texts = std::vector<std::string>;

namespace {

const char *const toggleLabels[] = {"Ignore All Lines Starting With", "Ignore All Lines Containing",
                                    "Ignore Char Column Position(s)", "Ignore  Specific Lines",
                                    "Specify Value for Blanked Cell"};
enum Row { comment, keyword, columns, lines, blank };

class FiltersDialogTest : public DialogTest {
protected:
    void launch()
    {
        BuildDialog6(CVNGUI_MAIN_DIALOG_ID);
        CvnGUIDialogLaunch(Dialog6Manager);
    }
    static LgIndex_t toggle(Row r)
    {
        return control(Dialog6Manager, Kind::toggle, toggleLabels[r]);
    }
    static LgIndex_t field(Row r) { return nth(Dialog6Manager, Kind::textField, r + 1); }
    static bool press(gui::DialogButton b) { return gui::pressDialogButton(Dialog6Manager, b); }
    static bool up() { return CvnGUIDialogIsUp(Dialog6Manager); }
    /* Per row: toggle value, field text, and "+" where the field can be edited. */
    static Texts rows()
    {
        Texts result;
        for (Row r : {comment, keyword, columns, lines, blank})
            result.push_back(std::to_string(gui::findControl(toggle(r))->value) + " " +
                             text(field(r)) + (gui::findControl(field(r))->sensitive ? " +" : ""));
        return result;
    }
    /* The current set's filters in one line. */
    static std::string filters()
    {
        const TW_GlobalFilters_s &f = current()->GlobalFilters;
        std::string columns = Export_GetNumList(&f.Columns); /* one static buffer */
        std::string rows = Export_GetNumList(&f.Rows);
        return std::to_string(f.UseComment) + " " + f.Comment + ", " +
               std::to_string(f.UseKeyword) + " " + f.Keyword + ", " +
               std::to_string(f.UseColumns) + " " + columns + ", " + std::to_string(f.UseRows) +
               " " + rows + ", " + std::to_string(f.UseBlankCellValue) + " " +
               std::to_string(f.BlankCellValue);
    }
};

TEST_F(FiltersDialogTest, ShowsTheFiltersAndTheirTogglesSetWhatCanBeEdited)
{
    openLoader();
    TW_GlobalFilters_s &set = current()->GlobalFilters;
    current()->DataDelimiter = Delimiter_Comma;
    set.UseComment = true;
    TW_Strcpy(set.Comment, "%");
    TW_Strcpy(set.Keyword, "skip");
    set.UseColumns = true;
    set.Columns = {2, {{1, 4}, {10, 0}}};
    set.Rows = {1, {{3, 3}}}; /* not shown while its filter is off */
    set.UseBlankCellValue = true;
    set.BlankCellValue = -999;
    launch();
    EXPECT_EQ(gui::findDialog(Dialog6Manager)->title, "General Filters");
    EXPECT_NE(control(Dialog6Manager, Kind::label,
                      "These filters apply to all lines in the input file"),
              CVNGUI_BAD_ID);
    EXPECT_EQ(rows(), (Texts{"1 % +", "0 skip", "1 1-4,10-end +", "0 ", "1 -999.000000 +"}));
    gui::setToggle(toggle(keyword), true);
    gui::setToggle(toggle(columns), false);
    gui::setToggle(toggle(blank), false);
    EXPECT_EQ(rows(), (Texts{"1 % +", "1 skip +", "0 1-4,10-end", "0 ", "0 -999.000000"}));
    EXPECT_TRUE(press(gui::DialogButton::help));
    EXPECT_EQ(ui().transcript().back().text, "addon_ordalis_loader_filters.html");
    EXPECT_TRUE(press(gui::DialogButton::cancel));

    /* Blank cells only exist between semicolons or commas. */
    for (int delimiter = Delimiter_Auto; delimiter <= Delimiter_Fixed; delimiter++) {
        current()->DataDelimiter = (TW_Delimiter_e)delimiter;
        launch();
        bool blankCells = delimiter == Delimiter_Semicolon || delimiter == Delimiter_Comma;
        EXPECT_EQ(gui::findControl(toggle(blank))->sensitive, blankCells) << delimiter;
        EXPECT_EQ(gui::findControl(field(blank))->sensitive, blankCells) << delimiter;
        EXPECT_TRUE(press(gui::DialogButton::cancel));
    }
}

TEST_F(FiltersDialogTest, ABadListEmptiesItsFieldAndSwitchesItsFilterOffUntilCancel)
{
    openLoader();
    TW_GlobalFilters_s &set = current()->GlobalFilters;
    set.UseRows = set.UseColumns = true;
    set.Rows = set.Columns = {1, {{2, 2}}};
    const struct { Row row; const char *typed; const char *message; const char *after; } cases[] = {
        {lines, "[-3]", "Invalid entry for Ignore Specific Lines", "1 2, 0 2, 0 0.000000"},
        {lines, "5-x", "Invalid entry for Ignore Specific Lines", "1 2, 0 2, 0 0.000000"},
        {columns, "1,a", "Invalid entry for Ignore Specific Columns", "0 2, 1 2, 0 0.000000"},
    };
    for (const auto &c : cases) {
        launch();
        ui().clearTranscript();
        EXPECT_TRUE(gui::typeText(field(c.row), "1-5, 7"));
        EXPECT_FALSE(gui::typeText(field(c.row), c.typed));
        EXPECT_EQ(ui().errors(), Texts{c.message}) << c.typed;
        EXPECT_EQ(rows()[c.row], "0 ");
        EXPECT_EQ(filters(), std::string("0 #, 0 , ") + c.after);
        EXPECT_TRUE(press(gui::DialogButton::cancel));
        EXPECT_EQ(filters(), "0 #, 0 , 1 2, 1 2, 0 0.000000");
    }
}

TEST_F(FiltersDialogTest, OkWritesTheFiltersOrStaysOpenAfterAMessage)
{
    openLoader();
    current()->DataDelimiter = Delimiter_Space;
    current()->GlobalFilters.UseBlankCellValue = true;
    current()->GlobalFilters.BlankCellValue = 5;
    launch();
    gui::setToggle(toggle(comment), true);
    gui::typeText(field(comment), "");
    gui::setToggle(toggle(keyword), true);
    EXPECT_TRUE(press(gui::DialogButton::ok));
    EXPECT_TRUE(up());
    EXPECT_EQ(ui().errors(), (Texts{"Please enter a string for 'Ignore all lines starting with'",
                                    "Please enter a string for 'Ignore all lines containing'"}));
    EXPECT_EQ(filters(), "1 , 1 , 0 , 0 , 0 0.000000");

    ui().clearTranscript();
    gui::typeText(field(comment), "//");
    gui::typeText(field(keyword), "skip");
    gui::setToggle(toggle(columns), true);
    gui::typeText(field(columns), "1-4");
    gui::setToggle(toggle(lines), true);
    gui::typeText(field(lines), "2, 5-end");
    EXPECT_TRUE(press(gui::DialogButton::ok));
    EXPECT_FALSE(up());
    EXPECT_EQ(filters(), "1 //, 1 skip, 1 1-4, 1 2,5-end, 0 0.000000");

    current()->DataDelimiter = Delimiter_Semicolon;
    launch();
    for (Row r : {comment, keyword, lines})
        gui::setToggle(toggle(r), false); /* a keyword switched off keeps its text */
    gui::setToggle(toggle(blank), true);
    gui::typeText(field(blank), "abc");
    EXPECT_TRUE(press(gui::DialogButton::ok));
    EXPECT_TRUE(up());
    EXPECT_EQ(ui().errors(), Texts{"Blanked Cell Value: \"abc\" is not a number."});
    gui::typeText(field(blank), "-999.5");
    EXPECT_TRUE(press(gui::DialogButton::ok));
    EXPECT_FALSE(up());
    EXPECT_EQ(filters(), "0 , 0 skip, 1 1-4, 0 2,5-end, 1 -999.500000");
}

} // namespace
