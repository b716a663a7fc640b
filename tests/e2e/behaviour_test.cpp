// What the user sees when a load asks, is cancelled or fails: transcripts,
// answers, exit statuses and the loader's own messages, never a crash and
// never an output file of a failed run.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CorvaneRun.h"

using namespace testfiles;

namespace {

/* Three names on line 1; lines 3 and 4 hold two values instead of three. */
const char *shortLines = "a b c\n1 2 3\n4 5\n6 7\n8 9 10\n";
const char *shortLinesSet =
    "VARIABLES { SEARCH = LINE STARTLINE = 1 ENDLINE = 1 }\n"
    "DATA { IMPORT { STARTID = FIRSTNUMERICLINE { } ENDID = EOF { } } }\n";

std::string mismatch(int line)
{
    return "Expected to find 3 data values on line " + std::to_string(line) +
           ", but 2 data values were found.\nIt is recommended to specify a value for blanked "
           "cells and restart.\nContinue processing?";
}

/* The transcript line of the question about line, answered answer. */
std::string question(int line, const std::string &answer)
{
    std::string text = mismatch(line);
    for (size_t at; (at = text.find('\n')) != std::string::npos;)
        text.replace(at, 1, "\\n");
    return R"({"event":"message","type":"yesno","text":")" + text + R"(","answer":")" + answer +
           "\"}\n";
}

/* corvane load with args in cwd. */
Result load(std::vector<std::string> args, const fs::path &cwd)
{
    args.insert(args.begin(), "load");
    return runCorvane(args, cwd);
}

const std::string scanStart =
    "{\"event\":\"progress\",\"label\":\"Scanning file...\",\"cancel\":true}\n";
const std::string progressEnd = "{\"event\":\"progress-end\"}\n";
const std::string transferStart =
    "{\"event\":\"progress\",\"label\":\"Transferring data to Corvane...\",\"cancel\":true}\n";
const std::string releaseStart =
    "{\"event\":\"progress\",\"label\":\"Releasing memory...\",\"cancel\":false}\n";
const std::string readError = "{\"event\":\"error\",\"text\":\"Error reading input file\"}\n";

} // namespace

TEST(Behaviour, AnswersToTheLoadersQuestions)
{
    ScratchDir scratch;
    writeFile(scratch / "short.txt", shortLines);
    auto loadShort = [&](std::vector<std::string> options) {
        options.insert(options.begin(), {"short.txt", "--instructions", shortLinesSet,
                                         "--transcript", "t.jsonl", "-o", "out.json"});
        return load(options, scratch.path());
    };
    // No answer given and no terminal: No, and a hint on how to say Yes.
    Result none = loadShort({});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.err, mismatch(3) + " -> no\ncorvane: answered No to the question above; --yes or "
                                    "--answers would answer Yes\nError reading input file\n");
    EXPECT_EQ(readFile(scratch / "t.jsonl"), scanStart + question(3, "no") + progressEnd +
                                                  readError + releaseStart + progressEnd);
    EXPECT_EQ(scratch.entries(), (std::vector<std::string>{"short.txt", "t.jsonl"}));

    Result no = loadShort({"--no"});
    EXPECT_EQ(no.status, 1);
    EXPECT_EQ(no.err, mismatch(3) + " -> no\nError reading input file\n");

    Result some = loadShort({"--answers", "y,n", "--yes"});
    EXPECT_EQ(some.status, 1);
    EXPECT_EQ(some.err, mismatch(3) + " -> yes\n" + mismatch(4) + " -> no\nError reading input file\n");
    EXPECT_EQ(readFile(scratch / "t.jsonl"), scanStart + question(3, "yes") + question(4, "no") +
                                                  progressEnd + readError + releaseStart +
                                                  progressEnd);
    EXPECT_FALSE(fs::exists(scratch / "out.json"));

    // Yes to the first by the list, then the policy: the missing values are 0.
    Result yes = loadShort({"--answers", "yes", "--yes", "-q"});
    EXPECT_EQ(yes.status, 0);
    EXPECT_EQ(yes.err, mismatch(3) + " -> yes\n" + mismatch(4) + " -> yes\n");
    EXPECT_EQ(yes.out, "\"New Dataset\": 3 variables, 1 zone, 4 points\n");
    std::string out = readFile(scratch / "out.json");
    EXPECT_NE(out.find("        [1, 4, 6, 8],\n        [2, 5, 7, 9],\n        [3, 0, 0, 10]\n"),
              std::string::npos)
        << out;
}

