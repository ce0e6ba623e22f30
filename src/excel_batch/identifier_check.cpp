#include <string>

#include "excel_batch/input_cells.h"
#include "excel_batch/workbook_contract.h"

namespace zel::excel_batch {
namespace {

// The choice that was made, by the wanted kind.
constexpr Text chosen(WorkbookKind wanted) {
    switch (wanted) {
        case WorkbookKind::SteadyFix:
            return {"Es wurde die Vorauswahl: Excel-Berechnung ohne Editier-Option\n"
                    "von Leiterdaten in Arbeitsblatt < variable_input_result > getroffen,",
                    "The Excel calculation without editing option for conductor data\n"
                    "in worksheet < variable_input_result >  was preselected,"};
        case WorkbookKind::SteadyVar:
            return {"Es wurde die Vorauswahl: Excel-Berechnung mit Editier-Option\n"
                    "von Leiterdaten in Arbeitsblatt < variable_input_result > getroffen,",
                    "The Excel calculation with editing option for conductor data\n"
                    "in worksheet < variable_input_result >  was preselected,"};
        case WorkbookKind::Transient: break;
    }
    return {"Es wurde die Vorauswahl: Excel-Berechnung instationär (PATL / TATL) getroffen,",
            "The transient Excel calculation (PATL / TATL) was preselected,"};
}

constexpr BoxText other_kind = {
    Icon::Stop,
    limit_title,
    {"{0}\n"
     "jedoch eine Excel-Arbeitsmappe mit der Datenblattkennung (Zelle B2):\n"
     "{1}\n"
     "augewählt.\n"
     "Bitte wählen sie eine Excel-Arbeitsmappe mit der der Datenblattkennung\n"
     "{2}\n"
     "aus.",
     "{0}\n"
     "but an Excel workbook with the data sheet identifier (cell B2):\n"
     "{1}\n"
     "was selected.\n"
     "Please select an Excel workbook with the data sheet identifier (cell B2):\n"
     "{2}"}};

constexpr BoxText no_kind = {
    Icon::Stop,
    limit_title,
    {"{0}\n"
     "jedoch keine Excel-Arbeitsmappe mit der Datenblattkennung (Zelle B2):\n"
     "{2}\n"
     "augewählt.\n"
     "Bitte wählen sie eine Excel-Arbeitsmappe mit der der Datenblattkennung\n"
     "{2}\n"
     "aus.\n"
     "Zelle B2 enthält: {1}",
     "{0}\n"
     "but no Excel workbook with the data sheet identifier (cell B2):\n"
     "{2}\n"
     "was selected.\n"
     "Please select an Excel workbook with the data sheet identifier (cell B2):\n"
     "{2}\n"
     "Cell B2 holds: {1}"}};

std::string names_of(WorkbookKind kind, LangId lang) {
    constexpr Text joint = {" oder ", " or "};
    const KindRow& row = row_of(kind);
    return std::string(row.german) + std::string(joint.in(lang)) + std::string(row.english);
}

/// Each steady form tells of the other one by name.
bool is_other_steady_form(WorkbookKind found, WorkbookKind wanted) {
    return found != wanted && found != WorkbookKind::Transient && wanted != WorkbookKind::Transient;
}

}  // namespace

std::optional<Box> identifier_refusal(std::string_view identifier, WorkbookKind wanted,
                                      LangId lang) {
    const auto found = kind_of(identifier);
    if (found == wanted) return std::nullopt;
    const std::string_view head = chosen(wanted).in(lang);
    if (found && is_other_steady_form(*found, wanted))
        return box_in(lang, other_kind, {head, names_of(*found, lang), names_of(wanted, lang)});
    return box_in(lang, no_kind, {head, identifier, names_of(wanted, lang)});
}

}  // namespace zel::excel_batch
