// Any bytes as JSON text, read by string_to_zorbaldata and, through the tree parse_value builds, by
// json_to_zorbaldata: both must give the same array or the same exception and the same log lines. Any
// difference is printed with the input and aborts.
#include <reading_difference.hpp>

#include <foundation/zorbaldata.hpp>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    std::string const text(reinterpret_cast<char const*>(data), size);
    foundation::zorbaldata::ArrayFactory factory;
    zq::test::BothReadings const readings = zq::test::read_by_both_roads(text, factory);
    if (!readings.difference.empty()) {
        std::fprintf(stderr, "the reading roads differ on: %s\n%s", zq::test::shown(text).c_str(),
            readings.difference.c_str());
        std::abort();
    }
    return 0;
}
