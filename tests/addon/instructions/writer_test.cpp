/*
 * Tests of the instruction-set writer: the file layout against a hand-made
 * golden file, the compact layout, references, escaping, and that both
 * layouts read back to the record they came from.
 */
#include <cstring>
#include <string>

#include "Faults.h"
#include "HostFixture.h"
#include "InstructionTestSupport.h"

using namespace corvane::cvnutildataio;
using namespace instrtest;

namespace {

#define BANNER                                                   \
    "#######################################################\n" \
    "#\n"                                                        \
    "# WARNING: Editing this file by hand is not recommended.\n" \
    "# The ordalis loader add-on will not be able to read\n"     \
    "# all of the contents of this file\n"                       \
    "# if there are syntax errors.\n"                            \
    "#\n#\n#\n"                                                  \
    "#######################################################\n\n"
#define END_BANNER                                               \
    "#######################################################\n" \
    "# End of file\n"                                            \
    "#######################################################\n"

/* A record with every field away from its default. */
Record FullRecord()
{
    Record R = NewRecord();
    R->Version = 7;
    strcpy(R->FileExt, "*.dat");
    strcpy(R->FileDesc, "Logger \"raw\" files");
    R->TitleSearchMode = SearchMode_Keyword;
    strcpy(R->TitleName, "Run \"A\", day 2");
    R->TitleLine = 3;
    strcpy(R->TitleKeyword, "Title:");
    R->TitleDelimiter = Delimiter_Semicolon;
    R->TitleWidth = 12;

    SetNames(&R->Variables, {"x", "y (m)", "Temp"});
    for (LgIndex_t Member : {12, 1, 3})
        CvnUtilSetAddMember(R->Variables.LoadedVars, Member, TRUE);
    R->Variables.SearchMode = SearchMode_Line;
    R->Variables.StartLine = 2;
    R->Variables.EndLine = 4;
    R->Variables.Delimiter = Delimiter_Comma;
    R->Variables.Width = 8;

    R->IgnoreNonNumericTokens = false;
    R->StartId.Marker = FileMarker_Keyword;
    strcpy(R->StartId.Keyword, "BEGIN \"data\"");
    R->StartId.Line = 5;
    R->EndId.Marker = FileMarker_Line;
    R->EndId.Line = 200;
    R->Format = DataFormat_IJKBlock;
    R->DataDelimiter = Delimiter_Fixed;
    R->DataWidth = 14;
    R->Dimension = {false, 10, 20, 3};
    R->CreateMultipleZones = true;
    strcpy(R->ZoneKeyword, "ZONE T=\"a\"");

    TW_GlobalFilters_s &F = R->GlobalFilters;
    F.UseComment = true;
    strcpy(F.Comment, "//");
    F.UseKeyword = true;
    strcpy(F.Keyword, "ok");
    F.UseColumns = true;
    F.Columns.NumRanges = 3;
    F.Columns.Ranges[0] = {1, 5};
    F.Columns.Ranges[1] = {7, 7};
    F.Columns.Ranges[2] = {10, 0};
    F.UseRows = true;
    F.Rows.NumRanges = 1;
    F.Rows.Ranges[0] = {2, 0};
    F.UseBlankCellValue = true;
    F.BlankCellValue = -999.5;
    return R;
}

/* Start and end found by content, IMAX left at 1. */
Record MarkerRecord()
{
    Record R = NewRecord();
    R->StartId.Marker = FileMarker_FirstNumericLine;
    R->EndId.Marker = FileMarker_EOF;
    R->Dimension.JMax = 5;
    R->Format = DataFormat_IJKBlock;
    return R;
}

} // namespace

class WriterTest : public HostTest {};

TEST_F(WriterTest, SavedNewRecordMatchesGoldenFileOrReportsTheFile)
{
    Record Rec = NewRecord();
    std::string Golden =
        readFile(ORDALIS_SOURCE_DIR "/tests/addon/instructions/golden/new_record.twc");
    ASSERT_FALSE(Golden.empty());
    ScratchDir Dir;
    std::string Path = Dir / "new.twc";
    ASSERT_TRUE(SaveConfigFile(Path.c_str(), Rec.get()));
    EXPECT_EQ(readFile(Path), Golden);
    EXPECT_TRUE(ui().transcript().empty());

    Path = Dir / "missing/dir/set.twc";
    EXPECT_FALSE(SaveConfigFile(Path.c_str(), Rec.get()));
    EXPECT_EQ(ui().errors(),
              std::vector<std::string>{"Unable to open file \"" + Path +
                                       "\" for reading.\nCheck disk space or permissions"});
}

