/*
 * OutputFile.cpp - write to a temporary file, rename when complete.
 */
#include "OutputFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvane::cli {

OutputFile::OutputFile(std::string path, std::string tempPath, std::FILE *stream)
    : path_(std::move(path)), tempPath_(std::move(tempPath)), stream_(stream)
{
}

OutputFile::OutputFile(OutputFile &&other) noexcept
    : path_(std::move(other.path_)), tempPath_(std::move(other.tempPath_)),
      stream_(std::exchange(other.stream_, nullptr))
{
    other.tempPath_.clear();
}

OutputFile::~OutputFile() { discard(); }

void OutputFile::discard()
{
    if (stream_)
        std::fclose(std::exchange(stream_, nullptr));
    if (!tempPath_.empty())
        std::remove(tempPath_.c_str());
    tempPath_.clear();
}

host::Expected<OutputFile> OutputFile::create(const std::string &path)
{
    std::string pattern = path + ".tmp-XXXXXX";
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    int fd = ::mkstemp(name.data());
    if (fd < 0)
        return host::unexpected(fmt::format("cannot write {}: {}", path, std::strerror(errno)));
    /* mkstemp makes the file private; give it the mode a plain create would. */
    mode_t mask = ::umask(0);
    ::umask(mask);
    ::fchmod(fd, 0666 & ~mask);
    std::FILE *stream = ::fdopen(fd, "w");
    if (!stream) {
        int error = errno;
        ::close(fd);
        std::remove(name.data());
        return host::unexpected(fmt::format("cannot write {}: {}", path, std::strerror(error)));
    }
    return OutputFile(path, name.data(), stream);
}

host::Expected<void> OutputFile::commit()
{
    if (!stream_)
        return host::unexpected(fmt::format("cannot write {}: already closed", path_));
    /* Flushing what is left says why the writing failed (a full disk, say),
       which the stream's error flag alone does not. */
    errno = 0;
    bool failed = std::fflush(stream_) != 0 || std::ferror(stream_) != 0;
    int error = failed ? (errno != 0 ? errno : EIO) : 0;
    if (std::fclose(std::exchange(stream_, nullptr)) != 0 && !failed) {
        failed = true;
        error = errno;
    }
    if (!failed && std::rename(tempPath_.c_str(), path_.c_str()) != 0) {
        failed = true;
        error = errno;
    }
    if (failed) {
        discard();
        return host::unexpected(fmt::format("cannot write {}: {}", path_, std::strerror(error)));
    }
    tempPath_.clear();
    return {};
}

} // namespace corvane::cli
