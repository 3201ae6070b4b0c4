// The output of the writers that builds a JSON value tree.
#include <foundation/zorbaldata/json/detail/tree_output.hpp>

#include <utility>

namespace foundation::zorbaldata::json::detail {

void tree_output::end_array()
{
    JsonValue done(std::move(open_.back().array));
    open_.pop_back();
    place(std::move(done));
}

void tree_output::end_object()
{
    JsonValue done(std::move(open_.back().object));
    open_.pop_back();
    place(std::move(done));
}

void tree_output::string(std::u16string_view utf16)
{
    place(JsonValue(utf16_to_utf8(utf16)));
}

void tree_output::place(JsonValue value)
{
    if (open_.empty())
        result_ = std::move(value);
    else if (open_container& top = open_.back(); top.is_object)
        top.object[top.key] = std::move(value);
    else
        top.array.push_back(std::move(value));
}

} // namespace foundation::zorbaldata::json::detail
