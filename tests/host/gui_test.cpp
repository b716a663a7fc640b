// The in-memory dialog toolkit driven as a dialog and its user would: a
// smoke test until the loader dialogs exist.
#include <string>
#include <vector>

#include "Gui.h"
#include "HostFixture.h"

using namespace corvane::host;
using namespace corvane::host::gui;

namespace {
// What the callbacks saw, in order.
std::vector<std::string> calls;
LgIndex_t lineField = CVNGUI_BAD_ID;

void onOk() { calls.push_back("ok"); }
void onBrowse() { calls.push_back("browse"); }
LgIndex_t onLine(const char *text)
{
    calls.push_back(std::string("text ") + text);
    if (CvnGUITextFieldValidateLgIndex(lineField, "Start line", 1, 99, FALSE))
        return TRUE;
    CvnGUITextFieldSetString(lineField, "1");
    return FALSE;
}

class GuiTest : public HostTest {
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        resetGui();
        calls.clear();
    }
    void TearDown() override
    {
        resetGui();
        HostTest::TearDown();
    }
};
} // namespace

TEST_F(GuiTest, DialogIsUpBetweenLaunchAndDropAndFieldsValidate)
{
    LgIndex_t dialog = CvnGUIDialogCreateModal(CVNGUI_MAIN_DIALOG_ID, 400, 300, "Ordalis Loader",
                                               nullptr, onOk, nullptr, nullptr, nullptr);
    LgIndex_t browse = CvnGUIButtonAdd(dialog, 1, 1, 10, 2, "Browse...", onBrowse);
    lineField = CvnGUITextFieldAdd(dialog, 1, 1, 1, 1, onLine);
    EXPECT_FALSE(CvnGUIDialogIsUp(dialog));
    EXPECT_FALSE(pressButton(browse)) << "nobody can press a button of a hidden dialog";

    CvnGUIDialogLaunch(dialog);
    EXPECT_TRUE(CvnGUIDialogIsUp(dialog));
    EXPECT_TRUE(pressButton(browse));
    EXPECT_TRUE(typeText(lineField, "12"));
    EXPECT_FALSE(typeText(lineField, "12x"));
    char *text = CvnGUITextFieldGetString(lineField);
    EXPECT_STREQ(text, "1") << "the callback reset the field";
    CvnUtilStringDealloc(&text);
    EXPECT_TRUE(pressDialogButton(dialog, DialogButton::ok));
    CvnGUIDialogDrop(dialog);
    EXPECT_FALSE(CvnGUIDialogIsUp(dialog));

    EXPECT_EQ(calls, (std::vector<std::string>{"browse", "text 12", "text 12x", "ok"}));
    EXPECT_EQ(ui().errors(),
              std::vector<std::string>{"Start line must be a whole number from 1 to 99."});
    EXPECT_EQ(hostObjectsMade(), 0);
}
