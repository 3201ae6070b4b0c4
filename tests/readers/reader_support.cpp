// What the reader tests share.
#include "reader_support.hpp"

#include <foundation/zorbaldata/json/json_to_zorbaldata.hpp>
#include "reading_paths.hpp"


#include <bit>
#include <utility>

namespace zq::test {

zd::Array read(std::string const& json)
{
    return read_both_ways(json);
}

zd::Array read_tree(fj::Value const& value)
{
    zd::ArrayFactory factory;
    return zd::json::json_to_zorbaldata(value, factory);
}

fj::Value large_form(
    std::string const& type, std::vector<double> const& size, fj::Value data, fj::Object further)
{
    fj::Array extents(size.begin(), size.end());
    further["zqtype"] = fj::Value(type);
    further["zqsize"] = fj::Value(std::move(extents));
    further["zqdata"] = std::move(data);
    return fj::Value(std::move(further));
}

std::vector<std::uint64_t> bits_of(std::vector<double> const& values)
{
    std::vector<std::uint64_t> bits;
    for (double value : values)
        bits.push_back(std::bit_cast<std::uint64_t>(value));
    return bits;
}

double signed_nan()
{
    return std::bit_cast<double>(0xFFF8000000000000ULL);
}

void expect_array(ArrayCase const& c)
{
    SCOPED_TRACE(c.json);
    zd::Array const array = read(c.json);
    EXPECT_EQ(array.getDimensions(), c.dims);
    EXPECT_EQ(bits_of(c.elements(array)), bits_of(c.expected));
}

} // namespace zq::test