TEST(Behaviour, TranscriptsOfCancelledAndFinishedLoads)
{
    ScratchDir scratch;
    std::string data = (realDataDir / "noaa_co2_mm_mlo_2018.txt").string();
    // The scan never reaches 100 percent (line ends are not counted), so
    // Cancel at 100 lands in the transfer, after the last value: the loader
    // counts a transfer stopped there as a finished load.
    const std::string scanned = scanStart + progressEnd;
    const std::string released = releaseStart + progressEnd;
    const struct {
        const char *percent;
        int status;
        std::string transcript;
    } cases[] = {{"0", 1, scanned + released},
                 {"50", 1, scanned + released},
                 {"100", 0, scanned + transferStart + progressEnd + released}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.percent);
        fs::remove(scratch / "out.csv");
        Result run = load({data, "--set", "realdata/co2_mlo.twc", "--cancel-at", c.percent,
                           "--transcript", (scratch / "t.jsonl").string(), "-o",
                           (scratch / "out.csv").string()},
                          examplesDir);
        EXPECT_EQ(run.status, c.status);
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(readFile(scratch / "t.jsonl"), c.transcript);
        EXPECT_EQ(fs::exists(scratch / "out.csv"), c.status == 0);
    }
}

TEST(Behaviour, BadInputEndsWithTheLoadersMessage)
{
    ScratchDir scratch;
    writeFile(scratch / "empty.txt", "");
    std::string binary;
    for (int i = 0; i < 4096; ++i)
        binary += static_cast<char>((i * 97 + 13) % 256);
    writeFile(scratch / "binary.dat", binary);
    std::string longLine;
    for (int i = 0; i < 32000; ++i)
        longLine += "1 ";
    writeFile(scratch / "long.txt", "x y\n" + longLine + "\n");
    writeFile(scratch / "broken.twc", "#!CORVANE_TABWISE\nVERSION = 100\nTITLE\n{\n SEARCH = SOMEWHERE\n}\n");
    fs::copy_file(examplesDir / "cooling_curve.twc", scratch / "cooling_curve.twc");
    fs::copy_file(examplesDir / "duct_pressure.twc", scratch / "duct_pressure.twc");
    fs::copy_file(examplesDir / "cooling_curve.txt", scratch / "cooling_curve.txt");

    struct Case {
        std::vector<std::string> args;
        std::string err;
    };
    const Case cases[] = {
        {{"missing.txt", "--set", "cooling_curve.twc"},
         "Cannot open file \"missing.txt\" for reading.\nCheck disk space or permissions\n"
         "Error reading input file\n"},
        {{"binary.dat", "--set", "cooling_curve.twc"},
         "No data section found in this file\nError reading input file\n"},
        {{"empty.txt", "--set", "cooling_curve.twc"},
         "No variables found in this file\nError reading input file\n"},
        {{"long.txt", "--set", "duct_pressure.twc"},
         "Error: Line 2 of this file is too long.\nThe maximum line length supported by Ordalis "
         "Loader is 64000 bytes\nError reading input file\n"},
        {{"cooling_curve.txt", "--set", "broken.twc"},
         "Ordalis Loader:\nSyntax error processing instruction set file \"Tabwise add-on Data "
         "Loader\" on or about line 4:\nExpected one of NONE,LINE,KEYWORD\n\nProcessing of this "
         "configuration file has stopped at this line.\nNo variables have been entered in the "
         "variables import dialog.\nError reading input file\n"},
        {{"cooling_curve.txt", "--set", "missing.twc"},
         "Could not open configuration file \"missing.twc\" for reading. Check disk space or "
         "permissions.\n"},
        {{"cooling_curve.txt", "--instructions", ""},
         "Missing configuration parameter string in ordalis loader loading instructions.\n"},
        {{"", "--set", "cooling_curve.twc"},
         "Missing filename parameter in ordalis loader loading instructions.\n"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.args[0] + " " + c.args[2]);
        std::vector<std::string> args = c.args;
        args.insert(args.end(), {"-o", "out.json", "--save-layout", "layout.json"});
        Result run = load(args, scratch.path());
        EXPECT_FALSE(run.crashed);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.err, c.err);
        EXPECT_EQ(run.out, "");
        EXPECT_FALSE(fs::exists(scratch / "out.json"));
        EXPECT_FALSE(fs::exists(scratch / "layout.json"));
    }
    EXPECT_EQ(scratch.entries(),
              (std::vector<std::string>{"binary.dat", "broken.twc", "cooling_curve.twc",
                                        "cooling_curve.txt", "duct_pressure.twc", "empty.txt",
                                        "long.txt"}));
}

