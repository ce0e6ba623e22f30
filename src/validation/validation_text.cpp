#include "validation/validation_text.h"

#include <algorithm>

#include "platform/text/utf8.h"

namespace zel {
namespace {

using Cells = std::vector<std::string>;

/// A table of Markdown whose columns are as wide as their cells.
std::string table(const std::vector<Cells>& lines) {
    std::vector<std::size_t> widths(lines.front().size(), 3);
    for (const Cells& cells : lines)
        for (std::size_t i = 0; i < cells.size(); ++i)
            widths[i] = std::max(widths[i], width_of(cells[i]));
    std::string text;
    for (const Cells& cells : lines) {
        for (std::size_t i = 0; i < cells.size(); ++i)
            text += "| " + cells[i] + std::string(widths[i] - width_of(cells[i]) + 1, ' ');
        text += "|\n";
        if (&cells != &lines.front()) continue;
        for (const std::size_t width : widths) text += "|" + std::string(width + 2, '-');
        text += "|\n";
    }
    return text + "\n";
}

std::string_view unit_of_difference(const KeptOddity& oddity) {
    const std::string_view unit = oddity.letter_quantity->unit;
    return unit == "°C" ? "K" : unit;
}

/// Writes the page in one language.
class Page {
public:
    explicit Page(const Locale& locale) : locale_(locale) {}

    std::string of(const Validation& validation) {
        head(validation);
        line("## ", {"Veröffentlichte Zahlen", "Published figures"});
        for (const CheckedSource& source : validation.sources) {
            text_ += "### " + source.source->title.in(locale_.lang) + "\n\n";
            add_inputs(source, validation);
            add(source);
        }
        line("## ", {"Bemessungsströme der Leiter", "Rated currents of conductors"});
        add(validation.families);
        for (const std::string& conductor : validation.outside_families)
            text_ += "- " + conductor + ": " +
                     in({"gehört zu keiner Familie", "belongs to no family"}) + "\n";
        line("## ", {"Beibehaltene Eigenheiten", "Kept oddities"});
        add(validation.oddities);
        text_.pop_back();  // one line end behind the last table
        return text_;
    }

private:
    [[nodiscard]] std::string in(const Text& text) const {
        return std::string(text.in(locale_.lang));
    }
    [[nodiscard]] Cells in(std::initializer_list<Text> texts) const {
        Cells cells;
        for (const Text& text : texts) cells.push_back(in(text));
        return cells;
    }
    void line(const char* before, const Text& text) { text_ += before + in(text) + "\n\n"; }

    [[nodiscard]] std::string spelled(const std::string& number) const {
        std::string text = number;
        if (locale_.separator == DecimalSeparator::Comma)
            std::replace(text.begin(), text.end(), '.', ',');
        return text;
    }
    [[nodiscard]] std::string number(double value, std::size_t decimals,
                                     std::string_view sign = {}) const {
        const std::string mask = decimals == 0 ? "0" : "0." + std::string(decimals, '0');
        const std::string text = masked(value, mask, locale_.separator);
        const bool shown = text.find_first_of("123456789") != std::string::npos;
        return (value > 0 && shown ? std::string(sign) : std::string()) + text;
    }
    [[nodiscard]] std::string percent(double share) const {
        return number(100 * share, 1, "+") + " %";
    }
    [[nodiscard]] static std::string with_unit(const std::string& number, std::string_view unit) {
        return unit.empty() ? number : number + " " + std::string(unit);
    }
    [[nodiscard]] std::string in(Verdict verdict) const {
        switch (verdict) {
            case Verdict::Holds: return in({"ja", "yes"});
            case Verdict::Misprint: return in({"Druckfehler", "misprint"});
            case Verdict::Fails: return in({"NEIN", "NO"});
            case Verdict::NoTest: break;
        }
        return "";
    }
    [[nodiscard]] std::string told(const std::vector<GivenInput>& inputs) const {
        std::string text;
        for (const GivenInput& input : inputs)
            text += (text.empty() ? "" : "; ") + input.name.in(locale_.lang) + " " +
                    with_unit(spelled(input.value), input.unit);
        return text;
    }

