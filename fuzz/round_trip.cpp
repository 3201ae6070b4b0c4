// A text that reads is written in the four mode settings, and each written text read and written
// again in the same setting must give the same text: writing what was read is a fixed point after one
// normalising round. A written text that does not read back, or a second text that differs, aborts,
// except the refusal that docs/design.md lists under "Written texts that do not read back".
#include "read_input.hpp"

#include <foundation/zorbaldata/json/zorbaldata_to_json.hpp>
#include <frontend/detail/parse_error.hpp>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>
#include <string>

namespace zd = foundation::zorbaldata;

namespace {

std::optional<std::string> write(zd::Array const& array, WriteSetting setting)
{
    try {
        return zd::json::zorbaldata_to_string(array, setting.mode, setting.nan, zd::ObjectFilter::AllowAll);
    } catch (std::exception const&) {
        // Arrays the writers refuse, such as ones nested too deeply, have no text to compare.
        return std::nullopt;
    }
}

// Plain "NaN", "Inf" and "-Inf" in dense complex data, which NanType String writes and the readers
// refuse. The same array spelt with special-float objects must read back, so nothing else hides here.
bool refused_by_design(zd::Array const& array, WriteSetting setting, std::exception const& failure,
    zd::ArrayFactory& factory)
{
    if (setting.nan != foundation::zorbaljson::NanType::String
        || dynamic_cast<foundation::zorbaljson::InvalidFloatingElem const*>(&failure) == nullptr)
        return false;
    std::optional<std::string> const objects
        = write(array, {setting.mode, foundation::zorbaljson::NanType::Object});
    if (!objects)
        return false;
    try {
        zd::json::string_to_zorbaldata(*objects, factory);
        return true;
    } catch (std::exception const&) {
        return false;
    }
}

[[noreturn]] void fail(char const* what, std::string const& text, std::string const& detail)
{
    std::fprintf(stderr, "%s\n  written: %s\n  %s\n", what, text.c_str(), detail.c_str());
    std::abort();
}

// The rounds of one setting.
void check(zd::Array const& array, WriteSetting setting, zd::ArrayFactory& factory)
{
    std::optional<std::string> const first = write(array, setting);
    if (!first)
        return;
    zd::Array again;
    try {
        again = zd::json::string_to_zorbaldata(*first, factory);
    } catch (std::exception const& e) {
        if (refused_by_design(array, setting, e, factory))
            return;
        fail("a written text does not read back", *first, e.what());
    }
    std::optional<std::string> const second = write(again, setting);
    if (!second)
        fail("an array read from a written text cannot be written", *first, "");
    std::optional<std::string> const third
        = write(zd::json::string_to_zorbaldata(*second, factory), setting);
    if (third != second)
        fail("writing what was read changes the text again", *second, third.value_or("(refused)"));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    forEachSetting(data, size, check);
    return 0;
}
