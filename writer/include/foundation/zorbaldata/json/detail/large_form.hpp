// The frame that every large form shares: the JSON object with zqsize, zqtype, flags and zqdata.
#pragma once

#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <foundation/zorbaldata/json/detail/json_types.hpp>

#include <string>

namespace foundation::zorbaldata::json::detail {

/// The large form of one array while its writer fills it. zqsize and zqtype are written when it is
/// made, zqdata when it is finished.
class large_form {
public:
    /// Starts the form of an array of the dimensions, whose zqtype is type_name; zqsize lists every
    /// dimension as a double, none dropped or added.
    /// @throws std::runtime_error "Must have at least two dimensions" for fewer than two dimensions.
    large_form(Dimensions const& dimensions, std::string type_name);

    /// The element count that the dimensions give, which the data must match.
    unsigned long count() const noexcept { return count_; }

    /// Sets key, zqcomplex or zqsparse, to true.
    void set_flag(std::string const& key);

    /// Sets key, such as zqmetadata, to value.
    void set(std::string const& key, JsonValue value);

    /// The finished form, with data under zqdata.
    JsonValue finish(JsonValue data) &&;

private:
    JsonObject object_;
    unsigned long count_;
};

} // namespace foundation::zorbaldata::json::detail
