/* Tests of the instruction-set reader: framed syntax errors and where the parse stops,
   warnings, strings, FILEEXT, NAMES, LOADED, recognising and loading files, out of memory. */
#include <gmock/gmock.h>

#include "HostFixture.h"
#include "InstructionTestSupport.h"
#include "TW_Alloc.h"

using namespace instrtest;
using ReaderTest = HostTest;

TEST_F(ReaderTest, SyntaxErrorsAreFramedAndStopOrGoOn)
{
    /* Texts without "after" get FILEDESC = "after" appended: it is read when
       the parse goes on past the error. Line -1: no dialog. */
    struct { const char *Text; int Line; const char *Detail; bool GoesOn; } Rows[] = {
        {"", -1, "", true},
        {"\n\nNAME\n", 2, "Invalid keyword", true},
        {"CONFIGFNAME = \"a.twc\"", 0, "Invalid keyword", false},
        {"FOO = 1", -1, "", false},
        {"VERSION = 5 {", -1, "", false},
        {"# VERSION = x\nVERSION = x", 1, "Expected integer", false},
        {"FILEDESC \"x\"", 0, "Expected '='.", false},
        {"FILEDESC = 12", 0, "Expected double quoted string.", false},
        {"FILEDESC = 'x'", 0,
         "Strings must be enclosed in double quotes. Strings enclosed in single "
         "quotes are not valid", false},
        {"FILEDESC = \"after\" FILEEXT = \"abc", 0, "Expected closing double quote", true},
        {"TITLE LINE = 2", 0, "Expected {.", false},
        {"TITLE {\n SEARCH LINE }\n", 1, "Expected '='.", true},
        {"TITLE { SEARCH = EOF }", 0, "Expected one of NONE,LINE,KEYWORD", false},
        {"TITLE { DELIMITER = 5 }", 0, "Expected keyword.", false},
        {"TITLE { DELIMITER = PIPE }", 0,
         "Expected one of AUTO,TAB,SPACE,SEMICOLON,COMMA,FIXED", false},
        {"TITLE { FORMAT LINE = 4 }", 0, "Invalid keyword", true},
        {"TITLE { LINE = 2 7", 0, "Expected valid keyword or '}'", true},
        {"VARIABLES { NAMES = \"\" }", 0, "No variable names specified", true},
        {"VARIABLES { LOADED [1] }", 0, "Expected '='.", false},
        {"DATA { WIDTH IGNORENONNUMERICTOKENS = FALSE }", 0, "Invalid keyword found", true},
        {"DATA { IGNORENONNUMERICTOKENS = 1 }", 0, "Expected TRUE or FALSE.", false},
        {"DATA { IMPORT { STARTID = EOF { LINE = 9 } } }", 0,
         "Expected one of: FIRSTNUMERICLINE,LINE,KEYWORD", true},
        {"DATA { IMPORT { ENDID = FIRSTNUMERICLINE { LINE = 9 } } }", 0,
         "Expected one of: FIRSTNONNUMERICLINE,LINE,KEYWORD", true},
        {"DATA { IMPORT { STARTID = KEYWORD { KEYWORD = \"x\" WIDTH = 3 } } }", 0,
         "Expected KEYWORD = ... or LINE = ....", false},
        {"FILEDESC = \"after\" DATA { IMPORT { STARTID = LINE {\n LINE = 3", 1,
         "Expected '}' before end of file", true},
        {"FILEDESC = \"after\" DATA { IMPORT { ENDID = EOF {\n LINE = 3", 1, "Expected '}'", true},
        {"DATA { IMPORT { FORMAT = FEBLOCK } }", 0, "Expected one of IJKPOINT, IJKBLOCK", false},
        {"DATA { DIMENSION { WIDTH IMAX = 2 } }", 0, "Expected one of AUTO,IMAX,JMAX,KMAX", true},
        {"DATA { DIMENSION { IMAX = 3 \"x\" }", 0, "Unknown syntax error or missing '}' ", true},
        {"GLOBALFILTERS { COLUMNS = 3 }", 0,
         "Expected Number range in the form of [nn-nn,...].", false},
        {"FILEDESC = \"after\" GLOBALFILTERS { ROWS = [1,2", 0,
         "Expected ending bracket (])", true},
        {"GLOBALFILTERS { ROWS = [-2] }", 0, "Invalid character in number list", false},
        {"GLOBALFILTERS { BLANKCELLVALUE = TRUE }", 0, "Expected number.", false},
        {"GLOBALFILTERS { KEYWORD = \"x\" 5", 0, "Unknown keyword or missing '}'", true},
    };
    for (const auto &R : Rows) {
        std::string Text = R.Text;
        if (Text.find("after") == std::string::npos)
            Text += " FILEDESC = \"after\"";
        ui().clearTranscript();
        Record Rec = Scan(Text, "set.twc");
        EXPECT_EQ(ui().errors(), R.Line < 0 ? Strings{}
                                            : Strings{SyntaxError("set.twc", R.Line, R.Detail)})
            << Text;
        EXPECT_STREQ(Rec->FileDesc, R.GoesOn ? "after" : "Ordalis") << Text;
    }
}

