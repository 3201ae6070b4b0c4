// Generated arrays of every kind, written through the tree and straight to text under all twelve
// variants, compact and indented: the two roads must give the same bytes or fail alike.
#include "object_test_support.hpp"
#include "writer_test_support.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace zq::test::writer;
namespace objects = zq::test::objects;
using Double = std::numeric_limits<double>;

class ArrayGenerator {
public:
    explicit ArrayGenerator(unsigned seed) : random_(seed) {}

    zd::Array any(int depth)
    {
        switch (pick(depth > 0 ? 14 : 10)) {
        case 0: return dense<double>(&ArrayGenerator::a_double);
        case 1: return dense<float>([](ArrayGenerator& g) { return static_cast<float>(g.a_double()); });
        case 2: return dense<unsigned long long>(&ArrayGenerator::an_integer<unsigned long long>);
        case 3: return dense<std::int8_t>(&ArrayGenerator::an_integer<std::int8_t>);
        case 4: return dense<bool>([](ArrayGenerator& g) { return g.pick(2) == 1; });
        case 5: return dense<std::complex<double>>([](ArrayGenerator& g) { return std::complex(g.a_double(), g.a_double()); });
        case 6: {
            Dims dims = shape();
            std::u16string units;
            while (units.size() < count(dims))
                units += text() + u"x";
            return chars(std::move(dims), units.substr(0, count(dims)));
        }
        case 7: return dense<Text>([](ArrayGenerator& g) { return g.pick(4) == 0 ? Text() : Text(g.text()); });
        case 8: {
            Entries<double> entries;
            for (unsigned long i = 0, n = pick(3); i < n; ++i)
                entries.emplace_back(i, (i * 2) % 3, a_double());
            return sparse<double>({3, 3}, entries);
        }
        case 9: return dense<zd::Array>([depth](ArrayGenerator& g) { return g.any(depth - 1); });
        case 10: return struct_of(depth);
        case 11: {
            objects::Properties const first = properties(depth);
            std::vector<objects::Properties> elements(pick(3), first);
            for (auto& element : elements)
                for (auto& property : element)
                    property.second = any(depth - 1);
            return objects::objects({1, elements.size()}, a_class(), elements);
        }
        case 12: {
            std::vector<zd::ValueObject> elements;
            for (unsigned n = 1 + pick(2); n > 0; --n)
                elements.push_back(objects::object(a_class(), properties(depth)));
            return objects::mixed({1, elements.size()}, elements);
        }
        default: {
            std::vector<zd::HandleObjectRef> elements;
            for (unsigned n = pick(3); n > 0; --n)
                elements.push_back(objects::handle(next_id_++, a_class(), properties(depth)));
            return objects::handles({1, elements.size()}, elements);
        }
        }
    }

private:
    unsigned pick(unsigned n) { return std::uniform_int_distribution<unsigned>(0, n - 1)(random_); }

    static unsigned long count(Dims const& dims)
    {
        return std::accumulate(dims.begin(), dims.end(), 1UL, std::multiplies<>());
    }

    Dims shape()
    {
        static Dims const shapes[] = {{1, 1}, {0, 0}, {1, 0}, {1, 3}, {3, 1}, {2, 3}, {2, 2, 2}, {1, 1, 1}};
        return shapes[pick(std::size(shapes))];
    }

    double a_double()
    {
        static double const specials[] = {0.0, -0.0, 1e300, -1e-300, 100000.0, 0x1p53, 0x1p53 + 2, 3.5,
            Double::quiet_NaN(), Double::infinity(), -Double::infinity(), Double::denorm_min(), 0.1,
            static_cast<double>(std::numeric_limits<float>::max())};
        if (pick(2) == 0)
            return specials[pick(std::size(specials))];
        return std::ldexp(std::uniform_real_distribution<double>(-1, 1)(random_), static_cast<int>(pick(140)) - 70);
    }

    template <typename T>
    T an_integer()
    {
        switch (pick(4)) {
        case 0: return std::numeric_limits<T>::min();
        case 1: return std::numeric_limits<T>::max();
        default: return static_cast<T>(random_());
        }
    }

    // An array of T of a random shape, each element made by make.
    template <typename T, typename Make>
    zd::Array dense(Make make)
    {
        zd::Array array = factory.createArray(zd::detail::ElementType<T>::value, shape());
        for (auto&& element : zd::getWritableElements<T>(array))
            element = std::invoke(make, *this);
        return array;
    }

    std::u16string text()
    {
        static std::u16string const pieces[] = {u"abc", u"\"", u"\\", u"\n\t\x01\x1f", u"\x7f", u"é", u"€",
            u"\U0001F600", std::u16string(1, char16_t(0xD800)), std::u16string(1, char16_t(0xDC00)), u"/", u""};
        std::u16string result;
        for (unsigned n = pick(4); n > 0; --n)
            result += pieces[pick(std::size(pieces))];
        return result;
    }

    // Field and property names out of byte order, and names that sort before and after the reserved keys.
    objects::Properties properties(int depth)
    {
        static char const* const names[] = {"b", "a", "zqtype", "Z", "a_b", "B1", "zz", "q"};
        objects::Properties result;
        for (unsigned n = pick(4); n > 0; --n) {
            std::string const name = names[pick(std::size(names))];
            if (std::none_of(result.begin(), result.end(), [&](auto const& p) { return p.first == name; }))
                result.emplace_back(name, any(depth - 1));
        }
        return result;
    }

    zd::Array struct_of(int depth)
    {
        Dims const dims = shape();
        std::vector<std::pair<std::string, std::vector<zd::Array>>> fields;
        for (auto& [field, value] : properties(depth)) {
            std::vector<zd::Array> values;
            while (values.size() < count(dims))
                values.push_back(values.empty() ? value : any(depth - 1));
            fields.emplace_back(field, std::move(values));
        }
        return structs(dims, fields);
    }

    // Classes are declared once for the process, each with its properties, so every array has its own.
    std::string a_class() { return "pkg.C" + std::to_string(next_id_++); }

    std::mt19937 random_;
    long long next_id_ = 1;
};

TEST(WritingRoads, GeneratedArraysGiveTheSameBytesOnBothRoads)
{
    using zd::ObjectFilter;
    ArrayGenerator generator(20261125);
    for (int i = 0; i < 400; ++i) {
        zd::Array const array = generator.any(3);
        SCOPED_TRACE(i);
        for (ToJsonMode const mode : {ToJsonMode::Large, ToJsonMode::Small})
            for (NanType const nan : {NanType::String, NanType::Object})
                for (ObjectFilter const filter : {ObjectFilter::AllowAll, ObjectFilter::AllowListed, ObjectFilter::DenyAll})
                    for (unsigned const indent : {0u, 2u})
                        ASSERT_TRUE(zq::test::same_on_both_roads(array, mode, nan, filter, indent));
    }
}

} // namespace
