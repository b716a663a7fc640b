/*
 * FileSample.h - the lines of a data file that sniff looks at: all of a
 * small file; of a large one the lines of its first megabyte and its last
 * lines, with every line counted. Lines are as the loader reads them: line
 * ends removed, cut at a NUL byte.
 */
#ifndef CORVANE_INSPECT_FILESAMPLE_H
#define CORVANE_INSPECT_FILESAMPLE_H

#include <cstddef>
#include <string>
#include <vector>

#include "Expected.h"

namespace corvane::inspect {

struct SampleLine {
    int number = 0; /* 1-based */
    std::string text;
};

struct FileSample {
    std::string name;              /* the file's name without its folders */
    std::vector<SampleLine> lines; /* in file order */
    int totalLines = 0;
    /* The lines not looked at: firstSkipped to lastSkipped (none when
       firstSkipped is 0). */
    int firstSkipped = 0;
    int lastSkipped = 0;
};

inline constexpr size_t sampleHeadBytes = 1 << 20;
inline constexpr size_t sampleTailLines = 1000;

/* The sample of the file at path; the error says why it cannot be read. */
host::Expected<FileSample> sampleFile(const std::string &path,
                                      size_t headBytes = sampleHeadBytes,
                                      size_t tailLines = sampleTailLines);

} // namespace corvane::inspect

#endif