TEST_F(ReaderTest, ASyntaxErrorKeepsWhatWasReadBeforeIt)
{
    Record Rec = Scan("VERSION = 3 TITLE { LINE = 4 SEARCH = 9 }\nFILEEXT = \"dat\"\n"
                      "GLOBALFILTERS { COLUMNS = x }");
    EXPECT_EQ(ui().errors(), Strings{SyntaxError("test.twc", 0, "Expected keyword.")});
    EXPECT_EQ(std::vector<int>({Rec->Version, Rec->TitleLine, Rec->TitleSearchMode}),
              std::vector<int>({3, 4, SearchMode_None}));
}

TEST_F(ReaderTest, ErrorsThatLetTheParseGoOnShowOneDialog)
{
    Record Rec = Scan("NAME TITLE { SEARCH LINE\nSEARCH = LINE DELIMITER TAB }\nDATA { IMPORT { "
                      "STARTID = EOF { LINE = 8 } ENDID = KEYWORD { KEYWORD = \"E\" } } }");
    EXPECT_EQ(ui().errors(), Strings{SyntaxError("test.twc", 0, "Invalid keyword")});
    EXPECT_EQ(std::vector<int>({Rec->TitleSearchMode, Rec->TitleDelimiter, Rec->StartId.Marker,
                                Rec->StartId.Line, Rec->EndId.Marker}),
              std::vector<int>({SearchMode_Line, Delimiter_Auto, FileMarker_Line, 8,
                                FileMarker_Keyword}));
}

TEST_F(ReaderTest, AnEmptyTextLeavesTheDefaultsWithoutAMessage)
{
    EXPECT_EQ(Print(Scan("").get(), false), Print(NewRecord().get(), false));
    EXPECT_TRUE(ui().transcript().empty());
}

TEST_F(ReaderTest, WarningsAreShownEachTimeAndTheParseGoesOn)
{
    Record Rec = Scan("TITLE { LINE = 0 WIDTH = -3.5 }\nVARIABLES {\n LOADED = [0, 2,3] "
                      "STARTLINE = 6 }\nDATA { DIMENSION { IMAX = 0.5 } }");
    auto OutOfRange = [](int Line) {
        return "Out of range integer found on or about line " + std::to_string(Line) +
               ". This value will be changed to 1.";
    };
    EXPECT_EQ(ui().messages(),
              (Strings{OutOfRange(0), OutOfRange(0),
                       "Invalid skipped variable index on or about line 2.This value will be "
                       "ignored.",
                       OutOfRange(3)}));
    for (const corvane::host::UiEvent &Event : ui().transcript())
        EXPECT_EQ(Event.type, "warning");
    EXPECT_EQ(std::vector<int>({Rec->TitleLine, Rec->TitleWidth, Rec->Variables.StartLine,
                                Rec->Dimension.IMax}),
              std::vector<int>({1, 1, 6, 1}));
    EXPECT_EQ(Members(Rec->Variables.LoadedVars), (std::vector<long>{2, 3}));
}

TEST_F(ReaderTest, StringsTakeEscapesAndAnUnknownOneIsDroppedWithAMessage)
{
    Record Rec = Scan(R"(TITLE { NAME = "say \"hi\" \\ to\, all" KEYWORD = "a\qb" })", "e.twc");
    EXPECT_EQ(Strings({Rec->TitleName, Rec->TitleKeyword}),
              Strings({R"(say "hi" \ to\, all)", "ab"}));
    EXPECT_EQ(ui().messages(), Strings{"Tabwise instruction set file \"e.twc\":\nEscaped "
                                       "character \\q is not a legal within a string and will "
                                       "be ignored"});
}

/* Over-long strings are cut at 1024 characters, still assigned, and the parse
   goes on; each field keeps only what fits. */
TEST_F(ReaderTest, OverLongStringsAreCutAndTheParseGoesOn)
{
    std::string Long(1030, 'a');
    Record Rec = Scan("FILEDESC = \"" + Long + "\" TITLE { NAME = \"" + Long + "\" KEYWORD = \"" +
                      Long + "\" } VERSION = 9");
    EXPECT_EQ(ui().errors(), Strings{SyntaxError("test.twc", 0, "Maximum string length exceeded")});
    EXPECT_EQ(Strings({Rec->FileDesc, Rec->TitleName, Rec->TitleKeyword}),
              Strings({Long.substr(0, 1024), Long.substr(0, 1023), Long.substr(0, 256)}));
    EXPECT_EQ(Rec->Version, 9);
}