    void head(const Validation& validation);
    void add_inputs(const CheckedSource& source, const Validation& validation);
    void add(const CheckedSource& source);
    [[nodiscard]] Cells cells_of(const CheckedFigure& checked) const;
    void add(const std::vector<CheckedFamily>& families);
    [[nodiscard]] Cells cells_of(const CheckedRating& rating) const;
    void add(const std::vector<SizedOddity>& oddities);

    Locale locale_;
    std::string text_;
};

constexpr Text introduction = {
    "Was `zel selftest` ausgibt, aus den Tabellen und Fällen in `share/zel/validation` neu berechnet.\n"
    "{0} Prüfungen: {1} halten, {2} gedruckte Zahlen sind Druckfehler, {3} halten nicht.\n",
    "What `zel selftest` prints, calculated anew from the tables and cases in `share/zel/validation`.\n"
    "{0} checks: {1} hold, {2} printed figures are misprints, {3} do not hold.\n"};

void Page::head(const Validation& validation) {
    const std::size_t holding = validation.count(Verdict::Holds);
    const std::size_t misprints = validation.count(Verdict::Misprint);
    const std::size_t failing = validation.count(Verdict::Fails);
    line("# ", {"Validierung", "Validation"});
    text_ += fill(introduction.in(locale_.lang),
                  {std::to_string(holding + misprints + failing), std::to_string(holding),
                   std::to_string(misprints), std::to_string(failing)}) +
             "\n";
}

/// A case that stands above already is told by what differs from it.
void Page::add_inputs(const CheckedSource& source, const Validation& validation) {
    const CaseChoice& choice = source.source->calculation;
    const auto first = std::find_if(
        validation.sources.begin(), validation.sources.end(),
        [&](const CheckedSource& other) { return other.source->calculation.file == choice.file; });
    if (choice.method) text_ += std::string(name_of(*choice.method)) + ". ";
    if (first->source == source.source) {
        text_ += told(source.inputs);
    } else {
        text_ += fill(in({"Wie {0}", "As {0}"}), {first->source->title.in(locale_.lang)});
        if (!source.changes.empty()) text_ += in({", aber: ", ", but: "}) + told(source.changes);
    }
    text_ += ".\n\n";
}

void Page::add(const CheckedSource& source) {
    std::vector<Cells> lines = {in({{"Größe", "Quantity"},
                                    {"Veröffentlicht", "Published"},
                                    {"Berechnet", "Computed"},
                                    {"Unterschied", "Difference"},
                                    {"Zulässig", "Tolerance"},
                                    {"Hält", "Holds"},
                                    {"Grund", "Reason"}})};
    for (const CheckedFigure& figure : source.figures) lines.push_back(cells_of(figure));
    text_ += table(lines);
}

Cells Page::cells_of(const CheckedFigure& checked) const {
    const PublishedFigure& figure = *checked.figure;
    const std::size_t point = figure.text.find('.');
    const std::size_t decimals =
        point == std::string::npos ? 1 : figure.text.size() - point;  // one more than is printed
    std::string name = in(figure.quantity->name);
    if (!checked.changes.empty()) name += " (" + told(checked.changes) + ")";
    std::string reason = figure.why.in(locale_.lang);
    if (!checked.computed.value) reason = checked.computed.why.in(locale_.lang);
    const auto difference = checked.difference();
    return {name,
            with_unit(spelled(figure.text), figure.quantity->unit),
            checked.computed.value ? number(*checked.computed.value, decimals) : "-",
            difference ? number(*difference, decimals, "+") : "-",
            spelled(figure.tolerance.text),
            in(checked.verdict),
            reason};
}

void Page::add(const std::vector<CheckedFamily>& families) {
    line("", {"Berechneter durch gedruckten Strom, weniger 1. Streuung ist die Standardabweichung.",
              "Computed over printed current, less 1. Spread is the standard deviation."});
    const CheckedFamily* former = nullptr;
    for (const CheckedFamily& family : families) {
        if (former != nullptr && former->family->case_file == family.family->case_file) continue;
        text_ += told(family.inputs) + ".\n\n";
        former = &family;
    }
    std::vector<Cells> lines = {in({{"Familie", "Family"},
                                    {"Verfahren", "Method"},
                                    {"Anzahl", "Number"},
                                    {"Mittel", "Mean"},
                                    {"Streuung", "Spread"},
                                    {"Schlechtester", "Worst"},
                                    {"Leiter", "Conductor"},
                                    {"Zulässig", "Tolerance"},
                                    {"Hält", "Holds"}})};
    for (const CheckedFamily& family : families)
        for (const CheckedRating& rating : family.methods) lines.push_back(cells_of(rating));
    text_ += table(lines);
    for (const CheckedFamily& family : families) {
        const std::string name = "- " + family.family->name.in(locale_.lang);
        if (const std::string& outside = family.family->outside.in(locale_.lang); !outside.empty())
            text_ +=
                joined({name, in({" ist keine Prüfung: ", " is no test: "}), outside, ".\n"}, "");
        for (const CheckedRating& rating : family.methods) {
            const std::string method = name + ", " + std::string(name_of(rating.method));
            if (rating.limit != nullptr)
                text_ += method + ": " + rating.limit->why.in(locale_.lang) + ".\n";
            if (rating.refused)
                text_ += method + in({" lehnt ab: ", " refuses: "}) +
                         without_outer_blanks(rating.refused->in(locale_.lang)) + "\n";
        }
    }
    text_ += "\n";
}

Cells Page::cells_of(const CheckedRating& rating) const {
    std::string limits;
    if (rating.limit != nullptr) {
        if (rating.limit->mean)
            limits = in({"Mittel ", "mean "}) + spelled(rating.limit->mean->text);
        if (rating.limit->worst)
            limits += (limits.empty() ? "" : ", ") + in({"je ", "each "}) +
                      spelled(rating.limit->worst->text);
    }
    const bool any = rating.count > 0;
    return {rating.family->name.in(locale_.lang),
            std::string(name_of(rating.method)),
            std::to_string(rating.count),
            any ? percent(rating.mean) : "-",
            any ? number(100 * rating.spread, 1) + " %" : "-",
            any ? percent(rating.worst) : "-",
            rating.worst_conductor,
            limits,
            in(rating.verdict)};
}

void Page::add(const std::vector<SizedOddity>& oddities) {
    line("",
         {"Regeln, die das Programm wörtlich befolgt, und was sie in einem Fall ausmachen, in dem "
          "sie sich zeigen. Wetter und Leitertemperatur sind die der Bemessungsströme, wo nichts "
          "anderes steht.",
          "Rules that the program keeps to the letter, and what they amount to in a case where "
          "they show. Weather and conductor temperature are those of the rated currents where "
          "nothing else stands."});
    std::vector<Cells> lines = {in({{"Regel", "Rule"},
                                    {"Fall", "Case"},
                                    {"Verfahren", "Method"},
                                    {"Wörtlich", "By the letter"},
                                    {"Physikalisch", "By physics"},
                                    {"Unterschied", "Difference"}})};
    for (const SizedOddity& sized : oddities) {
        const KeptOddity& oddity = *sized.oddity;
        const auto shown = [&](const Recalculated& found) {
            if (!found.value) return found.why.in(locale_.lang);
            return with_unit(number(*found.value, 1), oddity.letter_quantity->unit);
        };
        const auto difference = sized.difference();
        lines.push_back(
            {oddity.rule.in(locale_.lang), oddity.case_text.in(locale_.lang),
             oddity.letter.method ? std::string(name_of(*oddity.letter.method)) : "IEC 60865-1",
             shown(sized.letter), shown(sized.physics),
             difference ? with_unit(number(*difference, 1, "+"), unit_of_difference(oddity))
                        : "-"});
    }
    text_ += table(lines);
}

}  // namespace

std::string validation_text(const Validation& validation, const Locale& locale) {
    return Page(locale).of(validation);
}

}  // namespace zel
