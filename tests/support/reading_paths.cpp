// The two roads from JSON text to an array, compared.
#include "reading_paths.hpp"

#include "reference_reader.hpp"

#include <foundation/json/parser.hpp>
#include <foundation/json/parser_exception.hpp>
#include <foundation/json/json_cast.hpp>
#include <foundation/json/traits.hpp>
#include <foundation/zorbaldata.hpp>
#include <foundation/zorbaldata/json/json_to_zorbaldata.hpp>
#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>
#include <foundation/zorbaldata/json/zorbaldata_to_json.hpp>
#include <foundation/zorbaljson/detail/json_frontend_logger.hpp>

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <complex>
#include <exception>
#include <map>
#include <optional>
#include <string_view>
#include <typeinfo>
#include <vector>

namespace zq::test {

namespace {

namespace zd = foundation::zorbaldata;
namespace fj = foundation::json;
using Logger = foundation::zorbaljson::detail::JSONFrontendLogger;

// What one road gave: an array or an exception, and the log lines on the way.
struct Outcome {
    std::optional<zd::Array> array;
    std::exception_ptr failure;
    std::vector<std::string> log;
};

template <typename Read>
Outcome run(Read read)
{
    Outcome outcome;
    Logger::Sink previous = Logger::set_sink([&](std::string_view line) { outcome.log.emplace_back(line); });
    try {
        outcome.array = read();
    } catch (...) {
        outcome.failure = std::current_exception();
    }
    Logger::set_sink(std::move(previous));
    return outcome;
}

std::string describe_failure(std::exception_ptr const& failure)
{
    try {
        std::rethrow_exception(failure);
    } catch (std::exception const& e) {
        return std::string(typeid(e).name()) + ": " + e.what();
    } catch (...) {
        return "an exception of no standard class";
    }
}

void append_bits(std::string& out, std::uint64_t bits)
{
    char buffer[24];
    auto const end = std::to_chars(buffer, buffer + sizeof buffer, bits, 16).ptr;
    out.append(buffer, end).push_back(' ');
}

template <typename T>
void append_value(std::string& out, T const& value)
{
    if constexpr (std::is_same_v<T, double>)
        append_bits(out, std::bit_cast<std::uint64_t>(value));
    else if constexpr (std::is_same_v<T, float>)
        append_bits(out, std::bit_cast<std::uint32_t>(value));
    else if constexpr (zd::detail::isComplex<T>) {
        append_value(out, value.real());
        append_value(out, value.imag());
    } else
        append_bits(out, static_cast<std::uint64_t>(value));
}

// The floating bits of every number, and which handle each handle element is by order of first
// appearance: what the written text alone does not show.
class Fingerprint {
public:
    std::string of(zd::Array const& array)
    {
        add(array);
        return out_;
    }

private:
    template <typename T>
    void plain(zd::Array const& array)
    {
        for (T const& value : zd::getReadOnlyElements<T>(array))
            append_value(out_, value);
    }

    template <typename T>
    void sparse(zd::Array const& array)
    {
        for (T const& value : zd::SparseArray<T>(array))
            append_value(out_, value);
    }

    void add(zd::Array const& array)
    {
        using enum zd::ArrayType;
        out_ += std::to_string(static_cast<int>(array.getType())) + ":";
        switch (array.getType()) {
        case DOUBLE: return plain<double>(array);
        case SINGLE: return plain<float>(array);
        case COMPLEX_DOUBLE: return plain<std::complex<double>>(array);
        case COMPLEX_SINGLE: return plain<std::complex<float>>(array);
        case SPARSE_DOUBLE: return sparse<double>(array);
        case SPARSE_SINGLE: return sparse<float>(array);
        case SPARSE_COMPLEX_DOUBLE: return sparse<std::complex<double>>(array);
        case SPARSE_COMPLEX_SINGLE: return sparse<std::complex<float>>(array);
        case CELL:
            for (zd::Array const element : zd::getReadOnlyElements<zd::Array>(array))
                add(element);
            return;
        case STRUCT: {
            zd::StructArray const structs(array);
            for (auto const& field : structs.getFieldNames()) {
                out_ += field.getString() + "=";
                for (zd::StructElement const element : zd::getReadOnlyElements<zd::StructElement>(array))
                    add(element[field.getString()]);
            }
            return;
        }
        case VALUE_OBJECT:
            for (zd::ValueObject const object : zd::TypedArray<zd::ValueObject>(array))
                for (auto property = object.cbegin(); property != object.cend(); ++property)
                    add((*property).castToArray());
            return;
        case HANDLE_OBJECT_REF:
            for (zd::HandleObjectRef const handle : zd::TypedArray<zd::HandleObjectRef>(array)) {
                auto const [known, added] = handles_.emplace(handle.get(), handles_.size());
                out_ += "h" + std::to_string(known->second) + " ";
                if (added && handle.get())
                    add(handle->get_value());
            }
            return;
        default: return;
        }
    }

