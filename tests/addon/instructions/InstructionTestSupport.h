/*
 * InstructionTestSupport.h - helpers shared by the reader and writer tests:
 * an owning record pointer, text rendering, scratch files and a
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

#include <stdlib.h>

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

inline std::string readFile(const std::filesystem::path &Path)
{
    std::ifstream In(Path, std::ios::binary);
    std::stringstream Text;
    Text << In.rdbuf();
    return Text.str();
}

inline void writeFile(const std::filesystem::path &Path, const std::string &Text)
{
    std::ofstream(Path, std::ios::binary) << Text;
}

/* A fresh folder under the temporary folder, removed at scope exit. */
class ScratchDir {
public:
    ScratchDir()
    {
        std::string Pattern = (std::filesystem::temp_directory_path() / "ordalis_XXXXXX").string();
        Path_ = ::mkdtemp(Pattern.data()) != nullptr ? Pattern : "";
    }
    ~ScratchDir() { std::filesystem::remove_all(Path_); }
    ScratchDir(const ScratchDir &) = delete;
    ScratchDir &operator=(const ScratchDir &) = delete;
    std::string operator/(const std::string &Name) const { return (Path_ / Name).string(); }

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

/* Gives Vars the names of List. */
inline void SetNames(TW_Variables_s *Vars, const std::vector<std::string> &List)
{
    std::vector<TW_Variable_s> Entries(List.size());
    for (size_t I = 0; I < List.size(); I++)
        strcpy(Entries[I].Name, List[I].c_str());
    CopyVarToVar(&Vars->Names, Entries.data(), &Vars->NumNames, (int32_t)List.size());
}

/* Every field that instruction text carries, compared one by one. Names
   read from text get a preview width of their length plus 2. */
inline void ExpectSameInstructions(const TW_ConfigInstructions_s &E, const TW_ConfigInstructions_s &A)
{
#define SAME(Field) EXPECT_EQ(E.Field, A.Field) << #Field
#define SAME_TEXT(Field) EXPECT_STREQ(E.Field, A.Field) << #Field
    SAME(Version); SAME_TEXT(FileExt); SAME_TEXT(FileDesc); SAME(TitleSearchMode);
    SAME_TEXT(TitleName); SAME(TitleLine); SAME_TEXT(TitleKeyword); SAME(TitleDelimiter);
    SAME(TitleWidth); SAME(Variables.SearchMode); SAME(Variables.StartLine);
    SAME(Variables.EndLine); SAME(Variables.Delimiter); SAME(Variables.Width);
    EXPECT_EQ(Names(E.Variables), Names(A.Variables));
    for (int32_t I = 0; I < A.Variables.NumNames; I++) {
        const TW_Variable_s &V = A.Variables.Names[I];
        EXPECT_EQ(V.NameLength, (int32_t)strlen(V.Name));
        EXPECT_TRUE(V.Selected);
        EXPECT_EQ(V.ColumnWidth, V.NameLength + 2);
    }
    EXPECT_EQ(Members(E.Variables.LoadedVars), Members(A.Variables.LoadedVars));
    SAME(IgnoreNonNumericTokens); SAME(StartId.Marker); SAME_TEXT(StartId.Keyword);
    SAME(StartId.Line); SAME(EndId.Marker); SAME_TEXT(EndId.Keyword); SAME(EndId.Line);
    SAME(Format); SAME(DataDelimiter); SAME(DataWidth); SAME(Dimension.Auto);
    SAME(Dimension.IMax); SAME(Dimension.JMax); SAME(Dimension.KMax);
    SAME(CreateMultipleZones); SAME_TEXT(ZoneKeyword); SAME_TEXT(ConfigFileName);
    SAME(GlobalFilters.UseComment); SAME(GlobalFilters.UseKeyword);
    SAME(GlobalFilters.UseColumns); SAME(GlobalFilters.UseRows);
    SAME_TEXT(GlobalFilters.Comment); SAME_TEXT(GlobalFilters.Keyword);
    SAME(GlobalFilters.UseBlankCellValue); SAME(GlobalFilters.BlankCellValue);
    for (auto List : {&TW_GlobalFilters_s::Columns, &TW_GlobalFilters_s::Rows}) {
        const TW_NumList_s &EL = E.GlobalFilters.*List, &AL = A.GlobalFilters.*List;
        ASSERT_EQ(EL.NumRanges, AL.NumRanges);
        for (int32_t I = 0; I < EL.NumRanges; I++) {
            EXPECT_EQ(EL.Ranges[I].Min, AL.Ranges[I].Min) << "range " << I;
            EXPECT_EQ(EL.Ranges[I].Max, AL.Ranges[I].Max) << "range " << I;
        }
    }
#undef SAME
#undef SAME_TEXT
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
