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
    static LgIndex_t toggle(Row r) { return control(Dialog6Manager, Kind::toggle, toggleLabels[r]); }
    static LgIndex_t field(Row r) { return nth(Dialog6Manager, Kind::textField, r + 1); }
    static bool press(gui::DialogButton b) { return gui::pressDialogButton(Dialog6Manager, b); }
    static TW_NumList_s list(const char *text)
    {
        TW_NumList_s result;
        EXPECT_TRUE(ReadNumList(&text, &result, true, nullptr)) << text;
        return result;
    }
    /* Per row: toggle value, field text, and "+" where the field can be edited. */
    static Texts rows()
    {
        Texts result;
        for (Row r : {comment, keyword, columns, lines, blank})
            result.push_back(std::to_string(gui::findControl(toggle(r))->value) + " " +
                             text(field(r)) + (gui::findControl(field(r))->sensitive ? " +" : ""));
        return result;
    }
};

TEST_F(FiltersDialogTest, ShowsTheFiltersAndTheirTogglesSetWhatCanBeEdited)
{
    openLoader();
    TW_GlobalFilters_s &filters = current()->GlobalFilters;
    current()->DataDelimiter = Delimiter_Comma;
    filters.UseComment = true;
    TW_Strcpy(filters.Comment, "%");
    TW_Strcpy(filters.Keyword, "skip");
    filters.UseColumns = true;
    filters.Columns = list("[1-4, 10-END]");
    filters.Rows = list("[3]"); /* not shown while its filter is off */
    filters.UseBlankCellValue = true;
    filters.BlankCellValue = -999;
    launch();
    EXPECT_EQ(gui::findDialog(Dialog6Manager)->title, "General Filters");
    EXPECT_NE(control(Dialog6Manager, Kind::label,
                      "These filters apply to all lines in the input file"),
              CVNGUI_BAD_ID);
    EXPECT_EQ(rows(), (Texts{"1 % +", "0 skip", "1 1-4,10-end +", "0 ", "1 -999.000000 +"}));
    EXPECT_TRUE(gui::setToggle(toggle(keyword), true));
    EXPECT_TRUE(gui::setToggle(toggle(columns), false));
    EXPECT_TRUE(gui::setToggle(toggle(blank), false));
    EXPECT_EQ(rows(), (Texts{"1 % +", "1 skip +", "0 1-4,10-end", "0 ", "0 -999.000000"}));
    EXPECT_TRUE(press(gui::DialogButton::help));
    EXPECT_EQ(ui().transcript().back().text, "addon_ordalis_loader_filters.html");
    EXPECT_TRUE(press(gui::DialogButton::cancel));

    /* Blank cells only exist between semicolons or commas. */
    const struct { TW_Delimiter_e delimiter; bool blankCells; } delimiters[] = {
        {Delimiter_Auto, false}, {Delimiter_Tab, false}, {Delimiter_Space, false},
        {Delimiter_Semicolon, true}, {Delimiter_Comma, true}, {Delimiter_Fixed, false}};
    for (auto [delimiter, blankCells] : delimiters) {
        current()->DataDelimiter = delimiter;
        launch();
        EXPECT_EQ(gui::findControl(toggle(blank))->sensitive, blankCells) << delimiter;
        EXPECT_EQ(gui::findControl(field(blank))->sensitive, blankCells) << delimiter;
        EXPECT_TRUE(press(gui::DialogButton::cancel));
    }
    EXPECT_EQ(ui().errors(), Texts{});
}

