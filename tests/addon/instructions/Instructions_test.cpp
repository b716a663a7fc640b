/*
 * Tests of the instruction-set record: defaults, copies, release under the
 * host lock and every allocation failure.
 */
#include <cstring>
#include <string>
#include <vector>

#include "HostFixture.h"
#include "Instructions.h"
#include "TW_Alloc.h"

using namespace corvane::cvnutildataio;

namespace {

const char *const RecordMessage = "Out of memory. Unable to allocate import parameters structure";

std::vector<LgIndex_t> Members(const Set_s *Set)
{
    std::vector<LgIndex_t> Result;
    for (LgIndex_t M = CvnUtilSetGetNextMember(Set, CVN_NO_MEMBER); M != CVN_NO_MEMBER;
         M = CvnUtilSetGetNextMember(Set, M))
        Result.push_back(M);
    return Result;
}

void SetNames(TW_Variables_s *Vars, std::vector<const char *> Names)
{
    std::vector<TW_Variable_s> Entries(Names.size());
    for (size_t I = 0; I < Names.size(); I++)
        strcpy(Entries[I].Name, Names[I]);
    CopyVarToVar(&Vars->Names, Entries.data(), &Vars->NumNames,
                 static_cast<int32_t>(Entries.size()));
}

std::vector<std::string> NamesOf(const TW_Variables_s &Vars)
{
    std::vector<std::string> Result;
    for (int32_t I = 0; I < Vars.NumNames; I++)
        Result.push_back(Vars.Names[I].Name);
    return Result;
}

} // namespace

class InstructionsTest : public HostTest {
protected:
    void TearDown() override
    {
        TW_AllocFailAt(0);
        HostTest::TearDown();
    }
};

TEST_F(InstructionsTest, NewRecordHoldsEveryDefault)
{
    TW_ConfigInstructions_s *Rec = ImportInstructionsAlloc();
    ASSERT_NE(Rec, nullptr);
    EXPECT_EQ(Rec->Version, 100);
    EXPECT_STREQ(Rec->FileExt, "*.txt");
    EXPECT_STREQ(Rec->FileDesc, "Ordalis");
    EXPECT_EQ(Rec->TitleSearchMode, SearchMode_None);
    EXPECT_STREQ(Rec->TitleName, "New Dataset");
    EXPECT_EQ(Rec->TitleLine, 1);
    EXPECT_STREQ(Rec->TitleKeyword, "");
    EXPECT_EQ(Rec->TitleDelimiter, Delimiter_Auto);
    EXPECT_EQ(Rec->TitleWidth, 10);

    const TW_Variables_s &V = Rec->Variables;
    EXPECT_EQ(V.SearchMode, SearchMode_None);
    EXPECT_EQ(V.NumNames, 0);
    EXPECT_EQ(V.Names, nullptr);
    ASSERT_NE(V.LoadedVars, nullptr);
    EXPECT_TRUE(CvnUtilSetIsEmpty(V.LoadedVars));
    EXPECT_EQ(V.StartLine, 1);
    EXPECT_EQ(V.EndLine, 1);
    EXPECT_EQ(V.Delimiter, Delimiter_Auto);
    EXPECT_EQ(V.Width, 10);

    EXPECT_TRUE(Rec->IgnoreNonNumericTokens);
    for (const TW_FileMarker_s *M : {&Rec->StartId, &Rec->EndId}) {
        EXPECT_EQ(M->Marker, FileMarker_Line);
        EXPECT_STREQ(M->Keyword, "");
        EXPECT_EQ(M->Line, 1);
    }
    EXPECT_EQ(Rec->Format, DataFormat_IJKPoint);
    EXPECT_EQ(Rec->DataDelimiter, Delimiter_Auto);
    EXPECT_EQ(Rec->DataWidth, 10);
    EXPECT_TRUE(Rec->Dimension.Auto);
    EXPECT_EQ(Rec->Dimension.IMax, 1);
    EXPECT_EQ(Rec->Dimension.JMax, 1);
    EXPECT_EQ(Rec->Dimension.KMax, 1);
    EXPECT_FALSE(Rec->CreateMultipleZones);
    EXPECT_STREQ(Rec->ZoneKeyword, "");

    const TW_GlobalFilters_s &F = Rec->GlobalFilters;
    EXPECT_FALSE(F.UseComment || F.UseKeyword || F.UseColumns || F.UseRows);
    EXPECT_STREQ(F.Comment, "#");
    EXPECT_STREQ(F.Keyword, "");
    EXPECT_EQ(F.Columns.NumRanges, 0);
    EXPECT_EQ(F.Rows.NumRanges, 0);
    EXPECT_FALSE(F.UseBlankCellValue);
    EXPECT_EQ(F.BlankCellValue, 0.0);

    EXPECT_STREQ(Rec->ConfigFileName, "");
    EXPECT_STREQ(Rec->DisplayName, "<untitled>");
    EXPECT_STREQ(Rec->FilePath, "<untitled>");
    EXPECT_FALSE(Rec->IsModified);
    EXPECT_TRUE(Rec->IsNew);

    /* a reset after the heap parts were released gives the same defaults */
    TW_ConfigInstructions_s Copy;
    memcpy(&Copy, Rec, sizeof Copy);
    strcpy(Rec->TitleName, "Changed");
    Rec->GlobalFilters.Rows.NumRanges = 3;
    CvnUtilSetDealloc(&Rec->Variables.LoadedVars);
    SetConfigToDefault(Rec);
    ASSERT_NE(Rec->Variables.LoadedVars, nullptr);
    EXPECT_STREQ(Rec->TitleName, "New Dataset");
    EXPECT_EQ(Rec->GlobalFilters.Rows.NumRanges, 0);
    Copy.Variables.LoadedVars = Rec->Variables.LoadedVars;
    EXPECT_EQ(memcmp(&Copy, Rec, sizeof Copy), 0);

    ImportInstructionsDealloc(&Rec);
    EXPECT_EQ(Rec, nullptr);
    EXPECT_EQ(hostObjectsMade(), 0);
    EXPECT_TRUE(ui().errors().empty());
}

