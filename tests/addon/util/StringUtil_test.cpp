/*
 * Tests of the tokeniser, comparisons, trimming, bounded copies, file-name
 * cropping and splitting, and growing host strings.
 */
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "HostFixture.h"
#include "StringUtil.h"

using namespace corvane::cvnutildataio;

namespace {

/* Every token of Line, as TW_strtok hands them out. */
std::vector<std::string> Tokens(std::string Line, TW_Delimiter_e Kind, int Width, bool Quotes)
{
    std::vector<char> Buffer(Line.begin(), Line.end());
    Buffer.push_back('\0');
    std::vector<std::string> Result;
    for (char *T = TW_strtok(Buffer.data(), Kind, Width, Quotes); T != nullptr;
         T = TW_strtok(nullptr, Delimiter_Auto, 0, Quotes))
        Result.push_back(T);
    return Result;
}

using Strings = std::vector<std::string>;

} // namespace

class StringUtilTest : public HostTest {};

TEST(TokenizerTest, SplitsEachDelimiterKindAsSpecified)
{
    struct Row {
        const char *Line;
        TW_Delimiter_e Kind;
        int Width;
        bool Quotes;
        Strings Expected;
    };
    const Row Rows[] = {
        {"a,\"b,c\",d", Delimiter_Comma, 0, true, {"a", "b,c", "d"}},
        {"a,\"b,c\",d", Delimiter_Comma, 0, false, {"a", "\"b", "c\"", "d"}},
        {" 1, 2;;3\t4\r\n", Delimiter_Auto, 0, false, {"1", "2", "3", "4"}},
        {"a\tb c", Delimiter_Space, 0, false, {"a\tb", "c"}},
        {"a\t\tb\t", Delimiter_Tab, 0, false, {"a", "b"}},
        {"x;y z;;", Delimiter_Semicolon, 0, false, {"x", "y z"}},
        {"", Delimiter_Auto, 0, false, {}},
        {" ,; ", Delimiter_Auto, 0, true, {}},
        /* quotes: delimiters inside are kept, an open quote runs to the end */
        {"  \"New Data\"  x", Delimiter_Space, 0, true, {"New Data", "x"}},
        {"x,\"abc", Delimiter_Comma, 0, true, {"x", "abc"}},
        {"a b\r", Delimiter_Comma, 0, true, {"a b"}},
        {"\"\",b", Delimiter_Comma, 0, true, {"", "b"}},
        /* fixed width: trimmed fields, a short last field, a blank field ends */
        {"abcd    efgh", Delimiter_Fixed, 4, false, {"abcd"}},
        {"  12  34 5", Delimiter_Fixed, 4, true, {"12", "34", "5"}},
        {"1 2 3 ", Delimiter_Fixed, 2, false, {"1", "2", "3"}},
        {"\"a,b\"", Delimiter_Fixed, 10, true, {"\"a,b\""}},
        {"abc", Delimiter_Fixed, 0, false, {}},
    };
    for (const Row &R : Rows)
        EXPECT_EQ(Tokens(R.Line, R.Kind, R.Width, R.Quotes), R.Expected)
            << "line [" << R.Line << "] kind " << R.Kind << " quotes " << R.Quotes;
}

TEST(TokenizerTest, ContinuingUsesTheSavedKindAndEndsForGood)
{
    char Line[] = "a b,c d";
    EXPECT_STREQ(TW_strtok(Line, Delimiter_Comma, 0, false), "a b");
    EXPECT_STREQ(TW_strtok(nullptr, Delimiter_Space, 0, false), "c d");
    EXPECT_EQ(TW_strtok(nullptr, Delimiter_Space, 0, false), nullptr);
    EXPECT_EQ(TW_strtok(nullptr, Delimiter_Space, 0, false), nullptr);

    /* a new line restarts, also in fixed width after a delimited line */
    char Fixed[] = "123456";
    EXPECT_STREQ(TW_strtok(Fixed, Delimiter_Fixed, 3, false), "123");
    EXPECT_STREQ(TW_strtok(nullptr, Delimiter_Comma, 0, false), "456");
    EXPECT_EQ(TW_strtok(nullptr, Delimiter_Comma, 0, false), nullptr);
}