    std::string out_;
    std::map<void const*, std::size_t> handles_;
};

// The text in a failure message, cut short: the documents of some tests are megabytes long.
std::string shown(std::string const& text)
{
    constexpr std::size_t longest = 300;
    return text.size() <= longest ? text : text.substr(0, longest) + "... (" + std::to_string(text.size()) + " bytes)";
}

// The text the writers make of array, which shows types, dimensions and every value but the bits of
// floats, with the fingerprint beside it.
std::string describe_array(zd::Array const& array)
{
    std::string text;
    try {
        text = zd::json::zorbaldata_to_string(
            array, foundation::zorbaljson::ToJsonMode::Large, foundation::zorbaljson::NanType::Object,
            zd::ObjectFilter::AllowAll);
    } catch (std::exception const& e) {
        text = std::string("not written: ") + e.what();
    }
    return text + "\n" + Fingerprint().of(array);
}

// Equal trees whose doubles have the same bits too (== takes -0.0 for 0.0).
bool same_bits(fj::Value const& a, fj::Value const& b)
{
    switch (a.which()) {
    case fj::traits<double>::which:
        return std::bit_cast<std::uint64_t>(fj::json_cast<double>(a)) == std::bit_cast<std::uint64_t>(fj::json_cast<double>(b));
    case fj::traits<fj::Array>::which: {
        auto const& x = fj::json_cast<fj::Array>(a);
        auto const& y = fj::json_cast<fj::Array>(b);
        for (std::size_t i = 0; i < x.size(); ++i)
            if (!same_bits(x[i], y[i]))
                return false;
        return true;
    }
    case fj::traits<fj::Object>::which: {
        auto const& y = fj::json_cast<fj::Object>(b);
        for (auto const& [key, member] : fj::json_cast<fj::Object>(a))
            if (!same_bits(member, y.at(key)))
                return false;
        return true;
    }
    default: return true;
    }
}

// parse_value against the reference reader, which builds the tree without a tape: the same code, the
// same position and the same tree, number bits included.
void expect_reference_reading(
    std::string const& text, fj::ParseResult result, fj::TextPosition position, fj::Value const& value)
{
    fj::Value expected;
    fj::TextPosition expected_position = text.begin();
    fj::ParseResult const expected_result = reference::parse_value(expected, expected_position, text.end(), 0);
    EXPECT_EQ(result, expected_result) << "text: " << shown(text);
    EXPECT_EQ(position - text.begin(), expected_position - text.begin()) << "text: " << shown(text);
    if (result == fj::ParseOk && expected_result == fj::ParseOk) {
        EXPECT_TRUE(value == expected && same_bits(value, expected)) << "text: " << shown(text);
    }
}

zd::Array read_tree_road(std::string const& text, zd::ArrayFactory& factory)
{
    fj::Value value;
    fj::TextPosition position = text.begin();
    fj::ParseResult const result = fj::parse_value(value, position, text.end(), 0);
    expect_reference_reading(text, result, position, value);
    if (result != fj::ParseOk)
        throw fj::ParserException(text.begin(), position, text.end(), result, fj::get_parse_result_description(result));
    if (position != text.end())
        throw fj::ParserException(text.begin(), position, text.end(), fj::ParseOk, "Parse incomplete");
    return zd::json::json_to_zorbaldata(value, factory);
}

} // namespace

zd::Array read_both_ways(std::string const& text, zd::ArrayFactory& factory)
{
    Outcome const by_text = run([&] { return zd::json::string_to_zorbaldata(text, factory); });
    Outcome const by_tree = run([&] { return read_tree_road(text, factory); });

    if (by_text.array && by_tree.array)
        EXPECT_EQ(describe_array(*by_text.array), describe_array(*by_tree.array)) << "text: " << shown(text);
    else if (by_text.failure && by_tree.failure)
        EXPECT_EQ(describe_failure(by_text.failure), describe_failure(by_tree.failure)) << "text: " << shown(text);
    else
        ADD_FAILURE() << "one road failed, the other did not: "
                      << describe_failure(by_text.failure ? by_text.failure : by_tree.failure) << "\ntext: " << shown(text);
    EXPECT_EQ(by_text.log, by_tree.log) << "text: " << shown(text);

    for (std::string const& line : by_text.log)
        Logger::write(line);
    if (by_text.failure)
        std::rethrow_exception(by_text.failure);
    return *by_text.array;
}

zd::Array read_both_ways(std::string const& text)
{
    zd::ArrayFactory factory;
    return read_both_ways(text, factory);
}

} // namespace zq::test
