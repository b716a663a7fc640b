/*
 * AddOnFixture.h - a host with the add-on started as the host starts it,
 * a scratch directory for data and instruction files, and the clean-up a
 * quitting host does, so that every test starts from a fresh add-on.
 */
#ifndef ORDALIS_TESTS_ADDONFIXTURE_H
#define ORDALIS_TESTS_ADDONFIXTURE_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

#include "AddOns.h"
#include "DataModel.h"
#include "Globals.h"
#include "HostFixture.h"
#include "Init.h"
#include "Library.h"
#include "MainDialog.h"
#include "TW_Alloc.h"

namespace fs = std::filesystem;

class AddOnTest : public HostTest {
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        corvane::host::resetAddOns();
        corvane::host::clearDataSets();
        corvane::host::setHostVersion(1010000);
        dir_ = fs::path(::testing::TempDir()) /
               ("ordalis_addon_" + std::to_string(::getpid()) + "_" +
                ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(dir_);
        fs::create_directories(dir_);
        ::setenv("ORDALIS_DIR", (dir_ / "library").c_str(), 1);
        ::setenv("CORVANE_HOME", (dir_ / "home").c_str(), 1);
        InitCvnAddOn113();
        liveAfterStart_ = corvane::host::liveHostObjects();
    }

    void TearDown() override
    {
        using namespace corvane::cvnutildataio;
        corvane::cvnutildataio::TW_AllocFailAt(0);
        corvane::host::failHostAllocationAt(0);
        if (CvnGUIDialogIsUp(Dialog1Manager))
            CvnGUIDialogDrop(Dialog1Manager);
        ClearInstructionSetArray(false);
        StateChangeCallback(StateChange_Quit, 0);
        corvane::host::resetAddOns();
        corvane::host::clearDataSets();
        ::unsetenv("ORDALIS_DIR");
        ::unsetenv("CORVANE_HOME");
        fs::remove_all(dir_);
        HostTest::TearDown();
    }

    /* Writes text to a file below the scratch directory; its full path. */
    std::string write(const std::string &name, const std::string &text)
    {
        fs::path path = dir_ / name;
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
        return path.string();
    }

    /* Host objects made since the add-on started and not yet released. */
    long leftBehind() const { return corvane::host::liveHostObjects() - liveAfterStart_; }

    std::string path(const std::string &name) const { return (dir_ / name).string(); }

    fs::path dir_;
    long liveAfterStart_ = 0;
};

#endif
