/*
 * Tests of the variable-name entry copies, lookup and TW_MulDiv.
 */
#include <cstring>

#include "HostFixture.h"
#include "TW_Alloc.h"
#include "VarList.h"

using namespace corvane::cvnutildataio;
using Strings = std::vector<std::string>;

static TW_Variable_s Entry(const char *Name, bool Selected, int32_t Width)
{
    TW_Variable_s E{};
    strncpy(E.Name, Name, TW_MAX_VARNAME_LENGTH);
    E.Selected = Selected;
    E.ColumnWidth = Width;
    E.NameLength = 99;
    return E;
}

/* "name/length/selected/width" per entry. */
static Strings Describe(const TW_Variable_s *Vars, int32_t N)
{
    Strings Result;
    for (int32_t I = 0; I < N; I++)
        Result.push_back(std::string(Vars[I].Name) + "/" + std::to_string(Vars[I].NameLength) +
                         "/" + std::to_string(Vars[I].Selected) + "/" +
                         std::to_string(Vars[I].ColumnWidth));
    return Result;
}

class VarListTest : public HostTest {
protected:
    void TearDown() override
    {
        TW_AllocFailAt(0);
        HostTest::TearDown();
    }
};

TEST_F(VarListTest, CopiesEntriesFromOutsideAndExactly)
{
    TW_Variable_s Source[3] = {Entry("x", false, 40), Entry("Pressure", false, 2), Entry("", 0, 0)};
    memset(Source[2].Name, 'L', sizeof Source[2].Name); /* no terminator in the array */
    TW_Variable_s *Names = nullptr;
    int32_t Count = -1;
    CopyVarToVar(&Names, Source, &Count, 3);
    EXPECT_EQ(Describe(Names, Count),
              Strings({"x/1/1/6", "Pressure/8/1/8", std::string(128, 'L') + "/128/1/128"}));
    CopyVarToVar(&Names, Names, &Count, 2); /* onto itself */
    EXPECT_EQ(Describe(Names, Count), Strings({"x/1/1/6", "Pressure/8/1/8"}));
    TW_CopyVarNameArray(Source, 2, &Names, &Count);
    EXPECT_EQ(Describe(Names, Count), Strings({"x/1/0/40", "Pressure/8/0/2"}));

    TW_AllocFailAt(1);
    CopyVarToVar(&Names, Source, &Count, 2);
    EXPECT_TRUE(Names == nullptr && Count == 0);
    TW_CopyVarNameArray(Source, 2, &Names, &Count); /* an old block to free */
    TW_AllocFailAt(1);
    TW_CopyVarNameArray(Source, 2, &Names, &Count);
    EXPECT_TRUE(Names == nullptr && Count == 0);
    EXPECT_EQ(ui().errors(), Strings(2, "Out of memory"));
}

TEST_F(VarListTest, CopiesHostStringListsAndReleasesEveryString)
{
    StringList_s *List = CvnUtilStringListAlloc();
    for (const std::string &Name : Strings({"X", "Velocity", std::string(150, 'q')}))
        CvnUtilStringListAppendString(List, Name.c_str());
    TW_Variable_s *Names = nullptr;
    CopyStringListToVar(&Names, List);
    EXPECT_EQ(Describe(Names, 3), Strings({"X/1/1/6", "Velocity/8/1/8",
                                           std::string(128, 'q') + "/128/1/128"}));
    EXPECT_EQ(hostObjectsMade(), 1); /* the list only */
    corvane::host::failHostAllocationAt(2); /* the host cannot hand out string 2 */
    CopyStringListToVar(&Names, List);
    EXPECT_EQ(Describe(Names, 2), Strings({"X/1/1/6", "/0/1/6"}));
    TW_AllocFailAt(1);
    CopyStringListToVar(&Names, List);
    EXPECT_EQ(Names, nullptr);
    EXPECT_EQ(ui().errors(), Strings(2, "Out of memory"));
    CvnUtilStringListDealloc(&List);
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST(VarLookupTest, FindsTheFirstNameIgnoringCaseAndMulDivs)
{
    TW_Variable_s Vars[3] = {Entry("X", true, 6), Entry("Y", true, 6), Entry("x", true, 6)};
    EXPECT_EQ(TW_GetVariablePosition("x", Vars, 3), 1);
    EXPECT_EQ(TW_GetVariablePosition("z", Vars, 3), -1);
    EXPECT_EQ(TW_GetVariablePosition("x", Vars, 0), -1);
    EXPECT_EQ(TW_MulDiv(7, 3, 2), 10);
    EXPECT_EQ(TW_MulDiv(100000, 100000, 7), 1428571428);
    EXPECT_EQ(TW_MulDiv(-7, 3, 2), -11); /* as built: the division is unsigned */
}
