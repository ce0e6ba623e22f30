#include "python/columns.h"

#include <algorithm>

namespace py = pybind11;

namespace zel::python {

Column::Column(std::string name, py::array_t<double> numbers)
    : name_(std::move(name)), numbers_(std::move(numbers)) {
    for (py::ssize_t d = 0; d < numbers_.ndim(); ++d) {
        const Axis axis{static_cast<std::size_t>(numbers_.shape(d)), numbers_.strides(d)};
        if (axis.extent == 1) continue;
        const auto extent = static_cast<std::ptrdiff_t>(axis.extent);
        if (!axes_.empty() && axes_.back().stride == axis.stride * extent)
            axes_.back() = {axes_.back().extent * axis.extent, axis.stride};
        else
            axes_.push_back(axis);
    }
    if (axes_.empty()) axes_.push_back({1, 0});
}

zel_column Column::block(std::size_t first, std::size_t count) {
    if (count == 0) return {name_.c_str(), numbers_.data(), 0};
    if (axes_.size() > 1) {
        copy(first, count);
        return {name_.c_str(), copied_.data(), sizeof(double)};
    }
    const std::ptrdiff_t stride = axes_.front().stride;
    return {name_.c_str(), at(static_cast<std::ptrdiff_t>(first) * stride), stride};
}

void Column::copy(std::size_t first, std::size_t count) {
    copied_.clear();
    std::vector<std::size_t> index(axes_.size());
    for (std::size_t d = axes_.size(); d-- > 0; first /= axes_[d].extent)
        index[d] = first % axes_[d].extent;
    const Axis& inner = axes_.back();
    while (copied_.size() < count) {
        std::ptrdiff_t from = 0;
        for (std::size_t d = 0; d < axes_.size(); ++d)
            from += static_cast<std::ptrdiff_t>(index[d]) * axes_[d].stride;
        const std::size_t run = std::min(count - copied_.size(), inner.extent - index.back());
        for (std::size_t k = 0; k < run; ++k, from += inner.stride) copied_.push_back(*at(from));
        index.back() += run;
        for (std::size_t d = axes_.size(); --d > 0 && index[d] == axes_[d].extent;) {
            index[d] = 0;
            ++index[d - 1];
        }
    }
}

const double* Column::at(std::ptrdiff_t offset) const {
    const char* const start = static_cast<const char*>(static_cast<const void*>(numbers_.data()));
    return static_cast<const double*>(static_cast<const void*>(start + offset));
}

Columns::Columns(const py::dict& arrays) {
    for (const auto& [name, numbers] : arrays)
        columns_.emplace_back(name.cast<std::string>(), numbers.cast<py::array_t<double>>());
}

const std::vector<zel_column>& Columns::block(std::size_t first, std::size_t count) {
    block_.clear();
    for (Column& column : columns_) block_.push_back(column.block(first, count));
    return block_;
}

}  // namespace zel::python
