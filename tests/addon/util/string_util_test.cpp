/* Tests of the tokeniser and the string helpers (compare, scan, split, copy, crop, grow). */
#include <cstring>
#include <tuple>

#include "HostFixture.h"
#include "DataTokenizer.h"
#include "NumberScan.h"
#include "StringUtil.h"

using namespace corvane::cvnutildataio;
using Strings = std::vector<std::string>;
using StringUtilTest = HostTest;

/* Every token of Line; the continuing calls pass a kind that is ignored. */
static Strings Tokens(std::string Line, TW_Delimiter_e Kind, int Width, bool Quotes)
{
    Strings Result;
    for (char *T = TW_strtok(Line.data(), Kind, Width, Quotes); T;
         T = TW_strtok(nullptr, Delimiter_Auto, 0, Quotes))
        Result.push_back(T);
    return Result;
}

TEST(TokenizerTest, SplitsEachDelimiterKindAsSpecified)
{
    struct { const char *Line; TW_Delimiter_e Kind; int Width; bool Quotes; Strings Tokens; }
    Rows[] = {
        {"a,\"b,c\",d", Delimiter_Comma, 0, true, {"a", "b,c", "d"}},
        {" 1, 2;;3\t4\r\n", Delimiter_Auto, 0, false, {"1", "2", "3", "4"}},
        {"a\tb  c", Delimiter_Space, 0, false, {"a\tb", "c"}},
        {"x;y z;;", Delimiter_Semicolon, 0, false, {"x", "y z"}},
        {"x,\"abc", Delimiter_Comma, 0, true, {"x", "abc"}},
        {"abcd    efgh", Delimiter_Fixed, 4, false, {"abcd"}},
        {"  12  34 5", Delimiter_Fixed, 4, true, {"12", "34", "5"}},
    };
    for (const auto &R : Rows)
        EXPECT_EQ(Tokens(R.Line, R.Kind, R.Width, R.Quotes), R.Tokens) << "[" << R.Line << "]";
}

TEST_F(StringUtilTest, ComparesIgnoringCase)
{
    EXPECT_EQ(Str_ustrncmp("aBc", "ABD", 2), 0);
    EXPECT_EQ(Str_ustrncmp("ab", "a", 5), 'B');
    EXPECT_EQ(Str_ustrcmp(nullptr, "a"), -1);
    EXPECT_NE(Str_ustrstr("a Title", "TITLE"), nullptr);
}

/* Whether it scanned, the value, and where the cursor ends. */
TEST_F(StringUtilTest, ScansIndices)
{
    for (const auto &[Text, Expected] : {std::pair{" \t-7x", "1 -7 [x]"}, {"+5", "0 0 [+5]"},
                                         {"9999999999]", "1 9999999999 []]"},
                                         {"12345678901", "0 0 [1]"}}) {
        const char *Cursor = Text;
        LgIndex_t Value = 0;
        bool Ok = Str_ScanForLgIndex(&Cursor, &Value);
        EXPECT_EQ(std::to_string(Ok) + " " + std::to_string(Value) + " [" + Cursor + "]", Expected);
    }
}

TEST_F(StringUtilTest, SplitsPathsCuttingPartsAt255)
{
    char Drive[256], Dir[256], Name[256], Ext[256];
    TW_splitpath(("C:\\a.b\\x." + std::string(300, 'n') + ".txt").c_str(), Drive, Dir, Name, Ext);
    EXPECT_EQ(Strings({Drive, Dir, Name, Ext}),
              Strings({"C:", "\\a.b\\", "x." + std::string(253, 'n'), ".txt"}));
}

/* Without a host string for the trimmed copy the text is copied as it is. */
TEST_F(StringUtilTest, CopiesTrimmed)
{
    for (long Fail : {0, 1}) {
        char Name[16];
        corvane::host::failHostAllocationAt(Fail);
        TW_Strcpy(Name, "  Title \t");
        EXPECT_STREQ(Name, Fail ? "  Title \t" : "Title");
    }
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(StringUtilTest, CropsFileNames)
{
    for (const auto &[File, Max, Expected] :
         {std::tuple{"abcdefghijkl", 5, ""}, {"/a/verylongfilename_here.txt", 10, "...ere.txt"},
          {"/home/user/data/file.txt", 20, "/home/u.../file.txt"}}) {
        char *Cropped = nullptr;
        TW_CropFileName(File, &Cropped, Max);
        EXPECT_STREQ(Cropped, Expected) << File;
        CvnUtilStringDealloc(&Cropped);
    }
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(StringUtilTest, TacksOnAndReplacesHostStrings)
{
    char *Text = nullptr;
    Str_TackOnString(&Text, "VERSION=100 ");
    Str_TackOnString(&Text, "TITLE");
    EXPECT_STREQ(Text, "VERSION=100 TITLE");
    EXPECT_TRUE(Str_ReplaceString(&Text, "first"));
    EXPECT_STREQ(Text, "first");
    EXPECT_TRUE(Str_ReplaceString(&Text, nullptr));
    EXPECT_EQ(Text, nullptr);
    EXPECT_EQ(hostObjectsMade(), 0);
}

/* Without the new host string the old one goes all the same. */
TEST_F(StringUtilTest, FailedTackOnOrReplaceLeavesNoString)
{
    for (bool Replace : {false, true}) {
        char *Text = nullptr;
        Str_TackOnString(&Text, "old");
        corvane::host::failHostAllocationAt(1);
        if (Replace)
            EXPECT_FALSE(Str_ReplaceString(&Text, "second"));
        else
            Str_TackOnString(&Text, "{");
        EXPECT_EQ(Text, nullptr) << Replace;
        EXPECT_EQ(hostObjectsMade(), 0) << Replace;
    }
}
