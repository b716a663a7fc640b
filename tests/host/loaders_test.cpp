// Loaders registered through CvnUtilImportAddLoaderX and called the way the
// host replays a stored layout or the user picks one.
#include <string>
#include <vector>

#include "AddOns.h"
#include "CvnAPI.h"
#include "Handles.h"
#include "HostFixture.h"

using namespace corvane::host;
using Strings = std::vector<std::string>;

static Strings seen; /* the instructions the fake callbacks were given */

static Boolean_t fakeLoader(StringList_s *instructions, long)
{
    seen = instructions->items;
    return seen.size() == 2;
}

static void fakeSelected(StringList_s *previous, char, long)
{
    seen = previous->items;
    seen.insert(seen.begin(), "selected");
}

class LoaderTest : public HostTest {
protected:
    void SetUp() override { HostTest::SetUp(), resetAddOns(), seen.clear(); }

    /* Registers name, with key = 2; returns the error box then posted. */
    Strings addLoader(const char *name, bool selected, const char *key = "LoaderAdvancedOptions")
    {
        ArgList_s *args = CvnUtilArgListAlloc();
        CvnUtilArgListAppendString(args, "LoaderName", name);
        CvnUtilArgListAppendFunction(args, "LoaderCallback",
                                     reinterpret_cast<const void *>(&fakeLoader));
        if (selected)
            CvnUtilArgListAppendFunction(args, "LoaderSelectedCallback",
                                         reinterpret_cast<const void *>(&fakeSelected));
        CvnUtilArgListAppendInt(args, key, 2);
        ui().clearTranscript();
        if (!CvnUtilImportAddLoaderX(args))
            CvnUtilPostLastErrorMessage();
        CvnUtilArgListDealloc(&args);
        return ui().errors();
    }
};

TEST_F(LoaderTest, RegistrationTakesKnownArgumentsOfTheirType)
{
    EXPECT_EQ(addLoader("Fake", true), Strings{});
    ASSERT_NE(findLoader("FAKE"), nullptr);
    EXPECT_EQ(findLoader("FAKE")->advancedOptions, 2);
    EXPECT_EQ(addLoader("Bad", false, "LoaderColour"),
              Strings{"Cannot add the loader: unknown argument \"LoaderColour\""});
    EXPECT_EQ(addLoader("Bad", false, "LoaderName"),
              Strings{"Cannot add the loader: \"LoaderName\" must be a string"});
    EXPECT_EQ(findLoader("Bad"), nullptr);
}

TEST_F(LoaderTest, LoadersAreReplayedAndSelectedByNameIgnoringCase)
{
    addLoader("Fake", true);
    Expected<bool> replayed = replayLoad("fake", {"data.txt", "rules"});
    ASSERT_TRUE(replayed) << replayed.error();
    EXPECT_TRUE(*replayed);
    EXPECT_EQ(seen, (Strings{"data.txt", "rules"}));
    ASSERT_TRUE(selectLoader("FAKE", {"previous.txt", "rules"}));
    EXPECT_EQ(seen, (Strings{"selected", "previous.txt", "rules"}));
}

TEST_F(LoaderTest, AMissingLoaderIsNamed)
{
    Expected<bool> replayed = replayLoad("Missing", {"x"});
    ASSERT_FALSE(replayed);
    EXPECT_EQ(replayed.error(), "no loader named \"Missing\" is registered");
}

TEST_F(LoaderTest, TheSameNameReplacesTheLoader)
{
    addLoader("Fake", true);
    EXPECT_EQ(addLoader("fake", false), Strings{});
    ASSERT_EQ(loaders().size(), 1u);
    Expected<void> selected = selectLoader("Fake", {});
    ASSERT_FALSE(selected);
    EXPECT_EQ(selected.error(), "the loader \"fake\" has no loader-selected callback");
}
