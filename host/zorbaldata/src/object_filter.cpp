// The object type filter and the process-wide list of classes that the host allows.
#include <foundation/zorbaldata/exceptions.hpp>
#include <foundation/zorbaldata/object_filter.hpp>

#include <mutex>
#include <set>
#include <shared_mutex>

namespace foundation::zorbaldata {

namespace {

// Writers on several threads consult the list while the host may change it.
struct AllowList {
    std::shared_mutex mutex;
    std::set<std::string, std::less<>> classes;
};

AllowList& allowList()
{
    static AllowList list;
    return list;
}

} // namespace

void allowObjectClass(std::string const& className)
{
    auto& list = allowList();
    std::unique_lock lock(list.mutex);
    list.classes.insert(className);
}

void disallowObjectClass(std::string const& className)
{
    auto& list = allowList();
    std::unique_lock lock(list.mutex);
    list.classes.erase(className);
}

void clearAllowedObjectClasses()
{
    auto& list = allowList();
    std::unique_lock lock(list.mutex);
    list.classes.clear();
}

bool isObjectClassAllowed(std::string const& className)
{
    auto& list = allowList();
    std::shared_lock lock(list.mutex);
    return list.classes.contains(className);
}

namespace detail {

void validateObjectTypeFilter(ObjectFilter filter, std::string const& className)
{
    switch (filter) {
    case ObjectFilter::AllowAll:
        return;
    case ObjectFilter::AllowListed:
        if (isObjectClassAllowed(className))
            return;
        throw ObjectNotSupportedException("Objects of class \"" + className + "\" may not be written: the class is "
                                          "not on the list of allowed classes.",
                                          className);
    case ObjectFilter::DenyAll:
        throw ObjectNotSupportedException("Objects of class \"" + className + "\" may not be written: the object "
                                          "type filter allows no class.",
                                          className);
    }
    throw ObjectNotSupportedException("Objects of class \"" + className + "\" may not be written: the object type "
                                      "filter " + std::to_string(static_cast<int>(filter)) + " is unknown.",
                                      className);
}

} // namespace detail
} // namespace foundation::zorbaldata
