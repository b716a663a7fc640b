/*
 * Tests of the variable-name entry copies, lookup and TW_MulDiv.
 */
#include <cstring>
#include <string>

#include "HostFixture.h"
#include "TW_Alloc.h"
#include "VarList.h"

using namespace corvane::cvnutildataio;

namespace {

TW_Variable_s Entry(const char *Name, bool Selected, int32_t Width, int32_t Length)
{
    TW_Variable_s E{};
    strncpy(E.Name, Name, TW_MAX_VARNAME_LENGTH);
    E.Selected = Selected;
    E.ColumnWidth = Width;
    E.NameLength = Length;
    return E;
}

} // namespace

class VarListTest : public HostTest {
protected:
    void TearDown() override
    {
        TW_AllocFailAt(0);
        HostTest::TearDown();
    }
};

TEST_F(VarListTest, CopiesFromOutsideCutNamesAndResetSelectionAndWidth)
{
    std::string Long(200, 'L');
    TW_Variable_s Source[3] = {Entry("x", false, 40, 99), Entry("Pressure", false, 2, 0),
                               Entry("", false, 0, 0)};
    /* a source name that fills the whole array, without a terminator */
    memset(Source[2].Name, 'L', sizeof Source[2].Name);
    TW_Variable_s *Names = nullptr;
    int32_t Count = -1;
    CopyVarToVar(&Names, Source, &Count, 3);
    ASSERT_EQ(Count, 3);
    EXPECT_STREQ(Names[0].Name, "x");
    EXPECT_EQ(Names[0].NameLength, 1);
    EXPECT_EQ(Names[0].ColumnWidth, 6);
    EXPECT_TRUE(Names[0].Selected);
    EXPECT_EQ(Names[1].NameLength, 8);
    EXPECT_EQ(Names[1].ColumnWidth, 8);
    EXPECT_TRUE(Names[1].Selected);
    EXPECT_EQ(std::string(Names[2].Name), Long.substr(0, 128));
    EXPECT_EQ(Names[2].NameLength, 128);
    EXPECT_EQ(Names[2].ColumnWidth, 128);

    /* copying a block onto itself and then nothing */
    CopyVarToVar(&Names, Names, &Count, 2);
    EXPECT_EQ(Count, 2);
    EXPECT_STREQ(Names[1].Name, "Pressure");
    CopyVarToVar(&Names, Source, &Count, 0);
    EXPECT_EQ(Names, nullptr);
    EXPECT_EQ(Count, 0);

    TW_AllocFailAt(1);
    CopyVarToVar(&Names, Source, &Count, 2);
    EXPECT_EQ(Names, nullptr);
    EXPECT_EQ(Count, 0);
    EXPECT_EQ(ui().errors(), std::vector<std::string>{"Out of memory"});
}

TEST_F(VarListTest, ExactCopyKeepsSelectionAndWidth)
{
    TW_Variable_s Source[2] = {Entry("Temperature", false, 17, 3), Entry("t", true, 2, 1)};
    TW_Variable_s *Names = nullptr;
    int32_t Count = 0;
    CopyVarToVar(&Names, Source, &Count, 1); /* an old block to replace */
    TW_CopyVarNameArray(Source, 2, &Names, &Count);
    ASSERT_EQ(Count, 2);
    EXPECT_STREQ(Names[0].Name, "Temperature");
    EXPECT_EQ(Names[0].NameLength, 11);
    EXPECT_FALSE(Names[0].Selected);
    EXPECT_EQ(Names[0].ColumnWidth, 17);
    EXPECT_EQ(Names[1].ColumnWidth, 2);

    TW_AllocFailAt(1);
    TW_CopyVarNameArray(Source, 2, &Names, &Count);
    EXPECT_EQ(Names, nullptr);
    EXPECT_EQ(Count, 0);
    EXPECT_EQ(ui().errors(), std::vector<std::string>{"Out of memory"});
    TW_CopyVarNameArray(Source, 0, &Names, &Count);
    EXPECT_EQ(Names, nullptr);
}

TEST_F(VarListTest, CopiesHostStringListsAndReleasesEveryString)
{
    StringList_s *List = CvnUtilStringListAlloc();
    ASSERT_NE(List, nullptr);
    std::string Long(150, 'q');
    for (const char *Name : {"X", "Velocity", Long.c_str()})
        ASSERT_TRUE(CvnUtilStringListAppendString(List, Name));

    TW_Variable_s *Names = nullptr;
    CopyStringListToVar(&Names, List);
    ASSERT_NE(Names, nullptr);
    EXPECT_STREQ(Names[0].Name, "X");
    EXPECT_EQ(Names[0].ColumnWidth, 6);
    EXPECT_STREQ(Names[1].Name, "Velocity");
    EXPECT_EQ(Names[1].ColumnWidth, 8);
    EXPECT_EQ(Names[2].NameLength, 128);
    EXPECT_TRUE(Names[2].Selected);
    EXPECT_EQ(hostObjectsMade(), 1); /* the list only */

    /* the host cannot hand out the second string */
    corvane::host::failHostAllocationAt(2);
    CopyStringListToVar(&Names, List);
    ASSERT_NE(Names, nullptr);
    EXPECT_STREQ(Names[0].Name, "X");
    EXPECT_STREQ(Names[1].Name, "");
    EXPECT_EQ(Names[1].ColumnWidth, 6);
    EXPECT_STREQ(Names[2].Name, Long.substr(0, 128).c_str());
    EXPECT_EQ(ui().errors(), std::vector<std::string>{"Out of memory"});

    TW_AllocFailAt(1);
    CopyStringListToVar(&Names, List);
    EXPECT_EQ(Names, nullptr);
    EXPECT_EQ(ui().errors(), (std::vector<std::string>{"Out of memory", "Out of memory"}));

    CvnUtilStringListClear(List);
    CopyStringListToVar(&Names, List);
    EXPECT_EQ(Names, nullptr);
    CvnUtilStringListDealloc(&List);
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST(VarLookupTest, FindsTheFirstNameIgnoringCase)
{
    TW_Variable_s Vars[3] = {Entry("X", true, 6, 1), Entry("Y", true, 6, 1), Entry("x", true, 6, 1)};
    EXPECT_EQ(TW_GetVariablePosition("x", Vars, 3), 1);
    EXPECT_EQ(TW_GetVariablePosition("y", Vars, 3), 2);
    EXPECT_EQ(TW_GetVariablePosition("z", Vars, 3), -1);
    EXPECT_EQ(TW_GetVariablePosition("Y", Vars, 1), -1);
    EXPECT_EQ(TW_GetVariablePosition("x", Vars, 0), -1);
    EXPECT_EQ(TW_GetVariablePosition("x", nullptr, -2), -1);
}

TEST(MulDivTest, UsesA64BitProductAndUnsignedDivision)
{
    EXPECT_EQ(TW_MulDiv(7, 3, 2), 10);
    EXPECT_EQ(TW_MulDiv(100000, 100000, 7), 1428571428);
    EXPECT_EQ(TW_MulDiv(0, 5, 3), 0);
    /* as built: a negative product divides as a huge unsigned number */
    EXPECT_EQ(TW_MulDiv(-7, 3, 2), -11);
}
