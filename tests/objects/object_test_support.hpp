// What the object tests share: reading text with a factory of either kind, one line of text for what an
// object or handle array holds, and builders of objects and handles.
#pragma once

#include "expect_throw.hpp"

#include <foundation/zorbaldata.hpp>
#include <frontend/detail/parse_error.hpp>

#include <string>
#include <utility>
#include <vector>

namespace zq::test::objects {

namespace zd = foundation::zorbaldata;
namespace zj = foundation::zorbaljson;
using Dims = std::vector<unsigned long>;
using Objects = zd::ArrayFactory::Objects;

inline std::string const mismatched_size = R"(Data size does not match "zqsize" specified.)";

// The array of the JSON text, from a factory that makes objects or one that refuses them.
zd::Array read(std::string const& json, Objects objects = Objects::Supported);

// What an array holds, in one line that a table can spell out:
//   double        "5" for a scalar, else "2x2(1 3 2 4)" in storage order, "0x0()" when empty
//   char          'abc'
//   value objects "pkg.Cls(p,q) 1x2 [{p=1;q=2}, {p=3;q=4}]": the class and the properties it declares,
//                 the dimensions, then " ext 2x2" for external dimensions, the elements, and " meta{r=...}"
//                 for array properties. A heterogeneous array says "mixed" after its class, and each
//                 element then starts with its own class and declared properties: "pkg.A(p){p=1}".
//   handles       "handles 1x2 [#17 pkg.H{p=1}, #18 pkg.H{p=2}]": object id, then the value's element 0
//   cell          "cell 1x2 [E1, E2]"
//   others        the type's name and dimensions
std::string contents(zd::Array const& array);

// The properties of an object: the class declares them in this order, and they hold these values.
using Properties = std::vector<std::pair<std::string, zd::Array>>;

zd::ValueObject object(std::string const& class_name, Properties const& properties);

// A homogeneous array of the class: its elements in storage order, the class declaring the properties of
// the first.
zd::ValueObjectArray objects(
    Dims dims, std::string const& class_name, std::vector<Properties> const& elements);

// An array made without a class, holding the objects in storage order.
zd::ValueObjectArray mixed(Dims dims, std::vector<zd::ValueObject> const& elements);

// One object of the class that stands for an array of the external dimensions, with array properties.
zd::ValueObjectArray standing_for(Dims external, std::string const& class_name, Properties const& properties,
    Properties const& array_properties);

// The handle of the object id whose value is one object of the class, as a reader makes it.
zd::HandleObjectRef handle(long long object_id, std::string const& class_name, Properties const& properties);

zd::Array handles(Dims dims, std::vector<zd::HandleObjectRef> const& elements);

// The handle at index of a handle array.
zd::HandleObjectRef handle_at(zd::Array const& array, unsigned long index);

// The KVXID text of a virtual machine number below 256: "KVX:", the number, fifteen "0".
inline std::string kvx_text(unsigned n) { return "KVX:" + std::to_string(n) + std::string(15, '0'); }

} // namespace zq::test::objects
