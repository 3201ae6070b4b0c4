// The backend's array builders: placement, counts, and which failure comes first.
#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include "expect_throw.hpp"

#include <foundation/zorbaldata.hpp>
#include <frontend/detail/parse_error.hpp>

#include <string>
#include <vector>

namespace {

namespace zd = foundation::zorbaldata;
using foundation::zorbaldata::json::detail::to_zorbaldata_visitor;
using Dims = std::vector<unsigned long>;

std::string const mismatch = R"(Data size does not match "zqsize" specified.)";

TEST(ToZorbaldataVisitor, DataFillStorageOrder)
{
    zd::ArrayFactory factory;
    to_zorbaldata_visitor backend(factory);
    zd::TypedArray<double> const doubles(backend.create_double_array({2, 3}, {1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(doubles.getDimensions(), (Dims{2, 3}));
    EXPECT_EQ(std::vector<double>(doubles.begin(), doubles.end()), (std::vector<double>{1, 2, 3, 4, 5, 6}));
}

TEST(ToZorbaldataVisitor, ScalarsAreOneByOne)
{
    zd::ArrayFactory factory;
    to_zorbaldata_visitor backend(factory);
    zd::Array const number = backend.create_scalar(-2.5);
    EXPECT_EQ(number, factory.createScalar(-2.5));
    EXPECT_EQ(backend.create_scalar(true), factory.createScalar(true));
    EXPECT_EQ(backend.create_scalar(false), factory.createScalar(false));
}

TEST(ToZorbaldataVisitor, RefusesTooFewAndTooManyData)
{
    zd::ArrayFactory factory;
    to_zorbaldata_visitor backend(factory);
    EXPECT_THROW_WHAT(backend.create_double_array({2, 2}, {1, 2, 3}), foundation::zorbaljson::MismatchedZQSize,
        mismatch);
    EXPECT_THROW_WHAT(backend.create_double_array({2, 2}, {1, 2, 3, 4, 5}),
        foundation::zorbaljson::MismatchedZQSize, mismatch);
}

// The array is made first: a size that cannot be had is reported before the count of the data.
TEST(ToZorbaldataVisitor, HugeSizeFailsAtTheFactoryBeforeTheCount)
{
    zd::ArrayFactory factory;
    to_zorbaldata_visitor backend(factory);
    EXPECT_THROW(backend.create_double_array({4294967296UL, 4294967296UL}, {}), zd::EArrayTooLarge);
}

TEST(ToZorbaldataVisitor, HandleTableStartsEmpty)
{
    zd::ArrayFactory factory;
    to_zorbaldata_visitor backend(factory);
    EXPECT_TRUE(backend.handle_table().empty());
    EXPECT_EQ(&backend.factory(), &factory);
}

} // namespace
