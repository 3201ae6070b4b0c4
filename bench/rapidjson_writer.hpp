// RapidJSON's Writer, which the suite sets beside ours.
#pragma once

#include "container_writer.hpp"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace zq::bench {

using JsonWriter = rapidjson::Writer<rapidjson::StringBuffer>;

} // namespace zq::bench
