// The JSON and CSV writers, layouts and the all-or-nothing output file, on
// data sets built in code: exact texts.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
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

namespace {

host::Field field(FieldDataType_e type, std::vector<double> values)
{
    host::Field f(type, values.size());
    for (size_t i = 0; i < values.size(); ++i)
        f.set(i, values[i]);
    return f;
}

/* Two variables (one name needs quoting in CSV), one 3x1x1 zone. */
host::DataSet smallSet()
{
    host::DataSet set;
    set.loaderName = "Ordalis Loader";
    set.title = "Run \"7\"";
    set.variables = {"t", "p, kPa"};
    host::Zone zone{"Zone 1", 3, 1, 1, {}};
    zone.fields.push_back(field(FieldDataType_Double, {0, 0.1, 1e20}));
    zone.fields.push_back(field(FieldDataType_Double, {-2.5, std::nan(""), -0.0}));
    set.zones.push_back(std::move(zone));
    set.loaderInstructions = host::LoaderInstructions{"Ordalis Loader", {"d.txt", "CONFIGFNAME=\"s.twc\""}};
    return set;
}

/* One variable with I, J indices: two zones of 2x1x1 and 1x2x1. */
host::DataSet gridSet()
{
    host::DataSet set;
    set.title = "grid";
    set.variables = {"I", "J", "h"};
    set.initialPlotType = 2;
    host::Zone a{"Zone 1", 2, 1, 1, {}};
    a.fields.push_back(field(FieldDataType_Byte, {1, 2}));
    a.fields.push_back(field(FieldDataType_Int16, {1, 1}));
    a.fields.push_back(field(FieldDataType_Double, {0.5, 1.5}));
    host::Zone b{"Zone 2", 1, 2, 1, {}};
    b.fields.push_back(field(FieldDataType_Byte, {1, 1}));
    b.fields.push_back(field(FieldDataType_Int32, {1, 2}));
    b.fields.push_back(field(FieldDataType_Double, {std::numeric_limits<double>::infinity(), 3}));
    set.zones.push_back(std::move(a));
    set.zones.push_back(std::move(b));
    return set;
}

/* The data sets, moved into a list (data sets cannot be copied). */
template <typename... Sets> std::vector<host::DataSet> listOf(Sets... sets)
{
    std::vector<host::DataSet> list;
    (list.push_back(std::move(sets)), ...);
    return list;
}

template <typename Writer> std::string written(Writer writer)
{
    char *buffer = nullptr;
    size_t size = 0;
    std::FILE *out = open_memstream(&buffer, &size);
    writer(out);
    std::fclose(out);
    std::string text(buffer, size);
    std::free(buffer);
    return text;
}

} // namespace

TEST(Outputs, NumbersInShortestRoundTripForm)
{
    const double inf = std::numeric_limits<double>::infinity();
    const std::pair<double, std::optional<std::string>> doubles[] = {
        {0.1, "0.1"}, {1.0 / 3.0, "0.3333333333333333"}, {-1e-5, "-1e-05"},
        {123456789012.0, "123456789012"}, {std::nan(""), std::nullopt}, {-inf, std::nullopt}};
    for (const auto &[value, text] : doubles)
        EXPECT_EQ(numberText(value, FieldDataType_Double), text) << value;
    EXPECT_EQ(numberText(-32768.0, FieldDataType_Int16), "-32768");
}

TEST(Outputs, JsonOfOneDataSetIsAnObject)
{
    host::DataSet set = smallSet();
    EXPECT_EQ(written([&](std::FILE *out) { writeJson(out, std::span(&set, 1)); }),
              R"({
  "title": "Run \"7\"",
  "variables": ["t", "p, kPa"],
  "plotType": null,
  "zones": [
    {
      "name": "Zone 1",
      "imax": 3,
      "jmax": 1,
      "kmax": 1,
      "fieldTypes": ["double", "double"],
      "values": [
        [0, 0.1, 1e+20],
        [-2.5, null, -0]
      ]
    }
  ],
  "loaderInstructions": {
    "loader": "Ordalis Loader",
    "strings": ["d.txt", "CONFIGFNAME=\"s.twc\""]
  }
}
)");
}

