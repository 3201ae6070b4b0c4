// A pair of iterators that bounds a sequence of elements.
#pragma once

#include <utility>

namespace foundation::zorbaldata {

/// The elements from begin() up to end(); both are handed out as copies.
template <template <typename> class Iterator, typename T>
class Range {
public:
    Range(Iterator<T> begin, Iterator<T> end) : begin_(std::move(begin)), end_(std::move(end)) {}

    Iterator<T> begin() const { return begin_; }
    Iterator<T> end() const { return end_; }

private:
    Iterator<T> begin_;
    Iterator<T> end_;
};

} // namespace foundation::zorbaldata
