#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "adapters/posix/posix_files.h"
#include "adapters/time_zone/named_zone.h"
#include "fakes/test_data.h"
#include "platform/errors.h"
#include "steady/constants.h"
#include "steady/kirn.h"
#include "steady/webs.h"
#include "weather/rate_run.h"

namespace zel::weather {
namespace {

using nlohmann::json;
using testing::HasSubstr;

constexpr Locale plain = {LangId::English, DecimalSeparator::Point};

ChosenConductor shipped(const std::string& name) {
    static PosixFiles files;
    static const ConductorLibrary library(files, {ZEL_SOURCE_DIR "/data", ""}, plain.separator);
    return choose_conductor(library, files, name, plain.separator);
}

NextPiece pieces_of(const std::string& text, std::size_t size) {
    return [text, size, at = std::size_t{0}]() mutable {
        std::string piece = text.substr(std::min(at, text.size()), size);
        at += size;
        return piece;
    };
}

LineTable lines_of(const std::string& text, const std::vector<std::string>& weather) {
    return read_lines(text, {{Method::TB601}, {}, {}, {}}, weather, shipped, plain);
}

struct Way {
    std::size_t piece = 1U << 20U;
    std::size_t block = 0;
    unsigned threads = 1;
    Radiation radiation = Radiation::AsItStands;
    TableFormat format = TableFormat::Long;
};

/// The rows of ratings.
std::string rated(const std::string& lines, const std::string& weather, const Way& run = {}) {
    WeatherOptions options;
    options.interval = 3600;
    WeatherTable table(pieces_of(weather, run.piece), options);
    const LineTable taken = lines_of(lines, table.names());
    std::vector<std::string> names;
    for (const RatedLine& line : taken.lines) names.push_back(line.name);
    table.set_lines(names);
    RatingsTable ratings(taken, table, {run.format, {}, plain});
    std::string text;
    rate_weather(
        taken, table, ratings, {run.radiation, run.threads, run.block},
        [&](std::string_view rows) { text += rows; }, [](std::uint64_t) {});
    return text;
}

const std::string line_head =
    "name,conductor,methods,sub_conductors,line_azimuth,altitude,latitude,longitude,frequency,"
    "emissivity,absorptivity,resistance_option,conductor_temperature";
const std::string two_lines =
    line_head + ",static_wind_speed,static_wind_angle,static_air_temperature,static_ghi\n" +
    "A,264-AL1/34-ST1A,TB601 TB207,2,75,120,53,9.8,50,0.6,0.6,1,80,0.6,90,35,900\n"
    "B,434-AL1/56-ST1A,TB601,4,140,210,52,11,50,0.6,0.6,1,80,,,,\n";

/// Hours of weather, every seventh with a gap, some of line B alone.
std::vector<std::string> some_weather(int hours, double turned) {
    std::mt19937 random(18);
    std::uniform_real_distribution<double> part(0, 1);
    std::vector<std::string> rows;
    for (int hour = 0; hour < hours; ++hour) {
        const std::string wind = hour % 7 == 3 ? "" : exact_number(0.3 + 9 * part(random));
        const double from = std::floor(180 * part(random));
        rows.push_back(time_text(1705000000 + 3600 * hour) + (hour % 5 == 1 ? ",B," : ",,") + wind +
                       "," + exact_number(from + turned) + "," +
                       exact_number(20 * part(random) - 5) + "," +
                       exact_number(std::floor(600 * part(random))) + "\n");
    }
    return rows;
}

std::string as_table(const std::vector<std::string>& rows) {
    std::string text = "time,line,wind_speed,wind_from_direction,air_temperature,ghi\n";
    for (const std::string& row : rows) text += row;
    return text;
}

TEST(Units, are_those_of_the_table) {
    const json data = test_data("weather")["units"];
    for (const json& row : data["rows"]) {
        const double converted = conversion(row[0].get<std::string>(), row[1].get<std::string>())
                                     .converted(row[2].get<double>(), 3600);
        EXPECT_NEAR(converted, row[3].get<double>(), 1e-12 * std::abs(converted)) << row;
    }
    for (const json& row : data["refused"])
        EXPECT_THROW((void)conversion(row[0].get<std::string>(), row[1].get<std::string>()),
                     InputError)
            << row;
}

TEST(Times, are_read_with_and_without_a_zone) {
    for (const json data = test_data("weather"); const json& row : data["times"]["rows"]) {
        const auto time = read_time(row[0].get<std::string>());
        ASSERT_EQ(time.has_value(), !row[1].is_null()) << row;
        if (!time) continue;
        EXPECT_EQ(time->shown - time->ahead.value_or(0), row[1].get<std::int64_t>()) << row;
        EXPECT_EQ(time->ahead.has_value(), !row[2].is_null()) << row;
        if (time->ahead) {
            EXPECT_EQ(time->ahead, row[2].get<std::int64_t>());
        }
    }
}

TEST(Times, follow_the_clock_of_their_zone) {
    for (const json data = test_data("weather"); const json& row : data["zones"]["rows"]) {
        const std::string name = row[0];
        const auto ahead = read_offset(name);
        const std::unique_ptr<TimeZone> zone =
            ahead ? std::make_unique<FixedZone>(*ahead) : named_zone(name);
        TimeSequence times(zone.get());
        for (std::size_t i = 0; i < row[1].size(); ++i) {
            const std::string text = row[1][i];
            if (row[2][i].is_null()) {
                EXPECT_THROW((void)times.moment(text, 0), InputError) << text;
                continue;
            }
            const std::int64_t moment = times.moment(text, 0);
            EXPECT_EQ(moment, row[2][i].get<std::int64_t>()) << text;
            times.follow(moment, 0, 3600);
        }
        EXPECT_EQ(times.twice().count + times.missing().count + times.disordered().count, 0U);
    }
    EXPECT_THROW((void)named_zone("Europe/Atlantis"), InputError);
}

TEST(Times, that_are_double_missing_or_disordered_are_counted) {
    TimeSequence times(nullptr);
    for (const int hour : {0, 1, 1, 5, 4, 6, 1, 3, 2, 4, 9}) times.follow(3600 * hour, 0, 3600);
    EXPECT_EQ(times.twice().count, 3U);
    EXPECT_THAT(times.twice().first, testing::ElementsAre(3600, 3600, 3600 * 4));
    EXPECT_EQ(times.missing().count, 2U) << "those that came late are there";
    EXPECT_EQ(times.missing().first.front(), 3600 * 7);
    EXPECT_EQ(times.disordered().first.front(), 3600 * 4);
}

/// Kirn takes the hour of summer time off a clock that has none.
TEST(Times, give_all_methods_the_same_sun) {
    for (const double time : {1705307400.0, 1719825600.0}) {  // in January and in July
        SunInput sun[2];
        for (const Method method : {Method::Webs, Method::Kirn}) {
            SeriesElement element;
            element.c.geogr_Breite_db = {"51", 51};
            element.c.geo_laeng_db = {"-10", -10};
            element.c.*flag_of(method) = 1;
            EXPECT_EQ(SeriesInput("time").put(element, time), RatingCode::Rated);
            sun[method == Method::Kirn ? 1 : 0] = sun_input(element.c);
        }
        EXPECT_NEAR(kirn_sun(sun[1]).height, webs_sun(sun[0], 2).height, 1e-9);
    }
}

TEST(Heads, are_refused_by_their_column) {
    for (const json data = test_data("weather"); const json& row : data["heads"]["rows"]) {
        try {
            const WeatherTable table(pieces_of(row[0].get<std::string>() + "\n", 4096), {});
            ADD_FAILURE() << row;
        } catch (const InputError& error) {
            EXPECT_THAT(error.told(LangId::English), HasSubstr(row[1].get<std::string>()));
        }
    }
}

TEST(Lines, are_refused_by_row_and_column_and_others_go_on) {
    const json data = test_data("weather")["lines"];
    for (const json& row : data["rows"]) {
        const std::string head = data["head"];
        const LineTable table =
            lines_of(head + "\n" + row[0].get<std::string>() + "\nZ,,0,50,9,80,Webs,,,\n", {});
        const bool sound = row[1].is_null();
        ASSERT_EQ(table.refused.size(), sound ? 0U : 1U) << row;
        EXPECT_EQ(table.lines.back().name, "Z");
        if (!sound) {
            EXPECT_THAT(table.refused[0].en, HasSubstr(row[1].get<std::string>()));
        }
    }
}

TEST(Lines, have_no_column_without_effect) {
    for (const json data = test_data("weather"); const json& row : data["line_heads"]["rows"]) {
        std::string refusal;
        try {
            (void)lines_of(row[0].get<std::string>() + "\n", {"wind_from_direction"});
        } catch (const InputError& error) {
            refusal = error.told(LangId::English);
        }
        EXPECT_EQ(refusal.empty(), row[1].is_null()) << row << refusal;
        if (!row[1].is_null()) {
            EXPECT_THAT(refusal, HasSubstr(row[1].get<std::string>()));
        }
    }
    for (const auto& [table, comma] :
         {std::pair{"# x", ','}, {"\xEF\xBB\xBF# a;b\n \na,b\n1;2", ','}, {"\n# x\r\na;b\n", ';'}})
        EXPECT_EQ(comma_of(table), comma) << table;
}

const std::string times_of_one_line =
    line_head +
    ",duration,preload_percent,static_wind_speed,static_wind_angle,static_air_temperature,"
    "static_ghi\nA,1000-AL3,TB601,2,0,0,51,10,50,0.6,0.6,1,80,";
const std::string steady_wind = "time,line,wind_speed,wind_angle,air_temperature,ghi\n";

std::vector<std::string> statuses_of(const std::string& ratings) {
    std::vector<std::string> statuses;
    for (const std::string& row : zel::lines_of(ratings))
        if (!row.empty()) statuses.push_back(row.substr(row.rfind(',') + 1));
    return statuses;
}

/// The search for a temporary rating ends within a tolerance: close times may come out of order.
TEST(Ratings, above_those_of_shorter_times_are_marked_and_so_are_recourse_ratings) {
    const std::string lines = times_of_one_line + "1721 1893 1900,95,2,90,10,900\n";
    const std::string time = steady_wind + "2024-06-15T08:00Z,,";
    EXPECT_THAT(statuses_of(rated(lines, time + "2,90,10,900\n")),
                testing::ElementsAre("ok", "ok", "tatl_rises", "tatl_rises"));
    const std::string why = "recourse:missing_input";
    EXPECT_THAT(statuses_of(rated(lines, time + ",90,10,900\n")),
                testing::ElementsAre(why, why, why + ":tatl_rises", why + ":tatl_rises"));
    for (const char* missing : {"2,90,-99.9,900\n", "2,90,10,-999\n"})
        EXPECT_EQ(statuses_of(rated(lines, time + missing)).front(), "recourse:outside_limits");
}

TEST(Limits, are_of_one_row_and_of_whole_seconds) {
    const Way limits = {4096, 0, 1, Radiation::AsItStands, TableFormat::Limits};
    const std::string row = "2024-06-15T08:00Z,", weather = "2,90,10,900\n";
    const std::string whole = times_of_one_line + "90,60,,,,\n";
    const std::string one = rated(whole, steady_wind + row + "A," + weather, limits);
    EXPECT_THAT(one, HasSubstr("A,LINE,TWO,TATL_90,CURRENT,"));
    EXPECT_THROW(
        (void)rated(times_of_one_line + "90.5,60,,,,\n", steady_wind + row + "," + weather, limits),
        InputError);
    for (const auto& [first, second] : {std::pair{"A", "A"}, {"", "A"}, {"A", ""}, {"", ""}})
        EXPECT_THROW(
            (void)rated(
                whole,
                joined({steady_wind, row, first, ",", weather, row, second, ",", weather}, ""),
                limits),
            InputError)
            << first << second;
}

TEST(Recourse, stands_in_for_what_is_missing) {
    for (const json data = test_data("weather"); const json& row : data["recourse"]["rows"])
        for (const RatingCodeText& code : rating_codes())
            if (code.name == row[0].get<std::string>()) {
                EXPECT_EQ(calls_for_recourse(code.code), row[1].get<bool>()) << row;
            }
    const std::string ratings = rated(two_lines, as_table(some_weather(8, 0)));
    EXPECT_THAT(ratings, HasSubstr(",recourse:missing_input\n"));
    EXPECT_THAT(ratings, HasSubstr(",,,,missing_input\n"));
}

TEST(Ratings, do_not_change_where_the_wind_is_turned_by_180_degrees) {
    EXPECT_EQ(rated(two_lines, as_table(some_weather(40, 0))),
              rated(two_lines, as_table(some_weather(40, 180))));
}

TEST(Ratings, are_the_same_rows_of_shuffled_weather) {
    std::vector<std::string> rows = some_weather(40, 0);
    std::vector<std::string> before = zel::lines_of(rated(two_lines, as_table(rows)));
    std::shuffle(rows.begin(), rows.end(), std::mt19937(1));
    std::vector<std::string> after = zel::lines_of(rated(two_lines, as_table(rows)));
    EXPECT_NE(before, after);
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    EXPECT_EQ(before, after);
}

TEST(Ratings, depend_on_no_border_of_pieces_blocks_and_threads) {
    const std::string weather = as_table(some_weather(40, 0));
    const std::string whole = rated(two_lines, weather);
    EXPECT_EQ(std::count(whole.begin(), whole.end(), '\n'), 32 * 3 + 8);
    for (const Way& run : {Way{1, 1, 1}, Way{7, 3, 2}, Way{4096, 13, 5}})
        EXPECT_EQ(rated(two_lines, weather, run), whole) << run.piece;
}

TEST(Ratings, of_components_are_those_of_speed_and_direction) {
    const std::string time = "2024-01-15T08:00Z,";
    const auto rating = [&](const std::string& head, const std::string& row) {
        return rated(two_lines, "time,air_temperature,ghi," + head + "\n" + time + row + "\n");
    };
    EXPECT_EQ(rating("u[kn],v[kn]", "5,0,-3,0"),
              rating("wind_from_direction,wind_speed[kn]", "5,0,90,3"));
}

TEST(Radiation, on_level_ground_meets_the_conductor_by_the_height_of_the_sun) {
    const std::string weather =
        "time,wind_speed,wind_from_direction,air_temperature,ghi\n2024-06-21T11:50Z,1,0,20,";
    const auto current = [&](const std::string& ghi, Radiation radiation) {
        return rated(two_lines, weather + ghi + "\n", {4096, 0, 1, radiation});
    };
    EXPECT_NEAR(radiation_on_conductor(100, radians(30)), 200, 1e-6);
    EXPECT_NEAR(radiation_on_conductor(100, 0), 100 / std::sin(radians(10)), 1e-6);
    EXPECT_EQ(radiation_on_conductor(1000, radians(20)), 1400);
    EXPECT_EQ(radiation_on_conductor(-4, 0), -4) << "an instrument at night";
    EXPECT_EQ(current("500", Radiation::OnConductor), current("500", Radiation::AsItStands));
    EXPECT_NE(current("500", Radiation::Horizontal), current("500", Radiation::AsItStands));
    EXPECT_EQ(current("0", Radiation::Horizontal), current("0", Radiation::AsItStands));
}

TEST(Radiation, has_to_be_told_where_both_kinds_of_methods_take_it) {
    struct Row {
        const char *methods, *head, *of_line;
        Radiation radiation;
        bool open;
    };
    using enum Radiation;
    for (const auto& [methods, head, of_line, radiation, is_open] :
         {Row{"TB601,Webs", "ghi", "", AsItStands, true},
          {"TB207,Kirn", "ghi", "", AsItStands, true},
          {"TB601,Webs", "wind_speed", "ghi", AsItStands, true},
          {"TB601,Webs", "wind_speed", "static_ghi", AsItStands, true},
          {"TB601,Webs", "ghi", "", OnConductor, false},
          {"TB601,Webs", "wind_speed", "ghi", Horizontal, false},
          {"TB601,TB207", "ghi", "static_ghi", AsItStands, false},
          {"Webs,Kirn", "ghi", "", AsItStands, false},
          {"TB601,Webs", "wind_speed", "", AsItStands, false}}) {
        const WeatherTable weather(
            pieces_of(std::string("time,") + head + "\n2024-01-15T08:00Z,1\n2024-01-15T09:00Z,1\n",
                      4096),
            {});
        const std::string more = *of_line == 0 ? "" : ",";
        LineTable lines =
            lines_of(line_head + more + of_line + "\nA,,\"" + methods +
                         "\",1,0,0,50,9,50,0.6,0.6,1,80" + (more.empty() ? "" : ",900") + "\n",
                     weather.names());
        bool refused = false;
        try {
            settle_radiation(lines, weather, radiation);
        } catch (const InputError&) {
            refused = true;
        }
        EXPECT_EQ(refused, is_open) << methods << head << of_line;
        EXPECT_EQ(lines.lines.size(), 1U);
    }
}

TEST(Weather, tells_its_period_however_it_comes_in) {
    const std::string text =
        "# a, remark\ntime;line;ghi\n2024-01-15T08:00Z;A;1\n2024-01-15T08:00Z;B;1\n"
        "2024-01-15T09:00Z;A;1\r2024-01-15T09:20Z;A;1\n";
    for (const std::size_t piece : {1U, 7U, 4096U}) {
        WeatherTable table(pieces_of(text, piece), {});
        EXPECT_EQ(table.interval(), 3600) << piece;
        table.set_lines({"A", "B"});
        WeatherBlock block;
        ASSERT_TRUE(table.next(block, 10));
        EXPECT_EQ(block.rows.size(), 4U);
        EXPECT_EQ(table.times().closer().count, 1U);
    }
    std::string energies = text;
    WeatherTable table(pieces_of(energies.insert(energies.find("\n2024"), "[J/m2]"), 7), {});
    table.set_lines({"A", "B"});
    WeatherBlock block;
    EXPECT_THROW((void)table.next(block, 10), InputError);
}

TEST(Weather, of_another_unit_is_seen_by_the_whole_column) {
    std::string text = "time,wind_speed,ghi\n";
    for (int hour = 10; hour < 34; ++hour)
        text += time_text(1705000000 + 3600 * hour) + ",15,0." + std::to_string(hour) + "\n";
    WeatherTable table(pieces_of(text, 100), {});
    WeatherBlock block;
    while (table.next(block, 10)) EXPECT_TRUE(table.report().implausible.empty());
    ASSERT_EQ(table.report().implausible.size(), 2U);
    EXPECT_THAT(std::string(table.report().implausible[0].likely.en), HasSubstr("[km/h]"));
    EXPECT_THAT(std::string(table.report().implausible[1].likely.en), HasSubstr("[kW/m2]"));
}

TEST(Weather, that_is_hardly_in_its_unit_is_told_with_the_likely_one) {
    WeatherTable table(pieces_of("time,air_temperature,ghi[J/cm2],wind_speed\n"
                                 "2024-01-15T08:00Z,285,10,x\n2024-01-15T09:00Z,286,10,3\n",
                                 4096),
                       {});
    WeatherBlock block;
    ASSERT_TRUE(table.next(block, 10));
    ASSERT_EQ(table.report().implausible.size(), 1U);
    EXPECT_EQ(table.report().implausible[0].count, 2U);
    EXPECT_THAT(std::string(table.report().implausible[0].likely.en), HasSubstr("[K]"));
    EXPECT_EQ(table.report().refused, 1U);
    EXPECT_EQ(table.report().first_refused[0].en, "line 2, column wind_speed: \"x\" is no number");
}

}  // namespace
}  // namespace zel::weather
