// Bytes drive a small builder of JSON trees, handed to json_to_zorbaldata as a caller's tree would be.
// Besides values of every alternative, nesting and the notation's words in any place, the builder makes
// large forms that are whole or nearly so, for every type name, class names, sparse and complex data,
// handles, enumerations and heterogeneous objects, and small-notation matrices: random keys alone
// rarely get past the header checks. Reading ends in an array or an exception; anything else is a
// finding.
#include <foundation/json/value.hpp>
#include <foundation/zorbaldata.hpp>
#include <foundation/zorbaldata/json/json_to_zorbaldata.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <string>
#include <utility>
#include <vector>

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

// Few names, so that elements and arrays meet the same class, property and member again.
constexpr std::array<char const*, 4> classes = {"shop.Item", "pkg.Color", "pkg.H", "a"};
constexpr std::array<char const*, 5> properties = {"p", "q", "name", "zqclass", ".p"};
constexpr std::array<char const*, 4> specials = {"NaN", "Inf", "-Inf", "missing"};

// Reads the input front to back; past its end every read gives zero, which ends every list.
class Bytes {
public:
    Bytes(std::uint8_t const* data, std::size_t size) : data_(data), size_(size) {}

    std::uint8_t next() { return at_ < size_ ? data_[at_++] : 0; }

    // One of n choices; the first when the input has run out.
    unsigned pick(unsigned n) { return next() % n; }

    // True one time in n, never once the input has run out.
    bool rarely(unsigned n) { return next() % n == n - 1; }

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
        unsigned const length = pick(16);
        std::string result;
        for (unsigned i = 0; i < length; ++i)
            result += static_cast<char>(next());
        return result;
    }

    template <typename T, std::size_t N>
    T const& of(std::array<T, N> const& choices)
    {
        return choices[pick(N)];
    }

    std::string word() { return pick(2) ? of(words) : text(); }

private:
    std::uint8_t const* data_;
    std::size_t size_;
    std::size_t at_ = 0;
};

// Deep enough to pass the readers' limit of 1000 levels in a few thousand bytes.
constexpr int deepest = 1200;

fj::Value build(Bytes& bytes, int depth);

// The object whose one key zqdata holds a special word: a special float, or a missing string.
fj::Value special_object(Bytes& bytes)
{
    fj::Object object;
    object["zqdata"] = fj::Value(std::string(bytes.of(specials)));
    return fj::Value(std::move(object));
}

// An element of a double or single array: mostly what the readers take, now and then what they refuse.
fj::Value floating(Bytes& bytes)
{
    switch (bytes.pick(8)) {
    case 0: return fj::Value(bytes.number<double>());
    case 1: return fj::Value(std::string(bytes.of(specials)));
    case 2: return special_object(bytes);
    case 3: return fj::Value(bytes.number<float>());
    default: return fj::Value(static_cast<double>(static_cast<std::int8_t>(bytes.next())));
    }
}

// An element of an integer array, in the alternative its signedness asks for, or now and then not.
fj::Value integer(Bytes& bytes, bool is_signed)
{
    if (bytes.rarely(8))
        return floating(bytes);
    bool const wide = bytes.rarely(4);
    if (is_signed)
        return fj::Value(wide ? bytes.number<long long>()
                              : static_cast<long long>(static_cast<std::int8_t>(bytes.next())));
    return fj::Value(
        wide ? bytes.number<unsigned long long>() : static_cast<unsigned long long>(bytes.next()));
}

fj::Value text_or_missing(Bytes& bytes)
{
    return bytes.rarely(4) ? special_object(bytes) : fj::Value(bytes.word());
}

template <typename Make>
fj::Value list_of(std::size_t count, Make make)
{
    fj::Array list;
    for (std::size_t i = 0; i < count; ++i)
        list.push_back(make());
    return fj::Value(std::move(list));
}

// Properties from a small pool, each holding any value.
fj::Object properties_of(Bytes& bytes, int depth)
{
    fj::Object object;
    for (unsigned n = bytes.pick(4); n > 0; --n)
        object[bytes.of(properties)] = build(bytes, depth + 1);
    return object;
}

enum class Kind {
    Signed, Unsigned, Floating, Logical, Char, Cell, Struct, String, Object, Enum, Handle, Heterogeneous,
    HeterogeneousHandle
};

struct TypeName {
    char const* name;
    Kind kind;
};

