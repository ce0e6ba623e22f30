#include "excel_batch/batch_texts.h"

#include <chrono>

#include "platform/cell_name.h"
#include "tb601_transient/transient/transient_texts.h"
#include "workflow/run/notes.h"

namespace zel::excel_batch {
namespace {

constexpr Text summary = {
    "Es wurden insgesamt   {0} Datensätze verarbeitet\n"
    " davon {1} aktive Datensätze \n"
    "sowie {2} inaktive Datensätze.\n"
    "Die rückgeschriebenen Berechnungsergebnisse können nun mit Excel in der Arbeitsmappe: {3}   \n"
    "im Arbeitsblatt:   {4}   eingesehen werden.",
    "{0} data sets with  {1} active data sets \n"
    "and {2} inactive data sets\n"
    "calculated.\n"
    "The results can be viewed now with Excel within the file: {3}   \n"
    "in worksheet:   {4}"};

constexpr Text rows_calculated = {"{0} von {1} aktiven Zeilen berechnet",
                                  "{0} of {1} active rows calculated"};
constexpr Text rows_saved = {"{0} von {1} aktiven Zeilen sind berechnet und gespeichert.",
                             "{0} of {1} active rows are calculated and saved."};
constexpr Text nothing_saved = {"Nichts wurde gespeichert, die Arbeitsmappe ist unverändert.",
                                "Nothing was saved, the workbook is unchanged."};
constexpr Text no_correct_input = {"keine korrekte Eingabe", "no correct input"};

constexpr Text counted_note = {"{0} Zeilen, zuerst Zeile {1}: {2}", "{0} rows, first row {1}: {2}"};

struct NoteText {
    std::string_view code;
    Text text;
};

constexpr NoteText note_texts[] = {
    {note_code::wind_fold,
     {"der durch Abzug gefaltete Windwinkel ist nicht der spitze Winkel zwischen Wind und Leitung.",
      "the angle of the wind, folded by subtraction, is not the acute one between wind and line."}},
    {note_code::balance,
     {"die Wärmebilanz geht um mehr als 1 % der Stromwärme nicht auf.",
      "the heat balance misses by more than 1 % of the Joule heat."}},
    {note_code::short_table,
     {"die Tabelle der AC-Widerstände endet vor ihrem letzten Wertepaar.",
      "the table of AC resistances ends before its last filled pair."}},
    {note_code::assumed,
     {"Kniepunkt oder radiale Wärmeleitfähigkeit sind angenommen.",
      "the knee point or a radial conductivity is assumed."}},
    {note_code::endless_age,
     {"Kirn hat bei einem Emissionsverhältnis von genau 0,9 kein Ergebnis.",
      "Kirn has no result at an emissivity of exactly 0.9."}},
};

}  // namespace

std::vector<Note> notes_of(const BatchResult& result, LangId lang) {
    std::vector<Note> notes;
    for (const BatchNote& note : result.notes)
        for (const auto& [code, text] : note_texts)
            if (code == note.code)
                notes.push_back({code, fill(counted_note.in(lang),
                                            {std::to_string(note.rows),
                                             std::to_string(note.first_row), text.in(lang)})});
    return notes;
}

std::string WrongCell::name() const { return cell_name(row, column); }

std::string rows_line(int done, int active, LangId lang) {
    return fill(rows_calculated.in(lang), {std::to_string(done), std::to_string(active)});
}

std::string end_line(const BatchResult& result, LangId lang) {
    if (!result.saved) return std::string(nothing_saved.in(lang));
    return fill(rows_saved.in(lang),
                {std::to_string(result.active), std::to_string(result.to_calculate)});
}

std::string reason_of(const WrongCell& cell, LangId lang) {
    return cell.reason.empty() ? std::string(no_correct_input.in(lang)) : cell.reason;
}

std::string cells_text(const std::vector<WrongCell>& cells, LangId lang) {
    std::string text;
    for (const WrongCell& cell : cells)
        text += joined({cell.sheet, cell.name(), cell.text, reason_of(cell, lang)}, "\t") + "\n";
    return text;
}

std::vector<std::string> summary_of(const BatchResult& result, std::string_view workbook,
                                    LangId lang) {
    return lines_of(
        fill(summary.in(lang), {std::to_string(result.rows), std::to_string(result.active),
                                std::to_string(result.inactive), workbook, rows_sheet}));
}

std::string duration_text(double seconds) {
    using namespace std::chrono;
    constexpr system_clock::time_point start;
    return Zeit_format(start + round<system_clock::duration>(duration<double>(seconds)), start);
}

}  // namespace zel::excel_batch
