// Value objects, value object arrays, handle objects and the class filter: the rules the readers and
// writers build on, and the failures only these calls can meet.
#include "expect_throw.hpp"

#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace foundation::zorbaldata;

namespace {

using Names = std::vector<std::string>;
using Id = ZorbalPropertyIdentifier;

ArrayFactory const factory;
Array const one = factory.createScalar(1.0);
Array const two = factory.createScalar(2.0);

ClassInfo classWith(std::string const& name, Names const& properties = {})
{
    std::vector<Id> const identifiers(properties.begin(), properties.end());
    return factory.createClassInfo(ZorbalClassIdentifier(name), identifiers);
}

Names propertyNames(ForwardIterator<Property const> it, ForwardIterator<Property const> const& end)
{
    Names names;
    for (; it != end; ++it)
        names.push_back(it->getIdentifier().getExternalPropertyName());
    return names;
}

std::string exists(std::string const& name) { return "The property \"" + name + "\" exists already."; }

} // namespace

TEST(ValueObject, EveryKeyFormFindsADeclaredPropertyAnUnknownKeyAddsOneAndOrderDoesNotMatter)
{
    ValueObject object = factory.createValueObject(classWith("pkg.Cls", {"q", "p"}));
    EXPECT_EQ(object["p"], Array());
    double value = 0;
    for (std::string const key : {"p", ".p", "pkg.Cls.p"}) {
        detail::setElement<Array>(object[key], factory.createScalar(++value));
        EXPECT_EQ(std::as_const(object)[key], factory.createScalar(value)) << key;
    }
    auto const begin = object.cbegin();
    auto const end = object.cend();
    object["zqclass"] = one;
    object[".r"] = two;
    object["other.Cls.s"] = one;
    EXPECT_EQ(propertyNames(begin, end), (Names{"q", "p"}));
    EXPECT_EQ(propertyNames(object.cbegin(), object.cend()), 
        (Names{"q", "p", "zqclass", "r", "other.Cls.s"}));
    EXPECT_EQ(std::as_const(object)["r"], two);
    EXPECT_THROW_WHAT(std::as_const(object)["x"], ENoSuchProperty, "The object has no property \"x\".");
    EXPECT_FALSE(object.hasProperty("x"));
    // Equality ignores the order of the properties.
    ValueObject pq = factory.createValueObject(classWith("pkg.Cls", {"p", "q"}));
    ValueObject qp = factory.createValueObject(classWith("pkg.Cls", {"q", "p"}));
    EXPECT_EQ(pq, qp);
    pq["p"] = one;
    EXPECT_NE(pq, qp);
    qp["p"] = one;
    EXPECT_EQ(pq, qp);
    EXPECT_NE(pq, factory.createValueObject(classWith("pkg.Other", {"p", "q"})));
}

TEST(ValueObjectArray, ClassOfTheElementsDecidesWhetherItIsHeterogeneous)
{
    ValueObjectArray mixed = factory.createValueObjectArray({1, 2});
    EXPECT_EQ(mixed.getClassInfo().getClassIdentifier().getFullyQualifiedClassName(),
        "zorbal.mixin.Heterogeneous");
    mixed[0] = factory.createValueObject(classWith("pkg.A"));
    mixed[1] = factory.createValueObject(classWith("pkg.A"));
    EXPECT_TRUE(object_array_is_heterogeneous_x(mixed));
    EXPECT_EQ(factory.createArray(ArrayType::VALUE_OBJECT, {0, 0}), factory.createValueObjectArray({0, 0}));
    ValueObjectArray array = factory.createValueObjectArray({1, 2}, classWith("pkg.A", {"p"}));
    EXPECT_FALSE(array.isHeterogeneous());
    // An element never set is a new object of the array's class.
    EXPECT_EQ(ValueObject(std::as_const(array)[1]), factory.createValueObject(classWith("pkg.A", {"p"})));
    array[1] = factory.createValueObject(classWith("pkg.B"));
    EXPECT_TRUE(array.isHeterogeneous());
    array[1] = factory.createValueObject(classWith("pkg.A"));
    EXPECT_FALSE(array.isHeterogeneous());
}

