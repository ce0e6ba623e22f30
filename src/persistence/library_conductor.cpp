#include "persistence/library_conductor.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "persistence/exchange_record.h"
#include "platform/errors.h"
#include "platform/text/likeness.h"

namespace zel {
namespace {

constexpr std::size_t most_near = 8;

/// In small letters, with one blank where there are several and none around.
std::string plain(std::string_view name) {
    std::string out;
    for (const char c : name) {
        if (c == ' ' && (out.empty() || out.back() == ' ')) continue;
        out += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    if (!out.empty() && out.back() == ' ') out.pop_back();
    return out;
}

/// Takes the digits off the front of `text`, without zeros before them.
std::string_view take_number(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_not_of("0123456789"), text.size());
    std::string_view digits = text.substr(0, end);
    text.remove_prefix(end);
    while (digits.size() > 1 && digits.front() == '0') digits.remove_prefix(1);
    return digits;
}

/// How far a name is from those of the conductor; one that holds it is near.
std::size_t distance_to(const LibraryConductor& conductor, const std::string& name) {
    std::size_t least = std::string::npos;
    for (const std::string& own : {conductor.c.Bezeichnung1_db, conductor.c.Bezeichnung2_db}) {
        const std::string known = plain(own);
        if (known.empty()) continue;
        const bool holds = known.find(name) != std::string::npos;
        least = std::min(least, holds ? 0 : letters_apart(known, name));
    }
    return least;
}

std::string list_of(const std::vector<const LibraryConductor*>& conductors) {
    std::string text;
    for (const LibraryConductor* conductor : conductors)
        text += "\n  " + full_name(*conductor) + (conductor->own ? " [own]" : "");
    return text;
}

std::vector<const LibraryConductor*> nearest(std::span<const LibraryConductor> library,
                                             const std::string& name) {
    const std::string wanted = plain(name);
    if (wanted.empty()) return {};
    std::vector<std::pair<std::size_t, const LibraryConductor*>> all;
    for (const LibraryConductor& conductor : library)
        all.emplace_back(distance_to(conductor, wanted), &conductor);
    std::stable_sort(all.begin(), all.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    // Where some hold the name, those that are only alike are left out.
    const std::size_t most = !all.empty() && all.front().first == 0 ? 0 : wanted.size() / 2;
    std::vector<const LibraryConductor*> near;
    for (const auto& [far, conductor] : all)
        if (near.size() < most_near && far <= most) near.push_back(conductor);
    return near;
}

constexpr Text ambiguous_name = {"mehr als ein Leiter heißt so, nennen Sie einen von diesen:{0}",
                                 "more than one conductor has this name, name one of:{0}"};
constexpr Text unknown_name = {"kein Leiter der Bibliothek heißt so",
                               "no conductor of the library has this name"};
constexpr Text near_names = {"kein Leiter der Bibliothek heißt so; ähnlich sind:{0}",
                             "no conductor of the library has this name; near to it:{0}"};

[[noreturn]] void refuse_name(const std::string& name, const Reason& reason) {
    throw InputError(at(in_quotes(name), reason));
}

std::string shown(const CalcCase& c, const OfferField& row, LangId lang) {
    if (const auto* whole = std::get_if<std::int16_t CalcCase::*>(&row.field))
        return std::string(row.words[static_cast<std::size_t>(c.**whole)].in(lang));
    const Entry& entry = c.**std::get_if<Entry CalcCase::*>(&row.field);
    const std::string text = entry.text + " " + std::string(field_of(row.field).unit);
    return entry.assumed ? text + " " + std::string(assumed_mark.in(lang)) : text;
}

Text caption_of(const OfferField& row) {
    return row.caption.de.empty() ? bare_label_of(field_of(row.field)) : row.caption;
}

bool take_offer(Entry& to, const Entry& from, DecimalSeparator separator) {
    if (to.given() || !from.given()) return false;
    to = {plain_number(from.value, separator), from.value, from.assumed};
    return true;
}

bool take_offer(std::int16_t& to, std::int16_t from, DecimalSeparator /*separator*/) {
    if (to != 0 || from == 0) return false;
    to = from;
    return true;
}

template <class Field>
bool take_offer(Field& /*to*/, const Field& /*from*/, DecimalSeparator /*separator*/) {
    return false;  // no text and no flag is offered
}

constexpr Text resistances[] = {{},
                                {"Gleichstrom (DC)", "direct current (DC)"},
                                {"Wechselstrom (AC)", "alternating current (AC)"}};
constexpr Text answers[] = {{"nein", "no"}, {"ja", "yes"}};

constexpr OfferField offers[] = {
    {&CalcCase::ACDC_R_Option_Merker_db,
     {"Rechnen mit Widerstand", "Calculate with resistance"},
     resistances},
    {&CalcCase::GMR_Merker_db,
     {"Geom. Ersatzradius GMR verwenden", "Use the geometric mean radius"},
     answers},
    {&CalcCase::radialthermalconductivity_unter_KPT_db,
     {"Radiale Wärmeleitfähigkeit unterhalb des Kniepunkts",
      "Radial thermal conductivity below the knee point"}},
    {&CalcCase::KniepunktTemperatur_db},
    {&CalcCase::radialthermalconductivity_ueber_KPT_db,
     {"Radiale Wärmeleitfähigkeit oberhalb des Kniepunkts",
      "Radial thermal conductivity above the knee point"}},
};

constexpr BoxText offers_taken = {
    Icon::None,
    {"Leiter übernommen", "Conductor taken over"},
    {"Was im Satz der Seildatenbank fehlt und noch ohne Angabe war,\n"
     "wurde mit den Werten der Leiterbibliothek gefüllt:\n{0}",
     "What a record of the conductor database lacks and was still without input\n"
     "has been filled with the values of the conductor library:\n{0}"}};

constexpr double tension = 1.5;           // W/(m K), wires pressed together
constexpr double no_tension = 0.7;        // W/(m K)
constexpr double usual_knee_point = 100;  // °C

void assume(Entry& field, double value, DecimalSeparator separator) {
    if (!field.given()) field = {plain_number(value, separator), value, true};
}

}  // namespace

bool text_before(std::string_view a, std::string_view b) {
    const std::string left = plain(a);
    const std::string right = plain(b);
    std::string_view x = left;
    std::string_view y = right;
    while (!x.empty() && !y.empty()) {
        const std::string_view m = take_number(x);
        const std::string_view n = take_number(y);
        if (!m.empty() && !n.empty()) {
            if (m.size() != n.size()) return m.size() < n.size();
            if (m != n) return m < n;
            continue;
        }
        const std::string_view s = m.empty() ? x.substr(0, 1) : m;
        const std::string_view t = n.empty() ? y.substr(0, 1) : n;
        if (s != t) return s < t;
        x.remove_prefix(1);
        y.remove_prefix(1);
    }
    return x.size() < y.size();
}

std::string full_name(const LibraryConductor& conductor) {
    const auto& [first, second] =
        std::tie(conductor.c.Bezeichnung1_db, conductor.c.Bezeichnung2_db);
    return second.empty() ? first : first + " (" + second + ")";
}

bool matches(const LibraryConductor& conductor, std::string_view typed) {
    const CalcCase& c = conductor.c;
    const std::string text =
        plain(c.Bezeichnung1_db + " " + c.Bezeichnung2_db + " " + c.Norm_db + " " + c.Anmerkung_db);
    const std::string words = plain(typed);
    for (std::size_t begin = 0; begin < words.size();) {
        const std::size_t end = std::min(words.find(' ', begin), words.size());
        if (text.find(words.substr(begin, end - begin)) == std::string::npos) return false;
        begin = end + 1;
    }
    return true;
}

bool is_named(const LibraryConductor& conductor, std::string_view name) {
    const std::string wanted = plain(name);
    const std::string first = plain(conductor.c.Bezeichnung1_db);
    const std::string second = plain(conductor.c.Bezeichnung2_db);
    return !wanted.empty() &&
           (wanted == first || wanted == second || wanted == first + " " + second ||
            wanted == plain(full_name(conductor)));
}

std::string name_key(const LibraryConductor& conductor) {
    return plain(conductor.c.Bezeichnung1_db) + '\n' + plain(conductor.c.Bezeichnung2_db);
}

bool same_name(const LibraryConductor& a, const LibraryConductor& b) {
    return name_key(a) == name_key(b);
}

const LibraryConductor& find_conductor(std::span<const LibraryConductor> library,
                                       const std::string& name) {
    std::vector<const LibraryConductor*> found;
    for (const LibraryConductor& conductor : library) {
        if (!is_named(conductor, name)) continue;
        const auto twin = std::find_if(found.begin(), found.end(), [&](const auto* other) {
            return same_name(*other, conductor);
        });
        if (twin == found.end())
            found.push_back(&conductor);
        else if (conductor.own)
            *twin = &conductor;
    }
    if (found.size() > 1) refuse_name(name, Reason(ambiguous_name, {list_of(found)}));
    if (!found.empty()) return *found.front();
    const auto near = nearest(library, name);
    refuse_name(name, near.empty() ? Reason(unknown_name) : Reason(near_names, {list_of(near)}));
}

const LibraryConductor* find_record(std::span<const LibraryConductor> library,
                                    std::string_view bytes) {
    const auto found =
        std::find_if(library.begin(), library.end(), [&](const LibraryConductor& conductor) {
            return written_record(conductor.c) == bytes;
        });
    return found == library.end() ? nullptr : &*found;
}

std::span<const OfferField> offer_fields() { return offers; }

void add_usual_offers(CalcCase& c, DecimalSeparator separator) {
    if (c.ACDC_R_Option_Merker_db == 0 && c.DCR_20_db.given()) c.ACDC_R_Option_Merker_db = 1;
    if (c.ACDC_R_Option_Merker_db == 0 && c.ACR1_db.given()) c.ACDC_R_Option_Merker_db = 2;
    if (c.conductor_shape_db != 1 || c.conductor_type_db == tubular_busbar) return;
    assume(c.radialthermalconductivity_unter_KPT_db, tension, separator);
    if (c.conductor_type_db == homogeneous_conductor) return;
    assume(c.radialthermalconductivity_ueber_KPT_db, no_tension, separator);
    if (c.conductor_type_db == steel_cored_conductor)
        assume(c.KniepunktTemperatur_db, usual_knee_point, separator);
}

std::optional<Box> take_offers(CalcCase& to, const CalcCase& from, const Locale& locale) {
    std::string taken;
    for (const OfferField& row : offers) {
        const bool done = std::visit(
            [&](auto field) { return take_offer(to.*field, from.*field, locale.separator); },
            row.field);
        if (!done) continue;
        if (!taken.empty()) taken += '\n';
        taken += std::string(caption_of(row).in(locale.lang)) + ": " + shown(to, row, locale.lang);
    }
    if (taken.empty()) return std::nullopt;
    return box_in(locale.lang, offers_taken, {taken});
}

}  // namespace zel
