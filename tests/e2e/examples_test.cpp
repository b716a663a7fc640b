// Every example and real-data instruction set, run through the corvane
// executable: exact JSON and CSV outputs, and replays of saved layouts.
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "CorvaneRun.h"

using namespace testfiles;
using nlohmann::json;

namespace {

/* Each example's data file (its instructions and expected JSON share its
   stem) and the summary line of its load. */
const std::pair<std::string, std::string> examples[] = {
    {"cooling_curve.txt", "\"Cooling curve of sample A\": 2 variables, 1 zone, 5 points\n"},
    {"station_log.csv", "\"Station ST1 log\": 3 variables, 1 zone, 4 points\n"},
    {"tide_gauge.txt", "\"Tide gauge readings, fixed columns\": 3 variables, 1 zone, 5 points\n"},
    {"plate_block.txt",
     "\"Temperature on a 3 x 2 plate, block order\": 3 variables, 1 zone, 6 points\n"},
    {"probe_traverses.txt", "\"Two probe traverses\": 2 variables, 2 zones, 5 points\n"},
    {"rain_gauges.txt", "\"Rain gauges (mm)\": 4 variables, 1 zone, 4 points\n"},
    {"thermocouple.txt", "\"Instrument: thermocouple T7\": 2 variables, 1 zone, 3 points\n"},
    {"duct_pressure.txt", "\"Pressure along the duct\": 2 variables, 1 zone, 4 points\n"},
    {"surface_grid.txt", "\"Surface height on a 3 x 2 grid\": 3 variables, 1 zone, 6 points\n"},
};

} // namespace

TEST(Examples, EachLoadsToItsExpectedJson)
{
    for (const auto &[dataFile, summary] : examples) {
        SCOPED_TRACE(dataFile);
        ScratchDir scratch;
        std::string stem = fs::path(dataFile).stem().string();
        Result run = runCorvane(
            {"load", dataFile, "--set", stem + ".twc", "-o", (scratch / "out.json").string()},
            examplesDir);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(run.out, summary);
        EXPECT_EQ(readFile(scratch / "out.json"), readFile(expectedDir / (stem + ".json")));
    }
}

TEST(Examples, CsvBesideJson)
{
    ScratchDir scratch;
    Result run = runCorvane({"load", "probe_traverses.txt", "--set", "probe_traverses.twc", "-o",
                             (scratch / "a.csv").string(), "-o", (scratch / "b.json").string()},
                            examplesDir);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(readFile(scratch / "a.csv"),
              "zone,depth,velocity\n1,0,1.5\n1,0.5,1.25\n1,1,0.75\n2,0,1.75\n2,0.5,1.5\n");
    EXPECT_EQ(readFile(scratch / "b.json"), readFile(expectedDir / "probe_traverses.json"));
}

TEST(Examples, InstructionsGivenAsTextAreStoredAsTheText)
{
    ScratchDir scratch;
    std::string text = readFile(examplesDir / "duct_pressure.twc");
    json expected = json::parse(readFile(expectedDir / "duct_pressure.json"));
    expected["loaderInstructions"]["strings"][1] = text;
    Result run = runCorvane(
        {"load", "duct_pressure.txt", "--instructions", text, "-o", (scratch / "d.json").string()},
        examplesDir);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(json::parse(readFile(scratch / "d.json")), expected);
}

TEST(Examples, ReplayOfASavedLayoutGivesTheSameDataAndLayout)
{
    ScratchDir scratch;
    std::string layout = (scratch / "layout.json").string();
    Result load = runCorvane(
        {"load", "rain_gauges.txt", "--set", "rain_gauges.twc", "--save-layout", layout},
        examplesDir);
    EXPECT_EQ(load.status, 0);
    Result replay = runCorvane({"replay", layout, "-o", (scratch / "replay.json").string(),
                                "--save-layout", (scratch / "again.json").string()},
                               examplesDir);
    EXPECT_EQ(replay.status, 0) << replay.err;
    EXPECT_EQ(replay.out, "\"Rain gauges (mm)\": 4 variables, 1 zone, 4 points\n");
    EXPECT_EQ(readFile(scratch / "replay.json"), readFile(expectedDir / "rain_gauges.json"));
    EXPECT_EQ(readFile(scratch / "again.json"), readFile(layout));
}

