#include "persistence/material_table.h"

#include <algorithm>

#include "persistence/named_columns.h"

namespace zel {
namespace {

void check_columns(const NamedColumns& table, const CsvRow& row) {
    for (const std::string& column : table.columns()) {
        const bool is_figure =
            std::any_of(std::begin(material_figures), std::end(material_figures),
                        [&](const MaterialFigure& figure) { return figure.column == column; });
        if (!is_figure && column != "material" && column != "source")
            table.refuse(row, column, Reason(Text{"unbekannte Spalte", "unknown column"}));
    }
}

void complete(ConductorData& conductor, const Material& material,
              Entry ConductorData::*MaterialFigure::*target) {
    for (std::size_t i = 0; i < material.figures.size(); ++i) {
        Entry& field = conductor.*(material_figures[i].*target);
        if (!field.given()) field = material.figures[i];
    }
}

}  // namespace

std::vector<Material> read_materials(std::string_view text, const std::string& file,
                                     DecimalSeparator separator) {
    const NamedColumns table(text, file);
    std::vector<Material> materials;
    for (const CsvRow& row : table.rows()) {
        table.check(row);
        check_columns(table, row);
        Material material;
        material.name = table.needed_text(row, "material");
        for (std::size_t i = 0; i < material.figures.size(); ++i)
            material.figures[i] = table.number(row, material_figures[i].column, 0, separator);
        material.source = table.needed_text(row, "source");
        materials.push_back(std::move(material));
    }
    return materials;
}

void complete_conductor(ConductorData& conductor, const Material& material) {
    complete(conductor, material, &MaterialFigure::of_conductor);
}

void complete_core(ConductorData& conductor, const Material& material) {
    complete(conductor, material, &MaterialFigure::of_core);
}

}  // namespace zel
