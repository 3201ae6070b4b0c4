// The two roads from JSON text to an array, compared.
#include "reading_difference.hpp"

#include <foundation/json/parser.hpp>
#include <foundation/json/parser_exception.hpp>
#include <foundation/zorbaldata.hpp>
#include <foundation/zorbaldata/json/json_to_zorbaldata.hpp>
#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>
#include <foundation/zorbaldata/json/zorbaldata_to_json.hpp>
#include <foundation/zorbaljson/detail/json_frontend_logger.hpp>

#include <bit>
#include <complex>
#include <map>
#include <string_view>
#include <typeinfo>
#include <utility>

namespace zq::test {

namespace {

namespace zd = foundation::zorbaldata;
namespace fj = foundation::json;
using Logger = foundation::zorbaljson::detail::JSONFrontendLogger;
using cdouble = std::complex<double>;
using csingle = std::complex<float>;

template <typename Read>
ReadingOutcome run(Read read)
{
    ReadingOutcome outcome;
    Logger::Sink previous = Logger::set_sink([&](std::string_view line) { outcome.log.emplace_back(line); });
    try {
        outcome.array = read();
    } catch (...) {
        outcome.failure = std::current_exception();
    }
    Logger::set_sink(std::move(previous));
    return outcome;
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
    void bits(double value) { out_ += std::to_string(std::bit_cast<std::uint64_t>(value)) + ' '; }
    void bits(float value) { out_ += std::to_string(std::bit_cast<std::uint32_t>(value)) + ' '; }
    template <typename T>
    void bits(std::complex<T> const& value) { bits(value.real()), bits(value.imag()); }

    template <typename T, typename Range>
    void values(Range const& range)
    {
        for (T const& value : range)
            bits(value);
    }

    void add(zd::Array const& array)
    {
        using enum zd::ArrayType;
        out_ += std::to_string(static_cast<int>(array.getType())) + ":";
        switch (array.getType()) {
        case DOUBLE: return values<double>(zd::getReadOnlyElements<double>(array));
        case SINGLE: return values<float>(zd::getReadOnlyElements<float>(array));
        case COMPLEX_DOUBLE: return values<cdouble>(zd::getReadOnlyElements<cdouble>(array));
        case COMPLEX_SINGLE: return values<csingle>(zd::getReadOnlyElements<csingle>(array));
        case SPARSE_DOUBLE: return values<double>(zd::SparseArray<double>(array));
        case SPARSE_SINGLE: return values<float>(zd::SparseArray<float>(array));
        case SPARSE_COMPLEX_DOUBLE: return values<cdouble>(zd::SparseArray<cdouble>(array));
        case SPARSE_COMPLEX_SINGLE: return values<csingle>(zd::SparseArray<csingle>(array));
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

zd::Array read_tree_road(std::string const& text, zd::ArrayFactory& factory)
{
    fj::Value value;
    fj::TextPosition position = text.begin();
    fj::ParseResult const result = fj::parse_value(value, position, text.end(), 0);
    if (result != fj::ParseOk)
        throw fj::ParserException(
            text.begin(), position, text.end(), result, fj::get_parse_result_description(result));
    if (position != text.end())
        throw fj::ParserException(text.begin(), position, text.end(), fj::ParseOk, "Parse incomplete");
    return zd::json::json_to_zorbaldata(value, factory);
}

std::string joined(std::vector<std::string> const& lines)
{
    std::string text;
    for (std::string const& line : lines)
        text += "\n    " + line;
    return text;
}

// What a road gave, as the comparison sees it: the fingerprint of the array and the text the writers make
// of it, which shows types, dimensions and every value but the bits of floats; or the exception's class
// and text.
std::string describe(ReadingOutcome const& outcome)
{
    std::string const fingerprint = outcome.array ? Fingerprint().of(*outcome.array) + "\n" : "";
    try {
        if (!outcome.array)
            std::rethrow_exception(outcome.failure);
        return fingerprint
            + zd::json::zorbaldata_to_string(*outcome.array, foundation::zorbaljson::ToJsonMode::Large,
                foundation::zorbaljson::NanType::Object, zd::ObjectFilter::AllowAll);
    } catch (std::exception const& e) {
        return fingerprint + typeid(e).name() + ": " + e.what();
    } catch (...) {
        return "an exception of no standard class";
    }
}

} // namespace

BothReadings read_by_both_roads(std::string const& text, zd::ArrayFactory& factory)
{
    BothReadings readings;
    std::string& difference = readings.difference;
    readings.by_text = run([&] { return zd::json::string_to_zorbaldata(text, factory); });
    readings.by_tree = run([&] { return read_tree_road(text, factory); });

    std::string const by_text = describe(readings.by_text);
    std::string const by_tree = describe(readings.by_tree);
    if (by_text != by_tree || readings.by_text.array.has_value() != readings.by_tree.array.has_value())
        difference += "the roads differ\n  by text: " + by_text + "\n  by tree: " + by_tree + "\n";
    if (readings.by_text.log != readings.by_tree.log)
        difference += "the log lines differ\n  by text:" + joined(readings.by_text.log) + "\n  by tree:"
            + joined(readings.by_tree.log) + "\n";
    return readings;
}

std::string shown(std::string const& text)
{
    constexpr std::size_t longest = 300;
    if (text.size() <= longest)
        return text;
    return text.substr(0, longest) + "... (" + std::to_string(text.size()) + " bytes)";
}

} // namespace zq::test
