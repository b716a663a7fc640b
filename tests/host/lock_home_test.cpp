// The nestable host lock and the host's home directory.
#include <cstdlib>
#include <optional>
#include <string>

#include "HostFixture.h"

using namespace corvane::host;

using LockTest = HostTest;

TEST_F(LockTest, StartsAndFinishesNestAndStrayFinishesAreCounted)
{
    AddOn_pa id = nullptr;
    CvnUtilLockOn();
    CvnUtilLockStart(id);
    CvnUtilLockStart(id);
    EXPECT_EQ(lockDepth(), 3);
    CvnUtilLockFinish(id);
    CvnUtilLockFinish(id);
    CvnUtilLockOff();
    EXPECT_EQ(lockDepth(), 0);
    EXPECT_EQ(unbalancedLockFinishes(), 0);

    CvnUtilLockFinish(id);
    CvnUtilLockOff();
    EXPECT_EQ(lockDepth(), 0);
    EXPECT_EQ(unbalancedLockFinishes(), 2);
    resetLock();
    EXPECT_EQ(unbalancedLockFinishes(), 0);
}

// Sets or clears an environment variable for one scope.
class EnvVar {
public:
    EnvVar(const char *name, const char *value) : name_(name)
    {
        if (const char *old = std::getenv(name))
            old_ = old;
        if (value)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }
    ~EnvVar()
    {
        if (old_)
            setenv(name_, old_->c_str(), 1);
        else
            unsetenv(name_);
    }

private:
    const char *name_;
    std::optional<std::string> old_;
};

static std::string homeDirectory()
{
    char *home = CvnUtilCorvaneGetHomeDirectory();
    std::string text = home ? home : "<null>";
    CvnUtilStringDealloc(&home);
    return text;
}

using HomeDirectoryTest = HostTest;

TEST_F(HomeDirectoryTest, CorvaneHomeThenDataFolderThenHome)
{
    EnvVar home("HOME", "/home/ana");
    EnvVar xdg("XDG_DATA_HOME", "/srv/data");
    {
        EnvVar corvane("CORVANE_HOME", "/opt/corvane");
        EXPECT_EQ(homeDirectory(), "/opt/corvane");
    }
    {
        EnvVar corvane("CORVANE_HOME", nullptr);
        EXPECT_EQ(homeDirectory(), "/srv/data/corvane");
        EnvVar noXdg("XDG_DATA_HOME", "");
        EXPECT_EQ(homeDirectory(), "/home/ana/.local/share/corvane");

        failHostAllocationAt(1);
        EXPECT_EQ(homeDirectory(), "<null>");
    }
    EXPECT_EQ(hostObjectsMade(), 0);
}
