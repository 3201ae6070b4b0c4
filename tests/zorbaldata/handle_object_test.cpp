// Handle objects: identity, value, and the arrays that hold them.
#include "expect_throw.hpp"

#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

using namespace foundation::zorbaldata;

namespace {

ArrayFactory const factory;

KVXID kvxId(unsigned char number)
{
    KVXID id;
    id.bytes[0] = number;
    id.text = "KVX:" + std::to_string(number) + std::string(15, '0');
    return id;
}

/// The value a reader gives a handle: a 1-by-1 array holding one object of the class.
Array valueOf(std::string const& className)
{
    ClassInfo const cls = factory.createClassInfo(ZorbalClassIdentifier(className));
    ValueObjectArray value = factory.createValueObjectArray({1, 1}, cls);
    value[0] = factory.createValueObject(cls);
    return value;
}

/// A host's handle that only ever travels by reference.
class ReferenceOnlyHandle final : public HandleObjectImpl {
public:
    ReferenceOnlyHandle() : HandleObjectImpl(KVXID(), 7) {}
    std::string get_class_name() const override { return "host.Window"; }
    Array get_value() const override { return Array(); }
    void set_value(Array, int) override {}
    bool is_serializable_by_value() const override { return false; }
};

} // namespace

TEST(HandleObject, NewHandleHasIdentityButNoValue)
{
    HandleObjectRef const handle = factory.createHandleObjectRef(kvxId(44), 17);
    EXPECT_EQ(handle->get_kvx_id(), kvxId(44));
    EXPECT_EQ(handle->get_object_id(), 17);
    EXPECT_EQ(handle->get_class_name(), "");
    EXPECT_FALSE(handle->is_serializable_by_value());
    EXPECT_THROW_WHAT(handle->get_value(), EMissingValue, "The handle object has no value.");
}

TEST(HandleObject, ValueGivenByAReaderMakesItSerializable)
{
    HandleObjectRef const handle = factory.createHandleObjectRef(kvxId(5), 1);
    Array const value = valueOf("pkg.H");
    handle->set_value(value, 3);
    EXPECT_TRUE(handle->is_serializable_by_value());
    EXPECT_EQ(handle->get_class_name(), "pkg.H");
    EXPECT_EQ(handle->get_value(), value);
}

TEST(HandleObject, FlagsOfSetValue)
{
    HandleObjectRef const handle = factory.createHandleObjectRef(kvxId(5), 1);
    handle->set_value(valueOf("pkg.H"), 0);
    EXPECT_FALSE(handle->is_serializable_by_value());
    EXPECT_EQ(handle->get_class_name(), "pkg.H");
    handle->set_value(factory.createScalar(1.0), HandleObjectImpl::SerializableByValue);
    EXPECT_TRUE(handle->is_serializable_by_value());
    EXPECT_EQ(handle->get_class_name(), "");
    EXPECT_THROW_WHAT(handle->set_value(factory.createScalar(1.0), HandleObjectImpl::CheckValue), ETypeMismatch,
                      "The value of a handle object is a value object array of one element.");
    EXPECT_EQ(handle->get_value(), factory.createScalar(1.0));
}

TEST(HandleObject, HostHandleCanRefuseToTravelByValue)
{
    HandleObjectRef const handle(new ReferenceOnlyHandle);
    EXPECT_FALSE(handle->is_serializable_by_value());
    EXPECT_EQ(handle->get_class_name(), "host.Window");
}

TEST(HandleObject, NullHandleHasNothing)
{
    HandleObjectRef const null;
    EXPECT_TRUE(null.isNull());
    EXPECT_EQ(null->get_class_name(), "");
    EXPECT_FALSE(null->is_serializable_by_value());
    EXPECT_THROW_WHAT(null->get_value(), EMissingValue, "The null handle has no value.");
    EXPECT_THROW_WHAT(null->set_value(Array(), 3), EInvalidArgument, "The null handle cannot be given a value.");
}

TEST(HandleObject, CopiesNameTheSameObject)
{
    HandleObjectRef const a = factory.createHandleObjectRef(kvxId(1), 9);
    HandleObjectRef const b = a;
    EXPECT_EQ(a, b);
    b->set_value(valueOf("pkg.H"), 3);
    EXPECT_TRUE(a->is_serializable_by_value());
    EXPECT_NE(a, factory.createHandleObjectRef(kvxId(1), 9));
}

TEST(HandleObject, HandleArrayStoresHandles)
{
    // As a reader fills a handle array whose two elements have one object id.
    HandleObjectRef const shared = factory.createHandleObjectRef(kvxId(5), 17);
    shared->set_value(valueOf("pkg.H"), 3);
    TypedArray<HandleObjectRef> handles = factory.createArray<HandleObjectRef>({1, 3});
    for (auto element : getWritableElements<HandleObjectRef>(handles))
        handle_ref_set_value_x(element.get(), shared.get());
    handle_ref_set_value_x(handles[2].get(), nullptr);

    std::vector<HandleObjectRef> read;
    for (auto element : std::as_const(handles)) {
        HandleObjectImpl* raw = nullptr;
        handle_object_ref_reference_shared_copy_x(element.get(), &raw);
        read.emplace_back(raw);
    }
    EXPECT_EQ(read[0], shared);
    EXPECT_EQ(read[1], shared);
    EXPECT_TRUE(read[2].isNull());
    EXPECT_EQ(HandleObjectRef(std::as_const(handles)[0]), shared);

    Array const same = handles;
    EXPECT_EQ(same, handles);
    TypedArray<HandleObjectRef> other = factory.createArray<HandleObjectRef>({1, 3});
    other[0] = shared;
    other[1] = shared;
    EXPECT_EQ(other, handles);
    other[1] = factory.createHandleObjectRef(kvxId(5), 17);
    EXPECT_NE(other, handles);
}
