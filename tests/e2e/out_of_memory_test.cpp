// Out of memory anywhere in a whole run: a load, a replay and a dialog run that saves,
// loads and deletes sets are run again and again, failing the N-th allocation of the
// add-on (ORDALIS_FAIL_ALLOCATION) or of the host (CORVANE_FAIL_HOST_ALLOCATION) for
// every N up to the number of allocations a run without failure makes. Every run ends
// with status 0 or 1, a failed one with a message: no crash, no sanitizer report (leaks
// included, in the sanitizer build), the host lock given back, and no output file of a
// failed run.
#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CorvaneRun.h"

using namespace testfiles;

namespace {

struct Flow {
    std::string name;
    std::vector<std::string> args; /* "OUT" stands for the output file, "LIB" for the library */
};

/* The dialog example with its library folder moved to library. */
std::string scriptWithLibrary(const fs::path &library)
{
    std::string text = readFile(examplesDir / "scripts" / "library.txt");
    for (size_t at; (at = text.find("/tmp/tabwise")) != std::string::npos;)
        text.replace(at, 12, library.string());
    return text;
}

/* One run of the flow with a fresh library folder and no output file yet; variable, when
   given, is set to n. */
Result runFlow(const Flow &flow, const ScratchDir &scratch,
               const std::vector<std::pair<std::string, std::string>> &environment)
{
    fs::path library = scratch / "library";
    fs::remove_all(library);
    fs::create_directory(library);
    writeFile(scratch / "library.txt", scriptWithLibrary(library));
    fs::remove(scratch / "out.json");
    std::vector<std::string> args;
    for (const std::string &arg : flow.args)
        args.push_back(arg == "OUT" ? (scratch / "out.json").string() : arg);
    ::setenv("ORDALIS_DIR", library.c_str(), 1);
    for (const auto &[name, value] : environment)
        ::setenv(name.c_str(), value.c_str(), 1);
    Result run = runCorvane(args, sourceDir);
    for (const auto &[name, value] : environment)
        ::unsetenv(name.c_str());
    ::unsetenv("ORDALIS_DIR");
    return run;
}

bool sanitizerSpoke(const std::string &err)
{
    for (const char *report : {"AddressSanitizer", "LeakSanitizer", "runtime error:"})
        if (err.find(report) != std::string::npos)
            return true;
    return false;
}

} // namespace

TEST(OutOfMemory, EveryAllocationOfAWholeRunFailsCleanly)
{
    ScratchDir scratch;
    ASSERT_EQ(runCorvane({"load", "examples/cooling_curve.txt", "--set",
                          "examples/cooling_curve.twc", "-q", "--save-layout",
                          (scratch / "cooling.layout").string()},
                         sourceDir)
                  .status,
              0);
    const Flow flows[] = {
        {"load", {"load", "examples/cooling_curve.txt", "--set", "examples/cooling_curve.twc",
                  "-q", "--yes", "-o", "OUT"}},
        {"replay", {"replay", (scratch / "cooling.layout").string(), "-q", "-o", "OUT"}},
        {"dialogs", {"ui", "--script", (scratch / "library.txt").string(), "-q", "-o", "OUT"}},
    };
    for (const Flow &flow : flows) {
        /* How many allocations of each kind a run makes without a failure. */
        Result clean = runFlow(flow, scratch,
                               {{"ORDALIS_ALLOCATION_COUNT_FILE", (scratch / "addon").string()},
                                {"CORVANE_HOST_ALLOCATION_COUNT_FILE", (scratch / "host").string()}});
        ASSERT_EQ(clean.status, 0) << flow.name << "\n" << clean.err;
        const std::pair<const char *, long> kinds[] = {
            {"ORDALIS_FAIL_ALLOCATION", std::stol(readFile(scratch / "addon"))},
            {"CORVANE_FAIL_HOST_ALLOCATION", std::stol(readFile(scratch / "host"))},
        };
        for (const auto &[variable, count] : kinds) {
            EXPECT_GT(count, 3) << flow.name << " " << variable;
            for (long n = 1; n <= count; n++) {
                Result run = runFlow(flow, scratch, {{variable, std::to_string(n)}});
                std::string where = flow.name + " " + variable + "=" + std::to_string(n);
                EXPECT_TRUE(run.status == 0 || run.status == 1) << where << "\n" << run.err;
                EXPECT_FALSE(sanitizerSpoke(run.err)) << where << "\n" << run.err;
                EXPECT_EQ(run.err.find("host lock"), std::string::npos) << where << "\n" << run.err;
                if (run.status != 0) {
                    EXPECT_FALSE(run.err.empty()) << where;
                    EXPECT_FALSE(fs::exists(scratch / "out.json")) << where;
                }
            }
        }
    }
}
