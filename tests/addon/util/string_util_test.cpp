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

TEST_F(StringUtilTest, ComparesScansSplitsTrimsCropsAndGrowsHostStrings)
{
    EXPECT_EQ(Str_ustrncmp("aBc", "ABD", 2), 0);
    EXPECT_EQ(Str_ustrncmp("ab", "a", 5), 'B');
    EXPECT_EQ(Str_ustrcmp(nullptr, "a"), -1);
    EXPECT_NE(Str_ustrstr("a Title", "TITLE"), nullptr);
    for (const auto &[Text, Expected] : {std::pair{" \t-7x", "1 -7 [x]"}, {"+5", "0 0 [+5]"},
                                         {"9999999999]", "1 9999999999 []]"},
                                         {"12345678901", "0 0 [1]"}}) {
        const char *Cursor = Text;
        LgIndex_t Value = 0;
        bool Ok = Str_ScanForLgIndex(&Cursor, &Value);
        EXPECT_EQ(std::to_string(Ok) + " " + std::to_string(Value) + " [" + Cursor + "]", Expected);
    }
    char Drive[256], Dir[256], Name[256], Ext[256];
    TW_splitpath(("C:\\a.b\\x." + std::string(300, 'n') + ".txt").c_str(), Drive, Dir, Name, Ext);
    EXPECT_EQ(Strings({Drive, Dir, Name, Ext}),
              Strings({"C:", "\\a.b\\", "x." + std::string(253, 'n'), ".txt"}));

    TW_Strcpy(Name, "  Title \t");
    EXPECT_STREQ(Name, "Title");
    corvane::host::failHostAllocationAt(1); /* no trimmed copy: copied as is */
    TW_Strcpy(Name, "  Title ");
    EXPECT_STREQ(Name, "  Title ");
    for (const auto &[File, Max, Expected] :
         {std::tuple{"abcdefghijkl", 5, ""}, {"/a/verylongfilename_here.txt", 10, "...ere.txt"},
          {"/home/user/data/file.txt", 20, "/home/u.../file.txt"}}) {
        char *Cropped = nullptr;
        TW_CropFileName(File, &Cropped, Max);
        EXPECT_STREQ(Cropped, Expected) << File;
        CvnUtilStringDealloc(&Cropped);
    }
    char *Text = nullptr;
    Str_TackOnString(&Text, "VERSION=100 ");
    Str_TackOnString(&Text, "TITLE");
    EXPECT_STREQ(Text, "VERSION=100 TITLE");
    corvane::host::failHostAllocationAt(1); /* the old string goes all the same */
    Str_TackOnString(&Text, "{");
    EXPECT_TRUE(Str_ReplaceString(&Text, "first"));
    EXPECT_TRUE(Str_ReplaceString(&Text, nullptr));
    corvane::host::failHostAllocationAt(1);
    EXPECT_FALSE(Str_ReplaceString(&Text, "second"));
    EXPECT_EQ(hostObjectsMade(), 0);
}
