// The documents read once each, so that checks and writers reuse the arrays and containers.
#include "fixtures.hpp"

#include "rapidjson_reader.hpp"

#include <foundation/zorbaldata/array_factory.hpp>
#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>

#include <map>
#include <utility>

namespace zq::bench {

foundation::zorbaldata::Array const& our_array(DocumentId id)
{
    static std::map<DocumentId, foundation::zorbaldata::Array> arrays;
    auto found = arrays.find(id);
    if (found == arrays.end()) {
        foundation::zorbaldata::ArrayFactory factory;
        auto array = foundation::zorbaldata::json::string_to_zorbaldata(document(id), factory);
        found = arrays.emplace(id, std::move(array)).first;
    }
    return found->second;
}

Containers const& rapidjson_containers(DocumentId id)
{
    static std::map<DocumentId, Containers> containers;
    auto found = containers.find(id);
    if (found == containers.end())
        found = containers.emplace(id, read_with_rapidjson(id, document(id))).first;
    return found->second;
}

} // namespace zq::bench
