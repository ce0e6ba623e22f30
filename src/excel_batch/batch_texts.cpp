#include "excel_batch/batch_texts.h"

#include <array>
#include <cstdio>

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
    const auto whole = static_cast<long>(seconds);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%02ld:%02ld:%02ld", whole / 3600, whole / 60 % 60,
                  whole % 60);
    return text.data();
}

}  // namespace zel::excel_batch
