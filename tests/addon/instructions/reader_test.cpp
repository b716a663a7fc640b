/*
 * Tests of the instruction-set reader: syntax errors with their framed
 * texts and where the parse stops or goes on, warnings, strings and
 * escapes, FILEEXT, NAMES and LOADED, file recognition and loading, and
 * every out-of-memory path.
 */
#include <cstring>
#include <string>
#include <vector>

#include "Faults.h"
#include "HostFixture.h"
#include "InstructionTestSupport.h"
#include "TW_Alloc.h"

using namespace corvane::cvnutildataio;
using namespace instrtest;

using Strings = std::vector<std::string>;

class ReaderTest : public HostTest {};

TEST_F(ReaderTest, SyntaxErrorsAreFramedAndStopOrGoOn)
{
    /* Each text ends in FILEDESC = "after": it is read when the parse goes
       on past the error. */
    struct Row {
        const char *Text;
        int Line;            /* -1: no dialog */
        const char *Detail;
        bool GoesOn;
    };
    const Row Rows[] = {
        {"FILEDESC = \"after\"", -1, "", true},
        {"\n\nNAME\nFILEDESC = \"after\"", 2, "Invalid keyword", true},
        {"CONFIGFNAME = \"a.twc\" FILEDESC = \"after\"", 0, "Invalid keyword", false},
        {"FOO = 1 FILEDESC = \"after\"", -1, "", false},
        {"VERSION = 5 { FILEDESC = \"after\"", -1, "", false},
        {"# VERSION = x\nVERSION = x FILEDESC = \"after\"", 1, "Expected integer", false},
        {"FILEDESC \"x\" FILEDESC = \"after\"", 0, "Expected '='.", false},
        {"FILEDESC = 12 FILEDESC = \"after\"", 0, "Expected double quoted string.", false},
        {"FILEDESC = 'x' FILEDESC = \"after\"", 0,
         "Strings must be enclosed in double quotes. Strings enclosed in single quotes are not "
         "valid",
         false},
        {"FILEDESC = \"after\" FILEEXT = \"abc", 0, "Expected closing double quote", true},
        {"TITLE LINE = 2 FILEDESC = \"after\"", 0, "Expected {.", false},
        {"TITLE {\n SEARCH LINE }\nFILEDESC = \"after\"", 1, "Expected '='.", true},
        {"TITLE { SEARCH = EOF } FILEDESC = \"after\"", 0, "Expected one of NONE,LINE,KEYWORD",
         false},
        {"TITLE { DELIMITER = 5 } FILEDESC = \"after\"", 0, "Expected keyword.", false},
        {"TITLE { DELIMITER = PIPE } FILEDESC = \"after\"", 0,
         "Expected one of AUTO,TAB,SPACE,SEMICOLON,COMMA,FIXED", false},
        {"TITLE { FORMAT LINE = 4 } FILEDESC = \"after\"", 0, "Invalid keyword", true},
        {"TITLE { LINE = 2 7 FILEDESC = \"after\"", 0, "Expected valid keyword or '}'", true},
        {"VARIABLES { NAMES = \"\" } FILEDESC = \"after\"", 0, "No variable names specified", true},
        {"VARIABLES { LOADED [1] } FILEDESC = \"after\"", 0, "Expected '='.", false},
        {"DATA { WIDTH IGNORENONNUMERICTOKENS = FALSE } FILEDESC = \"after\"", 0,
         "Invalid keyword found", true},
        {"DATA { IGNORENONNUMERICTOKENS = 1 } FILEDESC = \"after\"", 0, "Expected TRUE or FALSE.",
         false},
        {"DATA { IMPORT { STARTID = EOF { LINE = 9 } } } FILEDESC = \"after\"", 0,
         "Expected one of: FIRSTNUMERICLINE,LINE,KEYWORD", true},
        {"DATA { IMPORT { ENDID = FIRSTNUMERICLINE { LINE = 9 } } } FILEDESC = \"after\"", 0,
         "Expected one of: FIRSTNONNUMERICLINE,LINE,KEYWORD", true},
        {"DATA { IMPORT { STARTID = KEYWORD { KEYWORD = \"x\" WIDTH = 3 } } } FILEDESC = \"after\"",
         0, "Expected KEYWORD = ... or LINE = ....", false},
        {"FILEDESC = \"after\" DATA { IMPORT { STARTID = LINE {\n LINE = 3", 1,
         "Expected '}' before end of file", true},
        {"FILEDESC = \"after\" DATA { IMPORT { ENDID = EOF {\n LINE = 3", 1, "Expected '}'", true},
        {"DATA { IMPORT { FORMAT = FEBLOCK } } FILEDESC = \"after\"", 0,
         "Expected one of IJKPOINT, IJKBLOCK", false},
        {"DATA { DIMENSION { WIDTH IMAX = 2 } } FILEDESC = \"after\"", 0,
         "Expected one of AUTO,IMAX,JMAX,KMAX", true},
        {"DATA { DIMENSION { IMAX = 3 \"x\" } FILEDESC = \"after\"", 0,
         "Unknown syntax error or missing '}' ", true},
        {"GLOBALFILTERS { LINE COMMENT = \"%\" } FILEDESC = \"after\"", 0, "Invalid keyword", true},
        {"GLOBALFILTERS { COLUMNS = 3 } FILEDESC = \"after\"", 0,
         "Expected Number range in the form of [nn-nn,...].", false},
        {"FILEDESC = \"after\" GLOBALFILTERS { ROWS = [1,2", 0, "Expected ending bracket (])",
         true},
        {"GLOBALFILTERS { ROWS = [-2] } FILEDESC = \"after\"", 0,
         "Invalid character in number list", false},
        {"GLOBALFILTERS { BLANKCELLVALUE = TRUE } FILEDESC = \"after\"", 0, "Expected number.",
         false},
        {"GLOBALFILTERS { KEYWORD = \"x\" 5 FILEDESC = \"after\"", 0,
         "Unknown keyword or missing '}'", true},
    };
    for (const Row &R : Rows) {
        SCOPED_TRACE(R.Text);
        ui().clearTranscript();
        Record Rec = Scan(R.Text, "set.twc");
        Strings Expected;
        if (R.Line >= 0)
            Expected.push_back(SyntaxError("set.twc", R.Line, R.Detail));
        EXPECT_EQ(ui().errors(), Expected);
        EXPECT_STREQ(Rec->FileDesc, R.GoesOn ? "after" : "Ordalis");
    }
}

