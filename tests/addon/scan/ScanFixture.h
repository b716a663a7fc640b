/* ScanFixture.h - HostTest with a scratch folder, an instruction set made in code
   (data from the first numeric line to the end) and readers of the scanned data set. */
#ifndef ORDALIS_TESTS_SCANFIXTURE_H
#define ORDALIS_TESTS_SCANFIXTURE_H

#include <string>
#include <vector>

#include "FileDataSet.h"
#include "HostFixture.h"
#include "Instructions.h"
#include "LineFilters.h"
#include "Progress.h"
#include "Reader.h"
#include "TW_Alloc.h"
#include "TestFiles.h"
#include "TextScan.h"

namespace tw = corvane::cvnutildataio;

class ScanTest : public HostTest {
protected:
    using Texts = std::vector<std::string>;

    void SetUp() override
    {
        newInstructions(); /* its set is not the scan's to release */
        HostTest::SetUp();
        tw::GlobalCancelled = FALSE;
    }

    /* Replaces instr by a new set reading from the first numeric line to the end. */
    void newInstructions()
    {
        tw::ImportInstructionsDealloc(&instr);
        instr = tw::ImportInstructionsAlloc();
        instr->StartId.Marker = tw::FileMarker_FirstNumericLine;
        instr->EndId.Marker = tw::FileMarker_EOF;
    }

    void TearDown() override
    {
        tw::TW_AllocFailAt(0);
        tw::FileDataSetDealloc(&data);
        tw::ImportInstructionsDealloc(&instr);
        HostTest::TearDown();
    }

    /* Writes text as the data file and scans it with instr into a fresh data set. */
    bool scan(const std::string &text, bool readData = true)
    {
        tw::FileDataSetDealloc(&data);
        testfiles::writeFile(dir_ / "data.txt", text);
        return tw::ScanTextFile(&data, (dir_ / "data.txt").c_str(), instr, readData);
    }

    /* Reads instruction text into instr, as a saved instruction set would be. */
    void set(const std::string &text) { tw::ScanInstructionSet("set.twc", text.c_str(), instr); }
    void names(const std::string &list)
    {
        set("VARIABLES { SEARCH = NONE NAMES = \"" + list + "\" }");
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

    Texts varNames() const
    {
        Texts out;
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

    tw::TW_ConfigInstructions_s *instr = nullptr;
    tw::TW_FileDataSet_s *data = nullptr;
    testfiles::ScratchDir dir_;
};

#endif
