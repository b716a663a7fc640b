// The data sets as the page reads them: table rows, plot data made small for a plot
// of a given width (exact values), and exports equal to corvane load -o.
#include <cstring>
#include <string>
#include <vector>

#include "AddOns.h"
#include "ServerFixture.h"

using namespace servertest;
namespace fs = std::filesystem;

namespace {

struct Plot {
    std::uint32_t magic = 0, kind = 0;
    std::vector<std::vector<float>> series;
};

/* The binary plot data read back. */
Plot readPlot(const std::string &body)
{
    auto word = [&](std::size_t at) {
        std::uint32_t value = 0;
        for (int byte = 3; byte >= 0; --byte)
            value = value << 8 | static_cast<unsigned char>(body.at(at + std::size_t(byte)));
        return value;
    };
    Plot plot{word(0), word(4), {}};
    std::uint32_t count = word(8), points = word(12);
    EXPECT_EQ(body.size(), 16 + 4ull * count * points);
    for (std::uint32_t s = 0; s < count; ++s) {
        plot.series.emplace_back();
        for (std::uint32_t p = 0; p < points; ++p) {
            std::uint32_t bits = word(16 + 4 * (s * points + p));
            float value;
            std::memcpy(&value, &bits, sizeof value);
            plot.series.back().push_back(value);
        }
    }
    return plot;
}

} // namespace

TEST_F(ServerTest, PlotDataIsDecimatedSampledOrReduced)
{
    startHost();
    /* 0: XY lines, ten points over x 0..9; 1: the same without a plot type and
       a NaN; 2: a 4 x 3 grid of h; 3: a 2-D scatter. */
    loadValues("plot=3;x=0,1,2,3,4,5,6,7,8,9;y=5,1,4,1,5,9,2,6,5,3;z=0,0,0,0,0,0,0,0,0,-1");
    loadValues("x=3,2,1;y=1,nan,2");
    loadValues("grid=4x3;h=1,2,3,4,5,6,7,8,9,10,11,12");
    loadValues("plot=2;x=1,2,3;y=4,5,6;z=7,8,9");

    /* Width 2: x 0..4 in the first column, 5..9 in the second (x 9 at its edge);
       each variable's minimum and maximum in the order they come. */
    Plot xy = readPlot(get("/api/datasets/0/plot?width=2").body);
    EXPECT_EQ(xy.magic, 0x43565031u);
    EXPECT_EQ(xy.kind, 3u);
    EXPECT_EQ(xy.series, (std::vector<std::vector<float>>{
                             {0, 4, 5, 9}, {5, 1, 9, 2}, {0, 0, 0, -1}}));
    /* Width 3: columns x < 3, 3 <= x < 6, x >= 6. */
    EXPECT_EQ(readPlot(get("/api/datasets/0/plot?width=3").body).series,
              (std::vector<std::vector<float>>{
                  {0, 2, 3, 5, 6, 9}, {5, 1, 1, 9, 2, 6}, {0, 0, 0, 0, 0, -1}}));
    /* Width 5 or more: at most two points a column fits the ten points as they are. */
    Plot whole = readPlot(get("/api/datasets/0/plot?width=5").body);
    EXPECT_EQ(whole.series[1], (std::vector<float>{5, 1, 4, 1, 5, 9, 2, 6, 5, 3}));

    Plot unordered = readPlot(get("/api/datasets/1/plot").body);
    EXPECT_EQ(unordered.kind, 3u);
    EXPECT_EQ(unordered.series[0], (std::vector<float>{3, 2, 1}));
    EXPECT_TRUE(std::isnan(unordered.series[1][1]));

    /* The 4 x 3 grid in 2 x 2 cells: blocks of I {1,2},{3,4} and J {1},{2,3}. */
    Plot grid = readPlot(get("/api/datasets/2/plot?width=2&height=2").body);
    EXPECT_EQ(grid.kind, 2u);
    EXPECT_EQ(grid.series, (std::vector<std::vector<float>>{
                               {1.5, 3.5, 1.5, 3.5}, {1, 1, 2.5, 2.5}, {1.5, 3.5, 7.5, 9.5}}));
    EXPECT_EQ(readPlot(get("/api/datasets/2/plot").body).series[2].size(), 12u)
        << "a grid smaller than the plot is sent whole";

    Plot scatter = readPlot(get("/api/datasets/3/plot").body);
    EXPECT_EQ(scatter.kind, 2u);
    EXPECT_EQ(scatter.series, (std::vector<std::vector<float>>{{1, 2, 3}, {4, 5, 6}}));

    const std::tuple<const char *, int, std::string> wrong[] = {
        {"/api/datasets/4/plot", 404, "there is no data set 4"},
        {"/api/datasets/0/plot?zone=2", 404, "data set 0 has no zone 2"},
        {"/api/datasets/0/plot?width=0", 400, "width must be a whole number from 1"},
        {"/api/datasets/0/table?rows=-1", 400, "rows must be a whole number from 0"},
        {"/api/datasets/x/plot", 404, "no such page: /api/datasets/x/plot"},
        {"/api/datasets/0/chart", 404, "no such page: /api/datasets/0/chart"},
    };
    for (const auto &[target, status, error] : wrong) {
        Response response = get(target);
        EXPECT_EQ(response.status, status) << target;
        EXPECT_EQ(json::parse(response.body), json({{"error", error}})) << target;
    }
}

