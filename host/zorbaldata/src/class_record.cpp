// Class records, and the ClassInfo handles on them.
#include "class_record.hpp"

#include "access.hpp"

#include <foundation/zorbaldata/class_info.hpp>
#include <foundation/zorbaldata/exceptions.hpp>

#include <algorithm>
#include <numeric>

namespace zorbal::data::detail {

namespace fz = foundation::zorbaldata;

namespace {

std::string_view nameAt(std::vector<fz::Property> const& properties, std::size_t i)
{
    return properties[i].getIdentifier().getPropertyName();
}

} // namespace

ClassRecord::ClassRecord(fz::ZorbalClassIdentifier identifier, std::vector<fz::ZorbalPropertyIdentifier> const& properties)
    : identifier_(std::move(identifier))
{
    defaults_.reserve(properties.size());
    for (auto const& property : properties)
        defaults_.emplace_back(property, fz::Array());
    byName_.resize(defaults_.size());
    std::iota(byName_.begin(), byName_.end(), std::size_t{0});
    std::sort(byName_.begin(), byName_.end(),
              [&](std::size_t a, std::size_t b) { return nameAt(defaults_, a) < nameAt(defaults_, b); });
    auto const twice = std::adjacent_find(byName_.begin(), byName_.end(), [&](std::size_t a, std::size_t b) {
        return nameAt(defaults_, a) == nameAt(defaults_, b);
    });
    if (twice != byName_.end())
        throw fz::PropertyExistsException(std::string(nameAt(defaults_, *twice)));
}

std::optional<std::size_t> ClassRecord::findDeclared(std::string_view name) const noexcept
{
    auto const at = std::lower_bound(byName_.begin(), byName_.end(), name,
                                     [&](std::size_t i, std::string_view n) { return nameAt(defaults_, i) < n; });
    if (at == byName_.end() || nameAt(defaults_, *at) != name)
        return std::nullopt;
    return *at;
}

} // namespace zorbal::data::detail

namespace foundation::zorbaldata {

ClassInfo::ClassInfo(zorbal::data::detail::RefCounted* record) : record_(record)
{
    if (!dynamic_cast<zorbal::data::detail::ClassRecord*>(record_)) {
        if (record_)
            record_->release();
        throw ETypeMismatch("A ClassInfo wraps a class record.");
    }
}

ZorbalClassIdentifier const& ClassInfo::getClassIdentifier() const noexcept
{
    return static_cast<zorbal::data::detail::ClassRecord const*>(record_)->identifier();
}

std::vector<ZorbalPropertyIdentifier> ClassInfo::getPropertyIdentifiers() const
{
    std::vector<ZorbalPropertyIdentifier> identifiers;
    for (auto const& property : static_cast<zorbal::data::detail::ClassRecord const*>(record_)->defaults())
        identifiers.push_back(property.getIdentifier());
    return identifiers;
}

} // namespace foundation::zorbaldata
