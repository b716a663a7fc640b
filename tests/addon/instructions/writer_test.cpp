/* Tests of the instruction-set writer: both layouts (the file one against a hand-made
   golden file), references, escaping, and reading both back to the same record. */
#include <string>

#include "HostFixture.h"
#include "InstructionTestSupport.h"

using namespace instrtest;

namespace {

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
    R->Variables = {SearchMode_Line, 0, nullptr, R->Variables.LoadedVars, 2, 4, Delimiter_Comma, 8};
    SetNames(&R->Variables, {"x", "y (m)", "Temp"});
    for (LgIndex_t Member : {12, 1, 3})
        CvnUtilSetAddMember(R->Variables.LoadedVars, Member, TRUE);
    R->IgnoreNonNumericTokens = false;
    R->StartId = {FileMarker_Keyword, "BEGIN \"data\"", 5};
    R->EndId = {FileMarker_Line, "", 200};
    R->Format = DataFormat_IJKBlock;
    R->DataDelimiter = Delimiter_Fixed;
    R->DataWidth = 14;
    R->Dimension = {false, 10, 20, 3};
    R->CreateMultipleZones = true;
    strcpy(R->ZoneKeyword, "ZONE T=\"a\"");
    R->GlobalFilters = {true, true, true, true, "//", 0, "ok", 0, {3, {{1, 5}, {7, 7}, {10, 0}}},
                        {1, {{2, 0}}}, true, -999.5};
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

using WriterTest = HostTest;

static std::string Golden()
{
    return readFile(ORDALIS_SOURCE_DIR "/tests/addon/instructions/golden/new_record.twc");
}

TEST_F(WriterTest, SavedNewRecordMatchesGoldenFile)
{
    ScratchDir Dir;
    std::string Path = Dir / "new.twc";
    ASSERT_TRUE(SaveConfigFile(Path.c_str(), NewRecord().get()));
    EXPECT_EQ(readFile(Path), Golden());
    EXPECT_TRUE(ui().transcript().empty());
}

TEST_F(WriterTest, SavingIntoAMissingFolderFails)
{
    ScratchDir Dir;
    std::string Path = Dir / "missing/dir/set.twc";
    EXPECT_FALSE(SaveConfigFile(Path.c_str(), NewRecord().get()));
    EXPECT_EQ(ui().errors(), Strings{"Unable to open file \"" + Path +
                                     "\" for reading.\nCheck disk space or permissions"});
}

/* A reference is written between the golden file's banners, alone. */
TEST_F(WriterTest, AReferenceIsWrittenAlone)
{
    Record Rec = FullRecord();
    strcpy(Rec->ConfigFileName, "/lib/a \"b\".twc");
    EXPECT_EQ(Print(Rec.get(), true), R"(CONFIGFNAME="/lib/a \"b\".twc" )");
    const std::string Banners = Golden();
    EXPECT_EQ(Print(Rec.get(), false),
              Banners.substr(0, Banners.find("VERSION")) +
                  R"(CONFIGFNAME = "/lib/a \"b\".twc" # Config file settings will be read )"
                  "from this file.\n" + Banners.substr(Banners.find("# End of file") - 56));
}

TEST_F(WriterTest, CompactLayoutRunsAssignmentsTogether)
{
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

TEST_F(WriterTest, FileLayoutIndentsEveryBlock)
{
    std::string Text = Print(FullRecord().get(), false);
    const char *Blocks[] = {
        "VARIABLES\n{\n\n SEARCH = LINE \n NAMES = \"x,y (m),Temp\" \n\n LOADED = [1,3,12] \n"
        " STARTLINE = 2 \n ENDLINE = 4 \n DELIMITER = COMMA \n WIDTH = 8 \n}\n\n\n",
        "  STARTID = KEYWORD \n  {\n\n   KEYWORD = \"BEGIN \\\"data\\\"\" \n   LINE = 5 \n"
        "  }\n\n\n  ENDID = LINE \n  {\n\n   LINE = 200 \n  }\n\n\n",
        "  DIMENSION\n\n  {\n\n   AUTO = FALSE \n   IMAX = 10 \n   JMAX = 20 \n   KMAX = 3 \n"
        "   CREATEMULTIPLEZONES = TRUE \n   KEYWORD = \"ZONE T=\\\"a\\\"\" \n }\n\n}\n\n",
        "GLOBALFILTERS\n{\n\n KEYWORD = \"ok\" \n COLUMNS=[1-5,7,10-end] \n COMMENT = \"//\" \n"
        " ROWS=[2-end] \n USEBLANKCELLVALUE = TRUE \n BLANKCELLVALUE = -999.500000 \n}\n\n#####",
    };
    for (const char *Block : Blocks)
        EXPECT_NE(Text.find(Block), std::string::npos) << "missing block:\n" << Block;
}

TEST_F(WriterTest, AnIMaxOfOneIsNeverWritten)
{
    EXPECT_NE(Print(MarkerRecord().get(), false)
                  .find("   AUTO = TRUE \n   JMAX = 5 \n   CREATEMULTIPLEZONES"),
              std::string::npos);
}

/* A name holding a comma is not escaped, so it reads back as two; reading
   stops at the "# error" delimiter, after the names. */
TEST_F(WriterTest, BadValuesAreWrittenAsTheyStand)
{
    Record Rec = NewRecord();
    Rec->DataDelimiter = (TW_Delimiter_e)0;
    Rec->Format = DataFormat_FEPoint;
    SetNames(&Rec->Variables, {"p,q", "r"});
    std::string Text = Print(Rec.get(), false);
    EXPECT_NE(Text.find("  FORMAT = FEPOINT \n  DELIMITER = # error \n"), std::string::npos);
    EXPECT_NE(Text.find(" NAMES = \"p,q,r\" \n\n"), std::string::npos);
    EXPECT_EQ(Names(Scan(Text)->Variables), Strings({"p", "q", "r"}));
}

/* What is read back prints as the source did. */
TEST_F(WriterTest, FileAndCompactLayoutsReadBack)
{
    const std::pair<const char *, Record (*)()> Records[] = {
        {"new", NewRecord}, {"full", FullRecord}, {"markers", MarkerRecord}};
    for (const auto &[Name, Make] : Records) {
        SCOPED_TRACE(Name);
        ScratchDir Dir;
        Record Source = Make();
        std::string Path = Dir / "set.twc";
        ASSERT_TRUE(SaveConfigFile(Path.c_str(), Source.get()));
        TW_ConfigInstructions_s *Loaded = nullptr;
        ASSERT_TRUE(LoadConfigFile(Path.c_str(), &Loaded));
        Record FromFile(Loaded);
        Record FromCompact = Scan(Print(Source.get(), true));
        EXPECT_TRUE(ui().transcript().empty());
        /* Both blank-cell keys are always written, and reading either one
           switches replacement on; a loaded file's extension is its own. */
        Source->GlobalFilters.UseBlankCellValue = true;
        EXPECT_EQ(Print(FromCompact.get(), true), Print(Source.get(), true));
        strcpy(Source->FileExt, ".twc");
        EXPECT_EQ(Print(FromFile.get(), false), Print(Source.get(), false));
    }
}

TEST_F(WriterTest, FailedHostStringsDropValuesWithoutLeaks)
{
    Record Rec = NewRecord();
    const std::string Full = Print(Rec.get(), true);
    std::string WithoutName = Full;
    WithoutName.erase(Full.find("NAME=\"New Dataset\" "), strlen("NAME=\"New Dataset\" "));
    bool DroppedName = false;
    for (long N = 1;; N++) {
        corvane::host::failHostAllocationAt(N);
        std::string Text = Print(Rec.get(), true);
        bool Injected = corvane::host::hostAllocationCount() >= N;
        corvane::host::failHostAllocationAt(0);
        EXPECT_EQ(hostObjectsMade(), 1) << "leak when allocation " << N << " fails";
        if (!Injected) {
            EXPECT_EQ(Text, Full);
            break;
        }
        DroppedName = DroppedName || Text == WithoutName;
    }
    EXPECT_TRUE(DroppedName) << "no failure dropped just the title";
}