TEST_F(InstructionsTest, CopyKeepsTheDestinationsPlaceAndSetObject)
{
    TW_ConfigInstructions_s *Source = ImportInstructionsAlloc();
    TW_ConfigInstructions_s *Dest = ImportInstructionsAlloc();
    ASSERT_TRUE(Source && Dest);
    Source->Version = 101;
    strcpy(Source->FileDesc, "  Probe logs\t");
    strcpy(Source->TitleName, " Run 7 ");
    Source->TitleSearchMode = SearchMode_Keyword;
    strcpy(Source->StartId.Keyword, " BEGIN");
    Source->EndId.Marker = FileMarker_EOF;
    SetNames(&Source->Variables, {"X", "Y"});
    Source->Variables.StartLine = 3;
    Source->Variables.EndLine = 4;
    Source->Variables.Delimiter = Delimiter_Fixed;
    Source->Variables.Width = 12;
    CvnUtilSetAddMember(Source->Variables.LoadedVars, 2, TRUE);
    Source->Format = DataFormat_IJKBlock;
    Source->Dimension = {false, 4, 5, 6};
    strcpy(Source->GlobalFilters.Comment, " %");
    Source->GlobalFilters.UseColumns = true;
    Source->GlobalFilters.Columns.NumRanges = 1;
    Source->GlobalFilters.Columns.Ranges[0] = {2, 0};
    Source->GlobalFilters.Columns.Ranges[31] = {77, 78}; /* unused slot */
    Source->GlobalFilters.BlankCellValue = -1.5;
    strcpy(Source->ConfigFileName, " /lib/probe.twc");
    strcpy(Source->DisplayName, "probe.twc");
    strcpy(Source->FilePath, "/lib/probe.twc");
    Source->IsModified = true;
    Source->IsNew = false;

    strcpy(Dest->DisplayName, "mine.twc");
    strcpy(Dest->FilePath, "/lib/mine.twc");
    Set_s *DestSet = Dest->Variables.LoadedVars;
    CvnUtilSetAddMember(DestSet, 9, TRUE);

    CopyInstructionSet(&Dest, Source);
    EXPECT_EQ(Dest->Version, 101);
    EXPECT_STREQ(Dest->FileDesc, "Probe logs");
    EXPECT_STREQ(Dest->TitleName, "Run 7");
    EXPECT_EQ(Dest->TitleSearchMode, SearchMode_Keyword);
    EXPECT_STREQ(Dest->StartId.Keyword, "BEGIN");
    EXPECT_EQ(Dest->EndId.Marker, FileMarker_EOF);
    EXPECT_EQ(NamesOf(Dest->Variables), (std::vector<std::string>{"X", "Y"}));
    EXPECT_NE(Dest->Variables.Names, Source->Variables.Names);
    EXPECT_EQ(Dest->Variables.StartLine, 3);
    EXPECT_EQ(Dest->Variables.EndLine, 4);
    EXPECT_EQ(Dest->Variables.Delimiter, Delimiter_Fixed);
    EXPECT_EQ(Dest->Variables.Width, 12);
    EXPECT_EQ(Dest->Variables.LoadedVars, DestSet);
    EXPECT_EQ(Members(DestSet), std::vector<LgIndex_t>{2});
    EXPECT_EQ(Dest->Format, DataFormat_IJKBlock);
    EXPECT_FALSE(Dest->Dimension.Auto);
    EXPECT_EQ(Dest->Dimension.KMax, 6);
    EXPECT_STREQ(Dest->GlobalFilters.Comment, " %");
    EXPECT_TRUE(Dest->GlobalFilters.UseColumns);
    EXPECT_EQ(memcmp(&Dest->GlobalFilters.Columns, &Source->GlobalFilters.Columns,
                     sizeof(TW_NumList_s)),
              0);
    EXPECT_EQ(Dest->GlobalFilters.BlankCellValue, -1.5);
    EXPECT_STREQ(Dest->ConfigFileName, " /lib/probe.twc");
    EXPECT_STREQ(Dest->DisplayName, "mine.twc");
    EXPECT_STREQ(Dest->FilePath, "/lib/mine.twc");
    EXPECT_TRUE(Dest->IsModified);
    EXPECT_FALSE(Dest->IsNew);

    /* a copy into a NULL pointer makes a new record */
    TW_ConfigInstructions_s *Fresh = nullptr;
    CopyInstructionSet(&Fresh, Source);
    ASSERT_NE(Fresh, nullptr);
    EXPECT_STREQ(Fresh->DisplayName, "<untitled>");
    EXPECT_EQ(NamesOf(Fresh->Variables), (std::vector<std::string>{"X", "Y"}));

    /* a record copied onto itself stays as it is */
    CopyInstructionSet(&Fresh, Fresh);
    EXPECT_EQ(Members(Fresh->Variables.LoadedVars), std::vector<LgIndex_t>{2});

    ImportInstructionsDealloc(&Fresh);
    ImportInstructionsDealloc(&Dest);
    ImportInstructionsDealloc(&Source);
    EXPECT_EQ(hostObjectsMade(), 0);
    EXPECT_TRUE(ui().errors().empty());
}

