// The names of object classes and of their properties.
#pragma once

#include <foundation/zorbaldata/export.hpp>

#include <string>
#include <utility>

namespace foundation::zorbaldata {

/// A class, by its fully qualified name such as "pkg.sub.Cls".
class FOUNDATION_ZORBALDATA_API ZorbalClassIdentifier {
public:
    explicit ZorbalClassIdentifier(std::string fullyQualifiedName) : name_(std::move(fullyQualifiedName)) {}
    std::string const& getFullyQualifiedClassName() const noexcept { return name_; }
    friend bool operator==(ZorbalClassIdentifier const&, ZorbalClassIdentifier const&) = default;

private:
    std::string name_;
};

/// A property, by its name and, optionally, the class that declares it. Its external name, under which
/// it is written out, is its name.
class FOUNDATION_ZORBALDATA_API ZorbalPropertyIdentifier {
public:
    /// The property called name, bound to no class: getClassName() is empty.
    explicit ZorbalPropertyIdentifier(std::string name) : name_(std::move(name)) {}
    /// The property called name that className declares.
    ZorbalPropertyIdentifier(std::string className, std::string name)
        : className_(std::move(className)), name_(std::move(name))
    {
    }

    std::string const& getPropertyName() const noexcept { return name_; }
    std::string const& getExternalPropertyName() const noexcept { return name_; }
    /// The declaring class, empty for a property built from its name alone.
    std::string const& getClassName() const noexcept { return className_; }
    friend bool operator==(ZorbalPropertyIdentifier const&, ZorbalPropertyIdentifier const&) = default;

private:
    std::string className_;
    std::string name_;
};

} // namespace foundation::zorbaldata
