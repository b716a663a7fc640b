/*
 * Tests of the instruction-set record: defaults, copies, release under the
 * host lock and every allocation failure.
 */
#include <cstring>

#include "HostFixture.h"
#include "InstructionTestSupport.h"
#include "TW_Alloc.h"

using namespace corvane::cvnutildataio;
using namespace instrtest;
using Strings = std::vector<std::string>;
using Longs = std::vector<long>;

static const char *const RecordMessage =
    "Out of memory. Unable to allocate import parameters structure";

class RecordTest : public HostTest {
protected:
    void TearDown() override
    {
        TW_AllocFailAt(0);
        HostTest::TearDown();
    }
};

TEST_F(RecordTest, NewRecordHoldsEveryDefault)
{
    TW_ConfigInstructions_s *R = ImportInstructionsAlloc();
    ASSERT_NE(R, nullptr);
    EXPECT_EQ(Strings({R->FileExt, R->FileDesc, R->TitleName, R->TitleKeyword, R->StartId.Keyword,
                       R->ZoneKeyword, R->GlobalFilters.Comment, R->GlobalFilters.Keyword,
                       R->ConfigFileName, R->DisplayName, R->FilePath}),
              Strings({"*.txt", "Ordalis", "New Dataset", "", "", "", "#", "", "", "<untitled>",
                       "<untitled>"}));
    const TW_Variables_s &V = R->Variables;
    EXPECT_EQ(std::vector<int>({R->Version, R->TitleSearchMode, R->TitleLine, R->TitleDelimiter,
                                R->TitleWidth, V.SearchMode, V.NumNames, V.StartLine, V.EndLine,
                                V.Delimiter, V.Width, R->StartId.Marker, R->StartId.Line,
                                R->EndId.Marker, R->EndId.Line, R->Format, R->DataDelimiter,
                                R->DataWidth, R->Dimension.IMax, R->Dimension.JMax,
                                R->Dimension.KMax}),
              std::vector<int>(
                  {100, 0, 1, 1, 10, 0, 0, 1, 1, 1, 10, 2, 1, 2, 1, 1, 1, 10, 1, 1, 1}));
    EXPECT_TRUE(V.Names == nullptr && V.LoadedVars != nullptr && CvnUtilSetIsEmpty(V.LoadedVars));
    const TW_GlobalFilters_s &F = R->GlobalFilters;
    EXPECT_TRUE(R->IgnoreNonNumericTokens && R->Dimension.Auto && R->IsNew);
    EXPECT_FALSE(R->CreateMultipleZones || R->IsModified || F.UseComment || F.UseKeyword ||
                 F.UseColumns || F.UseRows || F.UseBlankCellValue || F.Columns.NumRanges ||
                 F.Rows.NumRanges || F.BlankCellValue != 0.0);

    /* a reset after the heap parts were released gives the same record */
    TW_ConfigInstructions_s Fresh;
    memcpy(&Fresh, R, sizeof Fresh);
    strcpy(R->TitleName, "Changed");
    R->GlobalFilters.Rows.NumRanges = 3;
    CvnUtilSetDealloc(&R->Variables.LoadedVars);
    SetConfigToDefault(R);
    Fresh.Variables.LoadedVars = R->Variables.LoadedVars;
    EXPECT_EQ(memcmp(&Fresh, R, sizeof Fresh), 0);

    ImportInstructionsDealloc(&R);
    EXPECT_EQ(R, nullptr);
    ImportInstructionsDealloc(&R);
    EXPECT_EQ(hostObjectsMade(), 0);
    EXPECT_TRUE(ui().errors().empty());
}

