// The two roads from JSON text to an array, compared under GoogleTest.
#include "reading_paths.hpp"

#include "reading_difference.hpp"

#include <foundation/zorbaljson/detail/json_frontend_logger.hpp>

#include <gtest/gtest.h>

#include <exception>

namespace zq::test {

foundation::zorbaldata::Array read_both_ways(
    std::string const& text, foundation::zorbaldata::ArrayFactory& factory)
{
    BothReadings const readings = read_by_both_roads(text, factory);
    EXPECT_TRUE(readings.difference.empty()) << readings.difference << "text: " << shown(text);
    for (std::string const& line : readings.by_text.log)
        foundation::zorbaljson::detail::JSONFrontendLogger::write(line);
    if (readings.by_text.failure)
        std::rethrow_exception(readings.by_text.failure);
    return *readings.by_text.array;
}

foundation::zorbaldata::Array read_both_ways(std::string const& text)
{
    foundation::zorbaldata::ArrayFactory factory;
    return read_both_ways(text, factory);
}

} // namespace zq::test
