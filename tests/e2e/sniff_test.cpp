// corvane sniff and load --sniff run as a user runs them: whole proposed
// sets, the explanation of every real file, and the values loaded with the
// proposal checked against a small reader of the file written here for
// each file; generated files of the shapes users meet; failures.
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "CorvaneRun.h"

using namespace testfiles;
using nlohmann::json;

namespace {

std::string joined(const std::vector<std::string> &lines)
{
    std::string text;
    for (const auto &line : lines)
        text += line + "\n";
    return text;
}

/* A data file read as a user would read it by hand: the rows are the lines
   in the ranges that hold a digit (lines starting with comment are passed
   over); a row is cut at runs of blanks and tabs (separator ' ') or at
   every separator; the fields taken are parsed in full, anything else being
   the missing value. A line holding zoneMarker, or every zoneSize rows,
   starts a new zone. */
struct Reading {
    std::vector<std::pair<int, int>> ranges;
    std::vector<size_t> fields;
    char separator = ' ';
    char comment = '\0';
    std::string zoneMarker = "";
    size_t zoneSize = 0;
    double missing = -999;
};

struct Table {
    std::vector<std::vector<double>> columns; /* one per field taken */
    std::vector<size_t> zones;                /* rows per zone */
};

std::vector<std::string> cut(const std::string &line, char separator)
{
    std::vector<std::string> fields;
    if (separator == ' ') {
        size_t at = 0;
        while ((at = line.find_first_not_of(" \t\r", at)) != std::string::npos) {
            size_t end = line.find_first_of(" \t\r", at);
            fields.push_back(line.substr(at, end - at));
            at = end;
        }
        return fields;
    }
    size_t at = 0;
    for (size_t end; (end = line.find(separator, at)) != std::string::npos; at = end + 1)
        fields.push_back(line.substr(at, end - at));
    fields.push_back(line.substr(at));
    return fields;
}

Table readByHand(const std::string &text, const Reading &reading)
{
    Table table;
    table.columns.resize(reading.fields.size());
    std::vector<std::string> lines = cut(text, '\n');
    bool newZone = true;
    for (const auto &[first, last] : reading.ranges) {
        for (int number = first; number <= last; ++number) {
            const std::string &line = lines[static_cast<size_t>(number - 1)];
            if (!reading.zoneMarker.empty() && line.find(reading.zoneMarker) != std::string::npos)
                newZone = true;
            size_t start = line.find_first_not_of(" \t");
            if (line.find_first_of("0123456789") == std::string::npos ||
                (reading.comment != '\0' && start != std::string::npos &&
                 line[start] == reading.comment))
                continue;
            if (newZone || (reading.zoneSize && table.zones.back() == reading.zoneSize))
                table.zones.push_back(0);
            newZone = false;
            ++table.zones.back();
            std::vector<std::string> fields = cut(line, reading.separator);
            for (size_t f = 0; f < reading.fields.size(); ++f) {
                std::string field = reading.fields[f] < fields.size() ? fields[reading.fields[f]] : "";
                char *end = nullptr;
                double value = std::strtod(field.c_str(), &end);
                bool whole = !field.empty() && end != nullptr &&
                             std::string(end).find_first_not_of(" \t\r") == std::string::npos;
                table.columns[f].push_back(whole ? value : reading.missing);
            }
        }
    }
    return table;
}

/* The loaded data set's values, one array per variable over all zones, and
   the points per zone. */
Table loaded(const json &set)
{
    Table table;
    for (const json &zone : set["zones"]) {
        table.zones.push_back(zone["imax"].get<size_t>() * zone["jmax"].get<size_t>() *
                              zone["kmax"].get<size_t>());
        const json &values = zone["values"];
        table.columns.resize(values.size());
        for (size_t v = 0; v < values.size(); ++v)
            for (const json &value : values[v])
                table.columns[v].push_back(value.get<double>());
    }
    return table;
}

std::vector<std::string> range(const std::string &prefix, int count)
{
    std::vector<std::string> names;
    for (int i = 1; i <= count; ++i)
        names.push_back(prefix + std::to_string(i));
    return names;
}

} // namespace

