// The frame that every large form shares.
#pragma once

#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <frontend/detail/notation_keys.hpp>

#include <string_view>
#include <utility>

namespace foundation::zorbaldata::json::detail {

/// The keys a large form may carry besides zqdata, zqsize and zqtype: the flags, each written as true
/// when set, and zqmetadata, written by the writer's own callable.
struct large_extras {
    bool complex = false;
    bool sparse = false;
    bool metadata = false;
};

/// The zqmetadata writer of the forms that have none.
struct no_metadata {
    void operator()() const noexcept {}
};

/// Writes the large form of an array of the dimensions to out: zqdata as write_data writes it, zqsize
/// listing every dimension as a double (none dropped or added), zqtype type_name, and the extras. The
/// members come in byte order of their keys; zqdata is written before zqmetadata.
/// @throws std::runtime_error "Must have at least two dimensions" for fewer than two dimensions,
/// before anything is written. @throws what write_data and write_metadata throw.
template <typename Out, typename WriteData, typename WriteMetadata = no_metadata>
void write_large_form(Out& out, Dimensions const& dimensions, std::string_view type_name,
    large_extras extras, WriteData&& write_data, WriteMetadata&& write_metadata = {})
{
    require_two_dimensions(dimensions);
    out.begin_sorted_object();
    if (extras.complex) {
        out.key(zorbaljson::detail::zqcomplex_key);
        out.value(true);
    }
    out.key(zorbaljson::detail::zqdata_key);
    std::forward<WriteData>(write_data)();
    if (extras.metadata) {
        out.key(zorbaljson::detail::zqmetadata_key);
        std::forward<WriteMetadata>(write_metadata)();
    }
    out.key(zorbaljson::detail::zqsize_key);
    out.begin_array();
    for (unsigned long const dimension : dimensions)
        out.value(static_cast<double>(dimension));
    out.end_array();
    if (extras.sparse) {
        out.key(zorbaljson::detail::zqsparse_key);
        out.value(true);
    }
    out.key(zorbaljson::detail::zqtype_key);
    out.string(type_name);
    out.end_object();
}

} // namespace foundation::zorbaldata::json::detail
