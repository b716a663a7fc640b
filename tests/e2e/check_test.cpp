// corvane check run as a user runs it: small files made for each kind of
// place where a load may be silently wrong, with the exact report; the
// clean examples, which give none; JSON; failed loads and usage errors.
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "CorvaneRun.h"

using namespace testfiles;
using nlohmann::json;

namespace {

/* Names from line 1 (blank-separated), data from the first numeric line to
   the end, then what follows. */
std::string namesOnLine1(const std::string &data, const std::string &more = "")
{
    return "VARIABLES { SEARCH = LINE STARTLINE = 1 ENDLINE = 1 } DATA { IMPORT { STARTID = "
           "FIRSTNUMERICLINE { } ENDID = EOF { } " +
           data + " } " + more + " }";
}

const std::string blank999 = " GLOBALFILTERS { BLANKCELLVALUE = -999 }";

struct CheckCase {
    std::string file, text, instructions;
    std::vector<std::string> options;
    std::string report; /* standard output after the summary line of the load */
};

/* Runs each case in a fresh folder: status 3 and the exact report. */
void expectReports(const std::vector<CheckCase> &cases)
{
    for (const auto &c : cases) {
        SCOPED_TRACE(c.file);
        ScratchDir scratch;
        writeFile(scratch / c.file, c.text);
        std::vector<std::string> args{"check", c.file, "--instructions", c.instructions, "-q"};
        args.insert(args.end(), c.options.begin(), c.options.end());
        Result run = runCorvane(args, scratch.path());
        EXPECT_EQ(run.status, 3) << run.err;
        EXPECT_EQ(run.out.substr(run.out.find('\n') + 1), c.report);
    }
}

} // namespace

TEST(Check, TokensThatAreNoNumbersAndWhatBecameOfTheValuesAfterThem)
{
    expectReports({
        {"nan.txt", "a b c\n1 2 3\n4 NaN 6\n7 8 9\n10 --- 12\n13 MM\nNaN NaN NaN\n16 17 18\n",
         namesOnLine1("DELIMITER = SPACE") + blank999, {},
         "nan.txt: 7 places where the loaded numbers may differ from the file\n"
         "tokens that are not numbers: 4\n"
         "  line 3, column 3: \"NaN\" is not a number: dropped; the value after it moved left\n"
         "  line 5, column 4: \"---\" is not a number: dropped; the value after it moved left\n"
         "  line 6, column 4: \"MM\" is not a number: dropped; no value came after it\n"
         "  line 7: none of its 3 tokens is a number: the row was skipped\n"
         "rows with fewer or more values than variables: 3\n"
         "  line 3: 2 values for 3 variables: variable 3 got the blank value -999\n"
         "  line 5: 2 values for 3 variables: variable 3 got the blank value -999\n"
         "  line 6: 1 value for 3 variables: variables 2-3 got the blank value -999\n"},
        /* Asked about the malformed value of line 3 and told No: the rest
           of that line is not read. */
        {"asked.txt", "a b c\n1 2 3\n4 x 6\n7 y 9\n",
         "VARIABLES { SEARCH = LINE STARTLINE = 1 ENDLINE = 1 } DATA { IGNORENONNUMERICTOKENS = "
         "FALSE IMPORT { STARTID = FIRSTNUMERICLINE { } ENDID = EOF { } } }" + blank999,
         {"--answers", "n,y"},
         "asked.txt: 4 places where the loaded numbers may differ from the file\n"
         "tokens that are not numbers: 2\n"
         "  line 3, column 3: \"x\" is not a number: dropped; the rest of the line was not read "
         "(the question about it was answered No)\n"
         "  line 4, column 3: \"y\" is not a number: dropped; the value after it moved left\n"
         "rows with fewer or more values than variables: 2\n"
         "  line 3: 1 value for 3 variables: variables 2-3 got the blank value -999\n"
         "  line 4: 2 values for 3 variables: variable 3 got the blank value -999\n"},
    });
}