TEST_F(WriterTest, CompactLayoutRunsAssignmentsTogether)
{
    EXPECT_EQ(Print(NewRecord().get(), true),
              "VERSION=100 FILEEXT=\"*.txt\" FILEDESC=\"Ordalis\" \n\n"
              "TITLE{SEARCH=NONE  NAME=\"New Dataset\" LINE=1 DELIMITER=AUTO WIDTH=10 }\n\n"
              "VARIABLES{\nSEARCH=NONE  LOADED= All  STARTLINE=1 ENDLINE=1 DELIMITER=AUTO "
              "WIDTH=10 }\n\n"
              "DATA\n{\nIGNORENONNUMERICTOKENS=TRUE IMPORT\n{\n"
              "STARTID=LINE {\nLINE=1 }\n\nENDID=LINE {\nLINE=1 }\n\n"
              "FORMAT=IJKPOINT DELIMITER=AUTO WIDTH=10 }\n\n"
              "DIMENSION\n{\nAUTO=TRUE CREATEMULTIPLEZONES=FALSE }\n}\n"
              "GLOBALFILTERS{\nUSEBLANKCELLVALUE=FALSE BLANKCELLVALUE=0.000000 }\n");

    EXPECT_EQ(Print(FullRecord().get(), true),
              R"(VERSION=7 FILEEXT="*.dat" FILEDESC="Logger \"raw\" files" )" "\n\n"
              R"(TITLE{SEARCH=KEYWORD  NAME="Run \"A\", day 2" LINE=3  KEYWORD="Title:" )"
              "DELIMITER=SEMICOLON WIDTH=12 }\n\n"
              "VARIABLES{\nSEARCH=LINE  NAMES = \"x,y (m),Temp\" \n LOADED = [1,3,12] "
              "STARTLINE=2 ENDLINE=4 DELIMITER=COMMA WIDTH=8 }\n\n"
              "DATA\n{\nIGNORENONNUMERICTOKENS=FALSE IMPORT\n{\n"
              R"(STARTID=KEYWORD {)" "\n" R"(KEYWORD="BEGIN \"data\"" LINE=5 })" "\n\n"
              "ENDID=LINE {\nLINE=200 }\n\n"
              "FORMAT=IJKBLOCK DELIMITER=FIXED WIDTH=14 }\n\n"
              "DIMENSION\n{\nAUTO=FALSE IMAX=10 JMAX=20 KMAX=3 CREATEMULTIPLEZONES=TRUE "
              R"(KEYWORD="ZONE T=\"a\"" })" "\n}\n"
              "GLOBALFILTERS{\n KEYWORD=\"ok\" COLUMNS=[1-5,7,10-end]  COMMENT=\"//\" "
              "ROWS=[2-end] USEBLANKCELLVALUE=TRUE BLANKCELLVALUE=-999.500000 }\n");
}

TEST_F(WriterTest, FileLayoutIndentsEveryBlockOfAFullRecord)
{
    std::string Text = Print(FullRecord().get(), false);
    const char *Blocks[] = {
        "TITLE\n{\n SEARCH = KEYWORD \n NAME = \"Run \\\"A\\\", day 2\" # dataset title\n"
        " LINE = 3 \n KEYWORD = \"Title:\" \n DELIMITER = SEMICOLON \n WIDTH = 12 \n}\n\n\n",
        "VARIABLES\n{\n\n SEARCH = LINE \n NAMES = \"x,y (m),Temp\" \n\n LOADED = [1,3,12] \n"
        " STARTLINE = 2 \n ENDLINE = 4 \n DELIMITER = COMMA \n WIDTH = 8 \n}\n\n\n",
        "  STARTID = KEYWORD \n  {\n\n   KEYWORD = \"BEGIN \\\"data\\\"\" \n   LINE = 5 \n"
        "  }\n\n\n  ENDID = LINE \n  {\n\n   LINE = 200 \n  }\n\n\n",
        "  DIMENSION\n\n  {\n\n   AUTO = FALSE \n   IMAX = 10 \n   JMAX = 20 \n   KMAX = 3 \n"
        "   CREATEMULTIPLEZONES = TRUE \n   KEYWORD = \"ZONE T=\\\"a\\\"\" \n }\n\n}\n\n",
        "GLOBALFILTERS\n{\n\n KEYWORD = \"ok\" \n COLUMNS=[1-5,7,10-end] \n COMMENT = \"//\" \n"
        " ROWS=[2-end] \n USEBLANKCELLVALUE = TRUE \n BLANKCELLVALUE = -999.500000 \n}\n\n" END_BANNER,
    };
    for (const char *Block : Blocks)
        EXPECT_NE(Text.find(Block), std::string::npos) << "missing block:\n" << Block;

    /* IMAX of 1 is never written. */
    std::string MarkerText = Print(MarkerRecord().get(), false);
    EXPECT_NE(MarkerText.find("   AUTO = TRUE \n   JMAX = 5 \n   CREATEMULTIPLEZONES"),
              std::string::npos);
}

