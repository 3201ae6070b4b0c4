// Enumeration arrays: arrays of members of one enumeration class, held by name.
#pragma once

#include <foundation/zorbaldata/export.hpp>
#include <foundation/zorbaldata/typed_array.hpp>

#include <string>
#include <utility>

namespace foundation::zorbaldata {

/// A member of an enumeration, by name. An element never set is the member with the empty name.
class FOUNDATION_ZORBALDATA_API Enumeration {
public:
    explicit Enumeration(std::string name) : name_(std::move(name)) {}
    std::string const& getName() const noexcept { return name_; }
    friend bool operator==(Enumeration const&, Enumeration const&) = default;

private:
    std::string name_;
};

/// A handle on an array of enumeration members of one class. The library keeps no list of a class's
/// members, so an element may be any name.
class FOUNDATION_ZORBALDATA_API EnumArray : public TypedArray<Enumeration> {
public:
    using TypedArray<Enumeration>::TypedArray;

    /// The enumeration's class name.
    std::string getClassName() const;
};

} // namespace foundation::zorbaldata