TEST_F(ReaderTest, ErrorsKeepWhatWasReadAndShowOneDialogPerRead)
{
    Record Rec = Scan("VERSION = 3 TITLE { LINE = 4 SEARCH = 9 }\nFILEEXT = \"dat\"\n"
                      "GLOBALFILTERS { COLUMNS = x }");
    EXPECT_EQ(ui().errors(), Strings{SyntaxError("test.twc", 0, "Expected keyword.")});
    EXPECT_EQ(Rec->Version, 3);
    EXPECT_EQ(Rec->TitleLine, 4);
    EXPECT_EQ(Rec->TitleSearchMode, SearchMode_None);
    EXPECT_STREQ(Rec->FileExt, "*.txt");

    /* Errors that let the parse go on do not show a second dialog. */
    ui().clearTranscript();
    Rec = Scan("NAME TITLE { SEARCH LINE\nSEARCH = LINE DELIMITER TAB }\n"
               "DATA { IMPORT { STARTID = EOF { LINE = 8 } ENDID = KEYWORD { KEYWORD = \"E\" } } }");
    EXPECT_EQ(ui().errors(), Strings{SyntaxError("test.twc", 0, "Invalid keyword")});
    EXPECT_EQ(Rec->TitleSearchMode, SearchMode_Line);
    EXPECT_EQ(Rec->TitleDelimiter, Delimiter_Auto);
    EXPECT_EQ(Rec->StartId.Marker, FileMarker_Line);
    EXPECT_EQ(Rec->StartId.Line, 8);
    EXPECT_EQ(Rec->EndId.Marker, FileMarker_Keyword);
    EXPECT_STREQ(Rec->EndId.Keyword, "E");

    /* An empty text leaves the defaults, without a message. */
    ui().clearTranscript();
    Record Empty = Scan("");
    Record Defaults = NewRecord();
    ExpectSameInstructions(*Defaults, *Empty);
    EXPECT_TRUE(ui().transcript().empty());
}