TEST(Sniff, WholeProposedSets)
{
    const std::pair<fs::path, std::string> cases[] = {
        {examplesDir / "cooling_curve.txt",
         "#!CORVANE_TABWISE\n"
         "# Proposed by corvane sniff for cooling_curve.txt:\n"
         "# line 1   title \"Cooling curve of sample A\"\n"
         "# line 2   2 variable names, blank-separated\n"
         "# lines 3-7   data, 2 values each\n"
         "VERSION = 100\n"
         "TITLE\n{\n SEARCH = LINE\n LINE = 1\n DELIMITER = AUTO\n}\n"
         "VARIABLES\n{\n SEARCH = LINE\n STARTLINE = 2\n ENDLINE = 2\n DELIMITER = SPACE\n}\n"
         "DATA\n{\n IGNORENONNUMERICTOKENS = TRUE\n IMPORT\n {\n"
         "  STARTID = FIRSTNUMERICLINE\n  {\n  }\n  ENDID = EOF\n  {\n  }\n"
         "  FORMAT = IJKPOINT\n  DELIMITER = SPACE\n }\n DIMENSION\n {\n  AUTO = TRUE\n }\n}\n"},
        {realDataDir / "airfoil_clarky_lednicer.txt",
         "#!CORVANE_TABWISE\n"
         "# Proposed by corvane sniff for airfoil_clarky_lednicer.txt:\n"
         "# line 1   title \"CLARK Y AIRFOIL\"\n"
         "# line 2   sizes of the blocks below (61. 61.): zones of 61 points\n"
         "# lines 4-126   data, 2 values each, in 2 zones of 61 points\n"
         "# unsure: no line of names found: the variables are named V1-V2\n"
         "VERSION = 100\n"
         "TITLE\n{\n SEARCH = LINE\n LINE = 1\n DELIMITER = FIXED\n WIDTH = 80\n}\n"
         "VARIABLES\n{\n SEARCH = NONE\n NAMES = \"V1,V2\"\n}\n"
         "DATA\n{\n IGNORENONNUMERICTOKENS = TRUE\n IMPORT\n {\n"
         "  STARTID = LINE\n  {\n   LINE = 4\n  }\n  ENDID = EOF\n  {\n  }\n"
         "  FORMAT = IJKPOINT\n  DELIMITER = SPACE\n }\n DIMENSION\n {\n  AUTO = FALSE\n"
         "  IMAX = 61\n  CREATEMULTIPLEZONES = TRUE\n }\n}\n"},
        {realDataDir / "nasa_gistemp_global_means.csv",
         "#!CORVANE_TABWISE\n"
         "# Proposed by corvane sniff for nasa_gistemp_global_means.csv:\n"
         "# line 1   title \"Land-Ocean: Global Means\"\n"
         "# line 2   19 variable names, comma-separated\n"
         "# lines 3-145   data, 19 values each\n"
         "# note: cells that are empty or hold no number get the blank value -999\n"
         "VERSION = 100\n"
         "TITLE\n{\n SEARCH = LINE\n LINE = 1\n DELIMITER = FIXED\n WIDTH = 80\n}\n"
         "VARIABLES\n{\n SEARCH = LINE\n STARTLINE = 2\n ENDLINE = 2\n DELIMITER = COMMA\n}\n"
         "DATA\n{\n IGNORENONNUMERICTOKENS = TRUE\n IMPORT\n {\n"
         "  STARTID = FIRSTNUMERICLINE\n  {\n  }\n  ENDID = EOF\n  {\n  }\n"
         "  FORMAT = IJKPOINT\n  DELIMITER = COMMA\n }\n DIMENSION\n {\n  AUTO = TRUE\n }\n}\n"
         "GLOBALFILTERS\n{\n USEBLANKCELLVALUE = TRUE\n BLANKCELLVALUE = -999\n}\n"},
    };
    for (const auto &[file, set] : cases) {
        SCOPED_TRACE(file);
        Result run = runInProcess({"sniff", file.string()});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(run.out, set);
    }
}

