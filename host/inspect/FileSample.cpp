/*
 * FileSample.cpp - reading the head and the tail of a data file.
 */
#include "FileSample.h"

#include <deque>
#include <filesystem>
#include <fstream>

#include <fmt/format.h>

#include "InputFile.h"
#include "TextLines.h"

namespace corvane::inspect {

host::Expected<FileSample> sampleFile(const std::string &path, size_t headBytes, size_t tailLines)
{
    auto opened = host::openInputFile(path);
    if (!opened)
        return host::unexpected(opened.error());
    std::ifstream &in = *opened;

    FileSample sample;
    sample.name = std::filesystem::path(path).filename().string();
    std::deque<SampleLine> tail;
    bool inHead = true;
    std::string text;
    TextLines lines(in);
    while (lines.next(text)) {
        ++sample.totalLines;
        inHead = inHead && lines.bytes() <= headBytes;
        if (inHead) {
            sample.lines.push_back({sample.totalLines, std::move(text)});
            continue;
        }
        tail.push_back({sample.totalLines, std::move(text)});
        if (tail.size() > tailLines)
            tail.pop_front();
    }
    if (in.bad())
        return host::unexpected(fmt::format("{}: read error", path));
    int headEnd = sample.lines.empty() ? 0 : sample.lines.back().number;
    if (!tail.empty() && tail.front().number > headEnd + 1) {
        sample.firstSkipped = headEnd + 1;
        sample.lastSkipped = tail.front().number - 1;
    }
    for (auto &line : tail)
        sample.lines.push_back(std::move(line));
    return sample;
}

} // namespace corvane::inspect
