// The readers of the ten numeric kinds, real and complex, one template over the kind.
#include <frontend/detail/large_format_visitor.hpp>

#include <frontend/detail/converting_iterator.hpp>
#include <frontend/detail/notation_keys.hpp>
#include <frontend/detail/numeric_elements.hpp>
#include <frontend/detail/parse_error.hpp>
#include <frontend/detail/property_readers.hpp>
#include <frontend/detail/read_data.hpp>

#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <type_traits>
#include <typeinfo>

namespace foundation::zorbaljson::detail {

namespace {

using foundation::json::detail::PackedForm;

// The kinds whose numbers the tape packs.
template <typename T>
constexpr bool packable = std::is_same_v<T, double> || std::is_same_v<T, long long> || std::is_same_v<T, unsigned long long>;

// Whether numbers packed in form are the elements of an array of T word for word, once integers are
// turned into doubles for a double array. Every such number is a valid element, so no element can fail.
template <typename T>
    requires packable<T>
bool packed_as(std::uint8_t form) noexcept
{
    if constexpr (std::is_same_v<T, double>)
        return form == PackedForm::packed_doubles || form == PackedForm::packed_integer_tokens;
    else if constexpr (std::is_same_v<T, long long>)
        return form == PackedForm::packed_int64;
    else
        return form == PackedForm::packed_uint64;
}

bool holds_count(std::vector<unsigned long> const& dims, std::size_t count) noexcept
{
    unsigned long product = 1;
    for (unsigned long const extent : dims)
        if (__builtin_mul_overflow(product, extent, &product))
            return false;
    return product == count;
}

// The numbers of a document's data that the tape can hand over become the array without a copy. The
// array is the one the fill would make: every element valid, as many as the dimensions ask, so the
// factory's refusal of the size is the one failure left, as it is the first one of the fill.
template <typename T, typename B>
std::optional<foundation::zorbaldata::Array> take_whole(B& backend, JsonNode list, std::vector<unsigned long> const& dims)
{
    // Only the packable kinds have an adopting factory entry to link against, optimised or not.
    if constexpr (!packable<T>) {
        return std::nullopt;
    } else {
        std::uint8_t const form = list.packed_form();
        if (!packed_as<T>(form) || !holds_count(dims, list.size()))
            return std::nullopt;
        void* const words = list.take_numbers();
        if (!words)
            return std::nullopt;
        std::unique_ptr<void, void (*)(void*)> data(words, std::free);
        if (std::is_same_v<T, double> && form == PackedForm::packed_integer_tokens) {
            auto* const word = static_cast<std::uint64_t*>(words);
            for (std::size_t i = 0, count = list.size(); i != count; ++i)
                word[i] = std::bit_cast<std::uint64_t>(static_cast<double>(static_cast<long long>(word[i])));
        }
        return backend.template adopt_real_array<T>(dims, std::move(data));
    }
}

} // namespace

template <typename B>
template <NumericZorbalTypeTag Tag>
foundation::zorbaldata::Array zorbal_json_large_format_visitor<B>::operator()(Tag) const
{
    using Traits = ZorbalTypeTraits<Tag::value>;
    using T = typename Traits::element_type;
    // The list, then both flags, whichever kind of array follows.
    JsonNode const list = read_data_array(data_, Traits::name);
    bool const complex = read_flag(object_, zqcomplex_key);
    bool const sparse = read_flag(object_, zqsparse_key);
    if (sparse) {
        if constexpr (std::is_integral_v<T>)
            throw InvalidZQTypeForSparse(typeid(T).name());
        else
            return read_sparse<T>(list, complex);
    }
    if (complex) {
        ElementConverter<T> const convert(&complex_part<T>);
        auto const [begin, end] = converting_range(list, convert);
        return backend_->create_complex_array(dims_, begin, end);
    }
    if (auto whole = take_whole<T>(*backend_, list, dims_))
        return std::move(*whole);
    ElementConverter<T> const convert(&numeric_element<T>);
    auto const [begin, end] = converting_range(list, convert);
    return backend_->create_real_array(dims_, begin, end);
}

using Backend = foundation::zorbaldata::json::detail::to_zorbaldata_visitor;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::operator()(ZorbalTypeTag<ZorbalInt8>) const;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::operator()(ZorbalTypeTag<ZorbalInt16>) const;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::operator()(ZorbalTypeTag<ZorbalInt32>) const;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::operator()(ZorbalTypeTag<ZorbalInt64>) const;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::operator()(ZorbalTypeTag<ZorbalUInt8>) const;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::operator()(ZorbalTypeTag<ZorbalUInt16>) const;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::operator()(ZorbalTypeTag<ZorbalUInt32>) const;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::operator()(ZorbalTypeTag<ZorbalUInt64>) const;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::operator()(ZorbalTypeTag<ZorbalSingle>) const;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::operator()(ZorbalTypeTag<ZorbalDouble>) const;

} // namespace foundation::zorbaljson::detail
