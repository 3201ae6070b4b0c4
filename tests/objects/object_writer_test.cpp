// Value object and handle arrays written: the three shapes of a value object array, handles by their
// values, what becomes of a property that cannot be written, and the class filter.
#include "object_test_support.hpp"
#include "writer_test_support.hpp"

#include <foundation/zorbaldata/json/convert_error.hpp>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace zq::test::objects;
using zq::test::writer::charRow;
using zq::test::writer::doubles;
using zq::test::writer::enums;
using zq::test::writer::expect_writes;
using zq::test::writer::numbers;
using zq::test::writer::scalar;
using zq::test::writer::tagged;
using zq::test::writer::write;
using zq::test::writer::WriteCase;
using enum zq::test::writer::ToJsonMode;
using enum zq::test::writer::NanType;

zd::Array pair_of_objects()
{
    return objects({ 1, 2 }, "pkg.Cls", { { { "p", scalar(1) } }, { { "p", scalar(2) } } });
}

zd::Array pair_of_classes()
{
    return mixed(
        { 1, 2 }, { object("pkg.A", { { "p", scalar(1) } }), object("pkg.B", { { "q", charRow(u"x") } }) });
}

zd::Array standing_for_four()
{
    return standing_for(
        { 2, 2 }, "pkg.Cls", { { "p", doubles({ 2, 2 }, { 1, 2, 3, 4 }) } }, { { "r", charRow(u"abc") } });
}

zd::Array one_handle()
{
    return handles({ 1, 1 }, { handle(17, "pkg.H", { { "p", scalar(1) } }) });
}

// A property that no writer can write: arrays of one dimension are refused.
zd::Array unwritable()
{
    return numbers<double>({ 3 }, { 1, 2, 3 });
}

// A handle array whose one handle may not be written by value.
zd::Array null_handle()
{
    return handles({ 1, 1 }, {});
}