TEST(CompareTest, FoldsAsciiCaseAndOrdersNullFirst)
{
    struct Row {
        const char *A;
        const char *B;
        size_t N;
        int Expected;
    };
    const Row Rows[] = {
        {"aBc", "ABD", 2, 0},   {"abc", "abd", 3, 'C' - 'D'}, {"ab", "a", 5, 'B'},
        {"END", "end5", 3, 0},  {nullptr, "a", 1, -1},        {"a", nullptr, 1, 1},
        {nullptr, nullptr, 1, 0}, {"x", "y", 0, 0},           {"[", "{", 1, '[' - '{'},
    };
    for (const Row &R : Rows)
        EXPECT_EQ(Str_ustrncmp(R.A, R.B, R.N), R.Expected)
            << (R.A ? R.A : "NULL") << " vs " << (R.B ? R.B : "NULL") << " n " << R.N;
    EXPECT_EQ(Str_ustrcmp("Pressure", "PRESSURE"), 0);
    EXPECT_LT(Str_ustrcmp("Pres", "PRESSURE"), 0);
    EXPECT_GT(Str_ustrcmp("z", nullptr), 0);

    EXPECT_NE(Str_ustrstr("Data Title here", "title"), nullptr);
    EXPECT_EQ(Str_ustrstr("abc", "abd"), nullptr);
    EXPECT_EQ(Str_ustrstr(nullptr, "a"), nullptr);
    EXPECT_EQ(Str_ustrstr("a", nullptr), nullptr);
}

