/* Line filters, line classification and cutting lines into values. */
#include <cstring>

#include "DataTokenizer.h"
#include "LineFilters.h"
#include "NumberScan.h"
#include "ScanFixture.h"

using V = std::vector<double>;

TEST(LineClassify, BlankAndNumericFollowLettersAndDigits)
{
    /* "bn": blank, numeric; lines past eight characters take the word-wise path */
    const std::pair<const char *, const char *> rows[] = {
        {"", "10"}, {"  - -- \t", "10"}, {"E", "00"}, {"1 2 x", "00"}, {"-.5e+3", "01"},
        {"\xe9 7", "01"}, {"#!", "10"}, {"--------5-------", "01"}, {"12345678 x", "00"},
        {"abcdefgh12345678", "00"}, {"\xe9\xe9\xe9\xe9\xe9\xe9\xe9\xe9 1", "01"},
        {"........:;<=>?/ ", "10"}, {"@@@@@@@@[[[[````{{{{", "10"}, {"eeeeeeee", "00"},
        {"0 1 2 3 4 5 6 7 8 9 Z", "00"}, {"eEeEeEeE1", "01"}, {"E-3e+5eE?>=<;:9876", "01"},
        {"fFfFfFfF1", "00"}, {"eeeeeeeeeeeeeeeex", "00"},
    };
    for (const auto &[line, expected] : rows)
        EXPECT_EQ(std::string() + "01"[tw::TW_IsBlankLine(line)] + "01"[tw::TW_IsNumericLine(line)],
                  expected)
            << line;
}

class LineTest : public ScanTest {
protected:
    inline static char buffer[64001];
    std::string filter(const char *line)
    {
        tw::TW_PreprocessLine(strcpy(buffer, line), &instr->GlobalFilters);
        return buffer;
    }
    V cut(const char *line, int number = 7)
    {
        const double *values = nullptr;
        int32_t count = -1;
        tw::TW_ScanLineForNumericData(strcpy(buffer, line), number, instr, &values, &count);
        return V(values, values + count);
    }
};
using CutTest = LineTest;

/* Filters set as the scan leaves them (lengths given). The comment is tested
   before the columns are dropped; a marker length of 0 or above 256 switches
   it off. Columns count the raw input; the keyword test sees dropped columns. */
TEST_F(LineTest, CommentKeywordAndColumnFilters)
{
    const struct {
        const char *comment; /* nullptr: no comment filter, the same for the keyword */
        int commentLength;
        const char *keyword;
        tw::TW_NumList_s columns; /* no ranges: no column filter */
        const char *line, *expected;
    } rows[] = {
        {"//", 2, nullptr, {1, {{1, 2}}}, "//1 2", ""},
        {"rem", 3, nullptr, {1, {{1, 2}}}, "xx 1 REM 2", " 1 "},
        {"rem", 0, nullptr, {}, "1 rem 2", "1 rem 2"},
        {nullptr, 0, nullptr, {2, {{2, 3}, {6, 0}}}, "abcdefgh", "ade"},
        {nullptr, 0, "zone", {2, {{2, 3}, {6, 0}}}, "1 2 Zone 3", ""},
        {nullptr, 0, "zone", {1, {{1, 4}}}, "zone 1 2", ""},
        {nullptr, 0, "zone", {1, {{1, 4}}}, "zon 1 2", "1 2"},
    };
    for (const auto &row : rows) {
        newInstructions();
        tw::TW_GlobalFilters_s &f = instr->GlobalFilters;
        f.UseComment = row.comment != nullptr;
        strcpy(f.Comment, row.comment ? row.comment : "");
        f.CommentLength = row.commentLength;
        f.UseKeyword = row.keyword != nullptr;
        strcpy(f.Keyword, row.keyword ? row.keyword : "");
        f.KeywordLength = row.keyword ? static_cast<int>(strlen(row.keyword)) : 0;
        f.UseColumns = row.columns.NumRanges > 0;
        f.Columns = row.columns;
        EXPECT_EQ(filter(row.line), row.expected) << row.line;
    }
}

/* Blank-cell mode keeps empty cells but no trailing one; other kinds cut
   tokens all the same, asking once per line about malformed ones. */
