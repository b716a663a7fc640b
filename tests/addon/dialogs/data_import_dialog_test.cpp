/* The data import dialog as a user meets it from the main dialog's "Data..." button. */
#include "DialogFixture.h"
#include "StringUtil.h"

using namespace corvane::cvnutildataio;
namespace gui = corvane::host::gui;
using Texts = std::vector<std::string>;

namespace {

/* Radio boxes and text fields in the order the dialog shows them. */
enum Radio { startRadio = 1, endRadio, formatRadio, dimensionRadio };
enum Field { startKeyword = 1, startLine, endKeyword, endLine, width, iMax, jMax, kMax, zoneKeyword };

class DataImportDialogTest : public DialogTest {
protected:
    void launch()
    {
        BuildDialog5(CVNGUI_MAIN_DIALOG_ID);
        CvnGUIDialogLaunch(Dialog5Manager);
    }
    static LgIndex_t radio(Radio r) { return nth(Dialog5Manager, Kind::radioBox, r); }
    static LgIndex_t field(Field f) { return nth(Dialog5Manager, Kind::textField, f); }
    static LgIndex_t toggle(const char *label) { return control(Dialog5Manager, Kind::toggle, label); }
    static LgIndex_t value(LgIndex_t id) { return gui::findControl(id)->value; }
    static bool choose(Radio r, LgIndex_t item) { return gui::chooseOption(radio(r), item); }
    static bool type(Field f, const char *text) { return gui::typeText(field(f), text); }
    static bool ok() { return gui::pressDialogButton(Dialog5Manager, gui::DialogButton::ok); }
    static bool up() { return CvnGUIDialogIsUp(Dialog5Manager); }

