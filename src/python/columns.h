#pragma once

#include <pybind11/numpy.h>

#include <cstddef>
#include <string>
#include <vector>

#include "library/zel.h"

// Arrays of NumPy as columns of the C interface.

namespace zel::python {

/// The numbers of one input over the shape of a call. Memory that one stride walks is used as it
/// stands; of any other (a year of weather beside a thousand lines) a block at a time is copied.
class Column {
public:
    /// `numbers` has the shape of the call.
    Column(std::string name, pybind11::array_t<double> numbers);

    /// The elements from `first` on, in the order of C.
    [[nodiscard]] zel_column block(std::size_t first, std::size_t count);

private:
    struct Axis {
        std::size_t extent;
        std::ptrdiff_t stride;  // bytes
    };

    void copy(std::size_t first, std::size_t count);
    [[nodiscard]] const double* at(std::ptrdiff_t offset) const;

    std::string name_;
    pybind11::array_t<double> numbers_;
    std::vector<Axis>
        axes_;  // the last one is the fastest; neighbours that one stride walks are one
    std::vector<double> copied_;
};

/// All columns of a call.
class Columns {
public:
    explicit Columns(const pybind11::dict& arrays);

    [[nodiscard]] const std::vector<zel_column>& block(std::size_t first, std::size_t count);

private:
    std::vector<Column> columns_;
    std::vector<zel_column> block_;
};

}  // namespace zel::python
