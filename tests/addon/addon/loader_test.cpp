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

TEST_F(LoaderTest, StartUpRegistersOnRecentHostsAndQuitWaitsForTheDialog)
{
    const host::Loader *loader = host::findLoader("Ordalis Loader");
    EXPECT_EQ(std::tuple(loader->fileNameExtensions, loader->callback, loader->selectedCallback,
                         loader->allowMultiFileSelection, loader->advancedOptions),
              std::tuple(std::string("*.txt"), &LoaderCallback, &LoaderSelectedCallback, false, 2));

    ASSERT_TRUE(host::selectLoader("Ordalis Loader", {}));
    EXPECT_FALSE(host::quit());
    StateChangeCallback(StateChange_NewLayout, 0);
    EXPECT_TRUE(LastUsedConfig != nullptr && GlobalFileInfo != nullptr);
    ASSERT_TRUE(host::gui::pressDialogButton(Dialog1Manager, host::gui::DialogButton::cancel));
    EXPECT_TRUE(host::quit());
    EXPECT_EQ(LastUsedConfig, nullptr);
    EXPECT_EQ(GlobalFileInfo, nullptr);
    EXPECT_FALSE(lineValuesHeld());
    StateChangeCallback(StateChange_Quit, 0); /* a second quit frees nothing twice */

    host::resetAddOns();
    host::setHostVersion(899999);
    InitCvnAddOn113();
    EXPECT_TRUE(host::loaders().empty());
    EXPECT_EQ(LastUsedConfig, nullptr);
    EXPECT_FALSE(lineValuesHeld());
    EXPECT_TRUE(host::quit()) << "nothing registered a quit query";
    host::setHostVersion(900000);
    InitCvnAddOn113();
    EXPECT_NE(host::findLoader("Ordalis Loader"), nullptr);
    EXPECT_EQ(ui().errors(),
              (Texts{"Please close the ordalis loader dialog before quitting Corvane",
                     "Ordalis Loader requires Corvane version 9.0-0-0 or greater"}));
}

TEST_F(LoaderTest, LoadsStoreTheInstructionsAsReceived)
{
    std::string data = write("data.txt", DataFile);
    Texts inline_ = {data, instructions("Inline")};
    ASSERT_TRUE(replay(inline_));
    ASSERT_TRUE(loadFromDialog(inline_));
    const host::DataSet &replayed = host::dataSets().at(0);
    EXPECT_EQ(replayed.loaderInstructions, (host::LoaderInstructions{"Ordalis Loader", inline_}));
    /* InitialPlotType comes with the dialog path only. */
    EXPECT_EQ(replayed.initialPlotType, std::nullopt);
    EXPECT_EQ(host::dataSets()[1].initialPlotType, std::optional<int>(PlotType_XYLine));

    /* References in every accepted spelling; the reference is what is kept,
       so a replay reads the file again. */
    std::string config = write("my sets/first.twc", instructions("From file"));
    for (const std::string &reference : {"  configfname = \"" + config + "\"   ",
                                         "CONFIGFNAME=" + config + "   ",
                                         "\tConfigFName=\"" + config}) {
        ASSERT_TRUE(replay({data, reference})) << reference;
        EXPECT_EQ(host::dataSets().back().title, "From file") << reference;
        EXPECT_EQ(host::dataSets().back().loaderInstructions->strings[1], reference);
    }
    Texts stored = host::dataSets().back().loaderInstructions->strings;
    write("my sets/first.twc", instructions("Changed"));
    ASSERT_TRUE(replay(stored));
    EXPECT_EQ(host::dataSets().back().title, "Changed");
    EXPECT_TRUE(ui().errors().empty());
}

TEST_F(LoaderTest, FailedLoadsReportOnceAndCancelsStaySilent)
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
        EXPECT_TRUE(host::openDataLoads() == 0 && leftBehind() == 0) << messages[0];
    }
    EXPECT_TRUE(host::dataSets().empty());

    /* The transfer's box reaches 100 %, the scan's never does: a cancel there keeps the
       scan's success, the data set, and no stored instructions. */
    ui().clearTranscript();
    ui().cancelAtPercent(100);
    EXPECT_TRUE(loadFromDialog({data, instructions("T")}));
    EXPECT_TRUE(GlobalCancelled && ui().errors().empty());
    EXPECT_EQ(host::dataSets().at(0).loaderInstructions, std::nullopt);

    /* A cancel in the scan fails silently. */
    std::string big = "a b\n";
    for (int line = 1; line <= 500; line++)
        big += std::to_string(line) + " " + std::to_string(2 * line) + "\n";
    ui().cancelAtPercent(10);
    EXPECT_FALSE(replay({write("big.txt", big), instructions("T")}));
    EXPECT_TRUE(GlobalCancelled && ui().errors().empty() && host::openDataLoads() == 0);
    EXPECT_EQ(host::dataSets().size(), 1u);

    ui().clearTranscript();
    host::failHostAllocationAt(1); /* the argument list: nothing started, nothing said */
    EXPECT_FALSE(replay({data, instructions("T")}));
    TW_AllocFailAt(1); /* the instruction set */
    EXPECT_FALSE(replay({data, instructions("T")}));
    EXPECT_EQ(ui().errors(),
              (Texts{"Out of memory. Unable to allocate import parameters structure",
                     "Out of memory"}));
    EXPECT_TRUE(host::dataSets().size() == 1 && host::openDataLoads() == 0 && leftBehind() == 0);
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
    EXPECT_TRUE(untitled->IsModified && GetCurConfigPtr() == untitled);
    ASSERT_TRUE(host::gui::pressDialogButton(Dialog1Manager, host::gui::DialogButton::cancel));

    /* The previous data file has gone: no dialog, nothing left behind. */
    ASSERT_TRUE(host::selectLoader("Ordalis Loader", {path("gone.txt"), instructions("T")}));
    EXPECT_TRUE(!CvnGUIDialogIsUp(Dialog1Manager) && GlobalFileInfo == nullptr);
    for (TW_ConfigInstructions_s *entry : GlobalConfigInfoArray)
        EXPECT_EQ(entry, nullptr);

    TW_AllocFailAt(1);
    ASSERT_TRUE(host::selectLoader("Ordalis Loader", {}));
    EXPECT_EQ(ui().errors(), (Texts{"Could not get file information for \"" + path("gone.txt") +
                                        "\"",
                                    "Out of memory. Unable to allocate file map structure",
                                    "Not enough memory to run Ordalis Loader"}));
    EXPECT_TRUE(!CvnGUIDialogIsUp(Dialog1Manager) && GlobalFileInfo == nullptr);
}
