/* Tests of the variable-name entry copies, lookup and TW_MulDiv. */
#include <cstring>

#include "HostFixture.h"
#include "TW_Alloc.h"
#include "MulDiv.h"
#include "VarList.h"

using namespace corvane::cvnutildataio;
using Strings = std::vector<std::string>;
using VarListTest = HostTest;

static Strings Describe(const TW_Variable_s *Vars, int32_t N)
{
    Strings Result;
    for (const TW_Variable_s *V = Vars; V < Vars + N; V++)
        Result.push_back(std::string(V->Name) + "/" + std::to_string(V->NameLength) + "/" +
                         std::to_string(V->Selected) + "/" + std::to_string(V->ColumnWidth));
    return Result;
}

/* "x", "Pressure" and a name of 129 characters without a terminator. */
static const TW_Variable_s *Source()
{
    static TW_Variable_s Entries[3] = {{"x", 99, false, 40}, {"Pressure", 99, false, 2}, {}};
    memset(Entries[2].Name, 'L', sizeof Entries[2].Name);
    return Entries;
}

/* Copies from outside are cut to 128 characters, selected and at least 6
   wide; entry copies keep selection and width. */
TEST_F(VarListTest, CopiesFromEntriesAndFromStringLists)
{
    TW_Variable_s *Names = nullptr;
    int32_t Count = -1;
    CopyVarToVar(&Names, Source(), &Count, 3);
    std::string Cut(128, 'L');
    Cut += "/128/1/128";
    EXPECT_EQ(Describe(Names, Count), Strings({"x/1/1/6", "Pressure/8/1/8", Cut}));
    TW_CopyVarNameArray(Source(), 2, &Names, &Count);
    EXPECT_EQ(Describe(Names, Count), Strings({"x/1/0/40", "Pressure/8/0/2"}));

    StringList_s *List = CvnUtilStringListAlloc();
    for (const char *Name : {"X", "Velocity", "x"})
        CvnUtilStringListAppendString(List, Name);
    CopyStringListToVar(&Names, List);
    EXPECT_EQ(Describe(Names, 3), Strings({"X/1/1/6", "Velocity/8/1/8", "x/1/1/6"}));
    EXPECT_EQ(TW_GetVariablePosition("x", Names, 3), 1); /* the first, ignoring case */
    corvane::host::failHostAllocationAt(2); /* the host cannot hand out string 2 */
    CopyStringListToVar(&Names, List);
    EXPECT_EQ(Describe(Names, 3), Strings({"X/1/1/6", "/0/1/6", "x/1/1/6"}));
    EXPECT_EQ(ui().errors(), Strings{"Out of memory"});
    CvnUtilStringListDealloc(&List);
    TW_Free(Names);
    EXPECT_EQ(hostObjectsMade(), 0);
}

/* Each copy into a list that held names; without a block the list is empty. */
TEST_F(VarListTest, AFailedCopyLeavesAnEmptyList)
{
    StringList_s *List = CvnUtilStringListAlloc();
    CvnUtilStringListAppendString(List, "X");
    for (int Copy = 0; Copy < 3; Copy++) {
        ui().clearTranscript();
        TW_Variable_s *Names = nullptr;
        int32_t Count = -1;
        CopyVarToVar(&Names, Source(), &Count, 2);
        TW_AllocFailAt(1);
        if (Copy == 0)
            CopyVarToVar(&Names, Source(), &Count, 2);
        else if (Copy == 1)
            TW_CopyVarNameArray(Source(), 2, &Names, &Count);
        else
            CopyStringListToVar(&Names, List);
        EXPECT_EQ(Names, nullptr) << Copy;
        if (Copy < 2) { /* the list copy keeps no count */
            EXPECT_EQ(Count, 0) << Copy;
        }
        EXPECT_EQ(ui().errors(), Strings{"Out of memory"}) << Copy;
    }
    CvnUtilStringListDealloc(&List);
}

TEST(MulDivTest, MultipliesBeforeDividing)
{
    EXPECT_EQ(TW_MulDiv(100000, 100000, 7), 1428571428);
    EXPECT_EQ(TW_MulDiv(-7, 3, 2), -11); /* as built: the division is unsigned */
}
