// What the round-trip tests share.
#include "roundtrip_support.hpp"

#include <foundation/zorbaldata/json/json_to_zorbaldata.hpp>

#include <algorithm>
#include <bit>
#include <cmath>
#include <type_traits>

namespace zq::test::roundtrip {

namespace {

std::uint64_t bits(double value, bool as_read)
{
    return as_read && std::isnan(value) ? 0xFFF8000000000000 : std::bit_cast<std::uint64_t>(value);
}

std::uint64_t bits(float value, bool as_read)
{
    return as_read && std::isnan(value) ? 0xFFC00000 : std::bit_cast<std::uint32_t>(value);
}

template <typename Range>
void append(Range const& values, bool as_read, std::vector<std::uint64_t>& out)
{
    for (auto const& value : values) {
        if constexpr (zd::detail::isComplex<std::remove_cvref_t<decltype(value)>>) {
            out.push_back(bits(value.real(), as_read));
            out.push_back(bits(value.imag(), as_read));
        } else {
            out.push_back(bits(value, as_read));
        }
    }
}

void collect(zd::Array const& array, bool as_read, std::vector<std::uint64_t>& out)
{
    using enum zd::ArrayType;
    using ComplexDouble = std::complex<double>;
    using ComplexSingle = std::complex<float>;
    switch (array.getType()) {
    case DOUBLE: return append(zd::getReadOnlyElements<double>(array), as_read, out);
    case SINGLE: return append(zd::getReadOnlyElements<float>(array), as_read, out);
    case COMPLEX_DOUBLE: return append(zd::getReadOnlyElements<ComplexDouble>(array), as_read, out);
    case COMPLEX_SINGLE: return append(zd::getReadOnlyElements<ComplexSingle>(array), as_read, out);
    case SPARSE_DOUBLE: return append(zd::SparseArray<double>(array), as_read, out);
    case SPARSE_SINGLE: return append(zd::SparseArray<float>(array), as_read, out);
    case SPARSE_COMPLEX_DOUBLE: return append(zd::SparseArray<ComplexDouble>(array), as_read, out);
    case SPARSE_COMPLEX_SINGLE: return append(zd::SparseArray<ComplexSingle>(array), as_read, out);
    case CELL:
        for (zd::Array const element : zd::getReadOnlyElements<zd::Array>(array))
            collect(element, as_read, out);
        return;
    case STRUCT: {
        // The readers give the fields in byte order of their names, whatever order they were made in.
        std::vector<std::string> names;
        for (zd::ZorbalFieldIdentifier const& name : zd::StructArray(array).getFieldNames())
            names.push_back(name.getString());
        std::sort(names.begin(), names.end());
        for (std::string const& name : names)
            for (auto const element : zd::getReadOnlyElements<zd::StructElement>(array))
                collect(element[name], as_read, out);
        return;
    }
    default: return;
    }
}

} // namespace

std::string describe(Setting setting)
{
    return std::string(setting.mode == ToJsonMode::Large ? "Large" : "Small") + ", NanType "
        + (setting.nan == NanType::String ? "String" : "Object");
}

std::string text_of(zd::Array const& array, Setting setting)
{
    EXPECT_TRUE(same_on_both_roads(array, setting.mode, setting.nan, zd::ObjectFilter::AllowAll));
    return zd::json::zorbaldata_to_string(array, setting.mode, setting.nan, zd::ObjectFilter::AllowAll);
}

zd::Array written_and_read(zd::Array const& array, Setting setting, Path path)
{
    if (path == Path::Text)
        return read_both_ways(text_of(array, setting));
    zd::ArrayFactory factory;
    return zd::json::json_to_zorbaldata(
        zd::json::zorbaldata_to_json(array, setting.mode, setting.nan, zd::ObjectFilter::AllowAll), factory);
}

std::vector<std::uint64_t> floating_bits(zd::Array const& array, bool as_read)
{
    std::vector<std::uint64_t> out;
    collect(array, as_read, out);
    return out;
}

void expect_same(zd::Array const& back, zd::Array const& expected)
{
    EXPECT_EQ(back.getType(), expected.getType());
    EXPECT_EQ(back.getDimensions(), expected.getDimensions());
    EXPECT_TRUE(back == expected);
    EXPECT_EQ(floating_bits(back), floating_bits(expected, true));
}

} // namespace zq::test::roundtrip