// Each property value is written under the same mode as the array that holds it.
static WriteCase const shapes[] = {
    { "ListLarge", pair_of_objects, Large, String,
        R"({"zqdata":[{"p":{"zqdata":[1],"zqsize":[1,1],"zqtype":"double"}},)"
        R"({"p":{"zqdata":[2],"zqsize":[1,1],"zqtype":"double"}}],"zqsize":[1,2],"zqtype":"pkg.Cls"})" },
    { "ListSmall", pair_of_objects, Small, String,
        R"({"zqdata":[{"p":1},{"p":2}],"zqsize":[1,2],"zqtype":"pkg.Cls"})" },
    { "PropertiesByNameWithTheirOwnForms",
        [] {
            return zd::Array(objects({ 1, 1 }, "pkg.Cls",
                { { { "q", charRow(u"ab") }, { "p", numbers<std::int8_t>({ 1, 1 }, { 5 }) } } }));
        },
        Small, String,
        R"({"zqdata":[{"p":{"zqdata":[5i],"zqsize":[1,1],"zqtype":"int8"},"q":"ab"}],"zqsize":[1,1],"zqtype":"pkg.Cls"})" },
    { "EmptyList",
        [] {
            return zd::Array(objects({ 0, 0 }, "pkg.Cls", {}));
        },
        Large, String, R"({"zqdata":[],"zqsize":[0,0],"zqtype":"pkg.Cls"})" },
    { "ListIgnoresArrayProperties",
        [] {
            zd::ValueObjectArray array = objects({ 1, 1 }, "pkg.Cls", { { { "p", scalar(1) } } });
            array.addArrayProperty(zd::ZorbalPropertyIdentifier("r"), scalar(9), true);
            return zd::Array(array);
        },
        Small, String, R"({"zqdata":[{"p":1}],"zqsize":[1,1],"zqtype":"pkg.Cls"})" },
    { "ObjectAsProperty",
        [] {
            return zd::Array(objects({ 1, 1 }, "pkg.Out",
                { { { "in", objects({ 1, 1 }, "pkg.In", { { { "v", scalar(5) } } }) } } }));
        },
        Small, String,
        R"({"zqdata":[{"in":{"zqdata":[{"v":5}],"zqsize":[1,1],"zqtype":"pkg.In"}}],"zqsize":[1,1],"zqtype":"pkg.Out"})" },
    { "MixedLarge", pair_of_classes, Large, String,
        R"({"zqdata":[{"p":{"zqdata":[1],"zqsize":[1,1],"zqtype":"double"},"zqtype":"pkg.A"},)"
        R"({"q":{"zqdata":["x"],"zqsize":[1,1],"zqtype":"char"},"zqtype":"pkg.B"}],)"
        R"("zqsize":[1,2],"zqtype":"zorbal.mixin.Heterogeneous"})" },
    { "MixedSmall", pair_of_classes, Small, String,
        R"({"zqdata":[{"p":1,"zqtype":"pkg.A"},{"q":"x","zqtype":"pkg.B"}],"zqsize":[1,2],)"
        R"("zqtype":"zorbal.mixin.Heterogeneous"})" },
    { "MixedPropertyNamedLikeTheClassKey",
        [] {
            return zd::Array(mixed({ 1, 1 }, { object("pkg.A", { { "zqtype", charRow(u"fake") } }) }));
        },
        Small, String,
        R"({"zqdata":[{"zqtype":"fake"}],"zqsize":[1,1],"zqtype":"zorbal.mixin.Heterogeneous"})" },
    { "ElementOfAnotherClassMakesItMixed",
        [] {
            zd::ValueObjectArray array
                = objects({ 1, 2 }, "pkg.A", { { { "p", scalar(1) } }, { { "p", scalar(2) } } });
            array[1] = object("pkg.B", { { "q", scalar(3) } });
            return zd::Array(array);
        },
        Small, String,
        R"({"zqdata":[{"p":1,"zqtype":"pkg.A"},{"q":3,"zqtype":"pkg.B"}],"zqsize":[1,2],)"
        R"("zqtype":"zorbal.mixin.Heterogeneous"})" },
    { "StandingForLarge", standing_for_four, Large, String,
        R"({"zqdata":{"p":{"zqdata":[1,2,3,4],"zqsize":[2,2],"zqtype":"double"}},)"
        R"("zqmetadata":{"r":{"zqdata":["abc"],"zqsize":[1,3],"zqtype":"char"}},"zqsize":[2,2],"zqtype":"pkg.Cls"})" },
    { "StandingForSmall", standing_for_four, Small, String,
        R"({"zqdata":{"p":[[1,3],[2,4]]},"zqmetadata":{"r":"abc"},"zqsize":[2,2],"zqtype":"pkg.Cls"})" },
    // No property is counted against the external dimensions.
    { "StandingForWithoutArrayProperties",
        [] {
            return zd::Array(standing_for({ 3, 2 }, "pkg.Cls", { { "p", scalar(1) } }, {}));
        },
        Small, String, R"({"zqdata":{"p":1},"zqsize":[3,2],"zqtype":"pkg.Cls"})" },
    { "StandingForOne",
        [] {
            return zd::Array(standing_for({ 1, 1 }, "pkg.Cls", {}, {}));
        },
        Small, String, R"({"zqdata":{},"zqsize":[1,1],"zqtype":"pkg.Cls"})" },
    { "StandingForWithMixedClass",
        [] {
            zd::ValueObjectArray array = mixed({ 1, 1 }, { object("pkg.A", { { "p", scalar(1) } }) });
            array.setExternalDimensions({ 2, 2 });
            return zd::Array(array);
        },
        Small, String, R"({"zqdata":{"p":1},"zqsize":[2,2],"zqtype":"zorbal.mixin.Heterogeneous"})" },
    { "ExternalDimensionsOfThreeElementsIgnored",
        [] {
            zd::ValueObjectArray array = objects({ 1, 3 }, "pkg.Cls",
                { { { "p", scalar(1) } }, { { "p", scalar(2) } }, { { "p", scalar(3) } } });
            array.setExternalDimensions({ 2, 2 });
            return zd::Array(array);
        },
        Small, String, R"({"zqdata":[{"p":1},{"p":2},{"p":3}],"zqsize":[1,3],"zqtype":"pkg.Cls"})" },
    { "HandleLarge", one_handle, Large, String,
        R"({"zqdata":[{"p":{"zqdata":[1],"zqsize":[1,1],"zqtype":"double"}}],"zqsize":[1,1],"zqtype":"pkg.H"})" },
    { "HandleSmall", one_handle, Small, String, R"({"zqdata":[{"p":1}],"zqsize":[1,1],"zqtype":"pkg.H"})" },
    { "HandlesNamedByTheFirst",
        [] {
            return handles({ 1, 2 },
                { handle(1, "pkg.A", { { "p", scalar(1) } }), handle(2, "pkg.B", { { "q", scalar(2) } }) });
        },
        Small, String, R"({"zqdata":[{"p":1},{"q":2}],"zqsize":[1,2],"zqtype":"pkg.A"})" },
    { "SameHandleTwice",
        [] {
            zd::HandleObjectRef const same = handle(7, "pkg.H", { { "p", scalar(1) } });
            return handles({ 2, 1 }, { same, same });
        },
        Small, String, R"({"zqdata":[{"p":1},{"p":1}],"zqsize":[2,1],"zqtype":"pkg.H"})" },
    { "NoHandles",
        [] {
            return handles({ 0, 0 }, {});
        },
        Large, String, R"({"zqdata":[],"zqsize":[0,0],"zqtype":""})" },
    { "NoHandlesWithAZero",
        [] {
            return handles({ 0, 3 }, {});
        },
        Small, String, R"({"zqdata":[],"zqsize":[0,3],"zqtype":""})" },
    // Only a list leaves out what it cannot write; the rest of the element stays.
    { "ListLeavesOutUnwritableProperties",
        [] {
            return zd::Array(objects({ 1, 2 }, "pkg.Cls",
                { { { "p", unwritable() }, { "q", scalar(1) } },
                    { { "p", scalar(2) }, { "q", null_handle() } } }));
        },
        Small, String, R"({"zqdata":[{"q":1},{"p":2}],"zqsize":[1,2],"zqtype":"pkg.Cls"})" },
};

