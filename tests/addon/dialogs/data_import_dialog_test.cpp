/* The data import dialog as a user meets it from the main dialog's "Data..." button. */
#include "DialogFixture.h"
#include "StringUtil.h"

using namespace corvane::cvnutildataio;
namespace gui = corvane::host::gui;
using Texts = std::vector<std::string>;

namespace {

/* Radio boxes and text fields in the order the dialog shows them. */
enum Radio { startRadio = 1, endRadio, formatRadio, dimensionRadio };
enum Field { startKey = 1, startLine, endKey, endLine, width, iMax, jMax, kMax, zoneKey };

class DataImportDialogTest : public DialogTest {
protected:
    void launch()
    {
        BuildDialog5(CVNGUI_MAIN_DIALOG_ID);
        CvnGUIDialogLaunch(Dialog5Manager);
    }
    static LgIndex_t field(Field f) { return nth(Dialog5Manager, Kind::textField, f); }
    static LgIndex_t menu() { return nth(Dialog5Manager, Kind::optionMenu, 1); }
    static LgIndex_t toggle(const char *label)
    {
        return control(Dialog5Manager, Kind::toggle, label);
    }
    static bool choose(Radio r, LgIndex_t item)
    {
        return gui::chooseOption(nth(Dialog5Manager, Kind::radioBox, r), item);
    }
    static bool type(Field f, const char *text) { return gui::typeText(field(f), text); }
    static bool press(gui::DialogButton b) { return gui::pressDialogButton(Dialog5Manager, b); }
    static bool up() { return CvnGUIDialogIsUp(Dialog5Manager); }

    /* The data section of the current set, in one line. */
    static std::string data()
    {
        const TW_ConfigInstructions_s *s = current();
        char out[1024];
        snprintf(out, sizeof(out), "%s %s/%d, %s %s/%d, %s, auto %d %dx%dx%d, %s %d, zones %d %s, "
                                   "ignore %d",
                 TW_EnumKeyword(&FileMarkerTable, s->StartId.Marker), s->StartId.Keyword,
                 s->StartId.Line, TW_EnumKeyword(&FileMarkerTable, s->EndId.Marker),
                 s->EndId.Keyword, s->EndId.Line, TW_EnumKeyword(&DataFormatTable, s->Format),
                 s->Dimension.Auto, s->Dimension.IMax, s->Dimension.JMax, s->Dimension.KMax,
                 TW_EnumKeyword(&DelimiterTable, s->DataDelimiter), s->DataWidth,
                 s->CreateMultipleZones, s->ZoneKeyword, s->IgnoreNonNumericTokens);
        return out;
    }
    /* The dialog in one line: radio items, number fields, delimiter item and toggles (the
       keyword fields keep their text from launch to launch when the set has none). */
    static std::string shown()
    {
        std::string out;
        for (LgIndex_t id : gui::controlsOfKind(Dialog5Manager, Kind::radioBox))
            out += std::to_string(gui::findControl(id)->value) + " ";
        for (Field f : {startLine, endLine, width, iMax, jMax, kMax})
            out += "|" + text(field(f));
        out += "| " + std::to_string(gui::findControl(menu())->value);
        for (LgIndex_t id : gui::controlsOfKind(Dialog5Manager, Kind::toggle))
            out += " " + std::to_string(gui::findControl(id)->value);
        return out;
    }
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

TEST_F(DataImportDialogTest, ShowsTheSetAndEachChoiceSetsWhatCanBeEditedOrSwitchesAnother)
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
    const std::string before = data();
    launch();
    EXPECT_EQ(gui::findDialog(Dialog5Manager)->title, "Data Import Instructions");
    EXPECT_EQ(shown(), "2 2 2 2 |4|40|8|3|2|1| 6 1 0");
    EXPECT_EQ(text(field(startKey)), "BEGIN DATA");
    EXPECT_EQ(text(field(zoneKey)), "ZONE");
    EXPECT_EQ(gui::findControl(menu())->items,
              (Texts{"Auto", "Tab", "Space", "Semicolon", "Comma", "Fixed"}));
    EXPECT_EQ(editable(),
              (Texts{"Start Keyword:", "End Line:", "Width:", "IMax:", "JMax:", "KMax:"}));

    choose(startRadio, 3);
    choose(endRadio, 3);
    gui::chooseOption(menu(), 3);
    EXPECT_EQ(editable(), (Texts{"Start Line:", "End Keyword:", "IMax:", "JMax:", "KMax:"}));
    choose(startRadio, 1);
    choose(endRadio, 4);
    choose(formatRadio, 1);
    choose(dimensionRadio, 1);
    EXPECT_EQ(editable(), Texts{"Zones end on line with keyword:"});
    gui::setToggle(toggle("Allow Multiple Zones"), false);
    EXPECT_EQ(editable(), Texts{});
    EXPECT_TRUE(ui().messages().empty()); /* point data with given sizes and the reverse */
    choose(formatRadio, 2);
    EXPECT_EQ(shown(), "1 4 2 2 |4|40|8|3|2|1| 3 0 0");
    choose(dimensionRadio, 1);
    EXPECT_EQ(shown(), "1 4 1 1 |4|40|8|3|2|1| 3 0 0");
    EXPECT_EQ(ui().messages(),
              (Texts{"If the data format is BLOCK, then you must also specify the dimensions.",
                     "In order to auto-calucate IMAX, the format must be POINT."}));
    EXPECT_EQ(ui().transcript()[0].type, "warning");

