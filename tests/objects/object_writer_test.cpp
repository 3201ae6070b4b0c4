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
using zq::test::writer::large;
using zq::test::writer::nested_cells;
using zq::test::writer::numbers;
using zq::test::writer::scalar;
using zq::test::writer::write;
using enum zq::test::writer::ToJsonMode;
using enum zq::test::writer::NanType;

std::string const mixed_class = "zorbal.mixin.Heterogeneous";
zd::Array const one = scalar(1);
zd::Array const two = scalar(2);

zd::Array list(Dims dims, std::vector<Properties> const& e) { return objects(dims, "pkg.Cls", e); }

zd::Array pair_of_objects() { return list({1, 2}, {{{"p", one}}, {{"p", two}}}); }
zd::Array one_handle() { return handles({1, 1}, {handle(17, "pkg.H", {{"p", one}})}); }
// A property that no writer can write: arrays of one dimension are refused.
zd::Array unwritable() { return doubles({3}, {1, 2, 3}); }
// A handle array whose one handle may not be written by value.
zd::Array null_handle() { return handles({1, 1}, {}); }
zd::Array no_handles() { return handles({0, 0}, {}); }
zd::Array one_of(std::string const& class_name) { return objects({1, 1}, class_name, {{{"p", one}}}); }
zd::Array mixed_holding(zd::Array const& value) { return mixed({1, 1}, {object("pkg.A", {{"p", value}})}); }
zd::Array standing_for_holding(zd::Array const& value, zd::Array const& array_value)
{
    return standing_for({2, 2}, "pkg.Cls", {{"p", value}}, {{"r", array_value}});
}
zd::Array handle_holding(zd::Array const& v) { return handles({1, 1}, {handle(1, "pkg.H", {{"p", v}})}); }


using enum zd::ObjectFilter;
auto const all = AllowAll, listed = AllowListed, none = DenyAll;

std::string const by_reference = "Serializing handle object as reference is not supported for JSON.";
std::string const too_few = "failed Must have at least two dimensions";
std::string const too_deep = "threw Arrays nested deeper than 1000 levels cannot be written";
std::string const no_property = "failed Value not specified for the property";
// The large forms of a double and a char holding the text.
std::string dbl(char const* value) { return large("double", "[1,1]", std::string("[") + value + "]"); }
std::string chr(char const* text, char const* size)
{
    return large("char", size, std::string("[\"") + text + "\"]");
}
std::string cls(std::string const& size, std::string const& data) { return large("pkg.Cls", size, data); }
std::string mix(std::string const& size, std::string const& data) { return large(mixed_class, size, data); }
std::string const p1 = cls("[1,1]", R"([{"p":1}])");
std::string const h1 = large("pkg.H", "[1,1]", R"([{"p":1}])");
std::string const a1_bx = mix("[1,2]", R"([{"p":1,"zqtype":"pkg.A"},{"q":"x","zqtype":"pkg.B"}])");

