/*
 * Version.cpp - the host version reported to add-ons.
 */
#include "AddOns.h"

namespace corvane::host {

namespace {
/* 10.1-0-0 unless a test asks for another. */
LgIndex_t currentVersion = 1010000;
} // namespace

void setHostVersion(LgIndex_t version)
{
    currentVersion = version;
}

LgIndex_t hostVersion()
{
    return currentVersion;
}

} // namespace corvane::host

extern "C" LgIndex_t CvnUtilGetCorvaneVersion(void)
{
    return corvane::host::hostVersion();
}
