// From the bytes of a file to the array its JSON value describes.
#include "document.hpp"

#include "failure.hpp"

#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>

#include <string_view>

namespace zqjson {

namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

bool is_white_space(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r';
}

} // namespace

foundation::zorbaldata::Array read_document(std::string const& text, std::string const& name, bool strict,
                                            foundation::zorbaldata::ArrayFactory& factory)
{
    if (text.empty())
        throw Failure(name + " is empty");
    std::string::const_iterator begin = text.begin();
    std::string::const_iterator end = text.end();
    if (!strict) {
        if (std::string_view(text).starts_with(byte_order_mark))
            begin += byte_order_mark.size();
        while (begin != end && is_white_space(*begin))
            ++begin;
        if (begin == end)
            throw Failure(name + " holds only white space");
        while (is_white_space(*(end - 1)))
            --end;
    }
    // The value is read between the skipped bytes rather than from a trimmed copy, which would double
    // the memory of a large file and shift the reported positions away from the file's own.
    return foundation::zorbaldata::json::string_to_zorbaldata(text, begin, end, factory);
}

} // namespace zqjson