TEST_F(ServerTest, TableRowsAreTheFirstPoints)
{
    startHost();
    loadValues("title=T;x=1,2,3,4;y=0.5,nan,inf,-2");
    EXPECT_EQ(get("/api/datasets/0/check").body,
              R"({"error":"data set 0 was not loaded by the Ordalis Loader: there is nothing to check"})");
    EXPECT_EQ(get("/api/datasets/0/table").body,
              R"({"variables":["x","y"],"rows":[[1.0,0.5],[2.0,null],[3.0,null],[4.0,-2.0]]})");
    EXPECT_EQ(get("/api/datasets/0/table?rows=2&zone=1").body,
              R"({"variables":["x","y"],"rows":[[1.0,0.5],[2.0,null]]})");
}

TEST_F(ServerTest, ExportsAndTheLayoutAreThoseOfTheCommandLine)
{
    testfiles::ScratchDir scratch;
    fs::path library = scratch / "library";
    fs::create_directory(library);
    fs::copy_file(testfiles::examplesDir / "surface_grid.twc", library / "surface_grid.twc");
    ::setenv("ORDALIS_DIR", library.c_str(), 1);
    std::string data = (testfiles::examplesDir / "surface_grid.txt").string();
    startHost(corvane::host::defaultAddOnPath(), data);
    openDialog("Ordalis Loader");
    EXPECT_TRUE(textOf("FileName:").ends_with("surface_grid.txt")) << textOf("FileName:");
    int list = control("Config Files:");
    ASSERT_EQ(act({{"type", "select"}, {"control", list}, {"items", {2}}}).first, 200);
    ASSERT_EQ(act({{"type", "dialogButton"}, {"dialog", topDialog()}, {"button", "ok"}}).first, 200);
    ASSERT_EQ(state()["dataSets"].size(), 1u);
    EXPECT_EQ(json::parse(get("/api/datasets/0/check").body)["text"],
              data + ": nothing found where the loaded numbers may differ from the file\n");

    Response csv = get("/api/datasets/0/export.csv");
    Response exported = get("/api/datasets/0/export.json");
    EXPECT_EQ(csv.header("Content-Type"), "text/csv; charset=utf-8");
    EXPECT_EQ(csv.header("Content-Disposition"),
              "attachment; filename=\"Surface_height_on_a_3_x_2_grid.csv\"");
    EXPECT_EQ(exported.header("Content-Disposition"),
              "attachment; filename=\"Surface_height_on_a_3_x_2_grid.json\"");
    fs::path layout = scratch / "run.layout";
    EXPECT_EQ(post("/api/layout", {{"path", layout.string()}}).status, 200);
    EXPECT_EQ(post("/api/layout", {{"path", "/dev/null"}}).body,
              R"({"error":"/dev/null is not a plain file"})");

    testfiles::Result load = testfiles::runCorvane(
        {"load", data, "--set", (library / "surface_grid.twc").string(), "-q", "-o",
         (scratch / "load.csv").string(), "-o", (scratch / "load.json").string()},
        scratch.path());
    ASSERT_EQ(load.status, 0) << load.err;
    EXPECT_EQ(csv.body, testfiles::readFile(scratch / "load.csv"));
    json fromPage = json::parse(exported.body);
    json fromCommand = json::parse(testfiles::readFile(scratch / "load.json"));
    /* The dialog passes the plot type it chose and stores the set itself. */
    EXPECT_EQ(fromPage["plotType"], 2);
    for (json *set : {&fromPage, &fromCommand}) {
        set->erase("plotType");
        set->erase("loaderInstructions");
    }
    EXPECT_EQ(fromPage, fromCommand);

    /* The layout replays to the same data. */
    testfiles::Result replay = testfiles::runCorvane(
        {"replay", layout.string(), "-q", "-o", (scratch / "replay.json").string()}, scratch.path());
    ASSERT_EQ(replay.status, 0) << replay.err;
    json replayed = json::parse(testfiles::readFile(scratch / "replay.json"));
    json page = json::parse(exported.body);
    EXPECT_EQ(replayed["loaderInstructions"], page["loaderInstructions"]);
    replayed.erase("plotType");
    replayed.erase("loaderInstructions");
    EXPECT_EQ(replayed, fromCommand);
    ::unsetenv("ORDALIS_DIR");
}

