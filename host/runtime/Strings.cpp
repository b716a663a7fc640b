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
    if (String == nullptr || *String == nullptr)
        return;
    auto found = liveStrings().find(*String);
    if (found == liveStrings().end()) {
        /* Not ours: freeing it would corrupt someone else's memory. */
        std::fprintf(stderr, "corvane: CvnUtilStringDealloc given a string the host did not hand out\n");
    } else {
        liveStrings().erase(found);
        std::free(*String);
        trackHostObject(-1);
    }
    *String = nullptr;
}

void CvnUtilArrayDealloc(void **Array)
{
    if (Array == nullptr || *Array == nullptr)
        return;
    auto found = liveArrays().find(*Array);
    if (found == liveArrays().end()) {
        std::fprintf(stderr, "corvane: CvnUtilArrayDealloc given an array the host did not hand out\n");
    } else {
        liveArrays().erase(found);
        std::free(*Array);
        trackHostObject(-1);
    }
    *Array = nullptr;
}

} // extern "C"