// One array written under a mode with a filter and the classes allowed: the tagged text; or for a refusal
// "refused " (by the filter) or "by reference " and the class it names; or "failed " and the text of a
// std::runtime_error, "threw " and that of any other exception.
//
// Each property value is written under the same mode as the array that holds it. Only a list leaves out
// what it cannot write; the class filter comes before the dimensions, and a handle's fitness before the
// filter. A class refused inside a property follows the rules of a failing property.
TEST(ObjectWriter, Writes)
{
    zd::HandleObjectRef const same = handle(7, "pkg.H", {{"p", one}});
    zd::Array const pair_of_classes
        = mixed({1, 2}, {object("pkg.A", {{"p", one}}), object("pkg.B", {{"q", charRow(u"x")}})});
    zd::Array const standing_for_four
        = standing_for({2, 2}, "pkg.Cls", {{"p", doubles({2, 2}, {1, 2, 3, 4})}}, {{"r", charRow(u"abc")}});
    // Lists with array properties, with an element of another class, and with external dimensions.
    zd::ValueObjectArray with_array_property = one_of("pkg.Cls");
    zd::ValueObjectArray made_mixed = objects({1, 2}, "pkg.A", {{{"p", one}}, {{"p", one}}});
    with_array_property.addArrayProperty(zd::ZorbalPropertyIdentifier("r"), one, true);
    made_mixed[1] = object("pkg.B", {{"q", one}});
    zd::ValueObjectArray mixed_for_four = mixed_holding(one), pair_for_four = pair_of_objects();
    mixed_for_four.setExternalDimensions({2, 2});
    pair_for_four.setExternalDimensions({2, 2});
    struct {
        zd::Array array;
        std::string outcome;
        zq::test::writer::ToJsonMode mode = Small;
        zd::ObjectFilter filter = all;
        std::vector<std::string> allowed = {};
    } const cases[] = {
        {pair_of_objects(), cls("[1,2]", R"([{"p":)" + dbl("1") + R"(},{"p":)" + dbl("2") + "}]"), Large},
        {pair_of_objects(), cls("[1,2]", R"([{"p":1},{"p":2}])")},
        // Properties by name, each with its own form.
        {list({1, 1}, {{{"q", charRow(u"ab")}, {"p", numbers<std::int8_t>({1, 1}, {5})}}}),
            cls("[1,1]", R"([{"p":{"zqdata":[5i],"zqsize":[1,1],"zqtype":"int8"},"q":"ab"}])")},
        {list({0, 0}, {}), cls("[0,0]", "[]"), Large},
        // A list ignores array properties.
        {with_array_property, p1},
        {objects({1, 1}, "pkg.Out", {{{"in", one_of("pkg.In")}}}),
            large("pkg.Out", "[1,1]", R"([{"in":)" + large("pkg.In", "[1,1]", R"([{"p":1}])") + "}]")},
        {pair_of_classes,
            mix("[1,2]", R"([{"p":)" + dbl("1") + R"(,"zqtype":"pkg.A"},{"q":)" + chr("x", "[1,1]")
                    + R"(,"zqtype":"pkg.B"}])"), Large},
        {pair_of_classes, a1_bx},
        {mixed({1, 1}, {object("pkg.A", {{"zqtype", charRow(u"fake")}})}),
            mix("[1,1]", R"([{"zqtype":"fake"}])")},
        // An element of another class makes a list mixed.
        {made_mixed, mix("[1,2]", R"([{"p":1,"zqtype":"pkg.A"},{"q":1,"zqtype":"pkg.B"}])")},
        {standing_for_four,
            R"({"zqdata":{"p":{"zqdata":[1,2,3,4],"zqsize":[2,2],"zqtype":"double"}},"zqmetadata":{"r":)"
                + chr("abc", "[1,3]") + R"(},"zqsize":[2,2],"zqtype":"pkg.Cls"})", Large},
        {standing_for_four,
            R"({"zqdata":{"p":[[1,3],[2,4]]},"zqmetadata":{"r":"abc"},"zqsize":[2,2],"zqtype":"pkg.Cls"})"},
        // No property is counted against the external dimensions.
        {standing_for({3, 2}, "pkg.Cls", {{"p", one}}, {}), cls("[3,2]", R"({"p":1})")},
        {standing_for({1, 1}, "pkg.Cls", {}, {}), cls("[1,1]", "{}")},
        {mixed_for_four, mix("[2,2]", R"({"p":1})")},
        // The external dimensions of two elements are ignored.
        {pair_for_four, cls("[1,2]", R"([{"p":1},{"p":2}])")},
        {one_handle(), large("pkg.H", "[1,1]", R"([{"p":)" + dbl("1") + "}]"), Large}, {one_handle(), h1},
        // Handles are named by the first.
        {handles({1, 2}, {handle(1, "pkg.A", {{"p", one}}), handle(2, "pkg.B", {{"q", two}})}),
            large("pkg.A", "[1,2]", R"([{"p":1},{"q":2}])")},
        {handles({2, 1}, {same, same}), large("pkg.H", "[2,1]", R"([{"p":1},{"p":1}])")},
        {no_handles(), large("", "[0,0]", "[]"), Large}, {handles({0, 3}, {}), large("", "[0,3]", "[]")},
        // A list leaves out the properties it cannot write.
        {list({1, 2}, {{{"p", unwritable()}, {"q", one}}, {{"p", two}, {"q", null_handle()}}}),
            cls("[1,2]", R"([{"q":1},{"p":2}])")},
        // Neither leaving a property out nor replacing its failure may cut a deep array short: the cells
        // go as deep as the writers do, so an object around them is one level too many.
        {list({1, 1}, {{{"p", nested_cells(1000)}}}), too_deep},
        {standing_for_holding(nested_cells(1000), one), too_deep}, {mixed_holding(unwritable()), too_few},
        {mixed_holding(null_handle()), "by reference "}, {handle_holding(unwritable()), too_few},
        {standing_for_holding(null_handle(), one), no_property},
        {standing_for_holding(one, unwritable()), "failed Value not specified for the array property"},
        {list({2}, {{}, {}}), too_few}, {standing_for({4}, "pkg.Cls", {}, {}), too_few},
        {handles({1}, {handle(1, "pkg.H", {})}), too_few},
        {list({2}, {{}, {}}), "refused pkg.Cls", Small, none},
        {handles({1}, {handle(1, "pkg.Cls", {})}), "refused pkg.Cls", Small, none},
        {null_handle(), "by reference "},
        {handles({1, 1}, {zq::test::writer::factory.createHandleObjectRef(zd::KVXID(), 1)}), "by reference "},
        {null_handle(), "by reference ", Small, none},
        // Only the first handle is asked whether it may be written by value.
        {handles({1, 2}, {handle(1, "pkg.H", {})}), "threw The null handle has no value."},
        {one_of("pkg.Cls"), p1, Small, listed, {"pkg.Cls"}},
        {one_of("pkg.Cls"), "refused pkg.Cls", Small, listed, {"pkg.Other"}},
        {one_of("pkg.Cls"), "refused pkg.Cls", Small, listed},
        {one_of("pkg.Cls"), "refused pkg.Cls", Small, none, {"pkg.Cls"}},
        {standing_for_four, "refused pkg.Cls", Small, listed},
        // A mixed array is filtered by its own class, not by those of its elements.
        {pair_of_classes, "refused zorbal.mixin.Heterogeneous", Small, listed, {"pkg.A", "pkg.B"}},
        {pair_of_classes, a1_bx, Small, listed, {mixed_class}},
        {one_handle(), h1, Small, listed, {"pkg.H"}}, {one_handle(), "refused pkg.H", Small, listed},
        // No handles ask about the empty name.
        {no_handles(), "refused ", Small, listed},
        {no_handles(), large("", "[0,0]", "[]"), Small, listed, {""}},
        {no_handles(), "refused ", Small, none},
        {cell({1, 1}, {one_of("pkg.Cls")}), "refused pkg.Cls", Small, listed},
        {objects({1, 1}, "pkg.Out", {{{"p", one_of("pkg.In")}, {"q", one}}}),
            large("pkg.Out", "[1,1]", R"([{"q":1}])"), Small, listed, {"pkg.Out"}},
        {mixed_holding(one_of("pkg.In")), "refused pkg.In", Small, listed, {mixed_class}},
        {standing_for_holding(one_of("pkg.In"), one), no_property, Small, listed, {"pkg.Cls"}},
        {zq::test::writer::enums({1, 1}, "pkg.Color", {"red"}),
            large("pkg.Color", "[1,1]", R"(["red"])"), Small, none},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(::testing::Message() << "row " << &c - cases);
        // The list of allowed classes belongs to the process.
        zd::clearAllowedObjectClasses();
        for (std::string const& name : c.allowed)
            zd::allowObjectClass(name);
        // Whatever the filter and the indentation, the text written straight is the serialised tree.
        for (zd::ObjectFilter const filter : {all, listed, none})
            for (unsigned const indent : {0u, 3u})
                EXPECT_TRUE(zq::test::same_on_both_roads(c.array, Large, Object, filter, indent));
        std::string outcome;
        try {
            outcome = write(c.array, c.mode, String, c.filter);
        } catch (zd::ObjectNotSupportedException const& e) {
            std::string const filtered = "Objects of class \"" + e.getClassName() + "\" may not be written: ";
            bool const refused = std::string_view(e.what()).starts_with(filtered);
            outcome = e.what() == by_reference ? "by reference " + e.getClassName()
                : refused                      ? "refused " + e.getClassName()
                                               : e.what();
        } catch (std::exception const& e) {
            outcome
                = (typeid(e) == typeid(std::runtime_error) ? "failed " : "threw ") + std::string(e.what());
        }
        EXPECT_EQ(outcome, c.outcome);
    }
    zd::clearAllowedObjectClasses();
}

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
