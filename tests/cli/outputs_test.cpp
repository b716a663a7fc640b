// The JSON and CSV writers, layouts and the all-or-nothing output file, on
// data sets built in code: exact texts.
#include <cmath>
#include <cstdio>
#include <regex>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "DataOutput.h"
#include "Layout.h"
#include "NumberText.h"
#include "OutputFile.h"
#include "TestFiles.h"

using namespace corvane;
using namespace corvane::cli;
using namespace testfiles;

/* A zone of points along I holding one field of type per list of values. */
static host::Zone zone(const char *name, FieldDataType_e type,
                       const std::vector<std::vector<double>> &fields)
{
    host::Zone zone{name, static_cast<LgIndex_t>(fields[0].size()), 1, 1, {}};
    for (const std::vector<double> &values : fields) {
        zone.fields.emplace_back(type, values.size());
        zone.fields.back().prepare();
        for (size_t i = 0; i < values.size(); ++i)
            zone.fields.back().set(i, values[i]);
    }
    return zone;
}

/* Two variables (one quoted in CSV), one zone of 2 points, loader instructions. */
static host::DataSet smallSet()
{
    host::DataSet set;
    set.title = "Run \"7\"";
    set.variables = {"t", "p, kPa"};
    set.zones.push_back(zone("Zone 1", FieldDataType_Double, {{0.1, 1e20}, {std::nan(""), -0.0}}));
    set.loaderInstructions = host::LoaderInstructions{"Ordalis Loader", {"d.txt", "X=\"s\""}};
    return set;
}

/* What writer wrote to its stream. */
template <typename Writer> static std::string written(Writer writer)
{
    std::FILE *out = std::tmpfile();
    writer(out);
    return drain(out);
}

TEST(Outputs, NumbersInShortestRoundTripForm)
{
    const std::pair<double, std::optional<std::string>> doubles[] = {
        {0.1, "0.1"}, {1.0 / 3.0, "0.3333333333333333"}, {-1e-5, "-1e-05"},
        {123456789012.0, "123456789012"}, {std::nan(""), std::nullopt}, {-HUGE_VAL, std::nullopt}};
    for (const auto &[value, text] : doubles)
        EXPECT_EQ(numberText(value, FieldDataType_Double), text) << value;
    EXPECT_EQ(numberText(-32768.0, FieldDataType_Int16), "-32768");
}

TEST(Outputs, JsonIsAnObjectForOneDataSetAndAnArrayForSeveral)
{
    std::vector<host::DataSet> sets(2);
    sets[0] = smallSet();
    sets[0].initialPlotType = 2;
    sets[1].title = "bad\xff name\n";
    const std::string object = written([&](std::FILE *out) { writeJson(out, {sets.data(), 1}); });
    EXPECT_EQ(object, R"({
  "title": "Run \"7\"",
  "variables": ["t", "p, kPa"],
  "plotType": 2,
  "zones": [
    {
      "name": "Zone 1",
      "imax": 2,
      "jmax": 1,
      "kmax": 1,
      "fieldTypes": ["double", "double"],
      "values": [
        [0.1, 1e+20],
        [null, -0]
      ]
    }
  ],
  "loaderInstructions": {
    "loader": "Ordalis Loader",
    "strings": ["d.txt", "X=\"s\""]
  }
}
)");

    // Several: an array of the same objects, indented by two.
    std::string nested = std::regex_replace(object.substr(0, object.size() - 1), std::regex("\n"),
                                            "\n  ");
    EXPECT_EQ(written([&](std::FILE *out) { writeJson(out, sets); }), "[\n  " + nested + R"(,
  {
    "title": "badÿ name\n",
    "variables": [],
    "plotType": null,
    "zones": [],
    "loaderInstructions": null
  }
]
)");
    EXPECT_EQ(written([&](std::FILE *out) { writeJson(out, {}); }), "[]\n");
}

