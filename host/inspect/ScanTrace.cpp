/*
 * ScanTrace.cpp - the per-line steps of the loader's scan, on the host.
 */
#include "ScanTrace.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <map>

#include <fmt/format.h>

#include "TextLines.h"

namespace corvane::inspect {
namespace {

class Tracer {
public:
    Tracer(const InstructionSet &set, const std::set<int> &stopped, TraceListener &listener)
        : set_(set), filters_(set), stopped_(stopped), listener_(listener)
    {
        summary_.blankValue = set.useBlankCellValue ? set.blankCellValue : 0.0;
        if (!set.autoDimension)
            summary_.pointsPerZone = static_cast<long long>(set.imax) * set.jmax * set.kmax;
        if (set.titleSearch == SearchMode::none && !set.titleName.empty())
            titleFound_ = true;
        if (set.namesSearch == SearchMode::none && !set.names.empty()) {
            summary_.names = set.names;
            namesComplete_ = true;
            addZone();
        }
    }

    void take(int number, std::string_view raw)
    {
        TracedLine traced;
        traced.number = number;
        traced.line = filters_.any() ? filters_.apply(raw) : unfiltered(raw);
        traced.role = role(traced);
        traced.variables = static_cast<int>(summary_.names.size());
        listener_.line(traced);
    }

    TraceSummary finish() { return std::move(summary_); }

private:
    static FilteredLine unfiltered(std::string_view raw)
    {
        FilteredLine line;
        line.text = std::string(raw);
        line.columns.resize(raw.size());
        for (size_t i = 0; i < raw.size(); ++i)
            line.columns[i] = static_cast<int>(i) + 1;
        return line;
    }

    void addZone()
    {
        ZoneTrace zone;
        zone.valueCounts.assign(summary_.names.size(), 0);
        summary_.zones.push_back(zone);
        curVar_ = 0;
    }

    bool isTitleLine(const std::string &text, int number) const
    {
        if (set_.titleSearch == SearchMode::line)
            return number == set_.titleLine;
        if (set_.titleSearch == SearchMode::keyword)
            return containsNoCase(text, set_.titleKeyword);
        return false;
    }

    bool inNamesRange(int number) const
    {
        return set_.namesSearch == SearchMode::line && number >= set_.namesStartLine &&
               number <= set_.namesEndLine;
    }

    void takeNames(const TracedLine &traced)
    {
        std::vector<Cell> tokens = cutTextTokens(traced.line.text, set_.namesDelimiter,
                                                 set_.namesWidth);
        int position = 0;
        for (const Cell &token : tokens) {
            ++position;
            summary_.fileNames.push_back(
                {traced.number, traced.line.columnOf(token.offset), token.text});
            std::string name = token.text;
            if (!seenNames_.insert(name).second)
                name += std::to_string(position);
            summary_.names.push_back(name);
        }
        if (traced.number == set_.namesEndLine) {
            namesComplete_ = true;
            addZone();
        }
    }

    bool findStart(const std::string &text, int number, bool numeric)
    {
        switch (set_.start.kind) {
        case Marker::firstNumericLine:
            started_ = numeric;
            return numeric;
        case Marker::line:
            started_ = number >= set_.start.line;
            return started_;
        case Marker::keyword:
            started_ = containsNoCase(text, set_.start.keyword);
            return false;
        default:
            return false;
        }
    }

    bool isEnd(const std::string &text, int number, bool numeric) const
    {
        switch (set_.end.kind) {
        case Marker::firstNonNumericLine:
            return !numeric;
        case Marker::keyword:
            return containsNoCase(text, set_.end.keyword);
        case Marker::line:
            return number >= set_.end.line;
        default:
            return false;
        }
    }

    LineRole role(TracedLine &traced)
    {
        const std::string &text = traced.line.text;
        traced.numeric = isNumericLine(text);
        if (isBlankLine(text))
            return LineRole::blank;
        if (inList(traced.number, set_.rows))
            return LineRole::ignored;
        if (!titleFound_ && isTitleLine(text, traced.number)) {
            if (inNamesRange(traced.number)) {
                titleFound_ = true;
            } else {
                auto tokens = cutTextTokens(text, set_.titleDelimiter, set_.titleWidth);
                if (!tokens.empty() && !tokens.front().text.empty()) {
                    titleFound_ = true;
                    return LineRole::title;
                }
            }
        }
        if (set_.namesSearch == SearchMode::line && !namesComplete_ &&
            traced.number >= set_.namesStartLine) {
            takeNames(traced);
            return LineRole::names;
        }
        if (ended_)
            return LineRole::afterData;
        if (!started_ && !findStart(text, traced.number, traced.numeric)) {
            if (started_) {
                summary_.startLine = traced.number;
                return LineRole::startMarker;
            }
            return LineRole::beforeData;
        }
        if (summary_.startLine == 0)
            summary_.startLine = traced.number;
        if (set_.autoDimension && set_.multipleZones && containsNoCase(text, set_.zoneKeyword)) {
            zonePending_ = true;
            return LineRole::zoneMarker;
        }
        if (isEnd(text, traced.number, traced.numeric)) {
            ended_ = true;
            summary_.endLine = traced.number;
            return LineRole::endMarker;
        }
        return takeData(traced);
    }

