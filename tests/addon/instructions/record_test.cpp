/* Tests of the instruction-set record: defaults, copies and every allocation failure. */
#include "HostFixture.h"
#include "InstructionTestSupport.h"
#include "TW_Alloc.h"

using namespace instrtest;
using Longs = std::vector<long>;
using RecordTest = HostTest;

static const char *const RecordMessage =
    "Out of memory. Unable to allocate import parameters structure";

/* A reset after the heap parts went is a new record, not modified. */
TEST_F(RecordTest, ResetGivesANewRecord)
{
    Record Source = NewRecord();
    TW_ConfigInstructions_s Fresh;
    memcpy(&Fresh, Source.get(), sizeof Fresh);
    strcpy(Source->TitleName, "Changed");
    CvnUtilSetDealloc(&Source->Variables.LoadedVars);
    SetConfigToDefault(Source.get());
    Fresh.Variables.LoadedVars = Source->Variables.LoadedVars;
    EXPECT_EQ(memcmp(&Fresh, Source.get(), sizeof Fresh), 0);
    EXPECT_TRUE(Source->IsNew);
    EXPECT_FALSE(Source->IsModified);
}

/* Title "Run 7" (untrimmed), names X and Y, end line 4, member 2 and three
   names that are not trimmed. */
static Record Probe()
{
    Record Source = NewRecord();
    strcpy(Source->TitleName, " Run 7\t");
    SetNames(&Source->Variables, {"X", "Y"});
    Source->Variables.EndLine = 4;
    CvnUtilSetAddMember(Source->Variables.LoadedVars, 2, TRUE);
    strcpy(Source->GlobalFilters.Comment, " %");
    strcpy(Source->ConfigFileName, " /lib/probe.twc");
    strcpy(Source->FilePath, "/lib/probe.twc");
    return Source;
}

/* Onto a new record holding member 9, and onto itself (nothing changes). */
TEST_F(RecordTest, CopyKeepsTheDestinationsPlaceAndSetObject)
{
    for (bool itself : {false, true}) {
        Record Source = Probe(), Dest = itself ? nullptr : NewRecord();
        TW_ConfigInstructions_s *D = itself ? Source.get() : Dest.get(), *Place = D;
        Set_s *DestSet = D->Variables.LoadedVars;
        if (!itself)
            CvnUtilSetAddMember(DestSet, 9, TRUE);
        CopyInstructionSet(&D, Source.get());
        EXPECT_EQ(D, Place);
        EXPECT_EQ(Strings({D->TitleName, D->GlobalFilters.Comment, D->ConfigFileName, D->FilePath}),
                  Strings({itself ? " Run 7\t" : "Run 7", " %", " /lib/probe.twc",
                           itself ? "/lib/probe.twc" : "<untitled>"}));
        EXPECT_EQ(Names(D->Variables), Strings({"X", "Y"})) << itself;
        EXPECT_EQ(D->Variables.EndLine, 4) << itself;
        EXPECT_EQ(D->Variables.LoadedVars, DestSet) << itself;
        EXPECT_EQ(Members(DestSet), Longs{2}) << itself;
    }
}

/* From a source without names the variables copy keeps the names and adds
   members; the record copy drops the names and replaces members. */
TEST_F(RecordTest, CopiesFromASourceWithoutNames)
{
    Record Empty = NewRecord();
    CvnUtilSetAddMember(Empty->Variables.LoadedVars, 3, TRUE);
    for (bool Whole : {false, true}) {
        Record Dest = Probe();
        TW_ConfigInstructions_s *D = Dest.get();
        if (Whole)
            CopyInstructionSet(&D, Empty.get());
        else
            CopyVarInfo(&D->Variables, &Empty->Variables);
        EXPECT_EQ(Names(D->Variables), Whole ? Strings{} : Strings({"X", "Y"})) << Whole;
        EXPECT_EQ(Members(D->Variables.LoadedVars), Whole ? Longs{3} : Longs({2, 3})) << Whole;
    }
}

TEST_F(RecordTest, VariablesCopiedIntoASeparateRecordGetTheirOwnSet)
{
    Record Source = Probe();
    auto *Vars = static_cast<TW_Variables_s *>(TW_Calloc(1, sizeof(TW_Variables_s)));
    CopyVarInfo(Vars, &Source->Variables);
    EXPECT_NE(Vars->LoadedVars, Source->Variables.LoadedVars);
    EXPECT_EQ(Members(Vars->LoadedVars), Longs{2});
    EXPECT_EQ(Names(*Vars), Strings({"X", "Y"}));
    VariablesDealloc(&Vars);
}

TEST_F(RecordTest, EveryAllocationFailureOfACopyIsReportedAndLeavesNothing)
{
    Record Source = NewRecord();
    SetNames(&Source->Variables, {"X", "Y"});
    /* A copy into NULL fails at the record, its set, its names; a failing
       trimmed copy only falls back to a plain copy. Names copied, or -1. */
    const std::tuple<bool, long, Strings, int32_t> Rows[] = {
        {false, 1, {RecordMessage}, -1}, {false, 2, {"Out of memory"}, 0}, {false, 3, {}, 2},
        {true, 1, {RecordMessage}, -1},  {true, 2, {}, 2}};
    for (const auto &[Host, N, Errors, NumNames] : Rows) {
        ui().clearTranscript();
        TW_ConfigInstructions_s *Dest = nullptr;
        (Host ? corvane::host::failHostAllocationAt : TW_AllocFailAt)(N);
        CopyInstructionSet(&Dest, Source.get());
        TW_AllocFailAt(0);
        corvane::host::failHostAllocationAt(0);
        EXPECT_EQ(ui().errors(), Errors) << Host << N;
        EXPECT_EQ(Dest ? Dest->Variables.NumNames : -1, NumNames) << Host << N;
        ImportInstructionsDealloc(&Dest);
        EXPECT_EQ(hostObjectsMade(), 1) << Host << N; /* Source's set */
    }
}

TEST_F(RecordTest, AVariablesCopyWithoutItsSetKeepsTheNames)
{
    Record Source = NewRecord();
    SetNames(&Source->Variables, {"X", "Y"});
    TW_Variables_s Vars{};
    corvane::host::failHostAllocationAt(1);
    CopyVarInfo(&Vars, &Source->Variables);
    EXPECT_EQ(ui().errors(), Strings{"Out of memory"});
    EXPECT_EQ(Vars.LoadedVars, nullptr);
    EXPECT_EQ(Vars.NumNames, 2);
    TW_Free(Vars.Names);
}

/* A record reset without a set, then copied onto: each set it cannot get is
   one more message. */
TEST_F(RecordTest, ARecordResetWithoutASetSaysSoAtTheResetAndAtACopy)
{
    Record Source = NewRecord();
    SetNames(&Source->Variables, {"X", "Y"});
    for (bool Copy : {false, true}) {
        ui().clearTranscript();
        TW_ConfigInstructions_s *Reset = static_cast<TW_ConfigInstructions_s *>(
            TW_Malloc(sizeof(TW_ConfigInstructions_s)));
        corvane::host::failHostAllocationAt(1);
        SetConfigToDefault(Reset);
        EXPECT_EQ(Reset->Variables.LoadedVars, nullptr);
        EXPECT_EQ(Reset->Variables.NumNames, 0);
        if (Copy) {
            corvane::host::failHostAllocationAt(5); /* after the four trimmed texts */
            CopyInstructionSet(&Reset, Source.get());
        }
        EXPECT_EQ(ui().errors(), Strings(Copy ? 2 : 1, "Out of memory")) << Copy;
        ImportInstructionsDealloc(&Reset);
    }
}
