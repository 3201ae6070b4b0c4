// Value object and handle arrays written: the three shapes of a value object array, handles by their
// values, what becomes of a property that cannot be written, and the class filter.
#include "object_test_support.hpp"
#include "writer_test_support.hpp"

#include <foundation/zorbaldata/json/convert_error.hpp>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

namespace {

using namespace zq::test::objects;
using zq::test::writer::cell;
using zq::test::writer::charRow;
using zq::test::writer::doubles;
using zq::test::writer::numbers;
using zq::test::writer::scalar;
using zq::test::writer::write;
using enum zq::test::writer::ToJsonMode;
using enum zq::test::writer::NanType;

zd::Array pair_of_objects() { return objects({1, 2}, "pkg.Cls", {{{"p", scalar(1)}}, {{"p", scalar(2)}}}); }
zd::Array pair_of_classes()
{
    return mixed({1, 2}, {object("pkg.A", {{"p", scalar(1)}}), object("pkg.B", {{"q", charRow(u"x")}})});
}
zd::Array standing_for_four()
{
    return standing_for({2, 2}, "pkg.Cls", {{"p", doubles({2, 2}, {1, 2, 3, 4})}}, {{"r", charRow(u"abc")}});
}
zd::Array one_handle() { return handles({1, 1}, {handle(17, "pkg.H", {{"p", scalar(1)}})}); }
// A property that no writer can write: arrays of one dimension are refused.
zd::Array unwritable() { return doubles({3}, {1, 2, 3}); }
// A handle array whose one handle may not be written by value.
zd::Array null_handle() { return handles({1, 1}, {}); }
zd::Array one_of(std::string const& class_name) { return objects({1, 1}, class_name, {{{"p", scalar(1)}}}); }
zd::Array mixed_holding(zd::Array const& value) { return mixed({1, 1}, {object("pkg.A", {{"p", value}})}); }
zd::Array standing_for_holding(zd::Array const& value, zd::Array const& array_value)
{
    return standing_for({2, 2}, "pkg.Cls", {{"p", value}}, {{"r", array_value}});
}
zd::Array handle_holding(zd::Array const& value) { return handles({1, 1}, {handle(1, "pkg.H", {{"p", value}})}); }
zd::Array const one = zq::test::writer::scalar(1);

// The value object array of objects after change.
template <typename Change>
zd::Array changed(zd::Array const& objects, Change change)
{
    zd::ValueObjectArray array(objects);
    change(array);
    return array;
}

auto const all = zd::ObjectFilter::AllowAll;
auto const listed = zd::ObjectFilter::AllowListed;
auto const none = zd::ObjectFilter::DenyAll;

std::string const by_reference = "Serializing handle object as reference is not supported for JSON.";

// One array written under a mode with a filter and the classes allowed: the tagged text; or for a refusal
// "refused " (by the filter) or "by reference " and the class it names; or "failed " and the text of a
// std::runtime_error, "threw " and that of any other exception.
struct WriteCase {
    char const* name;
    zd::Array (*make)();
    std::string outcome;
    zq::test::writer::ToJsonMode mode = Small;
    zd::ObjectFilter filter = all;
    std::vector<std::string> allowed = {};
};

class ObjectWriter : public ::testing::TestWithParam<WriteCase> {
protected:
    // The list of allowed classes belongs to the process.
    void SetUp() override { zd::clearAllowedObjectClasses(); }
    void TearDown() override { zd::clearAllowedObjectClasses(); }
};

TEST_P(ObjectWriter, Writes)
{
    WriteCase const& c = GetParam();
    for (std::string const& name : c.allowed)
        zd::allowObjectClass(name);
    // Whatever the filter and the indentation, the text written straight is the serialised tree.
    for (zd::ObjectFilter const filter : {all, listed, none})
        for (unsigned const indent : {0u, 3u})
            EXPECT_TRUE(zq::test::same_on_both_roads(c.make(), Large, Object, filter, indent));
    std::string outcome;
    try {
        outcome = write(c.make(), c.mode, String, c.filter);
    } catch (zd::ObjectNotSupportedException const& e) {
        std::string const filtered = "Objects of class \"" + e.getClassName() + "\" may not be written: ";
        if (e.what() == by_reference)
            outcome = "by reference " + e.getClassName();
        else
            outcome = std::string_view(e.what()).starts_with(filtered) ? "refused " + e.getClassName() : e.what();
    } catch (std::exception const& e) {
        outcome = (typeid(e) == typeid(std::runtime_error) ? "failed " : "threw ") + std::string(e.what());
    }
    EXPECT_EQ(outcome, c.outcome);
}

std::string const too_few = "failed Must have at least two dimensions";
std::string const too_deep = "threw Arrays nested deeper than 1000 levels cannot be written";
std::string const no_property = "failed Value not specified for the property";
std::string const mixed_class = "zorbal.mixin.Heterogeneous";

// A scalar inside cells as deep as the writers go, so that an object around it is one level too many.
zd::Array deepest_cells()
{
    zd::Array nested = scalar(1);
    for (int level = 1; level < 1000; ++level)
        nested = cell({1, 1}, {nested});
    return nested;
}

// Each property value is written under the same mode as the array that holds it. Only a list leaves out
// what it cannot write; the class filter comes before the dimensions, and a handle's fitness before the
// filter. A class refused inside a property follows the rules of a failing property.
static WriteCase const cases[] = {
    {"ListLarge", pair_of_objects,
        R"({"zqdata":[{"p":{"zqdata":[1],"zqsize":[1,1],"zqtype":"double"}},{"p":{"zqdata":[2],"zqsize":[1,1],"zqtype":"double"}}],"zqsize":[1,2],"zqtype":"pkg.Cls"})",
        Large},
    {"ListSmall", pair_of_objects, R"({"zqdata":[{"p":1},{"p":2}],"zqsize":[1,2],"zqtype":"pkg.Cls"})"},
    {"PropertiesByNameWithTheirOwnForms",
        [] { return zd::Array(objects({1, 1}, "pkg.Cls", {{{"q", charRow(u"ab")}, {"p", numbers<std::int8_t>({1, 1}, {5})}}})); },
        R"({"zqdata":[{"p":{"zqdata":[5i],"zqsize":[1,1],"zqtype":"int8"},"q":"ab"}],"zqsize":[1,1],"zqtype":"pkg.Cls"})"},
    {"EmptyList", [] { return zd::Array(objects({0, 0}, "pkg.Cls", {})); },
        R"({"zqdata":[],"zqsize":[0,0],"zqtype":"pkg.Cls"})", Large},
    {"ListIgnoresArrayProperties",
        [] { return changed(one_of("pkg.Cls"), [](auto& a) { a.addArrayProperty(zd::ZorbalPropertyIdentifier("r"), one, true); }); },
        R"({"zqdata":[{"p":1}],"zqsize":[1,1],"zqtype":"pkg.Cls"})"},
    {"ObjectAsProperty", [] { return zd::Array(objects({1, 1}, "pkg.Out", {{{"in", one_of("pkg.In")}}})); },
        R"({"zqdata":[{"in":{"zqdata":[{"p":1}],"zqsize":[1,1],"zqtype":"pkg.In"}}],"zqsize":[1,1],"zqtype":"pkg.Out"})"},
    {"MixedLarge", pair_of_classes,
        R"({"zqdata":[{"p":{"zqdata":[1],"zqsize":[1,1],"zqtype":"double"},"zqtype":"pkg.A"},)"
        R"({"q":{"zqdata":["x"],"zqsize":[1,1],"zqtype":"char"},"zqtype":"pkg.B"}],"zqsize":[1,2],"zqtype":"zorbal.mixin.Heterogeneous"})",
        Large},
    {"MixedSmall", pair_of_classes,
        R"({"zqdata":[{"p":1,"zqtype":"pkg.A"},{"q":"x","zqtype":"pkg.B"}],"zqsize":[1,2],"zqtype":"zorbal.mixin.Heterogeneous"})"},
    {"MixedPropertyNamedLikeTheClassKey",
        [] { return zd::Array(mixed({1, 1}, {object("pkg.A", {{"zqtype", charRow(u"fake")}})})); },
        R"({"zqdata":[{"zqtype":"fake"}],"zqsize":[1,1],"zqtype":"zorbal.mixin.Heterogeneous"})"},
    {"ElementOfAnotherClassMakesItMixed",
        [] { return changed(objects({1, 2}, "pkg.A", {{{"p", one}}, {{"p", one}}}), [](auto& a) { a[1] = object("pkg.B", {{"q", one}}); }); },
        R"({"zqdata":[{"p":1,"zqtype":"pkg.A"},{"q":1,"zqtype":"pkg.B"}],"zqsize":[1,2],"zqtype":"zorbal.mixin.Heterogeneous"})"},
    {"StandingForLarge", standing_for_four,
        R"({"zqdata":{"p":{"zqdata":[1,2,3,4],"zqsize":[2,2],"zqtype":"double"}},)"
        R"("zqmetadata":{"r":{"zqdata":["abc"],"zqsize":[1,3],"zqtype":"char"}},"zqsize":[2,2],"zqtype":"pkg.Cls"})",
        Large},
    {"StandingForSmall", standing_for_four,
        R"({"zqdata":{"p":[[1,3],[2,4]]},"zqmetadata":{"r":"abc"},"zqsize":[2,2],"zqtype":"pkg.Cls"})"},
    // No property is counted against the external dimensions.
    {"StandingForWithoutArrayProperties", [] { return zd::Array(standing_for({3, 2}, "pkg.Cls", {{"p", scalar(1)}}, {})); },
        R"({"zqdata":{"p":1},"zqsize":[3,2],"zqtype":"pkg.Cls"})"},
    {"StandingForOne", [] { return zd::Array(standing_for({1, 1}, "pkg.Cls", {}, {})); },
        R"({"zqdata":{},"zqsize":[1,1],"zqtype":"pkg.Cls"})"},
    {"StandingForWithMixedClass", [] { return changed(mixed_holding(one), [](auto& a) { a.setExternalDimensions({2, 2}); }); },
        R"({"zqdata":{"p":1},"zqsize":[2,2],"zqtype":"zorbal.mixin.Heterogeneous"})"},
    {"ExternalDimensionsOfTwoElementsIgnored",
        [] { return changed(pair_of_objects(), [](auto& a) { a.setExternalDimensions({2, 2}); }); },
        R"({"zqdata":[{"p":1},{"p":2}],"zqsize":[1,2],"zqtype":"pkg.Cls"})"},
    {"HandleLarge", one_handle,
        R"({"zqdata":[{"p":{"zqdata":[1],"zqsize":[1,1],"zqtype":"double"}}],"zqsize":[1,1],"zqtype":"pkg.H"})", Large},
    {"HandleSmall", one_handle, R"({"zqdata":[{"p":1}],"zqsize":[1,1],"zqtype":"pkg.H"})"},
    {"HandlesNamedByTheFirst",
        [] { return handles({1, 2}, {handle(1, "pkg.A", {{"p", scalar(1)}}), handle(2, "pkg.B", {{"q", scalar(2)}})}); },
        R"({"zqdata":[{"p":1},{"q":2}],"zqsize":[1,2],"zqtype":"pkg.A"})"},
    {"SameHandleTwice", [] { auto const same = handle(7, "pkg.H", {{"p", scalar(1)}}); return handles({2, 1}, {same, same}); },
        R"({"zqdata":[{"p":1},{"p":1}],"zqsize":[2,1],"zqtype":"pkg.H"})"},
    {"NoHandles", [] { return handles({0, 0}, {}); }, R"({"zqdata":[],"zqsize":[0,0],"zqtype":""})", Large},
    {"NoHandlesWithAZero", [] { return handles({0, 3}, {}); }, R"({"zqdata":[],"zqsize":[0,3],"zqtype":""})"},
    {"ListLeavesOutUnwritableProperties",
        [] {
            return zd::Array(objects({1, 2}, "pkg.Cls",
                {{{"p", unwritable()}, {"q", scalar(1)}}, {{"p", scalar(2)}, {"q", null_handle()}}}));
        },
        R"({"zqdata":[{"q":1},{"p":2}],"zqsize":[1,2],"zqtype":"pkg.Cls"})"},
    // Neither leaving a property out nor replacing its failure may cut a deep array short.
    {"ListRefusesTooDeep", [] { return zd::Array(objects({1, 1}, "pkg.Cls", {{{"p", deepest_cells()}}})); }, too_deep},
    {"StandingForRefusesTooDeep", [] { return standing_for_holding(deepest_cells(), scalar(1)); }, too_deep},
    {"MixedPassesPropertyFailureOn", [] { return mixed_holding(unwritable()); }, too_few},
    {"MixedPassesNestedHandleFailureOn", [] { return mixed_holding(null_handle()); }, "by reference "},
    {"HandlePassesPropertyFailureOn", [] { return handle_holding(unwritable()); }, too_few},
    {"StandingForReplacesPropertyFailure", [] { return standing_for_holding(null_handle(), scalar(1)); }, no_property},
    {"StandingForReplacesArrayPropertyFailure", [] { return standing_for_holding(scalar(1), unwritable()); },
        "failed Value not specified for the array property"},
    {"ListOfOneDimension", [] { return zd::Array(objects({2}, "pkg.Cls", {{}, {}})); }, too_few},
    {"ExternalDimensionsOfOne", [] { return zd::Array(standing_for({4}, "pkg.Cls", {}, {})); }, too_few},
    {"HandlesOfOneDimension", [] { return handles({1}, {handle(1, "pkg.H", {})}); }, too_few},
    {"FilterBeforeDimensions", [] { return zd::Array(objects({2}, "pkg.Cls", {{}, {}})); }, "refused pkg.Cls", Small, none},
    {"FilterBeforeHandleDimensions", [] { return handles({1}, {handle(1, "pkg.Cls", {})}); }, "refused pkg.Cls", Small,
        none},
    {"NullHandle", null_handle, "by reference "},
    {"HandleWithoutValue", [] { return handles({1, 1}, {zq::test::writer::factory.createHandleObjectRef(zd::KVXID(), 1)}); },
        "by reference "},
    {"HandleFitnessBeforeFilter", null_handle, "by reference ", Small, none},
    // Only the first handle is asked whether it may be written by value.
    {"LaterNullHandle", [] { return handles({1, 2}, {handle(1, "pkg.H", {})}); }, "threw The null handle has no value."},
    {"FilterListed", [] { return one_of("pkg.Cls"); }, R"({"zqdata":[{"p":1}],"zqsize":[1,1],"zqtype":"pkg.Cls"})", Small,
        listed, {"pkg.Cls"}},
    {"FilterNotListed", [] { return one_of("pkg.Cls"); }, "refused pkg.Cls", Small, listed, {"pkg.Other"}},
    {"FilterEmptyList", [] { return one_of("pkg.Cls"); }, "refused pkg.Cls", Small, listed},
    {"FilterDenyAll", [] { return one_of("pkg.Cls"); }, "refused pkg.Cls", Small, none, {"pkg.Cls"}},
    {"FilterStandingFor", standing_for_four, "refused pkg.Cls", Small, listed},
    {"FilterMixedByArrayClass", pair_of_classes, "refused zorbal.mixin.Heterogeneous", Small, listed, {"pkg.A", "pkg.B"}},
    {"FilterMixedElementsUnchecked", pair_of_classes,
        R"({"zqdata":[{"p":1,"zqtype":"pkg.A"},{"q":"x","zqtype":"pkg.B"}],"zqsize":[1,2],"zqtype":"zorbal.mixin.Heterogeneous"})",
        Small, listed, {mixed_class}},
    {"FilterHandles", one_handle, R"({"zqdata":[{"p":1}],"zqsize":[1,1],"zqtype":"pkg.H"})", Small, listed, {"pkg.H"}},
    {"FilterHandlesNotListed", one_handle, "refused pkg.H", Small, listed},
    {"FilterNoHandlesAskAboutEmptyName", [] { return handles({0, 0}, {}); }, "refused ", Small, listed},
    {"FilterNoHandlesListed", [] { return handles({0, 0}, {}); }, R"({"zqdata":[],"zqsize":[0,0],"zqtype":""})", Small,
        listed, {""}},
    {"FilterNoHandlesDenyAll", [] { return handles({0, 0}, {}); }, "refused ", Small, none},
    {"FilterInsideCell", [] { return cell({1, 1}, {one_of("pkg.Cls")}); }, "refused pkg.Cls", Small, listed},
    {"FilterInsideList",
        [] { return zd::Array(objects({1, 1}, "pkg.Out", {{{"p", one_of("pkg.In")}, {"q", scalar(1)}}})); },
        R"({"zqdata":[{"q":1}],"zqsize":[1,1],"zqtype":"pkg.Out"})", Small, listed, {"pkg.Out"}},
    {"FilterInsideMixed", [] { return mixed_holding(one_of("pkg.In")); }, "refused pkg.In", Small, listed, {mixed_class}},
    {"FilterInsideStandingFor", [] { return standing_for_holding(one_of("pkg.In"), scalar(1)); }, no_property, Small,
        listed, {"pkg.Cls"}},
    {"FilterLeavesEnumerations", [] { return zq::test::writer::enums({1, 1}, "pkg.Color", {"red"}); },
        R"({"zqdata":["red"],"zqsize":[1,1],"zqtype":"pkg.Color"})", Small, none},
};
INSTANTIATE_TEST_SUITE_P(Arrays, ObjectWriter, ::testing::ValuesIn(cases),
    [](auto const& info) { return std::string(info.param.name); });

// A host's handle that travels by reference only.
class ReferenceOnlyHandle final : public zd::HandleObjectImpl {
public:
    ReferenceOnlyHandle() : HandleObjectImpl(zd::KVXID(), 7) { }
    std::string get_class_name() const override { return "host.Window"; }
    zd::Array get_value() const override { return zd::Array(); }
    void set_value(zd::Array, int) override { }
    bool is_serializable_by_value() const override { return false; }
};

// Every refusal of a handle carries one text; the classes of the exceptions are pinned here.
TEST(HandleWriter, RefusalsNameTheClass)
{
    EXPECT_THROW_WHAT(write(null_handle(), Small), zd::ObjectNotSupportedException, by_reference);
    EXPECT_THROW_WHAT(write(handles({1, 2}, {handle(1, "pkg.H", {})}), Small), zd::EMissingValue,
        "The null handle has no value.");
    EXPECT_THROW_WHAT(write(one_of("pkg.Cls"), Small, String, none), zd::ObjectNotSupportedException,
        R"(Objects of class "pkg.Cls" may not be written: the object type filter allows no class.)");
    try {
        write(handles({1, 1}, {zd::HandleObjectRef(new ReferenceOnlyHandle)}), Small);
        ADD_FAILURE() << "a handle that travels by reference was written";
    } catch (zd::ObjectNotSupportedException const& e) {
        EXPECT_EQ(e.what(), by_reference);
        EXPECT_EQ(e.getClassName(), "host.Window");
    }
}

} // namespace
