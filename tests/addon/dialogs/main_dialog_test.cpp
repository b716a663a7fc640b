/* The main import dialog as a user meets it. */
#include "DialogFixture.h"

namespace {

TEST_F(DialogTest, PickingTheLoaderOpensTheMainDialog)
{
    openLoader();
    EXPECT_TRUE(CvnGUIDialogIsUp(corvane::cvnutildataio::Dialog1Manager));
}

} // namespace
