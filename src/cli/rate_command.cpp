#include <cmath>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "adapters/openssl/sha256.h"
#include "adapters/posix/posix_files.h"
#include "adapters/posix/text_file.h"
#include "adapters/time_zone/named_zone.h"
#include "cli/batch_progress.h"
#include "cli/commands.h"
#include "platform/errors.h"
#include "program/conductor_source.h"
#include "program/stores.h"
#include "weather/rate_texts.h"

namespace zel {
namespace {

using namespace weather;
using nlohmann::ordered_json;

constexpr const char* rate_notes =
    "\n"
    "Rates each line of LINES at each time of WEATHER. docs/rate.md tells the columns of both\n"
    "tables, their units, and what the status of a rating says; \"zel help fields\" lists the\n"
    "inputs. WEATHER may be -, standard input. The file of ratings appears whole or not at all.\n"
    "\n"
    "Exit status: 0 all is rated; 1 a row of a table was left out, or a rating has no value or that\n"
    "of the static weather; 2 the input was refused, nothing was written.";

struct RateWords : CommonOptions {
    std::string lines{};
    std::string weather{};
    std::string output{};
    std::vector<std::string> columns{};
    std::vector<std::string> ignored{};
    std::string methods = "TB601";
    std::string durations{};
    std::string preloads{};
    std::string zone{};
    std::optional<double> interval{};  // min
    Stamp stamp = Stamp::End;
    Radiation radiation = Radiation::AsItStands;
    weather::TableFormat format = weather::TableFormat::Long;
    unsigned threads = 0;
};

constexpr Text no_lines = {"keine Leitung kann berechnet werden", "no line can be rated"};
constexpr Text no_rows = {"keine Zeile des Wetters kann berechnet werden",
                          "no row of the weather can be rated"};
constexpr Text changed = {"wurde geändert, während es gelesen wurde",
                          "was changed while it was read"};
constexpr Text bad_interval = {"--interval nimmt ganze Sekunden, von einer bis zu einem Jahr",
                               "--interval takes whole seconds, from one to a year"};
constexpr Text both_piped = {"nur eine der Tabellen kann von der Standardeingabe kommen",
                             "only one of the tables can come from standard input"};
constexpr Text is_an_input = {"ist eine der Tabellen", "is one of the tables"};
constexpr Text ratings_so_far = {"{0} Belastbarkeiten", "{0} ratings"};

std::unique_ptr<TimeZone> zone_of(const std::string& name) {
    if (name.empty()) return nullptr;
    if (const auto ahead = read_offset(name)) return std::make_unique<FixedZone>(*ahead);
    return named_zone(name);
}

/// In s; 0 where none is given.
std::int64_t interval_of(const RateWords& words) {
    if (!words.interval) return 0;
    constexpr double seconds_of_minute = 60;
    constexpr double seconds_of_year = 366.0 * 86400;
    const double seconds = *words.interval * seconds_of_minute;
    if (!(seconds >= 1 && seconds <= seconds_of_year) || seconds != std::floor(seconds))
        throw InputError(Reason(bad_interval));
    return static_cast<std::int64_t>(seconds);
}

/// `read` with failures at `place`.
template <class Read>
auto reading(const std::string& place, Read read) {
    try {
        return read();
    } catch (const InputError& error) {
        throw InputError(at(place, error.reason()));
    }
}

LineDefaults defaults_of(const RateWords& words) {
    const auto numbers = [&](const char* option, const std::string& text, const char* input) {
        return reading(option, [&] {
            return read_numbers(text, SeriesInput(input).limits(), DecimalSeparator::Point);
        });
    };
    return {reading("--methods", [&] { return read_methods(words.methods); }),
            numbers("--tatl", words.durations, "duration"),
            numbers("--preload", words.preloads, "preload_percent"), words.ignored};
}

/// The checksum of a file; empty of what is none.
std::string checksum_of(const std::string& path) {
    FilePieces pieces(path);
    if (!pieces.is_file()) return {};
    Sha256 sum;
    for (std::string piece = pieces.next(); !piece.empty(); piece = pieces.next()) sum.take(piece);
    return sum.hex();
}

/// The conductors of the library, which is read once, when a line names the first.
class Conductors {
public:
    explicit Conductors(const Locale& locale) : locale_(locale) {}

    ChosenConductor chosen(const std::string& named) {
        if (!library_) {
            library_.emplace(open_library(files_, locale_));
            const LibraryPlaces places = library_places(ProgramStores().paths);
            for (const std::string& path :
                 {places.shipped_file(), places.materials_file(), places.own_file})
                take_source(path);
        }
        take_source(named);
        return choose_conductor(*library_, files_, named, locale_.separator);
    }

