/*
 * loaders_test.cpp - loaders registered through CvnUtilImportAddLoaderX and
 * called the way the host replays a stored layout or the user picks one.
 */
#include <string>
#include <vector>

#include "AddOns.h"
#include "CvnAPI.h"
#include "Handles.h"
#include "HostFixture.h"

using corvane::host::findLoader;
using corvane::host::loaders;
using Strings = std::vector<std::string>;

namespace {

Strings seen; /* the instructions the fake callbacks were given */

Boolean_t fakeLoader(StringList_s *instructions, long)
{
    seen = instructions->items;
    return seen.size() == 2;
}

Boolean_t otherLoader(StringList_s *, long)
{
    return TRUE;
}

void fakeSelected(StringList_s *previous, char, long)
{
    seen = previous->items;
    seen.insert(seen.begin(), "selected");
}

class LoaderTest : public HostTest {
protected:
    void SetUp() override { HostTest::SetUp(), corvane::host::resetAddOns(), seen.clear(); }
    void TearDown() override { corvane::host::resetAddOns(), HostTest::TearDown(); }

    /* Registers with every key the add-on passes, plus extraKey if given;
       the error box CvnUtilPostLastErrorMessage then shows, if any. */
    Strings addLoader(const char *name, DataLoaderCallback_pf callback, bool selected,
                      const char *extraKey = nullptr)
    {
        ArgList_s *args = CvnUtilArgListAlloc();
        CvnUtilArgListAppendString(args, "LoaderName", name);
        CvnUtilArgListAppendString(args, "FileNameExtensions", "*.fk");
        CvnUtilArgListAppendInt(args, "LoaderCallbackVersion", 2);
        if (callback)
            CvnUtilArgListAppendFunction(args, "LoaderCallback",
                                         reinterpret_cast<const void *>(callback));
        if (selected)
            CvnUtilArgListAppendFunction(args, "LoaderSelectedCallback",
                                         reinterpret_cast<const void *>(&fakeSelected));
        CvnUtilArgListAppendInt(args, "AllowMultiFileSelection", 1);
        CvnUtilArgListAppendInt(args, "LoaderAdvancedOptions", 2);
        if (extraKey)
            CvnUtilArgListAppendInt(args, extraKey, 1);
        ui().clearTranscript();
        if (!CvnUtilImportAddLoaderX(args))
            CvnUtilPostLastErrorMessage();
        CvnUtilArgListDealloc(&args);
        return ui().errors();
    }
};

} // namespace

TEST_F(LoaderTest, RegistrationKeepsEveryKeyAndTheSameNameReplaces)
{
    EXPECT_EQ(addLoader("Fake", &fakeLoader, true), Strings{});
    const corvane::host::Loader *loader = findLoader("FAKE");
    ASSERT_NE(loader, nullptr);
    EXPECT_EQ(loader->fileNameExtensions, "*.fk");
    EXPECT_EQ(loader->callbackVersion, 2);
    EXPECT_EQ(loader->callback, &fakeLoader);
    EXPECT_EQ(loader->selectedCallback, &fakeSelected);
    EXPECT_TRUE(loader->allowMultiFileSelection);
    EXPECT_EQ(loader->advancedOptions, 2);

    EXPECT_EQ(addLoader("fake", &otherLoader, false), Strings{});
    ASSERT_EQ(loaders().size(), 1u);
    EXPECT_EQ(loaders()[0].name, "fake");
    EXPECT_EQ(loaders()[0].callback, &otherLoader);
    EXPECT_EQ(loaders()[0].selectedCallback, nullptr);

    EXPECT_EQ(addLoader("Bad", nullptr, false),
              Strings{"Cannot add the loader: no \"LoaderCallback\" was given for \"Bad\""});
    EXPECT_EQ(addLoader("Bad", &fakeLoader, false, "LoaderColour"),
              Strings{"Cannot add the loader: unknown argument \"LoaderColour\""});
    EXPECT_EQ(addLoader("Bad", &fakeLoader, false, "LoaderName"),
              Strings{"Cannot add the loader: \"LoaderName\" must be a string"});
    EXPECT_EQ(loaders().size(), 1u);
}

TEST_F(LoaderTest, ReplayAndSelectHandTheStringsToTheCallbacks)
{
    addLoader("Fake", &fakeLoader, true);
    corvane::host::Expected<bool> replayed =
        corvane::host::replayLoad("fake", {"data.txt", "rules"});
    ASSERT_TRUE(replayed);
    EXPECT_TRUE(*replayed);
    EXPECT_EQ(seen, (Strings{"data.txt", "rules"}));
    replayed = corvane::host::replayLoad("Fake", {"one"});
    ASSERT_TRUE(replayed);
    EXPECT_FALSE(*replayed);

    replayed = corvane::host::replayLoad("Missing", {"x"});
    ASSERT_FALSE(replayed);
    EXPECT_EQ(replayed.error(), "no loader named \"Missing\" is registered");
    EXPECT_EQ(seen, Strings{"one"});

    ASSERT_TRUE(corvane::host::selectLoader("Fake", {"previous.txt", "rules"}));
    EXPECT_EQ(seen, (Strings{"selected", "previous.txt", "rules"}));
    addLoader("Plain", &otherLoader, false);
    corvane::host::Expected<void> selected = corvane::host::selectLoader("Plain", {});
    ASSERT_FALSE(selected);
    EXPECT_EQ(selected.error(), "the loader \"Plain\" has no loader-selected callback");
}
