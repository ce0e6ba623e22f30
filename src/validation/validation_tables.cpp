#include "validation/validation_tables.h"

#include <algorithm>
#include <cmath>

#include "persistence/named_columns.h"
#include "platform/errors.h"

namespace zel {
namespace {

constexpr Text unknown_entry = {"{0} gibt es nicht", "there is no {0}"};
constexpr Text wrong_tolerance = {"{0} ist keine Abweichung: eine Zahl ab 0, mit % ein Anteil",
                                  "{0} is no tolerance: a number from 0, with % a share"};
constexpr Text stands_twice = {"{0} steht zweimal da", "{0} stands twice"};

/// One of the tables; walks its rows.
class Table {
public:
    Table(Files& files, const std::string& folder, const std::string& name)
        : path_(folder + "/" + name), text_(files.content(path_)), columns_(text_, path_) {}

    template <class Row>
    void walk(Row row) {
        for (const CsvRow& one : columns_.rows()) {
            columns_.check(one);
            row_ = &one;
            row();
        }
    }

    [[nodiscard]] Reason place() const {
        return at(path_, Reason(Text{"Zeile {0}", "line {0}"}, {std::to_string(row_->line)}));
    }
    [[nodiscard]] std::string text(std::string_view column) const {
        return columns_.text(*row_, column);
    }
    [[nodiscard]] std::string needed(std::string_view column) const {
        return columns_.needed_text(*row_, column);
    }
    [[nodiscard]] std::int16_t whole(std::string_view column) const {
        return columns_.whole_number(*row_, column, 0, 9);
    }
    [[nodiscard]] std::optional<double> number(std::string_view column) const {
        const Entry entry = columns_.number(*row_, column, -HUGE_VAL, DecimalSeparator::Point);
        return entry.given() ? std::optional(entry.value) : std::nullopt;
    }

    /// The texts of `column` in both languages; either both stand there or none.
    [[nodiscard]] Reason both(const std::string& column, bool is_needed = true) const {
        Reason words(text(column + "_de"));
        words.en = text(column + "_en");
        if (is_needed || !words.de.empty() || !words.en.empty())
            for (const char* ending : {"_de", "_en"}) (void)needed(column + ending);
        return words;
    }
    [[nodiscard]] std::optional<Method> method() const {
        const std::string key = text("method");
        if (key.empty()) return std::nullopt;
        for (const Method one : all_methods)
            if (key_of(one) == key) return one;
        unknown("method", key);
    }
    [[nodiscard]] const Quantity* quantity(std::string_view column) const {
        const std::string key = needed(column);
        const Quantity* found = find_quantity(key);
        if (found == nullptr) unknown(column, key);
        return found;
    }
    /// Nothing where the cell is empty.
    [[nodiscard]] std::optional<Tolerance> tolerance(std::string_view column) const {
        Tolerance found = {text(column), 0, false};
        if (found.text.empty()) return std::nullopt;
        std::string number = found.text;
        found.relative = number.back() == '%';
        if (found.relative) number.pop_back();
        const auto value = parse_number(without_outer_blanks(number), DecimalSeparator::Point);
        if (!value || *value < 0) refuse(column, wrong_tolerance, found.text);
        found.value = found.relative ? *value / 100 : *value;
        return found;
    }
    [[noreturn]] void unknown(std::string_view column, const std::string& name) const {
        refuse(column, unknown_entry, name);
    }
    [[noreturn]] void refuse(std::string_view column, const Text& why,
                             const std::string& what) const {
        columns_.refuse(*row_, column, Reason(why, {in_quotes(what)}));
    }

private:
    std::string path_;
    std::string text_;
    NamedColumns columns_;
    const CsvRow* row_ = nullptr;
};

template <class Row>
const Row* named(const std::vector<Row>& rows, const std::string& key) {
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&](const Row& one) { return one.key == key; });
    return row == rows.end() ? nullptr : &*row;
}

void read_sources(Table table, ValidationTables& tables) {
    table.walk([&] {
        const std::string key = table.needed("source");
        if (named(tables.sources, key) != nullptr) table.refuse("source", stands_twice, key);
        tables.sources.push_back({table.place(),
                                  key,
                                  table.both("title"),
                                  {table.needed("case"), table.text("changes"), table.method()}});
    });
}

void read_figures(Table table, ValidationTables& tables) {
    table.walk([&] {
        PublishedFigure figure = {table.place()};
        const std::string key = table.needed("source");
        figure.source = named(tables.sources, key);
        if (figure.source == nullptr) table.unknown("source", key);
        figure.changes = table.text("changes");
        figure.quantity = table.quantity("quantity");
        figure.text = table.needed("published");
        figure.value = *table.number("published");
        figure.corrected = table.number("corrected");
        (void)table.needed("tolerance");
        figure.tolerance = *table.tolerance("tolerance");
        figure.why = table.both("reason");
        tables.figures.push_back(std::move(figure));
    });
}

void read_families(Table table, ValidationTables& tables) {
    table.walk([&] {
        RatedFamily family;
        family.key = table.needed("family");
        if (named(tables.families, family.key) != nullptr)
            table.refuse("family", stands_twice, family.key);
        family.name = table.both("name");
        family.standard = table.needed("standard");
        family.source = table.text("source");
        family.material = table.needed("material");
        family.kind = table.whole("kind");
        family.least_layers = table.whole("least_layers");
        family.most_layers = table.whole("most_layers");
        family.case_file = table.needed("case");
        family.outside = table.both("outside", false);
        tables.families.push_back(std::move(family));
    });
}

void read_limits(Table table, ValidationTables& tables) {
    table.walk([&] {
        RatedLimit limit;
        limit.family = table.needed("family");
        if (named(tables.families, limit.family) == nullptr) table.unknown("family", limit.family);
        (void)table.needed("method");
        limit.method = *table.method();
        limit.mean = table.tolerance("mean");
        limit.worst = table.tolerance("worst");
        limit.why = table.both("reason");
        tables.limits.push_back(std::move(limit));
    });
}

void read_oddities(Table table, ValidationTables& tables) {
    table.walk([&] {
        KeptOddity oddity = {table.place()};
        oddity.rule = table.both("rule");
        oddity.case_text = table.both("where");
        const std::string file = table.needed("case");
        const std::string common = table.text("changes");
        const auto of = [&](std::string_view column) {
            return CaseChoice{file, common + ";" + table.text(column), table.method()};
        };
        oddity.letter = of("letter");
        oddity.letter_quantity = table.quantity("letter_quantity");
        oddity.physics = of("physics");
        oddity.physics_quantity = table.quantity("physics_quantity");
        tables.oddities.push_back(std::move(oddity));
    });
}

}  // namespace

bool Tolerance::holds(double computed, double expected) const {
    return std::abs(computed - expected) <= (relative ? value * std::abs(expected) : value);
}

ValidationTables read_validation_tables(Files& files, const std::string& folder) {
    ValidationTables tables;
    read_sources(Table(files, folder, "sources.csv"), tables);
    read_figures(Table(files, folder, "figures.csv"), tables);
    read_families(Table(files, folder, "families.csv"), tables);
    read_limits(Table(files, folder, "limits.csv"), tables);
    read_oddities(Table(files, folder, "oddities.csv"), tables);
    return tables;
}

}  // namespace zel
