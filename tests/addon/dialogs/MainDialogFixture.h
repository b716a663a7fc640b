/* MainDialogFixture.h - the main dialog, its preview and the view options as a user meets
   them: view options at their defaults, the dialog's controls by role, a reading set in the
   library, and the names the file choosers proposed. */
#ifndef ORDALIS_TESTS_MAINDIALOGFIXTURE_H
#define ORDALIS_TESTS_MAINDIALOGFIXTURE_H

#include <memory>

#include "DialogFixture.h"
#include "InstructionSetList.h"

/* Title on line 1, names on line 2, data from the first numeric line to the end, a new
   zone after each line holding ZONE. */
inline std::string readerSet(const std::string &extra = "")
{
    return "#!CORVANE_TABWISE\nTITLE{ SEARCH = LINE LINE = 1 }\n"
           "VARIABLES{ SEARCH = LINE STARTLINE = 2 ENDLINE = 2 " + extra + "}\n"
           "DATA{ IMPORT{ STARTID = FIRSTNUMERICLINE { } ENDID = EOF { } }\n"
           "  DIMENSION{ AUTO = TRUE CREATEMULTIPLEZONES = TRUE KEYWORD = \"ZONE\" } }\n";
}

/* The test's ScriptedUi, keeping the proposed name and filter of every file chooser. */
class ChooserRecorder : public corvane::host::ScriptedUi {
public:
    std::vector<std::string> proposals;
    std::optional<std::string> chooseFile(SelectFileOption_e o, std::string_view title,
                                          std::string_view name, std::string_view filter) override
    {
        proposals.push_back(std::string(name) + " " + std::string(filter));
        return ScriptedUi::chooseFile(o, title, name, filter);
    }
};

class MainDialogTest : public DialogTest {
protected:
    using Texts = std::vector<std::string>;

    void SetUp() override
    {
        DialogTest::SetUp();
        using namespace corvane::cvnutildataio;
        ViewOptionsDialog_Limit = ViewOptionsDialog_Show = ViewOptionsDialog_ShowFormat = 1;
        ViewOptionsDialog_LimitLines = 200;
        ViewOptionsDialog_AutoProcess = MainDialog_ShowFullPath = false;
        MainDialog_ViewData = 1;
    }
    void TearDown() override
    {
        guard_.reset(); /* the host fixture's backend is back before it goes */
        DialogTest::TearDown();
    }

    /* Opens the loader with data ("" for none) as the previous load's file and the set
       "reader.twc" (readerSet(extra)) in the library. */
    void open(const std::string &data, const std::string &extra = "")
    {
        write("library/reader.twc", readerSet(extra));
        openLoader(data.empty() ? Texts{} : Texts{data});
    }

    static LgIndex_t d1() { return corvane::cvnutildataio::Dialog1Manager; }
    static LgIndex_t d2() { return corvane::cvnutildataio::Dialog2Manager; }
    static bool press(const std::string &label, LgIndex_t dialog = d1())
    {
        return corvane::host::gui::pressButton(control(dialog, Kind::button, label));
    }
    static bool pressDialog(LgIndex_t dialog, corvane::host::gui::DialogButton button)
    {
        return corvane::host::gui::pressDialogButton(dialog, button);
    }
    static LgIndex_t list() { return nth(d1(), Kind::list, 1); }
    static LgIndex_t preview() { return nth(d1(), Kind::text, 1); }
    static LgIndex_t fileLabel() { return nth(d1(), Kind::label, 2); }
    static LgIndex_t viewRadio() { return nth(d1(), Kind::radioBox, 1); }
    static Texts items() { return corvane::host::gui::findControl(list())->items; }
    static LgIndex_t selected() { return CvnGUIListGetSelectedItem(list()); }
    static bool sensitive(LgIndex_t id) { return corvane::host::gui::findControl(id)->sensitive; }
    static int currentIndex() { return corvane::cvnutildataio::GlobalFileInfo->CurConfigIndex; }

    /* From now on the boxes go to a recorder of file-chooser proposals (with answers and
       files queued there). */
    ChooserRecorder &recordChoosers()
    {
        recorder_ = std::make_shared<ChooserRecorder>();
        guard_.emplace(recorder_);
        return *recorder_;
    }

private:
    std::shared_ptr<ChooserRecorder> recorder_;
    std::optional<corvane::host::ScopedUserInterface> guard_;
};

#endif
