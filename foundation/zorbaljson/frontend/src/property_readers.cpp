// The flags of the notation.
#include <frontend/detail/property_readers.hpp>

namespace foundation::zorbaljson::detail {

bool read_flag(JsonNode object, std::string const& key)
{
    auto const flag = object.find(key);
    return flag && read_property(*flag, json_kind::boolean, key).as_bool();
}

} // namespace foundation::zorbaljson::detail
