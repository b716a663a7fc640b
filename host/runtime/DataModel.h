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
#include <string>
#include <variant>
#include <vector>

#include "CvnAPI.h"

namespace corvane::host {

/* One variable's values in one zone, stored in the field's own type. */
class Field {
public:
    Field(FieldDataType_e type, size_t points);
    FieldDataType_e type() const { return type_; }
    size_t size() const;
    double get(size_t index) const; /* 0-based */
    /* Stores value at the 0-based index: as is in a double field, rounded to
       nearest and clamped to the type's range in an integer field. */
    void set(size_t index, double value);

private:
    FieldDataType_e type_;
    std::variant<std::vector<double>, std::vector<int32_t>, std::vector<int16_t>,
                 std::vector<uint8_t>>
        values_;
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
/* Forgets every data set (tests, new layouts). */
void clearDataSets();
/* Data load bracket state, for tests: loads started and not finished. */
int openDataLoads();

/* Name of a field type as outputs write it: "double", "int32", "int16",
   "byte". */
const char *fieldTypeName(FieldDataType_e type);

} // namespace corvane::host

#endif
