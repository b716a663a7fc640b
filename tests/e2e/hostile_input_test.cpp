// Files and sizes that a careless or hostile user may hand the loader: directories and
// devices, bytes that are not text, lines at the length limit, line ends of one kind or
// another, zone sizes beyond what a 32-bit count holds. Each run ends with the loader's
// message and exit status 1 (or loads as it should), never a hang, a crash or an output
// file of a failed run.
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "CorvaneRun.h"

using namespace testfiles;

namespace {

const std::string readError = "Error reading input file\n";
const std::string oneName = "VARIABLES{SEARCH=NONE NAMES=\"a,b\"} "
                            "DATA{IMPORT{STARTID=FIRSTNUMERICLINE{} ENDID=EOF{}}} ";

std::string cannotOpen(const std::string &path)
{
    return "Cannot open file \"" + path + "\" for reading.\nCheck disk space or permissions\n" +
           readError;
}

std::string tooLong(int line)
{
    return "Error: Line " + std::to_string(line) +
           " of this file is too long.\nThe maximum line length supported by Ordalis Loader is "
           "64000 bytes\n" +
           readError;
}

} // namespace

TEST(HostileInput, RefusedWithTheLoadersMessageAndNoOutput)
{
    ScratchDir scratch;
    writeFile(scratch / "zeros.bin", std::string(100000, '\0'));
    writeFile(scratch / "line64000.txt", std::string(63999, '7') + " \n1 2\n");
    writeFile(scratch / "data.txt", "1 2\n3 4\n");
    /* A single line of 2 GiB (a sparse file: no disk is used). */
    writeFile(scratch / "sparse.bin", "");
    fs::resize_file(scratch / "sparse.bin", std::uintmax_t(2) << 30);
    const std::string data = (scratch / "data.txt").string();
    const struct {
        std::string file, instructions, err;
    } rows[] = {
        {scratch.path().string(), oneName, cannotOpen(scratch.path().string())},
        {"/dev/zero", oneName, cannotOpen("/dev/zero")},
        {"/dev/null", oneName, cannotOpen("/dev/null")},
        {(scratch / "zeros.bin").string(), oneName, tooLong(1)},
        {(scratch / "line64000.txt").string(), oneName, tooLong(1)},
        {"/proc/self/mem", oneName,
         "Cannot read file \"/proc/self/mem\" after line 0: Input/output error.\nThe file was "
         "not loaded\n" + readError},
        {(scratch / "sparse.bin").string(), oneName, tooLong(1)},
        {data, "CONFIGFNAME=.",
         "Could not open configuration file \".\" for reading. Check disk space or "
         "permissions.\n"},
        {data, "CONFIGFNAME=/dev/zero",
         "Could not open configuration file \"/dev/zero\" for reading. Check disk space or "
         "permissions.\n"},
        {data, oneName + "DATA{DIMENSION{AUTO=FALSE IMAX=3000000 JMAX=3000000 KMAX=3000000}}",
         "Out of memory. A zone of 3000000 x 3000000 x 3000000 points is more than the loader "
         "can hold.\n" + readError},
        {data, oneName + "DATA{DIMENSION{AUTO=FALSE IMAX=65537 JMAX=65537}}",
         "Out of memory. A zone of 65537 x 65537 x 1 points is more than the loader can "
         "hold.\n" + readError},
        /* Two billion values to fill after the question is answered Yes: refused before
           anything grows. */
        {data, oneName + "DATA{DIMENSION{AUTO=FALSE IMAX=2147483647}}",
         "In zone 1, variable \"a\", only 2 values were found, when 2147483647 were expected. "
         "Would you like to fill the remaining values with 0.0? -> yes\nOut of memory\n" +
             readError},
    };
    for (const auto &row : rows) {
        fs::path out = scratch / "out.json";
        Result run = runInProcess({"load", row.file, "--instructions", row.instructions, "--yes",
                                   "-q", "-o", out.string()});
        EXPECT_EQ(run.status, 1) << row.file << " " << row.instructions;
        EXPECT_EQ(run.err, row.err) << row.file << " " << row.instructions;
        EXPECT_FALSE(fs::exists(out)) << row.file << " " << row.instructions;
    }
}

TEST(HostileInput, LineEndsAndLengthsAtTheLimitLoad)
{
    ScratchDir scratch;
    const struct {
        std::string name, text;
        std::vector<double> a; /* the first variable's values */
    } rows[] = {
        {"cr.txt", "1 2\r3 4\r", {1}},   /* CR alone ends no line: "3" is a token of line 1 */
        {"crlf.txt", "1 2\r\n3 4\r\n", {1, 3}},
        {"nul.txt", std::string("1 2\n3 4\0 9\n5 6\n", 14), {1, 3, 5}}, /* a NUL ends its line */
        {"63999.txt", "1 2" + std::string(63995, ' ') + "\n3 4\n", {1, 3}},
        {"64000.txt", "1 2" + std::string(63996, ' ') + "\n3 4\n", {1, 3}},
    };
    for (const auto &row : rows) {
        writeFile(scratch / row.name, row.text);
        fs::path out = scratch / (row.name + ".json");
        Result run = runInProcess({"load", (scratch / row.name).string(), "--instructions",
                                   oneName, "--yes", "-q", "-o", out.string()});
        ASSERT_EQ(run.status, 0) << row.name << "\n" << run.err;
        auto loaded = nlohmann::json::parse(readFile(out));
        EXPECT_EQ(loaded["zones"][0]["values"][0].get<std::vector<double>>(), row.a) << row.name;
    }
}

TEST(HostileInput, AnOutputThatCannotBeWrittenLeavesNoFile)
{
    ScratchDir scratch;
    writeFile(scratch / "file.txt", "not a folder");
    const std::string blocked = (scratch / "file.txt" / "out.json").string();
    const std::string fine = (scratch / "fine.csv").string();
    Result run = runInProcess({"load", (examplesDir / "cooling_curve.txt").string(), "--set",
                               (examplesDir / "cooling_curve.twc").string(), "-q", "-o", fine,
                               "-o", blocked});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "corvane: cannot write " + blocked + ": Not a directory\n");
    EXPECT_EQ(scratch.entries(), std::vector<std::string>{"file.txt"}) << "no output at all";
}
