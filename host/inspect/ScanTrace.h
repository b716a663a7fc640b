/*
 * ScanTrace.h - the loader's scan of a data file replayed on the host, line
 * by line: what each line was to the scan (title, names, data, text before
 * or after the data...), which tokens of a data line gave values, and the
 * zones. Listeners (the hazard detectors of check) see every line as it
 * passes and the summary at the end.
 */
#ifndef CORVANE_INSPECT_SCANTRACE_H
#define CORVANE_INSPECT_SCANTRACE_H

#include <set>
#include <string>
#include <vector>

#include "Expected.h"
#include "InstructionSet.h"
#include "LineCells.h"
#include "LineFilter.h"

namespace corvane::inspect {

enum class LineRole {
    blank,       /* no letter or digit after the filters */
    ignored,     /* an ignored row (ROWS) */
    title,       /* the title line */
    names,       /* a line of variable names */
    beforeData,  /* before the data section */
    startMarker, /* the line holding the start keyword */
    zoneMarker,  /* a line holding the zone keyword */
    endMarker,   /* the line that ended the data section */
    data,        /* a data line that gave values */
    textInData,  /* a line of the data section without values */
    afterData    /* after the data section */
};

struct TracedLine {
    int number = 0;
    LineRole role = LineRole::blank;
    FilteredLine line;
    bool numeric = false;     /* a numeric line (digits, no letter but e/E) */
    DataCut cut;              /* data and textInData lines */
    size_t looked = 0;        /* cells the loader looked at (a No stops a line) */
    int values = 0;           /* values the line gave */
    int zone = 0;             /* 1-based zone of a data line */
    int variables = 0;        /* number of variables */
};

struct NameToken {
    int line = 0;
    int column = 0;
    std::string text; /* as read from the line, before a duplicate's number */
};

struct ZoneTrace {
    int firstLine = 0;
    int lastLine = 0;
    long long rows = 0;                  /* data lines (automatic sizes) */
    std::vector<long long> valueCounts;  /* values per variable (given sizes) */
};

struct TraceSummary {
    std::vector<std::string> names;  /* the data set's variables */
    std::vector<NameToken> fileNames; /* names read from the file, in order */
    int firstDataLine = 0;           /* 0: no data line */
    int lastDataLine = 0;
    int startLine = 0;               /* the line that started the data section; 0: none */
    int endLine = 0;                 /* the line that ended it; 0: none */
    std::vector<ZoneTrace> zones;
    long long pointsPerZone = 0;     /* given sizes: IMAX * JMAX * KMAX */
    double blankValue = 0;           /* what fills missing values */
};

class TraceListener {
public:
    virtual ~TraceListener() = default;
    virtual void line(const TracedLine &line) = 0;
};

/* Replays the scan of the file at path under set. stoppedLines: the lines
   whose question about a malformed value was answered No (the rest of such
   a line was not read). The error names the file when it cannot be read. */
host::Expected<TraceSummary> traceScan(const std::string &path, const InstructionSet &set,
                                       const std::set<int> &stoppedLines,
                                       TraceListener &listener);

} // namespace corvane::inspect

#endif