/* With -o the set goes to the file and the explanation to standard output. */
TEST(Sniff, ExplanationNamesEachLineRangeOfEveryRealFile)
{
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"airfoil_naca23012_selig.dat",
         {"line 1   title \"NACA 23012  12%\"", "lines 2-62   data, 2 values each",
          "unsure: no line of names found: the variables are named V1-V2"}},
        {"gnuplot_antenna_tabs.dat",
         {"line 1   title \"Input data ncmain.d4 generated by genpat2.f:Tx antenna pattern\" "
          "(entered in the set)",
          "lines 2-8   comments (after \"#\", cut)",
          "lines 9-99   another table of 6 columns (not loaded)",
          "lines 102-462   data, 5 values each", "line 463   footer (kept as text)",
          "unsure: no line of names found: the variables are named V1-V5"}},
        {"gnuplot_lcdemo_tabs_spaces.dat",
         {"line 2   title \"This file contains density values (2) against temperature (1) of "
          "a\" (entered in the set)",
          "lines 3-13   comments (after \"#\", cut)", "lines 15-51   data, 5 values each",
          "unsure: no line of names found: the variables are named V1-V5"}},
        {"gnuplot_soundvel.dat",
         {"line 2   title \"sound velocity of a fibersymmetric (hexagonal) sample as a "
          "function\" (entered in the set)",
          "lines 3-6   header text (kept as text)",
          "lines 8-159   data, 2 values each, in 2 zones each after a line holding \"#\"",
          "unsure: no line of names found: the variables are named V1-V2"}},
        {"gnuplot_whale_keyword_blocks.dat",
         {"line 1   title \"(C) Copyright 1992 Alex Woo\" (entered in the set)",
          "lines 2-6   header text (kept as text)",
          "lines 7-3001   data, 3 values each, in 12 zones each after a line holding "
          "\"#NETWORK\"",
          "unsure: no line of names found: the variables are named V1-V3"}},
        {"nist_nelson_crlf.dat",
         {"line 1   title \"NIST/ITL StRD\"", "lines 2-40   header text (kept as text)",
          "lines 41-43   another table of 6 columns (not loaded)",
          "lines 45-48   header text (kept as text)",
          "line 60   3 variable names after \"Data:\", entered in the set",
          "lines 61-188   data, 3 values each"}},
        {"nist_norris.dat",
         {"line 1   title \"NIST/ITL StRD\"", "lines 2-46   header text (kept as text)",
          "line 60   2 variable names after \"Data:\", entered in the set",
          "lines 61-96   data, 2 values each"}},
        {"airfoil_clarky_lednicer.txt",
         {"line 1   title \"CLARK Y AIRFOIL\"",
          "line 2   sizes of the blocks below (61. 61.): zones of 61 points",
          "lines 4-126   data, 2 values each, in 2 zones of 61 points",
          "unsure: no line of names found: the variables are named V1-V2"}},
        {"iers_eop_c04_2003_fixed.txt",
         {"line 3   title \"INTERNATIONAL EARTH ROTATION AND REFERENCE SYSTEMS SERVICE\"",
          "lines 4-13   header text (kept as text)", "lines 15-379   data, 16 values each",
          "unsure: no line of names found: the variables are named V1-V16"}},
        {"noaa_co2_mm_mlo_2018.txt",
         {"line 2   title \"USE OF NOAA ESRL DATA\" (entered in the set)",
          "lines 4-72   comments (after \"#\", cut)", "lines 73-791   data, 7 values each",
          "unsure: no line of names found: the variables are named V1-V7"}},
        {"xfoil_polar_naca4412_re500k.txt",
         {"line 2   title \"XFOIL         Version 6.96\"",
          "lines 4-9   header text (kept as text)", "line 11   7 variable names, blank-separated",
          "lines 13-131   data, 7 values each"}},
        {"nasa_gistemp_global_means.csv",
         {"line 1   title \"Land-Ocean: Global Means\"",
          "line 2   19 variable names, comma-separated", "lines 3-145   data, 19 values each",
          "note: cells that are empty or hold no number get the blank value -999"}},
        {"icgem_eigen5c_d_exponents.gfc",
         {"line 1   title \"THE COMBINED GRAVITY FIELD MODEL EIGEN-5C\"",
          "lines 4-43   header text (kept as text)", "lines 44-95   data, 6 values each",
          "note: column 1 has text (\"gfc\"): not loaded",
          "unsure: columns 4, 5, 6 and 7 have D exponents (\"0.100000000000D+01\"), which the "
          "loader reads without the exponent: not loaded",
          "unsure: no line of names found: the variables are named V1-V6",
          "unsure: rows 46, 48 and 2 more hold more values than there are variables: the values "
          "after the last variable are not loaded"}},
    };
    for (const auto &[file, explanation] : cases) {
        SCOPED_TRACE(file);
        ScratchDir scratch;
        Result run = runInProcess(
            {"sniff", (realDataDir / file).string(), "-o", (scratch / "set.twc").string()});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(run.out, joined(explanation));
        std::string set = readFile(scratch / "set.twc");
        EXPECT_NE(set.find("\n# " + explanation.back() + "\n"), std::string::npos);
    }
}

