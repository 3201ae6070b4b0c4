// What the text targets share: the input read as JSON text, and the four settings of the writers.
#pragma once

#include <foundation/zorbaldata.hpp>
#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>
#include <foundation/zorbaldata/json/to_json_modes.hpp>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <optional>
#include <string>

struct WriteSetting {
    foundation::zorbaljson::ToJsonMode mode;
    foundation::zorbaljson::NanType nan;
};

inline constexpr WriteSetting writeSettings[] = {
    {foundation::zorbaljson::ToJsonMode::Large, foundation::zorbaljson::NanType::String},
    {foundation::zorbaljson::ToJsonMode::Large, foundation::zorbaljson::NanType::Object},
    {foundation::zorbaljson::ToJsonMode::Small, foundation::zorbaljson::NanType::String},
    {foundation::zorbaljson::ToJsonMode::Small, foundation::zorbaljson::NanType::Object},
};

// The input read into an array; an input that does not read gives nothing.
inline std::optional<foundation::zorbaldata::Array> readInput(std::uint8_t const* data, std::size_t size,
                                                               foundation::zorbaldata::ArrayFactory& factory)
{
    try {
        return foundation::zorbaldata::json::string_to_zorbaldata(
            std::string(reinterpret_cast<char const*>(data), size), factory);
    } catch (std::exception const&) {
        return std::nullopt;
    }
}

// Calls write(array, setting, factory) for the array the input reads as, in each of the four settings;
// an input that does not read calls nothing.
template <typename Write>
void forEachSetting(std::uint8_t const* data, std::size_t size, Write write)
{
    foundation::zorbaldata::ArrayFactory factory;
    std::optional<foundation::zorbaldata::Array> const array = readInput(data, size, factory);
    if (!array)
        return;
    for (WriteSetting const setting : writeSettings)
        write(*array, setting, factory);
}
