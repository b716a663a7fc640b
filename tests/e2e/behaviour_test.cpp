// What the user sees when a load asks, is cancelled or fails: transcripts,
// answers, exit statuses and the loader's own messages, never a crash and
// never an output file of a failed run.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CorvaneRun.h"

using namespace testfiles;

namespace {

/* The question about a data line of 2 values under 3 names; its transcript
   line when answered answer. */
std::string mismatch(int line)
{
    return "Expected to find 3 data values on line " + std::to_string(line) +
           ", but 2 data values were found.\nIt is recommended to specify a value for blanked "
           "cells and restart.\nContinue processing?";
}
std::string question(int line, const std::string &answer)
{
    std::string text = mismatch(line);
    for (size_t at; (at = text.find('\n')) != std::string::npos;)
        text.replace(at, 1, "\\n");
    return R"({"event":"message","type":"yesno","text":")" + text + R"(","answer":")" + answer +
           "\"}\n";
}

const std::string progressEnd = "{\"event\":\"progress-end\"}\n";
const std::string scanStart =
    "{\"event\":\"progress\",\"label\":\"Scanning file...\",\"cancel\":true}\n";
const std::string released =
    "{\"event\":\"progress\",\"label\":\"Releasing memory...\",\"cancel\":false}\n" + progressEnd;
const std::string readError = "Error reading input file\n";
const std::string transferred =
    "{\"event\":\"progress\",\"label\":\"Transferring data to Corvane...\",\"cancel\":true}\n" +
    progressEnd;

} // namespace

/* A data file whose lines 3 and 4 hold 2 values under 3 names, loaded with
   options; each row in a fresh folder. Without an answer or a terminal: No,
   with a hint. Yes to the first by the list, then the policy: the missing
   values are 0. */
TEST(Behaviour, AnswersToTheLoadersQuestions)
{
    const std::string failed = progressEnd +
                               "{\"event\":\"error\",\"text\":\"Error reading input file\"}\n" +
                               released;
    const std::string finished = progressEnd + transferred + released;
    const struct {
        std::vector<std::string> options;
        int status;
        std::string err, out, transcript, csv; /* csv: none when empty */
    } rows[] = {
        {{}, 1,
         mismatch(3) + " -> no\ncorvane: answered No to the question above; --yes or --answers "
                       "would answer Yes\n" + readError,
         "", scanStart + question(3, "no") + failed, ""},
        {{"--no"}, 1, mismatch(3) + " -> no\n" + readError, "",
         scanStart + question(3, "no") + failed, ""},
        {{"--answers", "y,n", "--yes"}, 1,
         mismatch(3) + " -> yes\n" + mismatch(4) + " -> no\n" + readError, "",
         scanStart + question(3, "yes") + question(4, "no") + failed, ""},
        {{"--answers", "yes", "--yes", "-q"}, 0,
         mismatch(3) + " -> yes\n" + mismatch(4) + " -> yes\n",
         "\"New Dataset\": 3 variables, 1 zone, 4 points\n",
         scanStart + question(3, "yes") + question(4, "yes") + finished,
         "a,b,c\n1,2,3\n4,5,0\n6,7,0\n8,9,10\n"},
    };
    for (const auto &row : rows) {
        ScratchDir scratch;
        writeFile(scratch / "short.txt", "a b c\n1 2 3\n4 5\n6 7\n8 9 10\n");
        writeFile(scratch / "short.twc",
                  "VARIABLES { SEARCH = LINE STARTLINE = 1 ENDLINE = 1 }\nDATA { IMPORT { "
                  "STARTID = FIRSTNUMERICLINE { } ENDID = EOF { } } }\n");
        std::vector<std::string> args{"load", "short.txt", "--set", "short.twc",
                                      "--transcript", "t.jsonl", "-o", "out.csv"};
        args.insert(args.end(), row.options.begin(), row.options.end());
        Result run = runCorvane(args, scratch.path());
        std::string trace = ::testing::PrintToString(row.options);
        EXPECT_EQ(run.status, row.status) << trace;
        EXPECT_EQ(run.err, row.err) << trace;
        EXPECT_EQ(run.out, row.out) << trace;
        EXPECT_EQ(readFile(scratch / "t.jsonl"), row.transcript) << trace;
        EXPECT_EQ(fs::exists(scratch / "out.csv"), !row.csv.empty()) << trace;
        EXPECT_EQ(readFile(scratch / "out.csv"), row.csv) << trace;
    }
}

/* The scan never reaches 100 percent (line ends are not counted), so Cancel
   at 100 lands in the transfer, after the last value: a transfer stopped
   there is a finished load. */
