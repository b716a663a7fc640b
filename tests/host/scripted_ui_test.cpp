// The host's boxes answered by the scripted backend, and the transcript
// they leave, as JSON Lines.
#include <string>
#include <vector>

#include "HostFixture.h"
#include "Transcript.h"

using namespace corvane::host;
using Kind = UiEvent::Kind;

using ScriptedUiTest = HostTest;

TEST_F(ScriptedUiTest, BoxesAreRecordedInOrderWithTheirAnswers)
{
    ui().queueAnswer(true);
    CvnUtilDialogErrMsg("Out of memory");
    EXPECT_TRUE(CvnUtilDialogMessageBox("Overwrite file?", MessageBox_YesNo));
    EXPECT_FALSE(CvnUtilDialogMessageBox("Delete it?", MessageBox_Question)); // default: no
    EXPECT_TRUE(CvnUtilDialogMessageBox("Nothing found", MessageBox_Warning));
    ui().setDefaultAnswer(true);
    EXPECT_TRUE(CvnUtilDialogMessageBox("Again?", MessageBox_YesNo));
    EXPECT_TRUE(CvnUtilHelp("addon_ordalis_loader_overview.html", FALSE, 0));
    // File choosers take the queued paths, then cancel.
    ui().queueFile("/data/a.txt");
    char *name = nullptr;
    EXPECT_TRUE(CvnUtilDialogGetFileName(SelectFileOption_ReadSingleFile, &name, "Data file",
                                         "", "*.txt"));
    EXPECT_STREQ(name, "/data/a.txt");
    CvnUtilStringDealloc(&name);
    EXPECT_FALSE(CvnUtilDialogGetFileName(SelectFileOption_WriteFile, &name, "Save as", "x.twc",
                                          "*.twc"));
    EXPECT_EQ(name, nullptr);

    const std::vector<UiEvent> expected{
        {Kind::error, "", "Out of memory", "", false},
        {Kind::message, "yesno", "Overwrite file?", "yes", false},
        {Kind::message, "question", "Delete it?", "no", false},
        {Kind::message, "warning", "Nothing found", "ok", false},
        {Kind::message, "yesno", "Again?", "yes", false},
        {Kind::help, "", "addon_ordalis_loader_overview.html", "", false},
        {Kind::file, "", "Data file", "/data/a.txt", false},
        {Kind::file, "", "Save as", "", false},
    };
    EXPECT_EQ(ui().transcript(), expected);
    EXPECT_EQ(ui().errors(), std::vector<std::string>{"Out of memory"});
    EXPECT_EQ(ui().messages(), (std::vector<std::string>{"Overwrite file?", "Delete it?",
                                                         "Nothing found", "Again?"}));
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(ScriptedUiTest, CancelFiresOnceReachedAndOnlyInBoxesWithCancel)
{
    ui().cancelAtPercent(50);
    CvnUtilDialogLaunchPercentDone("Releasing memory...", FALSE);
    EXPECT_TRUE(ui().progressUp());
    EXPECT_TRUE(CvnUtilDialogCheckPercentDone(80)); // no Cancel button
    CvnUtilDialogDropPercentDone();
    EXPECT_FALSE(ui().progressUp());

    CvnUtilDialogLaunchPercentDone("Scanning file...", TRUE);
    EXPECT_TRUE(CvnUtilDialogCheckPercentDone(10));
    EXPECT_TRUE(CvnUtilDialogCheckPercentDone(49));
    EXPECT_FALSE(CvnUtilDialogCheckPercentDone(50));
    EXPECT_FALSE(CvnUtilDialogCheckPercentDone(3)) << "a pressed Cancel stays pressed";
    CvnUtilDialogDropPercentDone();

    CvnUtilDialogLaunchPercentDone("Transferring...", TRUE);
    EXPECT_TRUE(CvnUtilDialogCheckPercentDone(3)) << "a new box starts unpressed";
    EXPECT_FALSE(CvnUtilDialogCheckPercentDone(51));
    CvnUtilDialogDropPercentDone();

    EXPECT_EQ(ui().progressChecks(), (std::vector<int>{80, 10, 49, 50, 3, 3, 51}));
    EXPECT_EQ(ui().transcript(), (std::vector<UiEvent>{
                                     {Kind::progress, "", "Releasing memory...", "", false},
                                     {Kind::progressEnd, "", "", "", false},
                                     {Kind::progress, "", "Scanning file...", "", true},
                                     {Kind::progressEnd, "", "", "", false},
                                     {Kind::progress, "", "Transferring...", "", true},
                                     {Kind::progressEnd, "", "", "", false},
                                 }));
}

TEST_F(ScriptedUiTest, EventsAsJsonLines)
{
    struct Row {
        UiEvent event;
        const char *line;
    } rows[] = {
        {{Kind::error, "", "Out of memory", "", false},
         R"({"event":"error","text":"Out of memory"})"},
        {{Kind::message, "yesno", "Replace \"a\"?\n", "no", false},
         R"({"event":"message","type":"yesno","text":"Replace \"a\"?\n","answer":"no"})"},
        {{Kind::progress, "", "Scanning", "", true},
         R"({"event":"progress","label":"Scanning","cancel":true})"},
        {{Kind::progressEnd, "", "", "", false}, R"({"event":"progress-end"})"},
        {{Kind::file, "", "Save as", "", false},
         R"({"event":"file","title":"Save as","answer":""})"},
        {{Kind::help, "", "page.html", "", false}, R"({"event":"help","page":"page.html"})"},
        {{Kind::error, "", "caf\xe9", "", false}, "{\"event\":\"error\",\"text\":\"caf\xef\xbf\xbd\"}"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(toJsonLine(row.event), row.line);
}
