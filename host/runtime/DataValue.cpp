/*
 * DataValue.cpp - value handles of the fields of the open load's data set
 * and the store through them, the hot path of every transfer.
 */
#include "DataSession.h"

using corvane::host::Field;

extern "C" {

/* The handle of variable Var of zone Zone (both 1-based) of the data set
   created in the open load; NULL when there is none, either is out of
   range, or the field's memory cannot be had (it is taken at the first
   request, when the add-on is about to store). The handle stays valid
   while zones and data sets are added, until the data sets are cleared. */
FieldData_pa CvnUtilDataValueGetRef(EntIndex_t Zone, EntIndex_t Var)
{
    corvane::host::DataSet *set = corvane::host::detail::currentDataSet();
    if (!set || Zone < 1 || static_cast<size_t>(Zone) > set->zones.size())
        return nullptr;
    std::vector<Field> &fields = set->zones[static_cast<size_t>(Zone) - 1].fields;
    if (Var < 1 || static_cast<size_t>(Var) > fields.size())
        return nullptr;
    Field &field = fields[static_cast<size_t>(Var) - 1];
    if (!field.prepare())
        return nullptr;
    return reinterpret_cast<FieldData_pa>(&field);
}

/* A direct store: no lookup and no allocation. A point index outside
   1..points wraps to a huge 0-based index, which the field ignores. */
void CvnUtilDataValueSetByRef(FieldData_pa FieldData, LgIndex_t PointIndex, double Value)
{
    if (FieldData)
        reinterpret_cast<Field *>(FieldData)->set(static_cast<size_t>(PointIndex) - 1, Value);
}

} // extern "C"
