#include <unistd.h>

#include <charconv>
#include <cmath>
#include <csignal>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <thread>
#include <utility>

#include "cli/case_output.h"
#include "cli/commands.h"
#include "cli/db_words.h"
#include "measuring/measuring_cycle.h"
#include "measuring/measuring_inputs.h"
#include "measuring/measuring_ports.h"
#include "measuring/measuring_table.h"
#include "measuring/measuring_texts.h"
#include "persistence/database/saving.h"
#include "persistence/database/table_names.h"
#include "platform/errors.h"
#include "platform/text/listing.h"
#include "program/database_files.h"
#include "program/stores.h"

namespace zel {
namespace {

using namespace measuring;
using namespace std::chrono_literals;
using nlohmann::ordered_json;

constexpr const char* measure_notes =
    "\n"
    "A cycle reads an ultrasonic anemometer and a global radiation meter every 0.55 s and gives the\n"
    "means. Without --source the instruments hang on the ports of the settings (MUCOM, MGCOM);\n"
    "their baud rates and frames are MUCOM_line and MGCOM_line for named devices too.\n"
    "\n"
    "  zel measure --source simulated --height-difference 10 --cycle-seconds 5\n"
    "  zel measure --source /dev/ttyUSB0,/dev/ttyUSB1 --height-difference 10 --save mast.mdb North\n"
    "\n"
    "Ctrl-C ends the cycle with the means so far. --save makes file and table where they are not\n"
    "there, and adds a row. docs/measuring.md tells what instruments have to send.\n"
    "\n"
    "Exit status: 0 done; 1 an instrument fell silent or went away, or there was no sample; 2 refused,\n"
    "nothing was measured.";

constexpr Text wrong_cycle = {"--cycle-seconds: eine Zahl von 0.55 bis {0}",
                              "--cycle-seconds: a number from 0.55 to {0}"};
constexpr Text wrong_source = {"--source: simulated oder zwei Geräte: ANEMOMETER,STRAHLUNGSMESSER",
                               "--source: simulated or two devices: ANEMOMETER,RADIATION-METER"};
constexpr Text only_read = {"{0}: kann nur gelesen werden", "{0}: can only be read"};
constexpr Text not_saved = {"nichts ist gespeichert: {0}", "nothing is stored: {0}"};
constexpr BoxText save_failed = {Icon::Stop, {"Meßwerttabelle", "Measuring table"}, {"{0}", "{0}"}};

struct MeasureWords : CommonOptions {
    double cycle_seconds = 60;
    std::string source{};
    std::string height{};
    std::vector<std::string> save{};  // file and table
};

// ---- ctrl-C

volatile std::sig_atomic_t interrupted = 0;

/// Ctrl-C ends the cycle, as long as it lives.
class InterruptWatch {
public:
    InterruptWatch() {
        struct sigaction noted {};
        noted.sa_handler = [](int) { interrupted = 1; };
        ::sigaction(SIGINT, &noted, &before_);
    }
    ~InterruptWatch() { ::sigaction(SIGINT, &before_, nullptr); }
    InterruptWatch(const InterruptWatch&) = delete;
    InterruptWatch& operator=(const InterruptWatch&) = delete;

private:
    struct sigaction before_ {};
};

// ---- what the words mean

std::chrono::milliseconds cycle_length(const MeasureWords& words) {
    constexpr double longest = std::chrono::duration<double>(MeasuringCycle::longest_cycle).count();
    constexpr double least = std::chrono::duration<double>(MeasuringCycle::tick).count();
    if (!(words.cycle_seconds >= least && words.cycle_seconds <= longest))
        throw InputError(Reason(wrong_cycle, {exact_number(longest)}));
    return std::chrono::milliseconds(std::llround(words.cycle_seconds * 1000));
}

Entry height_of(const MeasureWords& words) {
    Entry height;
    const auto refused = enter_height(height, words.height, words);
    const auto box = refused ? refused->box : refusal_to_start(height, words.lang);
    if (box) throw InputError(at("--height-difference", Reason(paragraph_of(*box))));
    return height;
}

Connections named_devices(const std::string& source, const ProgramSettings& settings) {
    const auto comma = source.find(',');
    if (comma == std::string::npos || comma == 0 || comma + 1 == source.size() ||
        source.find(',', comma + 1) != std::string::npos)
        throw InputError(Reason(wrong_source));
    return {{source.substr(0, comma), line_of(anemometer_owner, settings)},
            {source.substr(comma + 1), line_of(radiation_owner, settings)}};
}

std::unique_ptr<Instruments> instruments_of(const MeasureWords& words, ProgramStores& stores) {
    if (words.source == "simulated") return std::make_unique<SimulatedInstruments>();
    const ProgramSettings settings = stores.settings().now();
    const auto [anemometer, radiation_meter] =
        words.source.empty() ? connections(settings) : named_devices(words.source, settings);
    return std::make_unique<SerialInstruments>(stores.sensor_ports, anemometer, radiation_meter,
                                               stores.clock);
}

// ---- the table

bool is_there(Database& database, const std::string& name) {
    for (const TableInfo& table : database.tables())
        if (same_name(table.name, name)) return true;
    return false;
}

/// Where the means are stored. Whatever would keep them from it is told by the check.
class Target {
public:
    explicit Target(const MeasureWords& words)
        : file_(words.save.at(0)), table_(without_outer_blanks(words.save.at(1))) {
        static_cast<CommonOptions&>(words_) = words;
    }