TEST(Check, NumbersReadOnlyInPart)
{
    const std::string cells =
        "VARIABLES { SEARCH = LINE STARTLINE = 1 ENDLINE = 1 DELIMITER = SEMICOLON } DATA { "
        "IMPORT { STARTID = FIRSTNUMERICLINE { } ENDID = EOF { } DELIMITER = SEMICOLON } }" +
        blank999;
    expectReports({
        /* A D in line 2 makes it no numeric line: the data start at line 2 by number. */
        {"tokens.txt", "x y z\n1 1.5D-03 3\n2 - 4\n(2 3 4)\n5 6 7\n",
         "VARIABLES { SEARCH = LINE STARTLINE = 1 ENDLINE = 1 } DATA { IMPORT { STARTID = LINE { "
         "LINE = 2 } ENDID = EOF { } DELIMITER = SPACE } }" + blank999,
         {},
         "tokens.txt: 5 places where the loaded numbers may differ from the file\n"
         "numbers read only in part: 4\n"
         "  line 2, column 3: \"1.5D-03\" was read as 1.5: a D exponent is not read (it means "
         "0.0015)\n"
         "  line 3, column 3: a lone \"-\" was read as 0\n"
         "  line 4, column 1: \"(2\" was not read (a number with a bracket or %); the value after "
         "it moved left\n"
         "  line 4, column 6: \"4)\" was not read (a number with a bracket or %); no value came "
         "after it\n"
         "rows with fewer or more values than variables: 1\n"
         "  line 4: 1 value for 3 variables: variables 2-3 got the blank value -999\n"},
        {"cells.txt", "a;b;c\n1;4 3;2\n2;0,914;3\n3;\"0.30\";4\n4;5;6\n", cells, {},
         "cells.txt: 3 places where the loaded numbers may differ from the file\n"
         "numbers read only in part: 3\n"
         "  line 2, column 3: \"4 3\" was read as 4: only the first number of a cell is read\n"
         "  line 3, column 3: \"0,914\" was read as the blank value -999 (a decimal comma)\n"
         "  line 4, column 3: \"0.30\" was read as the blank value -999 (a number in quotes)\n"},
        /* The automatic delimiter cuts a decimal comma into two values. */
        {"comma.txt", "a b\n0,914 1,5\n2 3\n4 5\n",
         namesOnLine1("DELIMITER = AUTO") + blank999, {},
         "comma.txt: 3 places where the loaded numbers may differ from the file\n"
         "numbers read only in part: 2\n"
         "  line 2, column 1: \"0,914\" was read as two values, 0 and 914 (a decimal comma)\n"
         "  line 2, column 7: \"1,5\" was read as two values, 1 and 5 (a decimal comma)\n"
         "rows with fewer or more values than variables: 1\n"
         "  line 2, column 7: 4 values for 2 variables: the last 2 values were dropped\n"},
    });
}

/* With a blank value, and with the loader's question answered Yes (0). A
   cell line that ends in its delimiter lacks an empty last cell only: line
   5 is not reported. */
TEST(Check, RowsWithFewerOrMoreValuesThanVariables)
{
    const std::string rows = "a b c\n1 2\n3 4 5 6\n7 8 9\n10 11 12\n";
    const std::string report =
        "rows.txt: 2 places where the loaded numbers may differ from the file\n"
        "rows with fewer or more values than variables: 2\n"
        "  line 2: 2 values for 3 variables: variable 3 got {}\n"
        "  line 3, column 7: 4 values for 3 variables: the last value was dropped\n";
    auto with = [&report](const std::string &fill) {
        std::string text = report;
        return text.replace(text.find("{}"), 2, fill);
    };
    expectReports({
        {"rows.txt", rows, namesOnLine1("") + blank999, {}, with("the blank value -999")},
        {"rows.txt", rows, namesOnLine1(""), {"--yes"}, with("0")},
        {"cells.txt", "a;b;c\n1;2\n3;4;5\n6;7;8\n9;10;\n",
         "VARIABLES { SEARCH = LINE STARTLINE = 1 ENDLINE = 1 DELIMITER = SEMICOLON } DATA { "
         "IMPORT { STARTID = FIRSTNUMERICLINE { } ENDID = EOF { } DELIMITER = SEMICOLON } }" +
             blank999,
         {},
         "cells.txt: 1 place where the loaded numbers may differ from the file\n"
         "rows with fewer or more values than variables: 1\n"
         "  line 2: 2 values for 3 variables: variable 3 got the blank value -999\n"},
    });
}

