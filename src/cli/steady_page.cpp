#include <algorithm>
#include <utility>

#include "cli/steady_output.h"
#include "desktop/case_forms.h"
#include "shell/program_texts.h"
#include "workflow/steady_texts.h"

namespace zel {
namespace {

constexpr Text results_caption = {"Ergebnis", "Result"};
constexpr Text methods_caption = {"Berechnungsverfahren :", "Calculation methods :"};

/// Characters of a UTF-8 text: its bytes that continue no character.
std::size_t width_of(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
    }));
}

std::string padded(std::string_view text, std::size_t width) {
    const std::size_t own = width_of(text);
    return std::string(text) + std::string(own < width ? width - own : 0, ' ');
}

/// Lines of a label and a value, the values below each other.
class Listing {
public:
    void add(std::string_view label, std::string value) {
        rows_.emplace_back(label, std::move(value));
    }

    /// A line of its own, followed by the rows that belong to it.
    void add_caption(std::string_view caption) { rows_.emplace_back(caption, std::string()); }

    [[nodiscard]] std::string text() const {
        std::size_t width = 0;
        for (const auto& [label, value] : rows_) width = std::max(width, width_of(label));
        std::string out;
        for (const auto& [label, value] : rows_)
            out += value.empty() ? "\n" + label + "\n"
                                 : "  " + padded(label, width + 2) + value + "\n";
        return out;
    }

private:
    std::vector<std::pair<std::string, std::string>> rows_;
};

/// What the field shows, with its unit; empty where it has no input.
std::string shown_value(const CalcCase& c, const FormRow& row, LangId lang) {
    std::string text = printable(shown_text(c, row));
    std::replace(text.begin(), text.end(), '\n', ' ');
    if (text.empty() || row.choices == nullptr)
        return text.empty() || *row.unit == '\0' ? text : text + " " + row.unit;
    const std::int16_t number = c.*std::get<std::int16_t CalcCase::*>(row.field);
    const auto choices = row.choices();
    const auto chosen = std::find_if(choices.begin(), choices.end(),
                                     [&](const Choice& choice) { return choice.value == number; });
    // The first choice stands for every number that is not told.
    return std::string((chosen == choices.end() ? choices.front() : *chosen).text.in(lang));
}

std::string inputs(const CalcCase& c, LangId lang) {
    Listing listing;
    for (const FormSection& section : case_form_sections()) {
        bool headed = false;
        for (const FormRow& row : section.rows) {
            std::string value = shown_value(c, row, lang);
            if (value.empty()) continue;
            if (!headed) listing.add_caption(section.caption.in(lang));
            headed = true;
            listing.add(row.label.in(lang), std::move(value));
        }
    }
    return listing.text();
}

std::string results(const SteadyRunResult& result, LangId lang) {
    Listing listing;
    listing.add(methods_caption.in(lang), result.methods_line);
    listing.add(angle_label.in(lang), result.angle_text);
    listing.add(perpendicular_wind_label.in(lang), result.perpendicular_wind_text);
    for (const MethodResult& line : result.methods) {
        std::string value = line.outcome.fault.empty() ? line.result : "-";
        if (!line.outcome.sound()) value += "   (" + line.outcome.status + line.outcome.fault + ")";
        listing.add(line.caption, std::move(value));
    }
    for (const auto& lines : {result.tb601_temperatures, result.tb601_factors})
        for (const auto& [label, text] : lines) listing.add(without_outer_blanks(label), text);
    return listing.text();
}

}  // namespace

std::string steady_page(const CalcCase& c, const SteadyRunResult& result,
                        const CommonOptions& options) {
    const LangId lang = options.lang;
    std::string page = std::string(short_name.in(lang)) + "   " + std::string(long_title.in(lang)) +
                       "\n" + inputs(c, lang) + "\n" + std::string(results_caption.in(lang)) +
                       "\n  " + result.head_line + "\n\n" + results(result, lang);
    if (!result.balance_lines.empty()) page += "\n";
    for (const std::string& line : result.balance_lines) page += "  " + line + "\n";
    return page;
}

}  // namespace zel
