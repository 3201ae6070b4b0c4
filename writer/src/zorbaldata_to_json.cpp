// The exported entries from an array to JSON: the choice of variant by exact values of the settings.
#include <foundation/zorbaldata/json/zorbaldata_to_json.hpp>

#include <foundation/zorbaldata/json/detail/text_estimate.hpp>
#include <foundation/zorbaldata/json/detail/text_output.hpp>
#include <foundation/zorbaldata/json/detail/to_json.hpp>

#include <stdexcept>
#include <utility>

namespace foundation::zorbaldata::json {

using foundation::zorbaljson::NanType;
using foundation::zorbaljson::ToJsonMode;

namespace {

// One variant: its settings, its entry that builds a tree, and its entry that writes text.
struct variant {
    ToJsonMode mode;
    NanType nan_type;
    ObjectFilter filter;
    foundation::json::Value (*write_tree)(Array);
    void (*write_text)(Array, detail::text_output&);
};

using enum ToJsonMode;
using enum NanType;
using enum ObjectFilter;

template <ToJsonMode Mode, NanType Nan, ObjectFilter Filter>
constexpr variant variant_of{Mode, Nan, Filter, &detail::to_json<Mode, Nan, Filter>,
    &detail::write_array<Mode, Nan, Filter, detail::text_output>};

// Only these combinations select a writer; the settings are compared as the values the caller passed.
constexpr variant variants[] = {
    variant_of<Large, String, AllowAll>,
    variant_of<Large, String, AllowListed>,
    variant_of<Large, String, DenyAll>,
    variant_of<Small, String, AllowAll>,
    variant_of<Small, String, AllowListed>,
    variant_of<Small, String, DenyAll>,
    variant_of<Large, Object, AllowAll>,
    variant_of<Large, Object, AllowListed>,
    variant_of<Large, Object, DenyAll>,
    variant_of<Small, Object, AllowAll>,
    variant_of<Small, Object, AllowListed>,
    variant_of<Small, Object, DenyAll>,
};

variant const* find_variant(ToJsonMode mode, NanType nanType, ObjectFilter filter)
{
    for (variant const& candidate : variants)
        if (candidate.mode == mode && candidate.nan_type == nanType && candidate.filter == filter)
            return &candidate;
    return nullptr;
}

} // namespace

foundation::json::Value zorbaldata_to_json(Array array, ToJsonMode mode, NanType nanType, ObjectFilter filter)
{
    variant const* const chosen = find_variant(mode, nanType, filter);
    return chosen ? chosen->write_tree(std::move(array)) : foundation::json::Value();
}

std::string zorbaldata_to_string(
    Array array, ToJsonMode mode, NanType nanType, ObjectFilter filter, unsigned indent)
{
    variant const* const chosen = find_variant(mode, nanType, filter);
    if (!chosen)
        return "null";
    std::string text;
    // Pages that are reserved but not written are not resident, so reserving the most that numbers
    // can take costs address space only, and spares copying the text as it grows.
    text.reserve(detail::estimated_text_size(array));
    detail::text_output out(text, indent);
    try {
        chosen->write_text(std::move(array), out);
        out.finish();
    } catch (std::length_error const&) {
        throw std::length_error("The JSON text of the array is longer than a std::string can hold");
    }
    return text;
}

std::string zorbaldata_to_string(Array array, ToJsonMode mode, NanType nanType, ObjectFilter filter)
{
    return zorbaldata_to_string(std::move(array), mode, nanType, filter, 0);
}

} // namespace foundation::zorbaldata::json