TEST(Check, VariableNamesThatLookLikeNumbers)
{
    expectReports({{"names.txt", "1.5 2.5\n3 4\n5 6\n", namesOnLine1(""), {},
                    "names.txt: 2 places where the loaded numbers may differ from the file\n"
                    "variable names that look like numbers: 2\n"
                    "  line 1, column 1: the variable name \"1.5\" looks like a number: was a "
                    "data line taken for the names?\n"
                    "  line 1, column 5: the variable name \"2.5\" looks like a number: was a "
                    "data line taken for the names?\n"}});
}

/* A numeric header line skipped by a start line, an end line (not read
   itself), a line after the end, a row with a NaN that the first numeric
   line passes over; and a header line the first numeric line takes. */
TEST(Check, NumericLinesOutsideTheDataSection)
{
    expectReports({
        {"sizes.txt", "Clark Y\n61 61\n\n0 0\n1 1\n2 2\n3 3\n",
         "VARIABLES { NAMES = \"x,y\" } DATA { IMPORT { STARTID = LINE { LINE = 4 } ENDID = LINE "
         "{ LINE = 6 } } }",
         {},
         "sizes.txt: 3 places where the loaded numbers may differ from the file\n"
         "numeric lines outside the data section: 3\n"
         "  line 2: numeric line before the data section, which starts at line 4\n"
         "  line 6: numeric line was not read: the end line 6 is not part of the data section\n"
         "  line 7: numeric line after the data section, which ends at line 5\n"},
        {"nan.txt", "a b c\n1 NaN 3\n4 5 6\n7 8 9\n", namesOnLine1(""), {},
         "nan.txt: 1 place where the loaded numbers may differ from the file\n"
         "numeric lines outside the data section: 1\n"
         "  line 2: row like the data rows before the data section, which starts at line 3\n"},
        /* The other way round: sizes in a header taken for data. */
        {"taken.txt", "Clark Y\n61. 61.\n\n0 0\n1 1\n\n2 2\n",
         "VARIABLES { NAMES = \"x,y\" } DATA { IMPORT { STARTID = FIRSTNUMERICLINE { } ENDID = "
         "EOF { } } }",
         {},
         "taken.txt: 1 place where the loaded numbers may differ from the file\n"
         "numeric lines outside the data section: 1\n"
         "  line 2: numeric line taken for data, though a blank line parts it from the data "
         "after it: a header line (sizes, a count)?\n"},
    });
}

/* Given sizes, block order: the rows of 3 and 1 values among rows of 4. */
TEST(Check, RowsWhoseValueCountDiffersFromMostRows)
{
    expectReports({{"odd.txt", "1 2 3 4\n5 6 7 8\n9 10 11\n12\n13 14 15 16\n",
                    "VARIABLES { NAMES = \"a,b,c,d\" } DATA { IMPORT { STARTID = FIRSTNUMERICLINE "
                    "{ } ENDID = EOF { } FORMAT = IJKBLOCK } DIMENSION { AUTO = FALSE IMAX = 4 } }",
                    {},
                    "odd.txt: 2 places where the loaded numbers may differ from the file\n"
                    "rows whose value count differs from most rows: 2\n"
                    "  line 3: 3 values where most rows have 4\n"
                    "  line 4: 1 value where most rows have 4\n"}});
}