    void check() {
        if (!std::filesystem::exists(file_)) {
            refuse_table_name(table_);
            refuse_reserved(words_, file_);
            (void)NewDatabase(store_, file_);  // is gone again
            return;
        }
        const auto database = store_.open(file_);
        if (!database->writable()) throw InputError(Reason(only_read, {file_}));
        if (is_there(*database, table_))
            (void)record_table(*database, measuring_tables(), table_);
        else
            refuse_table_name(table_);
    }

    /// Gives what could not be stored for want of columns.
    [[nodiscard]] std::optional<Box> add(const std::vector<NamedValue>& row) {
        if (!std::filesystem::exists(file_)) {
            NewDatabase made(store_, file_);
            save_in_new_table(made.database(), measuring_tables(), table_, row);
            made.keep();
            return std::nullopt;
        }
        const auto database = store_.open(file_);
        if (!is_there(*database, table_)) {
            save_in_new_table(*database, measuring_tables(), table_, row);
            return std::nullopt;
        }
        const TableInfo table = record_table(*database, measuring_tables(), table_);
        std::vector<std::string> left_out;
        add_to_table(*database, table, row, left_out);
        return told_left_out(table, left_out, words_.lang);
    }

private:
    DbWords words_;
    std::string file_;
    std::string table_;
    DatabaseFiles store_;
};

// ---- the cycle

/// The values as they come, in one line of a terminal.
class LiveLine {
public:
    explicit LiveLine(const MeasureWords& words)
        : words_(words), shown_(!words.json && ::isatty(STDERR_FILENO) == 1) {}

