// Value objects and value object arrays, built and read the way the readers and writers do.
#include "expect_throw.hpp"

#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

using namespace foundation::zorbaldata;

namespace {

using zorbal::data::detail::RefCounted;

ArrayFactory const factory;

ClassInfo classWith(std::string const& name, std::vector<std::string> const& properties)
{
    std::vector<ZorbalPropertyIdentifier> identifiers;
    for (auto const& property : properties)
        identifiers.emplace_back(property);
    return factory.createClassInfo(ZorbalClassIdentifier(name), identifiers);
}

std::vector<std::string> propertyNames(ForwardIterator<Property const> it, ForwardIterator<Property const> const& end)
{
    std::vector<std::string> names;
    for (; it != end; ++it)
        names.push_back(it->getIdentifier().getExternalPropertyName());
    return names;
}

std::vector<std::string> propertyNames(ValueObject const& object)
{
    return propertyNames(object.cbegin(), object.cend());
}

std::string className(RefCounted* record)
{
    return ClassInfo(record).getClassIdentifier().getFullyQualifiedClassName();
}

} // namespace

TEST(ValueObject, StartsWithTheDeclaredProperties)
{
    ValueObject const object = factory.createValueObject(classWith("pkg.Cls", {"q", "p"}));
    EXPECT_EQ(propertyNames(object), (std::vector<std::string>{"q", "p"}));
    EXPECT_EQ(object["p"], Array());
    EXPECT_EQ(object.getClassInfo().getClassIdentifier().getFullyQualifiedClassName(), "pkg.Cls");
}

TEST(ValueObject, BareIdentifierNamesThePropertyAndNoClass)
{
    ZorbalPropertyIdentifier const bare("p");
    EXPECT_EQ(bare.getPropertyName(), "p");
    EXPECT_EQ(bare.getExternalPropertyName(), "p");
    EXPECT_EQ(bare.getClassName(), "");
}

TEST(ValueObject, EveryKeyFormFindsTheProperty)
{
    ValueObject object = factory.createValueObject(classWith("pkg.Cls", {"p"}));
    ZorbalPropertyIdentifier const bare("p");
    ZorbalPropertyIdentifier const qualified("pkg.Cls", "p");
    double value = 0;
    for (std::string const& key : {std::string("p"), std::string(".p"), std::string("pkg.Cls.p"),
                                   bare.getClassName() + "." + bare.getPropertyName(),
                                   qualified.getClassName() + "." + qualified.getPropertyName()}) {
        detail::setElement<Array>(object[key], factory.createScalar(++value));
        EXPECT_EQ(std::as_const(object)[key], factory.createScalar(value)) << key;
    }
    EXPECT_EQ(propertyNames(object), (std::vector<std::string>{"p"}));
}

TEST(ValueObject, UnknownKeyAddsAProperty)
{
    ValueObject object = factory.createValueObject(classWith("pkg.Cls", {"p"}));
    object["zqclass"] = factory.createScalar(1.0);
    object[".r"] = factory.createScalar(2.0);
    object["other.Cls.s"] = factory.createScalar(3.0);
    EXPECT_EQ(propertyNames(object), (std::vector<std::string>{"p", "zqclass", "r", "other.Cls.s"}));
    EXPECT_EQ(std::as_const(object)["r"], factory.createScalar(2.0));
    EXPECT_THROW_WHAT(std::as_const(object)["x"], ENoSuchProperty, "The object has no property \"x\".");
    EXPECT_FALSE(object.hasProperty("x"));
}

TEST(ValueObject, PropertyAddedTwiceIsRefused)
{
    ValueObject object = factory.createValueObject(classWith("pkg.Cls", {"p"}));
    object.addProperty(ZorbalPropertyIdentifier("q"), Array());
    for (std::string const name : {"p", "q"})
        EXPECT_THROW_WHAT(object.addProperty(ZorbalPropertyIdentifier(name), Array()), PropertyExistsException,
                          "The property \"" + name + "\" exists already.");
    EXPECT_THROW_WHAT(classWith("pkg.Cls", {"a", "b", "a"}), PropertyExistsException, "The property \"a\" exists already.");
}

TEST(ValueObject, EqualityIgnoresPropertyOrder)
{
    ValueObject pq = factory.createValueObject(classWith("pkg.Cls", {"p", "q"}));
    ValueObject qp = factory.createValueObject(classWith("pkg.Cls", {"q", "p"}));
    EXPECT_EQ(pq, qp);
    pq["p"] = factory.createScalar(1.0);
    EXPECT_NE(pq, qp);
    qp["p"] = factory.createScalar(1.0);
    EXPECT_EQ(pq, qp);
    EXPECT_NE(pq, factory.createValueObject(classWith("pkg.Other", {"p", "q"})));
}

