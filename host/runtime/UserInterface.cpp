/*
 * UserInterface.cpp - the installed user-interface backend. Until one is
 * installed the host answers on the console, with no answer policy.
 */
#include "UserInterface.h"

#include "ConsoleUi.h"

namespace corvane::host {

namespace {
/* The installed backend; empty means the console default. */
std::shared_ptr<UserInterface> installed;

UserInterface &consoleDefault()
{
    static ConsoleUi console{ConsoleOptions{}};
    return console;
}
} // namespace

std::shared_ptr<UserInterface> setUserInterface(std::shared_ptr<UserInterface> ui)
{
    std::swap(installed, ui);
    return ui;
}

UserInterface &userInterface()
{
    return installed ? *installed : consoleDefault();
}

std::string_view messageTypeName(MessageBoxType_e type)
{
    switch (type) {
    case MessageBox_Error:
        return "error";
    case MessageBox_Warning:
        return "warning";
    case MessageBox_Information:
        return "information";
    case MessageBox_Question:
        return "question";
    case MessageBox_YesNo:
        return "yesno";
    }
    return "information";
}

} // namespace corvane::host
