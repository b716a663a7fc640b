/* AddOnFixture.h - the add-on started as the host starts it, a scratch folder for files,
   and the clean-up of a quitting host, so that every test starts from a fresh add-on. */
#ifndef ORDALIS_TESTS_ADDONFIXTURE_H
#define ORDALIS_TESTS_ADDONFIXTURE_H

#include <cstdlib>

#include "AddOns.h"
#include "DataModel.h"
#include "Gui.h"
#include "AddOnHost.h"
#include "FileInfo.h"
#include "LineFilters.h"
#include "Progress.h"
#include "HostFixture.h"
#include "Init.h"
#include "Library.h"
#include "LoaderSelected.h"
#include "MainDialog.h"
#include "TW_Alloc.h"
#include "TestFiles.h"

namespace fs = std::filesystem;

/* Whether the line filters still hold their value array: starting them
   allocates only when they do not. Leaves them as they were. */
inline bool lineValuesHeld()
{
    using namespace corvane::cvnutildataio;
    TW_AllocFailAt(0);
    corvane::cvnutildataio::TW_LineFiltersStart();
    bool Held = TW_AllocCount() == 0;
    if (!Held)
        TW_LineFiltersRelease();
    return Held;
}

class AddOnTest : public HostTest {
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        corvane::host::resetAddOns(); /* data sets: cleared by TearDown */
        corvane::host::setHostVersion(1010000);
        ::setenv("ORDALIS_DIR", path("library").c_str(), 1);
        ::setenv("CORVANE_HOME", path("home").c_str(), 1);
        InitCvnAddOn113();
        liveAfterStart_ = corvane::host::liveHostObjects();
    }

    void TearDown() override
    {
        using namespace corvane::cvnutildataio;
        TW_AllocFailAt(0);
        /* Cancel gives back the lock the dialog holds while it is up. */
        if (CvnGUIDialogIsUp(Dialog1Manager))
            corvane::host::gui::pressDialogButton(Dialog1Manager,
                                                  corvane::host::gui::DialogButton::cancel);
        ClearInstructionSetArray(false);
        StateChangeCallback(StateChange_Quit, 0);
        corvane::host::resetAddOns();
        corvane::host::clearDataSets();
        ::unsetenv("ORDALIS_DIR");
        ::unsetenv("CORVANE_HOME");
        HostTest::TearDown();
    }

    /* Writes text to a file below the scratch folder; its full path. */
    std::string write(const std::string &name, const std::string &text)
    {
        fs::create_directories((dir_ / name).parent_path());
        testfiles::writeFile(dir_ / name, text);
        return path(name);
    }

    std::string path(const std::string &name) const { return (dir_ / name).string(); }

    /* Host objects made since the add-on started, not yet released. */
    long leftBehind() const { return corvane::host::liveHostObjects() - liveAfterStart_; }

    testfiles::ScratchDir dir_;
    long liveAfterStart_ = 0;
};

#endif
