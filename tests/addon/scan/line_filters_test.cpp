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
        tw::TW_PreprocessLine(strcpy(buffer, line), &f());
        return buffer;
    }
    V cut(const char *line, int number = 7)
    {
        const double *values = nullptr;
        int32_t count = -1;
        tw::TW_ScanLineForNumericData(strcpy(buffer, line), number, instr, &values, &count);
        return V(values, values + count);
    }
    void comment(const char *marker, int length)
    {
        f().UseComment = true;
        strcpy(f().Comment, marker);
        f().CommentLength = length;
    }
    tw::TW_GlobalFilters_s &f() { return instr->GlobalFilters; }
};
using CutTest = LineTest;

TEST_F(LineTest, CommentKeywordAndColumnFilters)
{
    comment("//", 2); /* tested before the columns are dropped */
    f().UseColumns = true;
    f().Columns = {1, {{1, 2}}};
    EXPECT_EQ(filter("//1 2"), "");
    comment("rem", 3);
    EXPECT_EQ(filter("xx 1 REM 2"), " 1 ");
    f().UseColumns = false;
    comment("rem", 0); /* a marker length of 0 or above 256 switches the test off */
    EXPECT_EQ(filter("1 rem 2"), "1 rem 2");

    /* Columns count the raw input; the line skip sees dropped columns. */
    f().UseComment = false;
    f().Columns = {2, {{2, 3}, {6, 0}}};
    f().UseColumns = true;
    EXPECT_EQ(filter("abcdefgh"), "ade");
    f().UseKeyword = true;
    strcpy(f().Keyword, "zone");
    f().KeywordLength = 4;
    EXPECT_EQ(filter("1 2 Zone 3"), "");
    f().Columns = {1, {{1, 4}}};
    EXPECT_EQ(filter("zone 1 2"), "");
    EXPECT_EQ(filter("zon 1 2"), "1 2");
}

TEST_F(CutTest, BlankCellsAndTheMalformedTokenQuestion)
{
    /* Blank-cell mode keeps empty cells but no trailing one. */
    set("DATA { IGNORENONNUMERICTOKENS = FALSE IMPORT { DELIMITER = COMMA } } "
        "GLOBALFILTERS { BLANKCELLVALUE = -999 }");
    EXPECT_EQ(cut(",2,,4,"), (V{-999, 2, -999, 4}));
    EXPECT_EQ(cut(""), (V{-999}));
    instr->DataDelimiter = tw::Delimiter_Semicolon;
    EXPECT_EQ(cut("1;;3,5"), (V{1, -999, -999}));
    /* Other kinds cut tokens all the same, asking once per line about malformed ones. */
    instr->DataDelimiter = tw::Delimiter_Auto;
    ui().queueAnswer(true);
    EXPECT_EQ(cut("1 x 3 y", 12), (V{1, 3}));
    ui().queueAnswer(false);
    EXPECT_EQ(cut("1 x 3 y", 12), (V{1}));
    instr->IgnoreNonNumericTokens = true;
    EXPECT_EQ(cut("1,,2 x 3 12abc 1,5"), (V{1, 2, 3, 1, 5}));
    instr->DataDelimiter = tw::Delimiter_Fixed;
    instr->DataWidth = 4;
    EXPECT_EQ(cut("  1 2.5 -3"), (V{1, 2.5, -3}));
    EXPECT_EQ(ui().messages(),
              Texts(2, "Possible malformed numeric data values were found on line 12\nPlease "
                       "check this line of the file to be sure that numeric data is of the "
                       "correct form.\nDo you want to continue processing this line?"));
}

/* Values are read where they stand in the line: the result must be what
   cutting the line with the tokeniser and scanning each token gives, for
   every delimited kind, on lines of numbers, junk, blanks and separators. */
TEST_F(CutTest, ValuesInPlaceMatchTokensCutByTheTokeniser)
{
    const char *pieces[] = {"1.5", "-2e3", "+.5", "7.", "1e999", "1D2", "abc", "12x", "-",
                            ".", "0x10", "\"3\"", " ", "  ", "\t", ",", ";", ",,", "4 5",
                            "9\v8", "1e-5;", "\t-0.0\t", "1.23456789012345678901"};
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
