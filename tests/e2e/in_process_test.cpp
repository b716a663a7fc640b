// The command line's entry function called in process, as an embedding host
// would: two runs in one process, each loading and releasing the add-on.
#include <cstdio>
#include <string>

#include <gtest/gtest.h>

#include "AddOns.h"
#include "Cli.h"
#include "CorvaneProcess.h"
#include "DataModel.h"

using namespace e2e;

namespace {

std::string drain(std::FILE *file)
{
    std::rewind(file);
    std::string text;
    for (int c; (c = std::fgetc(file)) != EOF;)
        text += static_cast<char>(c);
    std::fclose(file);
    return text;
}

} // namespace

TEST(InProcess, TwoRunsInOneProcess)
{
    corvane::host::clearDataSets();
    ScratchDir scratch;
    std::string data = (examplesDir / "thermocouple.txt").string();
    std::string set = (examplesDir / "thermocouple.twc").string();
    for (int round = 1; round <= 2; ++round) {
        SCOPED_TRACE(round);
        std::FILE *out = std::tmpfile();
        std::FILE *err = std::tmpfile();
        int status = corvane::cli::run({"corvane", "load", data, "--set", set, "-o",
                                        (scratch / "out.csv").string()},
                                       {nullptr, out, err});
        EXPECT_EQ(status, 0);
        EXPECT_EQ(drain(out), "\"Instrument: thermocouple T7\": 2 variables, 1 zone, 3 points\n");
        EXPECT_EQ(drain(err), "");
        EXPECT_EQ(readFile(scratch / "out.csv"), "T [C],emf [mV]\n10,0.397\n20,0.79\n30,1.196\n");
        // The run quits the add-on and forgets its loaders; the data stay.
        EXPECT_TRUE(corvane::host::loaders().empty());
        ASSERT_EQ(corvane::host::dataSets().size(), static_cast<size_t>(round));
        EXPECT_EQ(corvane::host::dataSets().back().loaderInstructions->strings,
                  (std::vector<std::string>{data, "CONFIGFNAME=\"" + set + "\""}));
    }
    corvane::host::clearDataSets();
}