TEST_F(FiltersDialogTest, ABadListEmptiesItsFieldAndSwitchesItsFilterOffUntilCancel)
{
    openLoader();
    TW_GlobalFilters_s &filters = current()->GlobalFilters;
    const struct { Row row; const char *typed; const char *message; bool TW_GlobalFilters_s::*flag; }
        cases[] = {
            {lines, "[-3]", "Invalid entry for Ignore Specific Lines", &TW_GlobalFilters_s::UseRows},
            {lines, "5-x", "Invalid entry for Ignore Specific Lines", &TW_GlobalFilters_s::UseRows},
            {columns, "1,a", "Invalid entry for Ignore Specific Columns",
             &TW_GlobalFilters_s::UseColumns},
        };
    for (const auto &c : cases) {
        filters.UseRows = filters.UseColumns = true;
        filters.Rows = filters.Columns = list("[2]");
        launch();
        ui().clearTranscript();
        EXPECT_TRUE(gui::typeText(field(c.row), "1-5, 7"));
        EXPECT_FALSE(gui::typeText(field(c.row), c.typed));
        EXPECT_EQ(ui().errors(), Texts{c.message}) << c.typed;
        EXPECT_EQ(text(field(c.row)), "");
        EXPECT_EQ(gui::findControl(toggle(c.row))->value, 0);
        EXPECT_FALSE(gui::findControl(field(c.row))->sensitive);
        EXPECT_FALSE(filters.*c.flag);
        EXPECT_TRUE(press(gui::DialogButton::cancel));
        EXPECT_TRUE(filters.*c.flag);
        EXPECT_STREQ(Export_GetNumList(c.row == lines ? &filters.Rows : &filters.Columns), "2");
    }
}

TEST_F(FiltersDialogTest, OkWritesTheFiltersOrStaysOpenAfterAMessage)
{
    openLoader();
    TW_GlobalFilters_s &filters = current()->GlobalFilters;
    current()->DataDelimiter = Delimiter_Space;
    filters.UseBlankCellValue = true;
    filters.BlankCellValue = 5;
    launch();
    EXPECT_EQ(rows()[blank], "1 5.000000");
    gui::setToggle(toggle(comment), true);
    gui::typeText(field(comment), "");
    gui::setToggle(toggle(keyword), true);
    EXPECT_TRUE(press(gui::DialogButton::ok));
    EXPECT_TRUE(CvnGUIDialogIsUp(Dialog6Manager));
    EXPECT_EQ(ui().errors(), (Texts{"Please enter a string for 'Ignore all lines starting with'",
                                    "Please enter a string for 'Ignore all lines containing'"}));
    EXPECT_FALSE(filters.UseBlankCellValue);
    EXPECT_EQ(filters.BlankCellValue, 0.0);

    ui().clearTranscript();
    gui::typeText(field(comment), "//");
    gui::typeText(field(keyword), "skip");
    gui::setToggle(toggle(columns), true);
    gui::typeText(field(columns), "1-4");
    gui::setToggle(toggle(lines), true);
    gui::typeText(field(lines), "2, 5-end");
    EXPECT_TRUE(press(gui::DialogButton::ok));
    EXPECT_FALSE(CvnGUIDialogIsUp(Dialog6Manager));
    EXPECT_EQ(ui().errors(), Texts{});
    EXPECT_TRUE(filters.UseComment);
    EXPECT_STREQ(filters.Comment, "//");
    EXPECT_TRUE(filters.UseKeyword);
    EXPECT_STREQ(filters.Keyword, "skip");
    EXPECT_TRUE(filters.UseColumns);
    EXPECT_STREQ(Export_GetNumList(&filters.Columns), "1-4");
    EXPECT_TRUE(filters.UseRows);
    EXPECT_STREQ(Export_GetNumList(&filters.Rows), "2,5-end");

    current()->DataDelimiter = Delimiter_Semicolon;
    launch();
    for (Row r : {comment, keyword, lines})
        gui::setToggle(toggle(r), false);
    gui::setToggle(toggle(blank), true);
    gui::typeText(field(blank), "abc");
    EXPECT_TRUE(press(gui::DialogButton::ok));
    EXPECT_EQ(ui().errors(), Texts{"Blanked Cell Value must be a number from "
                                   "-1.7976931348623157e+308 to 1.7976931348623157e+308."});
    EXPECT_TRUE(CvnGUIDialogIsUp(Dialog6Manager));
    gui::typeText(field(blank), "-999.5");
    EXPECT_TRUE(press(gui::DialogButton::ok));
    EXPECT_FALSE(CvnGUIDialogIsUp(Dialog6Manager));
    EXPECT_TRUE(filters.UseBlankCellValue);
    EXPECT_EQ(filters.BlankCellValue, -999.5);
    EXPECT_FALSE(filters.UseComment);
    EXPECT_STREQ(filters.Comment, "");
    EXPECT_FALSE(filters.UseKeyword);
    EXPECT_STREQ(filters.Keyword, "skip"); /* a keyword switched off keeps its text */
    EXPECT_FALSE(filters.UseRows);
    EXPECT_TRUE(filters.UseColumns);
}

} // namespace