/* Zones split by a keyword where the last is short; zones of given sizes
   that the file does not fill (filled on Yes). */
TEST(Check, ZonesOfDifferentSizes)
{
    expectReports({
        {"zones.txt", "a b\nZONE\n1 1\n2 2\n3 3\nZONE\n4 4\n5 5\n6 6\nZONE\n7 7\n8 8\n9 9\nZONE\n"
                      "10 10\n11 11\n",
         namesOnLine1("", "DIMENSION { CREATEMULTIPLEZONES = TRUE KEYWORD = \"zone\" }"), {},
         "zones.txt: 1 place where the loaded numbers may differ from the file\n"
         "zones of different sizes: 1\n"
         "  line 15: zone 4 has 2 points where the other zones have 3\n"},
        {"given.txt", "a b\n1 1\n2 2\n3 3\n4 4\n5 5\n6 6\n7 7\n",
         namesOnLine1("", "DIMENSION { AUTO = FALSE IMAX = 3 CREATEMULTIPLEZONES = TRUE }"),
         {"--yes"},
         "given.txt: 2 places where the loaded numbers may differ from the file\n"
         "zones of different sizes: 2\n"
         "  line 8: zone 3, variable \"a\": 1 of 3 values in the file; the other 2 got 0\n"
         "  line 8: zone 3, variable \"b\": 1 of 3 values in the file; the other 2 got 0\n"},
    });
}

/* The summary shows five places of a kind; JSON every place, with the
   counts and the data set. */
TEST(Check, SummaryShowsFivePlacesOfAKindAndJsonEveryPlace)
{
    ScratchDir scratch;
    std::string text = "a b\n";
    for (int row = 1; row <= 7; ++row)
        text += std::to_string(row) + " NaN\n";
    writeFile(scratch / "many.txt", text);
    /* No line is numeric (NaN): the data start at line 2 by number. */
    std::string set = "VARIABLES { SEARCH = LINE STARTLINE = 1 ENDLINE = 1 } DATA { IMPORT { "
                      "STARTID = LINE { LINE = 2 } ENDID = EOF { } } }" +
                      blank999;
    Result summary = runCorvane({"check", "many.txt", "--instructions", set, "-q"}, scratch.path());
    EXPECT_EQ(summary.status, 3);
    std::string places;
    for (int line = 2; line <= 6; ++line)
        places += "  line " + std::to_string(line) +
                  ", column 3: \"NaN\" is not a number: dropped; no value came after it\n";
    EXPECT_EQ(summary.out.substr(0, summary.out.find("rows with")),
              "\"New Dataset\": 2 variables, 1 zone, 7 points\n"
              "many.txt: 14 places where the loaded numbers may differ from the file\n"
              "tokens that are not numbers: 7\n" +
                  places + "  ... and 2 more (--json lists every place)\n");

    Result full = runCorvane({"check", "many.txt", "--instructions", set, "-q", "--json"},
                             scratch.path());
    EXPECT_EQ(full.status, 3);
    json doc = json::parse(full.out);
    EXPECT_EQ(doc["file"], "many.txt");
    EXPECT_EQ(doc["found"], 14);
    EXPECT_EQ(doc["dataSet"], json::parse(R"({"title": "New Dataset", "variables": ["a", "b"],
                                              "zones": 1, "points": 7})"));
    EXPECT_EQ(doc["kinds"][0], json::parse(R"({"kind": "not-a-number", "count": 7,
                                               "title": "tokens that are not numbers"})"));
    EXPECT_EQ(doc["kinds"][2]["count"], 7);
    EXPECT_EQ(doc["kinds"][6], json::parse(R"({"kind": "zone-size", "count": 0,
                                               "title": "zones of different sizes"})"));
    ASSERT_EQ(doc["places"].size(), 14u);
    EXPECT_EQ(doc["places"][6], json::parse(R"({"kind": "not-a-number", "line": 8, "column": 3,
        "text": "\"NaN\" is not a number: dropped; no value came after it"})"));
    EXPECT_EQ(doc["places"][13], json::parse(R"({"kind": "filled-row", "line": 8,
        "column": null, "text": "1 value for 2 variables: variable 2 got the blank value -999"})"));
}

