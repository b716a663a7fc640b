/*
 * DataSetCreate.cpp - creating the data set of a load and adding its zones
 * (CvnUtilDataSetCreateX, CvnUtilDataSetAddZone), and showing why the last
 * such call failed (CvnUtilPostLastErrorMessage).
 */
#include <cstdint>
#include <new>
#include <stdexcept>
#include <unistd.h>

#include <fmt/format.h>

#include "DataSession.h"
#include "Faults.h"
#include "Handles.h"
#include "UserInterface.h"

using corvane::host::DataSet;
using corvane::host::Field;
using corvane::host::Zone;
namespace detail = corvane::host::detail;

namespace {

/* Records the reason of a failed call and returns FALSE. */
Boolean_t fail(std::string message)
{
    detail::dataSession().lastError = std::move(message);
    return FALSE;
}

const char *const createKeys[] = {"LoaderName", "DataSetTitle", "VarNames"};

/* Why args cannot create a data set, or "" when they can. */
std::string createArgsProblem(const ArgList_s &args)
{
    for (const ArgList_s::Arg &arg : args.args) {
        bool known = false;
        for (const char *key : createKeys)
            known = known || detail::sameName(arg.name, key);
        if (!known)
            return fmt::format("unknown argument \"{}\"", arg.name);
    }
    for (const char *key : {"LoaderName", "DataSetTitle"}) {
        const ArgList_s::Arg *arg = args.find(key);
        if (arg && !std::holds_alternative<std::string>(arg->value))
            return fmt::format("\"{}\" must be a string", key);
    }
    const ArgList_s::Arg *vars = args.find("VarNames");
    if (!vars)
        return "the argument list has no \"VarNames\"";
    const auto *names = std::get_if<std::vector<std::string>>(&vars->value);
    if (!names)
        return "\"VarNames\" must be a string list";
    if (names->empty())
        return "\"VarNames\" holds no variable names";
    return "";
}

std::string stringArg(const ArgList_s &args, const char *key)
{
    const ArgList_s::Arg *arg = args.find(key);
    return arg ? std::get<std::string>(arg->value) : std::string();
}

/* Whether the fields of a zone of points values fit the machine's memory.
   Fields take their memory only when first written, so a request beyond it
   fails here, when the zone is added, rather than half-way through a
   load. */
bool fieldsFitMemory(LgIndex_t points, const FieldDataType_e *types, size_t count)
{
    uint64_t bytes = 0;
    for (size_t v = 0; v < count; ++v) {
        const uint64_t size = types[v] == FieldDataType_Double  ? 8
                              : types[v] == FieldDataType_Int32 ? 4
                              : types[v] == FieldDataType_Int16 ? 2
                                                                : 1;
        uint64_t fieldSize = 0;
        if (__builtin_mul_overflow(static_cast<uint64_t>(points), size, &fieldSize) ||
            __builtin_add_overflow(bytes, fieldSize, &bytes))
            return false;
    }
    const long pages = sysconf(_SC_PHYS_PAGES), pageSize = sysconf(_SC_PAGESIZE);
    const uint64_t memory = pages > 0 && pageSize > 0
                                ? static_cast<uint64_t>(pages) * static_cast<uint64_t>(pageSize)
                                : static_cast<uint64_t>(PTRDIFF_MAX);
    return bytes <= memory;
}

bool supportedType(FieldDataType_e type)
{
    return type == FieldDataType_Double || type == FieldDataType_Int32 ||
           type == FieldDataType_Int16 || type == FieldDataType_Byte;
}

} // namespace

extern "C" {

Boolean_t CvnUtilDataSetCreateX(ArgList_s *ArgList)
{
    detail::DataSession &session = detail::dataSession();
    session.lastError.clear();
    const std::string prefix = "Cannot create the data set: ";
    if (!ArgList)
        return fail(prefix + "no argument list was given");
    if (session.openLoads == 0)
        return fail(prefix + "no data load is open (call CvnUtilDataLoadStart first and "
                             "CvnUtilDataLoadFinishX after)");
    if (std::string problem = createArgsProblem(*ArgList); !problem.empty())
        return fail(prefix + problem);

    DataSet set;
    set.loaderName = stringArg(*ArgList, "LoaderName");
    set.title = stringArg(*ArgList, "DataSetTitle");
    set.variables = std::get<std::vector<std::string>>(ArgList->find("VarNames")->value);
    session.sets.push_back(std::move(set));
    session.current = session.sets.size() - 1;
    return TRUE;
}

Boolean_t CvnUtilDataSetAddZone(const char *Name, LgIndex_t IMax, LgIndex_t JMax, LgIndex_t KMax,
                                ZoneType_e ZoneType, const FieldDataType_e *VarDataTypes)
{
    detail::DataSession &session = detail::dataSession();
    session.lastError.clear();
    const std::string name = Name ? Name : "";
    const std::string prefix = fmt::format("Cannot add zone \"{}\": ", name);
    DataSet *set = detail::currentDataSet();
    if (!set)
        return fail(prefix + "no data set was created in the open data load");
    if (IMax < 1 || JMax < 1 || KMax < 1)
        return fail(prefix + fmt::format("IMax, JMax and KMax must be at least 1 (got {}, {}, {})",
                                         IMax, JMax, KMax));
    if (ZoneType != ZoneType_Ordered)
        return fail(prefix + "only ordered zones are supported");
    if (!VarDataTypes)
        return fail(prefix + "no field data types were given");
    const size_t varCount = set->variables.size();
    for (size_t v = 0; v < varCount; ++v)
        if (!supportedType(VarDataTypes[v]))
            return fail(prefix + fmt::format("variable {} has an unsupported field data type ({})",
                                             v + 1, static_cast<int>(VarDataTypes[v])));

    LgIndex_t points = 0;
    if (__builtin_mul_overflow(IMax, JMax, &points) ||
        __builtin_mul_overflow(points, KMax, &points))
        return fail(prefix + fmt::format("{} x {} x {} points are too many", IMax, JMax, KMax));
    const std::string outOfMemory = prefix + fmt::format("out of memory for {} points", points);
    if (!fieldsFitMemory(points, VarDataTypes, varCount) || corvane::host::hostAllocationFails())
        return fail(outOfMemory);
    try {
        Zone zone;
        zone.name = name;
        zone.imax = IMax;
        zone.jmax = JMax;
        zone.kmax = KMax;
        zone.fields.reserve(varCount);
        for (size_t v = 0; v < varCount; ++v)
            zone.fields.emplace_back(VarDataTypes[v], static_cast<size_t>(points));
        set->zones.push_back(std::move(zone));
    } catch (const std::bad_alloc &) {
        return fail(outOfMemory);
    } catch (const std::length_error &) {
        return fail(outOfMemory);
    }
    return TRUE;
}

void CvnUtilPostLastErrorMessage(void)
{
    const std::string &message = detail::dataSession().lastError;
    if (!message.empty())
        corvane::host::userInterface().error(message);
}

} // extern "C"
