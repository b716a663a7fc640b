/*
 * DataExport.cpp - exports into memory through the output writers.
 */
#include "DataExport.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <span>

#include <fmt/format.h>

#include "DataOutput.h"

namespace corvane::server {

namespace {

struct FreeBuffer {
    void operator()(char *buffer) const { std::free(buffer); }
};

} // namespace

std::string exportText(const host::DataSet &set, cli::OutputFormat format)
{
    char *buffer = nullptr;
    std::size_t size = 0;
    std::FILE *stream = ::open_memstream(&buffer, &size);
    if (stream == nullptr)
        throw std::bad_alloc();
    std::span<const host::DataSet> sets(&set, 1);
    if (format == cli::OutputFormat::json)
        cli::writeJson(stream, sets);
    else
        cli::writeCsv(stream, sets);
    std::fclose(stream);
    std::unique_ptr<char, FreeBuffer> owned(buffer);
    return std::string(owned.get(), size);
}

std::string downloadName(const host::DataSet &set, std::size_t index, cli::OutputFormat format)
{
    std::string name;
    bool meaningful = false;
    for (char c : set.title) {
        if (name.size() == 80)
            break;
        auto byte = static_cast<unsigned char>(c);
        bool kept = byte < 0x80 && (std::isalnum(byte) || c == '-' || c == '_' || c == '.');
        meaningful = meaningful || (byte < 0x80 && std::isalnum(byte));
        name += kept ? c : '_';
    }
    if (!meaningful)
        name = fmt::format("dataset-{}", index);
    return name + (format == cli::OutputFormat::json ? ".json" : ".csv");
}

} // namespace corvane::server
