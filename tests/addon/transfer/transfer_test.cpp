/* transfer_test.cpp - scanned data sets built in code, transferred into the host and
   read back through the host's data model. */
#include <dlfcn.h>

#include <memory>
#include <numeric>

#include "DataModel.h"
#include "FileDataSet.h"
#include "Progress.h"
#include "HostFixture.h"
#include "TW_Alloc.h"
#include "Transfer.h"

using namespace corvane::cvnutildataio;
namespace host = corvane::host;

/* The value handle refused (zone, variable; 0: none), as by a host that lost a field. */
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

using V = std::vector<double>;
using Texts = std::vector<std::string>;

using Scanned = std::unique_ptr<TW_FileDataSet_s,
                                decltype([](TW_FileDataSet_s *Set) { FileDataSetDealloc(&Set); })>;

/* One zone of a scanned set: its sizes and one value column per variable. */
struct ZoneSpec {
    int32_t imax, jmax, kmax;
    std::vector<V> columns;
};

/* A data set as the scan leaves it; unselected variables keep their columns. */
Scanned scanned(const char *title, const Texts &names, const std::vector<ZoneSpec> &zones,
                const std::vector<bool> &selected = {})
{
    Scanned set(FileDataSetAlloc());
    set->Title = CvnUtilStringAlloc((LgIndex_t)strlen(title), "title");
    strcpy(set->Title, title);
    std::vector<TW_Variable_s> vars(names.size());
    for (size_t v = 0; v < names.size(); v++)
        snprintf(vars[v].Name, sizeof(vars[v].Name), "%s", names[v].c_str());
    CopyVarToVar(&set->VarList, vars.data(), &set->NumVars, (int32_t)vars.size());
    for (size_t v = 0; v < selected.size(); v++)
        set->VarList[v].Selected = selected[v];
    TW_ZoneInfo_s *last = nullptr;
    int32_t counter = 1;
    for (const ZoneSpec &spec : zones) {
        TW_Dimension_s size{false, spec.imax, spec.jmax, spec.kmax};
        AddNewZone(&set->ZoneList, &last, &counter, set->NumVars, &size);
        for (size_t v = 0; v < spec.columns.size(); v++)
            for (double value : spec.columns[v])
                TW_DoubleArrayAdd(last->VarValues[v], value);
    }
    set->NumZones = (int32_t)zones.size();
    return set;
}

/* A column of n values first, first + 1, ... */
V ramp(size_t n, double first)
{
    V values(n);
    std::iota(values.begin(), values.end(), first);
    return values;
}

Texts typeNames(const host::Zone &zone)
{
    Texts names;
    for (const host::Field &field : zone.fields)
        names.push_back(host::fieldTypeName(field.type()));
    return names;
}

/* The values of every field of zone at point p. */
V point(const host::Zone &zone, size_t p)
{
    V values;
    for (const host::Field &field : zone.fields)
        values.push_back(field.get(p));
    return values;
}

class TransferTest : public HostTest {
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        GlobalCancelled = FALSE; /* and no data sets: see TearDown */
    }
    void TearDown() override
    {
        NullRefZone = NullRefVar = 0;
        host::clearDataSets();
        HostTest::TearDown();
    }

    /* Transfers inside a host data load, as the loader callback does; a
       transfer leaves no host object behind, whatever its result. */
    Boolean_t transfer(const Scanned &set)
    {
        long before = hostObjectsMade();
        CvnUtilDataLoadStart();
        Boolean_t result = LoadDataIntoCorvane(set.get(), plotType);
        CvnUtilDataLoadFinishX(nullptr);
        EXPECT_EQ(hostObjectsMade(), before) << "host objects left behind";
        EXPECT_FALSE(ui().progressUp());
        return result;
    }

    PlotType_e plotType = PlotType_Automatic;
};