TEST(ObjectWriter, Shapes)
{
    expect_writes(shapes);
}

struct FailureCase {
    char const* name;
    zd::Array (*make)();
    zd::ObjectFilter filter;
    void (*expect)(zd::Array const& array, zd::ObjectFilter filter, std::string const& text);
    std::string text;
};

template <typename E>
void fails_with(zd::Array const& array, zd::ObjectFilter filter, std::string const& text)
{
    EXPECT_THROW_WHAT(zd::json::zorbaldata_to_json(array, Small, String, filter), E, text);
    EXPECT_TRUE(zq::test::same_on_both_roads(array, Small, String, filter));
}

class ObjectWriterFailure : public ::testing::TestWithParam<FailureCase> { };

TEST_P(ObjectWriterFailure, Fails)
{
    GetParam().expect(GetParam().make(), GetParam().filter, GetParam().text);
}

std::string const too_few_dimensions = "Must have at least two dimensions";
std::string const by_reference = "Serializing handle object as reference is not supported for JSON.";
std::string const denied
    = R"(Objects of class "pkg.Cls" may not be written: the object type filter allows no class.)";
auto const all = zd::ObjectFilter::AllowAll;
auto const none = zd::ObjectFilter::DenyAll;

zd::Array mixed_holding(zd::Array const& value)
{
    return mixed({ 1, 1 }, { object("pkg.A", { { "p", value } }) });
}

zd::Array standing_for_holding(zd::Array const& value, zd::Array const& array_value)
{
    return standing_for({ 2, 2 }, "pkg.Cls", { { "p", value } }, { { "r", array_value } });
}

zd::Array handle_holding(zd::Array const& value)
{
    return handles({ 1, 1 }, { handle(1, "pkg.H", { { "p", value } }) });
}

// A scalar inside cells as deep as the writers go, so that an object around it is one level too many.
zd::Array deepest_cells()
{
    zd::Array nested = scalar(1);
    for (int level = 1; level < 1000; ++level)
        nested = zq::test::writer::cell({ 1, 1 }, { nested });
    return nested;
}

std::string const too_deep = "Arrays nested deeper than 1000 levels cannot be written";