TEST_F(ReaderTest, WarningsAreShownEachTimeAndTheParseGoesOn)
{
    Record Rec = Scan("TITLE { LINE = 0 WIDTH = -3.5 }\nVARIABLES {\n LOADED = [0, 2,3] "
                      "STARTLINE = 6 }\nDATA { DIMENSION { IMAX = 0.5 } }",
                      "w.twc");
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
    EXPECT_TRUE(ui().errors().empty());
    EXPECT_EQ(Rec->TitleLine, 1);
    EXPECT_EQ(Rec->TitleWidth, 1);
    EXPECT_EQ(Members(Rec->Variables.LoadedVars), (std::vector<long>{2, 3}));
    EXPECT_EQ(Rec->Variables.StartLine, 6);
    EXPECT_EQ(Rec->Dimension.IMax, 1);
}

TEST_F(ReaderTest, StringsEscapesAndLengthLimits)
{
    Record Rec = Scan(R"(TITLE { NAME = "say \"hi\" \\ to\, all" KEYWORD = "a\qb" })", "e.twc");
    EXPECT_STREQ(Rec->TitleName, R"(say "hi" \ to\, all)");
    EXPECT_STREQ(Rec->TitleKeyword, "ab");
    EXPECT_EQ(ui().messages(), Strings{"Tabwise instruction set file \"e.twc\":\nEscaped "
                                       "character \\q is not a legal within a string and will "
                                       "be ignored"});
    EXPECT_TRUE(ui().errors().empty());

    /* Over-long strings are cut at 1024 characters, still assigned, and the
       parse goes on; each field keeps only what fits. */
    ui().clearTranscript();
    std::string Long(1030, 'a');
    Long[1023] = 'b';
    Long[1024] = 'c';
    Rec = Scan("FILEDESC = \"" + Long + "\" TITLE { NAME = \"" + Long + "\" KEYWORD = \"" + Long +
               "\" } VERSION = 9");
    EXPECT_EQ(ui().errors(), Strings{SyntaxError("test.twc", 0, "Maximum string length exceeded")});
    EXPECT_EQ(std::string(Rec->FileDesc), Long.substr(0, 1024));
    EXPECT_EQ(std::string(Rec->TitleName), Long.substr(0, 1023));
    EXPECT_EQ(std::string(Rec->TitleKeyword), Long.substr(0, 256));
    EXPECT_EQ(Rec->Version, 9);

    /* Keywords ignore case and have synonyms; comments run to the line end. */
    ui().clearTranscript();
    Rec = Scan("version = 100 # VERSION = 1\nData { ignoreNonNumericTokens = no Import { "
               "format = block } Dimension { auto = F createmultiplezones = yes } }");
    EXPECT_TRUE(ui().transcript().empty());
    EXPECT_EQ(Rec->Version, 100);
    EXPECT_FALSE(Rec->IgnoreNonNumericTokens);
    EXPECT_EQ(Rec->Format, DataFormat_IJKBlock);
    EXPECT_FALSE(Rec->Dimension.Auto);
    EXPECT_TRUE(Rec->CreateMultipleZones);
}