    /* The labels that can be edited now; each field follows its label. */
    static Texts editable()
    {
        Texts result;
        const Texts labels{"Start Keyword:", "Start Line:", "End Keyword:", "End Line:", "Width:",
                           "IMax:", "JMax:", "KMax:", "Zones end on line with keyword:"};
        for (size_t i = 0; i < labels.size(); i++) {
            bool on = gui::findControl(control(Dialog5Manager, Kind::label, labels[i]))->sensitive;
            EXPECT_EQ(gui::findControl(field(Field(i + 1)))->sensitive, on) << labels[i];
            if (on)
                result.push_back(labels[i]);
        }
        return result;
    }
};

TEST_F(DataImportDialogTest, ShowsTheSetAndEachChoiceSetsWhatCanBeEdited)
{
    openLoader();
    TW_ConfigInstructions_s *set = current();
    set->StartId = {FileMarker_Keyword, "BEGIN DATA", 4};
    set->EndId = {FileMarker_Line, "", 40};
    set->Format = DataFormat_IJKBlock;
    set->DataDelimiter = Delimiter_Fixed;
    set->DataWidth = 8;
    set->Dimension = {false, 3, 2, 1};
    set->CreateMultipleZones = true;
    TW_Strcpy(set->ZoneKeyword, "ZONE");
    set->IgnoreNonNumericTokens = false;
    launch();

    EXPECT_EQ(gui::findDialog(Dialog5Manager)->title, "Data Import Instructions");
    EXPECT_EQ((std::vector<LgIndex_t>{value(radio(startRadio)), value(radio(endRadio)),
                                      value(radio(formatRadio)), value(radio(dimensionRadio))}),
              (std::vector<LgIndex_t>{2, 2, 2, 2}));
    Texts shown;
    for (int f = startKeyword; f <= zoneKeyword; f++)
        shown.push_back(text(field(Field(f))));
    EXPECT_EQ(shown, (Texts{"BEGIN DATA", "4", "", "40", "8", "3", "2", "1", "ZONE"}));
    LgIndex_t menu = nth(Dialog5Manager, Kind::optionMenu, 1);
    EXPECT_EQ(gui::findControl(menu)->items,
              (Texts{"Auto", "Tab", "Space", "Semicolon", "Comma", "Fixed"}));
    EXPECT_EQ(value(menu), 6);
    EXPECT_EQ(value(toggle("Allow Multiple Zones")), 1);
    EXPECT_EQ(value(toggle("Ignore Non-numeric Tokens")), 0);
    EXPECT_EQ(editable(), (Texts{"Start Keyword:", "End Line:", "Width:", "IMax:", "JMax:", "KMax:"}));

    EXPECT_TRUE(choose(startRadio, 3));
    EXPECT_TRUE(choose(endRadio, 3));
    EXPECT_TRUE(gui::chooseOption(menu, 3));
    EXPECT_EQ(editable(), (Texts{"Start Line:", "End Keyword:", "IMax:", "JMax:", "KMax:"}));
    EXPECT_TRUE(choose(startRadio, 1));
    EXPECT_TRUE(choose(endRadio, 4));
    EXPECT_TRUE(choose(formatRadio, 1));
    EXPECT_TRUE(choose(dimensionRadio, 1));
    EXPECT_EQ(editable(), Texts{"Zones end on line with keyword:"});
    EXPECT_TRUE(gui::setToggle(toggle("Allow Multiple Zones"), false));
    EXPECT_EQ(editable(), Texts{});
    EXPECT_FALSE(type(zoneKeyword, "Z2"));
    EXPECT_TRUE(ui().messages().empty());

    EXPECT_TRUE(gui::pressDialogButton(Dialog5Manager, gui::DialogButton::help));
    ASSERT_FALSE(ui().transcript().empty());
    EXPECT_EQ(ui().transcript().back().text, "addon_ordalis_loader_data_import.html");
    EXPECT_TRUE(gui::pressDialogButton(Dialog5Manager, gui::DialogButton::cancel));
    EXPECT_FALSE(up());
    EXPECT_EQ(set->StartId.Marker, FileMarker_Keyword);
    EXPECT_EQ(set->EndId.Marker, FileMarker_Line);
    EXPECT_EQ(set->DataDelimiter, Delimiter_Fixed);
    EXPECT_FALSE(set->Dimension.Auto);
    EXPECT_EQ(set->Format, DataFormat_IJKBlock);

    set->ZoneKeyword[0] = '\0'; /* an empty keyword leaves its field as it was */
    launch();
    EXPECT_EQ(text(field(zoneKeyword)), "ZONE");
}

TEST_F(DataImportDialogTest, BlockFormatAndAutomaticSizesExcludeEachOtherWithAWarning)
{
    openLoader();
    launch();
    EXPECT_TRUE(choose(formatRadio, 2));
    EXPECT_EQ(value(radio(dimensionRadio)), 2);
    EXPECT_EQ(editable(), (Texts{"Start Line:", "End Line:", "IMax:", "JMax:", "KMax:"}));
    EXPECT_TRUE(choose(dimensionRadio, 1));
    EXPECT_EQ(value(radio(formatRadio)), 1);
    EXPECT_EQ(editable(), (Texts{"Start Line:", "End Line:"}));
    for (auto [r, item] : {std::pair{dimensionRadio, 2}, {formatRadio, 2}, {formatRadio, 1},
                           {dimensionRadio, 1}})
        EXPECT_TRUE(choose(r, item)); /* consistent choices: no warning */
    ASSERT_EQ(ui().transcript().size(), 2u);
    EXPECT_EQ(ui().transcript()[0].type, "warning");
    EXPECT_EQ(ui().messages(),
              (Texts{"If the data format is BLOCK, then you must also specify the dimensions.",
                     "In order to auto-calucate IMAX, the format must be POINT."}));
}

TEST_F(DataImportDialogTest, IntegerFieldsResetABadEntryToOne)
{
    openLoader();
    launch();
    choose(startRadio, 3);
    choose(endRadio, 2);
    choose(dimensionRadio, 2);
    gui::chooseOption(nth(Dialog5Manager, Kind::optionMenu, 1), 6);
    const std::string whole = " must be a whole number from 1 to ";
    const struct { Field f; const char *bad; std::string message; } rows[] = {
        {startLine, "0", "Start Line" + whole + "2147483647."},
        {endLine, "x", "End Line" + whole + "2147483647."},
        {iMax, "-4", "IMax" + whole + "2147483647."},
        {jMax, "2147483648", "JMax" + whole + "2147483647."},
        {kMax, "1.5", "KMax" + whole + "2147483647."},
        {width, "6401", "Width" + whole + "6400."},
    };
    for (const auto &row : rows) {
        ui().clearTranscript();
        EXPECT_FALSE(type(row.f, row.bad)) << row.bad;
        EXPECT_EQ(text(field(row.f)), "1");
        EXPECT_EQ(ui().errors(), Texts{row.message});
    }
    ui().clearTranscript();
    EXPECT_TRUE(type(width, "6400"));
    EXPECT_TRUE(type(startLine, "2147483647"));
    EXPECT_EQ(text(field(width)), "6400");
    EXPECT_TRUE(ui().transcript().empty());
}

TEST_F(DataImportDialogTest, OkWritesEveryFieldAndAnEmptiedZoneKeywordKeepsTheOldOne)
{
    openLoader();
    TW_ConfigInstructions_s *set = current();
    launch();
    choose(startRadio, 2);
    type(startKeyword, "BEGIN");
    choose(endRadio, 3);
    type(endKeyword, "END");
    gui::chooseOption(nth(Dialog5Manager, Kind::optionMenu, 1), 6);
    type(width, "12");
    gui::setToggle(toggle("Allow Multiple Zones"), true);
    type(zoneKeyword, "ZONE");
    gui::setToggle(toggle("Ignore Non-numeric Tokens"), false);
    EXPECT_TRUE(ok());
    EXPECT_FALSE(up());
    EXPECT_EQ(set->StartId.Marker, FileMarker_Keyword);
    EXPECT_STREQ(set->StartId.Keyword, "BEGIN");
    EXPECT_EQ(set->EndId.Marker, FileMarker_Keyword);
    EXPECT_STREQ(set->EndId.Keyword, "END");
    EXPECT_EQ(set->DataDelimiter, Delimiter_Fixed);
    EXPECT_EQ(set->DataWidth, 12);
    EXPECT_TRUE(set->CreateMultipleZones);
    EXPECT_STREQ(set->ZoneKeyword, "ZONE");
    EXPECT_FALSE(set->IgnoreNonNumericTokens);
    EXPECT_TRUE(set->Dimension.Auto);
    EXPECT_EQ(set->Format, DataFormat_IJKPoint);

    launch();
    EXPECT_TRUE(type(zoneKeyword, "")); /* editable for point data sized automatically */
    choose(startRadio, 3);
    type(startLine, "7");
    choose(endRadio, 2);
    type(endLine, "9");
    choose(dimensionRadio, 2);
    type(iMax, "3");
    type(jMax, "2");
    type(kMax, "4");
    choose(formatRadio, 2);
    gui::chooseOption(nth(Dialog5Manager, Kind::optionMenu, 1), 5);
    EXPECT_TRUE(ok());
    EXPECT_FALSE(up());
    EXPECT_EQ(set->StartId.Marker, FileMarker_Line);
    EXPECT_EQ(set->StartId.Line, 7);
    EXPECT_STREQ(set->StartId.Keyword, "BEGIN");
    EXPECT_EQ(set->EndId.Marker, FileMarker_Line);
    EXPECT_EQ(set->EndId.Line, 9);
    EXPECT_FALSE(set->Dimension.Auto);
    EXPECT_EQ((std::vector<int>{set->Dimension.IMax, set->Dimension.JMax, set->Dimension.KMax}),
              (std::vector<int>{3, 2, 4}));
    EXPECT_EQ(set->Format, DataFormat_IJKBlock);
    EXPECT_EQ(set->DataDelimiter, Delimiter_Comma);
    EXPECT_EQ(set->DataWidth, 12);
    EXPECT_STREQ(set->ZoneKeyword, "ZONE");
    EXPECT_TRUE(ui().transcript().empty());
}

TEST_F(DataImportDialogTest, AFailedOkStaysOpenWithWhatCameBeforeWritten)
{
    openLoader();
    TW_ConfigInstructions_s *set = current();
    set->Dimension = {false, 0, 1, 1}; /* sizes and width out of range, as a set may hold them */
    set->DataWidth = 7000;
    launch();
    choose(startRadio, 3);
    type(startLine, "7");
    choose(endRadio, 2);
    type(endLine, "9");
    type(jMax, "5");
    choose(formatRadio, 2);
    gui::chooseOption(nth(Dialog5Manager, Kind::optionMenu, 1), 2);
    EXPECT_TRUE(ok());
    EXPECT_TRUE(up());
    EXPECT_EQ(ui().errors(), Texts{"IMax must be a whole number from 1 to 2147483647."});
    EXPECT_EQ(set->StartId.Marker, FileMarker_Line);
    EXPECT_EQ(set->EndId.Marker, FileMarker_Line);
    EXPECT_EQ(set->Format, DataFormat_IJKBlock);
    EXPECT_EQ(set->DataDelimiter, Delimiter_Tab);
    EXPECT_EQ((std::vector<int>{set->StartId.Line, set->EndId.Line, set->Dimension.IMax,
                                set->Dimension.JMax, set->DataWidth}),
              (std::vector<int>{1, 1, 0, 1, 7000}));

    ui().clearTranscript();
    type(iMax, "3");
    EXPECT_TRUE(ok());
    EXPECT_TRUE(up());
    EXPECT_EQ(ui().errors(), Texts{"Width must be a whole number from 1 to 6400."});
    EXPECT_EQ((std::vector<int>{set->StartId.Line, set->EndId.Line, set->Dimension.IMax,
                                set->Dimension.JMax, set->DataWidth}),
              (std::vector<int>{7, 9, 3, 5, 7000}));

    ui().clearTranscript();
    choose(startRadio, 2);
    type(startKeyword, "");
    choose(endRadio, 3);
    type(endKeyword, "");
    gui::chooseOption(nth(Dialog5Manager, Kind::optionMenu, 1), 6);
    type(width, "20");
    EXPECT_TRUE(ok());
    EXPECT_EQ(ui().errors(), (Texts{"Please enter a starting identification keyword.",
                                    "Please enter an ending identification keyword."}));
    EXPECT_EQ(set->StartId.Marker, FileMarker_Keyword);
    EXPECT_EQ(set->EndId.Marker, FileMarker_Keyword);
    EXPECT_EQ(set->DataWidth, 7000);
    ui().clearTranscript();
    type(startKeyword, "BEGIN");
    type(endKeyword, "END");
    EXPECT_TRUE(ok());
    EXPECT_FALSE(up());
    EXPECT_EQ(set->DataWidth, 20);
    EXPECT_TRUE(ui().transcript().empty());
}

} // namespace