TEST(Outputs, JsonOfSeveralDataSetsIsAnArray)
{
    host::DataSet empty;
    empty.title = "bad\xff name\n";
    std::vector<host::DataSet> sets = listOf(gridSet(), std::move(empty));
    EXPECT_EQ(written([&](std::FILE *out) { writeJson(out, sets); }),
              R"([
  {
    "title": "grid",
    "variables": ["I", "J", "h"],
    "plotType": 2,
    "zones": [
      {
        "name": "Zone 1",
        "imax": 2,
        "jmax": 1,
        "kmax": 1,
        "fieldTypes": ["byte", "int16", "double"],
        "values": [
          [1, 2],
          [1, 1],
          [0.5, 1.5]
        ]
      },
      {
        "name": "Zone 2",
        "imax": 1,
        "jmax": 2,
        "kmax": 1,
        "fieldTypes": ["byte", "int32", "double"],
        "values": [
          [1, 1],
          [1, 2],
          [null, 3]
        ]
      }
    ],
    "loaderInstructions": null
  },
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

TEST(Outputs, CsvRowsPerPointWithZoneColumnAndQuoting)
{
    host::DataSet set = smallSet();
    EXPECT_EQ(written([&](std::FILE *out) { writeCsv(out, std::span(&set, 1)); }),
              "t,\"p, kPa\"\n"
              "0,-2.5\n"
              "0.1,\n"
              "1e+20,-0\n");

    std::vector<host::DataSet> sets = listOf(gridSet(), smallSet());
    sets[0].variables = {"I", "J", "say \"hi\"\nnow"};
    EXPECT_EQ(written([&](std::FILE *out) { writeCsv(out, sets); }),
              "zone,I,J,\"say \"\"hi\"\"\nnow\"\n"
              "1,1,1,0.5\n"
              "1,2,1,1.5\n"
              "2,1,1,\n"
              "2,1,2,3\n"
              "\n"
              "t,\"p, kPa\"\n"
              "0,-2.5\n"
              "0.1,\n"
              "1e+20,-0\n");
    EXPECT_EQ(csvCell("plain"), "plain");
    EXPECT_EQ(asUtf8("25 \xb0""C, \xe2\x82\xac 3, cut \xe2\x82"), "25 \xc2\xb0""C, \xe2\x82\xac 3, cut \xc3\xa2\xc2\x82");
    EXPECT_EQ(csvCell("cr\rhere"), "\"cr\rhere\"");
}

TEST(Outputs, LayoutWritesTheStoredLoadsAndReadsThemBack)
{
    std::vector<host::DataSet> sets = listOf(smallSet(), gridSet(), smallSet());
    sets[2].loaderInstructions->strings = {"e.txt", "VERSION = 100\nTITLE { }"};
    std::string text = written([&](std::FILE *out) { writeLayout(out, sets); });
    EXPECT_EQ(text, R"({
  "corvaneLayout": 1,
  "loads": [
    {
      "loader": "Ordalis Loader",
      "strings": [
        "d.txt",
        "CONFIGFNAME=\"s.twc\""
      ]
    },
    {
      "loader": "Ordalis Loader",
      "strings": [
        "e.txt",
        "VERSION = 100\nTITLE { }"
      ]
    }
  ]
}
)");
    auto loads = parseLayout(text);
    ASSERT_TRUE(loads) << loads.error();
    ASSERT_EQ((*loads).size(), 2u);
    EXPECT_EQ((*loads)[0], *sets[0].loaderInstructions);
    EXPECT_EQ((*loads)[1], *sets[2].loaderInstructions);
}

TEST(Outputs, LayoutReaderRefusesWhatIsNotALayout)
{
    struct Case {
        const char *text;
        const char *error;
    };
    const Case cases[] = {
        {"", "not a corvane layout (not JSON)"},
        {"[1, 2]", "not a corvane layout (no \"corvaneLayout\" entry)"},
        {R"({"corvaneLayout": 2, "loads": []})", "unsupported corvane layout version 2"},
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
    for (const auto &c : cases) {
        SCOPED_TRACE(c.text);
        auto loads = parseLayout(c.text);
        ASSERT_FALSE(loads);
        EXPECT_EQ(loads.error(), c.error);
    }
    auto missing = readLayout("/nonexistent/layout.json");
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error(), "cannot read layout /nonexistent/layout.json: No such file or directory");
}

TEST(Outputs, OutputFileAppearsOnlyWhenCommitted)
{
    ScratchDir dir;
    std::string target = (dir / "out.json").string();
    {
        auto file = OutputFile::create(target);
        ASSERT_TRUE(file) << file.error();
        std::fputs("partial", (*file).stream());
        ASSERT_EQ(dir.entries().size(), 1u);
        EXPECT_EQ(dir.entries()[0].rfind("out.json.tmp-", 0), 0u);
    } // never committed: removed
    EXPECT_TRUE(dir.entries().empty());

    writeFile(target, "old");
    {
        auto file = OutputFile::create(target);
        ASSERT_TRUE(file);
        EXPECT_EQ(readFile(target), "old");
        std::fputs("new", (*file).stream());
        EXPECT_TRUE((*file).commit());
    }
    EXPECT_EQ(dir.entries(), std::vector<std::string>{"out.json"});
    EXPECT_EQ(readFile(target), "new");

    auto nowhere = OutputFile::create((dir / "missing" / "x.csv").string());
    ASSERT_FALSE(nowhere);
    EXPECT_EQ(nowhere.error(),
              "cannot write " + (dir / "missing" / "x.csv").string() + ": No such file or directory");
}