TEST_F(InstructionsTest, EmptyNamesClearTheCopyButNotTheVariablesCopy)
{
    TW_ConfigInstructions_s *Source = ImportInstructionsAlloc();
    TW_ConfigInstructions_s *Dest = ImportInstructionsAlloc();
    ASSERT_TRUE(Source && Dest);
    SetNames(&Dest->Variables, {"A", "B", "C"});
    CvnUtilSetAddMember(Dest->Variables.LoadedVars, 1, TRUE);
    CvnUtilSetAddMember(Source->Variables.LoadedVars, 3, TRUE);
    Source->Variables.SearchMode = SearchMode_Line;
    Source->Variables.StartLine = 2;
    Source->Variables.EndLine = 5;
    Source->Variables.Delimiter = Delimiter_Tab;
    Source->Variables.Width = 8;

    CopyVarInfo(&Dest->Variables, &Source->Variables);
    EXPECT_EQ(NamesOf(Dest->Variables), (std::vector<std::string>{"A", "B", "C"}));
    EXPECT_EQ(Members(Dest->Variables.LoadedVars), (std::vector<LgIndex_t>{1, 3}));
    EXPECT_EQ(Dest->Variables.SearchMode, SearchMode_Line);
    EXPECT_EQ(Dest->Variables.StartLine, 2);
    EXPECT_EQ(Dest->Variables.EndLine, 5);
    EXPECT_EQ(Dest->Variables.Delimiter, Delimiter_Tab);
    EXPECT_EQ(Dest->Variables.Width, 8);

    CopyInstructionSet(&Dest, Source);
    EXPECT_EQ(Dest->Variables.NumNames, 0);
    EXPECT_EQ(Dest->Variables.Names, nullptr);
    EXPECT_EQ(Members(Dest->Variables.LoadedVars), std::vector<LgIndex_t>{3});

    /* a separate variables record without a set gets one */
    auto *Vars = static_cast<TW_Variables_s *>(TW_Calloc(1, sizeof(TW_Variables_s)));
    ASSERT_NE(Vars, nullptr);
    SetNames(&Source->Variables, {"P"});
    CopyVarInfo(Vars, &Source->Variables);
    EXPECT_EQ(NamesOf(*Vars), std::vector<std::string>{"P"});
    ASSERT_NE(Vars->LoadedVars, nullptr);
    EXPECT_EQ(Members(Vars->LoadedVars), std::vector<LgIndex_t>{3});
    VariablesDealloc(&Vars);
    EXPECT_EQ(Vars, nullptr);
    VariablesDealloc(&Vars);
    VariablesDealloc(nullptr);

    ImportInstructionsDealloc(&Dest);
    ImportInstructionsDealloc(&Source);
    EXPECT_EQ(hostObjectsMade(), 0);
    EXPECT_TRUE(ui().errors().empty());
}

