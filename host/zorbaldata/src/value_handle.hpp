// The handle object that ArrayFactory::createHandleObjectRef makes.
#pragma once

#include "access.hpp"

#include <foundation/zorbaldata/handle_object.hpp>

namespace foundation::zorbaldata::detail {

/// A handle object whose value is what set_value gave it; it is serializable by value when that was
/// asked for with HandleObjectImpl::SerializableByValue.
class ValueHandle final : public HandleObjectImpl {
public:
    ValueHandle(KVXID kvxId, long long objectId);

    std::string get_class_name() const override;
    Array get_value() const override;
    void set_value(Array value, int flags) override;
    bool is_serializable_by_value() const override;

private:
    Array value_;
    int flags_ = 0;
    bool hasValue_ = false;
};

} // namespace foundation::zorbaldata::detail