TEST_F(StringUtilTest, TrimsAndCopiesBounded)
{
    EXPECT_FALSE(IsAllSpaces(""));
    EXPECT_FALSE(IsAllSpaces(nullptr));
    EXPECT_TRUE(IsAllSpaces(" \t "));
    EXPECT_FALSE(IsAllSpaces(" x "));
    EXPECT_FALSE(IsAllSpaces(" \n"));

    const char *TrimRows[][2] = {{"  x\t", "x"}, {"", ""}, {" a b ", "a b"}, {"\tq", "q"}};
    for (auto &Row : TrimRows) {
        char *Trimmed = TrimString(Row[0]);
        ASSERT_NE(Trimmed, nullptr);
        EXPECT_STREQ(Trimmed, Row[1]);
        CvnUtilStringDealloc(&Trimmed);
    }

    char Dest[64];
    TW_Strcpy(Dest, "  Title \t");
    EXPECT_STREQ(Dest, "Title");
    /* without a host string for the trimmed copy the text is copied as is */
    corvane::host::failHostAllocationAt(1);
    TW_Strcpy(Dest, "  Title ");
    EXPECT_STREQ(Dest, "  Title ");

    std::string Long(300, 'v');
    char Bounded[300];
    memset(Bounded, 'z', sizeof Bounded);
    TW_Strncpy(Bounded, Long.c_str(), 256);
    EXPECT_EQ(strlen(Bounded), 255u);
    EXPECT_EQ(Bounded[256], 'z');
    TW_Strncpy(Bounded, "ab", 256);
    EXPECT_STREQ(Bounded, "ab");
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(StringUtilTest, CropsFileNamesForDisplay)
{
    struct Row {
        const char *Name;
        int Max;
        const char *Expected;
    };
    const Row Rows[] = {
        {"/data/run.txt", 37, "/data/run.txt"},
        {"/home/user/data/file.txt", 20, "/home/u.../file.txt"},
        {"/a/verylongfilename_here.txt", 10, "...ere.txt"},
        {"C:file_name.dat", 12, "..._name.dat"},
        {"C:\\runs\\2024\\pressure.dat", 22, "C:\\ru...\\pressure.dat"},
        {"abcdefghijkl", 5, ""},
    };
    for (const Row &R : Rows) {
        char *Cropped = nullptr;
        TW_CropFileName(R.Name, &Cropped, R.Max);
        ASSERT_NE(Cropped, nullptr);
        EXPECT_STREQ(Cropped, R.Expected) << R.Name << " max " << R.Max;
        CvnUtilStringDealloc(&Cropped);
    }
    corvane::host::failHostAllocationAt(1);
    char *Cropped = reinterpret_cast<char *>(1);
    TW_CropFileName("/a/b", &Cropped, 37);
    EXPECT_EQ(Cropped, nullptr);
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(StringUtilTest, GrowsAndReplacesHostStrings)
{
    char *Text = nullptr;
    Str_TackOnString(&Text, "VERSION=100 ");
    Str_TackOnString(&Text, "");
    Str_TackOnString(&Text, "TITLE");
    ASSERT_NE(Text, nullptr);
    EXPECT_STREQ(Text, "VERSION=100 TITLE");
    EXPECT_EQ(hostObjectsMade(), 1);

    /* a failed growth still releases the old string */
    corvane::host::failHostAllocationAt(1);
    Str_TackOnString(&Text, "{");
    EXPECT_EQ(Text, nullptr);
    EXPECT_EQ(hostObjectsMade(), 0);

    char *Name = nullptr;
    EXPECT_TRUE(Str_ReplaceString(&Name, "first"));
    EXPECT_TRUE(Str_ReplaceString(&Name, "second"));
    EXPECT_STREQ(Name, "second");
    EXPECT_TRUE(Str_ReplaceString(&Name, nullptr));
    EXPECT_EQ(Name, nullptr);
    EXPECT_TRUE(Str_ReplaceString(&Name, "third"));
    corvane::host::failHostAllocationAt(1);
    EXPECT_FALSE(Str_ReplaceString(&Name, "fourth"));
    EXPECT_EQ(Name, nullptr);
    EXPECT_EQ(hostObjectsMade(), 0);
    EXPECT_TRUE(ui().errors().empty());
}

TEST(IntegerScanTest, ReadsUpToTenDigitsAfterAnOptionalMinus)
{
    struct Row {
        const char *Text;
        bool Ok;
        LgIndex_t Value;
        const char *Rest;
    };
    const Row Rows[] = {
        {"42", true, 42, ""},
        {" \t-7x", true, -7, "x"},
        {"0012,", true, 12, ","},
        {"1234567890", true, 1234567890, ""},
        {"9999999999]", true, 9999999999LL, "]"},
        {"12345678901", false, 0, "1"},
        {"+5", false, 0, "+5"},
        {"-", false, 0, ""},
        {"- 3", false, 0, " 3"},
        {"\n3", false, 0, "\n3"},
        {"abc", false, 0, "abc"},
    };
    for (const Row &R : Rows) {
        const char *Cursor = R.Text;
        LgIndex_t Value = -999;
        EXPECT_EQ(Str_ScanForLgIndex(&Cursor, &Value), R.Ok) << R.Text;
        if (R.Ok)
            EXPECT_EQ(Value, R.Value) << R.Text;
        else
            EXPECT_EQ(Value, -999) << R.Text;
        EXPECT_STREQ(Cursor, R.Rest) << R.Text;
    }

    const char *Cursor = " \t x";
    Str_RemoveWhiteSpace(&Cursor);
    EXPECT_STREQ(Cursor, "x");
    Cursor = "\nx";
    Str_RemoveWhiteSpace(&Cursor);
    EXPECT_STREQ(Cursor, "\nx");
    Cursor = "# comment\nVERSION";
    Str_RemoveThroughEndOfLine(&Cursor);
    EXPECT_STREQ(Cursor, "VERSION");
    Cursor = "no newline";
    Str_RemoveThroughEndOfLine(&Cursor);
    EXPECT_STREQ(Cursor, "");
}

TEST(SplitPathTest, SplitsDriveDirectoryNameAndExtension)
{
    struct Row {
        const char *Path;
        const char *Drive, *Dir, *Name, *Ext;
    };
    const Row Rows[] = {
        {"C:\\dir\\sub\\file.name.txt", "C:", "\\dir\\sub\\", "file.name", ".txt"},
        {"/a.b/c", "", "/a.b/", "c", ""},
        {"name", "", "", "name", ""},
        {".hidden", "", "", "", ".hidden"},
        {"dir/", "", "dir/", "", ""},
        {"d:/x\\y.twc", "d:", "/x\\", "y", ".twc"},
        {"", "", "", "", ""},
    };
    for (const Row &R : Rows) {
        char Drive[256], Dir[256], Name[256], Ext[256];
        TW_splitpath(R.Path, Drive, Dir, Name, Ext);
        EXPECT_STREQ(Drive, R.Drive) << R.Path;
        EXPECT_STREQ(Dir, R.Dir) << R.Path;
        EXPECT_STREQ(Name, R.Name) << R.Path;
        EXPECT_STREQ(Ext, R.Ext) << R.Path;
    }
    std::string Long = "/dir/" + std::string(300, 'n') + ".txt";
    char Name[256];
    TW_splitpath(Long.c_str(), nullptr, nullptr, Name, nullptr);
    EXPECT_EQ(std::string(Name), std::string(255, 'n'));
}

TEST(FileOpenTest, OpensWithTheGivenMode)
{
    std::string Path = testing::TempDir() + "fileopen_test.txt";
    FILE *F = corvane::filesystem::fileOpen(Path, "w");
    ASSERT_NE(F, nullptr);
    fputs("1 2\n", F);
    fclose(F);
    F = corvane::filesystem::fileOpen(Path, "r");
    ASSERT_NE(F, nullptr);
    char Line[16] = {};
    EXPECT_NE(fgets(Line, sizeof Line, F), nullptr);
    EXPECT_STREQ(Line, "1 2\n");
    fclose(F);
    remove(Path.c_str());
    EXPECT_EQ(corvane::filesystem::fileOpen(Path, "r"), nullptr);
}
