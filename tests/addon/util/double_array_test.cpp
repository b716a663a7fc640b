/* Tests of the growable double array: growth step, filling, emptying, failures. */
#include "DoubleArray.h"
#include "HostFixture.h"
#include "TW_Alloc.h"

using namespace corvane::cvnutildataio;
using DoubleArrayTest = HostTest;

TEST_F(DoubleArrayTest, GrowsByOneStepRightAfterEachMultipleOfTheStep)
{
    for (bool Emptied : {false, true}) {
        SCOPED_TRACE(Emptied ? "an emptied array" : "a new array");
        TW_DoubleArray_s *Array = TW_DoubleArrayAlloc();
        if (Emptied) {
            ASSERT_TRUE(TW_DoubleArrayFill(Array, 9000, 1.0));
            TW_DoubleArrayRemoveAll(Array);
        }
        TW_AllocFailAt(0); /* counts allocations from here */
        ASSERT_TRUE(TW_DoubleArrayFill(Array, 7918, 0.5));
        ASSERT_TRUE(TW_DoubleArrayAdd(Array, -1.0));
        ASSERT_TRUE(TW_DoubleArrayFill(Array, 7918, 2.0)); /* room for 15838 */
        EXPECT_EQ(TW_AllocCount(), 1);
        ASSERT_TRUE(TW_DoubleArrayAdd(Array, 3.0));
        ASSERT_TRUE(TW_DoubleArrayFill(Array, 4162, 4.0));
        EXPECT_EQ(TW_AllocCount(), 2);
        const double *V = TW_DoubleArrayGetArray(Array);
        EXPECT_EQ(std::vector<double>({V[7917], V[7918], V[15837], V[19999]}),
                  std::vector<double>({0.5, -1.0, 3.0, 4.0}));
        EXPECT_EQ(TW_DoubleArrayGetSize(Array), 20000);
        ASSERT_TRUE(TW_DoubleArrayFill(Array, 30000, 5.0)); /* past three steps at once */
        EXPECT_EQ(TW_AllocCount(), 3);
        ASSERT_TRUE(TW_DoubleArrayFill(Array, 5432, 6.0)); /* up to 7 steps less one value */
        EXPECT_EQ(TW_AllocCount(), 3);
        ASSERT_TRUE(TW_DoubleArrayAdd(Array, 7.0)); /* fills the seventh step: grows */
        EXPECT_EQ(TW_AllocCount(), 4);
        V = TW_DoubleArrayGetArray(Array);
        EXPECT_EQ(std::vector<double>({V[20000], V[49999], V[50000], V[55432]}),
                  std::vector<double>({5.0, 5.0, 6.0, 7.0}));
        EXPECT_EQ(TW_DoubleArrayGetSize(Array), 55433);
        TW_DoubleArrayDealloc(&Array);
        EXPECT_EQ(Array, nullptr);
    }
}

TEST_F(DoubleArrayTest, MakingAnArrayFailsAtTheRecordOrItsBuffer)
{
    for (long N = 1; N <= 2; N++) {
        ui().clearTranscript();
        TW_AllocFailAt(N);
        EXPECT_EQ(TW_DoubleArrayAlloc(), nullptr) << "allocation " << N;
        EXPECT_EQ(ui().errors(), std::vector<std::string>{"Out of memory"}) << "allocation " << N;
    }
}

/* The next allocation fails: an add takes its value back, a fill leaves the
   array as it was, and emptying without a fresh buffer releases the record
   (the leak check sees it). */
TEST_F(DoubleArrayTest, AFailedGrowthIsReportedOnceAndKeepsTheValuesBeforeIt)
{
    struct { std::string_view Step; int32_t Before, After; } Rows[] = {
        {"add", 7918, 7918}, {"fill", 7000, 7000}, {"empty", 7918, -1}};
    for (const auto &R : Rows) {
        ui().clearTranscript();
        TW_DoubleArray_s *Array = TW_DoubleArrayAlloc();
        ASSERT_TRUE(TW_DoubleArrayFill(Array, R.Before, 2.0));
        TW_AllocFailAt(1);
        if (R.Step == "add")
            EXPECT_FALSE(TW_DoubleArrayAdd(Array, 4.0));
        else if (R.Step == "fill")
            EXPECT_FALSE(TW_DoubleArrayFill(Array, 10000, 4.0));
        else
            TW_DoubleArrayRemoveAll(Array);
        EXPECT_EQ(ui().errors(), std::vector<std::string>{"Out of memory"}) << R.Step;
        if (R.After < 0)
            continue;
        EXPECT_EQ(TW_DoubleArrayGetSize(Array), R.After) << R.Step;
        EXPECT_EQ(TW_DoubleArrayGetArray(Array)[R.After - 1], 2.0) << R.Step;
        TW_DoubleArrayDealloc(&Array);
    }
}
