// The failure path of json_cast, kept out of line so that the checked access stays small.
#include <foundation/json/json_cast.hpp>

#include <stdexcept>
#include <string>

namespace foundation::json::detail {

namespace {

constexpr char const* alternative_names[] = {
    traits<Undefined>::name, traits<Null>::name,   traits<bool>::name,
    traits<double>::name,    traits<std::string>::name, traits<Array>::name,
    traits<Object>::name,    traits<float>::name,  traits<long long>::name,
    traits<unsigned long long>::name,
};

} // namespace

void throw_invalid_conversion(int held, int wanted)
{
    throw std::runtime_error(std::string("invalid conversion: ") + alternative_names[held] + " to " +
                             alternative_names[wanted]);
}

} // namespace foundation::json::detail
