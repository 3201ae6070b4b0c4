// The JSON value: a tagged union of the ten kinds of data that a document or a typed array holds.
#pragma once

#include <foundation/json/export.hpp>

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace foundation::json {

/// No value at all (tag 0): what a default Value holds and what a moved-from Value becomes.
struct Undefined {
    friend bool operator==(Undefined, Undefined) noexcept = default;
};

/// JSON null (tag 1).
struct Null {
    friend bool operator==(Null, Null) noexcept = default;
};

class Value;

/// A JSON array (tag 5).
using Array = std::vector<Value>;

/// A JSON object (tag 6), its members in byte order of their keys.
using Object = std::map<std::string, Value>;

namespace detail {
struct ValueAccess;
}

/// One JSON value, holding exactly one of ten alternatives, told apart by which():
/// 0 Undefined, 1 Null, 2 bool, 3 double, 4 std::string (UTF-8 bytes), 5 Array, 6 Object,
/// 7 float, 8 long long, 9 unsigned long long.
///
/// The constructors pick the alternative from the exact C++ type. There is deliberately no
/// constructor from int (or long, short, unsigned): `Value(1)` does not compile, because the
/// library will not guess which number alternative a caller means; write `1.0`, `1.0f`, `1LL`
/// or `1ULL`. A string literal becomes a string, never a bool.
///
/// Arrays and objects live in allocations of their own, so a Value is small and moves cheaply
/// (a vector of Values grows by moving). Copying, comparing and destroying a tree never recurse
/// per nesting level, so arbitrarily deep trees are safe.
class FOUNDATION_JSON_API Value {
public:
    /// An Undefined value.
    Value() noexcept : scalar_(), tag_(undefined_tag) {}
    /// An Undefined value.
    Value(Undefined) noexcept : Value() {}
    /// JSON null.
    Value(Null) noexcept : scalar_{.null = {}}, tag_(null_tag) {}
    /// A boolean.
    Value(bool b) noexcept : scalar_{.boolean = b}, tag_(bool_tag) {}
    /// A double-precision number.
    Value(double d) noexcept : scalar_{.number = d}, tag_(double_tag) {}
    /// A single-precision number, kept as such.
    Value(float f) noexcept : scalar_{.single = f}, tag_(float_tag) {}
    /// A signed 64-bit integer.
    Value(long long i) noexcept : scalar_{.int64 = i}, tag_(int64_tag) {}
    /// An unsigned 64-bit integer.
    Value(unsigned long long u) noexcept : scalar_{.uint64 = u}, tag_(uint64_tag) {}
    /// A string, taking over the bytes of s.
    Value(std::string s) noexcept : string_(std::move(s)), tag_(string_tag) {}
    /// A string holding a copy of the bytes of s.
    /// @throws std::bad_alloc
    Value(std::string_view s) : string_(s), tag_(string_tag) {}
    /// A string holding a copy of the NUL-terminated s, which must not be null.
    /// @throws std::bad_alloc
    Value(char const* s) : string_(s), tag_(string_tag) {}
    /// Not a string: a null pointer is no text.
    Value(std::nullptr_t) = delete;
    /// An array taking over the elements of a.
    /// @throws std::bad_alloc
    Value(Array a);
    /// An object taking over the members of o.
    /// @throws std::bad_alloc
    Value(Object o);

    /// A deep copy of the whole tree of other.
    /// @throws std::bad_alloc
    Value(Value const& other);
    /// Takes over the content of other, which is left Undefined.
    Value(Value&& other) noexcept { take(other); }
    ~Value() { release(); }

    /// Makes this a deep copy of other; if that fails, this is left unchanged.
    /// @throws std::bad_alloc
    Value& operator=(Value const& other);
    /// Takes over the content of other, which is left Undefined (other may lie inside this tree).
    Value& operator=(Value&& other) noexcept;

    /// The tag of the alternative held, 0 to 9 (see the class brief).
    int which() const noexcept { return tag_; }

    /// True when both hold the same alternative with equal content, through the whole tree.
    /// Numbers compare with ==, so a NaN is unequal to everything, itself included.
    /// @throws std::bad_alloc when comparing nested containers
    friend bool operator==(Value const& a, Value const& b)
    {
        if (a.tag_ != b.tag_)
            return false;
        return a.owns_tree() ? equal_trees(a, b) : equal_leaves(a, b);
    }

private:
    friend struct detail::ValueAccess;

    enum Tag : std::uint8_t {
        undefined_tag,
        null_tag,
        bool_tag,
        double_tag,
        string_tag,
        array_tag,
        object_tag,
        float_tag,
        int64_tag,
        uint64_tag,
    };

    // Every alternative but the string fits in one trivially copyable word, so most moves and
    // copies are a plain copy of it.
    union Scalar {
        Undefined undefined;
        Null null;
        bool boolean;
        double number;
        float single;
        long long int64;
        unsigned long long uint64;
        Array* array;
        Object* object;
    };

    bool owns_tree() const noexcept { return tag_ == array_tag || tag_ == object_tag; }

    // Moves the content of other into this, which holds nothing that needs freeing.
    void take(Value& other) noexcept
    {
        tag_ = other.tag_;
        if (tag_ == string_tag) {
            std::construct_at(&string_, std::move(other.string_));
            std::destroy_at(&other.string_);
        } else {
            std::construct_at(&scalar_, other.scalar_);
        }
        std::construct_at(&other.scalar_);
        other.tag_ = undefined_tag;
    }

    void release() noexcept
    {
        if (tag_ == string_tag)
            std::destroy_at(&string_);
        else if (owns_tree())
            release_tree();
    }

    static bool equal_leaves(Value const& a, Value const& b) noexcept
    {
        switch (a.tag_) {
        case bool_tag: return a.scalar_.boolean == b.scalar_.boolean;
        case double_tag: return a.scalar_.number == b.scalar_.number;
        case string_tag: return a.string_ == b.string_;
        case float_tag: return a.scalar_.single == b.scalar_.single;
        case int64_tag: return a.scalar_.int64 == b.scalar_.int64;
        case uint64_tag: return a.scalar_.uint64 == b.scalar_.uint64;
        default: return true;
        }
    }

    void release_tree() noexcept;
    void copy_tree_from(Value const& source);
    static bool equal_trees(Value const& a, Value const& b);

    union {
        Scalar scalar_;
        std::string string_;
    };
    Tag tag_;
};

// A vector of millions of values must stay compact and grow by moving, not copying.
static_assert(sizeof(Value) <= 40);
static_assert(std::is_nothrow_move_constructible_v<Value> && std::is_nothrow_move_assignable_v<Value>);

inline Value::Value(Array a) : scalar_{.array = new Array(std::move(a))}, tag_(array_tag) {}

inline Value::Value(Object o) : scalar_{.object = new Object(std::move(o))}, tag_(object_tag) {}

inline Value::Value(Value const& other) : scalar_(), tag_(undefined_tag)
{
    if (other.tag_ == string_tag) {
        std::construct_at(&string_, other.string_);
        tag_ = string_tag;
    } else if (other.owns_tree()) {
        copy_tree_from(other);
    } else {
        scalar_ = other.scalar_;
        tag_ = other.tag_;
    }
}

inline Value& Value::operator=(Value const& other)
{
    if (this == &other)
        return *this;
    // Reusing a string's buffer that is large enough cannot fail, and saves an allocation.
    if (tag_ == string_tag && other.tag_ == string_tag && string_.capacity() >= other.string_.size()) {
        string_.assign(other.string_.data(), other.string_.size());
        return *this;
    }
    Value copy(other);
    return *this = std::move(copy);
}

inline Value& Value::operator=(Value&& other) noexcept
{
    if (this != &other) {
        // The old content goes only after other is taken, since other may be part of it.
        Value old(std::move(*this));
        take(other);
    }
    return *this;
}

} // namespace foundation::json
