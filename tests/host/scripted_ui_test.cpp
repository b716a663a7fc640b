// The host's boxes answered by the scripted backend; their transcript as JSON Lines.
#include <string>
#include <utility>
#include <vector>

#include "HostFixture.h"
#include "Transcript.h"

using namespace corvane::host;
using Kind = UiEvent::Kind;

using ScriptedUiTest = HostTest;

TEST_F(ScriptedUiTest, BoxesTakeQueuedAnswersThenTheDefault)
{
    ui().queueAnswer(true);
    CvnUtilDialogErrMsg("Out of memory");
    EXPECT_TRUE(CvnUtilDialogMessageBox("Overwrite file?", MessageBox_YesNo));
    EXPECT_FALSE(CvnUtilDialogMessageBox("Delete it?", MessageBox_Question));
    ui().setDefaultAnswer(true);
    EXPECT_TRUE(CvnUtilDialogMessageBox("Again?", MessageBox_YesNo));
    ui().queueFile("/data/a.txt");
    char *name = nullptr;
    EXPECT_TRUE(CvnUtilDialogGetFileName(SelectFileOption_ReadSingleFile, &name, "Data file",
                                         "", "*.txt"));
    EXPECT_STREQ(name, "/data/a.txt");
    CvnUtilStringDealloc(&name);
    EXPECT_FALSE(CvnUtilDialogGetFileName(SelectFileOption_WriteFile, &name, "Save as", "x.twc",
                                          "*.twc")) << "no queued path left: cancelled";
    EXPECT_EQ(ui().transcript(), (std::vector<UiEvent>{
                                     {Kind::error, "", "Out of memory", "", false},
                                     {Kind::message, "yesno", "Overwrite file?", "yes", false},
                                     {Kind::message, "question", "Delete it?", "no", false},
                                     {Kind::message, "yesno", "Again?", "yes", false},
                                     {Kind::file, "", "Data file", "/data/a.txt", false},
                                     {Kind::file, "", "Save as", "", false},
                                 }));
}

TEST_F(ScriptedUiTest, CancelIsPressedAtItsPercentUntilTheBoxIsDropped)
{
    ui().cancelAtPercent(50);
    CvnUtilDialogLaunchPercentDone("Scanning file...", TRUE);
    EXPECT_TRUE(CvnUtilDialogCheckPercentDone(49));
    EXPECT_FALSE(CvnUtilDialogCheckPercentDone(50));
    EXPECT_FALSE(CvnUtilDialogCheckPercentDone(3)) << "a pressed Cancel stays pressed";
    CvnUtilDialogDropPercentDone();
    CvnUtilDialogLaunchPercentDone("Transferring...", TRUE);
    EXPECT_TRUE(CvnUtilDialogCheckPercentDone(3)) << "a new box starts unpressed";
    CvnUtilDialogDropPercentDone();
    EXPECT_EQ(ui().transcript().at(0), (UiEvent{Kind::progress, "", "Scanning file...", "", true}));
    EXPECT_EQ(ui().progressChecks(), (std::vector<int>{49, 50, 3, 3}));
    ui().clearTranscript();
    EXPECT_TRUE(ui().transcript().empty());
    EXPECT_TRUE(ui().progressChecks().empty()) << "a backend serving many runs must not grow";
}

TEST_F(ScriptedUiTest, EventsAsJsonLines)
{
    const std::pair<UiEvent, std::string> rows[] = {
        {{Kind::message, "yesno", "Replace \"a\"?\n", "no", false},
         R"({"event":"message","type":"yesno","text":"Replace \"a\"?\n","answer":"no"})"},
        {{Kind::progress, "", "Scanning", "", true},
         R"({"event":"progress","label":"Scanning","cancel":true})"},
        {{Kind::file, "", "Save as", "", false},
         R"({"event":"file","title":"Save as","answer":""})"},
        {{Kind::help, "", "page.html", "", false}, R"({"event":"help","page":"page.html"})"},
        {{Kind::error, "", "caf\xe9", "", false},
         "{\"event\":\"error\",\"text\":\"caf\xef\xbf\xbd\"}"},
    };
    for (const auto &[event, line] : rows)
        EXPECT_EQ(toJsonLine(event), line);
}
