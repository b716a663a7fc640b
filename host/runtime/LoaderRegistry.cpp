/*
 * LoaderRegistry.cpp - data loaders registered by add-ons
 * (CvnUtilImportAddLoaderX) and looking them up by name.
 */
#include <fmt/format.h>

#include "AddOnRegistry.h"
#include "AddOns.h"
#include "DataSession.h"
#include "Handles.h"

namespace corvane::host {

namespace {

std::vector<Loader> &loaderList()
{
    static std::vector<Loader> list;
    return list;
}

enum class ArgKind { string, integer, function };

struct LoaderKey {
    const char *name;
    ArgKind kind;
};

const LoaderKey loaderKeys[] = {
    {"LoaderName", ArgKind::string},
    {"FileNameExtensions", ArgKind::string},
    {"LoaderCallbackVersion", ArgKind::integer},
    {"LoaderCallback", ArgKind::function},
    {"LoaderSelectedCallback", ArgKind::function},
    {"AllowMultiFileSelection", ArgKind::integer},
    {"LoaderAdvancedOptions", ArgKind::integer},
};

const char *kindName(ArgKind kind)
{
    switch (kind) {
    case ArgKind::string:
        return "a string";
    case ArgKind::integer:
        return "an integer";
    case ArgKind::function:
        return "a function";
    }
    return "";
}

bool holds(const ArgList_s::Value &value, ArgKind kind)
{
    switch (kind) {
    case ArgKind::string:
        return std::holds_alternative<std::string>(value);
    case ArgKind::integer:
        return std::holds_alternative<LgIndex_t>(value);
    case ArgKind::function:
        return std::holds_alternative<const void *>(value);
    }
    return false;
}

template <typename F> F functionArg(const ArgList_s &args, const char *key)
{
    const ArgList_s::Arg *arg = args.find(key);
    return arg ? reinterpret_cast<F>(const_cast<void *>(std::get<const void *>(arg->value)))
               : nullptr;
}

/* The loader the arguments describe, or why they describe none. Every key
   must be one of loaderKeys and hold its kind of value. */
Expected<Loader> loaderFromArgs(const ArgList_s &args)
{
    for (const ArgList_s::Arg &arg : args.args) {
        const LoaderKey *key = nullptr;
        for (const LoaderKey &k : loaderKeys)
            if (detail::sameName(arg.name, k.name))
                key = &k;
        if (!key)
            return unexpected(fmt::format("unknown argument \"{}\"", arg.name));
        if (!holds(arg.value, key->kind))
            return unexpected(fmt::format("\"{}\" must be {}", key->name, kindName(key->kind)));
    }
    auto text = [&](const char *key) {
        const ArgList_s::Arg *arg = args.find(key);
        return arg ? std::get<std::string>(arg->value) : std::string();
    };
    auto integer = [&](const char *key) {
        const ArgList_s::Arg *arg = args.find(key);
        return arg ? std::get<LgIndex_t>(arg->value) : LgIndex_t{0};
    };
    Loader loader;
    loader.name = text("LoaderName");
    loader.fileNameExtensions = text("FileNameExtensions");
    loader.callbackVersion = integer("LoaderCallbackVersion");
    loader.callback = functionArg<DataLoaderCallback_pf>(args, "LoaderCallback");
    loader.selectedCallback =
        functionArg<DataLoaderSelectedCallback_pf>(args, "LoaderSelectedCallback");
    loader.allowMultiFileSelection = integer("AllowMultiFileSelection") != 0;
    loader.advancedOptions = integer("LoaderAdvancedOptions");
    if (loader.name.empty())
        return unexpected("no \"LoaderName\" was given");
    if (!loader.callback)
        return unexpected(fmt::format("no \"LoaderCallback\" was given for \"{}\"", loader.name));
    return loader;
}

} // namespace

namespace detail {

void resetLoaders()
{
    loaderList().clear();
}

} // namespace detail

const std::vector<Loader> &loaders()
{
    return loaderList();
}

const Loader *findLoader(const std::string &name)
{
    for (const Loader &loader : loaderList())
        if (detail::sameName(loader.name, name))
            return &loader;
    return nullptr;
}

} // namespace corvane::host

/* Registers the loader the list describes; one of the same name (case
   ignored) is replaced in place. FALSE, with the reason kept for
   CvnUtilPostLastErrorMessage, when the list is not a valid loader. */
extern "C" Boolean_t CvnUtilImportAddLoaderX(ArgList_s *ArgList)
{
    using namespace corvane::host;
    std::string &lastError = detail::dataSession().lastError;
    lastError.clear();
    if (!ArgList) {
        lastError = "Cannot add the loader: no argument list was given";
        return FALSE;
    }
    Expected<Loader> loader = loaderFromArgs(*ArgList);
    if (!loader) {
        lastError = "Cannot add the loader: " + loader.error();
        return FALSE;
    }
    std::vector<Loader> &list = loaderList();
    for (Loader &existing : list)
        if (detail::sameName(existing.name, loader.value().name)) {
            existing = std::move(loader.value());
            return TRUE;
        }
    list.push_back(std::move(loader.value()));
    return TRUE;
}
