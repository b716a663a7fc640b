/* VariableDialogsFixture.h - dialog 4 opened as "Variables..." opens it, dialog 7 through its
   "Select Variables to Load...", their controls by rank; the scan released at the end. */
#ifndef ORDALIS_TESTS_VARIABLEDIALOGSFIXTURE_H
#define ORDALIS_TESTS_VARIABLEDIALOGSFIXTURE_H

#include <string>
#include <vector>

#include "DialogFixture.h"

class VariableDialogsTest : public DialogTest {
protected:
    using Button = corvane::host::gui::DialogButton;
    using Texts = std::vector<std::string>;
    using Members = std::vector<LgIndex_t>;

    /* The loader picked, a data file chosen (when given), then dialog 4. */
    void openVariables(const std::string &dataFile = "")
    {
        openLoader();
        if (!dataFile.empty()) {
            EXPECT_TRUE(corvane::cvnutildataio::ResetFile(dataFile.c_str(), false));
        }
        launchVariables();
    }
    static void launchVariables()
    {
        corvane::cvnutildataio::BuildDialog4(CVNGUI_MAIN_DIALOG_ID);
        CvnGUIDialogLaunch(d4());
    }
    /* Dialog 7 on the names of a file's first line. */
    void openSelectionOnNames(const std::string &names)
    {
        openVariables(write("names.txt", names + "\n1 2\n"));
        corvane::host::gui::chooseOption(radio(), 1);
        corvane::host::gui::pressButton(selectButton());
        ASSERT_TRUE(CvnGUIDialogIsUp(d7()));
    }

    static LgIndex_t d4() { return corvane::cvnutildataio::Dialog4Manager; }
    static LgIndex_t d7() { return corvane::cvnutildataio::Dialog7Manager; }
    static LgIndex_t radio() { return nth(d4(), Kind::radioBox, 1); }
    static LgIndex_t menu() { return nth(d4(), Kind::optionMenu, 1); }
    /* 1 start line, 2 end line, 3 width. */
    static LgIndex_t field(size_t rank) { return nth(d4(), Kind::textField, rank); }
    static LgIndex_t names() { return nth(d4(), Kind::text, 1); }
    static LgIndex_t selectButton()
    {
        return control(d4(), Kind::button, "Select Variables to Load...");
    }
    static LgIndex_t skipList() { return nth(d7(), Kind::list, 1); }
    static LgIndex_t loadList() { return nth(d7(), Kind::list, 2); }
    static std::string summary() { return text(nth(d7(), Kind::label, 2)); }
    static Texts items(LgIndex_t list) { return corvane::host::gui::findControl(list)->items; }
    static bool sensitive(LgIndex_t id) { return corvane::host::gui::findControl(id)->sensitive; }
    static bool press(LgIndex_t dialog, Button b)
    {
        return corvane::host::gui::pressDialogButton(dialog, b);
    }

    /* Picks items of a list of dialog 7 (none: keeps the selection) and presses a button. */
    static void move(LgIndex_t list, Members picked, const char *button)
    {
        if (!picked.empty()) {
            EXPECT_TRUE(corvane::host::gui::selectItems(list, picked));
        }
        EXPECT_TRUE(corvane::host::gui::pressButton(control(d7(), Kind::button, button)));
    }

    /* The current set's variables to load, in increasing order. */
    static Members loaded()
    {
        Members members;
        const Set_s *set = current()->Variables.LoadedVars;
        for (LgIndex_t m = CvnUtilSetGetNextMember(set, CVN_NO_MEMBER); m != CVN_NO_MEMBER;
             m = CvnUtilSetGetNextMember(set, m))
            members.push_back(m);
        return members;
    }
};

#endif