    /* How many cells of the line the loader looks at: all, unless it asked
       about a malformed value on this line and was told No. */
    size_t lookedAt(const TracedLine &traced) const
    {
        const auto &cells = traced.cut.cells;
        if (traced.cut.blankCellMode || set_.ignoreNonNumericTokens ||
            !stopped_.contains(traced.number))
            return cells.size();
        for (size_t i = 0; i < cells.size(); ++i)
            if (!cells[i].read())
                return i;
        return cells.size();
    }

    LineRole takeData(TracedLine &traced)
    {
        traced.cut = cutDataLine(traced.line.text, set_);
        traced.looked = lookedAt(traced);
        int values = 0;
        for (size_t i = 0; i < traced.looked; ++i)
            if (traced.cut.blankCellMode || traced.cut.cells[i].read())
                ++values;
        traced.values = values;
        if (values == 0 || summary_.zones.empty())
            return LineRole::textInData;
        if (summary_.firstDataLine == 0)
            summary_.firstDataLine = traced.number;
        summary_.lastDataLine = traced.number;
        if (set_.autoDimension)
            storeRow();
        else if (set_.blockFormat)
            storeBlock(values, traced.number);
        else
            storePoint(values);
        traced.zone = static_cast<int>(summary_.zones.size());
        ZoneTrace &zone = summary_.zones.back();
        if (zone.firstLine == 0)
            zone.firstLine = traced.number;
        zone.lastLine = traced.number;
        return LineRole::data;
    }

    void startPendingZone()
    {
        if (zonePending_) {
            zonePending_ = false;
            addZone();
        }
    }

    void storeRow()
    {
        startPendingZone();
        ++summary_.zones.back().rows;
    }

    void storeBlock(int values, int number)
    {
        long long points = summary_.pointsPerZone;
        size_t variables = summary_.names.size();
        for (int i = 0; i < values; ++i) {
            startPendingZone();
            ZoneTrace &zone = summary_.zones.back();
            if (curVar_ >= variables)
                return;
            if (++zone.valueCounts[curVar_] < points)
                continue;
            if (++curVar_ < variables)
                continue;
            if (set_.multipleZones) {
                zonePending_ = true;
                continue;
            }
            ended_ = true;
            summary_.endLine = number;
            return;
        }
    }

    void storePoint(int values)
    {
        startPendingZone();
        ZoneTrace &zone = summary_.zones.back();
        size_t variables = summary_.names.size();
        if (variables == 0)
            return;
        for (int i = 0; i < values; ++i) {
            ++zone.valueCounts[curVar_];
            if (++curVar_ == variables)
                curVar_ = 0;
        }
        if (set_.multipleZones && zone.valueCounts.back() >= summary_.pointsPerZone)
            zonePending_ = true;
    }

    const InstructionSet &set_;
    LineFilters filters_;
    const std::set<int> &stopped_;
    TraceListener &listener_;
    TraceSummary summary_;
    std::set<std::string> seenNames_;
    bool titleFound_ = false;
    bool namesComplete_ = false;
    bool started_ = false;
    bool ended_ = false;
    bool zonePending_ = false;
    size_t curVar_ = 0;
};

} // namespace

host::Expected<TraceSummary> traceScan(const std::string &path, const InstructionSet &set,
                                       const std::set<int> &stoppedLines,
                                       TraceListener &listener)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return host::unexpected(fmt::format("{}: {}", path, std::strerror(errno)));
    Tracer tracer(set, stoppedLines, listener);
    std::string line;
    int number = 0;
    TextLines lines(in);
    while (lines.next(line))
        tracer.take(++number, line);
    if (in.bad())
        return host::unexpected(fmt::format("{}: read error", path));
    return tracer.finish();
}

} // namespace corvane::inspect
