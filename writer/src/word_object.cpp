// The objects that carry one word under zqdata.
#include <foundation/zorbaldata/json/detail/word_object.hpp>

#include <frontend/detail/notation_keys.hpp>

#include <utility>

namespace foundation::zorbaldata::json::detail {

JsonValue word_object(char const* word)
{
    JsonObject object;
    object[zorbaljson::detail::zqdata_key] = JsonValue(word);
    return JsonValue(std::move(object));
}

} // namespace foundation::zorbaldata::json::detail
