// The walk of the struct writer over a struct array.
#include <foundation/zorbaldata/json/detail/field_walk.hpp>

#include <utility>

namespace foundation::zorbaldata::json::detail {

field_walk::field_walk(StructArray array)
    : array_(std::move(array)),
      field_(array_.getFieldNames().begin()),
      field_end_(array_.getFieldNames().end()),
      element_begin_(getReadOnlyElements<StructElement>(array_).begin()),
      element_(element_begin_),
      element_end_(getReadOnlyElements<StructElement>(array_).end())
{
}

void field_walk::advance() noexcept
{
    element_.increment();
    // The elements start again for every field, so the walk runs over the fields in the outer loop.
    if (element_.isEqual(element_end_) && !at_end()) {
        ++field_;
        if (!at_end())
            element_ = element_begin_;
    }
}

Array field_walk::value() const
{
    return element_.getRef()[field_->getString()];
}

} // namespace foundation::zorbaldata::json::detail
