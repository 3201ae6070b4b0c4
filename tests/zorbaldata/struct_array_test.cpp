// Struct arrays: field names, their order, and reading and writing field values.
#include "expect_throw.hpp"

#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace foundation::zorbaldata;

namespace {

ArrayFactory const factory;

std::vector<std::string> fieldNames(StructArray const& array)
{
    std::vector<std::string> names;
    for (auto const& field : array.getFieldNames())
        names.push_back(field.getString());
    return names;
}

std::string const illegalRule = "\" is not a legal field name: a field name begins with an ASCII letter, holds only "
                                 "ASCII letters, digits and underscores, and has at most 2049 of them.";

} // namespace

TEST(StructArray, FieldsKeepTheirOrder)
{
    StructArray const array = factory.createStructArray({2, 1}, {"zeta", "alpha", "mid_1"});
    EXPECT_EQ(fieldNames(array), (std::vector<std::string>{"zeta", "alpha", "mid_1"}));
    EXPECT_EQ(array.getNumberOfFields(), 3u);
    EXPECT_EQ(array.getType(), ArrayType::STRUCT);
}

TEST(StructArray, IllegalFieldNamesAreRefused)
{
    std::string const longest(2049, 'a');
    EXPECT_NO_THROW(factory.createStructArray({1, 1}, {longest, "a_1", "Z9"}));
    for (std::string const& name : std::vector<std::string>{"", "1a", "_a", "a b", "a-b", "\xc3\xa9t\xc3\xa9", std::string(2050, 'a')})
        EXPECT_THROW_WHAT(factory.createStructArray({1, 1}, {"ok", name}), EIllegalStructFieldName,
                          "\"" + name + illegalRule);
    EXPECT_THROW_WHAT(factory.createStructArray({1, 1}, {"a", "b", "a"}), EIllegalStructFieldName,
                      "The field name \"a\" is given twice.");
    try {
        factory.createStructArray({0, 0}, {"1a"});
        ADD_FAILURE() << "an illegal name passed";
    } catch (EIllegalStructFieldName const& e) {
        EXPECT_EQ(e.getFieldName(), "1a");
        EXPECT_EQ(e.code(), 5);
    }
}

TEST(StructArray, UnknownFieldIsRefused)
{
    StructArray array = factory.createStructArray({1, 1}, {"a"});
    std::string const text = "The struct array has no field called \"b\".";
    EXPECT_THROW_WHAT(array[0]["b"], EIllegalStructFieldName, text);
    EXPECT_THROW_WHAT(std::as_const(array)[0]["b"], EIllegalStructFieldName, text);
    StructElement const element = std::as_const(array)[0];
    EXPECT_THROW_WHAT(element["b"], EIllegalStructFieldName, text);
}

TEST(StructArray, FilledFieldByFieldAsAReaderDoes)
{
    StructArray array = factory.createStructArray({2, 1}, {"a", "b"});
    auto const range = getWritableElements<StructElement>(array);
    double value = 0;
    for (std::string const field : {"a", "b"})
        for (auto it = range.begin(); !it.isEqual(range.end()); it.increment())
            detail::setElement<Array>(it.getRef()[field], factory.createScalar(++value));

    std::vector<double> byElement;
    for (auto const element : getReadOnlyElements<StructElement>(array)) {
        StructElement const record = detail::getValue<StructElement>(element);
        for (std::string const field : {"a", "b"})
            byElement.push_back(TypedArray<double>(record[field])[0]);
    }
    EXPECT_EQ(byElement, (std::vector<double>{1, 3, 2, 4}));
}

TEST(StructArray, FieldsStartAsEmptyDoubles)
{
    StructArray const array = factory.createStructArray({1, 2}, {"a"});
    EXPECT_EQ(array[1]["a"], Array());
}

TEST(StructArray, EmptyStructsAndStructsWithoutFields)
{
    StructArray const noFields = factory.createStructArray({2, 1}, {});
    EXPECT_EQ(noFields.getNumberOfElements(), 2u);
    EXPECT_TRUE(fieldNames(noFields).empty());
    StructArray const noElements = factory.createStructArray({0, 1}, {"a"});
    EXPECT_EQ(noElements.getNumberOfElements(), 0u);
    EXPECT_EQ(fieldNames(noElements), (std::vector<std::string>{"a"}));
    EXPECT_EQ(factory.createArray(ArrayType::STRUCT, {2, 1}), noFields);
}

TEST(StructArray, FieldOrderDoesNotMatterForEquality)
{
    StructArray ab = factory.createStructArray({1, 1}, {"a", "b"});
    StructArray ba = factory.createStructArray({1, 1}, {"b", "a"});
    ab[0]["a"] = factory.createScalar(1.0);
    ba[0]["a"] = factory.createScalar(1.0);
    EXPECT_EQ(ab, ba);
    ba[0]["b"] = factory.createScalar(1.0);
    EXPECT_NE(ab, ba);
    EXPECT_NE(ab, factory.createStructArray({1, 1}, {"a", "c"}));
}