TEST_F(ReaderTest, FileExtIsNormalised)
{
    const std::pair<const char *, const char *> Rows[] = {
        {"*.dat", "*.dat"}, {".dat", "*.dat"}, {"dat", "*.dat"}, {"*dat", "*.*dat"},
        {"*", "*.*"},       {"", "*."},        {"*.*", "*.*"},
    };
    for (const auto &[Value, Expected] : Rows) {
        Record Rec = Scan(std::string("FILEEXT = \"") + Value + "\"");
        EXPECT_STREQ(Rec->FileExt, Expected) << Value;
    }
    EXPECT_TRUE(ui().transcript().empty());
}

TEST_F(ReaderTest, NamesAreSplitAtCommasNotEscapedOnes)
{
    /* A second NAMES replaces the first. */
    std::string Long(200, 'n');
    Record Rec = Scan("VARIABLES { NAMES = \"a,b\" NAMES = \"x,y\\,z,,Temp (K)\" }");
    EXPECT_EQ(Names(Rec->Variables), (Strings{"x", "y,z", "", "Temp (K)"}));
    EXPECT_EQ(Rec->Variables.Names[1].ColumnWidth, 5);

    Rec = Scan("VARIABLES { NAMES = \"" + Long + ",v\" }");
    EXPECT_EQ(Names(Rec->Variables), (Strings{Long.substr(0, 128), "v"}));
    EXPECT_EQ(Rec->Variables.Names[0].ColumnWidth, 130);

    /* An empty list leaves no names, whatever was there before. */
    Rec = Scan("VARIABLES { NAMES = \"a,b\" NAMES = \"\" }");
    EXPECT_EQ(Rec->Variables.NumNames, 0);
    EXPECT_EQ(Rec->Variables.Names, nullptr);
    EXPECT_EQ(ui().errors(), Strings{SyntaxError("test.twc", 0, "No variable names specified")});
}

TEST_F(ReaderTest, LoadedFormsAndTheRestOfTheSection)
{
    const std::pair<const char *, std::vector<long>> Rows[] = {
        {"LOADED = [1, 3 5] STARTLINE = 4 }", {1, 3, 5}},
        {"LOADED = \"[12;2]\" STARTLINE = 4 }", {2, 12}},
        {"LOADED= All  STARTLINE=4 }", {}},
        {"LOADED = All\n STARTLINE = 4 }", {}},
        {"LOADED = [7-9]\n STARTLINE = 4 }", {7, 9}},
    };
    for (const auto &[Text, Expected] : Rows) {
        SCOPED_TRACE(Text);
        /* An earlier LOADED is replaced, not added to. */
        Record Rec = Scan(std::string("VARIABLES { LOADED = [4] ") + Text);
        EXPECT_EQ(Members(Rec->Variables.LoadedVars), Expected);
        EXPECT_EQ(Rec->Variables.StartLine, 4);
    }
    EXPECT_TRUE(ui().transcript().empty());
}

TEST_F(ReaderTest, RecognisesInstructionSetFiles)
{
    ScratchDir Dir;
    const std::pair<std::string, bool> Rows[] = {
        {"#!CORVANE_TABWISE\nVERSION = 100\n", true},
        {"\n  \t\n\r\n  #!CORVANE_TABWISE\n", true},
        {"VERSION = 100\n#!CORVANE_TABWISE\n", false},
        {"#!corvane_tabwise\n", false},
        {"#!CORVANE_TABWISE", true},
        {std::string(300, 'x') + "#!CORVANE_TABWISE\n", false},
    };
    int I = 0;
    for (const auto &[Content, Expected] : Rows) {
        std::string Path = Dir / ("f" + std::to_string(I++));
        writeFile(Path, Content);
        EXPECT_EQ(IsInstructionSetFile(Path.c_str()), Expected) << Content;
    }
    EXPECT_FALSE(IsInstructionSetFile((Dir / "none.twc").c_str()));
    EXPECT_TRUE(ui().transcript().empty());
}