TEST_F(RecordTest, CopyKeepsTheDestinationsPlaceAndSetObject)
{
    TW_ConfigInstructions_s *Source = ImportInstructionsAlloc();
    TW_ConfigInstructions_s *Dest = ImportInstructionsAlloc();
    strcpy(Source->TitleName, " Run 7\t");
    strcpy(Source->StartId.Keyword, " BEGIN");
    SetNames(&Source->Variables, {"X", "Y"});
    Source->Variables.EndLine = 4;
    CvnUtilSetAddMember(Source->Variables.LoadedVars, 2, TRUE);
    strcpy(Source->GlobalFilters.Comment, " %");
    Source->GlobalFilters.Columns = {1, {{2, 0}}};
    Source->GlobalFilters.Columns.Ranges[31] = {77, 78}; /* an unused slot is copied too */
    strcpy(Source->ConfigFileName, " /lib/probe.twc");
    strcpy(Source->FilePath, "/lib/probe.twc");
    Source->IsNew = false;
    strcpy(Dest->FilePath, "/lib/mine.twc");
    Set_s *DestSet = Dest->Variables.LoadedVars;
    CvnUtilSetAddMember(DestSet, 9, TRUE);

    CopyInstructionSet(&Dest, Source);
    EXPECT_EQ(Strings({Dest->TitleName, Dest->StartId.Keyword, Dest->GlobalFilters.Comment,
                       Dest->ConfigFileName, Dest->FilePath}),
              Strings({"Run 7", "BEGIN", " %", " /lib/probe.twc", "/lib/mine.twc"}));
    EXPECT_EQ(Names(Dest->Variables), Strings({"X", "Y"}));
    EXPECT_EQ(Dest->Variables.EndLine, 4);
    EXPECT_EQ(Dest->Variables.LoadedVars, DestSet);
    EXPECT_EQ(Members(DestSet), Longs{2});
    EXPECT_EQ(memcmp(&Dest->GlobalFilters.Columns, &Source->GlobalFilters.Columns,
                     sizeof(TW_NumList_s)), 0);
    EXPECT_FALSE(Dest->IsNew);
    CopyInstructionSet(&Dest, Dest); /* onto itself: unchanged */
    EXPECT_EQ(Members(DestSet), Longs{2});

    /* from a source without names the variables copy keeps the names and
       adds members; the record copy drops the names and replaces members */
    TW_ConfigInstructions_s *Empty = ImportInstructionsAlloc();
    CvnUtilSetAddMember(Empty->Variables.LoadedVars, 3, TRUE);
    CopyVarInfo(&Dest->Variables, &Empty->Variables);
    EXPECT_EQ(Names(Dest->Variables), Strings({"X", "Y"}));
    EXPECT_EQ(Members(DestSet), Longs({2, 3}));
    EXPECT_EQ(Dest->Variables.EndLine, 1);
    CopyInstructionSet(&Dest, Empty);
    EXPECT_TRUE(Dest->Variables.NumNames == 0 && Dest->Variables.Names == nullptr);
    EXPECT_EQ(Members(DestSet), Longs{3});

    auto *Vars = static_cast<TW_Variables_s *>(TW_Calloc(1, sizeof(TW_Variables_s)));
    CopyVarInfo(Vars, &Source->Variables); /* a separate record gets its own set */
    EXPECT_EQ(Names(*Vars), Strings({"X", "Y"}));
    EXPECT_EQ(Members(Vars->LoadedVars), Longs{2});
    VariablesDealloc(&Vars);
    EXPECT_EQ(Vars, nullptr);
    for (TW_ConfigInstructions_s **Rec : {&Source, &Dest, &Empty})
        ImportInstructionsDealloc(Rec);
    EXPECT_EQ(hostObjectsMade(), 0);
    EXPECT_TRUE(ui().errors().empty());
}

TEST_F(RecordTest, EveryAllocationFailureIsReportedAndLeavesNothing)
{
    TW_ConfigInstructions_s *Source = ImportInstructionsAlloc();
    SetNames(&Source->Variables, {"X", "Y"});
    /* a copy into a NULL pointer fails at the record, its set, its names;
       failing trimmed copies only fall back to plain copies */
    struct {
        bool Host;
        long N;
        Strings Errors;
        bool Made;
        int32_t Names;
    } Rows[] = {{false, 1, {RecordMessage}, false, 0}, {false, 2, {"Out of memory"}, true, 0},
                {false, 3, {}, true, 2},               {true, 1, {RecordMessage}, false, 0},
                {true, 2, {}, true, 2}};
    for (const auto &R : Rows) {
        ui().clearTranscript();
        TW_ConfigInstructions_s *Dest = nullptr;
        (R.Host ? corvane::host::failHostAllocationAt : TW_AllocFailAt)(R.N);
        CopyInstructionSet(&Dest, Source);
        corvane::host::failHostAllocationAt(0);
        TW_AllocFailAt(0);
        EXPECT_EQ(ui().errors(), R.Errors) << R.Host << R.N;
        ASSERT_EQ(Dest != nullptr, R.Made) << R.Host << R.N;
        if (Dest) {
            EXPECT_EQ(Dest->Variables.NumNames, R.Names) << R.Host << R.N;
            EXPECT_STREQ(Dest->FileExt, "*.txt");
        }
        ImportInstructionsDealloc(&Dest);
        EXPECT_EQ(hostObjectsMade(), 1) << R.Host << R.N; /* Source's set */
    }
    ui().clearTranscript();
    TW_Variables_s Vars{};
    corvane::host::failHostAllocationAt(1);
    CopyVarInfo(&Vars, &Source->Variables);
    EXPECT_TRUE(Vars.LoadedVars == nullptr && Vars.NumNames == 2);
    EXPECT_EQ(ui().errors(), Strings{"Out of memory"});
    TW_Free(Vars.Names);
    ImportInstructionsDealloc(&Source);
}
