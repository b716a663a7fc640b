/*
 * OutputFile.h - a file that appears only when it is complete.
 *
 * The content is written to a temporary file beside the target; commit()
 * renames it over the target. A file that is never committed (a failed
 * run, an exception) is removed, so a failed run leaves no output behind.
 */
#ifndef CORVANE_CLI_OUTPUTFILE_H
#define CORVANE_CLI_OUTPUTFILE_H

#include <cstdio>
#include <string>

#include "Expected.h"

namespace corvane::cli {

class OutputFile {
public:
    /* Creates the temporary file; the error names the target and says why. */
    static host::Expected<OutputFile> create(const std::string &path);

    OutputFile(OutputFile &&other) noexcept;
    OutputFile &operator=(OutputFile &&) = delete;
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;
    ~OutputFile();

    std::FILE *stream() const { return stream_; }
    const std::string &path() const { return path_; }
    /* Flushes, closes and renames onto the target; on a write error the
       temporary file is removed and the error says why. */
    host::Expected<void> commit();

private:
    OutputFile(std::string path, std::string tempPath, std::FILE *stream);
    void discard();

    std::string path_;
    std::string tempPath_;
    std::FILE *stream_ = nullptr;
};

} // namespace corvane::cli

#endif
