#pragma once

#include <string>
#include <vector>

#include "weather/rate_run.h"

// What stands above a table of ratings, and what is told in the end.

namespace zel::weather {

/// A table that was read.
struct RateSource {
    std::string path;
    std::string sha256;  // empty where it came through a pipe and is not known
};

/// What went into a run.
struct RateRecord {
    std::string command;
    RateSource lines;
    RateSource weather;
    std::vector<RateSource> conductors;
    std::string zone;  // of times that name none; may be empty
    Stamp stamp = Stamp::End;
    Radiation radiation = Radiation::AsItStands;
};

/// Lines that begin with "# ": version, command, inputs, and by which conventions they are read.
[[nodiscard]] std::string head_lines(const RateRecord& record, const LineTable& lines,
                                     const WeatherTable& weather, LangId lang);

/// What a user is to know of the tables: rows that are left out, times that are not in order,
/// numbers that are hardly in their unit.
[[nodiscard]] std::vector<std::string> remarks_on(const LineTable& lines,
                                                  const WeatherTable& weather, LangId lang);

/// How many ratings have which status, a line each; of those without a value the first, and why.
[[nodiscard]] std::vector<std::string> told(const StatusCounts& statuses, LangId lang);

}  // namespace zel::weather
