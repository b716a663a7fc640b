/*
 * BrowserUi.cpp - boxes shown in the page and answered from it.
 */
#include "BrowserUi.h"

#include <algorithm>

namespace corvane::server {

using host::UiEvent;
using Json = nlohmann::ordered_json;

namespace {

/* The page shows yes/no boxes and questions alike. */
std::string boxKind(MessageBoxType_e type)
{
    return std::string(type == MessageBox_YesNo ? "question" : host::messageTypeName(type));
}

/* The URL of a help page the add-on names: a page of the host's help
   folder, unless it is a web address already. */
std::string helpUrl(std::string_view page)
{
    if (page.starts_with("http://") || page.starts_with("https://"))
        return std::string(page);
    while (page.starts_with("/"))
        page.remove_prefix(1);
    return "/help/" + std::string(page);
}

} // namespace

BrowserUi::BrowserUi(UiThread &thread, Hooks hooks) : thread_(thread), hooks_(std::move(hooks)) {}

void BrowserUi::tell(UiEvent event) const
{
    if (hooks_.transcript)
        hooks_.transcript(event);
}

BrowserUi::Box BrowserUi::messageBox(std::string kind, std::string_view text)
{
    Box box;
    box.kind = std::move(kind);
    box.text = text;
    return box;
}

BoxReply BrowserUi::ask(Box box, const BoxReply &fallback)
{
    {
        std::lock_guard lock(mutex_);
        if (stopped_)
            return fallback;
        box.id = ++lastBoxId_;
        box_ = std::move(box);
        reply_.reset();
    }
    hooks_.changed();
    thread_.waitModal([this] {
        std::lock_guard lock(mutex_);
        return reply_.has_value() || stopped_;
    });
    BoxReply reply = fallback;
    {
        std::lock_guard lock(mutex_);
        if (reply_)
            reply = *reply_;
        box_.reset();
        reply_.reset();
    }
    hooks_.changed();
    return reply;
}

void BrowserUi::error(std::string_view text)
{
    ask(messageBox("error", text), true);
    tell({UiEvent::Kind::error, "", std::string(text), "", false});
}

bool BrowserUi::message(MessageBoxType_e type, std::string_view text)
{
    bool question = type == MessageBox_Question || type == MessageBox_YesNo;
    bool answer = std::get<bool>(ask(messageBox(boxKind(type), text), !question));
    if (!question)
        answer = true;
    tell({UiEvent::Kind::message, std::string(host::messageTypeName(type)), std::string(text),
          question ? (answer ? "yes" : "no") : "ok", false});
    return answer;
}

std::optional<std::string> BrowserUi::chooseFile(SelectFileOption_e option, std::string_view title,
                                                 std::string_view defaultName,
                                                 std::string_view filter)
{
    Box box;
    box.kind = "file";
    box.mode = option == SelectFileOption_WriteFile ? "write" : "read";
    box.title = title;
    box.defaultName = defaultName;
    box.filter = filter;
    auto chosen = std::get<std::optional<std::string>>(ask(std::move(box), std::nullopt));
    tell({UiEvent::Kind::file, "", std::string(title), chosen.value_or(""), false});
    return chosen;
}

void BrowserUi::progressLaunch(std::string_view label, bool showCancel)
{
    {
        std::lock_guard lock(mutex_);
        progress_ = Progress{std::string(label), 0, showCancel, false};
    }
    tell({UiEvent::Kind::progress, "", std::string(label), "", showCancel});
    hooks_.changed();
}

bool BrowserUi::progressCheck(int percent)
{
    percent = std::clamp(percent, 0, 100);
    bool changed = false;
    bool go = true;
    {
        std::lock_guard lock(mutex_);
        if (!progress_)
            return true;
        changed = progress_->percent != percent;
        progress_->percent = percent;
        go = !(progress_->cancel && (progress_->cancelPressed || stopped_));
    }
    if (changed)
        hooks_.changed();
    return go;
}

void BrowserUi::progressDrop()
{
    {
        std::lock_guard lock(mutex_);
        progress_.reset();
    }
    tell({UiEvent::Kind::progressEnd, "", "", "", false});
    hooks_.changed();
}

void BrowserUi::help(std::string_view page)
{
    tell({UiEvent::Kind::help, "", std::string(page), "", false});
    hooks_.help(helpUrl(page));
}

void BrowserUi::pleaseWait(std::string_view text, bool on)
{
    {
        std::lock_guard lock(mutex_);
        if (on)
            busy_ = text.empty() ? "Please wait..." : std::string(text);
        else
            busy_.reset();
    }
    hooks_.changed();
}

ReplyResult BrowserUi::answer(int id, const BoxReply &reply)
{
    {
        std::lock_guard lock(mutex_);
        if (!box_ || box_->id != id || reply_)
            return ReplyResult::notWaiting;
        bool wantsPath = box_->kind == "file";
        if (wantsPath != std::holds_alternative<std::optional<std::string>>(reply))
            return ReplyResult::wrongKind;
        reply_ = reply;
    }
    thread_.wake();
    return ReplyResult::taken;
}

bool BrowserUi::cancelProgress()
{
    std::lock_guard lock(mutex_);
    if (!progress_ || !progress_->cancel)
        return false;
    progress_->cancelPressed = true;
    return true;
}

bool BrowserUi::boxWaiting() const
{
    std::lock_guard lock(mutex_);
    return box_.has_value() && !reply_;
}

std::optional<std::string> BrowserUi::proposedName() const
{
    std::lock_guard lock(mutex_);
    if (!box_ || box_->kind != "file")
        return std::nullopt;
    return box_->defaultName;
}

void BrowserUi::stop()
{
    {
        std::lock_guard lock(mutex_);
        stopped_ = true;
    }
    thread_.wake();
}

Json BrowserUi::boxJson() const
{
    std::lock_guard lock(mutex_);
    if (!box_)
        return nullptr;
    if (box_->kind != "file")
        return {{"id", box_->id}, {"kind", box_->kind}, {"text", box_->text}};
    return {{"id", box_->id},       {"kind", "file"},
            {"mode", box_->mode},   {"title", box_->title},
            {"defaultName", box_->defaultName}, {"filter", box_->filter}};
}

Json BrowserUi::progressJson() const
{
    std::lock_guard lock(mutex_);
    if (!progress_)
        return nullptr;
    return {{"label", progress_->label},
            {"percent", progress_->percent},
            {"cancel", progress_->cancel}};
}

Json BrowserUi::busyJson() const
{
    std::lock_guard lock(mutex_);
    return busy_ ? Json(*busy_) : Json(nullptr);
}

} // namespace corvane::server
