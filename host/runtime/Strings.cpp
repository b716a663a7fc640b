/*
 * Strings.cpp - host strings and host arrays. Every block handed out is
 * recorded with its label so that a release of something the host did not
 * hand out is caught, and so that leaks can be named.
 */
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unordered_map>

#include "Faults.h"
#include "HostMemory.h"

namespace corvane::host {

namespace {
/* Live host strings and the label each was allocated with. */
std::unordered_map<const char *, std::string> &liveStrings()
{
    static std::unordered_map<const char *, std::string> strings;
    return strings;
}

/* Live host arrays. */
std::unordered_map<const void *, std::size_t> &liveArrays()
{
    static std::unordered_map<const void *, std::size_t> arrays;
    return arrays;
}

char *allocateString(std::size_t maxLength, const char *label)
{
    if (hostAllocationFails())
        return nullptr;
    auto *text = static_cast<char *>(std::calloc(maxLength + 1, 1));
    if (text == nullptr)
        return nullptr;
    liveStrings().emplace(text, label != nullptr ? label : "");
    trackHostObject(+1);
    return text;
}

/* Frees *block when live holds it and clears the pointer; a block the host
   did not hand out is reported, not freed (that would corrupt someone
   else's memory). */
template <class Block, class Live>
void releaseBlock(Live &live, Block **block, const char *what)
{
    if (block == nullptr || *block == nullptr)
        return;
    auto found = live.find(*block);
    if (found == live.end()) {
        std::fprintf(stderr, "corvane: %s the host did not hand out\n", what);
    } else {
        live.erase(found);
        std::free(*block);
        trackHostObject(-1);
    }
    *block = nullptr;
}
} // namespace

char *newHostString(std::string_view text, const char *label)
{
    char *copy = allocateString(text.size(), label);
    if (copy != nullptr && !text.empty())
        std::memcpy(copy, text.data(), text.size());
    return copy;
}

LgIndex_t *newHostIndexArray(std::size_t count)
{
    if (count == 0)
        return nullptr;
    auto *items = static_cast<LgIndex_t *>(std::calloc(count, sizeof(LgIndex_t)));
    if (items == nullptr)
        return nullptr;
    liveArrays().emplace(items, count);
    trackHostObject(+1);
    return items;
}

std::vector<std::string> liveStringLabels()
{
    std::vector<std::string> labels;
    labels.reserve(liveStrings().size());
    for (const auto &[text, label] : liveStrings())
        labels.push_back(label);
    return labels;
}

} // namespace corvane::host

using namespace corvane::host;

extern "C" {

char *CvnUtilStringAlloc(LgIndex_t MaxLength, const char *DebugInfo)
{
    if (MaxLength < 0)
        return nullptr;
    return allocateString(static_cast<std::size_t>(MaxLength), DebugInfo);
}

void CvnUtilStringDealloc(char **String)
{
    releaseBlock(liveStrings(), String, "CvnUtilStringDealloc given a string");
}

void CvnUtilArrayDealloc(void **Array)
{
    releaseBlock(liveArrays(), Array, "CvnUtilArrayDealloc given an array");
}

} // extern "C"