TEST(Outputs, CsvAndLayoutOfTheSameDataSets)
{
    std::vector<host::DataSet> sets(2); // two zones and no loader instructions; smallSet()
    sets[0].variables = {"h"};
    sets[0].zones.push_back(zone("Zone 1", FieldDataType_Byte, {{1}}));
    sets[0].zones.push_back(zone("Zone 2", FieldDataType_Double, {{HUGE_VAL}}));
    sets[1] = smallSet();
    EXPECT_EQ(written([&](std::FILE *out) { writeCsv(out, sets); }),
              "zone,h\n1,1\n2,\n\nt,\"p, kPa\"\n0.1,\n1e+20,-0\n");

    std::string layout = written([&](std::FILE *out) { writeLayout(out, sets); });
    EXPECT_EQ(layout, R"({
  "corvaneLayout": 1,
  "loads": [
    {
      "loader": "Ordalis Loader",
      "strings": [
        "d.txt",
        "X=\"s\""
      ]
    }
  ]
}
)");
    EXPECT_EQ(parseLayout(layout).value(),
              std::vector<host::LoaderInstructions>{*sets[1].loaderInstructions});
}

/* Quoted as RFC 4180 says; bytes that are not UTF-8 read as Latin-1. */
TEST(Outputs, CsvCellsAndTextsAsUtf8)
{
    EXPECT_EQ(csvCell("say \"hi\"\nnow"), "\"say \"\"hi\"\"\nnow\"");
    EXPECT_EQ(csvCell("cr\rhere"), "\"cr\rhere\"");
    EXPECT_EQ(asUtf8("25 \xb0""C, \xe2\x82\xac 3, cut \xe2\x82"),
              "25 \xc2\xb0""C, \xe2\x82\xac 3, cut \xc3\xa2\xc2\x82");
}

TEST(Outputs, LayoutReaderRefusesWhatIsNotALayout)
{
    const std::pair<const char *, const char *> cases[] = {
        {"", "not a corvane layout (not JSON)"},
        {"[1, 2]", "not a corvane layout (no \"corvaneLayout\" entry)"},
        {R"({"corvaneLayout": "1"})", "unsupported corvane layout version \"1\""},
        {R"({"corvaneLayout": 1})", "not a corvane layout (no \"loads\" list)"},
        {R"({"corvaneLayout": 1, "loads": []})", "the layout holds no loads"},
        {R"({"corvaneLayout": 1, "loads": [{"strings": []}]})",
         "load 1 of the layout has no loader name"},
        {R"({"corvaneLayout": 1, "loads": [{"loader": "L", "strings": []}, {"loader": "L"}]})",
         "load 2 of the layout has no strings"},
        {R"({"corvaneLayout": 1, "loads": [{"loader": "L", "strings": ["a", 3]}]})",
         "load 1 of the layout holds a string that is not text"},
    };
    for (const auto &[layout, error] : cases) // error() throws on a success
        EXPECT_EQ(parseLayout(layout).error(), error) << layout;
    EXPECT_EQ(readLayout("/nonexistent/layout.json").error(),
              "cannot read layout /nonexistent/layout.json: No such file or directory");
}

/* Written beside the target: until the commit the old file stays, and an
   uncommitted file is removed. */
TEST(Outputs, OutputFileAppearsOnlyWhenCommitted)
{
    for (bool commit : {false, true}) {
        ScratchDir dir;
        std::string target = (dir / "out.json").string();
        writeFile(target, "old");
        {
            auto file = OutputFile::create(target);
            ASSERT_TRUE(file) << file.error();
            std::fputs("new", (*file).stream());
            EXPECT_EQ(readFile(target), "old") << commit;
            if (commit) {
                EXPECT_TRUE((*file).commit());
            }
        }
        EXPECT_EQ(dir.entries(), std::vector<std::string>{"out.json"}) << commit;
        EXPECT_EQ(readFile(target), commit ? "new" : "old");
    }
}

TEST(Outputs, AnOutputInAMissingFolderIsRefused)
{
    ScratchDir dir;
    std::string nowhere = (dir / "missing" / "x.csv").string();
    EXPECT_EQ(OutputFile::create(nowhere).error(),
              "cannot write " + nowhere + ": No such file or directory");
}
