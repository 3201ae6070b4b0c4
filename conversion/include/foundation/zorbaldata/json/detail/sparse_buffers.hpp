// The three buffers of a sparse array under construction, which free themselves until the array takes them.
#pragma once

#include <memory>

namespace foundation::zorbaldata::json::detail {

/// The row indices, column indices and values of the stored elements of a sparse array of T, in
/// parallel, as the factory's createBuffer hands them out; to be filled and then handed to
/// to_zorbaldata_visitor::create_sparse_array.
template <typename T>
struct SparseBuffers {
    std::unique_ptr<unsigned long[], void (*)(void*)> rows;
    std::unique_ptr<unsigned long[], void (*)(void*)> cols;
    std::unique_ptr<void, void (*)(void*)> values;

    T* value_data() const noexcept { return static_cast<T*>(values.get()); }
};

} // namespace foundation::zorbaldata::json::detail
