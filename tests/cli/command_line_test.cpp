// The corvane command line: what each argument vector becomes, and the exact
// usage errors (status 2) for everything the user can get wrong.
#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "CommandLine.h"
#include "CorvaneRun.h"

using namespace corvane::cli;

namespace {

// args after the program name parsed as the expected T (std::get throws on the other).
template <typename T> T parse(std::vector<std::string> args)
{
    args.insert(args.begin(), "corvane");
    return std::get<T>(parseCommandLine(args));
}

std::string usage(const std::string &problem)
{
    return problem + "\nRun with --help for more information.\n";
}

} // namespace

TEST(CommandLine, LoadBuildsTheTwoLoaderStrings)
{
    Command set = parse<Command>({"load", "data.txt", "--set", "my set.twc"});
    EXPECT_EQ(set.dataFile, "data.txt");
    EXPECT_EQ(set.instructions, "CONFIGFNAME=\"my set.twc\"");
    Command text = parse<Command>({"load", "d.txt", "--instructions", "TITLE { NAME = \"x\" }\n"});
    EXPECT_EQ(text.instructions, "TITLE { NAME = \"x\" }\n");

    testfiles::ScratchDir scratch;
    std::string content = "#!CORVANE_TABWISE\r\nVARIABLES { NAMES = \"a,b\" }\n\n";
    testfiles::writeFile(scratch / "set.twc", content);
    std::string path = (scratch / "set.twc").string();
    EXPECT_EQ(parse<Command>({"load", "d.txt", "--instructions-file", path}).instructions, content);
    EXPECT_EQ(parse<Command>({"load", "d.txt", "--instructions", ""}).instructions, "")
        << "an explicitly empty text is passed on for the loader to refuse";
}

TEST(CommandLine, RunOptionsOfLoadAndReplay)
{
    Command load = parse<Command>({"load", "d.txt", "--set", "s.twc", "-o", "a.json", "--output",
                                   "b.CSV", "--save-layout", "l.json", "--transcript", "t.jsonl",
                                   "--answers", "y,N,yes,no", "--no", "--cancel-at", "40",
                                   "--addon", "/x/lib.so", "-q"});
    EXPECT_EQ(load.outputs, (std::vector<OutputSpec>{{"a.json", OutputFormat::json},
                                                     {"b.CSV", OutputFormat::csv}}));
    EXPECT_EQ(load.saveLayout, "l.json");
    EXPECT_EQ(load.transcript, "t.jsonl");
    EXPECT_EQ(load.answers, (std::deque<bool>{true, false, true, false}));
    EXPECT_EQ(load.policy, false);
    EXPECT_EQ(load.cancelAt, 40);
    EXPECT_EQ(load.addOnPath, "/x/lib.so");
    EXPECT_TRUE(load.quiet);

    Command replay = parse<Command>({"replay", "l.json", "--yes"});
    EXPECT_EQ(replay.kind, CommandKind::replay);
    EXPECT_EQ(replay.layoutFile, "l.json");
    EXPECT_EQ(replay.policy, true);
}

TEST(CommandLine, UiWithoutAScriptServesTheBrowserFrontEnd)
{
    Command plain = parse<Command>({"ui"});
    EXPECT_EQ(plain.kind, CommandKind::browser);
    EXPECT_EQ(plain.dataFile, "");
    EXPECT_EQ(plain.port, 0);
    EXPECT_FALSE(plain.noOpen);

    testfiles::ScratchDir scratch;
    std::string data = (scratch / "d.txt").string();
    testfiles::writeFile(data, "1 2\n");
    Command full = parse<Command>({"ui", data, "--port", "8080", "--no-open", "--addon", "/x/lib.so",
                                   "--transcript", "t.jsonl"});
    EXPECT_EQ(full.kind, CommandKind::browser);
    EXPECT_EQ(full.dataFile, data);
    EXPECT_EQ(full.port, 8080);
    EXPECT_TRUE(full.noOpen);
    EXPECT_EQ(full.addOnPath, "/x/lib.so");
    EXPECT_EQ(full.transcript, "t.jsonl");
}

