// Cell arrays: arrays whose elements are arrays, nested to any depth.
#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace foundation::zorbaldata;

namespace {

ArrayFactory const factory;

} // namespace

TEST(CellArray, ElementsStartAsEmptyDoubles)
{
    TypedArray<Array> const cells = factory.createArray<Array>({2, 2});
    for (auto const element : cells)
        EXPECT_EQ(detail::getValue<Array>(element), Array());
}

TEST(CellArray, ElementsShareWhatIsStored)
{
    TypedArray<Array> cells = factory.createArray<Array>({1, 2});
    Array const text = factory.createCharArray(u"abc");
    cells[1] = text;
    Array const stored = std::as_const(cells)[1];
    EXPECT_EQ(stored, text);
    EXPECT_EQ(&*getReadOnlyElements<char16_t>(stored).begin(), &*getReadOnlyElements<char16_t>(text).begin());
}

TEST(CellArray, EqualityIsDeep)
{
    auto const nested = [](double inner) {
        TypedArray<Array> in = factory.createArray<Array>({1, 1});
        in[0] = factory.createScalar(inner);
        TypedArray<Array> out = factory.createArray<Array>({1, 2});
        out[0] = in;
        return out;
    };
    EXPECT_EQ(nested(1), nested(1));
    EXPECT_NE(nested(1), nested(2));
    double const nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(nested(nan), nested(-nan));
    EXPECT_EQ(factory.createScalar(0.0), factory.createScalar(-0.0));
    EXPECT_NE(factory.createScalar(1.0), factory.createScalar(1.0f));
    EXPECT_NE(factory.createArray<double>({1, 2}), factory.createArray<double>({2, 1}));
}