constexpr std::array<TypeName, 20> type_names = {{
    {"int8", Kind::Signed}, {"int16", Kind::Signed}, {"int32", Kind::Signed}, {"int64", Kind::Signed},
    {"uint8", Kind::Unsigned}, {"uint16", Kind::Unsigned}, {"uint32", Kind::Unsigned},
    {"uint64", Kind::Unsigned},
    {"single", Kind::Floating}, {"double", Kind::Floating}, {"logical", Kind::Logical}, {"char", Kind::Char},
    {"cell", Kind::Cell}, {"struct", Kind::Struct}, {"string", Kind::String}, {"shop.Item", Kind::Object},
    {"pkg.Color", Kind::Enum}, {"pkg.H", Kind::Handle}, {"zorbal.mixin.Heterogeneous", Kind::Heterogeneous},
    {"zorbal.mixin.Heterogeneous", Kind::HeterogeneousHandle},
}};

// A large form being built: its keys so far, its dimensions and the number of elements its data
// should hold, now and then one more than they count.
struct Form {
    Kind kind;
    std::vector<unsigned> extents;
    std::size_t count;
    fj::Object keys;
    int depth;
};

// The list of a large form's data: count elements that make gives, now and then any value instead.
template <typename Make>
fj::Value data_list(Bytes& bytes, Form const& form, std::size_t count, Make make)
{
    return list_of(count, [&] { return bytes.rarely(32) ? build(bytes, form.depth + 1) : make(); });
}

// [rows, columns] or [rows, columns, values] of a sparse array, indices mostly inside the dimensions.
fj::Value sparse_data(Bytes& bytes, Form const& form, bool values, bool complex)
{
    auto index = [&](std::size_t dimension) {
        if (bytes.rarely(8))
            return floating(bytes);
        return fj::Value(static_cast<double>(bytes.next() % (form.extents[dimension] + 1)));
    };
    std::size_t const stored = bytes.pick(5);
    fj::Array lists;
    lists.push_back(list_of(stored, [&] { return index(0); }));
    lists.push_back(list_of(stored + bytes.rarely(8), [&] { return index(1); }));
    if (values)
        lists.push_back(list_of(stored * (complex ? 2 : 1), [&] { return floating(bytes); }));
    return fj::Value(std::move(lists));
}

fj::Value numeric_data(Bytes& bytes, Form& form)
{
    bool const complex = bytes.rarely(3);
    if (complex)
        form.keys["zqcomplex"] = fj::Value(true);
    if (form.kind == Kind::Floating && bytes.rarely(3)) {
        form.keys["zqsparse"] = fj::Value(true);
        return sparse_data(bytes, form, true, complex);
    }
    return data_list(bytes, form, form.count * (complex ? 2 : 1), [&] {
        return form.kind == Kind::Floating ? floating(bytes) : integer(bytes, form.kind == Kind::Signed);
    });
}

fj::Value logical_data(Bytes& bytes, Form& form)
{
    if (bytes.rarely(3)) {
        form.keys["zqsparse"] = fj::Value(true);
        return sparse_data(bytes, form, false, false);
    }
    return data_list(bytes, form, form.count, [&] { return fj::Value(bytes.pick(2) == 1); });
}

fj::Value char_data(Bytes& bytes, Form const& form)
{
    std::string text;
    for (std::size_t i = 0; i < form.count; ++i)
        text += static_cast<char>(bytes.rarely(4) ? bytes.next() : 'a' + bytes.pick(26));
    return list_of(1, [&] { return fj::Value(std::move(text)); });
}

fj::Value struct_data(Bytes& bytes, Form const& form)
{
    fj::Object fields;
    for (unsigned n = bytes.pick(4); n > 0; --n)
        fields[bytes.pick(2) ? bytes.of(properties) : bytes.word()]
            = list_of(form.count, [&] { return build(bytes, form.depth + 2); });
    return fj::Value(std::move(fields));
}

fj::Value object_data(Bytes& bytes, Form& form)
{
    if (bytes.rarely(3)) {
        // One object standing for an array of the external dimensions.
        if (bytes.pick(2))
            form.keys["zqmetadata"] = fj::Value(properties_of(bytes, form.depth));
        return fj::Value(properties_of(bytes, form.depth));
    }
    return data_list(
        bytes, form, form.count, [&] { return fj::Value(properties_of(bytes, form.depth + 1)); });
}

fj::Value heterogeneous_data(Bytes& bytes, Form const& form)
{
    return data_list(bytes, form, form.count, [&] {
        fj::Object element = properties_of(bytes, form.depth + 1);
        element["zqtype"]
            = bytes.rarely(16) ? build(bytes, form.depth + 2) : fj::Value(std::string(bytes.of(classes)));
        return fj::Value(std::move(element));
    });
}

