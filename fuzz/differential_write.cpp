// A text that reads is written by zorbaldata_to_string and by serialising zorbaldata_to_json, in every
// mode, NaN spelling and object filter, compact and indented: both must give the same bytes or throw the
// same class with the same text. Any difference is printed and aborts.
#include "read_input.hpp"

#include <reading_difference.hpp>
#include <writing_difference.hpp>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace zd = foundation::zorbaldata;

namespace {

constexpr zd::ObjectFilter filters[] = {
    zd::ObjectFilter::AllowAll, zd::ObjectFilter::AllowListed, zd::ObjectFilter::DenyAll};
constexpr unsigned indents[] = {0, 2};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    forEachSetting(data, size, [&](zd::Array const& array, WriteSetting setting, zd::ArrayFactory&) {
        for (zd::ObjectFilter const filter : filters)
            for (unsigned const indent : indents) {
                std::string const difference
                    = zq::test::writing_difference(array, setting.mode, setting.nan, filter, indent);
                if (!difference.empty()) {
                    std::string const text(reinterpret_cast<char const*>(data), size);
                    std::fprintf(stderr,
                        "the writing roads differ (mode %d, NaN %d, filter %d, indent %u) on: %s\n%s\n",
                        static_cast<int>(setting.mode), static_cast<int>(setting.nan),
                        static_cast<int>(filter), indent, zq::test::shown(text).c_str(), difference.c_str());
                    std::abort();
                }
            }
    });
    return 0;
}