TEST(Sniff, EveryRealFileLoadsAsReadByHand)
{
    const struct {
        std::string file;
        Reading reading;
        std::vector<std::string> names;
    } cases[] = {
        {"airfoil_naca23012_selig.dat", {{{2, 62}}, {0, 1}}, {"V1", "V2"}},
        {"gnuplot_antenna_tabs.dat", {{{102, 462}}, {0, 1, 2, 3, 4}}, range("V", 5)},
        {"gnuplot_lcdemo_tabs_spaces.dat", {{{15, 51}}, {0, 1, 2, 3, 4}}, range("V", 5)},
        {"gnuplot_soundvel.dat", {{{8, 159}}, {0, 1}, ' ', '#', "#"}, {"V1", "V2"}},
        {"gnuplot_whale_keyword_blocks.dat", {{{7, 3001}}, {0, 1, 2}, ' ', '#', "#NETWORK"},
         range("V", 3)},
        {"nist_nelson_crlf.dat", {{{61, 188}}, {0, 1, 2}}, {"y", "x1", "x2"}},
        {"nist_norris.dat", {{{61, 96}}, {0, 1}}, {"y", "x"}},
        {"airfoil_clarky_lednicer.txt", {{{4, 64}, {66, 126}}, {0, 1}, ' ', '\0', "", 61},
         {"V1", "V2"}},
        {"iers_eop_c04_2003_fixed.txt",
         {{{15, 379}}, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}}, range("V", 16)},
        {"noaa_co2_mm_mlo_2018.txt", {{{73, 791}}, {0, 1, 2, 3, 4, 5, 6}}, range("V", 7)},
        {"xfoil_polar_naca4412_re500k.txt",
         {{{13, 131}}, {0, 1, 2, 3, 4, 5, 6}},
         {"alpha", "CL", "CD", "CDp", "CM", "Top_Xtr", "Bot_Xtr"}},
        {"nasa_gistemp_global_means.csv",
         {{{3, 145}}, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18}, ','},
         {"Year", "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov",
          "Dec", "J-D", "D-N", "DJF", "MAM", "JJA", "SON"}},
        /* The D-exponent columns are not loaded: degree and order only. */
        {"icgem_eigen5c_d_exponents.gfc", {{{44, 95}}, {1, 2}}, {"V1", "V2"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.file);
        ScratchDir scratch;
        Result run = runCorvane({"load", (realDataDir / c.file).string(), "--sniff", "-q", "-o",
                                 (scratch / "out.json").string()},
                                scratch.path());
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.err, "");
        json set = json::parse(readFile(scratch / "out.json"));
        EXPECT_EQ(set["variables"], json(c.names));
        Table byHand = readByHand(readFile(realDataDir / c.file), c.reading);
        Table got = loaded(set);
        EXPECT_EQ(got.zones, byHand.zones);
        EXPECT_EQ(got.columns, byHand.columns);
    }
}

/* Generated files of the shapes users meet, each with the explanation and
   what load --sniff writes to CSV. */
