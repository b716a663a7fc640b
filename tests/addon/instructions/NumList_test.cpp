/*
 * Tests of number lists: parsing with its messages, membership and both
 * printers.
 */
#include <string>
#include <utility>
#include <vector>

#include "HostFixture.h"
#include "NumList.h"

using namespace corvane::cvnutildataio;

namespace {

using Ranges = std::vector<std::pair<int32_t, int32_t>>;

Ranges RangesOf(const TW_NumList_s &List)
{
    Ranges R;
    for (int32_t I = 0; I < List.NumRanges; I++)
        R.emplace_back(List.Ranges[I].Min, List.Ranges[I].Max);
    return R;
}

} // namespace

class NumListTest : public HostTest {};

TEST_F(NumListTest, ParsesRangesAndReportsEachError)
{
    struct Row {
        const char *Text;
        bool Bracket;
        bool Ok;
        const char *Message; /* nullptr: none */
        Ranges Expected;
        const char *Rest;
    };
    const Row Rows[] = {
        {"[1-5, 7, 10-END]", true, true, nullptr, {{1, 5}, {7, 7}, {10, 0}}, ""},
        {"[1,2", true, false, "Expected ending bracket (])", {{1, 1}, {2, 2}}, ""},
        {"1-end", false, true, nullptr, {{1, 0}}, ""},
        {"3 - eNd,", false, true, nullptr, {{3, 0}}, ""},
        {"[-3]", true, false, "Invalid character in number list", {}, "-3]"},
        {"5-x", false, false, nullptr, {}, "x"},
        {"[]", true, true, nullptr, {}, ""},
        {"", false, true, nullptr, {}, ""},
        {"", true, false, "Expected ending bracket (])", {}, ""},
        {",,3 ,[4", false, true, nullptr, {{3, 3}, {4, 4}}, ""},
        {"2]", false, false, "Invalid character in number list", {{2, 2}}, "]"},
        {"+2", false, false, "Invalid character in number list", {}, "+2"},
        {"12345678901", false, false, "Invalid integer in number range", {}, "1"},
        {"\t3 -\t9", false, true, nullptr, {{3, 9}}, ""},
        {"9-2", false, true, nullptr, {{9, 2}}, ""},
        {"[1] COLUMNS", true, true, nullptr, {{1, 1}}, " COLUMNS"},
        {"[1\n2]", true, false, "Invalid character in number list", {{1, 1}}, "\n2]"},
    };
    for (const Row &R : Rows) {
        const char *Cursor = R.Text;
        TW_NumList_s List;
        List.NumRanges = 99;
        char *Message = reinterpret_cast<char *>(1);
        EXPECT_EQ(ReadNumList(&Cursor, &List, R.Bracket, &Message), R.Ok) << R.Text;
        if (R.Message == nullptr) {
            EXPECT_EQ(Message, nullptr) << R.Text;
        } else {
            ASSERT_NE(Message, nullptr) << R.Text;
            EXPECT_STREQ(Message, R.Message) << R.Text;
        }
        CvnUtilStringDealloc(&Message);
        EXPECT_EQ(RangesOf(List), R.Expected) << R.Text;
        EXPECT_STREQ(Cursor, R.Rest) << R.Text;
    }

    /* without a message output; without a host string for the message */
    const char *Cursor = "[x]";
    TW_NumList_s List;
    EXPECT_FALSE(ReadNumList(&Cursor, &List, true, nullptr));
    Cursor = "[x]";
    char *Message = nullptr;
    corvane::host::failHostAllocationAt(1);
    EXPECT_FALSE(ReadNumList(&Cursor, &List, true, &Message));
    EXPECT_EQ(Message, nullptr);
    EXPECT_EQ(hostObjectsMade(), 0);
    EXPECT_TRUE(ui().errors().empty());
}

TEST_F(NumListTest, KeepsAtMostThirtyTwoRanges)
{
    std::string Text;
    for (int I = 1; I <= 40; I++)
        Text += std::to_string(I) + ",";
    const char *Cursor = Text.c_str();
    TW_NumList_s List;
    EXPECT_TRUE(ReadNumList(&Cursor, &List, false, nullptr));
    EXPECT_EQ(List.NumRanges, 32);
    EXPECT_EQ(List.Ranges[31].Min, 32);
}

TEST_F(NumListTest, TestsMembershipInOrder)
{
    const char *Cursor = "1-3, 5, 10-end";
    TW_NumList_s List;
    ASSERT_TRUE(ReadNumList(&Cursor, &List, false, nullptr));
    struct Row {
        int32_t Number;
        bool In;
    };
    const Row Rows[] = {{0, false}, {1, true}, {3, true},  {4, false},
                        {5, true},  {9, false}, {10, true}, {2000000000, true}};
    for (const Row &R : Rows)
        EXPECT_EQ(TW_NumIsInRange(R.Number, &List), R.In) << R.Number;

    Cursor = "1-end";
    ASSERT_TRUE(ReadNumList(&Cursor, &List, false, nullptr));
    EXPECT_FALSE(TW_NumIsInRange(0, &List));
    TW_NumList_s Empty{};
    EXPECT_FALSE(TW_NumIsInRange(1, &Empty));
}

TEST_F(NumListTest, PrintsPlainAndAsAssignment)
{
    const char *Cursor = "[1-5, 7, 10-END]";
    TW_NumList_s List;
    ASSERT_TRUE(ReadNumList(&Cursor, &List, true, nullptr));
    EXPECT_STREQ(Export_GetNumList(&List), "1-5,7,10-end");

    char *Out = nullptr;
    PrintList(&Out, "COLUMNS", &List, true);
    ASSERT_NE(Out, nullptr);
    EXPECT_STREQ(Out, "COLUMNS=[1-5,7,10-end] ");
    TW_NumList_s Rows{};
    Rows.NumRanges = 1;
    Rows.Ranges[0] = {2, 2};
    PrintList(&Out, "ROWS", &Rows, false);
    EXPECT_STREQ(Out, "COLUMNS=[1-5,7,10-end]  ROWS=[2] \n");
    CvnUtilStringDealloc(&Out);

    TW_NumList_s Empty{};
    EXPECT_STREQ(Export_GetNumList(&Empty), "");
    PrintList(&Out, "COLUMNS", &Empty, true);
    EXPECT_STREQ(Out, "COLUMNS=[] ");
    CvnUtilStringDealloc(&Out);

    /* an open end behind 0: plain text keeps the single number */
    TW_NumList_s Zero{};
    Zero.NumRanges = 2;
    Zero.Ranges[0] = {0, 0};
    Zero.Ranges[1] = {4, 0};
    EXPECT_STREQ(Export_GetNumList(&Zero), "0,4-end");
    PrintList(&Out, "ROWS", &Zero, true);
    EXPECT_STREQ(Out, "ROWS=[0-end,4-end] ");
    CvnUtilStringDealloc(&Out);

    /* the plain text stops at its buffer */
    TW_NumList_s Big{};
    Big.NumRanges = 32;
    for (auto &Range : Big.Ranges)
        Range = {1000000000, 2000000000};
    EXPECT_EQ(std::string(Export_GetNumList(&Big)).size(), 199u);
    EXPECT_EQ(hostObjectsMade(), 0);
}
