/*
 * InstructionTestSupport.h - helpers shared by the instruction tests: an
 * owning record pointer, printing and scanning, names and set members, and
 * the frame of the reader's syntax errors.
 */
#ifndef ORDALIS_TESTS_INSTRUCTIONTESTSUPPORT_H
#define ORDALIS_TESTS_INSTRUCTIONTESTSUPPORT_H

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Instructions.h"
#include "Reader.h"
#include "TestFiles.h"
#include "Writer.h"

namespace instrtest {

using namespace corvane::cvnutildataio;
using testfiles::readFile;
using testfiles::ScratchDir;
using testfiles::writeFile;
using Strings = std::vector<std::string>;

struct RecordDeleter {
    void operator()(TW_ConfigInstructions_s *Rec) const { ImportInstructionsDealloc(&Rec); }
};
using Record = std::unique_ptr<TW_ConfigInstructions_s, RecordDeleter>;

inline Record NewRecord() { return Record(ImportInstructionsAlloc()); }

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

/* Members of a host set in ascending order. */
inline std::vector<long> Members(const Set_s *Set)
{
    std::vector<long> Result;
    for (LgIndex_t M = CvnUtilSetGetNextMember(Set, CVN_NO_MEMBER); M != CVN_NO_MEMBER;
         M = CvnUtilSetGetNextMember(Set, M))
        Result.push_back((long)M);
    return Result;
}

inline Strings Names(const TW_Variables_s &Vars)
{
    Strings Result;
    for (int32_t I = 0; I < Vars.NumNames; I++)
        Result.push_back(Vars.Names[I].Name);
    return Result;
}

/* Gives Vars the names of List. */
inline void SetNames(TW_Variables_s *Vars, const Strings &List)
{
    std::vector<TW_Variable_s> Entries(List.size());
    for (size_t I = 0; I < List.size(); I++)
        strcpy(Entries[I].Name, List[I].c_str());
    CopyVarToVar(&Vars->Names, Entries.data(), &Vars->NumNames, (int32_t)List.size());
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
