// The nestable host lock and the host's home directory.
#include <cstdlib>
#include <string>

#include "HostFixture.h"

using namespace corvane::host;

using LockHomeTest = HostTest;

TEST_F(LockHomeTest, StartsAndFinishesNestAndStrayFinishesAreCounted)
{
    CvnUtilLockOn();
    CvnUtilLockStart(nullptr);
    EXPECT_EQ(lockDepth(), 2);
    CvnUtilLockFinish(nullptr);
    CvnUtilLockOff();
    CvnUtilLockOff();
    EXPECT_EQ(lockDepth(), 0);
    EXPECT_EQ(unbalancedLockFinishes(), 1);
    resetLock();
    EXPECT_EQ(unbalancedLockFinishes(), 0);
}

static std::string homeDirectory()
{
    char *home = CvnUtilCorvaneGetHomeDirectory();
    std::string text = home ? home : "<null>";
    CvnUtilStringDealloc(&home);
    return text;
}

// Only this test of this executable reads these variables; nullptr unsets one.
TEST_F(LockHomeTest, HomeIsCorvaneHomeThenTheDataFolderThenHome)
{
    const struct { const char *corvaneHome, *dataHome, *home; } rows[] = {
        {"/opt/corvane", "/srv/data", "/opt/corvane"},
        {nullptr, "/srv/data", "/srv/data/corvane"},
        {nullptr, "", "/home/ana/.local/share/corvane"},
        {nullptr, nullptr, "/home/ana/.local/share/corvane"},
    };
    setenv("HOME", "/home/ana", 1);
    for (const auto &row : rows) {
        for (auto [name, value] : {std::pair{"CORVANE_HOME", row.corvaneHome},
                                   {"XDG_DATA_HOME", row.dataHome}}) {
            if (value)
                setenv(name, value, 1);
            else
                unsetenv(name);
        }
        EXPECT_EQ(homeDirectory(), row.home);
    }
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(LockHomeTest, WithoutAHostStringThereIsNoHome)
{
    failHostAllocationAt(1);
    EXPECT_EQ(homeDirectory(), "<null>");
    EXPECT_EQ(hostObjectsMade(), 0);
}
