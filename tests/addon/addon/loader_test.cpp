/* loader_test.cpp - the add-on driven as the host drives it: start-up, quit, replayed and
   dialog loads, and the loader-selected callback. */
#include "AddOnFixture.h"

#include "AddOnRegistry.h"
#include "LoaderCallbacks.h"

using namespace corvane::cvnutildataio;
namespace host = corvane::host;

using Texts = std::vector<std::string>;
using LoaderTest = AddOnTest;

const char *const DataFile = "x y\n1 10\n2 20\n3 30\n";

/* Names on line 1, data from the first numeric line to the end. */
std::string instructions(const std::string &title)
{
    return "TITLE{ NAME = \"" + title +
           "\" }\nVARIABLES{ SEARCH = LINE STARTLINE = 1 ENDLINE = 1 }\n"
           "DATA{ IMPORT{ STARTID = FIRSTNUMERICLINE { } ENDID = EOF { } } }\n";
}

/* Replays stored instructions as the host does; the loader's result. */
bool replay(const Texts &strings)
{
    corvane::host::Expected<bool> result = host::replayLoad("Ordalis Loader", strings);
    EXPECT_TRUE(result.has_value()) << "the loader is registered";
    return result.has_value() && result.value();
}

/* Loads through the dialog path: the OK button's call. */
Boolean_t loadFromDialog(const Texts &strings)
{
    StringList_s *list = CvnUtilStringListAlloc();
    for (const std::string &s : strings)
        CvnUtilStringListAppendString(list, s.c_str());
    Boolean_t result = internalLoaderCallback(list, TRUE);
    CvnUtilStringListDealloc(&list);
    return result;
}

TEST_F(LoaderTest, StartUpRegistersTheLoader)
{
    const host::Loader *loader = host::findLoader("Ordalis Loader");
    ASSERT_NE(loader, nullptr);
    EXPECT_EQ(std::tuple(loader->fileNameExtensions, loader->callback, loader->selectedCallback,
                         loader->allowMultiFileSelection, loader->advancedOptions),
              std::tuple(std::string("*.txt"), &LoaderCallback, &LoaderSelectedCallback, false, 2));
}

TEST_F(LoaderTest, QuitWaitsForTheDialogThenReleasesEverything)
{
    ASSERT_TRUE(host::selectLoader("Ordalis Loader", {}));
    EXPECT_FALSE(host::quit());
    EXPECT_EQ(ui().errors(),
              Texts{"Please close the ordalis loader dialog before quitting Corvane"});
    StateChangeCallback(StateChange_NewLayout, 0);
    EXPECT_NE(LastUsedConfig, nullptr);
    EXPECT_NE(GlobalFileInfo, nullptr);
    ASSERT_TRUE(host::gui::pressDialogButton(Dialog1Manager, host::gui::DialogButton::cancel));
    EXPECT_TRUE(host::quit());
    EXPECT_EQ(LastUsedConfig, nullptr);
    EXPECT_EQ(GlobalFileInfo, nullptr);
    EXPECT_FALSE(lineValuesHeld());
    StateChangeCallback(StateChange_Quit, 0); /* a second quit frees nothing twice */
}

/* Started again after a quit, on a host of the given version; nothing
   registered a quit query on an old one. */
TEST_F(LoaderTest, HostsBeforeVersionNineGetNoLoader)
{
    const std::tuple<LgIndex_t, bool, Texts> rows[] = {
        {899999, false, {"Ordalis Loader requires Corvane version 9.0-0-0 or greater"}},
        {900000, true, {}},
    };
    ASSERT_TRUE(host::quit());
    for (const auto &[version, registered, errors] : rows) {
        host::resetAddOns();
        ui().clearTranscript();
        host::setHostVersion(version);
        InitCvnAddOn113();
        EXPECT_EQ(host::findLoader("Ordalis Loader") != nullptr, registered) << version;
        EXPECT_EQ(LastUsedConfig != nullptr, registered) << version;
        EXPECT_EQ(lineValuesHeld(), registered) << version;
        EXPECT_EQ(ui().errors(), errors) << version;
        EXPECT_TRUE(host::quit()) << version;
    }
}

