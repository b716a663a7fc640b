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

TEST_F(LockHomeTest, HomeIsCorvaneHomeThenTheDataFolderThenHome)
{
    // Only this test of this executable reads these variables.
    setenv("HOME", "/home/ana", 1);
    setenv("XDG_DATA_HOME", "/srv/data", 1);
    setenv("CORVANE_HOME", "/opt/corvane", 1);
    EXPECT_EQ(homeDirectory(), "/opt/corvane");
    unsetenv("CORVANE_HOME");
    EXPECT_EQ(homeDirectory(), "/srv/data/corvane");
    setenv("XDG_DATA_HOME", "", 1);
    EXPECT_EQ(homeDirectory(), "/home/ana/.local/share/corvane");
    failHostAllocationAt(1);
    EXPECT_EQ(homeDirectory(), "<null>");
    EXPECT_EQ(hostObjectsMade(), 0);
}
