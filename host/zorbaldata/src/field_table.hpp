// The field names of a struct array, in their order and ready to be looked up.
#pragma once

#include <foundation/zorbaldata/struct_array.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace foundation::zorbaldata::detail {

/// Whether name may name a field: an ASCII letter, then ASCII letters, digits and underscores, 2049
/// characters at most.
bool isLegalFieldName(std::string_view name) noexcept;

/// Field names; they never change once made, so copies of a struct array share them.
class FieldTable {
public:
    /// @throws EIllegalStructFieldName for a name that is not legal or is given twice.
    explicit FieldTable(std::vector<std::string> names);

    std::vector<ZorbalFieldIdentifier> const& names() const noexcept { return names_; }
    unsigned long size() const noexcept { return names_.size(); }
    /// The position of the field called name. @throws EIllegalStructFieldName when there is none.
    unsigned long indexOf(std::string_view name) const;
    /// Whether other has the same names, in whatever order.
    bool sameNames(FieldTable const& other) const;

private:
    std::vector<ZorbalFieldIdentifier> names_;
    std::vector<unsigned long> byName_;
};

} // namespace foundation::zorbaldata::detail