TEST(Behaviour, TranscriptsOfCancelledAndFinishedLoads)
{
    const std::tuple<const char *, int, std::string> cases[] = {
        {"0", 1, scanStart + progressEnd + released},
        {"100", 0, scanStart + progressEnd + transferred + released}};
    for (const auto &[percent, status, transcript] : cases) {
        ScratchDir scratch;
        Result run = runCorvane({"load", (realDataDir / "noaa_co2_mm_mlo_2018.txt").string(),
                                 "--set", "realdata/co2_mlo.twc", "--cancel-at", percent,
                                 "--transcript", (scratch / "t.jsonl").string(), "-o",
                                 (scratch / "out.csv").string()},
                                examplesDir);
        EXPECT_EQ(run.status, status) << percent;
        EXPECT_EQ(run.err, "") << percent;
        EXPECT_EQ(readFile(scratch / "t.jsonl"), transcript) << percent;
        EXPECT_EQ(fs::exists(scratch / "out.csv"), status == 0) << percent;
    }
}

/* Every input of the failing runs below, in folder. */
static void writeInputs(const fs::path &folder)
{
    writeFile(folder / "empty.txt", "");
    std::string binary;
    for (int i = 0; i < 4096; ++i)
        binary += static_cast<char>(i % 256);
    writeFile(folder / "binary.dat", binary);
    writeFile(folder / "long.txt", "x y\n" + std::string(64000, '1') + "\n");
    writeFile(folder / "broken.twc", "#!CORVANE_TABWISE\nVERSION = 100\nTITLE\n{\n SEARCH = X\n}\n");
    for (const char *name : {"cooling_curve.twc", "duct_pressure.twc", "cooling_curve.txt"})
        fs::copy_file(examplesDir / name, folder / name);
    const std::string layout = R"({"corvaneLayout": 1, "loads": [)";
    writeFile(folder / "other.json", layout + R"({"loader": "Other", "strings": ["a"]}]})");
    writeFile(folder / "mixed.json", layout + R"({"loader": "Ordalis Loader", "strings": )"
              R"(["cooling_curve.txt", "CONFIGFNAME=\"cooling_curve.twc\""]}, )"
              R"({"loader": "Ordalis Loader", "strings": ["cooling_curve.txt"]}]})");
}

TEST(Behaviour, BadInputAddOnOrLayoutEndsWithItsMessageAndNoOutput)
{
    const std::pair<std::vector<std::string>, std::string> cases[] = {
        {{"load", "missing.txt", "--set", "cooling_curve.twc"},
         "Cannot open file \"missing.txt\" for reading.\nCheck disk space or permissions\n" +
             readError},
        {{"load", "binary.dat", "--set", "cooling_curve.twc"},
         "No data section found in this file\n" + readError},
        {{"load", "empty.txt", "--set", "cooling_curve.twc"},
         "No variables found in this file\n" + readError},
        {{"load", "long.txt", "--set", "duct_pressure.twc"},
         "Error: Line 2 of this file is too long.\nThe maximum line length supported by Ordalis "
         "Loader is 64000 bytes\n" + readError},
        {{"load", "cooling_curve.txt", "--set", "broken.twc"},
         "Ordalis Loader:\nSyntax error processing instruction set file \"Tabwise add-on Data "
         "Loader\" on or about line 4:\nExpected one of NONE,LINE,KEYWORD\n\nProcessing of this "
         "configuration file has stopped at this line.\nNo variables have been entered in the "
         "variables import dialog.\n" + readError},
        {{"load", "cooling_curve.txt", "--set", "missing.twc"},
         "Could not open configuration file \"missing.twc\" for reading. Check disk space or "
         "permissions.\n"},
        {{"load", "cooling_curve.txt", "--instructions", ""},
         "Missing configuration parameter string in ordalis loader loading instructions.\n"},
        {{"load", "", "--set", "cooling_curve.twc"},
         "Missing filename parameter in ordalis loader loading instructions.\n"},
        {{"load", "cooling_curve.txt", "--set", "cooling_curve.twc", "--addon", "/none/lib.so"},
         "corvane: cannot load add-on /none/lib.so: /none/lib.so: cannot open shared object "
         "file: No such file or directory\n"},
        {{"replay", "other.json"}, "corvane: no loader named \"Other\" is registered\n"},
        {{"replay", "mixed.json"}, "Layout instructions for tabwise data loader add-on are not "
                                   "formatted correctly\n"},
    };
    for (auto [args, err] : cases) {
        ScratchDir scratch;
        writeInputs(scratch.path());
        args.insert(args.end(), {"-o", "out.json", "--save-layout", "layout.json"});
        Result run = runCorvane(args, scratch.path());
        std::string trace = ::testing::PrintToString(args);
        EXPECT_EQ(run.status, 1) << trace;
        EXPECT_EQ(run.err, err) << trace;
        EXPECT_EQ(run.out, "") << trace;
        EXPECT_FALSE(fs::exists(scratch / "out.json")) << trace;
        EXPECT_FALSE(fs::exists(scratch / "layout.json")) << trace;
    }
}

TEST(Behaviour, ReplayOfAFileThatIsNotALayoutIsAUsageError)
{
    Result run = runCorvane({"replay", "cooling_curve.twc"}, examplesDir);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "cooling_curve.twc: not a corvane layout (not JSON)\n"
                       "Run with --help for more information.\n");
}
