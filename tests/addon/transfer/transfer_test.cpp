/*
 * transfer_test.cpp - scanned data sets built in code, transferred into the
 * host and read back through the host's data model.
 */
#include <dlfcn.h>

#include <memory>
#include <string>
#include <vector>

#include "DataModel.h"
#include "Globals.h"
#include "HostFixture.h"
#include "TW_Alloc.h"
#include "Transfer.h"

using namespace corvane::cvnutildataio;
namespace host = corvane::host;

/* The value handle that CvnUtilDataValueGetRef refuses (zone, variable),
   or 0 for none; stands in for a host that has lost a field. */
static EntIndex_t NullRefZone = 0;
static EntIndex_t NullRefVar = 0;

extern "C" FieldData_pa CvnUtilDataValueGetRef(EntIndex_t Zone, EntIndex_t Var)
{
    using GetRef_pf = FieldData_pa (*)(EntIndex_t, EntIndex_t);
    static GetRef_pf HostGetRef = (GetRef_pf)dlsym(RTLD_NEXT, "CvnUtilDataValueGetRef");
    if (Zone == NullRefZone && Var == NullRefVar)
        return nullptr;
    return HostGetRef(Zone, Var);
}

namespace {

/* One zone of a scanned set: its sizes and one value column per variable. */
struct ZoneSpec {
    int32_t imax, jmax, kmax;
    std::vector<std::vector<double>> columns;
};

/* Owns a TW_FileDataSet_s made of plain test storage. */
class ScannedSet {
public:
    ScannedSet(std::string title, std::vector<std::string> names, std::vector<ZoneSpec> zones,
               std::vector<bool> selected = {})
        : title_(std::move(title)), zoneSpecs_(std::move(zones))
    {
        for (size_t v = 0; v < names.size(); v++) {
            TW_Variable_s var{};
            snprintf(var.Name, sizeof(var.Name), "%s", names[v].c_str());
            var.NameLength = (int32_t)names[v].size();
            var.Selected = selected.empty() ? true : (bool)selected[v];
            vars_.push_back(var);
        }
        zoneNames_.reserve(zoneSpecs_.size());
        zones_.resize(zoneSpecs_.size());
        arrays_.resize(zoneSpecs_.size());
        arrayPtrs_.resize(zoneSpecs_.size());
        for (size_t z = 0; z < zoneSpecs_.size(); z++) {
            ZoneSpec &spec = zoneSpecs_[z];
            zoneNames_.push_back("Zone " + std::to_string(z + 1));
            for (auto &column : spec.columns)
                arrays_[z].push_back({(int32_t)column.size(), column.data()});
            for (auto &array : arrays_[z])
                arrayPtrs_[z].push_back(&array);
            TW_ZoneInfo_s &zone = zones_[z];
            zone.ZoneName = zoneNames_[z].data();
            zone.IMax = spec.imax;
            zone.JMax = spec.jmax;
            zone.KMax = spec.kmax;
            zone.NumPoints = spec.imax * spec.jmax * spec.kmax;
            zone.NumVars = (int32_t)names.size();
            zone.VarValues = arrayPtrs_[z].data();
            zone.Next = z + 1 < zoneSpecs_.size() ? &zones_[z + 1] : nullptr;
        }
        set_.Title = title_.data();
        set_.NumZones = (int32_t)zones_.size();
        set_.ZoneList = zones_.empty() ? nullptr : zones_.data();
        set_.NumVars = (int32_t)vars_.size();
        set_.VarList = vars_.data();
    }
    /* The record points into the members: never copied or moved. */
    ScannedSet(const ScannedSet &) = delete;
    ScannedSet &operator=(const ScannedSet &) = delete;
    const TW_FileDataSet_s *get() const { return &set_; }

private:
    std::string title_;
    std::vector<ZoneSpec> zoneSpecs_;
    std::vector<std::string> zoneNames_;
    std::vector<TW_Variable_s> vars_;
    std::vector<TW_ZoneInfo_s> zones_;
    std::vector<std::vector<TW_DoubleArray_s>> arrays_;
    std::vector<std::vector<TW_DoubleArray_s *>> arrayPtrs_;
    TW_FileDataSet_s set_{};
};

/* A column of n values first, first + step, ... */
std::vector<double> ramp(size_t n, double first, double step = 1.0)
{
    std::vector<double> values(n);
    for (size_t p = 0; p < n; p++)
        values[p] = first + step * (double)p;
    return values;
}

std::vector<std::string> typeNames(const host::Zone &zone)
{
    std::vector<std::string> names;
    for (const host::Field &field : zone.fields)
        names.push_back(host::fieldTypeName(field.type()));
    return names;
}

using V = std::vector<double>;
using Texts = std::vector<std::string>;

/* The values of every field of zone at point p. */
V point(const host::Zone &zone, size_t p)
{
    V values;
    for (const host::Field &field : zone.fields)
        values.push_back(field.get(p));
    return values;
}

/* Every value of one field. */
V column(const host::Zone &zone, size_t field)
{
    V values;
    for (size_t p = 0; p < zone.fields[field].size(); p++)
        values.push_back(zone.fields[field].get(p));
    return values;
}

class TransferTest : public HostTest {
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        host::clearDataSets();
        GlobalCancelled = FALSE;
        NullRefZone = NullRefVar = 0;
    }
    void TearDown() override
    {
        TW_AllocFailAt(0);
        NullRefZone = NullRefVar = 0;
        host::clearDataSets();
        HostTest::TearDown();
    }