/* InitialPlotType comes with the dialog path only. */
TEST_F(LoaderTest, InlineInstructionsAreStoredAsReceived)
{
    Texts inline_ = {write("data.txt", DataFile), instructions("Inline")};
    ASSERT_TRUE(replay(inline_));
    ASSERT_TRUE(loadFromDialog(inline_));
    const host::DataSet &replayed = host::dataSets().at(0);
    EXPECT_EQ(replayed.title, "Inline");
    EXPECT_EQ(replayed.loaderInstructions, (host::LoaderInstructions{"Ordalis Loader", inline_}));
    EXPECT_EQ(replayed.initialPlotType, std::nullopt);
    EXPECT_EQ(host::dataSets().at(1).initialPlotType, std::optional<int>(PlotType_XYLine));
    EXPECT_EQ(ui().errors(), Texts{});
}

/* References in every accepted spelling; the reference is what is kept. */
TEST_F(LoaderTest, ReferencesAreReadAndStoredAsReceived)
{
    std::string data = write("data.txt", DataFile);
    std::string config = write("my sets/first.twc", instructions("From file"));
    for (const std::string &reference : {"  configfname = \"" + config + "\"   ",
                                         "CONFIGFNAME=" + config + "   ",
                                         "\tConfigFName=\"" + config}) {
        host::clearDataSets();
        ASSERT_TRUE(replay({data, reference})) << reference;
        EXPECT_EQ(host::dataSets().at(0).title, "From file") << reference;
        EXPECT_EQ(host::dataSets()[0].loaderInstructions->strings, (Texts{data, reference}));
    }
    EXPECT_EQ(ui().errors(), Texts{});
}

TEST_F(LoaderTest, AReplayReadsTheReferencedFileAgain)
{
    Texts stored = {write("data.txt", DataFile), "CONFIGFNAME=\"" + path("set.twc") + "\""};
    write("set.twc", instructions("First"));
    ASSERT_TRUE(replay(stored));
    write("set.twc", instructions("Changed"));
    ASSERT_TRUE(replay(stored));
    EXPECT_EQ(host::dataSets().at(0).title, "First");
    EXPECT_EQ(host::dataSets().at(1).title, "Changed");
}

TEST_F(LoaderTest, FailedLoadsReportOnceAndLeaveNothing)
{
    std::string data = write("data.txt", DataFile);
    std::string missing = path("absent.twc");
    const std::pair<Texts, Texts> cases[] = {
        {{data},
         {"Layout instructions for tabwise data loader add-on are not formatted correctly"}},
        {{"", instructions("T")},
         {"Missing filename parameter in ordalis loader loading instructions."}},
        {{data, ""},
         {"Missing configuration parameter string in ordalis loader loading instructions."}},
        {{data, "CONFIGFNAME = \"" + missing + "\""},
         {"Could not open configuration file \"" + missing +
          "\" for reading. Check disk space or permissions."}},
        {{data, "CONFIGFNAME"},
         {"Could not open configuration file \"\" for reading. Check disk space or permissions."}},
        {{path("none.txt"), instructions("T")},
         {"Cannot open file \"" + path("none.txt") +
              "\" for reading.\nCheck disk space or permissions",
          "Error reading input file"}},
    };
    for (const auto &[strings, messages] : cases) {
        ui().clearTranscript();
        EXPECT_FALSE(replay(strings)) << messages[0];
        EXPECT_EQ(ui().errors(), messages);
        EXPECT_EQ(host::openDataLoads(), 0) << messages[0];
        EXPECT_EQ(leftBehind(), 0) << messages[0];
        EXPECT_TRUE(host::dataSets().empty()) << messages[0];
    }
}

/* The transfer's box reaches 100 %, the scan's never does: a cancel there
   keeps the scan's success, the data set, and no stored instructions. */
TEST_F(LoaderTest, ACancelInTheTransferKeepsTheDataSet)
{
    ui().cancelAtPercent(100);
    EXPECT_TRUE(loadFromDialog({write("data.txt", DataFile), instructions("T")}));
    EXPECT_TRUE(GlobalCancelled);
    EXPECT_EQ(ui().errors(), Texts{});
    ASSERT_EQ(host::dataSets().size(), 1u);
    EXPECT_EQ(host::dataSets()[0].loaderInstructions, std::nullopt);
}

