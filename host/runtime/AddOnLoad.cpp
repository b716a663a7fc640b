/*
 * AddOnLoad.cpp - loading add-on libraries, registering add-ons, and
 * unloading them again.
 */
#include <dlfcn.h>

#include <filesystem>
#include <memory>
#include <utility>

#include <fmt/format.h>

#include "AddOnRegistry.h"
#include "AddOns.h"

namespace corvane::host {

namespace {

/* A dlopen() handle, closed when dropped. */
class Library {
public:
    explicit Library(void *handle) : handle_(handle) {}
    Library(Library &&other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Library &operator=(Library &&) = delete;
    ~Library()
    {
        if (handle_)
            dlclose(handle_);
    }

private:
    void *handle_;
};

/* Libraries loaded so far, oldest first; closed newest first. */
std::vector<Library> &libraries()
{
    static std::vector<Library> list;
    return list;
}

/* Add-on records; the address of each is its add-on id. */
std::vector<std::unique_ptr<AddOn_s>> &addOnRecords()
{
    static std::vector<std::unique_ptr<AddOn_s>> list;
    return list;
}

using InitAddOn_pf = void (*)(void);

} // namespace

namespace detail {

void resetAddOnRecords()
{
    addOnRecords().clear();
}

} // namespace detail

std::string defaultAddOnPath()
{
    Dl_info info{};
    std::filesystem::path dir = ".";
    if (dladdr(reinterpret_cast<const void *>(&CvnUtilGetCorvaneVersion), &info) && info.dli_fname)
        dir = std::filesystem::absolute(std::filesystem::path(info.dli_fname)).parent_path();
    return (dir / ORDALIS_ADDON_FILE).string();
}

Expected<void> loadAddOn(const std::string &path)
{
    void *handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle)
        return unexpected(fmt::format("cannot load add-on {}: {}", path, dlerror()));
    Library library(handle);
    auto init = reinterpret_cast<InitAddOn_pf>(dlsym(handle, "InitCvnAddOn113"));
    if (!init)
        return unexpected(fmt::format("{} is not a Corvane add-on (no InitCvnAddOn113)", path));
    libraries().push_back(std::move(library));
    init();
    return {};
}

void resetAddOns()
{
    detail::resetLoaders();
    detail::resetAddOnCallbacks();
    detail::resetAddOnRecords();
    std::vector<Library> &list = libraries();
    while (!list.empty())
        list.pop_back();
}

} // namespace corvane::host

extern "C" AddOn_pa CvnUtilAddOnRegister(int CvnUtilVersion, const char *Name, const char *Version,
                                         const char *Author)
{
    auto record = std::make_unique<AddOn_s>();
    record->apiLevel = CvnUtilVersion;
    record->name = Name ? Name : "";
    record->version = Version ? Version : "";
    record->author = Author ? Author : "";
    corvane::host::addOnRecords().push_back(std::move(record));
    return corvane::host::addOnRecords().back().get();
}
