/* The main import dialog as a user meets it: the chosen file, the list of instruction sets
   and its buttons, Scan File, OK and Cancel. */
#include "MainDialogFixture.h"

#include <algorithm>

namespace {

using namespace corvane::cvnutildataio;
namespace host = corvane::host;
namespace gui = corvane::host::gui;
using gui::DialogButton;
using Texts = std::vector<std::string>;

const char *const ProbeData = "\"Probe A\"\nx temperature y\n1 2 3\n4 5 6\n";

TEST_F(MainDialogTest, OpeningShowsAtMost200RawLinesAndBrowseChangesTheFile)
{
    std::string rows;
    for (int n = 1; n <= 250; n++)
        rows += "row " + std::to_string(n) + "\n";
    std::string data = write("data/long.txt", rows);
    ViewOptionsDialog_Limit = 2; /* "Do not limit" does not hold for the first view */
    open(data);
    EXPECT_TRUE(text(preview()).starts_with("  1: row 1\n  2: row 2\n"));
    EXPECT_TRUE(text(preview()).ends_with("\n200: row 200\n"));
    EXPECT_TRUE(text(fileLabel()).ends_with("/long.txt"));
    EXPECT_EQ(items(), (Texts{"<untitled>", "reader.twc"}));
    EXPECT_EQ(selected(), 1);
    ASSERT_TRUE(pressDialog(d1(), DialogButton::cancel));

    open("");
    ui().clearTranscript();
    EXPECT_EQ(text(fileLabel()), "No file selected.");
    LgIndex_t scan = control(d1(), Kind::button, "Scan File");
    for (LgIndex_t id : {preview(), viewRadio(), scan})
        EXPECT_FALSE(sensitive(id));
    ui().queueFile(write("data/a.txt", "1 2\n3 4"));
    ASSERT_TRUE(press("Browse..."));
    ASSERT_TRUE(press("Browse...")); /* cancelled */
    ui().queueFile(path("data/gone.txt"));
    ASSERT_TRUE(press("Browse..."));
    EXPECT_EQ(ui().errors(),
              Texts{"Could not get file information for \"" + path("data/gone.txt") + "\""});
    EXPECT_TRUE(text(fileLabel()).ends_with("/a.txt"));
    EXPECT_EQ(text(preview()), "   1: 1 2\n   2: 3 4"); /* the view options' "no limit" */
    for (LgIndex_t id : {preview(), viewRadio(), scan})
        EXPECT_TRUE(sensitive(id));
    EXPECT_EQ(ui().transcript().front().text, "Ordalis"); /* the set's file description */
}

TEST_F(MainDialogTest, SetsAreMadeSavedRenamedLoadedAndListedByNameOrPath)
{
    const std::string lib = path("library");
    open("");
    ChooserRecorder &chooser = recordChoosers();
    ASSERT_TRUE(press("New"));
    EXPECT_EQ(items(), (Texts{"<untitled>", "reader.twc", "<untitled>"}));
    EXPECT_EQ(selected(), 3);
    EXPECT_EQ(currentIndex(), 2);
    chooser.queueFile(lib + "/b.twc");
    ASSERT_TRUE(press("Save..."));
    std::string saved = testfiles::readFile(lib + "/b.twc");
    EXPECT_TRUE(saved.starts_with("#!CORVANE_TABWISE\n"));
    chooser.queueFile(lib + "/reader.twc"); /* onto another file: No keeps both */
    ASSERT_TRUE(press("Save..."));
    EXPECT_EQ(chooser.messages(), Texts{"File \"" + lib + "/reader.twc\" exists. Overwrite?"});
    EXPECT_EQ(testfiles::readFile(lib + "/reader.twc"), readerSet());

    chooser.queueFile(lib + "/c.twc");
    ASSERT_TRUE(press("Rename..."));
    EXPECT_FALSE(fs::exists(lib + "/b.twc"));
    EXPECT_EQ(testfiles::readFile(lib + "/c.twc"), saved);
    chooser.queueFile(path("nowhere/d.twc"));
    ASSERT_TRUE(press("Rename..."));
    EXPECT_EQ(chooser.transcript().back().type, "warning");
    EXPECT_EQ(chooser.messages().back(), "Unable to rename disk file \"" + lib + "/c.twc\" to \"" +
                                             path("nowhere/d.twc") +
                                             "\"\nCheck disk space or permissions.");

    chooser.queueFile(write("other/reader.twc", readerSet()));
    ASSERT_TRUE(press("Load..."));
    chooser.queueFile(path("other/missing.twc")); /* unreadable: the reader says why */
    ASSERT_TRUE(press("Load..."));
    EXPECT_EQ(chooser.errors().size(), 1u);
    EXPECT_EQ(items(), (Texts{"<untitled>", "reader.twc", "c.twc", "reader.twc"}));
    EXPECT_EQ(selected(), 4);
    EXPECT_EQ(current()->FilePath, path("other/reader.twc"));
    EXPECT_EQ(chooser.proposals, (Texts{lib + "/untitled.twc *.twc", lib + "/b.twc *.twc",
                                        lib + "/ *.twc", lib + "/ *.twc", lib + "/ *.twc",
                                        lib + "/ *.twc"}));

    GlobalConfigInfoArray[2]->IsModified = true; /* as a set read back modified would be */
    LgIndex_t toggle = control(d1(), Kind::toggle, "Show Full Path");
    ASSERT_TRUE(gui::setToggle(toggle, true));
    EXPECT_EQ(items(), (Texts{"<untitled>", lib + "/reader.twc", lib + "/c.twc *",
                              path("other/reader.twc")}));
    ASSERT_TRUE(gui::setToggle(toggle, false));
    EXPECT_EQ(items(), (Texts{"<untitled>", "reader.twc", "c.twc *", "reader.twc"}));
    EXPECT_EQ(selected(), 4);
}

TEST_F(MainDialogTest, DeleteAsksMakesTheSetBeforeCurrentAndKeepsOne)
{
    open("");
    const std::string file = path("library/reader.twc");
    ASSERT_TRUE(press("New"));
    ui().queueAnswer(true);
    ASSERT_TRUE(press("Delete")); /* item 3, never saved: no file */
    EXPECT_EQ(selected(), 2);
    EXPECT_EQ(currentIndex(), 1);
    ASSERT_TRUE(press("Delete")); /* No */
    EXPECT_TRUE(fs::exists(file));
    ui().queueAnswer(true);
    ASSERT_TRUE(press("Delete"));
    EXPECT_FALSE(fs::exists(file));
    ASSERT_TRUE(press("Delete"));
    EXPECT_EQ(ui().errors(), Texts{"Must have at least one configuration"});

    ASSERT_TRUE(press("New"));
    ASSERT_TRUE(gui::selectItem(list(), 1));
    TW_ConfigInstructions_s *added = GlobalConfigInfoArray[1];
    ui().queueAnswer(true);
    ASSERT_TRUE(press("Delete")); /* item 1: the new first set is current */
    EXPECT_EQ(current(), added);
    EXPECT_EQ(selected(), 1);

    ui().queueFile(write("other/x.twc", readerSet()));
    ASSERT_TRUE(press("Load..."));
    fs::remove(path("other/x.twc")); /* the set leaves all the same, silently */
    ui().queueAnswer(true);
    ASSERT_TRUE(press("Delete"));
    EXPECT_EQ(items(), Texts{"<untitled>"});
    const std::string ask = "Are you sure you want to permanently delete the file \"";
    EXPECT_EQ(ui().messages(), (Texts{"Delete <untitled>?", ask + file + "\" ?", ask + file + "\" ?",
                                      "Delete <untitled>?", ask + path("other/x.twc") + "\" ?"}));
    EXPECT_EQ(ui().errors().size(), 1u);
}

TEST_F(MainDialogTest, ScanFileShowsTheProcessedPreviewOrWhyNot)
{
    std::string data = write("data/probe.txt", ProbeData);
    open(data);
    ASSERT_TRUE(gui::selectItem(list(), 2));
    ASSERT_TRUE(gui::chooseOption(viewRadio(), 2));
    EXPECT_TRUE(text(preview()).starts_with("  1: \"Probe A\"\n")) << "processed on demand";
    ASSERT_TRUE(press("Scan File"));
    EXPECT_EQ(text(preview()), "   x   temperature    y   \n------ ----------- ------ \n"
                               "\n     1           2      3 \n     4           5      6 ");

    ui().queueFile(write("data/words.txt", "title\nx y\nno numbers here\n"));
    ASSERT_TRUE(press("Browse..."));
    ASSERT_TRUE(press("Scan File"));
    EXPECT_EQ(text(preview()), "[Error scanning file]");
    EXPECT_EQ(ui().errors().size(), 1u); /* the scan's own */
    ui().queueFile(data);
    ASSERT_TRUE(press("Browse..."));
    ui().cancelAtPercent(0);
    ASSERT_TRUE(press("Scan File"));
    EXPECT_EQ(text(preview()), "File scan cancelled.");
    EXPECT_EQ(ui().errors().size(), 1u);
}

TEST_F(MainDialogTest, OkLoadsWithTheCurrentSetInCompactFormAndEmptiesTheLibrary)
{
    std::string data = write("data/probe.txt", ProbeData);
    open(data);
    ASSERT_TRUE(gui::selectItem(list(), 2));
    current()->IsModified = true; /* a named set's mark is dropped without a question */
    ASSERT_TRUE(pressDialog(d1(), DialogButton::ok));
    EXPECT_FALSE(CvnGUIDialogIsUp(d1()));
    EXPECT_EQ(GlobalConfigInfoArray[0], nullptr);
    ASSERT_EQ(host::dataSets().size(), 1u);
    const host::DataSet loaded = host::dataSets()[0];
    EXPECT_EQ(loaded.title, "Probe A");
    EXPECT_EQ(loaded.variables, (Texts{"x", "temperature", "y"}));
    EXPECT_EQ(loaded.zones.at(0).fields.at(1).get(1), 5.0);
    EXPECT_TRUE(loaded.initialPlotType.has_value());
    ASSERT_TRUE(loaded.loaderInstructions.has_value());
    EXPECT_EQ(loaded.loaderInstructions->loader, "Ordalis Loader");
    const Texts strings = loaded.loaderInstructions->strings;
    ASSERT_EQ(strings.size(), 2u);
    EXPECT_EQ(strings[0], data);
    EXPECT_TRUE(strings[1].starts_with("VERSION=100 ")) << strings[1];

    /* The instructions replay to the same data; the set used is the next untitled one. */
    ASSERT_TRUE(host::replayLoad("Ordalis Loader", strings).value());
    openLoader({data});
    ASSERT_TRUE(pressDialog(d1(), DialogButton::ok));
    ASSERT_EQ(host::dataSets().size(), 3u);
    for (const host::DataSet &set : host::dataSets())
        EXPECT_EQ(set.title + set.variables[1], "Probe Atemperature");
    EXPECT_EQ(host::dataSets()[2].loaderInstructions, loaded.loaderInstructions);
    EXPECT_TRUE(ui().messages().empty());
    EXPECT_TRUE(ui().errors().empty());
}

TEST_F(MainDialogTest, OkWithoutFileComesBackAndWithoutDataLoadsNothing)
{
    open("");
    current()->IsModified = true; /* an untitled set marked modified is offered for saving */
    ui().queueAnswer(true);
    ui().queueFile(path("library/kept.twc"));
    ASSERT_TRUE(pressDialog(d1(), DialogButton::ok));
    EXPECT_EQ(ui().messages(), Texts{"Save changes to <untitled> configuration file?"});
    EXPECT_EQ(ui().errors(), Texts{"Please enter a file name."});
    EXPECT_TRUE(CvnGUIDialogIsUp(d1()));
    EXPECT_EQ(items(), (Texts{"kept.twc", "reader.twc"}));

    ui().queueFile(write("data/words.txt", "title\nx y\nno numbers here\n"));
    ASSERT_TRUE(press("Browse..."));
    ASSERT_TRUE(pressDialog(d1(), DialogButton::ok));
    EXPECT_EQ(ui().errors().back(), "Error importing data into Corvane");
    EXPECT_TRUE(host::dataSets().empty());
    EXPECT_EQ(GlobalConfigInfoArray[0], nullptr);
}

TEST_F(MainDialogTest, CancelOffersModifiedSetsAndQuitWaitsForTheDialog)
{
    open("");
    EXPECT_FALSE(host::quit());
    EXPECT_EQ(ui().errors(), Texts{"Please close the ordalis loader dialog before quitting Corvane"});
    ASSERT_TRUE(pressDialog(d1(), DialogButton::help));
    EXPECT_EQ(ui().transcript().back().text, "addon_ordalis_loader_overview.html");
    const std::tuple<const char *, LgIndex_t *, const char *> launchers[] = {
        {"Title...", &Dialog3Manager, "Dataset Title"},
        {"Variables...", &Dialog4Manager, "Variable Import Instructions"},
        {"Data...", &Dialog5Manager, "Data Import Instructions"},
        {"General Filters...", &Dialog6Manager, "General Filters"},
        {"View Options...", &Dialog2Manager, "View Options"}};
    for (const auto &[button, manager, title] : launchers) {
        ASSERT_TRUE(press(button));
        EXPECT_TRUE(CvnGUIDialogIsUp(*manager)) << button;
        EXPECT_EQ(gui::findDialog(*manager)->title, title);
        if (!pressDialog(*manager, DialogButton::cancel)) /* a dialog not built out yet */
            CvnGUIDialogDrop(*manager);
    }

    GlobalConfigInfoArray[1]->IsModified = true;
    ui().queueAnswer(true);
    ASSERT_TRUE(pressDialog(d1(), DialogButton::cancel));
    EXPECT_EQ(ui().messages(), Texts{"Save configuration file reader.twc?"});
    EXPECT_NE(testfiles::readFile(path("library/reader.twc")), readerSet()) << "rewritten";
    EXPECT_EQ(GlobalConfigInfoArray[0], nullptr);
    EXPECT_TRUE(host::quit());
}

} // namespace
