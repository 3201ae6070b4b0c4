// The entry of the writer variants, and the twelve variants themselves.
#include <foundation/zorbaldata/json/detail/to_json.hpp>

#include <foundation/zorbaldata/json/detail/array_type_dispatch.hpp>
#include <foundation/zorbaldata/json/convert_error.hpp>
#include <foundation/zorbaldata/json/detail/to_json_visitor.hpp>

namespace foundation::zorbaldata::json::detail {

namespace {

// Arrays inside arrays are written by recursion, so a caller's array nested without end would exhaust
// the stack; the readers would not take the text of so deep an array back either.
constexpr unsigned max_writing_depth = 1000;

class WritingLevel {
public:
    WritingLevel()
    {
        if (depth_ == max_writing_depth)
            throw ArrayNestingTooDeep();
        ++depth_;
    }
    WritingLevel(WritingLevel const&) = delete;
    WritingLevel& operator=(WritingLevel const&) = delete;
    ~WritingLevel() { --depth_; }

private:
    static thread_local unsigned depth_;
};

thread_local unsigned WritingLevel::depth_ = 0;

} // namespace

template <zorbaljson::ToJsonMode Mode, zorbaljson::NanType Nan, ObjectFilter Filter>
JsonValue to_json(Array array)
{
    WritingLevel const level;
    return dispatch_on_array_type(array.getType(), array, to_json_visitor<Mode, Nan, Filter>());
}

using enum zorbaljson::ToJsonMode;
using enum zorbaljson::NanType;
using enum ObjectFilter;

template JsonValue to_json<Large, String, AllowAll>(Array);
template JsonValue to_json<Large, String, AllowListed>(Array);
template JsonValue to_json<Large, String, DenyAll>(Array);
template JsonValue to_json<Small, String, AllowAll>(Array);
template JsonValue to_json<Small, String, AllowListed>(Array);
template JsonValue to_json<Small, String, DenyAll>(Array);
template JsonValue to_json<Large, Object, AllowAll>(Array);
template JsonValue to_json<Large, Object, AllowListed>(Array);
template JsonValue to_json<Large, Object, DenyAll>(Array);
template JsonValue to_json<Small, Object, AllowAll>(Array);
template JsonValue to_json<Small, Object, AllowListed>(Array);
template JsonValue to_json<Small, Object, DenyAll>(Array);

} // namespace foundation::zorbaldata::json::detail