TEST(Sniff, GeneratedShapesLoadRight)
{
    const struct {
        std::string file, text;
        std::vector<std::string> explanation;
        std::string csv;
    } cases[] = {
        /* A weather buoy log: names in a comment, MM for missing. */
        {"buoy.txt",
         "#YY  MM DD hh WDIR WSPD   PRES  ATMP\n#yr  mo dy hr degT  m/s    hPa  degC\n"
         "2024 03 01 00  270  5.0 1015.2   4.5\n2024 03 01 01   MM  4.0 1015.0   4.1\n"
         "2024 03 01 02  260  3.5 1014.8    MM\n2024 03 01 03  250  3.0 1014.5   3.9\n",
         {"line 1   8 variable names in a comment, entered in the set",
          "line 2   comments (after \"#\", cut)", "lines 3-6   data, 8 values each",
          "unsure: row 4 holds missing values (\"MM\") between values, after which the values "
          "would move left: left out (ROWS)",
          "note: row 5 lacks values at the end: those variables get the blank value -999",
          "note: no title line found: the title is the file's name"},
         "YY,MM,DD,hh,WDIR,WSPD,PRES,ATMP\n2024,3,1,0,270,5,1015.2,4.5\n"
         "2024,3,1,2,260,3.5,1014.8,-999\n2024,3,1,3,250,3,1014.5,3.9\n"},
        /* A weather station CSV: a station column, empty cells and MM. */
        {"station.csv",
         "station,hour,temp,wind\nKX1,0,4.5,12\nKX1,1,,10\nKX1,2,3.75,MM\nKX1,3,3.5,9\n",
         {"line 1   4 variable names, comma-separated", "lines 2-5   data, 4 values each",
          "note: column 1 (station) has text (\"KX1\"): not loaded",
          "note: cells that are empty or hold no number get the blank value -999",
          "note: no title line found: the title is the file's name"},
         "hour,temp,wind\n0,4.5,12\n1,-999,10\n2,3.75,-999\n3,3.5,9\n"},
        /* An ESRI ASCII grid: sizes named in the header, one variable. */
        {"grid.asc",
         "ncols 3\nnrows 2\nxllcorner 0.0\nyllcorner 0.0\ncellsize 10.0\nNODATA_value -9999\n"
         "1.5 2.5 3.5\n-9999 2 3\n",
         {"lines 1-6   header text (kept as text)",
          "lines 7-8   data: 1 variable on a 3 x 2 grid, in block order",
          "unsure: no line of names found: the variable is named V1",
          "note: no title line found: the title is the file's name"},
         "I,J,V1\n1,1,1.5\n2,1,2.5\n3,1,3.5\n1,2,-9999\n2,2,2\n3,2,3\n"},
        /* A Fortran table of coefficients with D exponents. */
        {"coefficients.txt",
         " COEFFICIENTS OF THE FIT\n   N      A(N)              B(N)\n"
         "   1  0.1234567890D+01  -0.5000000000D-02\n   2  0.2345678901D+00   0.1000000000D-03\n",
         {"line 1   title \"COEFFICIENTS OF THE FIT\"", "line 2   3 variable names, blank-separated",
          "lines 3-4   data, 3 values each",
          "unsure: columns 2 (A(N)) and 3 (B(N)) have D exponents (\"0.1234567890D+01\"), which "
          "the loader reads without the exponent: not loaded"},
         "N\n1\n2\n"},
        /* An instrument log, tab-separated, with empty cells. */
        {"logger.tsv",
         "Logger 7 readings\ntime\ttemp\tpressure\n0\t21.5\t1013.2\n10\t\t1013\n20\t22\t\n30\t22.1\t"
         "1012.8\n",
         {"line 1   title \"Logger 7 readings\"", "line 2   3 variable names, tab-separated",
          "lines 3-6   data, 3 values each",
          "unsure: row 4 holds missing values (empty cells) between values, after which the "
          "values would move left: left out (ROWS)",
          "note: row 5 lacks values at the end: those variables get the blank value -999"},
         "time,temp,pressure\n0,21.5,1013.2\n20,22,-999\n30,22.1,1012.8\n"},
        /* A climate series with NaN; the comment title taken in. */
        {"climate.txt",
         "# Monthly anomalies\nyear  jan   feb\n1990  0.12  NaN\n1991  NaN   0.25\n"
         "1992  0.31  0.28\n",
         {"line 1   title \"Monthly anomalies\" (entered in the set)",
          "line 2   3 variable names, blank-separated", "lines 3-5   data, 3 values each",
          "unsure: row 4 holds missing values (\"NaN\") between values, after which the values "
          "would move left: left out (ROWS)",
          "note: row 3 lacks values at the end: those variables get the blank value -999"},
         "year,jan,feb\n1990,0.12,-999\n1992,0.31,0.28\n"},
        /* CSV with quoted cells: quoted text, and a quoted number. */
        {"quoted.csv",
         "\"site\",\"temp\",\"rain\"\n\"A1\",4.5,0.0\n\"A1\",3.9,\"1.2\"\n\"A2\",,0.4\n",
         {"line 1   3 variable names, comma-separated", "lines 2-4   data, 3 values each",
          "note: column 1 (site) has text (\"A1\"): not loaded",
          "unsure: row 3 holds a number the loader cannot read (\"1.2\"): it counts as missing",
          "note: cells that are empty or hold no number get the blank value -999",
          "note: no title line found: the title is the file's name"},
         "temp,rain\n4.5,0\n3.9,-999\n-999,0.4\n"},
        /* Semicolon cells with a decimal comma. */
        {"decimal.csv", "Zeit;Temperatur;Druck\n0;21,5;1013\n1;21,7;1012\n",
         {"line 1   3 variable names, semicolon-separated", "lines 2-3   data, 3 values each",
          "unsure: column 2 (Temperatur) has numbers with a decimal comma (\"21,5\"), which the "
          "loader cannot read: not loaded",
          "note: cells that are empty or hold no number get the blank value -999",
          "note: no title line found: the title is the file's name"},
         "Zeit,Druck\n0,1013\n1,1012\n"},
        /* Fixed columns whose values touch. */
        {"fixed.txt", "  time   level\n     0.0    1.25\n     1.0-0.50000\n",
         {"line 1   2 variable names, blank-separated", "lines 2-3   data, 2 values each",
          "note: values touch (as in 4.0-0.5): they are read in fixed columns of 8 characters",
          "note: no title line found: the title is the file's name"},
         "time,level\n0,1.25\n1,-0.5\n"},
        /* A header of numbers, data between keywords, a footer with one. */
        {"run.txt",
         "Run of May 7\n12 3\nBEGIN DATA\n1 2\n3 4\nEND DATA\nChecked 2024 5\n",
         {"line 1   title \"Run of May 7\"", "line 2   numbers in the header (not data)",
          "line 3   header text (kept as text)", "lines 4-5   data, 2 values each",
          "lines 6-7   footer (kept as text)",
          "unsure: no line of names found: the variables are named V1-V2"},
         "V1,V2\n1,2\n3,4\n"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.file);
        ScratchDir scratch;
        writeFile(scratch / c.file, c.text);
        Result sniff = runCorvane({"sniff", c.file, "-o", "set.twc"}, scratch.path());
        EXPECT_EQ(sniff.status, 0) << sniff.err;
        EXPECT_EQ(sniff.out, joined(c.explanation));
        Result load = runCorvane({"load", c.file, "--sniff", "-q", "-o", "out.csv"}, scratch.path());
        EXPECT_EQ(load.status, 0) << load.err;
        EXPECT_EQ(load.err, "");
        EXPECT_EQ(readFile(scratch / "out.csv"), c.csv);
    }
}