TEST(ValueObject, IterationSeesThePropertiesAsTheyWere)
{
    ValueObject object = factory.createValueObject(classWith("pkg.Cls", {"p"}));
    auto const begin = object.cbegin();
    auto const end = object.cend();
    object.addProperty(ZorbalPropertyIdentifier("q"), Array());
    EXPECT_EQ(propertyNames(begin, end), (std::vector<std::string>{"p"}));
}

TEST(ValueObjectArray, HomogeneousArrayRoundTripsItsProperties)
{
    // As a reader fills it from [{"p":1,"q":2},{"p":3}]: the class lists the first element's keys.
    std::vector<std::map<std::string, double>> const input{{{"p", 1}, {"q", 2}}, {{"p", 3}}};
    ClassInfo const cls = classWith("pkg.Cls", {"p", "q"});
    ValueObjectArray array = factory.createValueObjectArray({1, 2}, cls);
    auto const range = getWritableElements<ValueObject>(array);
    auto it = range.begin();
    for (auto const& element : input) {
        ValueObject object = factory.createValueObject(cls);
        for (auto const& property : cls.getPropertyIdentifiers()) {
            auto const found = element.find(property.getExternalPropertyName());
            detail::setElement<Array>(object[property.getClassName() + "." + property.getPropertyName()],
                                      found == element.end() ? Array() : Array(factory.createScalar(found->second)));
        }
        object_set_value_x(it.getRef().get(), object.get());
        it.increment();
    }
    EXPECT_TRUE(it.isEqual(range.end()));

    // As a writer reads it back.
    EXPECT_FALSE(object_array_is_heterogeneous_x(array));
    EXPECT_EQ(className(object_array_get_class_info_x(array)), "pkg.Cls");
    std::vector<std::map<std::string, Array>> output;
    for (auto element : getReadOnlyElements<ValueObject>(array)) {
        ForwardIterator<Property const> property(object_reference_begin_x(element.get()));
        ForwardIterator<Property const> const end(object_reference_end_x(element.get()));
        auto& properties = output.emplace_back();
        for (; property != end; ++property)
            properties[property->getIdentifier().getExternalPropertyName()] = property->castToArray();
    }
    ASSERT_EQ(output.size(), 2u);
    EXPECT_EQ(output[0].at("q"), factory.createScalar(2.0));
    EXPECT_EQ(output[1].at("p"), factory.createScalar(3.0));
    EXPECT_EQ(output[1].at("q"), Array());
}

TEST(ValueObjectArray, ArrayWithoutClassIsHeterogeneous)
{
    ValueObjectArray array = factory.createValueObjectArray({1, 2});
    EXPECT_EQ(array.getClassInfo().getClassIdentifier().getFullyQualifiedClassName(), "zorbal.mixin.Heterogeneous");
    EXPECT_TRUE(object_array_is_heterogeneous_x(array));
    ValueObject const a = factory.createValueObject(classWith("pkg.A", {}));
    array[0] = a;
    array[1] = a;
    EXPECT_TRUE(object_array_is_heterogeneous_x(array));
    EXPECT_EQ(className(object_reference_get_class_info_x(std::as_const(array)[1].get())), "pkg.A");
    EXPECT_TRUE(factory.createArray(ArrayType::VALUE_OBJECT, {0, 0}) == factory.createValueObjectArray({0, 0}));
}

TEST(ValueObjectArray, ElementOfAnotherClassMakesTheArrayHeterogeneous)
{
    ValueObjectArray array = factory.createValueObjectArray({1, 2}, classWith("pkg.A", {}));
    EXPECT_FALSE(array.isHeterogeneous());
    array[1] = factory.createValueObject(classWith("pkg.B", {}));
    EXPECT_TRUE(array.isHeterogeneous());
    array[1] = factory.createValueObject(classWith("pkg.A", {}));
    EXPECT_FALSE(array.isHeterogeneous());
}

TEST(ValueObjectArray, ElementNeverSetIsANewObjectOfTheArrayClass)
{
    ValueObjectArray const array = factory.createValueObjectArray({2, 1}, classWith("pkg.Cls", {"p"}));
    RefCounted* raw = nullptr;
    object_reference_shared_copy_x(array[1].get(), &raw);
    ValueObject const object(raw);
    EXPECT_EQ(object, factory.createValueObject(classWith("pkg.Cls", {"p"})));
    EXPECT_EQ(propertyNames(ForwardIterator<Property const>(object_reference_begin_x(array[1].get())),
                            ForwardIterator<Property const>(object_reference_end_x(array[1].get()))),
              (std::vector<std::string>{"p"}));
}