    /// The files of the library, and the records that lines named.
    [[nodiscard]] const std::vector<RateSource>& sources() const { return sources_; }

private:
    void take_source(const std::string& path) {
        const bool known = std::ranges::any_of(
            sources_, [&](const RateSource& source) { return source.path == path; });
        if (!known && file_exists(path)) sources_.push_back({path, checksum_of(path)});
    }

    Locale locale_;
    PosixFiles files_;
    std::optional<ConductorLibrary> library_;
    std::vector<RateSource> sources_;
};

std::string checksum_of_text(std::string_view text) {
    Sha256 sum;
    sum.take(text);
    return sum.hex();
}

std::string joined_words(char** words) {
    std::string command = "zel";
    for (char** word = words + 1; *words != nullptr && *word != nullptr; ++word)
        command += " " + std::string(*word);
    return command;
}

class RateRun {
public:
    RateRun(const RateWords& words, char** command)
        : words_(words), command_(joined_words(command)), progress_(words) {}

    int run();

private:
    void rate();
    void tell();
    [[nodiscard]] std::string document() const;
    [[nodiscard]] int status() const;
    [[nodiscard]] std::string next_piece();
    [[nodiscard]] LineTable lines_of(const std::string& text);
    [[nodiscard]] RateRecord record() const;

