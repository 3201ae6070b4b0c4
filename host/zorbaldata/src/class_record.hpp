// Class records: the name of an object class and the properties it declares.
#pragma once

#include <foundation/zorbaldata/identifiers.hpp>
#include <foundation/zorbaldata/property.hpp>
#include <zorbal/data/detail/ref_counted.hpp>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorbal::data::detail {

/// The class of the arrays made without one, which are heterogeneous.
inline constexpr std::string_view heterogeneousClassName = "zorbal.mixin.Heterogeneous";

/// A class; it never changes once made.
class ClassRecord final : public RefCounted {
public:
    /// @throws foundation::zorbaldata::PropertyExistsException for a property name given twice.
    ClassRecord(foundation::zorbaldata::ZorbalClassIdentifier identifier,
                std::vector<foundation::zorbaldata::ZorbalPropertyIdentifier> const& properties);

    foundation::zorbaldata::ZorbalClassIdentifier const& identifier() const noexcept { return identifier_; }
    std::string const& name() const noexcept { return identifier_.getFullyQualifiedClassName(); }
    /// The declared properties in their order, each holding the empty 0-by-0 double array: what a new
    /// object of the class holds.
    std::vector<foundation::zorbaldata::Property> const& defaults() const noexcept { return defaults_; }
    /// The position of the declared property called name.
    std::optional<std::size_t> findDeclared(std::string_view name) const noexcept;

private:
    foundation::zorbaldata::ZorbalClassIdentifier identifier_;
    std::vector<foundation::zorbaldata::Property> defaults_;
    std::vector<std::size_t> byName_;
};

} // namespace zorbal::data::detail