TEST(ValueObjectArray, ExternalDimensionsAndPropertiesGivenTwice)
{
    EXPECT_THROW_WHAT(classWith("pkg.Cls", {"a", "b", "a"}), PropertyExistsException, exists("a"));
    ClassInfo const cls = classWith("pkg.Cls");
    ValueObjectArray array = factory.createValueObjectArray({1, 1}, cls);
    EXPECT_FALSE(array.isExternalDimensionsSet());
    standalone::detail::setExternalDimensions(array, {2, 2}, true);
    EXPECT_EQ(array.getExternalDimensions(), (std::vector<unsigned long>{2, 2}));
    object_set_value_x(array[0].get(), factory.createValueObject(cls).get());
    standalone::detail::addProperty(array[0], Id("p"), factory.createArray<double>({2, 2}));
    standalone::detail::addArrayProperty(array, Id("r"), one, true);
    for (std::string const name : {"p", "r"})
        EXPECT_THROW_WHAT(standalone::detail::addArrayProperty(array, Id(name), Array(), true),
            PropertyExistsException, exists(name));
    EXPECT_THROW_WHAT(
        standalone::detail::addProperty(array[0], Id("p"), Array()), PropertyExistsException, exists("p"));
    ValueObject object = std::as_const(array)[0];
    EXPECT_THROW_WHAT(object.addProperty(Id("p"), Array()), PropertyExistsException, exists("p"));
    // Without rejection a property given again takes the new value.
    array.addArrayProperty(Id("r"), two, false);
    EXPECT_EQ(array.beginArrayProp()->castToArray(), two);
    EXPECT_EQ(propertyNames(array.beginArrayProp(), array.endArrayProp()), (Names{"r"}));
    ValueObject const element = std::as_const(array)[0];
    EXPECT_EQ(propertyNames(element.cbegin(), element.cend()), (Names{"p"}));
    standalone::detail::setExternalDimensions(array, {}, false);
    EXPECT_FALSE(array.isExternalDimensionsSet());
}

TEST(ValueObjectArray, FactoryWithoutObjectsRefusesToMakeThem)
{
    ArrayFactory const noObjects(ArrayFactory::Objects::NotSupported);
    ClassInfo const cls = noObjects.createClassInfo(ZorbalClassIdentifier("pkg.Cls"));
    std::string const text = "This array factory makes no objects.";
    EXPECT_THROW_WHAT(
        noObjects.createArray(ArrayType::VALUE_OBJECT, {1, 1}), ObjectNotSupportedException, text);
    EXPECT_THROW_WHAT(noObjects.createHandleObjectRef(KVXID(), 1), ObjectNotSupportedException, text);
    try {
        noObjects.createValueObject(cls);
        ADD_FAILURE() << "an object was made";
    } catch (ObjectNotSupportedException const& e) {
        EXPECT_EQ(e.getClassName(), "pkg.Cls");
        EXPECT_EQ(e.code(), 28);
    }
}

TEST(ValueObjectArray, RawOperationsCheckWhatTheyAreGiven)
{
    TypedArray<Array> cells = factory.createArray<Array>({1, 1});
    ValueObject const object = factory.createValueObject(classWith("pkg.Cls"));
    EXPECT_THROW_WHAT(object_set_value_x(cells[0].get(), object.get()), ETypeMismatch,
        "The reference names no element of a value object array.");
    EXPECT_THROW_WHAT(handle_ref_set_value_x(cells[0].get(), nullptr), ETypeMismatch,
        "The reference names no element of a handle array.");
    ValueObjectArray array = factory.createValueObjectArray({1, 1});
    zorbal::data::detail::RefCounted* const record = object_array_get_class_info_x(array);
    EXPECT_THROW_WHAT(object_set_value_x(array[0].get(), record), ETypeMismatch,
        "Only an object can be stored in a value object array.");
    object_destroy_impl_x(record);
    object.get()->addRef();
    EXPECT_THROW_WHAT(ClassInfo(object.get()), ETypeMismatch, "A ClassInfo wraps a class record.");
}

