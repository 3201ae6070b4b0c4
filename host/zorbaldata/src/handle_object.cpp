// The library's handle objects: the one that createHandleObjectRef makes, and the null one.
#include "value_handle.hpp"

#include "value_object_array.hpp"

#include <foundation/zorbaldata/exceptions.hpp>

namespace foundation::zorbaldata {

HandleObjectImpl::~HandleObjectImpl() = default;

namespace detail {

ValueHandle::ValueHandle(KVXID kvxId, long long objectId) : HandleObjectImpl(std::move(kvxId), objectId) {}

std::string ValueHandle::get_class_name() const
{
    if (!hasValue_ || value_.getType() != ArrayType::VALUE_OBJECT || value_.getNumberOfElements() == 0)
        return std::string();
    return static_cast<zorbal::data::detail::ValueObjectArrayImpl const*>(Access::impl(value_))->classAt(0).name();
}

Array ValueHandle::get_value() const
{
    if (!hasValue_)
        throw EMissingValue("The handle object has no value.");
    return value_;
}

void ValueHandle::set_value(Array value, int flags)
{
    if ((flags & CheckValue) && (value.getType() != ArrayType::VALUE_OBJECT || value.getNumberOfElements() != 1))
        throw ETypeMismatch("The value of a handle object is a value object array of one element.");
    value_ = std::move(value);
    flags_ = flags;
    hasValue_ = true;
}

bool ValueHandle::is_serializable_by_value() const
{
    return hasValue_ && (flags_ & SerializableByValue) != 0;
}

namespace {

/// The object of every null handle; it is never counted, since null handles hold no reference.
class NullHandle final : public HandleObjectImpl {
public:
    NullHandle() : HandleObjectImpl(KVXID(), 0) {}
    std::string get_class_name() const override { return std::string(); }
    Array get_value() const override { throw EMissingValue("The null handle has no value."); }
    void set_value(Array, int) override { throw EInvalidArgument("The null handle cannot be given a value."); }
    bool is_serializable_by_value() const override { return false; }
};

} // namespace

HandleObjectImpl& nullHandle() noexcept
{
    static NullHandle handle;
    return handle;
}

} // namespace detail
} // namespace foundation::zorbaldata