/* Keywords ignore case and have synonyms; comments run to the line end. */
TEST_F(ReaderTest, KeywordsIgnoreCaseAndHaveSynonyms)
{
    Record Rec = Scan("version = 100 # VERSION = 1\nData { ignoreNonNumericTokens = no Import { "
                      "format = block } Dimension { auto = F createmultiplezones = yes } }");
    EXPECT_TRUE(ui().transcript().empty());
    EXPECT_EQ(std::vector<int>({Rec->Version, Rec->IgnoreNonNumericTokens, Rec->Format,
                                Rec->Dimension.Auto, Rec->CreateMultipleZones}),
              std::vector<int>({100, false, DataFormat_IJKBlock, false, true}));
}

TEST_F(ReaderTest, FileExtensionsGetAStarAndAPoint)
{
    for (const auto &[Value, Expected] :
         {std::pair{"*.dat", "*.dat"}, {".dat", "*.dat"}, {"dat", "*.dat"}, {"*dat", "*.*dat"},
          {"*", "*.*"}, {"", "*."}, {"*.*", "*.*"}})
        EXPECT_STREQ(Scan(std::string("FILEEXT = \"") + Value + "\"")->FileExt, Expected) << Value;
    EXPECT_TRUE(ui().transcript().empty());
}

/* Names split at commas, not escaped ones; a second NAMES replaces the first;
   a name gets a preview width of its length plus 2. */
TEST_F(ReaderTest, NamesSplitAtCommasAndALaterListReplaces)
{
    std::string Long(200, 'n');
    Record Rec = Scan("VARIABLES { NAMES = \"a,b\" NAMES = \"x,y\\,z,,Temp (K)," + Long + "\" }");
    EXPECT_EQ(Names(Rec->Variables), (Strings{"x", "y,z", "", "Temp (K)", Long.substr(0, 128)}));
    EXPECT_EQ(Rec->Variables.Names[1].ColumnWidth, 5);
    EXPECT_EQ(Rec->Variables.Names[4].ColumnWidth, 130);
    EXPECT_TRUE(ui().transcript().empty());
}

/* An earlier LOADED is replaced, not added to. */
TEST_F(ReaderTest, LoadedVariablesInEveryFormReplaceEarlierOnes)
{
    for (const auto &[Text, Expected] : {std::pair{"LOADED = [1, 3 5] STARTLINE = 4 }",
                                                   std::vector<long>{1, 3, 5}},
                                         {"LOADED = \"[12;2]\" STARTLINE = 4 }", {2, 12}},
                                         {"LOADED= All  STARTLINE=4 }", {}},
                                         {"LOADED = All\n STARTLINE = 4 }", {}},
                                         {"LOADED = [7-9]\n STARTLINE = 4 }", {7, 9}}}) {
        Record Rec = Scan(std::string("VARIABLES { LOADED = [4] ") + Text);
        EXPECT_EQ(Members(Rec->Variables.LoadedVars), Expected) << Text;
        EXPECT_EQ(Rec->Variables.StartLine, 4) << Text;
    }
    EXPECT_TRUE(ui().transcript().empty());
}

TEST_F(ReaderTest, RecognisesInstructionSetFilesByTheirFirstLine)
{
    ScratchDir Dir;
    int I = 0;
    for (const auto &[Content, Expected] :
         {std::pair<std::string, bool>{"#!CORVANE_TABWISE\nVERSION = 100\n", true},
          {"\n  \t\n\r\n  #!CORVANE_TABWISE\n", true}, {"#!CORVANE_TABWISE", true},
          {"VERSION = 100\n#!CORVANE_TABWISE\n", false}, {"#!corvane_tabwise\n", false},
          {std::string(300, 'x') + "#!CORVANE_TABWISE\n", false}}) {
        std::string Path = Dir / ("f" + std::to_string(I++));
        writeFile(Path, Content);
        EXPECT_EQ(IsInstructionSetFile(Path.c_str()), Expected) << Content;
    }
    EXPECT_FALSE(IsInstructionSetFile((Dir / "none.twc").c_str()));
}

TEST_F(ReaderTest, AMissingFileIsNotLoaded)
{
    ScratchDir Dir;
    std::string Missing = Dir / "none.twc";
    TW_ConfigInstructions_s *Rec = nullptr;
    EXPECT_FALSE(LoadConfigFile(Missing.c_str(), &Rec));
    EXPECT_EQ(Rec, nullptr);
    EXPECT_EQ(ui().errors(), Strings{"Cannot open file \"" + Missing +
                                     "\" for reading. Check disk space or permissions."});
}

