// The entry of the writer variants, and the twelve variants themselves.
#include <foundation/zorbaldata/json/detail/to_json.hpp>

#include <foundation/zorbaldata/json/detail/array_type_dispatch.hpp>
#include <foundation/zorbaldata/json/convert_error.hpp>
#include <foundation/zorbaldata/json/detail/text_output.hpp>
#include <foundation/zorbaldata/json/detail/to_json_visitor.hpp>
#include <foundation/zorbaldata/json/detail/tree_output.hpp>

#include <utility>

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

template <zorbaljson::ToJsonMode Mode, zorbaljson::NanType Nan, ObjectFilter Filter, typename Out>
void write_array(Array array, Out& out)
{
    WritingLevel const level;
    dispatch_on_array_type(array.getType(), array, to_json_visitor<Mode, Nan, Filter, Out>{out});
}

template <zorbaljson::ToJsonMode Mode, zorbaljson::NanType Nan, ObjectFilter Filter>
JsonValue to_json(Array array)
{
    tree_output out;
    write_array<Mode, Nan, Filter>(std::move(array), out);
    return out.take();
}

using enum zorbaljson::ToJsonMode;
using enum zorbaljson::NanType;
using enum ObjectFilter;

#define ZQ_WRITER_VARIANT(Mode, Nan, Filter)                                                                 \
    template JsonValue to_json<Mode, Nan, Filter>(Array);                                                    \
    template void write_array<Mode, Nan, Filter>(Array, tree_output&);                                       \
    template void write_array<Mode, Nan, Filter>(Array, text_output&);

ZQ_WRITER_VARIANT(Large, String, AllowAll)
ZQ_WRITER_VARIANT(Large, String, AllowListed)
ZQ_WRITER_VARIANT(Large, String, DenyAll)
ZQ_WRITER_VARIANT(Small, String, AllowAll)
ZQ_WRITER_VARIANT(Small, String, AllowListed)
ZQ_WRITER_VARIANT(Small, String, DenyAll)
ZQ_WRITER_VARIANT(Large, Object, AllowAll)
ZQ_WRITER_VARIANT(Large, Object, AllowListed)
ZQ_WRITER_VARIANT(Large, Object, DenyAll)
ZQ_WRITER_VARIANT(Small, Object, AllowAll)
ZQ_WRITER_VARIANT(Small, Object, AllowListed)
ZQ_WRITER_VARIANT(Small, Object, DenyAll)

#undef ZQ_WRITER_VARIANT

} // namespace foundation::zorbaldata::json::detail
