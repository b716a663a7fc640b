/*
 * InputFile.cpp - opening a file users name for reading.
 */
#include "InputFile.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include <fmt/format.h>

namespace corvane::host {

Expected<std::ifstream> openInputFile(const std::string &path)
{
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec))
        return unexpected(fmt::format("{}: is a directory", path));
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return unexpected(fmt::format("{}: {}", path, std::strerror(errno)));
    return in;
}

} // namespace corvane::host
