/* The scanned data set: creation, zones, release and their failures. */
#include <string>
#include <vector>

#include "FileDataSet.h"
#include "ScanFixture.h"

namespace {

using corvane::host::UiEvent;

class DataSetTest : public ScanTest {
protected:
    tw::TW_ZoneInfo_s *last = nullptr;
    int32_t counter = 1;

    bool add(int32_t numVars, tw::TW_Dimension_s dimension)
    {
        return tw::AddNewZone(&data->ZoneList, &last, &counter, numVars, &dimension);
    }
};

TEST_F(DataSetTest, NewDataSetAndZonesStartFromTheirInitialValues)
{
    data = tw::FileDataSetAlloc();
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data->Title, nullptr);
    EXPECT_EQ(data->NumZones, 0);
    EXPECT_EQ(data->ZoneList, nullptr);
    EXPECT_EQ(data->NumVars, 0);
    EXPECT_EQ(data->MaxTextLineNumber, 0);
    EXPECT_EQ(data->RawLineList, nullptr);
    EXPECT_EQ(data->State, 4);
    EXPECT_FALSE(data->NeedsRescan);

    ASSERT_TRUE(add(2, {true, 7, 7, 7}));
    ASSERT_TRUE(add(2, {false, 10, 5, 1}));
    ASSERT_TRUE(add(0, {false, 1, 1, 1}));
    EXPECT_EQ(counter, 4);
    EXPECT_EQ(sizes(), (std::vector<std::vector<int>>{
                           {1, 1, 1, 123456789}, {10, 5, 1, 50}, {1, 1, 1, 1}}));
    std::vector<std::string> zoneNames;
    for (tw::TW_ZoneInfo_s *z = data->ZoneList; z != nullptr; z = z->Next)
        zoneNames.emplace_back(z->ZoneName);
    EXPECT_EQ(zoneNames, (Texts{"Zone 1", "Zone 2", "Zone 3"}));
    EXPECT_EQ(last, zone(2));
    EXPECT_EQ(zone(1)->NumVars, 2);
    EXPECT_EQ(zone(1)->VarValues[1]->Count, 0);
    EXPECT_EQ(zone(2)->VarValues, nullptr);
    EXPECT_TRUE(ui().errors().empty());

    tw::FileDataSetDealloc(&data);
    EXPECT_EQ(data, nullptr);
    tw::FileDataSetDealloc(&data);
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(DataSetTest, ReleaseHoldsTheLockUnderABoxWithoutCancel)
{
    data = tw::FileDataSetAlloc();
    ASSERT_TRUE(add(3, {true, 1, 1, 1}));
    tw::ReleaseFileData(&data);
    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(ui().transcript(),
              (std::vector<UiEvent>{{UiEvent::Kind::progress, "", "Releasing memory...", "", false},
                                    {UiEvent::Kind::progressEnd, "", "", "", false}}));
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(DataSetTest, AllocationFailuresAreReportedAndLeaveNothingBehind)
{
    tw::TW_AllocFailAt(1);
    EXPECT_EQ(tw::FileDataSetAlloc(), nullptr);
    EXPECT_EQ(ui().errors(), (Texts{"Out of memory"}));

    tw::TW_AllocFailAt(0);
    data = tw::FileDataSetAlloc();
    ui().clearTranscript();
    /* The zone record itself: two boxes, no zone, the number used up. */
    tw::TW_AllocFailAt(1);
    EXPECT_FALSE(add(2, {true, 1, 1, 1}));
    EXPECT_EQ(ui().errors(), (Texts{"Out of memory", "Out of memory"}));
    EXPECT_EQ(data->ZoneList, nullptr);
    EXPECT_EQ(counter, 2);

    /* The pointer array: one box, the zone is linked without arrays. */
    ui().clearTranscript();
    tw::TW_AllocFailAt(2);
    EXPECT_TRUE(add(2, {true, 1, 1, 1}));
    EXPECT_EQ(ui().errors(), (Texts{"Out of memory"}));
    ASSERT_NE(data->ZoneList, nullptr);
    EXPECT_STREQ(data->ZoneList->ZoneName, "Zone 2");
    EXPECT_EQ(data->ZoneList->VarValues, nullptr);

    /* The zone name from the host. */
    ui().clearTranscript();
    tw::TW_AllocFailAt(0);
    corvane::host::failHostAllocationAt(1);
    EXPECT_TRUE(add(1, {true, 1, 1, 1}));
    EXPECT_EQ(zone(1)->ZoneName, nullptr);
    EXPECT_EQ(zone(1)->VarValues[0]->Count, 0);
    tw::FileDataSetDealloc(&data);
    EXPECT_EQ(hostObjectsMade(), 0);
}

} // namespace
