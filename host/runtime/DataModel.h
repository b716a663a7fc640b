/*
 * DataModel.h - the host's data sets: title, variables and ordered zones of
 * typed fields, with the loader instructions stored with each load.
 *
 * The C data calls (CvnUtilDataSetCreateX, CvnUtilDataSetAddZone,
 * CvnUtilDataValueGetRef/SetByRef, CvnUtilDataLoadStart/FinishX,
 * CvnUtilImportSetLoaderInstr) work on the current data set of the
 * session held here.
 */
#ifndef CORVANE_HOST_DATAMODEL_H
#define CORVANE_HOST_DATAMODEL_H

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <memory>
#include <vector>

#include "CvnAPI.h"

namespace corvane::host {

/* One variable's values in one zone, stored in the field's own type. */
class Field {
public:
    /* A zero-filled field of points values. Its memory is taken only when
       the field is first written (prepare), so that a load can release
       what it read the values from before the next field takes memory. */
    Field(FieldDataType_e type, size_t points);
    Field(const Field &other);
    Field &operator=(const Field &other);
    Field(Field &&) noexcept = default;
    Field &operator=(Field &&) noexcept = default;
    FieldDataType_e type() const { return type_; }
    size_t size() const { return size_; }
    double get(size_t index) const; /* 0-based */
    /* Makes the field's zero-filled buffer if it has none yet; false when
       the memory cannot be had (the field then still reads as zeros). */
    bool prepare();
    /* Stores value at the 0-based index of a prepared field: as is in a
       double field, rounded to nearest and clamped to the type's range in an
       integer field. An index out of range is ignored. */
    void set(size_t index, double value);

private:
    void setInteger(size_t index, double value);

    struct FreeBuffer {
        size_t bytes = 0; /* mapped size; 0 for a calloc'd buffer */
        void operator()(void *buffer) const;
    };
    static std::unique_ptr<void, FreeBuffer> makeBuffer(size_t bytes);
    FieldDataType_e type_;
    size_t size_;
    /* Null until prepare; a field without a buffer holds zeros. */
    std::unique_ptr<void, FreeBuffer> values_;
};

struct Zone {
    std::string name;
    LgIndex_t imax = 0, jmax = 0, kmax = 0;
    std::vector<Field> fields; /* one per variable, variable order */
    LgIndex_t points() const { return imax * jmax * kmax; }
};

struct LoaderInstructions {
    std::string loader;
    std::vector<std::string> strings;
    bool operator==(const LoaderInstructions &) const = default;
};

struct DataSet {
    std::string loaderName;
    std::string title;
    std::vector<std::string> variables;
    std::vector<Zone> zones;
    std::optional<LoaderInstructions> loaderInstructions;
    std::optional<int> initialPlotType; /* "InitialPlotType" of the load */
};

/* The data sets created so far in this session, oldest first. */
const std::vector<DataSet> &dataSets();
/* The data sets whose load has ended, oldest first: all but the one that a
   load still open is filling (a callback may show a box in the middle of a
   load). */
std::span<const DataSet> finishedDataSets();
/* Forgets every data set (tests, new layouts). */
void clearDataSets();
/* Data load bracket state, for tests: loads started and not finished. */
int openDataLoads();

/* Name of a field type as outputs write it: "double", "int32", "int16",
   "byte". */
const char *fieldTypeName(FieldDataType_e type);

/* ------------------------------------------------------- inline details */

/* The hot path of every load: a direct store, no lookup, no allocation
   (the value handle that leads here prepared the field). */
inline void Field::set(size_t index, double value)
{
    if (index >= size_)
        return;
    if (type_ == FieldDataType_Double)
        static_cast<double *>(values_.get())[index] = value;
    else
        setInteger(index, value);
}

} // namespace corvane::host

#endif
