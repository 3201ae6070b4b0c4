// A named value of an object or of an object array.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/export.hpp>
#include <foundation/zorbaldata/identifiers.hpp>

#include <utility>

namespace foundation::zorbaldata {

/// One property: its identifier and its value.
class FOUNDATION_ZORBALDATA_API Property {
public:
    Property(ZorbalPropertyIdentifier identifier, Array value)
        : identifier_(std::move(identifier)), value_(std::move(value))
    {
    }

    ZorbalPropertyIdentifier const& getIdentifier() const noexcept { return identifier_; }
    /// The value; a property never set holds the empty 0-by-0 double array.
    Array castToArray() const { return value_; }

private:
    friend struct detail::Access;
    ZorbalPropertyIdentifier identifier_;
    Array value_;
};

} // namespace foundation::zorbaldata
