#include "excel_batch/batch_texts.h"

#include <chrono>

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