// The class filter comes before the dimensions, and a handle's fitness before the filter.
static FailureCase const failures[] = {
    // Neither leaving a property out nor replacing its failure may cut a deep array short.
    { "ListRefusesTooDeep", [] { return zd::Array(objects({ 1, 1 }, "pkg.Cls", { { { "p", deepest_cells() } } })); },
        all, fails_with<zd::json::ArrayNestingTooDeep>, too_deep },
    { "StandingForRefusesTooDeep", [] { return standing_for_holding(deepest_cells(), scalar(1)); }, all,
        fails_with<zd::json::ArrayNestingTooDeep>, too_deep },
    { "MixedPassesPropertyFailureOn", [] { return mixed_holding(unwritable()); }, all,
        fails_with<std::runtime_error>, too_few_dimensions },
    { "MixedPassesNestedHandleFailureOn", [] { return mixed_holding(null_handle()); }, all,
        fails_with<zd::ObjectNotSupportedException>, by_reference },
    { "HandlePassesPropertyFailureOn", [] { return handle_holding(unwritable()); }, all,
        fails_with<std::runtime_error>, too_few_dimensions },
    { "StandingForReplacesPropertyFailure", [] { return standing_for_holding(null_handle(), scalar(1)); },
        all, fails_with<std::runtime_error>, "Value not specified for the property" },
    { "StandingForReplacesArrayPropertyFailure", [] { return standing_for_holding(scalar(1), unwritable()); },
        all, fails_with<std::runtime_error>, "Value not specified for the array property" },
    { "ListOfOneDimension",
        [] {
            return zd::Array(objects({ 2 }, "pkg.Cls", { {}, {} }));
        },
        all, fails_with<std::runtime_error>, too_few_dimensions },
    { "ExternalDimensionsOfOne", [] { return zd::Array(standing_for({ 4 }, "pkg.Cls", {}, {})); }, all,
        fails_with<std::runtime_error>, too_few_dimensions },
    { "HandlesOfOneDimension", [] { return handles({ 1 }, { handle(1, "pkg.H", {}) }); }, all,
        fails_with<std::runtime_error>, too_few_dimensions },
    { "FilterBeforeDimensions",
        [] {
            return zd::Array(objects({ 2 }, "pkg.Cls", { {}, {} }));
        },
        none, fails_with<zd::ObjectNotSupportedException>, denied },
    { "FilterBeforeHandleDimensions", [] { return handles({ 1 }, { handle(1, "pkg.Cls", {}) }); }, none,
        fails_with<zd::ObjectNotSupportedException>, denied },
    { "NullHandle", null_handle, all, fails_with<zd::ObjectNotSupportedException>, by_reference },
    { "HandleWithoutValue",
        [] {
            return handles({ 1, 1 }, { zq::test::writer::factory.createHandleObjectRef(zd::KVXID(), 1) });
        },
        all, fails_with<zd::ObjectNotSupportedException>, by_reference },
    { "HandleFitnessBeforeFilter", null_handle, none, fails_with<zd::ObjectNotSupportedException>,
        by_reference },
    // Only the first handle is asked whether it may be written by value.
    { "LaterNullHandle",
        [] {
            return handles({ 1, 2 }, { handle(1, "pkg.H", {}) });
        },
        all, fails_with<zd::EMissingValue>, "The null handle has no value." },
};
INSTANTIATE_TEST_SUITE_P(Failures, ObjectWriterFailure, ::testing::ValuesIn(failures),
    [](auto const& info) { return std::string(info.param.name); });

// A host's handle that travels by reference only.
class ReferenceOnlyHandle final : public zd::HandleObjectImpl {
public:
    ReferenceOnlyHandle()
        : HandleObjectImpl(zd::KVXID(), 7)
    {
    }
    std::string get_class_name() const override { return "host.Window"; }
    zd::Array get_value() const override { return zd::Array(); }
    void set_value(zd::Array, int) override { }
    bool is_serializable_by_value() const override { return false; }
};

TEST(HandleWriter, RefusalNamesTheClass)
{
    try {
        write(handles({ 1, 1 }, { zd::HandleObjectRef(new ReferenceOnlyHandle) }), Small);
        ADD_FAILURE() << "a handle that travels by reference was written";
    } catch (zd::ObjectNotSupportedException const& e) {
        EXPECT_STREQ(e.what(), by_reference.c_str());
        EXPECT_EQ(e.getClassName(), "host.Window");
    }
}

struct FilterCase {
    char const* name;
    zd::Array (*make)();
    zd::ObjectFilter filter;
    std::vector<std::string> allowed;
    char const* outcome; // the tagged text, or "refused " and the class name
};

class ClassFilter : public ::testing::TestWithParam<FilterCase> {
protected:
    // The list of allowed classes belongs to the process.
    void SetUp() override { zd::clearAllowedObjectClasses(); }
    void TearDown() override { zd::clearAllowedObjectClasses(); }
};

