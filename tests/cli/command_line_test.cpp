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

std::variant<Command, ParseStop> parse(std::vector<std::string> args)
{
    args.insert(args.begin(), "corvane");
    return parseCommandLine(args);
}

Command parsed(std::vector<std::string> args)
{
    auto result = parse(std::move(args));
    if (auto *stop = std::get_if<ParseStop>(&result)) {
        ADD_FAILURE() << "stopped: " << stop->err;
        return {};
    }
    return std::get<Command>(result);
}

ParseStop stopped(std::vector<std::string> args)
{
    auto result = parse(std::move(args));
    if (!std::holds_alternative<ParseStop>(result)) {
        ADD_FAILURE() << "parsed without stopping";
        return {};
    }
    return std::get<ParseStop>(result);
}

std::string usage(const std::string &problem)
{
    return problem + "\nRun with --help for more information.\n";
}

} // namespace

TEST(CommandLine, LoadBuildsTheTwoLoaderStrings)
{
    Command set = parsed({"load", "data.txt", "--set", "my set.twc"});
    EXPECT_EQ(set.kind, CommandKind::load);
    EXPECT_EQ(set.dataFile, "data.txt");
    EXPECT_EQ(set.instructions, "CONFIGFNAME=\"my set.twc\"");

    Command text = parsed({"load", "d.txt", "--instructions", "TITLE { NAME = \"x\" }\n"});
    EXPECT_EQ(text.instructions, "TITLE { NAME = \"x\" }\n");

    testfiles::ScratchDir scratch;
    std::string content = "#!CORVANE_TABWISE\r\nVARIABLES { NAMES = \"a,b\" }\n\n";
    testfiles::writeFile(scratch / "set.twc", content);
    Command file = parsed({"load", "d.txt", "--instructions-file", (scratch / "set.twc").string()});
    EXPECT_EQ(file.instructions, content);

    // An explicitly empty text is passed on for the loader to refuse.
    EXPECT_EQ(parsed({"load", "d.txt", "--instructions", ""}).instructions, "");
}

TEST(CommandLine, RunOptionsOfLoadAndReplay)
{
    Command load = parsed({"load", "d.txt", "--set", "s.twc", "-o", "a.json", "--output",
                           "b.CSV", "-o", "c.Json", "--save-layout", "l.json", "--transcript",
                           "t.jsonl", "--answers", "y,N,yes,no", "--no", "--cancel-at", "40",
                           "--addon", "/x/lib.so", "-q"});
    std::vector<OutputSpec> outputs{{"a.json", OutputFormat::json},
                                    {"b.CSV", OutputFormat::csv},
                                    {"c.Json", OutputFormat::json}};
    EXPECT_EQ(load.outputs, outputs);
    EXPECT_EQ(load.saveLayout, "l.json");
    EXPECT_EQ(load.transcript, "t.jsonl");
    EXPECT_EQ(load.answers, (std::deque<bool>{true, false, true, false}));
    EXPECT_EQ(load.policy, false);
    EXPECT_EQ(load.cancelAt, 40);
    EXPECT_EQ(load.addOnPath, "/x/lib.so");
    EXPECT_TRUE(load.quiet);

    Command replay = parsed({"replay", "l.json", "--yes", "--cancel-at", "100"});
    EXPECT_EQ(replay.kind, CommandKind::replay);
    EXPECT_EQ(replay.layoutFile, "l.json");
    EXPECT_EQ(replay.policy, true);
    EXPECT_EQ(replay.cancelAt, 100);
    EXPECT_TRUE(replay.outputs.empty());
    EXPECT_FALSE(replay.quiet);
    EXPECT_EQ(replay.addOnPath, "");
}

TEST(CommandLine, UsageErrorsNameTheProblem)
{
    struct Case {
        std::vector<std::string> args;
        std::string err;
    };
    const Case cases[] = {
        {{}, usage("A subcommand is required")},
        {{"load", "d.txt"}, usage("load needs one of --set, --instructions or --instructions-file")},
        {{"load", "d.txt", "--set", "a.twc", "--instructions", "X"},
         usage("--set, --instructions and --instructions-file are mutually exclusive")},
        {{"load", "--set", "a.twc"}, usage("DATAFILE is required")},
        {{"load", "d.txt", "--set", "a.twc", "-o", "out.txt"},
         usage("--output: \"out.txt\" must end in .json or .csv")},
        {{"load", "d.txt", "--set", "a.twc", "--answers", "y,maybe"},
         usage("--answers: \"maybe\" is not an answer (use y or n)")},
        {{"load", "d.txt", "--set", "a.twc", "--cancel-at", "101"},
         usage("--cancel-at: Value 101 not in range 0 to 100")},
        {{"load", "d.txt", "--set", "a.twc", "--yes", "--no"}, usage("--yes excludes --no")},
        {{"replay"}, usage("LAYOUT is required")},
        {{"unload"}, usage("unknown command \"unload\" (use load or replay)")},
        {{"load", "d.txt", "--instructions-file", "/nonexistent/set.twc"},
         usage("cannot read --instructions-file /nonexistent/set.twc: No such file or directory")},
        {{"load", "d.txt", "--instructions-file", "/"},
         usage("cannot read --instructions-file /: is a directory")},
    };
    for (const auto &c : cases) {
        std::string line;
        for (const auto &arg : c.args)
            line += arg + " ";
        SCOPED_TRACE(line);
        ParseStop stop = stopped(c.args);
        EXPECT_EQ(stop.status, exitUsage);
        EXPECT_EQ(stop.err, c.err);
        EXPECT_EQ(stop.out, "");
    }
}

TEST(CommandLine, HelpForEveryCommand)
{
    ParseStop top = stopped({"--help"});
    EXPECT_EQ(top.status, exitSuccess);
    EXPECT_EQ(top.err, "");
    EXPECT_NE(top.out.find("Usage: corvane [OPTIONS] SUBCOMMAND"), std::string::npos);

    ParseStop load = stopped({"load", "--help"});
    EXPECT_NE(load.out.find("Usage: corvane load [OPTIONS] DATAFILE"), std::string::npos);
    for (const char *option : {"--set FILE.twc", "--answers LIST", "--cancel-at PERCENT"})
        EXPECT_NE(load.out.find(option), std::string::npos) << option;

    ParseStop replay = stopped({"replay", "-h"});
    EXPECT_EQ(replay.status, exitSuccess);
    EXPECT_NE(replay.out.find("Usage: corvane replay [OPTIONS] LAYOUT"), std::string::npos);
    EXPECT_EQ(replay.out.find("--set"), std::string::npos);

    // Run writes usage errors to its error stream.
    testfiles::Result run = testfiles::runInProcess({"load", "d.txt", "--set", "a.twc", "-o", "x.xml"});
    EXPECT_EQ(run.status, exitUsage);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, usage("--output: \"x.xml\" must end in .json or .csv"));
}