TEST_F(LoaderTest, ACancelInTheScanFailsSilently)
{
    std::string big = "a b\n";
    for (int line = 1; line <= 500; line++)
        big += std::to_string(line) + " " + std::to_string(2 * line) + "\n";
    ui().cancelAtPercent(10);
    EXPECT_FALSE(replay({write("big.txt", big), instructions("T")}));
    EXPECT_TRUE(GlobalCancelled);
    EXPECT_EQ(ui().errors(), Texts{});
    EXPECT_EQ(host::openDataLoads(), 0);
    EXPECT_TRUE(host::dataSets().empty());
}

/* The host's argument list: nothing started, nothing said; the add-on's
   instruction set. */
TEST_F(LoaderTest, OutOfMemoryFailsTheLoad)
{
    std::string data = write("data.txt", DataFile);
    const std::pair<bool, Texts> rows[] = {
        {true, {}},
        {false, {"Out of memory. Unable to allocate import parameters structure", "Out of memory"}},
    };
    for (const auto &[hostFails, errors] : rows) {
        ui().clearTranscript();
        (hostFails ? host::failHostAllocationAt : TW_AllocFailAt)(1);
        EXPECT_FALSE(replay({data, instructions("T")})) << hostFails;
        TW_AllocFailAt(0);
        host::failHostAllocationAt(0);
        EXPECT_EQ(ui().errors(), errors) << hostFails;
        EXPECT_TRUE(host::dataSets().empty()) << hostFails;
        EXPECT_EQ(host::openDataLoads(), 0) << hostFails;
        EXPECT_EQ(leftBehind(), 0) << hostFails;
    }
}

TEST_F(LoaderTest, SelectingTheLoaderPreparesTheDialog)
{
    std::string data = write("data.txt", DataFile);
    write("library/one.twc", "#!CORVANE_TABWISE\n" + instructions("One"));
    snprintf(LastUsedConfig->TitleName, sizeof(LastUsedConfig->TitleName), "Last used");
    LastUsedConfig->IsModified = true;
    ASSERT_TRUE(host::selectLoader("Ordalis Loader", {data, instructions("T")}));
    ASSERT_TRUE(CvnGUIDialogIsUp(Dialog1Manager));
    EXPECT_STREQ(GlobalFileInfo->FileName, data.c_str());
    TW_ConfigInstructions_s *untitled = GlobalConfigInfoArray[0];
    EXPECT_EQ(Texts({untitled->DisplayName, untitled->FilePath, untitled->TitleName,
                     GlobalConfigInfoArray[1]->TitleName}),
              Texts({"<untitled>", "<untitled>", "Last used", "One"}));
    EXPECT_TRUE(untitled->IsModified);
    EXPECT_EQ(GetCurConfigPtr(), untitled);
}

/* The previous data file has gone: no dialog, nothing left behind. */
TEST_F(LoaderTest, WithoutThePreviousDataFileNoDialogOpens)
{
    write("library/one.twc", "#!CORVANE_TABWISE\n" + instructions("One"));
    ASSERT_TRUE(host::selectLoader("Ordalis Loader", {path("gone.txt"), instructions("T")}));
    EXPECT_EQ(ui().errors(), Texts{"Could not get file information for \"" + path("gone.txt") +
                                   "\""});
    EXPECT_FALSE(CvnGUIDialogIsUp(Dialog1Manager));
    EXPECT_EQ(GlobalFileInfo, nullptr);
    for (TW_ConfigInstructions_s *entry : GlobalConfigInfoArray)
        EXPECT_EQ(entry, nullptr);
}

TEST_F(LoaderTest, WithoutMemoryForTheFileMapNoDialogOpens)
{
    TW_AllocFailAt(1);
    ASSERT_TRUE(host::selectLoader("Ordalis Loader", {}));
    TW_AllocFailAt(0);
    EXPECT_EQ(ui().errors(), (Texts{"Out of memory. Unable to allocate file map structure",
                                    "Not enough memory to run Ordalis Loader"}));
    EXPECT_FALSE(CvnGUIDialogIsUp(Dialog1Manager));
    EXPECT_EQ(GlobalFileInfo, nullptr);
}
