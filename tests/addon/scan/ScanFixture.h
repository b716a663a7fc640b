/*
 * ScanFixture.h - HostTest with a temporary directory, an instruction set
 * made in code and helpers that read the scanned data set back.
 */
#ifndef ORDALIS_TESTS_SCANFIXTURE_H
#define ORDALIS_TESTS_SCANFIXTURE_H

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include <unistd.h>

#include "FileDataSet.h"
#include "Globals.h"
#include "HostFixture.h"
#include "Instructions.h"
#include "TW_Alloc.h"
#include "TextScan.h"

namespace tw = corvane::cvnutildataio;

class ScanTest : public HostTest {
protected:
    void SetUp() override
    {
        /* Made before the fixture counts live host objects: its set of
           variables to load is not the scan's. */
        instr = tw::ImportInstructionsAlloc();
        HostTest::SetUp();
        ASSERT_NE(instr, nullptr);
        const auto *info = ::testing::UnitTest::GetInstance()->current_test_info();
        dir_ = std::filesystem::temp_directory_path() /
               ("ordalis_scan_" + std::to_string(getpid()) + "_" + info->name());
        std::filesystem::create_directories(dir_);
        tw::TW_AllocFailAt(0);
        tw::GlobalCancelled = FALSE;
    }

    void TearDown() override
    {
        tw::TW_AllocFailAt(0);
        tw::FileDataSetDealloc(&data);
        tw::ImportInstructionsDealloc(&instr);
        std::filesystem::remove_all(dir_);
        HostTest::TearDown();
    }

    std::string write(const std::string &text, const std::string &name = "data.txt")
    {
        std::string path = (dir_ / name).string();
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }

    /* Writes text as the data file and scans it with instr. */
    bool scan(const std::string &text, bool readData = true)
    {
        std::string path = write(text);
        return tw::ScanTextFile(&data, path.c_str(), instr, readData);
    }

    /* Variables given by name. */
    void names(std::initializer_list<const char *> list)
    {
        std::vector<tw::TW_Variable_s> vars(list.size());
        size_t i = 0;
        for (const char *name : list)
            snprintf(vars[i++].Name, sizeof(vars[0].Name), "%s", name);
        instr->Variables.SearchMode = tw::SearchMode_None;
        tw::CopyVarToVar(&instr->Variables.Names, vars.data(), &instr->Variables.NumNames,
                         (int32_t)vars.size());
    }

    /* Variables read from lines first..last. */
    void varLines(int first, int last)
    {
        instr->Variables.SearchMode = tw::SearchMode_Line;
        instr->Variables.StartLine = first;
        instr->Variables.EndLine = last;
    }

    /* Data from the first numeric line to the end of the file, one zone per
       file sized from the data (the usual layout). */
    void numericToEof()
    {
        instr->StartId.Marker = tw::FileMarker_FirstNumericLine;
        instr->EndId.Marker = tw::FileMarker_EOF;
    }

    void explicitSizes(int i, int j, int k, DataFormat_e format, bool multipleZones)
    {
        instr->Dimension = {false, i, j, k};
        instr->Format = format;
        instr->CreateMultipleZones = multipleZones;
    }

    tw::TW_ZoneInfo_s *zone(int index) const
    {
        tw::TW_ZoneInfo_s *z = data->ZoneList;
        while (z != nullptr && index-- > 0)
            z = z->Next;
        return z;
    }

    std::vector<double> values(int zoneIndex, int var) const
    {
        const tw::TW_DoubleArray_s *array = zone(zoneIndex)->VarValues[var];
        return std::vector<double>(array->Values, array->Values + array->Count);
    }

    std::vector<std::string> varNames() const
    {
        std::vector<std::string> out;
        for (int v = 0; v < data->NumVars; v++)
            out.emplace_back(data->VarList[v].Name);
        return out;
    }

    std::vector<std::pair<int, std::string>> textLines() const
    {
        std::vector<std::pair<int, std::string>> out;
        for (const tw::TW_TextLine_s *l = data->RawLineList; l != nullptr; l = l->Next)
            out.emplace_back(l->LineNumber, l->Text);
        return out;
    }

    /* Sizes of every zone as {IMax, JMax, KMax, NumPoints}. */
    std::vector<std::vector<int>> sizes() const
    {
        std::vector<std::vector<int>> out;
        for (const tw::TW_ZoneInfo_s *z = data->ZoneList; z != nullptr; z = z->Next)
            out.push_back({z->IMax, z->JMax, z->KMax, z->NumPoints});
        return out;
    }

    using Texts = std::vector<std::string>;

    tw::TW_ConfigInstructions_s *instr = nullptr;
    tw::TW_FileDataSet_s *data = nullptr;

private:
    std::filesystem::path dir_;
};

#endif
