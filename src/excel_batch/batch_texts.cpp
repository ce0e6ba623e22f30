#include "excel_batch/batch_texts.h"

#include <chrono>

#include "tb601_transient/transient/transient_texts.h"

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

}  // namespace

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