TEST(Behaviour, AddOnAndLayoutProblems)
{
    ScratchDir scratch;
    Result noAddOn = load({"cooling_curve.txt", "--set", "cooling_curve.twc", "--addon",
                           (scratch / "libnone.so").string()},
                          examplesDir);
    EXPECT_EQ(noAddOn.status, 1);
    std::string path = (scratch / "libnone.so").string();
    EXPECT_EQ(noAddOn.err, "corvane: cannot load add-on " + path + ": " + path +
                               ": cannot open shared object file: No such file or directory\n");

    Result notLayout = runCorvane({"replay", "cooling_curve.twc"}, examplesDir);
    EXPECT_EQ(notLayout.status, 2);
    EXPECT_EQ(notLayout.err, "cooling_curve.twc: not a corvane layout (not JSON)\n"
                             "Run with --help for more information.\n");

    writeFile(scratch / "other.json",
              R"({"corvaneLayout": 1, "loads": [{"loader": "Other Loader", "strings": ["a", "b"]}]})");
    Result unknown = runCorvane({"replay", (scratch / "other.json").string()}, examplesDir);
    EXPECT_EQ(unknown.status, 1);
    EXPECT_EQ(unknown.err, "corvane: no loader named \"Other Loader\" is registered\n");

    // One bad load of two: the run fails and writes nothing.
    writeFile(scratch / "mixed.json", R"({"corvaneLayout": 1, "loads": [
      {"loader": "Ordalis Loader", "strings": ["cooling_curve.txt", "CONFIGFNAME=\"cooling_curve.twc\""]},
      {"loader": "Ordalis Loader", "strings": ["cooling_curve.txt"]}]})");
    Result mixed = runCorvane({"replay", (scratch / "mixed.json").string(), "-o",
                               (scratch / "out.json").string()},
                              examplesDir);
    EXPECT_EQ(mixed.status, 1);
    EXPECT_EQ(mixed.err, "Layout instructions for tabwise data loader add-on are not formatted "
                         "correctly\n");
    EXPECT_FALSE(fs::exists(scratch / "out.json"));

    Result badTranscript = load({"cooling_curve.txt", "--set", "cooling_curve.twc",
                                 "--transcript", (scratch / "no" / "t.jsonl").string()},
                                examplesDir);
    EXPECT_EQ(badTranscript.status, 2);
    EXPECT_EQ(badTranscript.err, "cannot write --transcript " + (scratch / "no" / "t.jsonl").string() +
                                     ": No such file or directory\nRun with --help for more information.\n");
}
