// Arrays of numbers, logicals, chars and complex numbers: one contiguous block of elements.
#pragma once

#include "array_impl.hpp"

#include <cstddef>

namespace zorbal::data::detail {

class PlainArrayImpl final : public ArrayImpl {
public:
    /// Zeroed elements. @throws foundation::zorbaldata::EArrayTooLarge when they cannot be had.
    PlainArrayImpl(foundation::zorbaldata::ArrayType type, std::vector<unsigned long> dimensions);
    /// A copy of the elements. @throws foundation::zorbaldata::EArrayTooLarge when it cannot be had.
    PlainArrayImpl(PlainArrayImpl const& other);
    ~PlainArrayImpl() override;

    void* data() noexcept { return data_; }
    void const* data() const noexcept { return data_; }

    bool sameContent(ArrayImpl const& other) const override;

private:
    std::size_t elementSize_;
    void* data_;
};

} // namespace zorbal::data::detail