/* The page shows the check of each load: the report corvane check prints,
   with the lines where the user stopped taking malformed values. */
TEST_F(ServerTest, TheCheckOfALoadIsTheReportOfCorvaneCheck)
{
    testfiles::ScratchDir scratch;
    fs::path library = scratch / "library";
    fs::create_directory(library);
    testfiles::writeFile(library / "asked.twc",
                         "#!CORVANE_TABWISE\nVARIABLES { SEARCH = LINE STARTLINE = 1 ENDLINE = 1 } DATA { "
                         "IGNORENONNUMERICTOKENS = FALSE IMPORT { STARTID = FIRSTNUMERICLINE { } "
                         "ENDID = EOF { } } } GLOBALFILTERS { BLANKCELLVALUE = -999 }");
    fs::path data = scratch / "asked.txt";
    testfiles::writeFile(data, "a b c\n1 2 3\n4 x 6\n7 y 9\n");
    ::setenv("ORDALIS_DIR", library.c_str(), 1);
    startHost(corvane::host::defaultAddOnPath(), data.string());
    openDialog("Ordalis Loader");
    ASSERT_EQ(act({{"type", "select"}, {"control", control("Config Files:")}, {"items", {2}}}).first,
              200);
    auto pressed = actLater({{"type", "dialogButton"}, {"dialog", topDialog()}, {"button", "ok"}});
    /* The dialog's load asks about lines 3 and 4 in its scan, and again in
       the loader's: No for line 3 (stop there), Yes for line 4. */
    const std::string asks = "Possible malformed numeric data values were found on line ";
    std::vector<std::string> asked;
    while (pressed.wait_for(std::chrono::milliseconds(10)) != std::future_status::ready) {
        json box = state()["box"];
        if (box.is_null())
            continue;
        std::string text = box["text"].get<std::string>();
        std::string line = text.starts_with(asks) ? text.substr(asks.size(), 1) : text;
        asked.push_back(line);
        post("/api/box", {{"id", box["id"]}, {"answer", line != "3"}});
    }
    EXPECT_EQ(asked, (std::vector<std::string>{"3", "4", "3", "4"}));
    ASSERT_EQ(pressed.get().first, 200);
    ASSERT_EQ(state()["dataSets"].size(), 1u);

    json report = json::parse(get("/api/datasets/0/check").body);
    EXPECT_EQ(report["found"], 4);
    EXPECT_EQ(report["text"],
              data.string() + ": 4 places where the loaded numbers may differ from the file\n"
              "tokens that are not numbers: 2\n"
              "  line 3, column 3: \"x\" is not a number: dropped; the rest of the line was not "
              "read (the question about it was answered No)\n"
              "  line 4, column 3: \"y\" is not a number: dropped; the value after it moved left\n"
              "rows with fewer or more values than variables: 2\n"
              "  line 3: 1 value for 3 variables: variables 2-3 got the blank value -999\n"
              "  line 4: 2 values for 3 variables: variable 3 got the blank value -999\n");
    EXPECT_EQ(report["places"].size(), 4u);
    ::unsetenv("ORDALIS_DIR");
}
