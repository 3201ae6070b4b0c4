// The field names of a struct array, in their order and ready to be looked up.
#pragma once

#include <foundation/zorbaldata/struct_array.hpp>

#include <atomic>
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
    // The field found last: a struct is mostly filled and read field by field, element after element,
    // which then costs one comparison a lookup. Readers on several threads may share the table, so the
    // hint is atomic; a stale one only costs the search.
    mutable std::atomic<unsigned long> lastFound_{0};
};

} // namespace foundation::zorbaldata::detail