/* Rows with a missing value inside, too many for the row filter: each is
   cut at its marker, so that no value moves to another variable. */
TEST(Sniff, ManyRowsWithMissingValuesInsideAreCutAtTheMarker)
{
    ScratchDir scratch;
    std::string text = "a b c\n", csv = "a,b,c\n";
    for (int row = 1; row <= 70; ++row) {
        bool gap = row % 2 == 0;
        std::string number = std::to_string(row), tens = std::to_string(row * 10);
        text += number + (gap ? " NaN " : " 5 ") + tens + "\n";
        csv += number + (gap ? ",-999,-999\n" : ",5," + tens + "\n");
    }
    writeFile(scratch / "gaps.txt", text);
    Result sniff = runCorvane({"sniff", "gaps.txt", "-o", "set.twc"}, scratch.path());
    EXPECT_EQ(sniff.out,
              "line 1   3 variable names, blank-separated\nlines 2-71   data, 3 values each\n"
              "unsure: rows 3, 5 and 33 more hold \"NaN\" between values, after which the values "
              "would move left: each such row is cut at its first \"NaN\" (COMMENT), and its "
              "variables from there on get the blank value\n"
              "note: the blank value is -999\n"
              "note: no title line found: the title is the file's name\n");
    Result load = runCorvane({"load", "gaps.txt", "--sniff", "-q", "-o", "out.csv"}, scratch.path());
    EXPECT_EQ(load.status, 0);
    EXPECT_EQ(readFile(scratch / "out.csv"), csv);
}

/* A file beyond the first megabyte: its middle is not looked at, and all of
   it is loaded. */