    /* Transfers inside a host data load, as the loader callback does. */
    Boolean_t transfer(const ScannedSet &set)
    {
        CvnUtilDataLoadStart();
        Boolean_t result = LoadDataIntoCorvane(set.get(), plotType);
        CvnUtilDataLoadFinishX(nullptr);
        return result;
    }

    PlotType_e plotType = PlotType_Automatic;
};

TEST_F(TransferTest, LoneVariableOnGridGetsIndexVariables)
{
    ScannedSet grid("Grid", {"Temp"}, {{10, 20, 1, {ramp(200, 0.5, 0.5)}}});
    ASSERT_TRUE(transfer(grid));
    EXPECT_EQ(plotType, PlotType_Cartesian2D);
    ASSERT_EQ(host::dataSets().size(), 1u);
    const host::DataSet &set = host::dataSets()[0];
    EXPECT_EQ(set.loaderName, "Ordalis Loader");
    EXPECT_EQ(set.title, "Grid");
    EXPECT_EQ(set.variables, (Texts{"I", "J", "Temp"}));
    ASSERT_EQ(set.zones.size(), 1u);
    const host::Zone &zone = set.zones[0];
    EXPECT_EQ(zone.name, "Zone 1");
    EXPECT_EQ(typeNames(zone), (Texts{"byte", "byte", "double"}));
    for (size_t p = 0; p < 200; p++)
        ASSERT_EQ(point(zone, p), (V{double(p % 10 + 1), double(p / 10 + 1), 0.5 * double(p + 1)}))
            << "point " << p;

    /* 3 values counted per point against a total of 600: 1..99 during the
       index walk, then 133 clamped to 100 after the data variable. */
    std::vector<int> expected;
    for (int percent = 1; percent <= 99; percent++)
        expected.push_back(percent);
    expected.push_back(100);
    EXPECT_EQ(ui().progressChecks(), expected);
    ASSERT_EQ(ui().transcript().size(), 2u); /* the progress bar only */
    EXPECT_EQ(ui().transcript()[0].text, "Transferring data to Corvane...");
    EXPECT_TRUE(ui().transcript()[0].cancel);
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(TransferTest, IndexTypeFollowsLargestFirstZoneSize)
{
    ScannedSet cube("Cube", {"P"}, {{300, 2, 2, {ramp(1200, 1.0)}}});
    ASSERT_TRUE(transfer(cube));
    EXPECT_EQ(plotType, PlotType_Cartesian3D);
    const host::DataSet &set = host::dataSets().back();
    EXPECT_EQ(set.variables, (Texts{"I", "J", "K", "P"}));
    EXPECT_EQ(typeNames(set.zones[0]), (Texts{"int16", "int16", "int16", "double"}));
    /* Point 300 + 300*2 + 1 - 1 = i 300, j 1, k 2. */
    EXPECT_EQ(point(set.zones[0], 899), (V{300, 1, 2, 900}));

    ScannedSet wide("Wide", {"P"}, {{70000, 2, 1, {ramp(140000, 0.0)}}});
    ASSERT_TRUE(transfer(wide));
    EXPECT_EQ(plotType, PlotType_Cartesian2D);
    EXPECT_EQ(typeNames(host::dataSets().back().zones[0]),
              (Texts{"int32", "int32", "double"}));
    EXPECT_EQ(host::dataSets().back().zones[0].fields[0].get(69999), 70000);

    /* A later zone with KMax > 1 in a 2-D expansion repeats I and J per k;
       its extra values push the percentage past 100, which is clamped. */
    ScannedSet grow("Grow", {"P"}, {{2, 2, 1, {ramp(4, 1.0)}}, {2, 2, 2, {ramp(8, 10.0)}}});
    ui().clearTranscript();
    ASSERT_TRUE(transfer(grow));
    const host::Zone &second = host::dataSets().back().zones[1];
    EXPECT_EQ(second.fields.size(), 3u);
    EXPECT_EQ(column(second, 0), (V{1, 2, 1, 2, 1, 2, 1, 2}));
    EXPECT_EQ(column(second, 1), (V{1, 1, 2, 2, 1, 1, 2, 2}));
    EXPECT_EQ(column(second, 2), ramp(8, 10.0));
    for (int percent : ui().progressChecks())
        EXPECT_LE(percent, 100);
}

TEST_F(TransferTest, SeveralVariablesAreNeverExpanded)
{
    ScannedSet line("Line", {"X"}, {{50, 1, 1, {ramp(50, 1.0)}}});
    ASSERT_TRUE(transfer(line));
    EXPECT_EQ(plotType, PlotType_XYLine);
    EXPECT_EQ(typeNames(host::dataSets().back().zones[0]), (Texts{"double"}));

    ScannedSet block("Block", {"A", "B"}, {{4, 3, 2, {ramp(24, 1.0), ramp(24, 100.0)}}});
    ASSERT_TRUE(transfer(block));
    EXPECT_EQ(plotType, PlotType_Cartesian3D);

    ScannedSet plane("Plane", {"A", "B"}, {{4, 3, 1, {ramp(12, 1.0), ramp(12, 100.0)}}});
    ASSERT_TRUE(transfer(plane));
    EXPECT_EQ(plotType, PlotType_Cartesian2D);

    /* An unselected variable uses no host number but keeps its column. */
    ScannedSet picked("Picked", {"A", "B", "C"},
                      {{3, 1, 1, {ramp(3, 1.0), ramp(3, 10.0), ramp(3, 20.0)}},
                       {2, 1, 1, {ramp(2, 5.0), ramp(2, 50.0), ramp(2, 70.0)}}},
                      {true, false, true});
    ASSERT_TRUE(transfer(picked));
    const host::DataSet &set = host::dataSets().back();
    EXPECT_EQ(set.variables, (Texts{"A", "C"}));
    ASSERT_EQ(set.zones.size(), 2u);
    EXPECT_EQ(point(set.zones[0], 2), (V{3, 22}));
    EXPECT_EQ(set.zones[1].name, "Zone 2");
    EXPECT_EQ(point(set.zones[1], 1), (V{6, 71}));
    EXPECT_TRUE(ui().errors().empty());
}

TEST_F(TransferTest, FailuresShowTheirMessageOnce)
{
    struct Case {
        const char *what;
        ScannedSet set;
        const char *message;
        size_t dataSets;
    };
    Case cases[] = {
        {"empty first zone", ScannedSet("E", {"A", "B"}, {{0, 1, 1, {{}, {}}}}),
         "No data points found", 0},
        {"nothing selected", ScannedSet("N", {"A", "B"}, {{2, 1, 1, {ramp(2, 1), ramp(2, 1)}}},
                                        {false, false}),
         "No data points found", 0},
        {"zone the host refuses",
         ScannedSet("Z", {"A", "B"},
                    {{2, 1, 1, {ramp(2, 1), ramp(2, 1)}}, {0, 1, 1, {{}, {}}},
                     {2, 1, 1, {ramp(2, 1), ramp(2, 1)}}}),
         "Internal error: Could not create zone. Probably out of memory", 1},
    };
    for (Case &c : cases) {
        host::clearDataSets();
        ui().clearTranscript();
        EXPECT_FALSE(transfer(c.set)) << c.what;
        EXPECT_EQ(ui().errors(), Texts{c.message}) << c.what;
        EXPECT_EQ(host::dataSets().size(), c.dataSets) << c.what;
        EXPECT_FALSE(ui().progressUp()) << c.what;
        EXPECT_EQ(hostObjectsMade(), 0) << c.what;
    }
    /* The zone before the refused one stays with the host. */
    ASSERT_EQ(host::dataSets().size(), 1u);
    EXPECT_EQ(host::dataSets()[0].zones.size(), 1u);

    /* Outside a data load the host refuses the data set with its own text. */
    ScannedSet lone("L", {"A"}, {{2, 1, 1, {ramp(2, 1)}}});
    ui().clearTranscript();
    host::clearDataSets();
    EXPECT_FALSE(LoadDataIntoCorvane(lone.get(), plotType));
    EXPECT_EQ(plotType, PlotType_XYLine);
    ASSERT_EQ(ui().errors().size(), 1u);
    EXPECT_NE(ui().errors()[0].find("no data load is open"), std::string::npos);
    EXPECT_TRUE(host::dataSets().empty());
}

TEST_F(TransferTest, NullValueHandleStopsAfterTheZone)
{
    ScannedSet set("S", {"A", "B", "C"},
                   {{2, 1, 1, {ramp(2, 1), ramp(2, 10), ramp(2, 20)}},
                    {2, 1, 1, {ramp(2, 1), ramp(2, 10), ramp(2, 20)}}});
    NullRefZone = 1;
    NullRefVar = 2;
    EXPECT_FALSE(transfer(set));
    EXPECT_EQ(ui().errors(), Texts{"Internal Error: NULL field data pointer"});
    const host::DataSet &loaded = host::dataSets().back();
    ASSERT_EQ(loaded.zones.size(), 1u);
    EXPECT_EQ(point(loaded.zones[0], 1), (V{2, 0, 21}));
}

TEST_F(TransferTest, CancelIsSilentAndKeepsWhatWasCopied)
{
    ScannedSet grid("Grid", {"T"}, {{10, 10, 1, {ramp(100, 1.0)}}});
    ui().cancelAtPercent(50);
    EXPECT_FALSE(transfer(grid));
    EXPECT_TRUE(GlobalCancelled);
    EXPECT_TRUE(ui().errors().empty());
    EXPECT_FALSE(ui().progressUp());
    ASSERT_EQ(host::dataSets().size(), 1u);
    const host::Zone &zone = host::dataSets()[0].zones[0];
    /* 50 % is reached before point 51: points 1..50 hold their indices. */
    EXPECT_EQ(point(zone, 49), (V{10, 5, 0}));
    EXPECT_EQ(point(zone, 50), (V{0, 0, 0}));

    GlobalCancelled = FALSE;
    host::clearDataSets();
    ScannedSet pair("Pair", {"A", "B"}, {{4, 1, 1, {ramp(4, 1.0), ramp(4, 5.0)}}});
    EXPECT_FALSE(transfer(pair));
    EXPECT_TRUE(GlobalCancelled);
    EXPECT_TRUE(ui().errors().empty());
    EXPECT_EQ(point(host::dataSets()[0].zones[0], 3), (V{4, 0}));
}

TEST_F(TransferTest, OutOfMemoryAtEveryAllocation)
{
    ScannedSet grid("Grid", {"T"}, {{3, 2, 1, {ramp(6, 1.0)}}});
    TW_AllocFailAt(1);
    EXPECT_FALSE(transfer(grid));
    TW_AllocFailAt(0);
    EXPECT_EQ(ui().errors(), Texts{"Out of memory"});
    EXPECT_TRUE(host::dataSets().empty());

    /* Each host allocation in turn: the string list reports "Out of memory",
       the argument list fails silently; nothing is left behind. */
    for (long n = 1;; n++) {
        ui().clearTranscript();
        host::clearDataSets();
        host::failHostAllocationAt(n);
        Boolean_t result = transfer(grid);
        host::failHostAllocationAt(0);
        if (result) {
            EXPECT_GT(n, 2) << "the list and the argument list are both allocated";
            break;
        }
        EXPECT_EQ(ui().errors(), n == 1 ? Texts{"Out of memory"} : Texts{}) << "allocation " << n;
        EXPECT_TRUE(host::dataSets().empty()) << "allocation " << n;
        EXPECT_FALSE(ui().progressUp()) << "allocation " << n;
        EXPECT_EQ(hostObjectsMade(), 0) << "allocation " << n;
        ASSERT_LT(n, 50);
    }
}

} // namespace