/* Several loads, the loader named in any case: an array in their order. */
TEST(Examples, ReplayOfSeveralLoadsGivesTheirDataInOrder)
{
    ScratchDir scratch;
    std::string layout = (scratch / "layout.json").string();
    writeFile(layout, R"({"corvaneLayout": 1, "loads": [{"loader": "Ordalis Loader", "strings": )"
                      R"(["surface_grid.txt", "CONFIGFNAME=\"surface_grid.twc\""]}, {"loader": )"
                      R"("ordalis loader", "strings": ["cooling_curve.txt", )"
                      R"("CONFIGFNAME=\"cooling_curve.twc\""]}]})");
    Result replay = runCorvane({"replay", layout, "-o", (scratch / "both.json").string(), "-o",
                                (scratch / "both.csv").string()},
                               examplesDir);
    EXPECT_EQ(replay.status, 0);
    EXPECT_EQ(replay.out, "\"Surface height on a 3 x 2 grid\": 3 variables, 1 zone, 6 points\n"
                          "\"Cooling curve of sample A\": 2 variables, 1 zone, 5 points\n");
    EXPECT_EQ(json::parse(readFile(scratch / "both.json")),
              json({json::parse(readFile(expectedDir / "surface_grid.json")),
                    json::parse(readFile(expectedDir / "cooling_curve.json"))}));
    EXPECT_EQ(readFile(scratch / "both.csv"),
              "I,J,h\n1,1,1.5\n2,1,1.75\n3,1,2\n1,2,2.25\n2,2,2.5\n3,2,3\n\n"
              "time,temperature\n0,95.5\n60,81.25\n120,70\n180,61.75\n240,55.5\n");
}

TEST(RealData, InstructionSetsReadTheRealFiles)
{
    struct Case {
        const char *file, *set, *title;
        std::vector<std::string> variables;
        size_t imax;
        std::vector<double> first, last; /* rows: one value per variable */
    };
    const Case cases[] = {
        {"nist_nelson_crlf.dat", "nist_nelson.twc", "NIST/ITL StRD", {"y", "x1", "x2"}, 128,
         {15, 1, 180}, {1.2, 64, 275}},
        {"airfoil_naca23012_selig.dat", "naca23012.twc", "NACA 23012  12%", {"x", "y"}, 61,
         {1.00003, 0.00126}, {0.99997, -0.00126}},
        {"xfoil_polar_naca4412_re500k.txt", "xfoil_polar.twc", "Calculated polar for: NACA 4412",
         {"alpha", "CL", "CD"}, 119, {-12.25, -0.8284, 0.04176}, {17.25, 1.4987, 0.08538}},
        {"nasa_gistemp_global_means.csv", "gistemp.twc", "Land-Ocean: Global Means",
         {"Year", "J-D"}, 143, {1880, -0.17}, {2022, -999}},
        {"noaa_co2_mm_mlo_2018.txt", "co2_mlo.twc", "Mauna Loa CO2 monthly means",
         {"decimal date", "interpolated"}, 719, {1958.208, 315.71}, {2018.042, 407.98}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.file);
        ScratchDir scratch;
        /* From the top of the repository, as the README runs them. */
        Result run = runCorvane({"load", std::string("tests/data/realdata/") + c.file, "--set",
                                 std::string("examples/realdata/") + c.set, "-o",
                                 (scratch / "out.json").string()},
                                sourceDir);
        EXPECT_EQ(run.status, 0) << run.err;
        if (run.status != 0)
            continue;
        json doc = json::parse(readFile(scratch / "out.json"));
        EXPECT_EQ(doc["title"], c.title);
        EXPECT_EQ(doc["variables"], json(c.variables));
        EXPECT_EQ(doc["zones"][0]["imax"], c.imax);
        std::vector<double> first, last;
        for (const json &values : doc["zones"][0]["values"]) {
            first.push_back(values.front().get<double>());
            last.push_back(values.back().get<double>());
        }
        EXPECT_EQ(first, c.first);
        EXPECT_EQ(last, c.last);
    }
}
