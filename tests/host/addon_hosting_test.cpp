/*
 * addon_hosting_test.cpp - loading add-on libraries, the version check they
 * make, replaying their loader and quitting the host through their
 * callbacks.
 */
#include <filesystem>
#include <string>
#include <vector>

#include "AddOns.h"
#include "CvnAPI.h"
#include "DataModel.h"
#include "HostFixture.h"

using Strings = std::vector<std::string>;

namespace {

const std::string fakeAddOn = ORDALIS_BIN_DIR "/libfake_addon.so";

class AddOnTest : public HostTest {
protected:
    void SetUp() override
    {
        HostTest::SetUp(), corvane::host::resetAddOns(), corvane::host::clearDataSets();
    }
    void TearDown() override
    {
        corvane::host::resetAddOns(), corvane::host::clearDataSets();
        corvane::host::setHostVersion(1010000);
        HostTest::TearDown();
    }
};

} // namespace

TEST_F(AddOnTest, LoadedAddOnRegistersItsLoaderWhichReplays)
{
    EXPECT_EQ(CvnUtilGetCorvaneVersion(), 1010000);
    ASSERT_TRUE(corvane::host::loadAddOn(fakeAddOn));
    ASSERT_EQ(corvane::host::loaders().size(), 1u);
    EXPECT_EQ(corvane::host::loaders()[0].fileNameExtensions, "*.fake");

    corvane::host::Expected<bool> replayed =
        corvane::host::replayLoad("Fake Loader", {"Layout", "2nd"});
    ASSERT_TRUE(replayed && *replayed);
    ASSERT_EQ(corvane::host::dataSets().size(), 1u);
    const corvane::host::DataSet &set = corvane::host::dataSets()[0];
    EXPECT_EQ(set.title, "Layout");
    EXPECT_EQ(set.loaderName, "Fake Loader");
    EXPECT_EQ(set.variables, Strings{"Fake value"});
    ASSERT_EQ(set.zones.size(), 1u);
    EXPECT_EQ(set.zones[0].fields[0].get(2), 3.0);
    EXPECT_EQ(set.initialPlotType, std::optional<int>(PlotType_XYLine));
    EXPECT_EQ(set.loaderInstructions,
              (corvane::host::LoaderInstructions{"Fake Loader", {"Layout", "2nd"}}));
    EXPECT_EQ(ui().errors(), Strings{});
}

TEST_F(AddOnTest, AnOldHostIsRefusedAndNothingIsRegistered)
{
    corvane::host::setHostVersion(899999);
    ASSERT_TRUE(corvane::host::loadAddOn(fakeAddOn));
    EXPECT_EQ(ui().errors(), Strings{"Fake Loader requires Corvane version 9.0-0-0 or greater"});
    EXPECT_TRUE(corvane::host::loaders().empty());
    EXPECT_TRUE(corvane::host::quit());
    EXPECT_EQ(ui().messages(), Strings{});
}

TEST_F(AddOnTest, QuitIsRefusedWhileAnAddOnSaysNoThenRunsTheQuitStateChange)
{
    ASSERT_TRUE(corvane::host::loadAddOn(fakeAddOn));
    ui().queueAnswer(false);
    ui().queueAnswer(true);
    EXPECT_FALSE(corvane::host::quit());
    EXPECT_EQ(ui().messages(), Strings{"Let Corvane quit?"});
    EXPECT_TRUE(corvane::host::quit());
    EXPECT_EQ(ui().messages(),
              (Strings{"Let Corvane quit?", "Let Corvane quit?", "Fake add-on: quitting"}));

    corvane::host::resetAddOns(); /* nothing is asked or told any more */
    ui().clearTranscript();
    EXPECT_TRUE(corvane::host::quit());
    EXPECT_TRUE(ui().transcript().empty());
}

TEST_F(AddOnTest, LoadErrorsNameThePathAndTheDefaultPathIsBesideTheHost)
{
    corvane::host::Expected<void> loaded = corvane::host::loadAddOn("/nonexistent/libnothing.so");
    ASSERT_FALSE(loaded);
    EXPECT_EQ(loaded.error(),
              "cannot load add-on /nonexistent/libnothing.so: /nonexistent/libnothing.so: "
              "cannot open shared object file: No such file or directory");
    const std::string host = ORDALIS_BIN_DIR "/libcorvanehost.so";
    loaded = corvane::host::loadAddOn(host);
    ASSERT_FALSE(loaded);
    EXPECT_EQ(loaded.error(), host + " is not a Corvane add-on (no InitCvnAddOn113)");

    namespace fs = std::filesystem;
    EXPECT_EQ(fs::weakly_canonical(corvane::host::defaultAddOnPath()),
              fs::weakly_canonical(ORDALIS_BIN_DIR "/libordalis.so"));
}
