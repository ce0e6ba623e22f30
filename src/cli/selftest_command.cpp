#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "program/places.h"
#include "program/stores.h"
#include "validation/validation_text.h"

namespace zel {
namespace {

using nlohmann::ordered_json;

constexpr const char* selftest_notes =
    "\n"
    "Calculates every published figure anew, from the tables and cases in the folder\n"
    "share/zel/validation of the installation: source, inputs, published, computed,\n"
    "difference, tolerance and its reason. Then the rated currents of the conductors of\n"
    "the library by each method, and the size of the odd rules that the methods keep.\n"
    "Nothing is read of your settings, cases and own conductors, and nothing is written.\n"
    "\n"
    "Exit status: 0 all figures hold; 1 one does not; 2 a table or a case is missing or\n"
    "damaged.";

ordered_json json_of(const std::vector<GivenInput>& inputs, LangId lang) {
    ordered_json list = ordered_json::array();
    for (const GivenInput& input : inputs)
        list.push_back(
            {{"name", input.name.in(lang)}, {"value", input.value}, {"unit", input.unit}});
    return list;
}

ordered_json number_or_null(const std::optional<double>& number) {
    return number ? ordered_json(*number) : ordered_json(nullptr);
}

ordered_json method_or_null(const std::optional<Method>& method) {
    return method ? ordered_json(key_of(*method)) : ordered_json(nullptr);
}

ordered_json figures_of(const Validation& validation, LangId lang) {
    ordered_json list = ordered_json::array();
    for (const CheckedSource& source : validation.sources)
        for (const CheckedFigure& checked : source.figures) {
            const PublishedFigure& figure = *checked.figure;
            std::vector<GivenInput> inputs = source.inputs;
            inputs.insert(inputs.end(), checked.changes.begin(), checked.changes.end());
            list.push_back({{"source", source.source->title.in(lang)},
                            {"method", method_or_null(source.source->calculation.method)},
                            {"inputs", json_of(inputs, lang)},
                            {"quantity", figure.quantity->key},
                            {"unit", figure.quantity->unit},
                            {"published", figure.value},
                            {"corrected", number_or_null(figure.corrected)},
                            {"computed", number_or_null(checked.computed.value)},
                            {"difference", number_or_null(checked.difference())},
                            {"tolerance", figure.tolerance.text},
                            {"reason", figure.why.in(lang)},
                            {"verdict", name_of(checked.verdict)}});
        }
    return list;
}

ordered_json ratings_of(const Validation& validation, LangId lang) {
    ordered_json list = ordered_json::array();
    for (const CheckedFamily& family : validation.families)
        for (const CheckedRating& rating : family.methods)
            list.push_back({{"family", rating.family->name.in(lang)},
                            {"method", key_of(rating.method)},
                            {"conductors", family.conductors},
                            {"rated", rating.count},
                            {"mean", rating.mean},
                            {"spread", rating.spread},
                            {"worst", rating.worst},
                            {"worst_conductor", rating.worst_conductor},
                            {"outside", rating.family->outside.in(lang)},
                            {"verdict", name_of(rating.verdict)}});
    return list;
}

ordered_json oddities_of(const Validation& validation, LangId lang) {
    ordered_json list = ordered_json::array();
    for (const SizedOddity& sized : validation.oddities)
        list.push_back({{"rule", sized.oddity->rule.in(lang)},
                        {"case", sized.oddity->case_text.in(lang)},
                        {"method", method_or_null(sized.oddity->letter.method)},
                        {"inputs", json_of(sized.inputs, lang)},
                        {"letter", number_or_null(sized.letter.value)},
                        {"physics", number_or_null(sized.physics.value)},
                        {"difference", number_or_null(sized.difference())},
                        {"unit", sized.oddity->letter_quantity->unit}});
    return list;
}

int recalculate(const CommonOptions& words) {
    PosixFiles files;
    JsonCaseStore cases;
    const std::string folder = shipped_folder() + "/validation";
    const Validation validation = validate(files, cases, folder, words.lang);
    const int status = validation.holds() ? exit_done : exit_failed;
    if (!words.json) return print_or_fail(validation_text(validation, words), status);
    return print_or_fail(json_text({{"holds", validation.holds()},
                                    {"figures", figures_of(validation, words.lang)},
                                    {"ratings", ratings_of(validation, words.lang)},
                                    {"outside_families", validation.outside_families},
                                    {"oddities", oddities_of(validation, words.lang)}}),
                         status);
}

}  // namespace

void add_selftest(CommandLine& line) {
    const auto [command, words] =
        line.add<CommonOptions>("selftest", "Recalculate every published figure", recalculate);
    add_json_option(command, words);
    add_language(command, words.lang, words.separator);
    command.footer(selftest_notes);
}

}  // namespace zel
