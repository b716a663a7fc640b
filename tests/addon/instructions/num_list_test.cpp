/* Tests of number lists: parsing with its messages, membership and both printers. */
#include <string>
#include <tuple>

#include "HostFixture.h"
#include "NumList.h"

using namespace corvane::cvnutildataio;
using NumListTest = HostTest;

/* Whether Text read, the list printed, the message and where the cursor ends. */
static std::string Read(const std::string &Text, bool Bracket)
{
    const char *Cursor = Text.c_str();
    TW_NumList_s List{99, {}};
    char *Message = reinterpret_cast<char *>(1); /* cleared when there is none */
    bool Ok = ReadNumList(&Cursor, &List, Bracket, &Message);
    std::string Result = std::to_string(Ok) + " " + Export_GetNumList(&List) + " (" +
                         (Message ? Message : "") + ") [" + Cursor + "]";
    CvnUtilStringDealloc(&Message);
    return Result;
}

TEST_F(NumListTest, ReadsListsWithTheirMessages)
{
    std::string Long; /* ranges beyond the 32 slots are read but not kept */
    for (int I = 1; I <= 40; I++)
        Long += std::to_string(I) + ",";
    const std::tuple<std::string, bool, std::string> Rows[] = {
        {"[1-5, 7, 10-END]", true, "1 1-5,7,10-end () []"},
        {"[1,2", true, "0 1,2 (Expected ending bracket (])) []"},
        {"3 - eNd,", false, "1 3-end () []"},
        {"[-3]", true, "0  (Invalid character in number list) [-3]]"},
        {"12345678901", false, "0  (Invalid integer in number range) [1]"},
        {"2147483647,2147483648", false, "0 2147483647 (Invalid integer in number range) []"},
        {"1-3000000000", false, "0  (Invalid integer in number range) []"},
        {"5-x", false, "0  () [x]"},
        {"[1] COLUMNS", true, "1 1 () [ COLUMNS]"},
        {Long, false, "1 " + Long.substr(0, 86) + " () []"},
    };
    for (const auto &[Text, Bracket, Expected] : Rows)
        EXPECT_EQ(Read(Text, Bracket), Expected);
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(NumListTest, WithoutAHostStringForTheMessageOnlyTheFailureIsSeen)
{
    corvane::host::failHostAllocationAt(1);
    EXPECT_EQ(Read("[x]", true), "0  () [x]]");
}

TEST_F(NumListTest, TestsMembershipAndPrints)
{
    TW_NumList_s List{3, {{1, 5}, {7, 7}, {10, 0}}}, Empty{}, Zero{2, {{0, 0}, {4, 4}}};
    std::string In;
    for (int32_t N : {0, 1, 5, 6, 7, 8, 9, 10, 2000000000})
        In += TW_NumIsInRange(N, &List) ? "y" : "n";
    EXPECT_EQ(In, "nyynynnyy");
    EXPECT_FALSE(TW_NumIsInRange(1, &Empty));
    char *Out = nullptr;
    PrintList(&Out, "COLUMNS", &List, true);
    PrintList(&Out, "ROWS", &Zero, false); /* an open end behind 0: "-end" here only */
    PrintList(&Out, "ROWS", &Empty, true);
    EXPECT_STREQ(Out, "COLUMNS=[1-5,7,10-end]  ROWS=[0-end,4] \nROWS=[] ");
    EXPECT_STREQ(Export_GetNumList(&Zero), "0,4");
    CvnUtilStringDealloc(&Out);
    EXPECT_EQ(hostObjectsMade(), 0);
}