TEST_F(InstructionsTest, ReleaseTakesTheLockAndAcceptsNull)
{
    TW_ConfigInstructions_s *Rec = nullptr;
    ImportInstructionsDealloc(&Rec);
    ImportInstructionsDealloc(nullptr);
    Rec = ImportInstructionsAlloc();
    ASSERT_NE(Rec, nullptr);
    CvnUtilSetDealloc(&Rec->Variables.LoadedVars);
    ImportInstructionsDealloc(&Rec); /* no names, no set */
    EXPECT_EQ(Rec, nullptr);
    EXPECT_EQ(corvane::host::lockDepth(), 0);
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(InstructionsTest, EveryAllocationFailureIsReportedAndLeavesNothing)
{
    /* the record (TW allocator), then its set (host) */
    TW_AllocFailAt(1);
    EXPECT_EQ(ImportInstructionsAlloc(), nullptr);
    TW_AllocFailAt(0);
    corvane::host::failHostAllocationAt(1);
    EXPECT_EQ(ImportInstructionsAlloc(), nullptr);
    corvane::host::failHostAllocationAt(0);
    EXPECT_EQ(ui().errors(), (std::vector<std::string>{RecordMessage, RecordMessage}));
    EXPECT_EQ(hostObjectsMade(), 0);

    /* a copy into a NULL pointer: each TW allocation in turn */
    TW_ConfigInstructions_s *Source = ImportInstructionsAlloc();
    ASSERT_NE(Source, nullptr);
    SetNames(&Source->Variables, {"X", "Y"});
    std::vector<std::string> Expected[] = {{RecordMessage}, {"Out of memory"}};
    for (long N = 1;; N++) {
        ui().clearTranscript();
        TW_ConfigInstructions_s *Dest = nullptr;
        TW_AllocFailAt(N);
        CopyInstructionSet(&Dest, Source);
        TW_AllocFailAt(0);
        if (N > 2) {
            ASSERT_NE(Dest, nullptr);
            EXPECT_EQ(Dest->Variables.NumNames, 2);
            EXPECT_TRUE(ui().errors().empty());
            ImportInstructionsDealloc(&Dest);
            break;
        }
        EXPECT_EQ(ui().errors(), Expected[N - 1]) << "failing allocation " << N;
        if (N == 1) {
            EXPECT_EQ(Dest, nullptr);
        } else {
            ASSERT_NE(Dest, nullptr);
            EXPECT_EQ(Dest->Variables.NumNames, 0);
            EXPECT_EQ(Dest->Variables.Names, nullptr);
            EXPECT_STREQ(Dest->TitleName, "New Dataset");
        }
        ImportInstructionsDealloc(&Dest);
    }

    /* host allocations of a copy: the set, then trimming strings, which
       fall back to plain copies */
    for (long N = 1; N <= 3; N++) {
        ui().clearTranscript();
        TW_ConfigInstructions_s *Dest = nullptr;
        corvane::host::failHostAllocationAt(N);
        CopyInstructionSet(&Dest, Source);
        corvane::host::failHostAllocationAt(0);
        if (N == 1) {
            EXPECT_EQ(Dest, nullptr);
            EXPECT_EQ(ui().errors(), std::vector<std::string>{RecordMessage});
        } else {
            ASSERT_NE(Dest, nullptr);
            EXPECT_STREQ(Dest->FileExt, "*.txt");
            EXPECT_TRUE(ui().errors().empty());
        }
        ImportInstructionsDealloc(&Dest);
    }

    /* a variables copy whose new set cannot be made */
    ui().clearTranscript();
    TW_Variables_s Vars{};
    corvane::host::failHostAllocationAt(1);
    CopyVarInfo(&Vars, &Source->Variables);
    EXPECT_EQ(Vars.LoadedVars, nullptr);
    EXPECT_EQ(NamesOf(Vars), (std::vector<std::string>{"X", "Y"}));
    EXPECT_EQ(ui().errors(), std::vector<std::string>{"Out of memory"});
    TW_Free(Vars.Names);

    ImportInstructionsDealloc(&Source);
    EXPECT_EQ(hostObjectsMade(), 0);
}
