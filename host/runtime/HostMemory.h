/*
 * HostMemory.h - host-owned strings and arrays handed to add-ons, for the
 * runtime's own use: copies of host text returned as new host strings, and
 * the labels of strings still alive (leak reports).
 */
#ifndef CORVANE_HOST_HOSTMEMORY_H
#define CORVANE_HOST_HOSTMEMORY_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "CvnAPI.h"

namespace corvane::host {

/* A new host string holding text (released with CvnUtilStringDealloc);
   nullptr when the allocation fails. */
char *newHostString(std::string_view text, const char *label);

/* A new host array of count indices (released with CvnUtilArrayDealloc);
   nullptr when count is 0 or memory runs out. Not subject to failure
   injection. */
LgIndex_t *newHostIndexArray(std::size_t count);

/* The labels of the host strings not yet released, in no given order. */
std::vector<std::string> liveStringLabels();

} // namespace corvane::host

#endif
