// simdjson's DOM of each benchmark document, converted into plain containers by the shared conversion.
#include "simdjson_reader.hpp"

#include "container_reader.hpp"

#include <simdjson.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace zq::bench {
namespace {

// The node view of container_reader.hpp over an element of simdjson's DOM. Every accessor is called
// only on an element of its kind, so the results are taken without another check.
class SimdjsonNode {
public:
    explicit SimdjsonNode(simdjson::dom::element element) : element_(element) {}

    JsonKind kind() const
    {
        switch (element_.type()) {
        case simdjson::dom::element_type::NULL_VALUE: return JsonKind::null;
        case simdjson::dom::element_type::BOOL: return JsonKind::boolean;
        case simdjson::dom::element_type::OBJECT: return JsonKind::object;
        case simdjson::dom::element_type::ARRAY: return JsonKind::array;
        case simdjson::dom::element_type::STRING: return JsonKind::string;
        case simdjson::dom::element_type::INT64:
        case simdjson::dom::element_type::UINT64:
        case simdjson::dom::element_type::DOUBLE: break;
        }
        return JsonKind::number;
    }

    double number() const { return element_.get_double().value_unsafe(); }

    // An integer beyond int64 is a UINT64 element, as RapidJSON's IsInt64 refuses it too.
    std::optional<std::int64_t> int64() const
    {
        if (element_.type() != simdjson::dom::element_type::INT64)
            return std::nullopt;
        return element_.get_int64().value_unsafe();
    }

    bool boolean() const { return element_.get_bool().value_unsafe(); }

    std::string_view string() const { return element_.get_string().value_unsafe(); }

    // simdjson keeps a count only up to 0xFFFFFF; a larger one has to be counted.
    std::size_t size() const
    {
        return element_.is_array() ? checked_size(array()) : checked_size(object());
    }

    SimdjsonNode front() const { return SimdjsonNode(*array().begin()); }

    template <class Visit>
    void for_each(Visit visit) const
    {
        for (simdjson::dom::element const element : array())
            visit(SimdjsonNode(element));
    }

    std::optional<SimdjsonNode> member(std::string_view key) const
    {
        auto const found = object().at_key(key);
        if (found.error() != simdjson::SUCCESS)
            return std::nullopt;
        return SimdjsonNode(found.value_unsafe());
    }

private:
    // By value: a range-for over the reference that value_unsafe() returns would outlive its result.
    simdjson::dom::array array() const { return element_.get_array().value_unsafe(); }
    simdjson::dom::object object() const { return element_.get_object().value_unsafe(); }

    template <class Container>
    static std::size_t checked_size(Container const& container)
    {
        std::size_t const kept = container.size();
        if (kept < 0xFFFFFF)
            return kept;
        std::size_t counted = 0;
        for (auto it = container.begin(); it != container.end(); ++it)
            ++counted;
        return counted;
    }

    simdjson::dom::element element_;
};

// An integer written without fraction or exponent, outside both int64 and uint64.
bool beyond_64_bits(std::string_view token)
{
    if (token.find_first_of(".eE") != std::string_view::npos)
        return false;
    std::int64_t signed_value = 0;
    std::uint64_t unsigned_value = 0;
    char const* const end = token.data() + token.size();
    if (std::from_chars(token.data(), end, signed_value).ec != std::errc::result_out_of_range)
        return false;
    return token.front() == '-' || std::from_chars(token.data(), end, unsigned_value).ec == std::errc::result_out_of_range;
}

} // namespace

std::string simdjson_text(std::string const& text)
{
    std::string out;
    out.reserve(text.size() + text.size() / 16);
    for (std::size_t i = 0; i < text.size();) {
        char const c = text[i];
        if (c == '"') {
            std::size_t end = i + 1;
            while (end < text.size() && text[end] != '"')
                end += text[end] == '\\' ? 2 : 1;
            end = std::min(end + 1, text.size());
            out.append(text, i, end - i);
            i = end;
        } else if (c == '-' || (c >= '0' && c <= '9')) {
            std::size_t const end = std::min(text.find_first_not_of("0123456789+-.eE", i), text.size());
            std::string_view const token(text.data() + i, end - i);
            out += token;
            if (beyond_64_bits(token))
                out += ".0";
            i = end;
        } else {
            out += c;
            ++i;
        }
    }
    out.reserve(out.size() + simdjson::SIMDJSON_PADDING);
    return out;
}

struct SimdjsonReader::Parser {
    simdjson::dom::parser dom;

    simdjson::dom::element parse(std::string const& text)
    {
        auto const root = dom.parse(text);
        if (root.error() != simdjson::SUCCESS)
            throw std::runtime_error(std::string("simdjson rejected the document: ")
                                     + simdjson::error_message(root.error()));
        return root.value_unsafe();
    }
};

SimdjsonReader::SimdjsonReader() : parser_(std::make_unique<Parser>()) {}

SimdjsonReader::~SimdjsonReader() = default;

Containers SimdjsonReader::read(DocumentId id, std::string const& text)
{
    return read_containers(id, SimdjsonNode(parser_->parse(text)));
}

void SimdjsonReader::parse(std::string const& text)
{
    parser_->parse(text);
}

} // namespace zq::bench
