// Loading add-on libraries, the version check they make, replaying their
// loader and quitting the host through their callbacks.
#include <filesystem>
#include <string>
#include <vector>

#include "AddOns.h"
#include "DataModel.h"
#include "HostFixture.h"

using namespace corvane::host;
using Strings = std::vector<std::string>;

static const std::string fakeAddOn = ORDALIS_BIN_DIR "/libfake_addon.so";

class AddOnTest : public HostTest {
protected:
    void SetUp() override
    {
        HostTest::SetUp(), resetAddOns(), clearDataSets(), setHostVersion(1010000);
    }
    void TearDown() override { resetAddOns(), clearDataSets(), HostTest::TearDown(); }
};

TEST_F(AddOnTest, LoadedAddOnRegistersItsLoaderWhichReplays)
{
    ASSERT_TRUE(loadAddOn(fakeAddOn));
    Expected<bool> replayed = replayLoad("Fake Loader", {"Layout", "2nd"});
    ASSERT_TRUE(replayed) << replayed.error();
    EXPECT_TRUE(*replayed);
    EXPECT_EQ(dataSets().at(0).zones.at(0).fields.at(0).get(2), 3.0);
    EXPECT_EQ(dataSets().at(0).loaderInstructions,
              (LoaderInstructions{"Fake Loader", {"Layout", "2nd"}}));
}

TEST_F(AddOnTest, QuitIsRefusedWhileAnAddOnSaysNoThenRunsTheQuitStateChange)
{
    ASSERT_TRUE(loadAddOn(fakeAddOn));
    ui().queueAnswer(false);
    ui().queueAnswer(true);
    EXPECT_FALSE(quit());
    EXPECT_TRUE(quit());
    EXPECT_EQ(ui().messages(),
              (Strings{"Let Corvane quit?", "Let Corvane quit?", "Fake add-on: quitting"}));
}

TEST_F(AddOnTest, AnAddOnRefusedByAnOldHostRegistersNothingAndIsNotAsked)
{
    setHostVersion(899999);
    ASSERT_TRUE(loadAddOn(fakeAddOn));
    EXPECT_EQ(ui().errors(), Strings{"Fake Loader requires Corvane version 9.0-0-0 or greater"});
    EXPECT_TRUE(loaders().empty());
    EXPECT_TRUE(quit());
    EXPECT_EQ(ui().transcript().size(), 1u) << "nothing asked or told after the error";
}

TEST_F(AddOnTest, LoadErrorsNameThePathAndTheDefaultPathIsBesideTheHost)
{
    Expected<void> loaded = loadAddOn("/nonexistent/libnothing.so");
    ASSERT_FALSE(loaded);
    EXPECT_EQ(loaded.error(), "cannot load add-on /nonexistent/libnothing.so: "
                              "/nonexistent/libnothing.so: cannot open shared object file: No "
                              "such file or directory");
    const std::string host = ORDALIS_BIN_DIR "/libcorvanehost.so";
    loaded = loadAddOn(host);
    ASSERT_FALSE(loaded);
    EXPECT_EQ(loaded.error(), host + " is not a Corvane add-on (no InitCvnAddOn113)");
    EXPECT_EQ(std::filesystem::weakly_canonical(defaultAddOnPath()),
              std::filesystem::weakly_canonical(ORDALIS_BIN_DIR "/libordalis.so"));
}
