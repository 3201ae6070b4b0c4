// The backend of one conversion from JSON: it makes every array through the caller's factory.
#pragma once

#include <frontend/detail/converting_iterator.hpp>
#include <frontend/detail/nesting_limit.hpp>
#include <frontend/detail/object_elements.hpp>

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/array_factory.hpp>
#include <foundation/zorbaldata/array_type.hpp>
#include <foundation/zorbaldata/handle_object.hpp>
#include <foundation/zorbaldata/json/detail/sparse_buffers.hpp>

#include <boost/optional.hpp>

#include <memory>

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace foundation::zorbaldata::json::detail {

/// Lives on the stack of one conversion. The frontend hands it dimensions and ranges of elements that
/// convert as they are read, or for sparse arrays fills buffers that it made, and never sees the
/// factory; the backend never sees a JSON value. Every
/// builder makes its array before it reads the first element, so a size the factory refuses is
/// reported first, and the first bad element in storage order before a wrong count of elements.
class to_zorbaldata_visitor {
public:
    template <typename T, typename Position = foundation::zorbaljson::detail::ElementCursor>
    using ConvertingIterator = foundation::zorbaljson::detail::ConvertingIterator<T, Position>;

    explicit to_zorbaldata_visitor(ArrayFactory& factory) noexcept : factory_(factory) {}

    to_zorbaldata_visitor(to_zorbaldata_visitor const&) = delete;
    to_zorbaldata_visitor& operator=(to_zorbaldata_visitor const&) = delete;

    ArrayFactory& factory() const noexcept { return factory_; }
    std::unordered_map<long long, HandleObjectRef>& handle_table() noexcept { return handle_table_; }
    /// How deep the conversion stands in the document; one counter for all its readers.
    foundation::zorbaljson::detail::NestingDepth& nesting() noexcept { return nesting_; }

    /// A DOUBLE array of the dimensions holding data in storage order.
    /// @throws foundation::zorbaljson::MismatchedZQSize when data and the element count differ,
    /// after the array was made.
    Array create_double_array(std::vector<unsigned long> dimensions, std::vector<double> const& data) const;

    /// The 1-by-1 DOUBLE (T double) or LOGICAL (T bool) array holding value: a bare JSON number or
    /// boolean, which documents hold by the million as struct fields and cell elements.
    template <typename T>
    Array create_scalar(T value) const;

    /// The char array of a JSON string: its UTF-16 code units as one row, 0-by-0 for the empty string.
    /// @throws yx::i18n::CvtInvalidCharacter for bytes that are not UTF-8.
    Array create_char_array(std::string_view utf8) const;

    /// An array of T (a numeric type or bool) of the dimensions, its elements read from begin to end in
    /// storage order. Elements past the array's end are never read.
    /// @throws foundation::zorbaljson::MismatchedZQSize when the range ends before the array or goes on
    /// after it. @throws what reading an element throws, for the first element that fails.
    /// @throws the factory's exceptions, such as EArrayTooLarge, before any element is read.
    template <typename T, typename Position>
    Array create_real_array(std::vector<unsigned long> dimensions, ConvertingIterator<T, Position> begin,
        ConvertingIterator<T, Position> end) const;

    /// The array of T (a numeric type) of the dimensions whose elements data holds in storage order, as
    /// many as the dimensions ask, taken over without a copy.
    /// @throws the factory's exceptions, such as EArrayTooLarge; data is freed then.
    template <typename T>
    Array adopt_real_array(std::vector<unsigned long> dimensions, std::unique_ptr<void, void (*)(void*)> data) const;

    /// A complex array of std::complex<T> of the dimensions, its elements read from begin to end as
    /// pairs, real part first.
    /// @throws foundation::zorbaljson::MismatchedZQSize when the range ends where an element begins or
    /// goes on after the array. @throws foundation::zorbaljson::IncompleteComplexData when it ends after
    /// a real part. Both are found before the parts of that element are read. @throws as
    /// create_real_array otherwise.
    template <typename T>
    Array create_complex_array(
        std::vector<unsigned long> dimensions, ConvertingIterator<T> begin, ConvertingIterator<T> end) const;

    /// A char array of the dimensions holding the UTF-16 code units of utf8 in storage order.
    /// @throws the factory's exceptions first; then yx::i18n::CvtInvalidCharacter for bytes that are not
    /// UTF-8; then foundation::zorbaljson::MismatchedZQSize when the code units are not as many as the
    /// elements.
    Array create_char_array(std::vector<unsigned long> dimensions, std::string_view utf8) const;

    /// A CELL array of the dimensions, each element the array read from the range, in storage order.
    /// Nested conversions run as the elements are read.
    /// @throws foundation::zorbaljson::MismatchedZQSize, once the loop has ended, when the range and
    /// the elements did not end together. @throws what a nested conversion throws, unchanged.
    Array create_cell(ConvertingIterator<Array> begin, ConvertingIterator<Array> end,
        std::vector<unsigned long> const& dimensions) const;

    /// A STRING array of the dimensions, its elements read from the range in storage order: UTF-8 text
    /// that becomes UTF-16, or none for a missing element, which differs from the empty string.
    /// @throws yx::i18n::CvtInvalidCharacter for text that is not UTF-8. @throws
    /// foundation::zorbaljson::MismatchedZQSize once the loop has ended, as create_cell.
    /// @throws what reading an element throws, for the first element that fails.
    Array create_string(ConvertingIterator<boost::optional<std::string_view>> begin,
        ConvertingIterator<boost::optional<std::string_view>> end,
        std::vector<unsigned long> const& dimensions) const;

    /// A STRUCT array of the dimensions with the fields, in this order, filled field by field: for each
    /// field in turn its elements in storage order, each holding the next array of the one running range.
    /// The range is a ChainedConvertingIterator over the fields of a large form, or a ConvertingIterator
    /// over the values of a plain object. Nothing is read, and no name tested here, when the array has
    /// no elements.
    /// @throws foundation::zorbaljson::InvalidFieldName("") when the factory refuses the names;
    /// InvalidFieldName(name) when a name is no ASCII letter followed by ASCII letters, digits and
    /// underscores, 2049 bytes at most, tested when its field's turn comes. @throws
    /// foundation::zorbaljson::MismatchedZQSize when the range stands in front of an empty field's list
    /// with elements left to fill, or when it and the elements have not ended together after the last
    /// field. @throws what reading an element throws, unchanged.
    template <typename Iterator>
    Array create_struct(Iterator begin, Iterator end, std::vector<unsigned long> const& dimensions,
        std::vector<std::string> const& field_names) const;

    /// An ENUM array of the class and the dimensions, its elements the member names read from the range in
    /// storage order; the names are not tested against the class. An empty range leaves every element
    /// the member with the empty name.
    /// @throws foundation::zorbaljson::MismatchedZQSize once the loop has ended, as create_cell.
    /// @throws what reading an element throws, for the first element that fails.
    Array create_enum(ConvertingIterator<std::string_view> begin, ConvertingIterator<std::string_view> end,
        std::vector<unsigned long> const& dimensions, std::string const& class_name) const;

    /// The buffers for count stored elements of a sparse array of T (bool, float, double or their
    /// complex forms): rows, then columns, then values, each made by the factory's createBuffer.
    /// @throws the factory's exceptions, such as EArrayTooLarge.
    template <typename T>
    SparseBuffers<T> create_sparse_buffers(unsigned long count) const;

    /// The sparse array of the dimensions whose count stored elements the filled buffers hold, in any
    /// order; the factory combines elements at one place and sorts them.
    /// @throws the factory's exceptions: EInvalidArgument for other than two dimensions,
    /// EIndexOutOfRange for an index outside them.
    template <typename T>
    Array create_sparse_array(
        std::vector<unsigned long> dimensions, unsigned long count, SparseBuffers<T> buffers) const;

    template <typename T>
    using EntryIterator = ConvertingIterator<T, foundation::zorbaljson::detail::ObjectEntryPosition>;
    using PropertyEntry = foundation::zorbaljson::detail::PropertyEntry;
    using PropertyMap = foundation::zorbaljson::detail::PropertyMap;
    using HeterogeneousElement = foundation::zorbaljson::detail::HeterogeneousElement;

    /// A VALUE_OBJECT array of one element of the class, standing for an array of the dimensions: each
    /// property of data holds the values of all those elements (as many as the dimensions' product, 1 for
    /// none), each of metadata belongs to the array as a whole. A property whose conversion throws is
    /// left out, whatever was thrown.
    /// @throws foundation::zorbaljson::ObjectNotSupportedException, with the class name, when the
    /// factory makes no objects, before any property is read. @throws
    /// foundation::zorbaljson::MismatchedZQSize for a property of data of another element count.
    /// @throws foundation::zorbaljson::PropertyExistsException for a name in both ranges.
    Array create_single_object(EntryIterator<PropertyEntry> data, EntryIterator<PropertyEntry> data_end,
        EntryIterator<PropertyEntry> metadata, EntryIterator<PropertyEntry> metadata_end,
        std::vector<unsigned long> const& dimensions, std::string const& class_name) const;

    /// A VALUE_OBJECT array of the class and the dimensions. The class declares the properties of the
    /// first element, which is therefore read twice; every element gets those properties, with the
    /// empty array where it lacks one, and nothing else.
    /// @throws foundation::zorbaljson::MismatchedZQSize once the loop has ended, as create_cell.
    /// @throws what reading an element throws; the factory's exceptions, unchanged (such as
    /// foundation::zorbaldata::ObjectNotSupportedException).
    Array create_object_array(ConvertingIterator<PropertyMap> begin, ConvertingIterator<PropertyMap> end,
        std::vector<unsigned long> const& dimensions, std::string const& class_name) const;

    /// A VALUE_OBJECT array without a class of the dimensions, each element of its own class with its own
    /// properties; every element is read twice, for its properties and for its class. An empty range
    /// leaves the elements as the factory made them, whatever the dimensions.
    /// @throws as create_object_array.
    Array create_heterogeneous_array(ConvertingIterator<HeterogeneousElement> begin,
        ConvertingIterator<HeterogeneousElement> end, std::vector<unsigned long> const& dimensions) const;

    /// A HANDLE_OBJECT_REF array of the dimensions whose elements are the objects of the range, as
    /// create_object_array makes them, with the ids read from id on, a decimal number each, of the
    /// virtual machine kvx_id, a decimal number whose low eight bits make its KVXID. Within one
    /// conversion, one object id has one handle: a later element with a known id gets that handle, and
    /// its own properties are dropped. There is an id for each element of the range.
    /// @throws foundation::zorbaljson::InvaildKVXID for an empty kvx_id, before anything is read.
    /// @throws as create_object_array; then the std::invalid_argument or std::out_of_range of std::stoul
    /// for kvx_id and of std::stoll for the first bad id.
    Array create_handle_array(ConvertingIterator<PropertyMap> begin, ConvertingIterator<PropertyMap> end,
        ConvertingIterator<std::string> id, std::string const& kvx_id, std::vector<unsigned long> const& dimensions,
        std::string const& class_name);

    /// As create_handle_array, each object of its own class as in create_heterogeneous_array; an empty
    /// range with elements to fill fails too.
    /// @throws as create_handle_array.
    Array create_heterogeneous_handle_array(ConvertingIterator<HeterogeneousElement> begin,
        ConvertingIterator<HeterogeneousElement> end, ConvertingIterator<std::string> id,
        std::string const& kvx_id, std::vector<unsigned long> const& dimensions);

private:
    /// Fills array with the objects of the range, each of its own class.
    /// @throws foundation::zorbaljson::MismatchedZQSize, as create_cell; what reading an element throws.
    void fill_heterogeneous_array(Array& array, ConvertingIterator<HeterogeneousElement> begin,
        ConvertingIterator<HeterogeneousElement> end) const;

    /// The HANDLE_OBJECT_REF array of the dimensions holding the handles of the objects, whose ids are
    /// read from id on, of the virtual machine kvx_id.
    Array create_handles(Array const& objects, ConvertingIterator<std::string> id, std::string const& kvx_id,
        std::vector<unsigned long> const& dimensions);

    ArrayFactory& factory_;
    std::unordered_map<long long, HandleObjectRef> handle_table_;
    foundation::zorbaljson::detail::NestingDepth nesting_;
};

} // namespace foundation::zorbaldata::json::detail