TEST_F(WriterTest, ReferenceWritesOnlyTheFileName)
{
    Record Rec = FullRecord();
    strcpy(Rec->ConfigFileName, "/lib/a \"b\".twc");
    EXPECT_EQ(Print(Rec.get(), true), R"(CONFIGFNAME="/lib/a \"b\".twc" )");
    EXPECT_EQ(Print(Rec.get(), false),
              "#!CORVANE_TABWISE\n" BANNER
              R"(CONFIGFNAME = "/lib/a \"b\".twc" # Config file settings will be read from this file.)"
              "\n" END_BANNER);
}

TEST_F(WriterTest, OutOfRangeValuesAndNamesAreWrittenAsTheyStand)
{
    EXPECT_STREQ(Export_GetSearchModeString((TW_SearchMode_e)3), "# error");
    EXPECT_STREQ(Export_GetDataFormat((DataFormat_e)4), "# error");

    /* A name holding a comma is not escaped, so it reads back as two. */
    Record Rec = NewRecord();
    Rec->DataDelimiter = (TW_Delimiter_e)0;
    Rec->Format = DataFormat_FEPoint;
    SetNames(&Rec->Variables, {"p,q", "r"});
    std::string Text = Print(Rec.get(), false);
    EXPECT_NE(Text.find("  FORMAT = FEPOINT \n  DELIMITER = # error \n"), std::string::npos);
    EXPECT_NE(Text.find(" NAMES = \"p,q,r\" \n\n"), std::string::npos);
    /* (Reading stops at the "# error" delimiter, after the names.) */
    EXPECT_EQ(Names(Scan(Text)->Variables), (std::vector<std::string>{"p", "q", "r"}));
}

TEST_F(WriterTest, FileAndCompactLayoutsReadBack)
{
    ScratchDir Dir;
    struct Case {
        const char *Name;
        Record (*Make)();
    };
    const Case Cases[] = {{"new", NewRecord}, {"full", FullRecord}, {"markers", MarkerRecord}};
    for (const Case &C : Cases) {
        SCOPED_TRACE(C.Name);
        Record Source = C.Make();

        std::string Path = Dir / (std::string(C.Name) + ".twc");
        ASSERT_TRUE(SaveConfigFile(Path.c_str(), Source.get()));
        EXPECT_TRUE(IsInstructionSetFile(Path.c_str()));
        TW_ConfigInstructions_s *Loaded = nullptr;
        ASSERT_TRUE(LoadConfigFile(Path.c_str(), &Loaded));
        Record FromFile(Loaded);
        Record FromCompact = Scan(Print(Source.get(), true));
        EXPECT_TRUE(ui().transcript().empty());

        /* Both blank-cell keys are always written, and reading either one
           switches replacement on. */
        Source->GlobalFilters.UseBlankCellValue = true;
        ExpectSameInstructions(*Source, *FromCompact);
        strcpy(Source->FileExt, ".twc");
        ExpectSameInstructions(*Source, *FromFile);
        EXPECT_STREQ(FromFile->FilePath, Path.c_str());
        EXPECT_STREQ(FromFile->DisplayName, (std::string(C.Name) + ".twc").c_str());
        EXPECT_FALSE(FromFile->IsNew);
        EXPECT_FALSE(FromFile->IsModified);
    }
}

TEST_F(WriterTest, FailedHostStringsDropValuesWithoutLeaks)
{
    Record Rec = NewRecord();
    const std::string Full = Print(Rec.get(), true);
    const std::string WithoutName = [&] {
        std::string T = Full;
        T.erase(T.find("NAME=\"New Dataset\" "), strlen("NAME=\"New Dataset\" "));
        return T;
    }();

    bool DroppedName = false;
    for (long N = 1;; N++) {
        long Before = hostObjectsMade();
        corvane::host::failHostAllocationAt(N);
        char *Out = nullptr;
        EXPECT_TRUE(PrintInstructionSet(Rec.get(), true, &Out));
        bool Injected = corvane::host::hostAllocationCount() >= N;
        corvane::host::failHostAllocationAt(0);
        std::string Text = Out != nullptr ? Out : "";
        CvnUtilStringDealloc(&Out);
        EXPECT_EQ(hostObjectsMade(), Before) << "leak when allocation " << N << " fails";
        if (!Injected) {
            EXPECT_EQ(Text, Full);
            break;
        }
        DroppedName = DroppedName || Text == WithoutName;
    }
    EXPECT_TRUE(DroppedName) << "no failure dropped just the title";
    EXPECT_TRUE(ui().transcript().empty());
}
