// Everything the array library offers, in one include.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/array_factory.hpp>
#include <foundation/zorbaldata/array_type.hpp>
#include <foundation/zorbaldata/char_array.hpp>
#include <foundation/zorbaldata/class_info.hpp>
#include <foundation/zorbaldata/element_access.hpp>
#include <foundation/zorbaldata/enum_array.hpp>
#include <foundation/zorbaldata/exceptions.hpp>
#include <foundation/zorbaldata/forward_iterator.hpp>
#include <foundation/zorbaldata/handle_object.hpp>
#include <foundation/zorbaldata/identifiers.hpp>
#include <foundation/zorbaldata/object_filter.hpp>
#include <foundation/zorbaldata/object_operations.hpp>
#include <foundation/zorbaldata/property.hpp>
#include <foundation/zorbaldata/range.hpp>
#include <foundation/zorbaldata/reference.hpp>
#include <foundation/zorbaldata/sparse_array.hpp>
#include <foundation/zorbaldata/standalone.hpp>
#include <foundation/zorbaldata/struct_array.hpp>
#include <foundation/zorbaldata/typed_array.hpp>
#include <foundation/zorbaldata/typed_iterator.hpp>
#include <foundation/zorbaldata/value_object.hpp>
#include <foundation/zorbaldata/value_object_array.hpp>
