// The gtest fixture for code that talks to the host: a fresh ScriptedUi (questions
// answered No), an unlocked lock, no allocation failure pending; at the end every
// lock start must have been finished.
#ifndef ORDALIS_TESTS_HOSTFIXTURE_H
#define ORDALIS_TESTS_HOSTFIXTURE_H

#include <memory>
#include <optional>

#include <gtest/gtest.h>

#include "Faults.h"
#include "Lock.h"
#include "ScriptedUi.h"
#include "UserInterface.h"

class HostTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ui_ = std::make_shared<corvane::host::ScriptedUi>();
        guard_.emplace(ui_);
        corvane::host::resetLock();
        corvane::host::failHostAllocationAt(0);
        liveAtStart_ = corvane::host::liveHostObjects();
    }

    void TearDown() override
    {
        EXPECT_EQ(corvane::host::lockDepth(), 0) << "a host lock start was not finished";
        EXPECT_EQ(corvane::host::unbalancedLockFinishes(), 0)
            << "a host lock finish had no matching start";
        corvane::host::failHostAllocationAt(0);
        corvane::host::resetLock();
        guard_.reset();
    }

    /* The backend answering every box of this test. */
    corvane::host::ScriptedUi &ui() { return *ui_; }

    /* Host strings, lists, sets and argument lists made in the test and not released. */
    long hostObjectsMade() const { return corvane::host::liveHostObjects() - liveAtStart_; }

private:
    std::shared_ptr<corvane::host::ScriptedUi> ui_;
    std::optional<corvane::host::ScopedUserInterface> guard_;
    long liveAtStart_ = 0;
};

#endif