TEST_F(ReaderTest, LoadConfigFileReportsAndTakesTheFileItself)
{
    ScratchDir Dir;
    std::string Missing = Dir / "none.twc";
    TW_ConfigInstructions_s *Rec = nullptr;
    EXPECT_FALSE(LoadConfigFile(Missing.c_str(), &Rec));
    EXPECT_EQ(Rec, nullptr);
    EXPECT_EQ(ui().errors(), Strings{"Cannot open file \"" + Missing +
                                     "\" for reading. Check disk space or permissions."});

    /* A syntax error does not fail the load; the path names the file. */
    ui().clearTranscript();
    std::string Path = Dir / "Sensor.Data.cfg";
    writeFile(Path, "#!CORVANE_TABWISE\nFILEEXT = \"csv\"\nTITLE { LINE = 4 }\n"
                    "DATA { IGNORENONNUMERICTOKENS = maybe }\nVERSION = 2\n");
    ASSERT_TRUE(LoadConfigFile(Path.c_str(), &Rec));
    Record Loaded(Rec);
    EXPECT_EQ(ui().errors(), Strings{SyntaxError(Path, 3, "Expected TRUE or FALSE.")});
    EXPECT_EQ(Loaded->TitleLine, 4);
    EXPECT_EQ(Loaded->Version, 100);
    EXPECT_STREQ(Loaded->FileExt, ".cfg");
    EXPECT_STREQ(Loaded->DisplayName, "Sensor.Data.cfg");
    EXPECT_STREQ(Loaded->FilePath, Path.c_str());
    EXPECT_FALSE(Loaded->IsNew);
    EXPECT_FALSE(Loaded->IsModified);
}

TEST_F(ReaderTest, EveryFailedAllocationIsReportedAndNothingLeaks)
{
    ScratchDir Dir;
    std::string Path = Dir / "names.twc";
    writeFile(Path, "VARIABLES { NAMES = \"x,y,z\" LOADED = [2] }\n");

    /* Add-on heap: the file text, the record, the names array. */
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
            EXPECT_TRUE(ui().errors().empty());
            EXPECT_EQ(Names(Owner->Variables), (Strings{"x", "y", "z"}));
            break;
        }
        ASSERT_EQ(ui().errors().size(), 1u) << "allocation " << N;
        Seen.push_back(ui().errors()[0]);
        EXPECT_TRUE(!Loaded || Owner->Variables.NumNames == 0);
        Owner.reset();
        EXPECT_EQ(hostObjectsMade(), 0) << "allocation " << N;
    }
    EXPECT_EQ(Seen, (Strings{"Out of memory",
                             "Out of memory. Unable to allocate import parameters structure",
                             "Out of memory"}));

    /* Host objects: the name list, its strings and copies, the set, and the
       message of a bad number list. */
    const char *Texts[] = {"VARIABLES { NAMES = \"x,y\" }", "GLOBALFILTERS { ROWS = [1,2"};
    for (const char *Text : Texts) {
        for (long N = 1;; N++) {
            SCOPED_TRACE(Text);
            ui().clearTranscript();
            Record Rec = NewRecord();
            corvane::host::failHostAllocationAt(N);
            ScanInstructionSet("h.twc", Text, Rec.get());
            bool Injected = corvane::host::hostAllocationCount() >= N;
            corvane::host::failHostAllocationAt(0);
            if (!Injected)
                break;
            for (const std::string &Error : ui().errors()) {
                EXPECT_TRUE(Error.rfind("Out of memory", 0) == 0 ||
                            Error == SyntaxError("h.twc", 0, "Expected ending bracket (])") ||
                            Error == SyntaxError("h.twc", 0,
                                                 "Expected Number range in the form of "
                                                 "[nn-nn,...]."))
                    << Error;
            }
            EXPECT_TRUE(Rec->Variables.NumNames == 0 || Names(Rec->Variables) == Strings({"x", "y"}));
            Rec.reset();
            EXPECT_EQ(hostObjectsMade(), 0) << "allocation " << N;
        }
    }
}
