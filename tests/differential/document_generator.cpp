// Random JSON documents in the notation.
#include "document_generator.hpp"

#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace zq::test {

namespace {

constexpr std::array<std::string_view, 20> type_names{
    "int8", "int16", "int32", "int64", "uint8", "uint16", "uint32", "uint64", "single", "double",
    "logical", "char", "cell", "struct", "string", "shop.Item", "Color", "zorbal.mixin.Heterogeneous",
    "double", "int64"};

constexpr std::array<std::string_view, 24> number_spellings{
    "0", "-0", "1", "-1", "7", "127", "128", "-129", "255", "256", "65535", "2147483648",
    "9007199254740993", "9223372036854775807", "9223372036854775808", "-9223372036854775808",
    "18446744073709551615", "99999999999999999999", "1.5", "-2.25e3", "1e400", "012", "3.4028234663852886e38",
    "1E-400"};

constexpr std::array<std::string_view, 12> string_spellings{
    "", "NaN", "Inf", "-Inf", "missing", "Red", "a\\\"b", "\\u00e9t\\u00e9", "\\ud83d\\ude00", "\\ud800",
    "caf\xc3\xa9", "bad\xff"};

constexpr std::array<std::string_view, 8> keys{"a", "b", "zqdata", "zqtype", "zqsize", "zqcomplex", "zqsparse",
    "name"};

} // namespace

void DocumentGenerator::number(std::string& out)
{
    if (chance(3)) {
        out += std::to_string(static_cast<long long>(engine_() >> below(64)) * (chance(2) ? -1 : 1));
        return;
    }
    out += number_spellings[below(number_spellings.size())];
}

void DocumentGenerator::string(std::string& out)
{
    out.append("\"").append(string_spellings[below(string_spellings.size())]).append("\"");
}

void DocumentGenerator::list(
    std::string& out, std::size_t count, int depth, void (DocumentGenerator::*element)(std::string&, int))
{
    out += '[';
    for (std::size_t i = 0; i < count; ++i)
        (this->*element)(out += i == 0 ? "" : chance(8) ? " , " : ",", depth);
    out += ']';
}

void DocumentGenerator::object_element(std::string& out, int depth)
{
    out += '{';
    std::size_t const count = below(4);
    for (std::size_t i = 0; i < count; ++i) {
        out.append(i == 0 ? "\"" : ",\"").append(chance(3) ? "zqtype" : keys[below(keys.size())]).append("\":");
        value(out, depth + 1);
    }
    out += '}';
}

void DocumentGenerator::small_form(std::string& out)
{
    std::size_t const rows = below(4);
    std::size_t const columns = 1 + below(3);
    bool const logical = chance(3);
    out += '[';
    for (std::size_t r = 0; r < rows; ++r) {
        out += r == 0 ? "[" : ",[";
        std::size_t const width = chance(10) ? columns + 1 : columns;
        for (std::size_t c = 0; c < width; ++c) {
            out += c == 0 ? "" : ",";
            if (chance(12))
                out += R"({"zqdata":"NaN"})";
            else if (logical)
                out += chance(2) ? "true" : "false";
            else if (chance(15))
                string(out);
            else
                number(out);
        }
        out += ']';
    }
    out += ']';
}

// The members of a large form, in an order of their own, with data that fit the kind most of the time.
void DocumentGenerator::large_form(std::string& out, int depth)
{
    std::string_view const type = type_names[below(type_names.size())];
    std::size_t const rows = below(3);
    std::size_t const columns = below(3);
    std::size_t const count = chance(6) ? below(5) : rows * columns;
    std::vector<std::pair<std::string, std::string>> members;
    members.emplace_back("zqtype", '"' + std::string(type) + '"');
    members.emplace_back("zqsize", "[" + std::to_string(rows) + "," + std::to_string(columns) + "]");
    std::string data;
    if (type == "cell" || type == "zorbal.mixin.Heterogeneous" || chance(10))
        list(data, count, depth + 1, &DocumentGenerator::value_element);
    else if (type == "string" || type == "Color" || type == "char")
        list(data, type == "char" ? 1 : count, depth + 1, &DocumentGenerator::string_element);
    else if (type == "struct" || type == "shop.Item") {
        data = "{\"a\":";
        list(data, count, depth + 1, &DocumentGenerator::number_element);
        data += ",\"b\":";
        list(data, count, depth + 1, &DocumentGenerator::value_element);
        data += '}';
    } else if (type == "logical")
        list(data, count, depth + 1, &DocumentGenerator::value_element);
    else
        list(data, chance(4) ? 2 * count : count, depth + 1, &DocumentGenerator::number_element);
    members.emplace_back("zqdata", data);
    if (chance(4))
        members.emplace_back("zqcomplex", chance(3) ? "1" : "true");
    if (chance(8))
        members.emplace_back("zqsparse", "true");
    if (chance(8))
        members.emplace_back("zqhandle", R"({"zqkvxID":"5","zqobjectID":["17","17","3","4"]})");
    if (chance(10))
        members.emplace_back("zqdata", "[1,2]");
    if (chance(10))
        members.emplace_back("zqtype", "\"uint8\"");
    for (std::size_t i = members.size(); i > 1; --i)
        std::swap(members[i - 1], members[below(i)]);
    out += '{';
    for (std::size_t i = 0; i < members.size(); ++i)
        out += (i == 0 ? "\"" : ",\"") + members[i].first + "\":" + members[i].second;
    out += '}';
}

void DocumentGenerator::value(std::string& out, int depth)
{
    switch (depth > 4 ? below(4) : below(9)) {
    case 0: number(out); break;
    case 1: string(out); break;
    case 2: out += chance(2) ? "true" : (chance(2) ? "false" : "null"); break;
    case 3: out += R"({"zqdata":"Inf"})"; break;
    case 4:
    case 5: large_form(out, depth); break;
    case 6: small_form(out); break;
    case 7: object_element(out, depth); break;
    default: list(out, below(4), depth + 1, &DocumentGenerator::value_element); break;
    }
}

std::string DocumentGenerator::document()
{
    std::string out;
    value(out, 0);
    return out;
}

std::string DocumentGenerator::broken_document()
{
    std::string out = document();
    if (out.empty() || chance(2))
        return out.substr(0, below(out.size() + 1));
    out[below(out.size())] = "\"[]{},:0-e\\x"[below(12)];
    return out;
}

} // namespace zq::test
