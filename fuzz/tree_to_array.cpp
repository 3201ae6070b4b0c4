// Bytes drive a small builder of JSON trees, handed to json_to_zorbaldata as a caller's tree would be:
// every alternative of a value, the notation's keys, type names and class names, and nesting. Reading
// ends in an array or an exception; anything else is a finding.
#include <foundation/json/value.hpp>
#include <foundation/zorbaldata.hpp>
#include <foundation/zorbaldata/json/json_to_zorbaldata.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <limits>
#include <string>
#include <utility>

namespace fj = foundation::json;
namespace zd = foundation::zorbaldata;

namespace {

// Words a tree is likely to need: keys of the notation, type names, class names, odd strings.
constexpr std::array<char const*, 36> words = {
    "zqtype", "zqsize", "zqdata", "zqsparse", "zqcomplex", "zqclass", "zqhandle", "zqmetadata", "zqkvxID",
    "zqobjectID", "cell", "char", "double", "enum", "handle", "int16", "int32", "int64", "int8", "logical",
    "missing", "object", "single", "string", "struct", "uint16", "uint32", "uint64", "uint8", "undefined",
    "zorbal.mixin.Heterogeneous", "shop.Item", "NaN", "Inf", "-Inf", "",
};

// Reads the input front to back; past its end every read gives zero, which ends every list.
class Bytes {
public:
    Bytes(std::uint8_t const* data, std::size_t size) : data_(data), size_(size) {}

    std::uint8_t next() { return at_ < size_ ? data_[at_++] : 0; }

    template <typename T>
    T number()
    {
        std::array<unsigned char, sizeof(T)> raw{};
        for (unsigned char& byte : raw)
            byte = next();
        T value;
        std::memcpy(&value, raw.data(), sizeof(T));
        return value;
    }

    std::string text()
    {
        std::uint8_t const length = next() % 16;
        std::string result;
        for (std::uint8_t i = 0; i < length; ++i)
            result += static_cast<char>(next());
        return result;
    }

    std::string word() { return next() % 2 ? words[next() % words.size()] : text(); }

private:
    std::uint8_t const* data_;
    std::size_t size_;
    std::size_t at_ = 0;
};

// Deep enough to pass the readers' limit of 1000 levels in a few thousand bytes.
constexpr int deepest = 1200;

fj::Value build(Bytes& bytes, int depth)
{
    std::uint8_t const choice = bytes.next();
    switch (depth < deepest ? choice % 12 : choice % 10) {
    case 0: return fj::Value();
    case 1: return fj::Value(fj::Null{});
    case 2: return fj::Value(bytes.next() % 2 == 1);
    case 3: return fj::Value(bytes.number<double>());
    case 4: return fj::Value(static_cast<double>(static_cast<std::int8_t>(bytes.next())));
    case 5: return fj::Value(bytes.number<float>());
    case 6: return fj::Value(bytes.number<long long>());
    case 7: return fj::Value(bytes.number<unsigned long long>());
    case 8: return fj::Value(bytes.word());
    case 9: return fj::Value(static_cast<unsigned long long>(bytes.next() % 4));
    case 10: {
        fj::Array list;
        while (bytes.next() % 4 != 0)
            list.push_back(build(bytes, depth + 1));
        return fj::Value(std::move(list));
    }
    default: {
        fj::Object object;
        while (bytes.next() % 4 != 0) {
            std::string key = bytes.word();
            object.insert_or_assign(std::move(key), build(bytes, depth + 1));
        }
        return fj::Value(std::move(object));
    }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    Bytes bytes(data, size);
    fj::Value const tree = build(bytes, 0);
    zd::ArrayFactory factory;
    try {
        zd::json::json_to_zorbaldata(tree, factory);
    } catch (std::exception const&) {
    }
    return 0;
}
