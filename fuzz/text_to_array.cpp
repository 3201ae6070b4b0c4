// Any bytes as JSON text: reading ends in an array or an exception, and an array that reads is written
// in the four mode settings, which ends in a text or an exception. A crash, a sanitizer report, a leak,
// a hang or running out of memory is a finding.
#include "read_input.hpp"

#include <foundation/zorbaldata/json/zorbaldata_to_json.hpp>

#include <cstddef>
#include <cstdint>
#include <exception>

namespace zd = foundation::zorbaldata;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    forEachSetting(data, size, [](zd::Array const& array, WriteSetting setting, zd::ArrayFactory&) {
        try {
            zd::json::zorbaldata_to_string(array, setting.mode, setting.nan, zd::ObjectFilter::AllowAll);
        } catch (std::exception const&) {
        }
    });
    return 0;
}