    const RateWords& words_;
    std::string command_;
    BatchProgress progress_;
    std::unique_ptr<TimeZone> zone_;
    std::unique_ptr<FilePieces> pieces_;
    std::uint64_t read_ = 0;  // bytes of the weather
    Sha256 sum_;              // of them
    std::string weather_sum_;
    std::string lines_sum_;
    LineDefaults defaults_;
    Conductors conductors_{words_};
    std::optional<WeatherTable> weather_;
    LineTable lines_;
    StatusCounts statuses_;
    std::uint64_t ratings_ = 0;
};

int RateRun::run() {
    if (words_.lines == "-" && words_.weather == "-") throw InputError(Reason(both_piped));
    for (const std::string& input : {words_.lines, words_.weather}) {
        std::error_code absent;
        if (std::filesystem::equivalent(input, words_.output, absent))
            throw InputError(at(words_.output, Reason(is_an_input)));
    }
    defaults_ = defaults_of(words_);
    zone_ = zone_of(words_.zone);
    weather_sum_ = words_.weather == "-" ? std::string() : checksum_of(words_.weather);
    pieces_ = std::make_unique<FilePieces>(words_.weather);
    try {
        rate();
    } catch (...) {
        tell();
        throw;
    }
    if (words_.json) return print_or_fail(document(), status());
    tell();
    return status();
}

void RateRun::rate() {
    const WeatherOptions options{zone_.get(), words_.stamp, interval_of(words_), words_.ignored,
                                 words_};
    reading(words_.weather, [&] { weather_.emplace([this] { return next_piece(); }, options); });
    const std::string text = read_text_file(words_.lines);
    lines_sum_ = checksum_of_text(text);
    lines_ = reading(words_.lines, [&] { return lines_of(text); });
    settle_radiation(lines_, *weather_, words_.radiation);
    if (lines_.lines.empty()) throw InputError(at(words_.lines, Reason(no_lines)));
    std::vector<std::string> names;
    for (const RatedLine& line : lines_.lines) {
        names.push_back(line.name);
        std::ranges::copy(faults_of_recourse(line), std::back_inserter(lines_.without_recourse));
    }
    weather_->set_lines(names);
    RatingsTable table(lines_, *weather_, {words_.format, words_.columns, words_});
    NewFile file(words_.output);
    file.write(head_lines(record(), lines_, *weather_, words_.lang) + table.head());
    reading(words_.weather, [&] {
        rate_weather(
            lines_, *weather_, table, {words_.radiation, words_.threads},
            [&](std::string_view rows) { file.write(rows); },
            [&](std::uint64_t ratings) {
                ratings_ = ratings;
                statuses_ = table.statuses();
                if (pieces_->size() > 0)
                    progress_.percent(100.0 * static_cast<double>(read_) /
                                      static_cast<double>(pieces_->size()));
                progress_.status(fill(ratings_so_far.in(words_.lang), {std::to_string(ratings)}));
            });
    });
    if (ratings_ == 0) throw InputError(at(words_.weather, Reason(no_rows)));
    if (pieces_->is_file() && sum_.hex() != weather_sum_)
        throw InputError(at(words_.weather, Reason(changed)));
    file.put_in_place();
}

std::string RateRun::next_piece() {
    std::string piece = pieces_->next();
    read_ += piece.size();
    sum_.take(piece);
    return piece;
}

LineTable RateRun::lines_of(const std::string& text) {
    return read_lines(
        text, defaults_, weather_->names(),
        [&](const std::string& named) { return conductors_.chosen(named); }, words_);
}

RateRecord RateRun::record() const {
    return {command_,
            {words_.lines, words_.lines == "-" ? std::string() : lines_sum_},
            {words_.weather, pieces_->is_file() ? weather_sum_ : std::string()},
            conductors_.sources(),
            words_.zone,
            words_.stamp,
            words_.radiation};
}

void RateRun::tell() {
    progress_.clear();
    if (!weather_ || words_.silent) return;
    for (const std::string& line : remarks_on(lines_, *weather_, words_.lang))
        Console::tell_reason(line);
    for (const std::string& line : told(statuses_, words_.lang)) Console::tell_reason(line);
}

std::string RateRun::document() const {
    ordered_json statuses = ordered_json::object();
    for (const auto& [status, count] : statuses_.counts) statuses[status] = count;
    return json_text({{"file", words_.output},
                      {"lines", lines_.lines.size()},
                      {"rows", weather_->report().rows},
                      {"ratings", ratings_},
                      {"statuses", statuses},
                      {"interval_s", weather_->interval()},
                      {"remarks", remarks_on(lines_, *weather_, words_.lang)},
                      {"ends", told(statuses_, words_.lang)},
                      {"seconds", progress_.seconds()}});
}

int RateRun::status() const {
    const bool sound =
        lines_.refused.empty() && weather_->report().refused == 0 && statuses_.first.empty();
    return sound ? exit_done : exit_failed;
}

void add_time_options(CLI::App& command, RateWords& words) {
    command.add_option("--timezone", words.zone, "Zone of times that name none")
        ->option_text("Europe/Berlin|UTC|+01:00");
    add_choice<Stamp>(command, "--stamp", words.stamp,
                      {{"start", Stamp::Start}, {"middle", Stamp::Middle}, {"end", Stamp::End}},
                      "Which moment of its period a time is (default: end)");
    command
        .add_option("--interval", words.interval,
                    "Length of a period (default: as the first two times are apart)")
        ->option_text("MINUTES");
    add_choice<Radiation>(
        command, "--radiation", words.radiation,
        {{"horizontal", Radiation::Horizontal}, {"conductor", Radiation::OnConductor}},
        "What the radiation is: on level ground, or as it meets the conductor");
}

}  // namespace

void add_rate(CommandLine& line) {
    const auto [command, words] = line.add<RateWords>(
        "rate", "Rate lines over a series of weather",
        [command = line.words()](const RateWords& given) { return RateRun(given, command).run(); });
    command.add_option("LINES", words.lines, "Table of lines (csv)")->required();
    command.add_option("WEATHER", words.weather, "Table of weather (csv), or -")->required();
    command.add_option("-o", words.output, "File to be written")
        ->required()
        ->option_text("RATINGS.csv REQUIRED");
    command.add_option("--methods", words.methods, "Of lines that name none (default: TB601)")
        ->option_text("TB601,TB207,TBB,Webs,Kirn");
    command
        .add_option("--tatl", words.durations,
                    "Ratings for these times too, by TB601, of lines that name none")
        ->option_text("SECONDS,...");
    command
        .add_option("--preload", words.preloads,
                    "Load before them, in percent of the permanent rating")
        ->option_text("PERCENT,...");
    add_time_options(command, words);
    command.add_option("--columns", words.columns, "Inputs that stand beside each rating")
        ->delimiter(',')
        ->option_text("A,B,...");
    command.add_option("--ignore", words.ignored, "Columns of the tables that are left out")
        ->delimiter(',')
        ->option_text("A,B,...");
    add_choice<weather::TableFormat>(
        command, "--format", words.format,
        {{"long", weather::TableFormat::Long}, {"limits", weather::TableFormat::Limits}},
        "A row for each rating, or the limits of one time for grid programs (default: long)");
    command.add_option("--threads", words.threads, "Processors at work (default: all)")
        ->option_text("N");
    command.footer(rate_notes);
    add_output(command, words);
    add_language(command, words.lang, words.separator);
}

}  // namespace zel
