// The host's reading of instruction sets, which check relies on: the
// example sets read to the fields the loader takes from them, syntax errors
// with their line, and every set sniff proposes reading back unchanged.
#include <gtest/gtest.h>

#include "InstructionReader.h"
#include "InstructionWriter.h"
#include "Sniff.h"
#include "TestFiles.h"

using namespace corvane::inspect;
using namespace testfiles;

namespace corvane::inspect {
/* Sets are shown as their text (what differs from the defaults). */
void PrintTo(const InstructionSet &set, std::ostream *out)
{
    *out << writeInstructionSet(set);
}
} // namespace corvane::inspect

namespace {

InstructionSet read(const std::string &text)
{
    auto set = readInstructionSet(text);
    EXPECT_TRUE(set) << set.error();
    return set ? *set : InstructionSet{};
}

std::string example(const std::string &name)
{
    return readFile(fs::path(ORDALIS_SOURCE_DIR) / "examples" / name);
}

} // namespace

TEST(InstructionSet, ExampleSetsReadToTheirFields)
{
    InstructionSet thermocouple = read(example("thermocouple.twc"));
    EXPECT_EQ(thermocouple.titleSearch, SearchMode::keyword);
    EXPECT_EQ(thermocouple.titleKeyword, "thermocouple");
    EXPECT_EQ(thermocouple.names, (std::vector<std::string>{"T [C]", "emf [mV]"}));
    EXPECT_EQ(thermocouple.start, (FileMarker{Marker::keyword, "BEGIN DATA", 1}));
    EXPECT_EQ(thermocouple.end, (FileMarker{Marker::keyword, "END DATA", 1}));

    InstructionSet station = read(example("station_log.twc"));
    EXPECT_TRUE(station.useComment);
    EXPECT_EQ(station.comment, "#");
    EXPECT_EQ(station.columns, (NumberList{{1, 4}}));
    EXPECT_EQ(station.dataDelimiter, Delimiter::comma);
    EXPECT_EQ(station.namesStartLine, 3);

    InstructionSet plate = read(example("plate_block.twc"));
    EXPECT_FALSE(plate.autoDimension);
    EXPECT_TRUE(plate.blockFormat);
    EXPECT_EQ(std::vector<int>({plate.imax, plate.jmax, plate.kmax}), std::vector<int>({3, 2, 1}));

    InstructionSet tide = read(example("tide_gauge.twc"));
    EXPECT_EQ(tide.dataDelimiter, Delimiter::fixed);
    EXPECT_EQ(tide.dataWidth, 8);

    InstructionSet duct = read(example("duct_pressure.twc"));
    EXPECT_EQ(duct.loaded, (std::vector<int>{2, 4}));
    EXPECT_EQ(duct.start.kind, Marker::firstNumericLine);
    EXPECT_EQ(duct.end.kind, Marker::endOfFile);

    /* Any boolean switches a blank value on, as the loader reads it; names
       keep an escaped comma; LOADED "All" is every variable. */
    InstructionSet text = read("VARIABLES { NAMES = \"a\\,b,c\" LOADED = All } GLOBALFILTERS { "
                               "USEBLANKCELLVALUE = FALSE ROWS = [2-4,9-end] }");
    EXPECT_TRUE(text.useBlankCellValue);
    EXPECT_EQ(text.names, (std::vector<std::string>{"a,b", "c"}));
    EXPECT_TRUE(text.loaded.empty());
    EXPECT_EQ(text.rows, (NumberList{{2, 4}, {9, 0}}));
}

TEST(InstructionSet, SyntaxErrorsNameTheirLine)
{
    const std::pair<std::string, std::string> cases[] = {
        {"TITLE\n{\n SEARCH = SOMEWHERE\n}", "line 3: Expected one of NONE,LINE,KEYWORD"},
        {"DATA { IMPORT { STARTID = LINE { LINE = x } } }", "line 1: Expected integer"},
        {"VARIABLES { NAMES = \"a,b }", "line 1: Expected closing double quote"},
        {"GLOBALFILTERS { ROWS = 5 }",
         "line 1: Expected Number range in the form of [nn-nn,...]."},
        {"\n\nCONFIGFNAME = \"x.twc\"", "line 3: Invalid keyword"},
    };
    for (const auto &[text, error] : cases) {
        auto set = readInstructionSet(text);
        ASSERT_FALSE(set) << text;
        EXPECT_EQ(set.error(), error);
    }
}

TEST(InstructionSet, ProposedSetsReadBackUnchanged)
{
    std::vector<fs::path> files;
    for (const auto &entry : fs::directory_iterator(ORDALIS_REALDATA_DIR))
        if (entry.path().extension() != ".md" && entry.path().filename() != ".gitattributes")
            files.push_back(entry.path());
    for (const char *name : {"station_log.csv", "rain_gauges.txt", "tide_gauge.txt",
                             "surface_grid.txt", "probe_traverses.txt"})
        files.push_back(fs::path(ORDALIS_SOURCE_DIR) / "examples" / name);
    ASSERT_EQ(files.size(), 18u);
    for (const auto &file : files) {
        SCOPED_TRACE(file);
        auto proposal = sniffFile(file.string());
        ASSERT_TRUE(proposal) << proposal.error();
        EXPECT_EQ(read(proposal->text), proposal->set);
    }
}
