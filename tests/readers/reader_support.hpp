// What the reader tests share: reading JSON text, element values as exact bits, and table rows.
#pragma once

#include "expect_throw.hpp"
#include "reading_paths.hpp"

#include <foundation/json/value.hpp>
#include <foundation/zorbaldata.hpp>
#include <frontend/detail/parse_error.hpp>

#include <bit>
#include <cstdint>

namespace zq::test {

namespace zd = foundation::zorbaldata;
namespace fj = foundation::json;
namespace zj = foundation::zorbaljson;
using namespace foundation::zorbaljson; // the exception classes of the rows
using Dims = std::vector<unsigned long>;

inline double const inf = std::numeric_limits<double>::infinity();

// The array that the JSON text describes, read by both roads.
inline zd::Array read(std::string const& json) { return read_both_ways(json); }

// The array of a value tree, for trees that JSON text cannot express.
zd::Array read_tree(fj::Value const& value);

// A large form as text: {"zqtype":"<type>","zqsize":size<more>,"zqdata":data}.
std::string lf(char const* type, char const* size, std::string const& data, char const* more = "");

// A large form as a tree: {"zqtype":type,"zqsize":size,"zqdata":data} and further members.
fj::Value large_form(
    std::string const& type, std::vector<double> const& size, fj::Value data, fj::Object further = {});

// The bit patterns of the values, so that comparisons tell NaN signs and -0.0 apart.
std::vector<std::uint64_t> bits_of(std::vector<double> const& values);

// Double quiet NaN with the sign bit set, as the notation's "NaN" reads.
inline double signed_nan() { return std::bit_cast<double>(0xFFF8000000000000ULL); }

// The elements of an array of T in storage order, widened to double, complex ones as real part then
// imaginary part; reading them as T fails for an array of another type.
template <typename T>
std::vector<double> as(zd::Array const& array)
{
    std::vector<double> values;
    for (T const& element : zd::getReadOnlyElements<T>(array)) {
        if constexpr (zd::detail::isComplex<T>) {
            values.push_back(static_cast<double>(element.real()));
            values.push_back(static_cast<double>(element.imag()));
        } else {
            values.push_back(static_cast<double>(element));
        }
    }
    return values;
}

// A row of a table of arrays read successfully, checked for dimensions and elements bit for bit: the
// element type is that of as.
struct ArrayCase {
    char const* name;
    std::string json;
    std::vector<double> (*elements)(zd::Array const&);
    Dims dims;
    std::vector<double> expected;
};
class ReadsArray : public ::testing::TestWithParam<ArrayCase> { };

// A row of a failure table: the JSON text, and the class and exact text it must fail with.
struct FailureCase {
    char const* name;
    std::string json;
    void (*expect)(std::string const& json, std::string const& text);
    std::string text;
};
class FailsFirst : public ::testing::TestWithParam<FailureCase> { };

template <typename E>
void fails_with(std::string const& json, std::string const& text)
{
    SCOPED_TRACE(json);
    EXPECT_THROW_WHAT(read(json), E, text);
}

inline std::string const mismatched_size = R"(Data size does not match "zqsize" specified.)";

// A row that fails for a count of elements that does not match the size.
inline FailureCase size_mismatch(char const* name, std::string json)
{
    return {name, std::move(json), fails_with<zj::MismatchedZQSize>, mismatched_size};
}

// The name of a table row, for the test's name.
template <typename Row>
std::string row_name(::testing::TestParamInfo<Row> const& info) { return info.param.name; }

inline std::string const floating_choices
    = R"(. Expected a number or one of the following:"NaN", "Inf", "-Inf", {"zqdata":"NaN"}, )"
      R"({"zqdata":"Inf"}, {"zqdata":"-Inf"})";

} // namespace zq::test
