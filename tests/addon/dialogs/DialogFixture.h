/* DialogFixture.h - the add-on started as the host starts it, the loader picked from the
   host's menu (the main dialog up), and a user's hands on the dialogs' controls. Every
   dialog still up at the end is cancelled, top one first, so that the lock is balanced. */
#ifndef ORDALIS_TESTS_DIALOGFIXTURE_H
#define ORDALIS_TESTS_DIALOGFIXTURE_H

#include <string>
#include <vector>

#include "../addon/AddOnFixture.h"
#include "DataImportDialog.h"
#include "FiltersDialog.h"
#include "Gui.h"
#include "Preview.h"
#include "TitleDialog.h"
#include "VariableSelectionDialog.h"
#include "VariablesDialog.h"
#include "ViewOptionsDialog.h"

class DialogTest : public AddOnTest {
protected:
    using Kind = corvane::host::gui::ControlKind;

    void TearDown() override
    {
        using namespace corvane::cvnutildataio;
        /* Nested dialogs first: 7 sits on 4, the others on 1. */
        for (LgIndex_t dialog : {Dialog7Manager, Dialog4Manager, Dialog3Manager, Dialog5Manager,
                                 Dialog6Manager, Dialog2Manager, Dialog1Manager})
            if (CvnGUIDialogIsUp(dialog))
                corvane::host::gui::pressDialogButton(dialog,
                                                      corvane::host::gui::DialogButton::cancel);
        AddOnTest::TearDown();
    }

    /* Picks "Ordalis Loader" in the host's load menu with the previous load's
       instructions (none: a first load). */
    void openLoader(const std::vector<std::string> &previous = {})
    {
        ASSERT_TRUE(corvane::host::selectLoader("Ordalis Loader", previous));
    }

    /* The control of the dialog with that kind and label (buttons, toggles, frames,
       labels), or of that kind and 1-based rank among the dialog's controls of the kind. */
    static LgIndex_t control(LgIndex_t dialog, Kind kind, const std::string &label)
    {
        return corvane::host::gui::controlByLabel(dialog, kind, label);
    }
    static LgIndex_t nth(LgIndex_t dialog, Kind kind, size_t rank)
    {
        auto all = corvane::host::gui::controlsOfKind(dialog, kind);
        return rank >= 1 && rank <= all.size() ? all[rank - 1] : CVNGUI_BAD_ID;
    }

    /* The current text of a field, multi-line text, or the label text of a label. */
    static std::string text(LgIndex_t id)
    {
        const corvane::host::gui::Control *c = corvane::host::gui::findControl(id);
        if (c == nullptr)
            return "<no control>";
        return c->kind == Kind::label ? c->label : c->text;
    }

    /* The instruction set the dialogs edit. */
    static corvane::cvnutildataio::TW_ConfigInstructions_s *current()
    {
        return corvane::cvnutildataio::GetCurConfigPtr();
    }
};

#endif
