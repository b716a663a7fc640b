// corvane ui --script driving the dialog of a small test add-on as a user would: the
// data set its OK loads, the dialog reopened with the last load, what each failing step
// says and the usage errors of scripts that cannot be parsed.
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "AddOns.h"
#include "CorvaneRun.h"
#include "DataModel.h"

using namespace testfiles;

namespace {

const std::string addOn = ORDALIS_BIN_DIR "/libdialog_addon.so";

std::string usage(const std::string &problem)
{
    return problem + "\nRun with --help for more information.\n";
}

} // namespace

TEST(UiScript, StepsLoadThroughTheDialogAndReopenItWithTheLastLoad)
{
    ScratchDir scratch;
    writeFile(scratch / "s.txt", R"(# the dialog opens empty: nothing was loaded through it yet
expect dialog "Test Loader"
expect "Data file" ""
expect Title "New data"
expect items Variables x y z
expect selected Variables
file data/points.dat
press Browse...
expect "Data file" data/points.dat
set Title "Squares \"and\" more"
set Points 9
press OK
expect message "Points: \"9\" is not a whole number from 1 to 5."
set  Points:  4
select Variables y #1
expect selected Variables y x
press Options...
expect dialog Options
set Delimiter: Comma
toggle "Skip blank lines" on
dump )" + (scratch / "both.json").string() + R"(
press OK
cancel-at 50
press OK
expect message "Loading cancelled"
answer no
press "Clear title"
expect Title contains "and"
press OK
expect no dialog

open
expect "Data file" data/points.dat
expect selected Variables y x
press Help
press Cancel
)");
    const std::string both = R"({
  "dialogs": [
    {
      "title": "Test Loader",
      "width": 300,
      "height": 200,
      "controls": [
        {"kind":"label","label":"Data file:","caption":null,"sensitive":true,"x":10,"y":10,"width":0,"height":0,"text":"Data file:"},
        {"kind":"label","label":null,"caption":"Data file:","sensitive":true,"x":70,"y":10,"width":0,"height":0,"text":"data/points.dat"},
        {"kind":"button","label":"Browse...","caption":null,"sensitive":true,"x":200,"y":8,"width":60,"height":14},
        {"kind":"label","label":"Title:","caption":null,"sensitive":true,"x":10,"y":30,"width":0,"height":0,"text":"Title:"},
        {"kind":"field","label":null,"caption":"Title:","sensitive":true,"x":70,"y":28,"width":120,"height":14,"text":"Squares \"and\" more"},
        {"kind":"label","label":"Points:","caption":null,"sensitive":true,"x":10,"y":50,"width":0,"height":0,"text":"Points:"},
        {"kind":"field","label":null,"caption":"Points:","sensitive":true,"x":10,"y":64,"width":40,"height":14,"text":"4"},
        {"kind":"frame","label":"Variables","caption":null,"sensitive":true,"x":5,"y":85,"width":120,"height":80},
        {"kind":"list","label":null,"caption":"Variables","sensitive":true,"x":15,"y":100,"width":100,"height":60,"items":["x","y","z"],"selected":[2,1]},
        {"kind":"button","label":"Clear title","caption":null,"sensitive":true,"x":130,"y":100,"width":60,"height":14},
        {"kind":"button","label":"Options...","caption":null,"sensitive":true,"x":130,"y":120,"width":60,"height":14},
        {"kind":"toggle","label":"Lock title","caption":null,"sensitive":true,"x":130,"y":140,"width":60,"height":12,"on":false}
      ]
    },
    {
      "title": "Options",
      "width": 200,
      "height": 60,
      "controls": [
        {"kind":"toggle","label":"Skip blank lines","caption":null,"sensitive":true,"x":10,"y":10,"width":100,"height":12,"on":true},
        {"kind":"label","label":"Delimiter:","caption":null,"sensitive":true,"x":10,"y":30,"width":0,"height":0,"text":"Delimiter:"},
        {"kind":"option","label":null,"caption":"Delimiter:","sensitive":true,"x":80,"y":30,"width":60,"height":12,"items":["Auto","Comma","Tab"],"selected":[2]}
      ]
    }
  ]
}
)";
    const std::string loading = R"({"event":"progress","label":"Loading...","cancel":true})"
                                "\n{\"event\":\"progress-end\"}\n";

    // Twice in one process: each run starts with no previous load and leaves no dialog.
    corvane::host::clearDataSets();
    for (int round = 1; round <= 2; ++round) {
        SCOPED_TRACE(round);
        Result run = runInProcess(
            {"ui", "--script", (scratch / "s.txt").string(), "--addon", addOn, "-o",
             (scratch / "out.csv").string(), "--save-layout", (scratch / "layout.json").string(),
             "--transcript", (scratch / "t.jsonl").string()});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.out, "\"Squares \\\"and\\\" more\": 2 variables, 1 zone, 4 points\n");
        EXPECT_EQ(run.err, "Points: \"9\" is not a whole number from 1 to 5.\nLoading cancelled\n"
                           "Clear the title? -> no\ncorvane: help page dialog_addon.html\n");
        EXPECT_EQ(readFile(scratch / "both.json"), both);
        EXPECT_EQ(readFile(scratch / "out.csv"), "y,x\n2,1\n4,2\n6,3\n8,4\n");
        EXPECT_EQ(readFile(scratch / "layout.json"), R"({
  "corvaneLayout": 1,
  "loads": [
    {
      "loader": "Dialog Test Loader",
      "strings": [
        "data/points.dat",
        "Squares \"and\" more",
        "4",
        "y,x",
        "Comma"
      ]
    }
  ]
}
)");
        EXPECT_EQ(readFile(scratch / "t.jsonl"),
                  R"({"event":"file","title":"Data file","answer":"data/points.dat"})"
                  "\n"
                  R"({"event":"error","text":"Points: \"9\" is not a whole number from 1 to 5."})"
                  "\n" + loading +
                  R"({"event":"message","type":"information","text":"Loading cancelled","answer":"ok"})"
                  "\n"
                  R"({"event":"message","type":"yesno","text":"Clear the title?","answer":"no"})"
                  "\n" + loading + R"({"event":"help","page":"dialog_addon.html"})" "\n");
        EXPECT_TRUE(corvane::host::loaders().empty());
    }
    corvane::host::clearDataSets();
}

