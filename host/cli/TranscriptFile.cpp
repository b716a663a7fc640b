/*
 * TranscriptFile.cpp - opening the transcript and writing its lines.
 */
#include "TranscriptFile.h"

#include <cerrno>
#include <cstring>

#include <fmt/format.h>

namespace corvane::cli {

host::Expected<TranscriptFile> TranscriptFile::open(const std::string &path)
{
    TranscriptFile transcript;
    if (path.empty())
        return transcript;
    transcript.file_.reset(std::fopen(path.c_str(), "w"));
    if (!transcript.file_)
        return host::unexpected(
            fmt::format("cannot write --transcript {}: {}", path, std::strerror(errno)));
    return transcript;
}

std::function<void(const host::UiEvent &)> TranscriptFile::writer() const
{
    if (!file_)
        return {};
    /* Called inside add-on callbacks: a failed write must not throw. */
    return [file = file_.get()](const host::UiEvent &event) {
        std::fputs((host::toJsonLine(event) + "\n").c_str(), file);
        std::fflush(file);
    };
}

} // namespace corvane::cli