    void show(const MeasuringCycle& cycle, const Instruments& instruments) {
        if (!shown_ || cycle.samples().size() == samples_) return;
        samples_ = cycle.samples().size();
        const Readings& now = cycle.readings();
        const DecimalSeparator separator = words_.separator;
        constexpr Text rest = {"noch {0} s", "{0} s left"};
        const auto seconds = std::chrono::ceil<std::chrono::seconds>(cycle.remaining()).count();
        std::string line = direction_text(now.Windrichtung, separator) + "  " +
                           speed_text(now.Windgeschwindigkeit, separator) + "  " +
                           temperature_text(now.Lufttemperatur, separator) + "  " +
                           radiation_text(now.Globalstrahlung) + "  " +
                           fill(rest.in(words_.lang), {std::to_string(seconds)});
        const std::size_t dropped =
            instruments.anemometer().dropped + instruments.radiation_meter().dropped;
        constexpr Text drops = {"  {0} verworfen", "  {0} dropped"};
        if (dropped > 0) line += fill(drops.in(words_.lang), {std::to_string(dropped)});
        std::fprintf(stderr, "\r\x1B[K%s", line.c_str());
        std::fflush(stderr);
    }
    void clear() const {
        if (shown_) std::fputs("\r\x1B[K", stderr);
    }

private:
    const MeasureWords& words_;
    bool shown_;
    std::size_t samples_ = 0;
};

using NamedStatus = std::pair<Text, InstrumentStatus>;
std::array<NamedStatus, 2> statuses(const Instruments& instruments) {
    return {NamedStatus(anemometer_name, instruments.anemometer()),
            NamedStatus(radiation_meter_name, instruments.radiation_meter())};
}

/// Why the cycle has to end before its time.
std::optional<Box> failure(const Instruments& instruments, LangId lang) {
    for (const auto& [name, status] : statuses(instruments))
        if (status.gives_nothing()) return instrument_failed(name, status, lang);
    return std::nullopt;
}

/// The same of an instrument that had no time to fall silent.
std::optional<Box> nothing_told(const Instruments& instruments, LangId lang) {
    for (auto [name, status] : statuses(instruments)) {
        if (status.telegrams > 0) continue;
        status.state = status.dropped > 0 ? InstrumentState::Rubbish : InstrumentState::Silent;
        return instrument_failed(name, status, lang);
    }
    return std::nullopt;
}

/// Without boxes it is told all the same, but not recorded.
void tell(const Box& box, const MeasureWords& words, Console& console) {
    if (words.silent)
        Console::tell_reason(paragraph_of(box));
    else
        console.show(box);
}

/// Lives through the cycle; gives what ended it before its time.
std::optional<Box> measure(MeasuringCycle& cycle, Instruments& instruments,
                           const MeasureWords& words) {
    constexpr auto step = 10ms;
    LiveLine line(words);
    std::optional<Box> told;
    std::size_t seen = 0;
    while (cycle.runs() && !told) {
        std::this_thread::sleep_for(step);
        if (interrupted != 0) break;
        cycle.go_on();
        // Between two ticks nobody reads what has come.
        const bool ticked = std::exchange(seen, cycle.samples().size()) != cycle.samples().size();
        if (cycle.runs() && ticked) told = failure(instruments, words.lang);
        line.show(cycle, instruments);
    }
    line.clear();
    cycle.stop();
    if (!told && cycle.means() && interrupted == 0) told = nothing_told(instruments, words.lang);
    return told;
}

// ---- what is printed

template <class Value>
ordered_json or_null(const MeasuringCycle& cycle, const Value& value) {
    return cycle.means() ? ordered_json(value(*cycle.means())) : ordered_json();
}

std::string document(const MeasuringCycle& cycle, double height, std::size_t dropped,
                     const Console& console) {
    const auto value = [&](const auto& of) { return or_null(cycle, of); };
    return json_text(
        {{"messages", json_of(console.messages())},
         {"samples", cycle.samples().size()},
         {"start", value([](const CycleMeans& m) { return moment_text(m.start); })},
         {"end", value([](const CycleMeans& m) { return moment_text(m.end); })},
         {"wind_direction_deg", value([](const CycleMeans& m) { return m.Windrichtung_Mittel; })},
         {"wind_direction_folded_deg", value([](const CycleMeans& m) {
              return m.vector_mean_direction ? ordered_json(*m.vector_mean_direction)
                                             : ordered_json();
          })},
         {"wind_speed_m_s", value([](const CycleMeans& m) { return m.Windgeschw_Mittel; })},
         {"air_temperature_C", value([](const CycleMeans& m) { return m.Lufttemp_Mittel; })},
         {"global_radiation_W_m2",
          value([](const CycleMeans& m) { return m.Globalstrahlung_Mittel; })},
         {"wind_extrapolated_m_s", value([height](const CycleMeans& m) {
              return S66_Hochrechnung_wind_v(m.Windgeschw_Mittel, height);
          })},
         {"dropped_telegrams", dropped}});
}

std::string page(const MeasuringCycle& cycle, double height, std::size_t dropped,
                 const Locale& locale) {
    if (!cycle.means()) return {};
    Listing listing;
    const double extrapolated = S66_Hochrechnung_wind_v(cycle.means()->Windgeschw_Mittel, height);
    for (const MeanLine& line : mean_lines(*cycle.means(), extrapolated, locale))
        listing.add(line.label.in(locale.lang), line.value);
    constexpr Text dropped_label = {"Verworfene Telegramme", "Dropped telegrams"};
    listing.add(dropped_label.in(locale.lang), std::to_string(dropped));
    return listing.text();
}

/// False where the means could not be stored, which is told.
bool save(Target& target, const CycleMeans& means, double height, const MeasureWords& words,
          Console& console) {
    std::vector<CutText> cut;
    const double extrapolated = S66_Hochrechnung_wind_v(means.Windgeschw_Mittel, height);
    try {
        const auto left_out =
            target.add(row_of(measured_record(means, extrapolated, {}, {}, words.separator), cut));
        if (left_out) tell(*left_out, words, console);
        return true;
    } catch (const PlatformError& error) {
        const std::string why = fill(not_saved.in(words.lang), {error.told(words.lang)});
        tell(box_in(words.lang, save_failed, {why}), words, console);
        return false;
    }
}

int run(const MeasureWords& words) {
    Console console(words);
    const std::chrono::milliseconds length = cycle_length(words);
    const Entry height = height_of(words);
    ProgramStores stores;
    const auto instruments = instruments_of(words, stores);
    std::optional<Target> target;
    if (!words.save.empty()) target.emplace(words).check();
    MeasuringCycle cycle(stores.clock);
    const InterruptWatch watch;
    cycle.S61_Messzyklus_starten(*instruments, length);
    auto told = measure(cycle, *instruments, words);
    const bool whole = !told;
    if (!told && !cycle.means()) told = box_in(words.lang, no_sample);
    if (told) tell(*told, words, console);
    int status = told ? exit_failed : exit_done;
    if (whole && cycle.means() && target &&
        !save(*target, *cycle.means(), height.value, words, console))
        status = exit_failed;
    const std::size_t dropped =
        instruments->anemometer().dropped + instruments->radiation_meter().dropped;
    return print_or_fail(words.json ? document(cycle, height.value, dropped, console)
                                    : page(cycle, height.value, dropped, words),
                         status);
}

}  // namespace

void add_measure(CommandLine& line) {
    const auto [command, words] =
        line.add<MeasureWords>("measure", "Measure wind, air temperature and radiation", run);
    command
        .add_option("--height-difference", words.height,
                    "Height from the measuring head up to the conductor in m, at most 199")
        ->required()
        ->option_text("H REQUIRED");
    command.add_option("--cycle-seconds", words.cycle_seconds, "Length of the cycle (default: 60)")
        ->option_text("S");
    command
        .add_option("--source", words.source, "The instruments (default: ports of the settings)")
        ->option_text("simulated|DEVICE,DEVICE");
    command.add_option("--save", words.save, "Add the means to a measuring table")
        ->expected(2)
        ->option_text("FILE TABLE");
    command.footer(measure_notes);
    add_output(command, words);
    add_language(command, words.lang, words.separator);
}

}  // namespace zel