/* Every example and real-data set loads clean: status 0 and nothing found. */
TEST(Check, CleanExamplesReportNothing)
{
    const std::pair<std::string, std::string> loads[] = {
        {"cooling_curve.txt", "cooling_curve.twc"},
        {"station_log.csv", "station_log.twc"},
        {"tide_gauge.txt", "tide_gauge.twc"},
        {"plate_block.txt", "plate_block.twc"},
        {"probe_traverses.txt", "probe_traverses.twc"},
        {"rain_gauges.txt", "rain_gauges.twc"},
        {"thermocouple.txt", "thermocouple.twc"},
        {"duct_pressure.txt", "duct_pressure.twc"},
        {"surface_grid.txt", "surface_grid.twc"},
        {"../tests/data/realdata/nist_nelson_crlf.dat", "realdata/nist_nelson.twc"},
        {"../tests/data/realdata/airfoil_naca23012_selig.dat", "realdata/naca23012.twc"},
        {"../tests/data/realdata/xfoil_polar_naca4412_re500k.txt", "realdata/xfoil_polar.twc"},
        {"../tests/data/realdata/nasa_gistemp_global_means.csv", "realdata/gistemp.twc"},
        {"../tests/data/realdata/noaa_co2_mm_mlo_2018.txt", "realdata/co2_mlo.twc"},
    };
    for (const auto &[data, set] : loads) {
        SCOPED_TRACE(data);
        Result run = runCorvane({"check", data, "--set", set, "-q"}, examplesDir);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(run.out.substr(run.out.find('\n') + 1),
                  data + ": nothing found where the loaded numbers may differ from the file\n");
    }
}

TEST(Check, FailedLoadsAndUsageErrors)
{
    ScratchDir scratch;
    writeFile(scratch / "short.txt", "a b c\n1 2\n");
    writeFile(scratch / "broken.twc", "TITLE { SEARCH = NONE NAME = \"t\" } VARIABLES { NAMES = "
                                      "\"a,b\" } DATA { IMPORT { STARTID = FIRSTNUMERICLINE { } "
                                      "ENDID = EOF { } } } GLOBALFILTERS { BOGUS = 1 }");
    writeFile(scratch / "ok.txt", "1 2\n3 4\n");
    const struct {
        std::vector<std::string> args;
        int status;
        std::string err; /* its end */
    } cases[] = {
        /* The loader's question answered No: the load fails, no report. */
        {{"check", "short.txt", "--instructions", namesOnLine1("")}, 1,
         "Error reading input file\n"},
        {{"check", "missing.txt", "--instructions", namesOnLine1("")}, 1,
         "Error reading input file\n"},
        /* The loader reads the set as far as the error; check does not
           check with half a set. */
        {{"check", "ok.txt", "--set", "broken.twc"}, 1,
         "corvane: cannot check: the instruction set does not read: line 1: Invalid keyword\n"},
        {{"check", "ok.txt"}, 2, "check needs one of --set or --instructions\nRun with --help "
                                 "for more information.\n"},
        {{"check", "ok.txt", "--set", "a.twc", "--instructions", "X"}, 2,
         "--set and --instructions are mutually exclusive\nRun with --help for more "
         "information.\n"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(::testing::PrintToString(c.args));
        Result run = runCorvane(c.args, scratch.path());
        EXPECT_EQ(run.status, c.status);
        EXPECT_EQ(run.out, "");
        ASSERT_GE(run.err.size(), c.err.size());
        EXPECT_EQ(run.err.substr(run.err.size() - c.err.size()), c.err);
    }
}
