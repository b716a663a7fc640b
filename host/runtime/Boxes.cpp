/*
 * Boxes.cpp - the host's message, question, progress, file-chooser and help
 * boxes and its please-wait indicator: each call goes to the installed
 * user-interface backend.
 */
#include "HostMemory.h"
#include "UserInterface.h"

using namespace corvane::host;

namespace {
std::string_view textOf(const char *text)
{
    return text != nullptr ? std::string_view(text) : std::string_view();
}
} // namespace

extern "C" {

void CvnUtilDialogErrMsg(const char *Message)
{
    userInterface().error(textOf(Message));
}

Boolean_t CvnUtilDialogMessageBox(const char *Message, MessageBoxType_e MessageBoxType)
{
    return userInterface().message(MessageBoxType, textOf(Message)) ? TRUE : FALSE;
}

void CvnUtilDialogLaunchPercentDone(const char *Label, Boolean_t ShowStopButton)
{
    userInterface().progressLaunch(textOf(Label), ShowStopButton != FALSE);
}

Boolean_t CvnUtilDialogCheckPercentDone(int PercentDone)
{
    return userInterface().progressCheck(PercentDone) ? TRUE : FALSE;
}

void CvnUtilDialogDropPercentDone(void)
{
    userInterface().progressDrop();
}

Boolean_t CvnUtilDialogGetFileName(SelectFileOption_e DialogOption, char **FileName,
                                   const char *FileTypeName, const char *DefaultFileName,
                                   const char *DefaultFilter)
{
    if (FileName == nullptr)
        return FALSE;
    auto chosen = userInterface().chooseFile(DialogOption, textOf(FileTypeName),
                                             textOf(DefaultFileName), textOf(DefaultFilter));
    if (!chosen)
        return FALSE;
    char *copy = newHostString(*chosen, "DialogGetFileName");
    if (copy == nullptr)
        return FALSE;
    *FileName = copy;
    return TRUE;
}

Boolean_t CvnUtilHelp(const char *HelpFileOrURL, Boolean_t /*GoToID*/, int /*HelpID*/)
{
    userInterface().help(textOf(HelpFileOrURL));
    return TRUE;
}

void CvnUtilPleaseWait(const char *WaitMessage, Boolean_t DoWait)
{
    userInterface().pleaseWait(textOf(WaitMessage), DoWait != FALSE);
}

} // extern "C"
