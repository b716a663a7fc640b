/*
 * ScriptRunUi.cpp - boxes of a scripted dialog run: shown on standard
 * error, answered from the script's queues.
 */
#include "ScriptRunUi.h"

#include <fmt/format.h>

#include "Script.h"

namespace corvane::cli {

using host::UiEvent;

ScriptRunUi::ScriptRunUi(std::FILE *err, bool quiet, std::function<void(const UiEvent &)> onEvent)
    : lines_(err, quiet), onEvent_(std::move(onEvent))
{
}

void ScriptRunUi::emit(UiEvent event)
{
    if (onEvent_)
        onEvent_(event);
}

void ScriptRunUi::noteProblem(std::string problem)
{
    if (!problem_)
        problem_ = std::move(problem);
}

void ScriptRunUi::error(std::string_view text)
{
    lines_.say(text);
    lastMessage_ = std::string(text);
    emit({UiEvent::Kind::error, "", std::string(text), "", false});
}

bool ScriptRunUi::message(MessageBoxType_e type, std::string_view text)
{
    lastMessage_ = std::string(text);
    bool question = type == MessageBox_Question || type == MessageBox_YesNo;
    bool answer = true;
    if (question) {
        answer = false;
        if (answers_.empty()) {
            noteProblem(fmt::format("no answer queued for the question {}", script::quote(text)));
        } else {
            answer = answers_.front();
            answers_.pop_front();
        }
        lines_.sayAnswered(text, answer);
    } else {
        lines_.say(text);
    }
    emit({UiEvent::Kind::message, std::string(host::messageTypeName(type)), std::string(text),
          question ? (answer ? "yes" : "no") : "ok", false});
    return answer;
}

void ScriptRunUi::progressLaunch(std::string_view label, bool showCancel)
{
    progressUp_ = true;
    cancelFired_ = false;
    cancelAt_.reset();
    if (showCancel && !cancelPoints_.empty()) {
        cancelAt_ = cancelPoints_.front();
        cancelPoints_.pop_front();
    }
    lines_.startBar(label);
    emit({UiEvent::Kind::progress, "", std::string(label), "", showCancel});
}

bool ScriptRunUi::progressCheck(int percent)
{
    if (!progressUp_)
        return true;
    lines_.drawBar(percent);
    if (!cancelFired_ && cancelAt_ && percent >= *cancelAt_)
        cancelFired_ = true;
    return !cancelFired_;
}

void ScriptRunUi::progressDrop()
{
    lines_.clearBar();
    progressUp_ = false;
    cancelFired_ = false;
    cancelAt_.reset();
    emit({UiEvent::Kind::progressEnd, "", "", "", false});
}

std::optional<std::string> ScriptRunUi::chooseFile(SelectFileOption_e /*option*/,
                                                   std::string_view title,
                                                   std::string_view /*defaultName*/,
                                                   std::string_view /*filter*/)
{
    std::optional<std::string> chosen;
    if (files_.empty()) {
        noteProblem(fmt::format("no file queued for the file chooser {}", script::quote(title)));
    } else {
        chosen = std::move(files_.front());
        files_.pop_front();
    }
    emit({UiEvent::Kind::file, "", std::string(title), chosen.value_or(""), false});
    return chosen;
}

void ScriptRunUi::help(std::string_view page)
{
    lines_.say(fmt::format("corvane: help page {}", page));
    emit({UiEvent::Kind::help, "", std::string(page), "", false});
}

} // namespace corvane::cli