TEST_F(TransferTest, ALoneVariableGetsIndexVariablesOfTheSmallestType)
{
    ASSERT_TRUE(transfer(scanned("Grid", {"Temp"}, {{10, 20, 1, {ramp(200, 0.5)}}})));
    EXPECT_EQ(plotType, PlotType_Cartesian2D);
    const host::DataSet &set = host::dataSets().at(0);
    EXPECT_EQ(Texts({set.loaderName, set.title, set.zones.at(0).name}),
              Texts({"Ordalis Loader", "Grid", "Zone 1"}));
    EXPECT_EQ(set.variables, (Texts{"I", "J", "Temp"}));
    EXPECT_EQ(typeNames(set.zones[0]), (Texts{"byte", "byte", "double"}));
    for (size_t p = 0; p < 200; p++)
        ASSERT_EQ(point(set.zones[0], p),
                  (V{double(p % 10 + 1), double(p / 10 + 1), p + 0.5}))
            << "point " << p;

    /* 3 values counted per point against a total of 600: 1..99 during the
       index walk, then 133 clamped to 100 after the data variable. */
    std::vector<int> expected(100);
    std::iota(expected.begin(), expected.end(), 1);
    EXPECT_EQ(ui().progressChecks(), expected);
    EXPECT_EQ(ui().transcript().at(0).text, "Transferring data to Corvane...");
    EXPECT_TRUE(ui().transcript()[0].cancel);
}

/* Plot and index types follow the first zone; several variables are never
   expanded. The point: its index values, then the data. */
TEST_F(TransferTest, PlotAndIndexTypesFollowTheFirstZone)
{
    const std::tuple<ZoneSpec, PlotType_e, Texts, size_t, V> rows[] = {
        {{50, 1, 1, {ramp(50, 1.0)}}, PlotType_XYLine, {"double"}, 49, {50}},
        {{4, 3, 2, {ramp(24, 1.0), ramp(24, 100.0)}}, PlotType_Cartesian3D, {"double", "double"},
         23, {24, 123}},
        {{4, 3, 1, {ramp(12, 1.0), ramp(12, 100.0)}}, PlotType_Cartesian2D, {"double", "double"},
         11, {12, 111}},
        {{300, 2, 2, {ramp(1200, 1.0)}}, PlotType_Cartesian3D,
         {"int16", "int16", "int16", "double"}, 899, {300, 1, 2, 900}}, /* i 300, j 1, k 2 */
        {{70000, 2, 1, {ramp(140000, 0.0)}}, PlotType_Cartesian2D, {"int32", "int32", "double"},
         69999, {70000, 1, 69999}}, /* the last I of the plane */
    };
    for (const auto &[zone, type, types, p, values] : rows) {
        host::clearDataSets();
        plotType = PlotType_Automatic;
        ASSERT_TRUE(transfer(scanned("S", Texts(zone.columns.size(), "P"), {zone})));
        EXPECT_EQ(plotType, type) << zone.imax;
        const host::Zone &stored = host::dataSets().at(0).zones.at(0);
        EXPECT_EQ(typeNames(stored), types) << zone.imax;
        EXPECT_EQ(point(stored, p), values) << zone.imax;
    }
}

/* A later zone with KMax > 1 in a 2-D expansion repeats I and J per k. */
TEST_F(TransferTest, ALaterZoneWithLayersRepeatsTheIndicesPerLayer)
{
    ASSERT_TRUE(transfer(scanned("Grow", {"P"}, {{2, 2, 1, {ramp(4, 1.0)}},
                                                 {2, 2, 2, {ramp(8, 10.0)}}})));
    const host::Zone &second = host::dataSets().at(0).zones.at(1);
    for (size_t p = 0; p < 8; p++)
        EXPECT_EQ(point(second, p), (V{double(p % 2 + 1), double(p / 2 % 2 + 1), 10.0 + p}));
}

/* A data set without points, or without a selected variable; a zone the host
   refuses, after which the zone before it stays with the host. */
TEST_F(TransferTest, FailuresShowTheirMessageOnce)
{
    ZoneSpec two{2, 1, 1, {ramp(2, 1), ramp(2, 1)}}, empty{0, 1, 1, {{}, {}}};
    const struct { Scanned set; const char *message; std::vector<size_t> zones; } rows[] = {
        {scanned("E", {"A", "B"}, {empty}), "No data points found", {}},
        {scanned("N", {"A", "B"}, {two}, {false, false}), "No data points found", {}},
        {scanned("Z", {"A", "B"}, {two, empty, two}),
         "Internal error: Could not create zone. Probably out of memory", {1}},
    };
    for (const auto &[set, message, zones] : rows) {
        host::clearDataSets();
        ui().clearTranscript();
        EXPECT_FALSE(transfer(set)) << message;
        EXPECT_EQ(ui().errors(), Texts{message});
        std::vector<size_t> kept;
        for (const host::DataSet &stored : host::dataSets())
            kept.push_back(stored.zones.size());
        EXPECT_EQ(kept, zones) << message;
    }
}

