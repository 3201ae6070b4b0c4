// The description of an object class: its name and the properties it declares.
#pragma once

#include <foundation/zorbaldata/export.hpp>
#include <foundation/zorbaldata/identifiers.hpp>
#include <zorbal/data/detail/ref_counted.hpp>

#include <utility>
#include <vector>

namespace foundation::zorbaldata {

namespace detail {
struct Access;
} // namespace detail

/// A shared handle on a class record. Records never change once made, so handles share freely.
class FOUNDATION_ZORBALDATA_API ClassInfo {
public:
    /// Takes over one reference on record, as the raw object operations return it.
    /// @throws ETypeMismatch when record is not a class record.
    explicit ClassInfo(zorbal::data::detail::RefCounted* record);
    ClassInfo(ClassInfo const& other) noexcept : record_(other.record_) { record_->addRef(); }
    ClassInfo& operator=(ClassInfo other) noexcept
    {
        std::swap(record_, other.record_);
        return *this;
    }
    ~ClassInfo() { record_->release(); }

    ZorbalClassIdentifier const& getClassIdentifier() const noexcept;
    /// The declared properties, in the order given when the class was made.
    std::vector<ZorbalPropertyIdentifier> getPropertyIdentifiers() const;

private:
    friend struct detail::Access;
    zorbal::data::detail::RefCounted* record_;
};

} // namespace foundation::zorbaldata
