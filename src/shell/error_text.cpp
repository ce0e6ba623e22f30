#include "shell/error_text.h"

#include "shell/program_texts.h"

namespace zel {

Box error_box(const ErrorRow& row, const ErrorObject& error, std::int16_t Zeile,
              std::string_view module, std::string_view procedure, LangId lang) {
    std::string lines(error_head);
    if (!row.lines.de.empty()) lines += '\n' + std::string(row.lines.in(lang));
    // The fixed wording says nothing of the cause of an error without a row of its own.
    if (&row == &unhandled_row() && !error.text.empty()) lines += "\n{5}";
    const std::string number = std::to_string(error.number);
    const std::string Zeile_text = std::to_string(Zeile);
    const std::initializer_list<std::string_view> values = {
        number, module, procedure, short_name.in(lang), error.subject, error.text, Zeile_text};
    return {row.icon, std::string(row.title.in(lang)), lines_of(fill(lines, values))};
}

Box error_box(const ErrorObject& error, std::int16_t Zeile, std::string_view module,
              std::string_view procedure, LangId lang) {
    return error_box(error_row(error.number), error, Zeile, module, procedure, lang);
}

Box arithmetic_error(ArithmeticFault fault, std::string_view module, std::string_view procedure,
                     LangId lang) {
    return error_box({static_cast<std::int32_t>(fault), {}, {}}, 0, module, procedure, lang);
}

}  // namespace zel