// A handle's class is that of a value object array holding one object; only the flag makes it travel by
// value.
TEST(HandleObject, ValueFlagsAndTheNullHandle)
{
    HandleObjectRef const handle = factory.createHandleObjectRef(KVXID(), 17);
    EXPECT_EQ(handle->get_class_name(), "");
    EXPECT_FALSE(handle->is_serializable_by_value());
    EXPECT_THROW_WHAT(handle->get_value(), EMissingValue, "The handle object has no value.");
    HandleObjectRef const copy = handle;
    EXPECT_NE(copy, factory.createHandleObjectRef(KVXID(), 17));
    // The value a reader gives a handle: a 1-by-1 array holding one object of the class.
    ValueObjectArray value = factory.createValueObjectArray({1, 1}, classWith("pkg.H"));
    value[0] = factory.createValueObject(classWith("pkg.H"));
    copy->set_value(value, 0);
    EXPECT_FALSE(handle->is_serializable_by_value());
    EXPECT_EQ(handle->get_class_name(), "pkg.H");
    handle->set_value(one, HandleObjectImpl::SerializableByValue);
    EXPECT_TRUE(handle->is_serializable_by_value());
    EXPECT_EQ(handle->get_class_name(), "");
    EXPECT_THROW_WHAT(handle->set_value(two, HandleObjectImpl::CheckValue), ETypeMismatch,
        "The value of a handle object is a value object array of one element.");
    EXPECT_EQ(handle->get_value(), one);

    HandleObjectRef const null;
    EXPECT_TRUE(null.isNull());
    EXPECT_EQ(null->get_class_name(), "");
    EXPECT_FALSE(null->is_serializable_by_value());
    EXPECT_THROW_WHAT(null->get_value(), EMissingValue, "The null handle has no value.");
    EXPECT_THROW_WHAT(
        null->set_value(Array(), 3), EInvalidArgument, "The null handle cannot be given a value.");
}

TEST(ObjectTypeFilter, EachFilterAcceptsOrRefusesAClass)
{
    // The reason a class is refused, empty when it is accepted.
    std::tuple<ObjectFilter, std::string, std::string> const cases[] = {
        {ObjectFilter::AllowAll, "pkg.Other", ""}, {ObjectFilter::AllowListed, "pkg.Cls", ""},
        {ObjectFilter::AllowListed, "pkg.Other", "the class is not on the list of allowed classes"},
        {ObjectFilter::DenyAll, "pkg.Cls", "the object type filter allows no class"},
        {static_cast<ObjectFilter>(3), "", "the object type filter 3 is unknown"}};
    allowObjectClass("pkg.Cls");
    for (auto const& c : cases) {
        auto const& [filter, name, refusal] = c;
        if (refusal.empty())
            EXPECT_NO_THROW(detail::validateObjectTypeFilter(filter, name)) << name;
        else
            EXPECT_THROW_WHAT(detail::validateObjectTypeFilter(std::get<0>(c), std::get<1>(c)),
                ObjectNotSupportedException,
                "Objects of class \"" + name + "\" may not be written: " + refusal + ".");
    }
    disallowObjectClass("pkg.Cls");
    EXPECT_THROW_WHAT(detail::validateObjectTypeFilter(ObjectFilter::AllowListed, "pkg.Cls"),
        ObjectNotSupportedException,
        R"(Objects of class "pkg.Cls" may not be written: the class is not on the list of allowed classes.)");
    clearAllowedObjectClasses();
}
