#include "weather/rate_texts.h"

#include <algorithm>

#include "shell/linked_libraries.h"
#include "shell/program_texts.h"

namespace zel::weather {
namespace {

constexpr Text not_known = {"nicht bekannt", "not known"};
constexpr Text source_line = {"{0}: {1}, sha256 {2}", "{0}: {1}, sha256 {2}"};
constexpr Text lines_word = {"Leitungen", "lines"};
constexpr Text weather_word = {"Wetter", "weather"};
constexpr Text conductors_word = {"Leiter", "conductors"};
constexpr Text command_line = {"Aufruf: {0}", "command: {0}"};
constexpr Text times_line = {
    "Zeiten: UTC; im Wetter steht {0} eines Zeitraums von {1} s ({2}), die Sonne steht wie in dessen "
    "Mitte",
    "times: UTC; the weather tells the {0} of periods of {1} s ({2}), the sun stands as in their "
    "middle"};
constexpr Text stamps[] = {{"der Anfang", "start"}, {"die Mitte", "middle"}, {"das Ende", "end"}};
constexpr Text interval_given = {"angegeben", "as given"};
constexpr Text interval_found = {"aus den ersten beiden Zeiten", "from the first two times"};
constexpr Text zone_line = {"Zeiten ohne Zone: {0}", "times without a zone: {0}"};
constexpr Text wind_line = {
    "Wind: spitzer Winkel zur Leitung, 0 bis 90 Grad; geographische Länge: Ost positiv",
    "wind: acute angle to the line, 0 to 90 degrees; longitude: east positive"};
constexpr Text value_line = {
    "current_a: A des ganzen Bündels; patl dauernd, tatl für duration_s nach preload_percent der "
    "dauernden Belastbarkeit",
    "current_a: A of the whole bundle; patl permanent, tatl for duration_s after preload_percent of "
    "the permanent rating"};
constexpr Text radiations[] = {
    {"Globalstrahlung: wie sie dasteht", "global radiation: as it stands"},
    {"Globalstrahlung: auf ebenem Boden; Webs und Kirn nehmen sie, wie sie dasteht, für die anderen "
     "Verfahren ist sie durch den Sinus der Sonnenhöhe (mindestens 10 Grad) geteilt, bis 1400 W/m2",
     "global radiation: on level ground; Webs and Kirn take it as it stands, for the other methods "
     "it is divided by the sine of the sun's height (10 degrees at least), up to 1400 W/m2"},
    {"Globalstrahlung: wie sie auf den Leiter trifft; alle Verfahren nehmen sie, wie sie dasteht, "
     "Webs und Kirn wenden die Sonnenhöhe auch darauf an",
     "global radiation: as it meets the conductor; all methods take it as it stands, Webs and Kirn "
     "apply the sun's height to it too"}};

constexpr Text in_lines = {"Leitungen, {0}; die Leitung fehlt", "lines, {0}; the line is left out"};
constexpr Text in_weather = {"Wetter, {0}", "weather, {0}"};
constexpr Text more_in_weather = {"Wetter: {0} weitere Zeilen oder Zellen sind nicht zu lesen",
                                  "weather: {0} more rows or cells cannot be read"};
constexpr Text twice = {"Wetter: {0} Zeiten stehen doppelt da: {1}",
                        "weather: {0} times stand twice: {1}"};
constexpr Text missing = {"Wetter: {0} Zeiten fehlen, ab {1}",
                          "weather: {0} times are missing, from {1} on"};
constexpr Text disordered = {"Wetter: {0} Zeiten stehen hinter späteren: {1}",
                             "weather: {0} times stand behind later ones: {1}"};
constexpr Text closer = {"Wetter: {0} Zeiten stehen näher beieinander als ein Zeitraum: {1}",
                         "weather: {0} times stand closer together than a period: {1}"};
constexpr Text implausible = {
    "Wetter, Spalte {0}: {1} Zahlen sind unwahrscheinlich, die erste ist {2}: {3}",
    "weather, column {0}: {1} numbers are implausible, the first is {2}: {3}"};
constexpr Text nothing_to_ignore = {"--ignore: keine der Tabellen hat die Spalte {0}",
                                    "--ignore: neither table has the column {0}"};
constexpr Text found_interval = {
    "ein Zeitraum hat {0} s, wie die ersten beiden Zeiten auseinander liegen",
    "a period has {0} s, as the first two times are apart"};

constexpr Text status_line = {"{0} {1}", "{0} {1}"};
constexpr Text first_line = {"{0} {1}, zuerst {2} nach {3} ab {4}: {5}",
                             "{0} {1}, first {2} by {3} from {4} on: {5}"};

std::string source_text(const Text& word, const RateSource& source, LangId lang) {
    const std::string sum(source.sha256.empty() ? not_known.in(lang) : source.sha256);
    return fill(source_line.in(lang), {word.in(lang), source.path, sum});
}

/// What a status without a value of its own says where nothing says more.
std::string_view text_of_status(std::string_view status, LangId lang) {
    constexpr std::string_view mark = "recourse:";
    if (status.starts_with(mark)) status.remove_prefix(mark.size());
    status = status.substr(0, status.find(':'));
    for (const RatingCodeText& row : rating_codes())
        if (row.name == status) return row.text.in(lang);
    return {};
}

}  // namespace

std::string head_lines(const RateRecord& record, const LineTable& lines,
                       const WeatherTable& weather, LangId lang) {
    const auto names = weather.names();
    std::vector<std::string> told = {
        fill("{0}, release {1}", {short_name.in(lang), release_number()}),
        fill(command_line.in(lang), {record.command}), source_text(lines_word, record.lines, lang),
        source_text(weather_word, record.weather, lang)};
    for (const RateSource& source : record.conductors)
        told.push_back(source_text(conductors_word, source, lang));
    told.push_back(
        fill(times_line.in(lang),
             {stamps[static_cast<std::size_t>(record.stamp)].in(lang),
              std::to_string(weather.interval()),
              (weather.interval_is_given() ? interval_given : interval_found).in(lang)}));
    if (!record.zone.empty()) told.push_back(fill(zone_line.in(lang), {record.zone}));
    told.emplace_back(wind_line.in(lang));
    if (holds(names, radiation_input) || std::ranges::any_of(lines.lines, has_radiation))
        told.emplace_back(radiations[static_cast<std::size_t>(record.radiation)].in(lang));
    told.emplace_back(value_line.in(lang));
    std::string text;
    for (const std::string& line : told) text += "# " + in_one_line(line) + "\n";
    return text;
}

std::vector<std::string> remarks_on(const LineTable& lines, const WeatherTable& weather,
                                    LangId lang) {
    std::vector<std::string> told;
    for (const Reason& reason : lines.refused)
        told.push_back(fill(in_lines.in(lang), {reason.in(lang)}));
    for (const Reason& reason : lines.without_recourse) told.push_back(reason.in(lang));
    for (const std::string& column : weather.absent_columns())
        if (!holds(lines.ignored, column))
            told.push_back(fill(nothing_to_ignore.in(lang), {in_quotes(column)}));
    if (!weather.interval_is_given())
        told.push_back(fill(found_interval.in(lang), {std::to_string(weather.interval())}));
    const WeatherReport& report = weather.report();
    for (const Reason& reason : report.first_refused)
        told.push_back(fill(in_weather.in(lang), {reason.in(lang)}));
    if (const auto more = report.refused - report.first_refused.size(); more > 0)
        told.push_back(fill(more_in_weather.in(lang), {std::to_string(more)}));
    const TimeSequence& times = weather.times();
    const auto add = [&](const Text& text, const TimeFault& fault) {
        if (fault.count == 0) return;
        std::vector<std::string> places;
        for (const std::int64_t place : fault.first) places.push_back(time_text(place));
        told.push_back(fill(text.in(lang), {std::to_string(fault.count), joined(places, ", ")}));
    };
    add(twice, times.twice());
    add(missing, times.missing());
    add(disordered, times.disordered());
    add(closer, times.closer());
    for (const ImplausibleColumn& column : report.implausible)
        told.push_back(
            fill(implausible.in(lang), {in_quotes(column.title), std::to_string(column.count),
                                        exact_number(column.first), column.likely.in(lang)}));
    return told;
}

std::vector<std::string> told(const StatusCounts& statuses, LangId lang) {
    std::vector<std::string> lines;
    for (const auto& [status, count] : statuses.counts) {
        const auto first = statuses.first.find(status);
        const std::string number = std::to_string(count);
        if (first == statuses.first.end()) {
            lines.push_back(fill(status_line.in(lang), {number, status}));
            continue;
        }
        const auto& [line, method, period, why] = first->second;
        lines.push_back(
            fill(first_line.in(lang), {number, status, line, method, time_text(period.start),
                                       why.empty() ? text_of_status(status, lang) : why}));
    }
    return lines;
}

}  // namespace zel::weather
