/*
 * ScriptedUi.cpp - answers boxes from a script and records each one.
 */
#include "ScriptedUi.h"

namespace corvane::host {

namespace {
bool isQuestion(MessageBoxType_e type)
{
    return type == MessageBox_Question || type == MessageBox_YesNo;
}
} // namespace

void ScriptedUi::queueAnswer(bool yes)
{
    answers_.push_back(yes);
}

void ScriptedUi::setDefaultAnswer(bool yes)
{
    defaultAnswer_ = yes;
}

void ScriptedUi::queueFile(std::optional<std::string> path)
{
    files_.push_back(std::move(path));
}

void ScriptedUi::cancelAtPercent(int percent)
{
    cancelAt_ = percent;
}

std::vector<std::string> ScriptedUi::errors() const
{
    std::vector<std::string> texts;
    for (const UiEvent &event : events_)
        if (event.kind == UiEvent::Kind::error)
            texts.push_back(event.text);
    return texts;
}

std::vector<std::string> ScriptedUi::messages() const
{
    std::vector<std::string> texts;
    for (const UiEvent &event : events_)
        if (event.kind == UiEvent::Kind::message)
            texts.push_back(event.text);
    return texts;
}

void ScriptedUi::error(std::string_view text)
{
    events_.push_back({UiEvent::Kind::error, "", std::string(text), "", false});
}

bool ScriptedUi::message(MessageBoxType_e type, std::string_view text)
{
    bool answer = true;
    std::string answerText = "ok";
    if (isQuestion(type)) {
        answer = defaultAnswer_;
        if (!answers_.empty()) {
            answer = answers_.front();
            answers_.pop_front();
        }
        answerText = answer ? "yes" : "no";
    }
    events_.push_back({UiEvent::Kind::message, std::string(messageTypeName(type)),
                       std::string(text), answerText, false});
    return answer;
}

void ScriptedUi::progressLaunch(std::string_view label, bool showCancel)
{
    progressUp_ = true;
    progressCancel_ = showCancel;
    cancelFired_ = false;
    events_.push_back({UiEvent::Kind::progress, "", std::string(label), "", showCancel});
}

bool ScriptedUi::progressCheck(int percent)
{
    checks_.push_back(percent);
    if (!progressUp_ || !progressCancel_)
        return true;
    if (!cancelFired_ && cancelAt_ && percent >= *cancelAt_)
        cancelFired_ = true;
    return !cancelFired_;
}

void ScriptedUi::progressDrop()
{
    progressUp_ = false;
    progressCancel_ = false;
    cancelFired_ = false;
    events_.push_back({UiEvent::Kind::progressEnd, "", "", "", false});
}

std::optional<std::string> ScriptedUi::chooseFile(SelectFileOption_e /*option*/,
                                                  std::string_view title,
                                                  std::string_view /*defaultName*/,
                                                  std::string_view /*filter*/)
{
    std::optional<std::string> chosen;
    if (!files_.empty()) {
        chosen = std::move(files_.front());
        files_.pop_front();
    }
    events_.push_back({UiEvent::Kind::file, "", std::string(title), chosen.value_or(""), false});
    return chosen;
}

void ScriptedUi::help(std::string_view page)
{
    events_.push_back({UiEvent::Kind::help, "", std::string(page), "", false});
}

} // namespace corvane::host
