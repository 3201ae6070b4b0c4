// The backend of one conversion from JSON: it makes every array through the caller's factory.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/array_factory.hpp>
#include <foundation/zorbaldata/array_type.hpp>
#include <foundation/zorbaldata/handle_object.hpp>

#include <string>
#include <unordered_map>
#include <vector>

namespace foundation::zorbaldata::json::detail {

/// Lives on the stack of one conversion. The frontend hands it dimensions and converted elements and
/// never sees the factory; the handle table gives one handle to one object id across the document.
class to_zorbaldata_visitor {
public:
    explicit to_zorbaldata_visitor(ArrayFactory& factory) noexcept : factory_(factory) {}

    to_zorbaldata_visitor(to_zorbaldata_visitor const&) = delete;
    to_zorbaldata_visitor& operator=(to_zorbaldata_visitor const&) = delete;

    ArrayFactory& factory() const noexcept { return factory_; }
    std::unordered_map<long long, HandleObjectRef>& handle_table() noexcept { return handle_table_; }

    /// A DOUBLE array of the dimensions holding data in storage order.
    /// @throws foundation::zorbaljson::MismatchedZQSize when data and the element count differ,
    /// after the array was made.
    Array create_double_array(std::vector<unsigned long> dimensions, std::vector<double> const& data) const;

    /// A LOGICAL array of the dimensions holding data in storage order.
    /// @throws foundation::zorbaljson::MismatchedZQSize as create_double_array.
    Array create_logical_array(std::vector<unsigned long> dimensions, std::vector<bool> const& data) const;

    /// The char array that the factory makes of text.
    Array create_char_array(std::u16string const& text) const;

private:
    ArrayFactory& factory_;
    std::unordered_map<long long, HandleObjectRef> handle_table_;
};

} // namespace foundation::zorbaldata::json::detail
