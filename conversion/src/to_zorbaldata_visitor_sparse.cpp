// The builders of sparse arrays: buffers from the factory, and the array that takes them over.
#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <foundation/zorbaldata/element_types.hpp>

#include <complex>
#include <utility>

namespace foundation::zorbaldata::json::detail {

namespace {

// Each buffer is owned as soon as it exists, so a failure while the next is made frees it.
template <typename Pointer>
Pointer create_buffer(ArrayFactory const& factory, ArrayType type, unsigned long count)
{
    void* data = nullptr;
    void (*deleter)(void*) = nullptr;
    factory.createBuffer(&data, &deleter, type, count);
    return Pointer(static_cast<typename Pointer::pointer>(data), deleter);
}

} // namespace

template <typename T>
SparseBuffers<T> to_zorbaldata_visitor::create_sparse_buffers(unsigned long count) const
{
    using Indices = std::unique_ptr<unsigned long[], void (*)(void*)>;
    using Values = std::unique_ptr<void, void (*)(void*)>;
    auto rows = create_buffer<Indices>(factory_, ArrayType::UINT64, count);
    auto cols = create_buffer<Indices>(factory_, ArrayType::UINT64, count);
    auto values
        = create_buffer<Values>(factory_, foundation::zorbaldata::detail::ElementType<T>::value, count);
    return { std::move(rows), std::move(cols), std::move(values) };
}

template <typename T>
Array to_zorbaldata_visitor::create_sparse_array(
    std::vector<unsigned long> dimensions, unsigned long count, SparseBuffers<T> buffers) const
{
    return factory_.createSparseArray(std::move(dimensions), count,
        foundation::zorbaldata::detail::SparseElementType<T>::value, std::move(buffers.values),
        std::move(buffers.rows), std::move(buffers.cols));
}

#define ZQ_INSTANTIATE_SPARSE_BUILDERS(T)                                                                    \
    template SparseBuffers<T> to_zorbaldata_visitor::create_sparse_buffers(unsigned long) const;             \
    template Array to_zorbaldata_visitor::create_sparse_array(                                               \
        std::vector<unsigned long>, unsigned long, SparseBuffers<T>) const;

ZQ_INSTANTIATE_SPARSE_BUILDERS(bool)
ZQ_INSTANTIATE_SPARSE_BUILDERS(float)
ZQ_INSTANTIATE_SPARSE_BUILDERS(double)
ZQ_INSTANTIATE_SPARSE_BUILDERS(std::complex<float>)
ZQ_INSTANTIATE_SPARSE_BUILDERS(std::complex<double>)
#undef ZQ_INSTANTIATE_SPARSE_BUILDERS

} // namespace foundation::zorbaldata::json::detail