TEST_P(ClassFilter, DecidesByTheArrayClass)
{
    FilterCase const& c = GetParam();
    for (std::string const& name : c.allowed)
        zd::allowObjectClass(name);
    std::string outcome;
    zd::Array const array = c.make();
    EXPECT_TRUE(zq::test::same_on_both_roads(array, Small, String, c.filter));
    try {
        outcome = tagged(zd::json::zorbaldata_to_json(array, Small, String, c.filter));
    } catch (zd::ObjectNotSupportedException const& e) {
        outcome = "refused " + e.getClassName();
    } catch (std::exception const& e) {
        outcome = std::string("failed ") + e.what();
    }
    EXPECT_EQ(outcome, c.outcome);
}

zd::Array one_of(std::string const& class_name)
{
    return objects({ 1, 1 }, class_name, { { { "p", scalar(1) } } });
}

zd::Array one_object()
{
    return one_of("pkg.Cls");
}

zd::Array no_handles()
{
    return handles({ 0, 0 }, {});
}

auto const listed = zd::ObjectFilter::AllowListed;
char const* const one_object_text = R"({"zqdata":[{"p":1}],"zqsize":[1,1],"zqtype":"pkg.Cls"})";
char const* const mixed_class = "zorbal.mixin.Heterogeneous";

// A class refused inside a property follows the rules of a failing property.
static FilterCase const filters[] = {
    { "AllowAll", one_object, all, {}, one_object_text },
    { "Listed", one_object, listed, { "pkg.Cls" }, one_object_text },
    { "NotListed", one_object, listed, { "pkg.Other" }, "refused pkg.Cls" },
    { "EmptyList", one_object, listed, {}, "refused pkg.Cls" },
    { "DenyAll", one_object, none, { "pkg.Cls" }, "refused pkg.Cls" },
    { "StandingFor", standing_for_four, listed, {}, "refused pkg.Cls" },
    { "MixedByArrayClass", pair_of_classes, listed, { "pkg.A", "pkg.B" },
        "refused zorbal.mixin.Heterogeneous" },
    { "MixedElementsUnchecked", pair_of_classes, listed, { mixed_class },
        R"({"zqdata":[{"p":1,"zqtype":"pkg.A"},{"q":"x","zqtype":"pkg.B"}],"zqsize":[1,2],)"
        R"("zqtype":"zorbal.mixin.Heterogeneous"})" },
    { "Handles", one_handle, listed, { "pkg.H" }, R"({"zqdata":[{"p":1}],"zqsize":[1,1],"zqtype":"pkg.H"})" },
    { "HandlesNotListed", one_handle, listed, {}, "refused pkg.H" },
    { "NoHandlesAllowAll", no_handles, all, {}, R"({"zqdata":[],"zqsize":[0,0],"zqtype":""})" },
    { "NoHandlesAskAboutEmptyName", no_handles, listed, {}, "refused " },
    { "NoHandlesListed", no_handles, listed, { "" }, R"({"zqdata":[],"zqsize":[0,0],"zqtype":""})" },
    { "NoHandlesDenyAll", no_handles, none, {}, "refused " },
    { "InsideCell",
        [] {
            return zq::test::writer::cell({ 1, 1 }, { one_object() });
        },
        listed, {}, "refused pkg.Cls" },
    { "InsideList",
        [] {
            return zd::Array(
                objects({ 1, 1 }, "pkg.Out", { { { "p", one_of("pkg.In") }, { "q", scalar(1) } } }));
        },
        listed, { "pkg.Out" }, R"({"zqdata":[{"q":1}],"zqsize":[1,1],"zqtype":"pkg.Out"})" },
    { "InsideMixed", [] { return mixed_holding(one_of("pkg.In")); }, listed, { mixed_class },
        "refused pkg.In" },
    { "InsideStandingFor", [] { return standing_for_holding(one_of("pkg.In"), scalar(1)); }, listed,
        { "pkg.Cls" }, "failed Value not specified for the property" },
    { "EnumerationsUnfiltered",
        [] {
            return enums({ 1, 1 }, "pkg.Color", { "red" });
        },
        none, {}, R"({"zqdata":["red"],"zqsize":[1,1],"zqtype":"pkg.Color"})" },
};
INSTANTIATE_TEST_SUITE_P(Classes, ClassFilter, ::testing::ValuesIn(filters),
    [](auto const& info) { return std::string(info.param.name); });

} // namespace