/* A null value handle stops the transfer after its zone. */
TEST_F(TransferTest, ANullValueHandleStopsAfterItsZone)
{
    ZoneSpec zone{2, 1, 1, {ramp(2, 1), ramp(2, 10), ramp(2, 20)}};
    NullRefZone = 1;
    NullRefVar = 2;
    EXPECT_FALSE(transfer(scanned("S", {"A", "B", "C"}, {zone, zone})));
    EXPECT_EQ(ui().errors(), Texts{"Internal Error: NULL field data pointer"});
    ASSERT_EQ(host::dataSets().at(0).zones.size(), 1u);
    EXPECT_EQ(point(host::dataSets()[0].zones[0], 1), (V{2, 0, 21}));
}

TEST_F(TransferTest, OutOfMemoryInTheAddOnIsReported)
{
    Scanned grid = scanned("Grid", {"T"}, {{3, 2, 1, {ramp(6, 1.0)}}});
    TW_AllocFailAt(1);
    EXPECT_FALSE(transfer(grid));
    TW_AllocFailAt(0);
    EXPECT_EQ(ui().errors(), Texts{"Out of memory"});
    EXPECT_TRUE(host::dataSets().empty());
}

/* Each host allocation in turn: the string list reports "Out of memory", the
   argument list fails silently, the zone's fields fail the zone (and the
   host then keeps no data set without zones); nothing is left behind. */
TEST_F(TransferTest, EveryFailedHostAllocationStopsTheTransfer)
{
    Scanned grid = scanned("Grid", {"T"}, {{3, 2, 1, {ramp(6, 1.0)}}});
    const Texts errors[] = {
        {"Out of memory"},
        {},
        {"Internal error: Could not create zone. Probably out of memory",
         "The data set \"Grid\" has no zones: the load is not kept."},
    };
    for (long n = 1;; n++) {
        ui().clearTranscript();
        host::failHostAllocationAt(n);
        Boolean_t result = transfer(grid);
        host::failHostAllocationAt(0);
        if (result) {
            EXPECT_EQ(n, 4) << "the list, the argument list and the fields are allocated";
            break;
        }
        ASSERT_LT(n, 4);
        EXPECT_EQ(ui().errors(), errors[n - 1]) << "allocation " << n;
        EXPECT_TRUE(host::dataSets().empty()) << "allocation " << n;
    }
}

/* A cancel keeps what was copied: 50 % is reached before point 51. */
TEST_F(TransferTest, ACancelIsSilentAndKeepsWhatWasCopied)
{
    ui().cancelAtPercent(50);
    EXPECT_FALSE(transfer(scanned("Grid", {"T"}, {{10, 10, 1, {ramp(100, 1.0)}}})));
    EXPECT_TRUE(GlobalCancelled);
    EXPECT_EQ(ui().errors(), Texts{});
    EXPECT_EQ(point(host::dataSets().at(0).zones[0], 49), (V{10, 5, 0}));
    EXPECT_EQ(point(host::dataSets()[0].zones[0], 50), (V{0, 0, 0}));
}

/* A copied variable's scanned values are given back as soon as the host
   holds them, so that a load never needs memory for two copies; a variable
   that is not loaded keeps its values. The set is deallocated afterwards as
   the loader callback does. */
TEST_F(TransferTest, EachCopiedVariableIsGivenBackOnceTheHostHoldsIt)
{
    Scanned set = scanned("Two", {"x", "skipped", "y"},
                          {{3, 1, 1, {ramp(3, 1), ramp(3, 10), ramp(3, 20)}},
                           {2, 1, 1, {ramp(2, 4), ramp(2, 12), ramp(2, 22)}}},
                          {true, false, true});
    ASSERT_TRUE(transfer(set));
    std::vector<std::pair<int32_t, bool>> left; /* count and buffer of every array */
    for (const TW_ZoneInfo_s *zone = set->ZoneList; zone != nullptr; zone = zone->Next)
        for (int32_t v = 0; v < zone->NumVars; v++)
            left.emplace_back(zone->VarValues[v]->Count, zone->VarValues[v]->Values != nullptr);
    EXPECT_EQ(left, (std::vector<std::pair<int32_t, bool>>{
                        {0, false}, {3, true}, {0, false}, {0, false}, {2, true}, {0, false}}));
    const host::DataSet &loaded = host::dataSets().at(0);
    EXPECT_EQ(loaded.variables, (Texts{"x", "y"}));
    EXPECT_EQ(point(loaded.zones.at(0), 2), (V{3, 22}));
    EXPECT_EQ(point(loaded.zones.at(1), 1), (V{5, 23}));
}