TEST(UiScript, AFailingStepStopsTheRunNamingItsLineAndWhatFailed)
{
    ScratchDir scratch;
    const std::pair<std::string, std::string> cases[] = {
        {"press \"Clear title\"\nexpect Title x\n",
         "Clear the title? -> no\n"
         "corvane: s.txt:1: no answer queued for the question \"Clear the title?\"\n"},
        {"\n# browse\npress Browse...\nexpect Title x\n",
         "corvane: s.txt:3: no file queued for the file chooser \"Data file\"\n"},
        {"press Load\n", "corvane: s.txt:1: no button \"Load\" in the dialog \"Test Loader\"\n"},
        {"set Variables a\n", "corvane: s.txt:1: frame \"Variables\" is not a text field, "
                              "multi-line text or option menu\n"},
        {"toggle \"Lock title\" on\nexpect insensitive \"Clear title\"\npress \"Clear title\"\n",
         "corvane: s.txt:3: button \"Clear title\" is insensitive\n"},
        {"select Variables w\n", "corvane: s.txt:1: list \"Variables\" has no item \"w\"\n"},
        {"select Variables x #4\n",
         "corvane: s.txt:1: list \"Variables\" has no item #4 (it has 3)\n"},
        {"choose Block\n",
         "corvane: s.txt:1: no radio box item \"Block\" in the dialog \"Test Loader\"\n"},
        {"expect Title Other\n",
         "corvane: s.txt:1: expected text field \"Title\" to be \"Other\", found \"New data\"\n"},
        {"expect items Variables x y\n",
         "corvane: s.txt:1: expected the items of list \"Variables\" to be [\"x\", \"y\"], found "
         "[\"x\", \"y\", \"z\"]\n"},
        {"expect sensitive field#3\n",
         "corvane: s.txt:1: no control \"field#3\" in the dialog \"Test Loader\"\n"},
        {"press Options...\npress Browse...\n",
         "corvane: s.txt:2: no button \"Browse...\" in the dialog \"Options\"\n"},
        {"expect dialog Options\n", "corvane: s.txt:1: expected the dialog \"Options\", found "
                                    "the dialog \"Test Loader\"\n"},
        {"open\n", "corvane: s.txt:1: cannot open the loader while the dialog \"Test Loader\" is "
                   "up\n"},
        {"press Cancel\nexpect message x\n",
         "corvane: s.txt:2: expected the message \"x\", found no message\n"},
        {"press Cancel\npress OK\n", "corvane: s.txt:2: no dialog is up\n"},
        {"dump /nonexistent/d.json\n", "corvane: s.txt:1: cannot write /nonexistent/d.json: No "
                                       "such file or directory\n"},
    };
    for (const auto &[script, err] : cases) {
        writeFile(scratch / "s.txt", script);
        Result run = runCorvane({"ui", "--script", "s.txt", "--addon", addOn, "-o", "out.csv"},
                                scratch.path());
        EXPECT_EQ(run.status, 1) << script;
        EXPECT_EQ(run.err, err);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(scratch.entries(), std::vector<std::string>{"s.txt"}) << "no output";
    }

    // Dialogs still up at the end are left alone, and the add-on still quits cleanly.
    writeFile(scratch / "s.txt", "expect dialog \"Test Loader\"\n");
    Result up = runCorvane({"ui", "--script", "s.txt", "--addon", addOn, "-o", "out.csv"},
                           scratch.path());
    EXPECT_EQ(up.status, 0);
    EXPECT_EQ(up.err, "");
    EXPECT_EQ(readFile(scratch / "out.csv"), "") << "no data set loaded";
}

