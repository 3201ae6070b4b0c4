// The readers of the large notation, one overload for each array kind, over one object being read.
#pragma once

#include <frontend/detail/types.hpp>

#include <frontend/detail/json_node.hpp>
#include <foundation/zorbaldata/array.hpp>

#include <string>
#include <vector>

namespace foundation::zorbaljson::detail {

/// One large-form object ("zqtype", "zqsize", "zqdata") whose kind is known, read through the backend
/// B. It refers into the JSON tree, which must outlive it, and owns only the dimensions.
/// dispatch_on_ZorbalType calls the overload of the kind. Each reader reads "zqdata" first, then its
/// flags ("zqcomplex", then "zqsparse"), then makes the array and converts the elements into it.
template <typename B>
class zorbal_json_large_format_visitor {
public:
    using Array = foundation::zorbaldata::Array;

    /// Reads the dimensions from size, the list at "zqsize": each a whole number in the double
    /// alternative, from 0 to below 2^64, and at least two of them. Their product is not checked here.
    /// @throws InvalidZQSize "\"zqsize\" must be an array of 2 or more positive integers" otherwise.
    zorbal_json_large_format_visitor(JsonNode object, JsonNode data, JsonNode size, B& backend);

    /// A real or complex numeric array: "zqdata" holds one JSON value for each element in storage order,
    /// or for "zqcomplex" true two, real part first. Elements read as json2num reads them; complex parts
    /// of float and double refuse the plain strings "NaN", "Inf" and "-Inf".
    /// @throws InvalidZQDataType when "zqdata" is no JSON array (after a log line); InvalidPropertyType
    /// when a flag is no boolean; InvalidZQTypeForSparse for a sparse integer array; then the failures of
    /// the builders and of json2num.
    template <NumericZorbalTypeTag Tag>
    Array operator()(Tag) const;

    /// A logical array: "zqdata" holds a JSON boolean for each element; "zqcomplex" is not read.
    /// @throws InvalidZQDataType, InvalidPropertyType for "zqsparse", InvalidLogicalElem for the first
    /// element that is no boolean, MismatchedZQSize.
    Array operator()(ZorbalTypeTag<ZorbalLogical>) const;

    /// A char array: "zqdata" holds exactly one string, the code units in storage order; no flag is read.
    /// @throws InvalidZQDataType; InvalidCharArrayZQData when the list is not one string; then as
    /// to_zorbaldata_visitor::create_char_array.
    Array operator()(ZorbalTypeTag<ZorbalChar>) const;

    /// A cell array: each entry of "zqdata" is any JSON value, converted as a whole document would be,
    /// with the same backend.
    /// @throws InvalidZQDataType; what an entry's conversion throws, unchanged; MismatchedZQSize after
    /// the loop.
    Array operator()(ZorbalTypeTag<ZorbalCell>) const;

    /// A struct array: "zqdata" is an object with one key for each field, in key order, and a list of
    /// element values under each; the lists, taken end to end, fill the fields one after the other.
    /// Each value is converted as a whole document would be, with the same backend.
    /// @throws InvalidZQDataType when "zqdata" is no JSON object; the "invalid conversion: "
    /// std::runtime_error when a field's value is no JSON array (for the first field before the array
    /// is made); then as to_zorbaldata_visitor::create_struct.
    Array operator()(ZorbalTypeTag<ZorbalStruct>) const;
    /// An enumeration array of the class named in "zqtype": each entry of "zqdata" is a member's name.
    /// @throws InvalidZQDataType when "zqdata" is no JSON array; the "invalid conversion: "
    /// std::runtime_error for the first entry that is no string; MismatchedZQSize after the loop.
    Array operator()(ZorbalTypeTag<ZorbalEnum>) const;
    /// A string array: each entry of "zqdata" is a JSON string, or {"zqdata":"missing"} (other keys
    /// ignored) for a missing element.
    /// @throws InvalidZQDataType when "zqdata" is no JSON array; for the first bad entry, the
    /// "invalid conversion: " std::runtime_error of an entry that is neither string nor object,
    /// std::runtime_error "zqdata field not found" or "Expected a data inside special float objects to
    /// be a string", InvalidStringElemType for another word than "missing", yx::i18n::CvtInvalidCharacter
    /// for text that is no UTF-8; MismatchedZQSize after the loop.
    Array operator()(ZorbalTypeTag<ZorbalString>) const;
    /// Objects of the class named in "zqtype": value objects, or for handle true, handle objects of
    /// which "zqhandle" gives the identities. "zqdata" is one object standing for an array of the
    /// dimensions (properties of as many elements each, array properties in "zqmetadata"; handle is then
    /// not looked at), or a list of objects, one for each element, of the class or, under the class
    /// "zorbal.mixin.Heterogeneous", each of the class in its own "zqtype". The single object is tried
    /// first, for every class but the heterogeneous one; its failures other than MismatchedZQSize,
    /// PropertyExistsException and ObjectNotSupportedException send the reading to the list.
    /// @throws InvalidZQDataType("object", "JSON array", "") when "zqdata" is neither object nor list,
    /// or is an object that could not be read; MismatchedZQSize for a property of the single object
    /// whose element count differs from the dimensions', or a list of another length;
    /// PropertyExistsException for a name in both "zqdata" and "zqmetadata";
    /// ObjectNotSupportedException when the factory makes no objects (from the single object; the list
    /// lets foundation::zorbaldata::ObjectNotSupportedException pass). For lists: what an element's
    /// properties throw as element_properties and heterogeneous_element say; for handles also
    /// read_handle_reference's failures, MismatchInRefAndDataLength, InvaildKVXID and those of
    /// std::stoul and std::stoll for ids that are no decimal numbers.
    Array object_helper(bool handle) const;

private:
    /// The single-object form. @throws as object_helper, and anything else for the list to be tried.
    Array read_single_object(std::string const& class_name) const;
    /// The list of a homogeneous value object or handle array.
    Array read_object_list(bool handle, std::string const& class_name) const;
    /// The list of a heterogeneous value object or handle array.
    Array read_heterogeneous_list(bool handle) const;

    /// A sparse array of T (float, double or bool) from the lists in "zqdata": rows, columns and, but
    /// for logical arrays, values (for complex two for each element, real part first). Indices are
    /// doubles, truncated, and go to the factory as they are.
    /// @throws InvalidSparseArray for a wrong number of lists; the "invalid conversion: "
    /// std::runtime_error when the row list of a numeric kind is no list, CannotCastToArray when another
    /// list is none; MismatchInRowColDataArraySize when their lengths differ; InvalidZQDataForSparse
    /// with the element's failure for the first index or value that cannot be read; then the factory's
    /// exceptions, such as EIndexOutOfRange.
    template <typename T>
    Array read_sparse(JsonNode list, bool complex) const;

    JsonNode object_;
    JsonNode data_;
    std::vector<unsigned long> dims_;
    B* backend_;
};

} // namespace foundation::zorbaljson::detail
