/*
 * InstructionTestSupport.h - helpers shared by the reader and writer tests:
 * an owning record pointer, text rendering, temporary files and a
 * field-by-field comparison of two records.
 */
#ifndef ORDALIS_TESTS_INSTRUCTIONTESTSUPPORT_H
#define ORDALIS_TESTS_INSTRUCTIONTESTSUPPORT_H

#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

#include <gtest/gtest.h>

#include "Instructions.h"
#include "Reader.h"
#include "Writer.h"

namespace instrtest {

using namespace corvane::cvnutildataio;

struct RecordDeleter {
    void operator()(TW_ConfigInstructions_s *Rec) const { ImportInstructionsDealloc(&Rec); }
};
using Record = std::unique_ptr<TW_ConfigInstructions_s, RecordDeleter>;

inline Record NewRecord()
{
    return Record(ImportInstructionsAlloc());
}

/* The record as PrintInstructionSet writes it. */
inline std::string Print(const TW_ConfigInstructions_s *Rec, bool Compact)
{
    char *Out = nullptr;
    EXPECT_TRUE(PrintInstructionSet(Rec, Compact, &Out));
    std::string Text = Out != nullptr ? Out : "";
    CvnUtilStringDealloc(&Out);
    return Text;
}

/* A new record read from Text. */
inline Record Scan(const std::string &Text, const char *FileName = "test.twc")
{
    Record Rec = NewRecord();
    ScanInstructionSet(FileName, Text.c_str(), Rec.get());
    return Rec;
}

inline std::string ReadFile(const std::filesystem::path &Path)
{
    std::ifstream In(Path, std::ios::binary);
    std::stringstream Buffer;
    Buffer << In.rdbuf();
    return Buffer.str();
}

/* A fresh directory under the system's temporary directory, removed with
   everything in it at scope exit. */
class TempDir {
public:
    TempDir()
    {
        static int Counter = 0;
        Path_ = std::filesystem::temp_directory_path() /
                ("ordalis_instr_" + std::to_string(::getpid()) + "_" + std::to_string(++Counter));
        std::filesystem::create_directories(Path_);
    }
    ~TempDir() { std::filesystem::remove_all(Path_); }
    TempDir(const TempDir &) = delete;
    TempDir &operator=(const TempDir &) = delete;

