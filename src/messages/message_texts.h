#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/form.h"
#include "platform/text/locale.h"

// The program's own words about messages and inputs, in one place.

namespace zel::message_texts {

inline constexpr Text strip_name = {"Meldungen", "Messages"};
inline constexpr Text place_in_strip = {"Meldung {0} von {1}: {2}", "Message {0} of {1}: {2}"};
inline constexpr Text go_to_field = {"Zum Feld", "Go to field"};
inline constexpr Text put_back_label = {"Zurückholen", "Put back"};
inline constexpr Text unfold = {"Mehr", "More"};
inline constexpr Text fold = {"Weniger", "Less"};
inline constexpr Text next_message = {"&Nächste Meldung", "&Next message"};
inline constexpr Text put_back_text = {"&Verweigerten Text zurückholen", "Put &back refused text"};
inline constexpr Text rest_in_list = {"&Rest in die Liste", "Show the &rest in the list"};

inline constexpr Text note = {"Hinweis", "Note"};
inline constexpr Text refused_caption = {"Nicht angenommen", "Not accepted"};
inline constexpr Text out_of_date_caption = {"Nicht mehr aktuell", "Out of date"};
inline constexpr Text out_of_date = {"Seit dieser Berechnung geändert: {0}.",
                                     "Changed since this calculation: {0}."};
inline constexpr Text and_more = {" und {0} weitere", " and {0} more"};

inline constexpr Text no_number = {"{0}: Ihre Eingabe {1} ist keine Zahl.",
                                   "{0}: you typed {1}, which is no number."};
inline constexpr Text out_of_range = {"{0}: Sie haben {1} eingegeben; zulässig: {2}.",
                                      "{0}: you typed {1}; allowed: {2}."};
inline constexpr Text between = {"{0} bis {1}", "{0} to {1}"};
inline constexpr Text at_most = {"höchstens {0}", "at most {0}"};
inline constexpr Text at_least = {"mindestens {0}", "at least {0}"};
inline constexpr Text above_to = {"über {0} bis {1}", "above {0} to {1}"};
inline constexpr Text above = {"über {0}", "above {0}"};
inline constexpr Text or_else = {" oder ", " or "};
inline constexpr Text allowed = {"Zulässig: {0}", "Allowed: {0}"};

// Marks of inputs, and how many of them a page has.
inline constexpr Text needed_word = {"nötig", "needed"};
inline constexpr Text missing_word = {"fehlt", "missing"};
inline constexpr Text wrong_word = {"falsch", "wrong"};
inline constexpr std::string_view needed_sign = "○";
inline constexpr std::string_view wrong_sign = "!";
inline constexpr Text needed_count = {"{0} nötig", "{0} needed"};
inline constexpr Text wrong_count = {"{0} zu korrigieren", "{0} to be corrected"};

/// What is told of `typed`, which the input called `name` has refused: no number, or one beyond its
/// limits.
[[nodiscard]] std::string refused_text(std::string_view name, const FieldInfo& field,
                                       const Limits* limits, std::string_view typed,
                                       const Locale& locale);

/// "0 to 80 m/s", "at most 4500 m"; empty where the limits leave every number.
[[nodiscard]] std::string range_text(const FieldInfo& field, const Limits& limits,
                                     const Locale& locale);

/// "0 to 1 Hz or 49 to 61 Hz"; empty where every number is allowed.
[[nodiscard]] std::string range_text(const FieldInfo& field, const std::vector<NumberSpan>& spans,
                                     const Locale& locale);

/// "Wind speed, Latitude, Emissivity and 2 more"
[[nodiscard]] std::string some_of(const std::vector<std::string>& names, LangId lang);

}  // namespace zel::message_texts
