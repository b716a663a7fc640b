/*
 * Tests of the tokeniser, comparisons, trimming, bounded copies, file-name
 * cropping and splitting, integers and growing host strings.
 */
#include <cstring>
#include <string>
#include <vector>

#include "HostFixture.h"
#include "StringUtil.h"

using namespace corvane::cvnutildataio;
using Strings = std::vector<std::string>;

/* Every token of Line, as TW_strtok hands them out. */
static Strings Tokens(std::string Line, TW_Delimiter_e Kind, int Width, bool Quotes)
{
    Strings Result;
    for (char *T = TW_strtok(Line.data(), Kind, Width, Quotes); T;
         T = TW_strtok(nullptr, Delimiter_Auto, 0, Quotes))
        Result.push_back(T);
    return Result;
}

class StringUtilTest : public HostTest {};

TEST(TokenizerTest, SplitsEachDelimiterKindAsSpecified)
{
    struct Row {
        const char *Line;
        TW_Delimiter_e Kind;
        int Width;
        bool Quotes;
        Strings Expected;
    } Rows[] = {
        {"a,\"b,c\",d", Delimiter_Comma, 0, true, {"a", "b,c", "d"}},
        {"a,\"b,c\",d", Delimiter_Comma, 0, false, {"a", "\"b", "c\"", "d"}},
        {" 1, 2;;3\t4\r\n", Delimiter_Auto, 0, false, {"1", "2", "3", "4"}},
        {"a\tb  c", Delimiter_Space, 0, false, {"a\tb", "c"}},
        {"x;y z;;", Delimiter_Semicolon, 0, false, {"x", "y z"}},
        {"  \"New Data\"  x", Delimiter_Space, 0, true, {"New Data", "x"}},
        {"x,\"abc", Delimiter_Comma, 0, true, {"x", "abc"}},
        {"a b\r", Delimiter_Comma, 0, true, {"a b"}},
        {"abcd    efgh", Delimiter_Fixed, 4, false, {"abcd"}},
        {"  12  34 5", Delimiter_Fixed, 4, true, {"12", "34", "5"}},
    };
    for (const Row &R : Rows)
        EXPECT_EQ(Tokens(R.Line, R.Kind, R.Width, R.Quotes), R.Expected) << "[" << R.Line << "]";

    char Line[] = "a b,c d"; /* continuing ignores the kind passed */
    EXPECT_STREQ(TW_strtok(Line, Delimiter_Comma, 0, false), "a b");
    EXPECT_STREQ(TW_strtok(nullptr, Delimiter_Space, 0, false), "c d");
    EXPECT_EQ(TW_strtok(nullptr, Delimiter_Space, 0, false), nullptr);
}

TEST(SmallHelpersTest, CompareScanIntegersAndSplitPaths)
{
    EXPECT_EQ(Str_ustrncmp("aBc", "ABD", 2), 0);
    EXPECT_EQ(Str_ustrncmp("abc", "abd", 3), 'C' - 'D');
    EXPECT_EQ(Str_ustrncmp("ab", "a", 5), 'B');
    EXPECT_EQ(Str_ustrcmp(nullptr, "a"), -1);
    EXPECT_EQ(Str_ustrcmp(nullptr, nullptr), 0);
    EXPECT_NE(Str_ustrstr("Data Title here", "title"), nullptr);
    EXPECT_EQ(Str_ustrstr("abc", "abd"), nullptr);

    struct {
        const char *Text;
        bool Ok;
        LgIndex_t Value;
        const char *Rest;
    } Rows[] = {{" \t-7x", true, -7, "x"}, {"9999999999]", true, 9999999999LL, "]"},
                {"12345678901", false, 0, "1"}, {"+5", false, 0, "+5"}};
    for (const auto &R : Rows) {
        const char *Cursor = R.Text;
        LgIndex_t Value = 0;
        EXPECT_EQ(Str_ScanForLgIndex(&Cursor, &Value), R.Ok) << R.Text;
        EXPECT_EQ(Value, R.Value) << R.Text;
        EXPECT_STREQ(Cursor, R.Rest) << R.Text;
    }

    char Drive[256], Dir[256], Name[256], Ext[256];
    TW_splitpath("C:\\dir\\sub\\file.name.txt", Drive, Dir, Name, Ext);
    EXPECT_EQ(Strings({Drive, Dir, Name, Ext}),
              Strings({"C:", "\\dir\\sub\\", "file.name", ".txt"}));
    TW_splitpath("/a.b/c", Drive, Dir, Name, Ext);
    EXPECT_EQ(Strings({Drive, Dir, Name, Ext}), Strings({"", "/a.b/", "c", ""}));
    TW_splitpath(("/d/" + std::string(300, 'n')).c_str(), nullptr, nullptr, Name, nullptr);
    EXPECT_EQ(std::string(Name), std::string(255, 'n'));
}

TEST_F(StringUtilTest, TrimsCopiesCropsAndGrowsHostStrings)
{
    EXPECT_TRUE(IsAllSpaces(" \t ") && !IsAllSpaces(""));
    char Dest[300];
    TW_Strcpy(Dest, "  Title \t");
    EXPECT_STREQ(Dest, "Title");
    corvane::host::failHostAllocationAt(1); /* no trimmed copy: copied as is */
    TW_Strcpy(Dest, "  Title ");
    EXPECT_STREQ(Dest, "  Title ");
    TW_Strncpy(Dest, std::string(300, 'v').c_str(), 256);
    EXPECT_EQ(strlen(Dest), 255u);

    struct {
        const char *Name;
        int Max;
        const char *Expected;
    } Rows[] = {{"/data/run.txt", 37, "/data/run.txt"},
                {"/home/user/data/file.txt", 20, "/home/u.../file.txt"},
                {"/a/verylongfilename_here.txt", 10, "...ere.txt"},
                {"abcdefghijkl", 5, ""}};
    for (const auto &R : Rows) {
        char *Cropped = nullptr;
        TW_CropFileName(R.Name, &Cropped, R.Max);
        EXPECT_STREQ(Cropped, R.Expected) << R.Name;
        CvnUtilStringDealloc(&Cropped);
    }

    char *Text = nullptr;
    Str_TackOnString(&Text, "VERSION=100 ");
    Str_TackOnString(&Text, "TITLE");
    EXPECT_STREQ(Text, "VERSION=100 TITLE");
    corvane::host::failHostAllocationAt(1); /* the old string goes all the same */
    Str_TackOnString(&Text, "{");
    EXPECT_EQ(Text, nullptr);
    EXPECT_TRUE(Str_ReplaceString(&Text, "first"));
    EXPECT_TRUE(Str_ReplaceString(&Text, nullptr));
    EXPECT_EQ(Text, nullptr);
    corvane::host::failHostAllocationAt(1);
    EXPECT_FALSE(Str_ReplaceString(&Text, "second"));
    EXPECT_EQ(hostObjectsMade(), 0);
}
