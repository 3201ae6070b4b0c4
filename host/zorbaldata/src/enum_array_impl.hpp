// Enumeration arrays: for each element, the number of its member's name in the array's own name table.
#pragma once

#include "array_impl.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zorbal::data::detail {

/// Name 0 is the empty name, so zeroed memory is an array of elements never set.
class EnumArrayImpl final : public ArrayImpl {
public:
    /// @throws foundation::zorbaldata::EArrayTooLarge when the elements cannot be had.
    EnumArrayImpl(Dimensions dimensions, std::string className);
    /// @throws foundation::zorbaldata::EArrayTooLarge when the copy cannot be had.
    EnumArrayImpl(EnumArrayImpl const& other);
    ~EnumArrayImpl() override;

    std::string const& className() const noexcept { return className_; }
    std::string_view name(unsigned long index) const noexcept { return names_[members_[index]]; }
    /// @throws foundation::zorbaldata::EArrayTooLarge past 2^32 distinct names.
    void setName(unsigned long index, std::string_view name);

    bool sameContent(ArrayImpl const& other) const override;

private:
    std::string className_;
    std::vector<std::string> names_;
    std::unordered_map<std::string, std::uint32_t> numbers_;
    std::uint32_t* members_;
};

} // namespace zorbal::data::detail