// The object ids repeat, so that elements share handles.
void add_handle(Bytes& bytes, Form& form)
{
    fj::Object handle;
    handle["zqkvxID"]
        = bytes.rarely(8) ? build(bytes, form.depth + 1) : fj::Value(std::to_string(bytes.next()));
    std::size_t const ids = form.count + bytes.rarely(8);
    handle["zqobjectID"]
        = data_list(bytes, form, ids, [&] { return fj::Value(std::to_string(bytes.pick(4))); });
    form.keys["zqhandle"] = fj::Value(std::move(handle));
}

fj::Value large_data(Bytes& bytes, Form& form)
{
    switch (form.kind) {
    case Kind::Signed:
    case Kind::Unsigned:
    case Kind::Floating: return numeric_data(bytes, form);
    case Kind::Logical: return logical_data(bytes, form);
    case Kind::Char: return char_data(bytes, form);
    case Kind::Cell: return list_of(form.count, [&] { return build(bytes, form.depth + 1); });
    case Kind::Struct: return struct_data(bytes, form);
    case Kind::String: return data_list(bytes, form, form.count, [&] { return text_or_missing(bytes); });
    case Kind::Enum:
        return data_list(
            bytes, form, form.count, [&] { return fj::Value(std::string(bytes.of(properties))); });
    case Kind::Object: return object_data(bytes, form);
    case Kind::Handle: add_handle(bytes, form); return object_data(bytes, form);
    case Kind::HeterogeneousHandle: add_handle(bytes, form); return heterogeneous_data(bytes, form);
    case Kind::Heterogeneous:
    default: return heterogeneous_data(bytes, form);
    }
}

// A large form whose header is whole, with data of about the right kind and length; a last byte may
// put any value under one key.
fj::Value large_form(Bytes& bytes, int depth)
{
    TypeName const& type = bytes.of(type_names);
    Form form{type.kind, {}, 1, {}, depth};
    form.keys["zqtype"] = fj::Value(std::string(type.name));
    fj::Array size;
    for (unsigned n = 2 + bytes.rarely(4); n > 0; --n) {
        form.extents.push_back(bytes.pick(4));
        form.count *= form.extents.back();
        size.emplace_back(static_cast<double>(form.extents.back()));
    }
    form.keys["zqsize"] = fj::Value(std::move(size));
    form.count += bytes.rarely(8);
    form.keys["zqdata"] = large_data(bytes, form);
    if (bytes.rarely(16))
        form.keys[bytes.of(words)] = build(bytes, depth + 1);
    return fj::Value(std::move(form.keys));
}

// Nested lists of the small notation with a regular shape: rows of numbers, booleans or special floats.
fj::Value small_matrix(Bytes& bytes)
{
    std::size_t const rows = bytes.pick(4);
    std::size_t const columns = 1 + bytes.pick(4);
    unsigned const kind = bytes.pick(3);
    auto element = [&] {
        switch (bytes.rarely(16) ? bytes.pick(3) : kind) {
        case 0: return fj::Value(static_cast<double>(static_cast<std::int8_t>(bytes.next())));
        case 1: return fj::Value(bytes.pick(2) == 1);
        default: return special_object(bytes);
        }
    };
    if (bytes.pick(2))
        return list_of(columns, element);
    return list_of(rows, [&] { return list_of(columns + bytes.rarely(16), element); });
}

fj::Value build(Bytes& bytes, int depth)
{
    std::uint8_t const choice = bytes.next();
    switch (depth < deepest ? choice % 16 : choice % 10) {
    case 0: return fj::Value();
    case 1: return fj::Value(fj::Null{});
    case 2: return fj::Value(bytes.pick(2) == 1);
    case 3: return fj::Value(bytes.number<double>());
    case 4: return fj::Value(static_cast<double>(static_cast<std::int8_t>(bytes.next())));
    case 5: return fj::Value(bytes.number<float>());
    case 6: return fj::Value(bytes.number<long long>());
    case 7: return fj::Value(bytes.number<unsigned long long>());
    case 8: return fj::Value(bytes.word());
    case 9: return fj::Value(static_cast<unsigned long long>(bytes.pick(4)));
    case 10: {
        fj::Array list;
        while (bytes.pick(4) != 0)
            list.push_back(build(bytes, depth + 1));
        return fj::Value(std::move(list));
    }
    case 11: {
        fj::Object object;
        while (bytes.pick(4) != 0) {
            std::string key = bytes.word();
            object.insert_or_assign(std::move(key), build(bytes, depth + 1));
        }
        return fj::Value(std::move(object));
    }
    case 12: return special_object(bytes);
    case 13: return small_matrix(bytes);
    default: return large_form(bytes, depth);
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