TEST(ValueObjectArray, SingleObjectWithExternalDimensions)
{
    // As a reader builds {"zqdata":{"p":...},"zqmetadata":{"r":...},"zqsize":[2,2],"zqtype":"pkg.Cls"}.
    ClassInfo const cls = factory.createClassInfo(ZorbalClassIdentifier("pkg.Cls"));
    ValueObjectArray array = factory.createValueObjectArray({1, 1}, cls);
    EXPECT_FALSE(array.isExternalDimensionsSet());
    standalone::detail::setExternalDimensions(array, {2, 2}, true);
    object_set_value_x(array[0].get(), factory.createValueObject(cls).get());
    standalone::detail::addProperty(array[0], ZorbalPropertyIdentifier("p"), factory.createArray<double>({2, 2}));
    standalone::detail::addArrayProperty(array, ZorbalPropertyIdentifier("r"), factory.createScalar(1.0), true);

    EXPECT_TRUE(array.isExternalDimensionsSet());
    EXPECT_EQ(array.getExternalDimensions(), (std::vector<unsigned long>{2, 2}));
    EXPECT_EQ(propertyNames(array.beginArrayProp(), array.endArrayProp()), (std::vector<std::string>{"r"}));
    EXPECT_EQ(propertyNames(ValueObject(std::as_const(array)[0])), (std::vector<std::string>{"p"}));
    for (std::string const name : {"p", "r"})
        EXPECT_THROW_WHAT(standalone::detail::addArrayProperty(array, ZorbalPropertyIdentifier(name), Array(), true),
                          PropertyExistsException, "The property \"" + name + "\" exists already.");
    EXPECT_THROW_WHAT(standalone::detail::addProperty(array[0], ZorbalPropertyIdentifier("p"), Array()),
                      PropertyExistsException, "The property \"p\" exists already.");

    standalone::detail::setExternalDimensions(array, {1, 1}, true);
    EXPECT_TRUE(array.isExternalDimensionsSet());
    standalone::detail::setExternalDimensions(array, {}, false);
    EXPECT_FALSE(array.isExternalDimensionsSet());
}

TEST(ValueObjectArray, ArrayPropertyWithoutRejectionTakesTheNewValue)
{
    ValueObjectArray array = factory.createValueObjectArray({1, 1}, classWith("pkg.Cls", {"p"}));
    array.addArrayProperty(ZorbalPropertyIdentifier("r"), factory.createScalar(1.0), false);
    array.addArrayProperty(ZorbalPropertyIdentifier("r"), factory.createScalar(2.0), false);
    auto const first = array.beginArrayProp();
    EXPECT_EQ(first->castToArray(), factory.createScalar(2.0));
    EXPECT_EQ(propertyNames(first, array.endArrayProp()), (std::vector<std::string>{"r"}));
}

TEST(ValueObjectArray, FactoryWithoutObjectsRefusesToMakeThem)
{
    ArrayFactory const noObjects(ArrayFactory::Objects::NotSupported);
    ClassInfo const cls = noObjects.createClassInfo(ZorbalClassIdentifier("pkg.Cls"));
    std::string const text = "This array factory makes no objects.";
    EXPECT_THROW_WHAT(noObjects.createValueObject(cls), ObjectNotSupportedException, text);
    EXPECT_THROW_WHAT(noObjects.createValueObjectArray({1, 1}, cls), ObjectNotSupportedException, text);
    EXPECT_THROW_WHAT(noObjects.createValueObjectArray({1, 1}), ObjectNotSupportedException, text);
    EXPECT_THROW_WHAT(noObjects.createArray(ArrayType::VALUE_OBJECT, {1, 1}), ObjectNotSupportedException, text);
    EXPECT_THROW_WHAT(noObjects.createHandleObjectRef(KVXID(), 1), ObjectNotSupportedException, text);
    try {
        noObjects.createValueObject(cls);
    } catch (ObjectNotSupportedException const& e) {
        EXPECT_EQ(e.getClassName(), "pkg.Cls");
        EXPECT_EQ(e.code(), 28);
    }
}

TEST(ValueObjectArray, RawOperationsCheckWhatTheyAreGiven)
{
    TypedArray<Array> cells = factory.createArray<Array>({1, 1});
    ValueObject const object = factory.createValueObject(classWith("pkg.Cls", {}));
    EXPECT_THROW_WHAT(object_set_value_x(cells[0].get(), object.get()), ETypeMismatch,
                      "The reference names no element of a value object array.");
    ValueObjectArray array = factory.createValueObjectArray({1, 1});
    RefCounted* const record = object_array_get_class_info_x(array);
    EXPECT_THROW_WHAT(object_set_value_x(array[0].get(), record), ETypeMismatch,
                      "Only an object can be stored in a value object array.");
    object_destroy_impl_x(record);
    object.get()->addRef();
    EXPECT_THROW_WHAT(ClassInfo(object.get()), ETypeMismatch, "A ClassInfo wraps a class record.");
}