TEST(UiScript, ScriptsThatCannotBeParsedAreUsageErrorsNamingTheLine)
{
    ScratchDir scratch;
    const std::string path = (scratch / "s.txt").string();
    const std::pair<std::string, std::string> cases[] = {
        {"press\n", ":1: wrong arguments; use: press LABEL"},
        {"# a comment\n\n  set \"Title x\n", ":3: a quoted text has no closing quote"},
        {"set Title \"a\\qb\"\n", ":1: unknown escape \\q (use \\\", \\\\, \\n, \\r or \\t)"},
        {"set Title \"a\"b\n", ":1: a closing quote must be followed by a blank"},
        {"set Ti\"tle a\n", ":1: a double quote inside Ti\"tle: quote the whole argument"},
        {"toggle Lock maybe\n", ":1: wrong arguments; use: toggle LABEL on|off"},
        {"answer yes\r\nanswer maybe\r\n", ":2: wrong arguments; use: answer yes|no"},
        {"select Variables #0\n", ":1: #0 is not an item number (items are numbered from 1)"},
        {"cancel-at 101\n", ":1: cancel-at: \"101\" is not a percent from 0 to 100"},
        {"file a b\n", ":1: wrong arguments; use: file PATH or file cancel"},
        {"expect message\n",
         ":1: wrong arguments; use: expect dialog TITLE, expect no dialog, expect CAPTION "
         "[contains] TEXT, expect items|selected CAPTION ITEM..., expect "
         "sensitive|insensitive NAME or expect message TEXT"},
        {"open\njump x\n", ":2: unknown command \"jump\""},
    };
    for (const auto &[script, problem] : cases) {
        writeFile(scratch / "s.txt", script);
        Result run = runInProcess({"ui", "--script", path, "--addon", addOn});
        EXPECT_EQ(run.status, 2) << script;
        EXPECT_EQ(run.err, usage(path + problem));
    }
}
