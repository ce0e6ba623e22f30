#include <pybind11/stl.h>

#include <array>
#include <memory>
#include <thread>

#include "python/columns.h"

// The module `_zel`: the C interface for the Python files of the package, which turn what users
// give into arrays of one shape.

namespace py = pybind11;

namespace zel::python {
namespace {

/// Raises `InputError` or `Error` of the package for the last call of this thread.
void check(zel_status status) {
    if (status == ZEL_DONE) return;
    const py::str en(zel_last_error(ZEL_ENGLISH));
    const py::str de(zel_last_error(ZEL_GERMAN));
    const char* const name = status == ZEL_REFUSED ? "InputError" : "Error";
    const py::object type = py::module_::import("zel._errors").attr(name);
    PyErr_SetObject(type.ptr(), type(en, de).ptr());
    throw py::error_already_set();
}

template <class Object>
Object* made(Object* object) {
    if (object == nullptr) throw std::bad_alloc();
    return object;
}

/// A case, which Python fills and then rates.
class Case {
public:
    explicit Case(int area) : it_(made(zel_case_new(static_cast<zel_area>(area))), zel_case_free) {}

    void read_file(const std::string& path) { check(zel_case_read_file(it_.get(), path.c_str())); }
    void set_conductor(const std::string& name) {
        check(zel_case_set_conductor(it_.get(), name.c_str()));
    }
    void set_flag(const std::string& name, bool yes) {
        check(zel_case_set_flag(it_.get(), name.c_str(), yes ? 1 : 0));
    }
    void set_number(const std::string& name, double number) {
        check(zel_case_set_number(it_.get(), name.c_str(), number));
    }
    void set_text(const std::string& name, const std::string& text) {
        check(zel_case_set_text(it_.get(), name.c_str(), text.c_str()));
    }
    [[nodiscard]] bool selects(int method) const {
        int yes = 0;
        check(zel_case_selects(it_.get(), static_cast<zel_method>(method), &yes));
        return yes != 0;
    }
    [[nodiscard]] const zel_case* get() const { return it_.get(); }

private:
    std::unique_ptr<zel_case, void (*)(zel_case*)> it_;
};

/// How a call is made: what is given, how many threads, and what is to be known of the inputs.
class Options {
public:
    Options(int given, unsigned threads, int radiation, bool constant_heat_capacity)
        : it_(made(zel_options_new()), zel_options_free) {
        check(zel_options_given(it_.get(), static_cast<zel_given>(given)));
        check(zel_options_threads(it_.get(), threads));
        check(zel_options_radiation(it_.get(), static_cast<zel_radiation>(radiation)));
        check(zel_options_heat_capacity(it_.get(), constant_heat_capacity ? 0 : 1));
    }
    [[nodiscard]] const zel_options* get() const { return it_.get(); }

private:
    std::unique_ptr<zel_options, void (*)(zel_options*)> it_;
};

using Shape = std::vector<py::ssize_t>;

std::size_t elements_of(const Shape& shape) {
    std::size_t count = 1;
    for (const py::ssize_t extent : shape) count *= static_cast<std::size_t>(extent);
    return count;
}

/// New memory for results, and where the elements from `first` on go.
struct Numbers {
    explicit Numbers(const Shape& shape) : array(shape), memory(array.mutable_data()) {}
    [[nodiscard]] zel_numbers from(std::size_t first) const {
        return {memory + first, sizeof(double)};
    }
    py::array_t<double> array;
    double* memory;
};
struct Codes {
    explicit Codes(const Shape& shape) : array(shape), memory(array.mutable_data()) {}
    [[nodiscard]] zel_codes from(std::size_t first) const {
        return {memory + first, sizeof(std::int32_t)};
    }
    py::array_t<std::int32_t> array;
    std::int32_t* memory;
};

// After how many elements Python may interrupt: a steady state takes microseconds, a change of
// state milliseconds.
constexpr std::size_t quick_block = 100000;
std::size_t slow_block() { return 64 * std::max(1U, std::thread::hardware_concurrency()); }

/// Calls `rate` for one block of elements after the other, without the lock of the interpreter. A
/// series without elements is a block too, so that its inputs are judged.
template <class Rate>
void in_blocks(const py::dict& arrays, const Shape& shape, std::size_t size, Rate rate) {
    Columns columns(arrays);
    const std::size_t count = elements_of(shape);
    std::size_t first = 0;
    do {
        const std::size_t block = std::min(size, count - first);
        zel_status status = ZEL_DONE;
        {
            const py::gil_scoped_release released;
            const std::vector<zel_column>& taken = columns.block(first, block);
            status = rate(first, block, taken.data(), taken.size());
        }
        check(status);
        if (PyErr_CheckSignals() != 0) throw py::error_already_set();
        first += block;
    } while (first < count);
}

py::tuple rate_steady(const Case& it, int method, const Options& options, const py::dict& arrays,
                      const Shape& shape) {
    std::array<Numbers, 4> found{Numbers(shape), Numbers(shape), Numbers(shape), Numbers(shape)};
    Codes code(shape);
    in_blocks(arrays, shape, quick_block,
              [&](std::size_t first, std::size_t count, const zel_column* columns, std::size_t n) {
                  const zel_steady out{found[0].from(first), found[1].from(first),
                                       found[2].from(first), found[3].from(first),
                                       code.from(first)};
                  return zel_rate_steady(it.get(), options.get(), static_cast<zel_method>(method),
                                         columns, n, count, &out);
              });
    return py::make_tuple(found[0].array, found[1].array, found[2].array, found[3].array,
                          code.array);
}

py::tuple rate_tatl(const Case& it, const Options& options, const py::dict& arrays,
                    const Shape& shape) {
    std::array<Numbers, 3> found{Numbers(shape), Numbers(shape), Numbers(shape)};
    std::array<Codes, 2> code{Codes(shape), Codes(shape)};
    in_blocks(arrays, shape, slow_block(),
              [&](std::size_t first, std::size_t count, const zel_column* columns, std::size_t n) {
                  const zel_tatl out{found[0].from(first), found[1].from(first),
                                     found[2].from(first), code[0].from(first),
                                     code[1].from(first)};
                  return zel_rate_tatl(it.get(), options.get(), columns, n, count, &out);
              });
    return py::make_tuple(found[0].array, found[1].array, found[2].array, code[0].array,
                          code[1].array);
}

py::list rate_transient(const Case& it, int method, const Options& options, const py::dict& arrays,
                        const Shape& shape) {
    struct Row {
        explicit Row(const Shape& its) : current(its), temperature(its), duration(its), code(its) {}
        Numbers current, temperature, duration;
        Codes code;
    };
    std::vector<Row> rows;
    for (std::size_t k = 0; k < ZEL_STATE_CHANGES; ++k) rows.emplace_back(shape);
    in_blocks(arrays, shape, slow_block(),
              [&](std::size_t first, std::size_t count, const zel_column* columns, std::size_t n) {
                  std::array<zel_state_change, ZEL_STATE_CHANGES> out{};
                  for (std::size_t k = 0; k < out.size(); ++k)
                      out[k] = {rows[k].current.from(first), rows[k].temperature.from(first),
                                rows[k].duration.from(first), rows[k].code.from(first)};
                  return zel_rate_transient(it.get(), options.get(),
                                            static_cast<zel_method>(method), columns, n, count,
                                            out.data());
              });
    py::list found;
    for (const Row& row : rows)
        found.append(py::make_tuple(row.current.array, row.temperature.array, row.duration.array,
                                    row.code.array));
    return found;
}

py::tuple rate_short_circuit(const Case& it, const Options& options, const py::dict& arrays,
                             const Shape& shape) {
    std::vector<Numbers> found;
    for (std::size_t k = 0; k < zel_short_circuit_result_count(); ++k) found.emplace_back(shape);
    Codes code(shape);
    in_blocks(arrays, shape, quick_block,
              [&](std::size_t first, std::size_t count, const zel_column* columns, std::size_t n) {
                  std::vector<zel_numbers> out;
                  for (const Numbers& numbers : found) out.push_back(numbers.from(first));
                  return zel_rate_short_circuit(it.get(), options.get(), columns, n, count,
                                                out.data(), code.from(first));
              });
    py::dict named;
    for (std::size_t k = 0; k < found.size(); ++k)
        named[zel_short_circuit_result_name(k)] = found[k].array;
    return py::make_tuple(named, code.array);
}

std::string explain(const Case& it, int method, const Options& options, const py::dict& arrays,
                    std::size_t index) {
    Columns columns(arrays);
    const std::vector<zel_column>& taken = columns.block(index, 1);
    std::array<char, 1000> text{};
    check(zel_explain(it.get(), options.get(), static_cast<zel_method>(method), taken.data(),
                      taken.size(), 0, ZEL_ENGLISH, text.data(), text.size()));
    return text.data();
}

py::list inputs(int area) {
    py::list all;
    for (std::size_t i = 0; i < zel_input_count(static_cast<zel_area>(area)); ++i) {
        zel_input input{};
        check(zel_input_at(static_cast<zel_area>(area), i, &input));
        all.append(py::make_tuple(input.name, input.field, input.unit, input.low, input.high,
                                  static_cast<int>(input.kind), input.about_en, input.about_de));
    }
    return all;
}

py::list codes() {
    py::list all;
    for (std::size_t i = 0; i < zel_code_count(); ++i) {
        zel_code code{};
        check(zel_code_at(i, &code));
        all.append(py::make_tuple(code.code, code.name, code.text_en, code.text_de));
    }
    return all;
}

std::vector<std::string> conductors() {
    std::vector<std::string> names;
    check(zel_conductors(
        [](const char* name, void* context) {
            static_cast<std::vector<std::string>*>(context)->emplace_back(name);
        },
        &names));
    return names;
}

}  // namespace

PYBIND11_MODULE(_zel, module) {
    py::class_<Case>(module, "Case")
        .def(py::init<int>())
        .def("read_file", &Case::read_file)
        .def("selects", &Case::selects)
        .def("set_conductor", &Case::set_conductor)
        .def("set_flag", &Case::set_flag)
        .def("set_number", &Case::set_number)
        .def("set_text", &Case::set_text);
    py::class_<Options>(module, "Options").def(py::init<int, unsigned, int, bool>());
    module.def("rate_steady", &rate_steady);
    module.def("rate_tatl", &rate_tatl);
    module.def("rate_transient", &rate_transient);
    module.def("rate_short_circuit", &rate_short_circuit);
    module.def("explain", &explain);
    module.def("inputs", &inputs);
    module.def("codes", &codes);
    module.def("conductors", &conductors);
    module.def("version", &zel_version);
}

}  // namespace zel::python
