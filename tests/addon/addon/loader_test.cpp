/*
 * loader_test.cpp - the add-on driven as the host drives it: start-up,
 * quit, replayed and dialog loads, and the loader-selected callback.
 */
#include "AddOnFixture.h"

#include "AddOnRegistry.h"
#include "Gui.h"
#include "LoaderCallbacks.h"

using namespace corvane::cvnutildataio;
namespace host = corvane::host;

namespace {

using Texts = std::vector<std::string>;

const char *const DataFile = "x y\n1 10\n2 20\n3 30\n";

/* Names on line 1, data from the first numeric line to the end. */
std::string instructions(const std::string &title)
{
    return "TITLE{ NAME = \"" + title +
           "\" }\nVARIABLES{ SEARCH = LINE STARTLINE = 1 ENDLINE = 1 }\n"
           "DATA{ IMPORT{ STARTID = FIRSTNUMERICLINE { } ENDID = EOF { } } }\n";
}

using LoaderTest = AddOnTest;

/* Replays stored instructions as the host does; the loader's result. */
bool replay(const std::vector<std::string> &strings)
{
    corvane::host::Expected<bool> result = host::replayLoad("Ordalis Loader", strings);
    EXPECT_TRUE(result.has_value()) << "the loader is registered";
    return result.has_value() && result.value();
}

/* Loads through the dialog path: the OK button's call. */
Boolean_t loadFromDialog(const std::vector<std::string> &strings)
{
    StringList_s *list = CvnUtilStringListAlloc();
    for (const std::string &s : strings)
        CvnUtilStringListAppendString(list, s.c_str());
    Boolean_t result = internalLoaderCallback(list, TRUE);
    CvnUtilStringListDealloc(&list);
    return result;
}

TEST_F(LoaderTest, StartUpRegistersTheLoaderOnRecentHostsOnly)
{
    const host::Loader *loader = host::findLoader("Ordalis Loader");
    ASSERT_NE(loader, nullptr);
    EXPECT_EQ(loader->fileNameExtensions, "*.txt");
    EXPECT_EQ(loader->callbackVersion, 2);
    EXPECT_EQ(loader->callback, &LoaderCallback);
    EXPECT_EQ(loader->selectedCallback, &LoaderSelectedCallback);
    EXPECT_FALSE(loader->allowMultiFileSelection);
    EXPECT_EQ(loader->advancedOptions, 2);
    ASSERT_NE(AddOnID, nullptr);
    EXPECT_EQ(AddOnID->apiLevel, 100);
    EXPECT_EQ(AddOnID->name, "Ordalis Loader");
    EXPECT_EQ(AddOnID->version, std::string("V1.0.0 (1.0.0) ") + __DATE__);
    EXPECT_EQ(AddOnID->author, "Corvane Ordalis team");
    EXPECT_NE(LastUsedConfig, nullptr);
    EXPECT_NE(GlobalLineBuffer, nullptr);
    EXPECT_TRUE(ui().errors().empty());

    StateChangeCallback(StateChange_Quit, 0);
    host::resetAddOns();
    host::setHostVersion(899999);
    InitCvnAddOn113();
    EXPECT_EQ(ui().errors(),
              Texts{"Ordalis Loader requires Corvane version 9.0-0-0 or greater"});
    EXPECT_TRUE(host::loaders().empty());
    EXPECT_EQ(LastUsedConfig, nullptr);
    EXPECT_EQ(GlobalLineBuffer, nullptr);
    EXPECT_TRUE(host::quit()) << "nothing registered a quit query";

    host::setHostVersion(900000);
    InitCvnAddOn113();
    EXPECT_NE(host::findLoader("Ordalis Loader"), nullptr);
    EXPECT_EQ(ui().errors().size(), 1u);
}

TEST_F(LoaderTest, QuitWaitsForTheDialogAndFreesTheGlobalsOnce)
{
    ASSERT_TRUE(host::selectLoader("Ordalis Loader", {}));
    ASSERT_TRUE(CvnGUIDialogIsUp(Dialog1Manager));
    EXPECT_EQ(host::gui::findDialog(Dialog1Manager)->title, "Ordalis Loader");
    EXPECT_FALSE(host::quit());
    EXPECT_EQ(ui().errors(), Texts{
                                 "Please close the ordalis loader dialog before quitting Corvane"});
    EXPECT_NE(LastUsedConfig, nullptr);

    StateChangeCallback(StateChange_NewLayout, 0);
    EXPECT_NE(LastUsedConfig, nullptr);
    EXPECT_NE(GlobalFileInfo, nullptr);

    CvnGUIDialogDrop(Dialog1Manager);
    ClearInstructionSetArray(false);
    EXPECT_TRUE(host::quit());
    EXPECT_EQ(LastUsedConfig, nullptr);
    EXPECT_EQ(GlobalLineBuffer, nullptr);
    EXPECT_EQ(GlobalFileInfo, nullptr);
    StateChangeCallback(StateChange_Quit, 0); /* a second quit frees nothing twice */
    EXPECT_EQ(ui().errors().size(), 1u);
}

TEST_F(LoaderTest, InstructionListsAreCheckedBeforeReading)
{
    std::string data = write("data.txt", DataFile);
    struct Case {
        std::vector<std::string> strings;
        const char *message;
    } cases[] = {
        {{data}, "Layout instructions for tabwise data loader add-on are not formatted correctly"},
        {{"", instructions("T")},
         "Missing filename parameter in ordalis loader loading instructions."},
        {{data, ""}, "Missing configuration parameter string in ordalis loader loading instructions."},
    };
    for (const Case &c : cases) {
        ui().clearTranscript();
        EXPECT_FALSE(replay(c.strings)) << c.message;
        EXPECT_EQ(ui().errors(), Texts{c.message});
        EXPECT_EQ(host::openDataLoads(), 0) << c.message;
        EXPECT_EQ(leftBehind(), 0) << c.message;
    }
    EXPECT_TRUE(host::dataSets().empty());
}

TEST_F(LoaderTest, LoadsStoreTheInstructionsAsReceived)
{
    std::string data = write("data.txt", DataFile);
    std::vector<std::string> inline_ = {data, instructions("Inline")};
    ASSERT_TRUE(replay(inline_));
    ASSERT_TRUE(loadFromDialog(inline_));
    ASSERT_EQ(host::dataSets().size(), 2u);
    const host::DataSet &replayed = host::dataSets()[0];
    EXPECT_EQ(replayed.title, "Inline");
    EXPECT_EQ(replayed.zones[0].fields[1].get(2), 30);
    EXPECT_EQ(replayed.loaderInstructions, (host::LoaderInstructions{"Ordalis Loader", inline_}));
    EXPECT_EQ(replayed.initialPlotType, std::nullopt);
    EXPECT_EQ(host::dataSets()[1].initialPlotType, std::optional<int>(PlotType_XYLine));
    EXPECT_TRUE(ui().errors().empty());

    /* References in every accepted spelling; the reference is what is kept,
       so a replay reads the file again. */
    std::string config = write("my sets/first.twc", instructions("From file"));
    const std::string references[] = {
        "  configfname = \"" + config + "\"   ",
        "CONFIGFNAME=" + config + "   ",
        "\tConfigFName=\"" + config,
    };
    for (const std::string &reference : references) {
        host::clearDataSets();
        ASSERT_TRUE(replay({data, reference})) << reference;
        EXPECT_EQ(host::dataSets().back().title, "From file") << reference;
        EXPECT_EQ(host::dataSets().back().loaderInstructions->strings[1], reference);
    }
    std::vector<std::string> stored = host::dataSets().back().loaderInstructions->strings;
    write("my sets/first.twc", instructions("Changed"));
    ASSERT_TRUE(replay(stored));
    EXPECT_EQ(host::dataSets().back().title, "Changed");
    EXPECT_TRUE(ui().errors().empty());
}

TEST_F(LoaderTest, FailedLoadsReportOnceAndCancelsStaySilent)
{
    std::string data = write("data.txt", DataFile);
    std::string missing = path("absent.twc");
    const std::pair<std::string, std::string> cases[] = {
        {"CONFIGFNAME = \"" + missing + "\"",
         "Could not open configuration file \"" + missing +
             "\" for reading. Check disk space or permissions."},
        {"CONFIGFNAME", "Could not open configuration file \"\" for reading. Check disk space or "
                        "permissions."},
    };
    for (const auto &[text, message] : cases) {
        ui().clearTranscript();
        EXPECT_FALSE(replay({data, text}));
        EXPECT_EQ(ui().errors(), Texts{message});
    }

    ui().clearTranscript();
    EXPECT_FALSE(replay({path("none.txt"), instructions("T")}));
    ASSERT_EQ(ui().errors().size(), 2u);
    EXPECT_EQ(ui().errors()[1], "Error reading input file");
    EXPECT_TRUE(host::dataSets().empty());

    /* The transfer's box reaches 100 %, the scan's never does: a cancel
       there keeps the scan's success, the data set, and no stored
       instructions. */
    ui().clearTranscript();
    ui().cancelAtPercent(100);
    EXPECT_TRUE(loadFromDialog({data, instructions("T")}));
    EXPECT_TRUE(GlobalCancelled);
    EXPECT_TRUE(ui().errors().empty());
    ASSERT_EQ(host::dataSets().size(), 1u);
    EXPECT_EQ(host::dataSets()[0].loaderInstructions, std::nullopt);
    EXPECT_EQ(host::dataSets()[0].initialPlotType, std::optional<int>(PlotType_XYLine));

    /* A cancel in the scan fails silently. */
    std::string big = "a b\n";
    for (int line = 1; line <= 500; line++)
        big += std::to_string(line) + " " + std::to_string(2 * line) + "\n";
    std::string bigData = write("big.txt", big);
    host::clearDataSets();
    ui().clearTranscript();
    ui().cancelAtPercent(10);
    EXPECT_FALSE(replay({bigData, instructions("T")}));
    EXPECT_TRUE(GlobalCancelled);
    EXPECT_TRUE(ui().errors().empty());
    EXPECT_TRUE(host::dataSets().empty());
    EXPECT_EQ(host::openDataLoads(), 0);
}

TEST_F(LoaderTest, OutOfMemoryInTheLoaderCallback)
{
    std::string data = write("data.txt", DataFile);
    host::failHostAllocationAt(1); /* the argument list: nothing started, nothing said */
    EXPECT_FALSE(replay({data, instructions("T")}));
    EXPECT_TRUE(ui().errors().empty());

    TW_AllocFailAt(1); /* the instruction set */
    EXPECT_FALSE(replay({data, instructions("T")}));
    TW_AllocFailAt(0);
    EXPECT_EQ(ui().errors(), (Texts{
                                 "Out of memory. Unable to allocate import parameters structure",
                                 "Out of memory"}));
    EXPECT_TRUE(host::dataSets().empty());
    EXPECT_EQ(host::openDataLoads(), 0);
    EXPECT_EQ(leftBehind(), 0);
}

TEST_F(LoaderTest, SelectingTheLoaderPreparesTheDialog)
{
    std::string data = write("data.txt", DataFile);
    write("library/one.twc", "#!CORVANE_TABWISE\n" + instructions("One"));
    snprintf(LastUsedConfig->TitleName, sizeof(LastUsedConfig->TitleName), "Last used");
    LastUsedConfig->IsModified = true;

    ASSERT_TRUE(host::selectLoader("Ordalis Loader", {data, instructions("T")}));
    ASSERT_TRUE(CvnGUIDialogIsUp(Dialog1Manager));
    ASSERT_NE(GlobalFileInfo, nullptr);
    EXPECT_STREQ(GlobalFileInfo->FileName, data.c_str());
    EXPECT_EQ(GlobalFileInfo->FileSize, (int32_t)strlen(DataFile));
    EXPECT_EQ(GlobalFileInfo->CurConfigIndex, 0);
    TW_ConfigInstructions_s *untitled = GlobalConfigInfoArray[0];
    ASSERT_NE(untitled, nullptr);
    EXPECT_STREQ(untitled->DisplayName, "<untitled>");
    EXPECT_STREQ(untitled->FilePath, "<untitled>");
    EXPECT_STREQ(untitled->TitleName, "Last used");
    EXPECT_TRUE(untitled->IsModified);
    EXPECT_EQ(GetCurConfigPtr(), untitled);
    ASSERT_NE(GlobalConfigInfoArray[1], nullptr);
    EXPECT_STREQ(GlobalConfigInfoArray[1]->TitleName, "One");
    EXPECT_EQ(GlobalConfigInfoArray[2], nullptr);
    CvnGUIDialogDrop(Dialog1Manager);
    ClearInstructionSetArray(false);

    /* The previous data file has gone: no dialog, nothing left behind. */
    ui().clearTranscript();
    ASSERT_TRUE(host::selectLoader("Ordalis Loader", {path("gone.txt"), instructions("T")}));
    EXPECT_EQ(ui().errors(),
              Texts{"Could not get file information for \"" + path("gone.txt") + "\""});
    EXPECT_FALSE(CvnGUIDialogIsUp(Dialog1Manager));
    EXPECT_EQ(GlobalFileInfo, nullptr);
    for (TW_ConfigInstructions_s *entry : GlobalConfigInfoArray)
        EXPECT_EQ(entry, nullptr);

    ui().clearTranscript();
    TW_AllocFailAt(1);
    ASSERT_TRUE(host::selectLoader("Ordalis Loader", {}));
    TW_AllocFailAt(0);
    EXPECT_EQ(ui().errors(), (Texts{
                                 "Out of memory. Unable to allocate file map structure",
                                 "Not enough memory to run Ordalis Loader"}));
    EXPECT_FALSE(CvnGUIDialogIsUp(Dialog1Manager));
    EXPECT_EQ(GlobalFileInfo, nullptr);
}

} // namespace
