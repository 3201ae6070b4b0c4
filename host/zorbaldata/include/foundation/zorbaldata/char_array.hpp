// The view of char arrays as text.
#pragma once

#include <foundation/zorbaldata/typed_array.hpp>

#include <string>

namespace foundation::zorbaldata {

/// A handle on an array of UTF-16 code units.
class FOUNDATION_ZORBALDATA_API CharArray : public TypedArray<char16_t> {
public:
    using TypedArray<char16_t>::TypedArray;

    /// All code units of the array in storage order, so a 2-by-3 array of rows abc and def gives adbecf.
    std::u16string toUTF16() const
    {
        auto const elements = getReadOnlyElements<char16_t>(*this);
        return std::u16string(elements.begin(), elements.end());
    }
};

} // namespace foundation::zorbaldata
