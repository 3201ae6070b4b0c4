// What the reader tests share.
#include "reader_support.hpp"

#include <foundation/zorbaldata/json/json_to_zorbaldata.hpp>

#include <bit>

namespace zq::test {

zd::Array read_tree(fj::Value const& value)
{
    zd::ArrayFactory factory;
    return zd::json::json_to_zorbaldata(value, factory);
}

std::string lf(char const* type, char const* size, std::string const& data, char const* more)
{
    return std::string(R"({"zqtype":")") + type + R"(","zqsize":)" + size + more + R"(,"zqdata":)" + data
        + "}";
}

fj::Value large_form(
    std::string const& type, std::vector<double> const& size, fj::Value data, fj::Object further)
{
    further["zqtype"] = fj::Value(type);
    further["zqsize"] = fj::Value(fj::Array(size.begin(), size.end()));
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

TEST_P(ReadsArray, WithItsDimensionsAndElements)
{
    SCOPED_TRACE(GetParam().json);
    zd::Array const array = read(GetParam().json);
    EXPECT_EQ(array.getDimensions(), GetParam().dims);
    EXPECT_EQ(bits_of(GetParam().elements(array)), bits_of(GetParam().expected));
}

TEST_P(FailsFirst, WithTheFirstFault)
{
    GetParam().expect(GetParam().json, GetParam().text);
}

} // namespace zq::test