TEST_F(CutTest, BlankCellsAndTheMalformedTokenQuestion)
{
    const std::string question = "Possible malformed numeric data values were found on line 12"
                                 "\nPlease check this line of the file to be sure that numeric "
                                 "data is of the correct form.\nDo you want to continue "
                                 "processing this line?";
    const struct { const char *settings, *line; int answer; V values; } rows[] = {
        {"IGNORENONNUMERICTOKENS = FALSE IMPORT { DELIMITER = COMMA }", ",2,,4,", -1,
         {-999, 2, -999, 4}},
        {"IGNORENONNUMERICTOKENS = FALSE IMPORT { DELIMITER = COMMA }", "", -1, {-999}},
        {"IGNORENONNUMERICTOKENS = FALSE IMPORT { DELIMITER = SEMICOLON }", "1;;3,5", -1,
         {1, -999, -999}},
        {"IGNORENONNUMERICTOKENS = FALSE", "1 x 3 y", 1, {1, 3}},
        {"IGNORENONNUMERICTOKENS = FALSE", "1 x 3 y", 0, {1}},
        {"", "1,,2 x 3 12abc 1,5", -1, {1, 2, 3, 1, 5}},
        {"IMPORT { DELIMITER = FIXED WIDTH = 4 }", "  1 2.5 -3", -1, {1, 2.5, -3}},
    };
    for (const auto &row : rows) {
        newInstructions();
        ui().clearTranscript();
        set(std::string("DATA { ") + row.settings + " } GLOBALFILTERS { BLANKCELLVALUE = -999 }");
        if (row.answer >= 0)
            ui().queueAnswer(row.answer == 1);
        EXPECT_EQ(cut(row.line, 12), row.values) << row.settings << " [" << row.line << "]";
        EXPECT_EQ(ui().messages(), row.answer >= 0 ? Texts{question} : Texts{})
            << row.settings << " [" << row.line << "]";
    }
}

/* Values are read where they stand in the line: the result must be what
   cutting the line with the tokeniser and scanning each token gives, for
   every delimited kind, on lines of numbers, junk, blanks and separators.
   Fractions of eight digits and more, at the end of a line too, take the
   scanner's eight-at-a-time step. */
TEST_F(CutTest, ValuesInPlaceMatchTokensCutByTheTokeniser)
{
    const char *pieces[] = {"1.5", "-2e3", "+.5", "7.", "1e999", "1D2", "abc", "12x", "-",
                            ".", "0x10", "\"3\"", " ", "  ", "\t", ",", ";", ",,", "4 5",
                            "9\v8", "1e-5;", "\t-0.0\t", "1.23456789012345678901",
                            "0.12345678", "-2.7182818284e-03", "12.34567890123", "5.00000000",
                            "1.9999999999999999", "3.14159265x", "7.1234567E+4"};
    unsigned seed = 12345;
    auto next = [&seed]() { return (seed = seed * 1103515245u + 12345u) >> 16; };
    instr->IgnoreNonNumericTokens = true;
    for (int kind = tw::Delimiter_Auto; kind <= tw::Delimiter_Comma; kind++) {
        instr->DataDelimiter = static_cast<tw::TW_Delimiter_e>(kind);
        for (int n = 0; n < 2000; n++) {
            std::string line;
            for (unsigned k = next() % 9; k > 0; k--)
                line += pieces[next() % (sizeof(pieces) / sizeof(*pieces))];
            std::vector<double> expected;
            std::vector<char> copy(line.begin(), line.end());
            copy.push_back('\0');
            for (char *token = tw::TW_strtok(copy.data(), instr->DataDelimiter, 10, false);
                 token != nullptr; token = tw::TW_strtok(nullptr, tw::Delimiter_Auto, 10, false)) {
                const char *cursor = token;
                double value;
                if (tw::Str_ScanForDouble(&cursor, &value))
                    expected.push_back(value);
            }
            std::vector<double> got = cut(line.c_str());
            ASSERT_EQ(got.size(), expected.size()) << kind << " [" << line << "]";
            for (size_t i = 0; i < got.size(); i++)
                ASSERT_EQ(std::memcmp(&got[i], &expected[i], sizeof(double)), 0)
                    << kind << " [" << line << "] " << i;
        }
    }
}