TEST(Sniff, LargeFileFromItsHeadAndTail)
{
    ScratchDir scratch;
    std::string text = "x\ty\tz\n";
    const int rows = 70000;
    for (int row = 1; row <= rows; ++row)
        text += std::to_string(row) + "\t" + std::to_string(row % 97) + ".25\t" +
                std::to_string(row % 13) + ".75\n";
    ASSERT_GT(text.size(), size_t{1} << 20);
    writeFile(scratch / "big.tsv", text);
    Result sniff = runCorvane({"sniff", "big.tsv", "-o", "set.twc"}, scratch.path());
    EXPECT_EQ(sniff.status, 0);
    EXPECT_EQ(sniff.out, "line 1   3 variable names, tab-separated\n"
                         "lines 2-70001   data, 3 values each\n"
                         "note: no title line found: the title is the file's name\n"
                         "unsure: lines 61871-69001 were not looked at (only the first megabyte "
                         "and the last lines are)\n");
    Result load = runCorvane({"load", "big.tsv", "--set", "set.twc", "-q"}, scratch.path());
    EXPECT_EQ(load.out, "\"big.tsv\": 3 variables, 1 zone, 70000 points\n");
}

/* The loaded data set keeps the proposed set as its instructions: a replay
   needs no sniffing and gives the same data. */
TEST(Sniff, LoadWithTheProposalStoresItForReplays)
{
    ScratchDir scratch;
    fs::copy_file(examplesDir / "cooling_curve.txt", scratch / "c.txt");
    Result sniff = runCorvane({"sniff", "c.txt"}, scratch.path());
    Result load = runCorvane({"load", "c.txt", "--sniff", "-q", "--save-layout", "layout.json",
                              "-o", "first.json"},
                             scratch.path());
    EXPECT_EQ(load.out, "\"Cooling curve of sample A\": 2 variables, 1 zone, 5 points\n");
    json layout = json::parse(readFile(scratch / "layout.json"));
    EXPECT_EQ(layout["loads"][0]["strings"], json({"c.txt", sniff.out}));
    Result replay = runCorvane({"replay", "layout.json", "-q", "-o", "again.json"}, scratch.path());
    EXPECT_EQ(replay.status, 0);
    EXPECT_EQ(readFile(scratch / "again.json"), readFile(scratch / "first.json"));
}

TEST(Sniff, FailuresSayWhyAndLeaveNoSet)
{
    ScratchDir scratch;
    writeFile(scratch / "words.txt", "no numbers here\nnor here\n");
    writeFile(scratch / "commas.csv", "a;b\n1,5;2,5\n3,5;4,5\n");
    writeFile(scratch / "zeros.bin", std::string(5000, '\0'));
    fs::create_directory(scratch / "folder");
    const struct {
        std::vector<std::string> args;
        int status;
        std::string err;
    } cases[] = {
        {{"sniff", "missing.txt"}, 1, "corvane: missing.txt: No such file or directory\n"},
        {{"sniff", "folder"}, 1, "corvane: folder: is a directory\n"},
        {{"sniff", "words.txt", "-o", "set.twc"}, 1,
         "corvane: words.txt: no data found (no line holds numbers)\n"},
        {{"sniff", "commas.csv"}, 1,
         "corvane: commas.csv: no column holds numbers the loader can read (see lines 2-3)\n"},
        {{"sniff", "zeros.bin"}, 1, "corvane: zeros.bin: no data found (no line holds numbers)\n"},
        {{"load", "words.txt", "--sniff"}, 1,
         "corvane: words.txt: no data found (no line holds numbers)\n"},
        {{"load", "c.txt", "--sniff", "--set", "c.twc"}, 2,
         "--set, --instructions, --instructions-file and --sniff are mutually exclusive\nRun "
         "with --help for more information.\n"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(::testing::PrintToString(c.args));
        Result run = runCorvane(c.args, scratch.path());
        EXPECT_EQ(run.status, c.status);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, c.err);
    }
    fs::copy_file(examplesDir / "cooling_curve.txt", scratch / "c.txt");
    Result run = runCorvane({"sniff", "c.txt", "-o", "nowhere/set.twc"}, scratch.path());
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(scratch.entries(), (std::vector<std::string>{"c.txt", "commas.csv", "folder",
                                                           "words.txt", "zeros.bin"}));
}
