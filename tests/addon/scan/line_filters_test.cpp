/* Line filters, line classification and cutting lines into values. */
#include <cstring>
#include <string>
#include <vector>

#include "LineFilters.h"
#include "ScanFixture.h"

namespace {

struct ClassRow {
    const char *line;
    bool blank;
    bool numeric;
};

TEST(LineClassify, BlankAndNumericFollowLettersAndDigits)
{
    const ClassRow rows[] = {
        {"", true, false},        {"  - -- \t", true, false}, {"abc", false, false},
        {"1,2;3", false, true},   {"-.5e+3", false, true},    {"E", false, false},
        {"1 2 x", false, false},  {"1E5 2e-3", false, true},  {"\xe9 7", false, true},
        {"#!", true, false},
        /* Lines longer than eight characters, letters before and after. */
        {"        ", true, false},          {"--------5-------", false, true},
        {"1.0e+05 2.0E-03 -7", false, true}, {"12345678 x", false, false},
        {"abcdefgh12345678", false, false}, {"\xe9\xe9\xe9\xe9\xe9\xe9\xe9\xe9 1", false, true},
        {"........:;<=>?/ ", true, false},  {"@@@@@@@@[[[[````{{{{", true, false},
        {"0 1 2 3 4 5 6 7 8 9 Z", false, false}, {"eeeeeeee", false, false},
        {"eEeEeEeE1", false, true},            {"E-3e+5eE?>=<;:9876", false, true},
        {"fFfFfFfF1", false, false},           {"eeeeeeeeeeeeeeeex", false, false},
    };
    for (const ClassRow &row : rows) {
        EXPECT_EQ(tw::TW_IsBlankLine(row.line), row.blank) << row.line;
        EXPECT_EQ(tw::TW_IsNumericLine(row.line), row.numeric) << row.line;
    }
}

class FilterTest : public ScanTest {
protected:
    std::string filter(const char *line)
    {
        static char buffer[64001];
        strcpy(buffer, line);
        tw::TW_PreprocessLine(buffer, &instr->GlobalFilters);
        return buffer;
    }
    void columns(std::vector<std::pair<int, int>> ranges)
    {
        instr->GlobalFilters.UseColumns = true;
        instr->GlobalFilters.Columns.NumRanges = (int32_t)ranges.size();
        for (size_t i = 0; i < ranges.size(); i++)
            instr->GlobalFilters.Columns.Ranges[i] = {ranges[i].first, ranges[i].second};
    }
    tw::TW_GlobalFilters_s &f() { return instr->GlobalFilters; }
};

TEST_F(FilterTest, CommentCutsBeforeTheMarkerAndIsTestedBeforeColumns)
{
    f().UseComment = true;
    strcpy(f().Comment, "#");
    f().CommentLength = 1;
    EXPECT_EQ(filter("1 2 # 3"), "1 2 ");
    EXPECT_EQ(filter("no marker"), "no marker");

    strcpy(f().Comment, "//");
    f().CommentLength = 2;
    columns({{1, 2}});
    EXPECT_EQ(filter("//1 2"), "");
    EXPECT_EQ(filter("ab/x//y"), "/x");
    strcpy(f().Comment, "rem");
    f().CommentLength = 3;
    EXPECT_EQ(filter("xx 1 REM 2"), " 1 ");

    /* A marker length of 0 or above 256 switches the comment test off. */
    f().UseColumns = false;
    f().CommentLength = 0;
    EXPECT_EQ(filter("1 rem 2"), "1 rem 2");
    f().CommentLength = 257;
    EXPECT_EQ(filter("1 rem 2"), "1 rem 2");
}

TEST_F(FilterTest, ColumnsCountTheRawInputAndLineSkipSeesDroppedColumns)
{
    columns({{2, 3}, {6, 0}});
    EXPECT_EQ(filter("abcdefgh"), "ade");

    f().UseKeyword = true;
    strcpy(f().Keyword, "zone");
    f().KeywordLength = 4;
    EXPECT_EQ(filter("1 2 Zone 3"), "");
    EXPECT_EQ(filter("ZONE"), "");
    columns({{1, 4}});
    EXPECT_EQ(filter("zone 1 2"), "");
    EXPECT_EQ(filter("zon 1 2"), "1 2");
    f().KeywordLength = 0;
    EXPECT_EQ(filter("zone 1 2"), " 1 2");
}

class CutTest : public ScanTest {
protected:
    std::vector<double> cut(const char *line, int number = 7)
    {
        static char buffer[64001];
        strcpy(buffer, line);
        const double *values = nullptr;
        int32_t count = -1;
        tw::TW_ScanLineForNumericData(buffer, number, instr, &values, &count);
        return std::vector<double>(values, values + count);
    }
};

TEST_F(CutTest, BlankCellModeKeepsEmptyCellsButNoTrailingOne)
{
    instr->GlobalFilters.UseBlankCellValue = true;
    instr->GlobalFilters.BlankCellValue = -999;
    instr->IgnoreNonNumericTokens = false;
    instr->DataDelimiter = tw::Delimiter_Comma;
    EXPECT_EQ(cut(",2,,4,"), (std::vector<double>{-999, 2, -999, 4}));
    EXPECT_EQ(cut(""), (std::vector<double>{-999}));
    EXPECT_EQ(cut(","), (std::vector<double>{-999}));
    EXPECT_EQ(cut(" 1.5 , x ,3e2"), (std::vector<double>{1.5, -999, 300}));
    instr->DataDelimiter = tw::Delimiter_Semicolon;
    EXPECT_EQ(cut("1;;3,5"), (std::vector<double>{1, -999, -999}));
    EXPECT_TRUE(ui().messages().empty());

    /* Other delimiters cut tokens even with a blank value in use. */
    instr->DataDelimiter = tw::Delimiter_Auto;
    instr->IgnoreNonNumericTokens = true;
    EXPECT_EQ(cut("1,,2"), (std::vector<double>{1, 2}));
}

TEST_F(CutTest, TokenModeAsksOncePerLineAboutMalformedTokens)
{
    const std::string question =
        "Possible malformed numeric data values were found on line 12\nPlease check this line "
        "of the file to be sure that numeric data is of the correct form.\nDo you want to "
        "continue processing this line?";
    instr->IgnoreNonNumericTokens = false;
    ui().queueAnswer(true);
    EXPECT_EQ(cut("1 x 3 y", 12), (std::vector<double>{1, 3}));
    ui().queueAnswer(false);
    EXPECT_EQ(cut("1 x 3 y", 12), (std::vector<double>{1}));
    EXPECT_EQ(ui().messages(), (Texts{question, question}));

    instr->IgnoreNonNumericTokens = true;
    EXPECT_EQ(cut("1 x 3 12abc 1,5"), (std::vector<double>{1, 3, 1, 5}));
    instr->DataDelimiter = tw::Delimiter_Fixed;
    instr->DataWidth = 4;
    EXPECT_EQ(cut("  1 2.5 -3"), (std::vector<double>{1, 2.5, -3}));
    EXPECT_EQ(ui().messages().size(), 2u);
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

} // namespace
