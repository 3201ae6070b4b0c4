// The guarded reads of "zqdata".
#include <frontend/detail/read_data.hpp>

#include <frontend/detail/parse_error.hpp>

#include <foundation/zorbaljson/detail/json_frontend_logger.hpp>

#include <exception>

namespace foundation::zorbaljson::detail {

// The cast's own message goes to the log only; the caller sees the notation's failure.
JsonNode read_data(JsonNode data, int kind, std::string const& label, std::string const& key)
{
    try {
        data.expect(kind);
        return data;
    } catch (std::exception const& e) {
        JSONFrontendLogger::write(std::string("Caught std::runtime_error while casting data: ") + e.what());
        throw InvalidZQDataType(label, json_kind_name(kind), key);
    }
}

} // namespace foundation::zorbaljson::detail