TEST(CommandLine, UsageErrorsNameTheProblem)
{
    const std::pair<std::vector<std::string>, std::string> cases[] = {
        {{}, "A subcommand is required"},
        {{"load", "d.txt"}, "load needs one of --set, --instructions, --instructions-file or --sniff"},
        {{"load", "d.txt", "--set", "a.twc", "--instructions", "X"},
         "--set, --instructions, --instructions-file and --sniff are mutually exclusive"},
        {{"load", "--set", "a.twc"}, "DATAFILE is required"},
        {{"load", "d.txt", "--set", "a.twc", "-o", "out.txt"},
         "--output: \"out.txt\" must end in .json or .csv"},
        {{"load", "d.txt", "--set", "a.twc", "--answers", "y,maybe"},
         "--answers: \"maybe\" is not an answer (use y or n)"},
        {{"load", "d.txt", "--set", "a.twc", "--cancel-at", "101"},
         "--cancel-at: Value 101 not in range 0 to 100"},
        {{"load", "d.txt", "--set", "a.twc", "--yes", "--no"}, "--yes excludes --no"},
        {{"unload"}, "unknown command \"unload\" (use load, replay, ui, sniff or check)"},
        {{"ui", "-o", "out.json"}, "--output is only for ui --script runs"},
        {{"ui", "-q"}, "--quiet is only for ui --script runs"},
        {{"ui", "--script", "s.txt", "--no-open"}, "--no-open is not for ui --script runs"},
        {{"ui", "d.txt", "--script", "s.txt"}, "DATAFILE is not for ui --script runs"},
        {{"ui", "--port", "65536"}, "--port: Value 65536 not in range 0 to 65535"},
        {{"ui", "/nonexistent/d.txt"},
         "cannot read DATAFILE /nonexistent/d.txt: No such file or directory"},
        {{"ui", "/"}, "cannot read DATAFILE /: is a directory"},
        {{"ui", "/dev/zero"}, "cannot read DATAFILE /dev/zero: is not a plain file"},
        {{"ui", "--script", "/nonexistent/s.txt"},
         "cannot read --script /nonexistent/s.txt: No such file or directory"},
        {{"ui", "--script", "s.txt", "--yes"}, "The following argument was not expected: --yes"},
        {{"load", "d.txt", "--instructions-file", "/nonexistent/set.twc"},
         "cannot read --instructions-file /nonexistent/set.twc: No such file or directory"},
        {{"load", "d.txt", "--instructions-file", "/"},
         "cannot read --instructions-file /: is a directory"},
    };
    for (const auto &[args, problem] : cases) {
        ParseStop stop = parse<ParseStop>(args);
        EXPECT_EQ(stop.status, exitUsage) << problem;
        EXPECT_EQ(stop.err, usage(problem));
    }
}

TEST(CommandLine, RunWritesUsageErrorsToItsErrorStream)
{
    testfiles::Result run = testfiles::runInProcess({"replay"});
    EXPECT_EQ(run.status, exitUsage);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, usage("LAYOUT is required"));
}

TEST(CommandLine, HelpIsNoError)
{
    const std::pair<std::vector<std::string>, std::string> cases[] = {
        {{"--help"}, "Usage: corvane [OPTIONS] SUBCOMMAND"},
        {{"load", "--help"}, "Usage: corvane load [OPTIONS] DATAFILE"},
        {{"replay", "-h"}, "Usage: corvane replay [OPTIONS] LAYOUT"},
        {{"ui", "--help"}, "Usage: corvane ui [OPTIONS]"},
        {{"ui", "--help"}, "  expect items|selected CAPTION ITEM...\n"},
        {{"ui", "--help"}, "  --no-open "},
    };
    for (const auto &[args, usageLine] : cases) {
        ParseStop stop = parse<ParseStop>(args);
        EXPECT_EQ(stop.status, exitSuccess) << usageLine;
        EXPECT_NE(stop.out.find(usageLine), std::string::npos) << stop.out;
    }
}
