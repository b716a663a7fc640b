// The command line's entry function called in process, as an embedding host
// would: two runs in one process, each loading and releasing the add-on.
#include <gtest/gtest.h>

#include "AddOns.h"
#include "CorvaneRun.h"
#include "DataModel.h"

using namespace testfiles;

TEST(InProcess, TwoRunsInOneProcess)
{
    corvane::host::clearDataSets();
    ScratchDir scratch;
    std::string data = (examplesDir / "thermocouple.txt").string();
    std::string set = (examplesDir / "thermocouple.twc").string();
    for (size_t round = 1; round <= 2; ++round) {
        SCOPED_TRACE(round);
        Result run = runInProcess({"load", data, "--set", set, "-o", (scratch / "out.csv").string()});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.out, "\"Instrument: thermocouple T7\": 2 variables, 1 zone, 3 points\n");
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(readFile(scratch / "out.csv"), "T [C],emf [mV]\n10,0.397\n20,0.79\n30,1.196\n");
        // The run quits the add-on and forgets its loaders; the data stay.
        EXPECT_TRUE(corvane::host::loaders().empty());
        ASSERT_EQ(corvane::host::dataSets().size(), round);
        EXPECT_EQ(corvane::host::dataSets().back().loaderInstructions->strings,
                  (std::vector<std::string>{data, "CONFIGFNAME=\"" + set + "\""}));
    }
    corvane::host::clearDataSets();
}