/* A syntax error does not fail the load; the path names the file. */
TEST_F(ReaderTest, ALoadedFileIsNamedByItsPathEvenWithASyntaxError)
{
    ScratchDir Dir;
    std::string Path = Dir / "Sensor.Data.cfg";
    writeFile(Path, "#!CORVANE_TABWISE\nFILEEXT = \"csv\"\nTITLE { LINE = 4 }\n"
                    "DATA { IGNORENONNUMERICTOKENS = maybe }\nVERSION = 2\n");
    TW_ConfigInstructions_s *Rec = nullptr;
    ASSERT_TRUE(LoadConfigFile(Path.c_str(), &Rec));
    Record Loaded(Rec);
    EXPECT_EQ(ui().errors(), Strings{SyntaxError(Path, 3, "Expected TRUE or FALSE.")});
    EXPECT_EQ(Strings({Loaded->FileExt, Loaded->DisplayName, Loaded->FilePath}),
              Strings({".cfg", "Sensor.Data.cfg", Path}));
    EXPECT_EQ(std::vector<int>({Loaded->TitleLine, Loaded->Version, Loaded->IsNew,
                                Loaded->IsModified}),
              std::vector<int>({4, 100, false, false}));
}

class ReaderFailureTest : public ReaderTest {
protected:
    void SetUp() override
    {
        ReaderTest::SetUp();
        writeFile(Path, "VARIABLES { NAMES = \"x,y,z\" LOADED = [2] }\n");
    }
    ScratchDir Dir;
    std::string Path = Dir / "names.twc";
};

/* The file text is a host string: its allocation fails first. */
TEST_F(ReaderFailureTest, WithoutTheFileTextNothingIsLoaded)
{
    corvane::host::failHostAllocationAt(1);
    TW_ConfigInstructions_s *None = nullptr;
    EXPECT_FALSE(LoadConfigFile(Path.c_str(), &None));
    EXPECT_EQ(None, nullptr);
    EXPECT_EQ(ui().errors(), Strings{"Out of memory"});
    EXPECT_EQ(hostObjectsMade(), 0);
}

/* Add-on heap: the record, then the names array. */
TEST_F(ReaderFailureTest, EveryFailedAddOnAllocationIsReportedOnce)
{
    Strings Seen;
    for (long N = 1;; N++) {
        ui().clearTranscript();
        TW_AllocFailAt(N);
        TW_ConfigInstructions_s *Rec = nullptr;
        bool Loaded = LoadConfigFile(Path.c_str(), &Rec);
        bool Injected = TW_AllocCount() >= N;
        TW_AllocFailAt(0);
        Record Owner(Rec);
        if (!Injected) {
            EXPECT_TRUE(Loaded);
            EXPECT_EQ(ui().errors(), Strings{});
            EXPECT_EQ(Names(Owner->Variables), (Strings{"x", "y", "z"}));
            break;
        }
        ASSERT_EQ(ui().errors().size(), 1u) << "allocation " << N;
        Seen.push_back(ui().errors()[0]);
        if (Loaded) {
            EXPECT_EQ(Owner->Variables.NumNames, 0) << "allocation " << N;
        }
        Owner.reset();
        EXPECT_EQ(hostObjectsMade(), 0) << "allocation " << N;
    }
    EXPECT_EQ(Seen, (Strings{"Out of memory. Unable to allocate import parameters structure",
                             "Out of memory"}));
}

/* Host objects: the name list, its strings and copies, the set, and the
   message of a bad number list. */
TEST_F(ReaderTest, EveryFailedHostAllocationIsReportedAndNothingLeaks)
{
    using testing::AnyOf, testing::StartsWith;
    for (const char *Text : {"VARIABLES { NAMES = \"x,y\" }", "GLOBALFILTERS { ROWS = [1,2"}) {
        for (long N = 1;; N++) {
            ui().clearTranscript();
            Record Rec = NewRecord();
            corvane::host::failHostAllocationAt(N);
            ScanInstructionSet("h.twc", Text, Rec.get());
            bool Injected = corvane::host::hostAllocationCount() >= N;
            corvane::host::failHostAllocationAt(0);
            if (!Injected)
                break;
            for (const std::string &Error : ui().errors()) /* or the list's own message */
                EXPECT_THAT(Error, AnyOf(StartsWith("Out of memory"), StartsWith("Ordalis")));
            if (Rec->Variables.NumNames != 0) {
                EXPECT_EQ(Names(Rec->Variables), Strings({"x", "y"})) << Text << " " << N;
            }
            Rec.reset();
            EXPECT_EQ(hostObjectsMade(), 0) << Text << " allocation " << N;
        }
    }
}