    std::string File(const std::string &Name, const std::string &Content) const
    {
        std::ofstream(Path_ / Name, std::ios::binary) << Content;
        return (Path_ / Name).string();
    }
    std::string PathOf(const std::string &Name) const { return (Path_ / Name).string(); }

private:
    std::filesystem::path Path_;
};

/* Members of a host set in ascending order. */
inline std::vector<long> Members(const Set_s *Set)
{
    std::vector<long> Result;
    for (LgIndex_t M = CvnUtilSetGetNextMember(Set, CVN_NO_MEMBER); M != CVN_NO_MEMBER;
         M = CvnUtilSetGetNextMember(Set, M))
        Result.push_back((long)M);
    return Result;
}

inline std::vector<std::string> Names(const TW_Variables_s &Vars)
{
    std::vector<std::string> Result;
    for (int32_t I = 0; I < Vars.NumNames; I++)
        Result.push_back(Vars.Names[I].Name);
    return Result;
}

inline void ExpectSameList(const TW_NumList_s &A, const TW_NumList_s &B, const char *What)
{
    ASSERT_EQ(A.NumRanges, B.NumRanges) << What;
    for (int32_t I = 0; I < A.NumRanges; I++) {
        EXPECT_EQ(A.Ranges[I].Min, B.Ranges[I].Min) << What << " range " << I;
        EXPECT_EQ(A.Ranges[I].Max, B.Ranges[I].Max) << What << " range " << I;
    }
}

/* Every field that instruction text carries, compared one by one. Names
   read from text get a preview width of their length plus 2. */
inline void ExpectSameInstructions(const TW_ConfigInstructions_s &E, const TW_ConfigInstructions_s &A)
{
    EXPECT_EQ(E.Version, A.Version);
    EXPECT_STREQ(E.FileExt, A.FileExt);
    EXPECT_STREQ(E.FileDesc, A.FileDesc);
    EXPECT_EQ(E.TitleSearchMode, A.TitleSearchMode);
    EXPECT_STREQ(E.TitleName, A.TitleName);
    EXPECT_EQ(E.TitleLine, A.TitleLine);
    EXPECT_STREQ(E.TitleKeyword, A.TitleKeyword);
    EXPECT_EQ(E.TitleDelimiter, A.TitleDelimiter);
    EXPECT_EQ(E.TitleWidth, A.TitleWidth);

    EXPECT_EQ(E.Variables.SearchMode, A.Variables.SearchMode);
    EXPECT_EQ(Names(E.Variables), Names(A.Variables));
    for (int32_t I = 0; I < A.Variables.NumNames; I++) {
        EXPECT_EQ(A.Variables.Names[I].NameLength, (int32_t)strlen(A.Variables.Names[I].Name));
        EXPECT_TRUE(A.Variables.Names[I].Selected);
        EXPECT_EQ(A.Variables.Names[I].ColumnWidth, A.Variables.Names[I].NameLength + 2);
    }
    EXPECT_EQ(Members(E.Variables.LoadedVars), Members(A.Variables.LoadedVars));
    EXPECT_EQ(E.Variables.StartLine, A.Variables.StartLine);
    EXPECT_EQ(E.Variables.EndLine, A.Variables.EndLine);
    EXPECT_EQ(E.Variables.Delimiter, A.Variables.Delimiter);
    EXPECT_EQ(E.Variables.Width, A.Variables.Width);

    EXPECT_EQ(E.IgnoreNonNumericTokens, A.IgnoreNonNumericTokens);
    EXPECT_EQ(E.StartId.Marker, A.StartId.Marker);
    EXPECT_STREQ(E.StartId.Keyword, A.StartId.Keyword);
    EXPECT_EQ(E.StartId.Line, A.StartId.Line);
    EXPECT_EQ(E.EndId.Marker, A.EndId.Marker);
    EXPECT_STREQ(E.EndId.Keyword, A.EndId.Keyword);
    EXPECT_EQ(E.EndId.Line, A.EndId.Line);
    EXPECT_EQ(E.Format, A.Format);
    EXPECT_EQ(E.DataDelimiter, A.DataDelimiter);
    EXPECT_EQ(E.DataWidth, A.DataWidth);
    EXPECT_EQ(E.Dimension.Auto, A.Dimension.Auto);
    EXPECT_EQ(E.Dimension.IMax, A.Dimension.IMax);
    EXPECT_EQ(E.Dimension.JMax, A.Dimension.JMax);
    EXPECT_EQ(E.Dimension.KMax, A.Dimension.KMax);
    EXPECT_EQ(E.CreateMultipleZones, A.CreateMultipleZones);
    EXPECT_STREQ(E.ZoneKeyword, A.ZoneKeyword);

    const TW_GlobalFilters_s &EF = E.GlobalFilters;
    const TW_GlobalFilters_s &AF = A.GlobalFilters;
    EXPECT_EQ(EF.UseComment, AF.UseComment);
    EXPECT_EQ(EF.UseKeyword, AF.UseKeyword);
    EXPECT_EQ(EF.UseColumns, AF.UseColumns);
    EXPECT_EQ(EF.UseRows, AF.UseRows);
    EXPECT_STREQ(EF.Comment, AF.Comment);
    EXPECT_STREQ(EF.Keyword, AF.Keyword);
    ExpectSameList(EF.Columns, AF.Columns, "Columns");
    ExpectSameList(EF.Rows, AF.Rows, "Rows");
    EXPECT_EQ(EF.UseBlankCellValue, AF.UseBlankCellValue);
    EXPECT_EQ(EF.BlankCellValue, AF.BlankCellValue);
    EXPECT_STREQ(E.ConfigFileName, A.ConfigFileName);
}

/* The frame in which every syntax error is shown. */
inline std::string SyntaxError(const std::string &File, int Line, const std::string &Detail)
{
    return "Ordalis Loader:\nSyntax error processing instruction set file \"" + File +
           "\" on or about line " + std::to_string(Line) + ":\n" + Detail +
           "\n\nProcessing of this configuration file has stopped at this line.";
}

} // namespace instrtest

#endif
