/*
 * TranscriptFile.h - the --transcript file of a run: every box the host
 * shows, one JSON object a line, written as it happens.
 */
#ifndef CORVANE_CLI_TRANSCRIPTFILE_H
#define CORVANE_CLI_TRANSCRIPTFILE_H

#include <cstdio>
#include <functional>
#include <memory>
#include <string>

#include "Expected.h"
#include "Transcript.h"

namespace corvane::cli {

class TranscriptFile {
public:
    /* Creates the file; an empty path makes a transcript that keeps
       nothing. The error says "cannot write --transcript PATH: why". */
    static host::Expected<TranscriptFile> open(const std::string &path);

    /* Writes each event it is given as a line and flushes it; empty when
       there is no file. Valid while the TranscriptFile lives. */
    std::function<void(const host::UiEvent &)> writer() const;

private:
    struct Closer {
        void operator()(std::FILE *file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Closer> file_;
};

} // namespace corvane::cli

#endif
