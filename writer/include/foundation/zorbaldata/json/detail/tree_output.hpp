// The output of the writers that builds a JSON value tree.
#pragma once

#include <foundation/zorbaldata/json/detail/json_types.hpp>
#include <foundation/zorbaldata/json/detail/utf16_to_utf8.hpp>

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace foundation::zorbaldata::json::detail {

/// Receives the writers' calls and builds the tree they describe. Object members are stored by key, so
/// the order in which keys come does not matter, and a key that comes twice keeps its last value.
class tree_output {
public:
    void begin_array() { open_.push_back({false, {}, {}, {}}); }
    void begin_object() { open_.push_back({true, {}, {}, {}}); }
    void begin_sorted_object() { begin_object(); }
    void end_array();
    void end_object();
    void key(std::string_view name) { open_.back().key = name; }

    template <typename Scalar>
    void value(Scalar scalar)
    {
        place(JsonValue(scalar));
    }
    void string(std::string_view utf8) { place(JsonValue(utf8)); }
    /// @throws as utf16_to_utf8.
    void string(std::u16string_view utf16);
    /// The text converted to UTF-8, so that a writer can convert before it writes anything.
    /// @throws as utf16_to_utf8.
    static std::string prepared(std::u16string_view utf16) { return utf16_to_utf8(utf16); }

    /// Where the output stands, to go back to with rollback.
    using mark_type = std::size_t;
    mark_type mark() const noexcept { return open_.size(); }
    /// Forgets the containers begun since the mark was taken; a member is placed only when its value
    /// is whole, so nothing else was kept.
    void rollback(mark_type mark)
    {
        open_.erase(open_.begin() + static_cast<std::ptrdiff_t>(mark), open_.end());
    }

    /// The finished tree; the output is empty again.
    JsonValue take() { return std::move(result_); }

private:
    struct open_container {
        bool is_object;
        JsonArray array;
        JsonObject object;
        std::string key;
    };

    void place(JsonValue value);

    std::vector<open_container> open_;
    JsonValue result_;
};

} // namespace foundation::zorbaldata::json::detail