    EXPECT_TRUE(press(gui::DialogButton::help));
    EXPECT_EQ(ui().transcript().back().text, "addon_ordalis_loader_data_import.html");
    EXPECT_TRUE(press(gui::DialogButton::cancel));
    EXPECT_FALSE(up());
    EXPECT_EQ(data(), before);

    set->ZoneKeyword[0] = '\0'; /* an empty keyword leaves its field as it was */
    launch();
    EXPECT_EQ(text(field(zoneKey)), "ZONE");
}

TEST_F(DataImportDialogTest, IntegerFieldsResetABadEntryToOne)
{
    openLoader();
    launch();
    choose(dimensionRadio, 2);
    gui::chooseOption(menu(), 6);
    for (auto [f, bad] : {std::pair{startLine, "0"}, {endLine, "x"}, {iMax, "-4"},
                          {jMax, "2147483648"}, {kMax, "1.5"}, {width, "6401"}})
        EXPECT_FALSE(type(f, bad)) << bad;
    EXPECT_TRUE(type(width, "6400"));
    EXPECT_TRUE(type(startLine, "2147483647"));
    EXPECT_EQ(shown(), "3 2 1 2 |2147483647|1|6400|1|1|1| 6 0 1");
    const std::string range = " is not a whole number from 1 to 2147483647.";
    EXPECT_EQ(ui().errors(),
              (Texts{"Start Line: \"0\"" + range, "End Line: \"x\"" + range, "IMax: \"-4\"" + range,
                     "JMax: \"2147483648\"" + range, "KMax: \"1.5\"" + range,
                     "Width: \"6401\" is not a whole number from 1 to 6400."}));
}

TEST_F(DataImportDialogTest, OkWritesFieldByFieldAndStaysOpenAfterAFailure)
{
    openLoader();
    current()->Dimension = {false, 0, 1, 1}; /* out of range, as a set may hold them */
    current()->DataWidth = 7000;
    TW_Strcpy(current()->ZoneKeyword, "ZONE");
    launch();
    choose(startRadio, 3);
    type(startLine, "7");
    choose(endRadio, 2);
    type(endLine, "9");
    type(jMax, "5");
    choose(formatRadio, 2);
    gui::chooseOption(menu(), 2);
    gui::setToggle(toggle("Ignore Non-numeric Tokens"), false);
    EXPECT_TRUE(press(gui::DialogButton::ok));
    EXPECT_TRUE(up());
    EXPECT_EQ(ui().errors(), Texts{"IMax: \"0\" is not a whole number from 1 to 2147483647."});
    EXPECT_EQ(data(), "LINE /1, LINE /1, IJKBLOCK, auto 0 0x1x1, TAB 7000, zones 0 ZONE, ignore 0");

    type(iMax, "3");
    EXPECT_TRUE(press(gui::DialogButton::ok));
    EXPECT_TRUE(up());
    EXPECT_EQ(ui().errors().back(), "Width: \"7000\" is not a whole number from 1 to 6400.");
    EXPECT_EQ(data(), "LINE /7, LINE /9, IJKBLOCK, auto 0 3x5x1, TAB 7000, zones 0 ZONE, ignore 0");

    ui().clearTranscript();
    choose(startRadio, 2);
    type(startKey, "");
    choose(endRadio, 3);
    type(endKey, "");
    choose(formatRadio, 1);
    choose(dimensionRadio, 1);
    gui::setToggle(toggle("Allow Multiple Zones"), true);
    type(zoneKey, ""); /* an emptied zone keyword keeps the old one */
    gui::chooseOption(menu(), 6);
    type(width, "20");
    EXPECT_TRUE(press(gui::DialogButton::ok));
    EXPECT_TRUE(up());
    EXPECT_EQ(ui().errors(), (Texts{"Please enter a starting identification keyword.",
                                    "Please enter an ending identification keyword."}));
    EXPECT_EQ(data(), "KEYWORD /7, KEYWORD /9, IJKPOINT, auto 1 3x5x1, FIXED 7000, zones 1 ZONE, "
                      "ignore 0");

    ui().clearTranscript();
    type(startKey, "BEGIN");
    type(endKey, "END");
    EXPECT_TRUE(press(gui::DialogButton::ok));
    EXPECT_FALSE(up());
    EXPECT_TRUE(ui().transcript().empty());
    EXPECT_EQ(data(), "KEYWORD BEGIN/7, KEYWORD END/9, IJKPOINT, auto 1 3x5x1, FIXED 20, "
                      "zones 1 ZONE, ignore 0");
}

} // namespace
