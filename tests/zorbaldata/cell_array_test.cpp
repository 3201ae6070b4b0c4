// Cell arrays: arrays whose elements are arrays, nested to any depth.
#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <thread>

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

namespace {

// A scalar inside levels cells, each within the next.
Array nestedCells(int levels, double inner)
{
    Array nested = factory.createScalar(inner);
    for (int level = 0; level < levels; ++level) {
        TypedArray<Array> outer = factory.createArray<Array>({1, 1});
        outer[0] = std::move(nested);
        nested = std::move(outer);
    }
    return nested;
}

} // namespace

// Comparing and dropping arrays nested far deeper than a stack could recurse through.
TEST(CellArray, ComparesAndFreesDeeplyNestedCells)
{
    Array nested = nestedCells(300000, 1.0);
    EXPECT_TRUE(nested == nestedCells(300000, 1.0));
    EXPECT_FALSE(nested == nestedCells(300000, 2.0));
    nested = Array();
    EXPECT_EQ(nested.getNumberOfElements(), 0u);
}

// Arrays that outlive the thread's own bookkeeping, such as thread_local or static ones, are freed at
// exit after it; the sanitizers see any use of bookkeeping that is gone.
TEST(CellArray, FreesArraysAtThreadExit)
{
    std::thread([] {
        thread_local Array const held = nestedCells(3, 1.0);
        EXPECT_EQ(held.getType(), ArrayType::CELL);
        Array dropped = nestedCells(3, 2.0);
        dropped = Array();
    }).join();
}
