/*
 * Tests of number lists: parsing with its messages, membership and both
 * printers.
 */
#include <string>

#include "HostFixture.h"
#include "NumList.h"

using namespace corvane::cvnutildataio;

class NumListTest : public HostTest {};

TEST_F(NumListTest, ParsesRangesAndReportsEachError)
{
    /* expected: the ranges as Export_GetNumList prints them */
    struct { const char *Text; bool Bracket, Ok; const char *Message, *Ranges, *Rest; } Rows[] = {
        {"[1-5, 7, 10-END]", true, true, nullptr, "1-5,7,10-end", ""},
        {"[1,2", true, false, "Expected ending bracket (])", "1,2", ""},
        {"", true, false, "Expected ending bracket (])", "", ""},
        {"3 - eNd,", false, true, nullptr, "3-end", ""},
        {"[-3]", true, false, "Invalid character in number list", "", "-3]"},
        {"2]", false, false, "Invalid character in number list", "2", "]"},
        {"12345678901", false, false, "Invalid integer in number range", "", "1"},
        {"5-x", false, false, nullptr, "", "x"},
        {"[]", true, true, nullptr, "", ""},
        {",,3 ,[4", false, true, nullptr, "3,4", ""},
        {"[1] COLUMNS", true, true, nullptr, "1", " COLUMNS"},
    };
    for (const auto &R : Rows) {
        const char *Cursor = R.Text;
        TW_NumList_s List;
        List.NumRanges = 99;
        char *Message = reinterpret_cast<char *>(1);
        EXPECT_EQ(ReadNumList(&Cursor, &List, R.Bracket, &Message), R.Ok) << R.Text;
        EXPECT_STREQ(Message, R.Message) << R.Text;
        CvnUtilStringDealloc(&Message);
        EXPECT_STREQ(Export_GetNumList(&List), R.Ranges) << R.Text;
        EXPECT_STREQ(Cursor, R.Rest) << R.Text;
    }
    const char *Cursor = "[x]";
    TW_NumList_s List;
    EXPECT_FALSE(ReadNumList(&Cursor, &List, true, nullptr));
    Cursor = "[x]";
    char *Message = nullptr;
    corvane::host::failHostAllocationAt(1);
    EXPECT_FALSE(ReadNumList(&Cursor, &List, true, &Message));
    EXPECT_EQ(Message, nullptr);

    std::string Long; /* ranges beyond the 32 slots are read but not kept */
    for (int I = 1; I <= 40; I++)
        Long += std::to_string(I) + ",";
    Cursor = Long.c_str();
    EXPECT_TRUE(ReadNumList(&Cursor, &List, false, nullptr));
    EXPECT_EQ(List.NumRanges, 32);
    EXPECT_EQ(List.Ranges[31].Min, 32);
    EXPECT_EQ(hostObjectsMade(), 0);
    EXPECT_TRUE(ui().errors().empty());
}

TEST_F(NumListTest, TestsMembershipAndPrints)
{
    const char *Cursor = "[1-5, 7, 10-END]";
    TW_NumList_s List;
    ASSERT_TRUE(ReadNumList(&Cursor, &List, true, nullptr));
    std::string In;
    for (int32_t N : {0, 1, 5, 6, 7, 8, 9, 10, 2000000000})
        In += TW_NumIsInRange(N, &List) ? "y" : "n";
    EXPECT_EQ(In, "nyynynnyy");
    TW_NumList_s Empty{};
    EXPECT_FALSE(TW_NumIsInRange(1, &Empty));

    char *Out = nullptr;
    PrintList(&Out, "COLUMNS", &List, true);
    EXPECT_STREQ(Out, "COLUMNS=[1-5,7,10-end] ");
    TW_NumList_s Zero{2, {{0, 0}, {4, 4}}}; /* an open end behind 0: "-end" here only */
    PrintList(&Out, "ROWS", &Zero, false);
    PrintList(&Out, "ROWS", &Empty, true);
    EXPECT_STREQ(Out, "COLUMNS=[1-5,7,10-end]  ROWS=[0-end,4] \nROWS=[] ");
    EXPECT_STREQ(Export_GetNumList(&Zero), "0,4");
    CvnUtilStringDealloc(&Out);

    TW_NumList_s Big{32, {}}; /* the plain text stops at its buffer */
    for (auto &Range : Big.Ranges)
        Range = {1000000000, 2000000000};
    EXPECT_EQ(std::string(Export_GetNumList(&Big)).size(), 199u);
    EXPECT_EQ(hostObjectsMade(), 0);
}
