/*
 * UserInterface.h - the pluggable user-interface backend behind the host's
 * message, question, progress, file-chooser and help boxes.
 *
 * The C entry points (CvnUtilDialogErrMsg, CvnUtilDialogMessageBox, the
 * percent-done calls, CvnUtilDialogGetFileName, CvnUtilHelp,
 * CvnUtilPleaseWait) forward to the
 * backend installed here. Without one, a ConsoleUi with no answer policy is
 * used.
 */
#ifndef CORVANE_HOST_USERINTERFACE_H
#define CORVANE_HOST_USERINTERFACE_H

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "CvnAPI.h"

namespace corvane::host {

class UserInterface {
public:
    virtual ~UserInterface() = default;

    /* A modal error box. */
    virtual void error(std::string_view text) = 0;
    /* A message box of the given kind; the answer (true = Yes / OK). */
    virtual bool message(MessageBoxType_e type, std::string_view text) = 0;
    virtual void progressLaunch(std::string_view label, bool showCancel) = 0;
    /* false when the user pressed Cancel. */
    virtual bool progressCheck(int percent) = 0;
    virtual void progressDrop() = 0;
    /* The chosen path, or nothing when the user cancelled. */
    virtual std::optional<std::string> chooseFile(SelectFileOption_e option, std::string_view title,
                                                  std::string_view defaultName,
                                                  std::string_view filter) = 0;
    virtual void help(std::string_view page) = 0;
    /* The please-wait indicator on (with its text, maybe empty) or off. A
       console has none: the default shows nothing. */
    virtual void pleaseWait(std::string_view /*text*/, bool /*on*/) {}
};

/* Installs a backend; returns the one it replaces. */
std::shared_ptr<UserInterface> setUserInterface(std::shared_ptr<UserInterface> ui);
UserInterface &userInterface();

/* Installs a backend for the lifetime of the guard, then restores the
   previous one. */
class ScopedUserInterface {
public:
    explicit ScopedUserInterface(std::shared_ptr<UserInterface> ui)
        : previous_(setUserInterface(std::move(ui))) {}
    ~ScopedUserInterface() { setUserInterface(std::move(previous_)); }
    ScopedUserInterface(const ScopedUserInterface &) = delete;
    ScopedUserInterface &operator=(const ScopedUserInterface &) = delete;

private:
    std::shared_ptr<UserInterface> previous_;
};

/* Name of a message-box kind as transcripts write it: "error", "warning",
   "information", "question", "yesno". */
std::string_view messageTypeName(MessageBoxType_e type);

} // namespace corvane::host

#endif
