// The guarded reads of "zqdata".
#include <frontend/detail/read_data.hpp>

#include <frontend/detail/parse_error.hpp>

#include <foundation/json/json_cast.hpp>
#include <foundation/json/traits.hpp>
#include <foundation/zorbaljson/detail/json_frontend_logger.hpp>

#include <exception>

namespace foundation::zorbaljson::detail {

// The cast's own message goes to the log only; the caller sees the notation's failure.
template <typename Alternative>
Alternative const& read_data(foundation::json::Value const& data, std::string const& label, std::string const& key)
{
    try {
        return foundation::json::json_cast<Alternative>(data);
    } catch (std::exception const& e) {
        JSONFrontendLogger::write(std::string("Caught std::runtime_error while casting data: ") + e.what());
        throw InvalidZQDataType(label, foundation::json::traits<Alternative>::name, key);
    }
}

template foundation::json::Array const& read_data(foundation::json::Value const&, std::string const&, std::string const&);
template foundation::json::Object const& read_data(foundation::json::Value const&, std::string const&, std::string const&);
template std::string const& read_data(foundation::json::Value const&, std::string const&, std::string const&);

} // namespace foundation::zorbaljson::detail
