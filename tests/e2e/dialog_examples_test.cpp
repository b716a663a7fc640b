// The example scripts of examples/scripts run through corvane ui --script against the
// loader's own dialogs, as the README shows them: from the top of the repository, with
// the library folder /tmp/tabwise replaced by a scratch folder of the test.
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "CorvaneRun.h"

using namespace testfiles;
using nlohmann::json;

namespace {

const std::string exampleLibrary = "/tmp/tabwise";

/* The example script with its library folder moved to library, written into scratch. */
fs::path scriptIn(const ScratchDir &scratch, const std::string &name, const fs::path &library)
{
    std::string text = readFile(examplesDir / "scripts" / name);
    for (size_t at; (at = text.find(exampleLibrary)) != std::string::npos;)
        text.replace(at, exampleLibrary.size(), library.string());
    fs::path script = scratch / name;
    writeFile(script, text);
    return script;
}

/* corvane from the top of the repository with the library folder as ORDALIS_DIR. */
Result runWithLibrary(std::vector<std::string> args, const fs::path &library)
{
    ::setenv("ORDALIS_DIR", library.c_str(), 1);
    Result run = runCorvane(std::move(args), sourceDir);
    ::unsetenv("ORDALIS_DIR");
    return run;
}

struct Example {
    std::string script;
    std::string out; /* the summary lines */
    std::string err; /* the boxes shown */
};

} // namespace

TEST(DialogExamples, EachScriptRunsToItsEnd)
{
    const Example examples[] = {
        {"cooling_curve.txt", "\"Cooling curve of sample A\": 2 variables, 1 zone, 5 points\n",
         ""},
        {"duct_pressure.txt", "\"Pressure along the duct\": 2 variables, 1 zone, 4 points\n", ""},
        {"library.txt", "",
         "Are you sure you want to permanently delete the file \"LIB/cooling_v2.twc\" ? -> "
         "yes\nMust have at least one configuration\n"},
    };
    for (const Example &example : examples) {
        ScratchDir scratch;
        fs::path library = scratch / "tabwise";
        fs::create_directory(library);
        fs::path script = scriptIn(scratch, example.script, library);
        Result run = runWithLibrary({"ui", "--script", script.string(), "-q"}, library);
        std::string err = example.err;
        for (size_t at; (at = err.find("LIB")) != std::string::npos;)
            err.replace(at, 3, library.string());
        EXPECT_EQ(run.status, 0) << example.script << "\n" << run.err;
        EXPECT_EQ(run.out, example.out) << example.script;
        EXPECT_EQ(run.err, err) << example.script;
    }
}

TEST(DialogExamples, DialogLoadEqualsTheCommandLineLoadOfTheSavedSet)
{
    ScratchDir scratch;
    fs::path library = scratch / "tabwise";
    fs::create_directory(library);
    fs::path script = scriptIn(scratch, "cooling_curve.txt", library);
    Result ui = runWithLibrary({"ui", "--script", script.string(), "-q", "-o",
                                (scratch / "ui.json").string(), "--save-layout",
                                (scratch / "ui.layout").string()},
                               library);
    ASSERT_EQ(ui.status, 0) << ui.err;
    fs::path saved = library / "cooling_curve.twc";
    ASSERT_TRUE(fs::exists(saved));
    Result load = runWithLibrary({"load", "examples/cooling_curve.txt", "--set", saved.string(),
                                  "-q", "-o", (scratch / "load.json").string()},
                                 library);
    ASSERT_EQ(load.status, 0) << load.err;

    json fromDialog = json::parse(readFile(scratch / "ui.json"));
    json fromCommand = json::parse(readFile(scratch / "load.json"));
    /* The dialog passes the plot type it chose and stores the printed set itself. */
    EXPECT_EQ(fromDialog["plotType"], 3);
    EXPECT_EQ(fromCommand["plotType"], nullptr);
    const json &strings = fromDialog["loaderInstructions"]["strings"];
    EXPECT_EQ(strings[0], "examples/cooling_curve.txt");
    EXPECT_EQ(strings[1].get<std::string>().rfind("VERSION=100 FILEEXT=\"*.txt\"", 0), 0u);
    for (json *set : {&fromDialog, &fromCommand}) {
        set->erase("plotType");
        set->erase("loaderInstructions");
    }
    EXPECT_EQ(fromDialog, fromCommand);

    /* The stored printed set replays to the same data without any dialog. */
    Result replay = runWithLibrary({"replay", (scratch / "ui.layout").string(), "-q", "-o",
                                    (scratch / "replay.json").string()},
                                   library);
    ASSERT_EQ(replay.status, 0) << replay.err;
    json replayed = json::parse(readFile(scratch / "replay.json"));
    replayed.erase("plotType");
    replayed.erase("loaderInstructions");
    EXPECT_EQ(replayed, fromCommand);
}
