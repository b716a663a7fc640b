/*
 * DataSession.cpp - the session's data sets and the queries over them.
 */
#include "DataSession.h"

#include <algorithm>

namespace corvane::host {

namespace detail {

DataSession &dataSession()
{
    static DataSession session;
    return session;
}

DataSet *currentDataSet()
{
    DataSession &s = dataSession();
    if (s.openLoads == 0 || !s.current || *s.current >= s.sets.size())
        return nullptr;
    return &s.sets[*s.current];
}

bool sameName(std::string_view a, std::string_view b)
{
    auto lower = [](char c) {
        return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
    };
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                              [&](char x, char y) { return lower(x) == lower(y); });
}

} // namespace detail

const std::vector<DataSet> &dataSets()
{
    return detail::dataSession().sets;
}

std::span<const DataSet> finishedDataSets()
{
    const std::vector<DataSet> &sets = dataSets();
    std::span<const DataSet> all(sets);
    /* Data sets are appended: the one being filled is the last. */
    return detail::currentDataSet() != nullptr ? all.first(all.size() - 1) : all;
}

void clearDataSets()
{
    detail::DataSession &s = detail::dataSession();
    s.sets.clear();
    s.current.reset();
    s.openLoads = 0;
    s.lastError.clear();
}

int openDataLoads()
{
    return detail::dataSession().openLoads;
}

} // namespace corvane::host
