// The flags of the notation.
#include <frontend/detail/property_readers.hpp>

namespace foundation::zorbaljson::detail {

bool read_flag(foundation::json::Object const& object, std::string const& key)
{
    auto const flag = object.find(key);
    return flag != object.end() && read_property<bool>(flag->second, key);
}

} // namespace foundation::zorbaljson::detail
