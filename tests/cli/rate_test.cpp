#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/process.h"
#include "fakes/scratch_folder.h"

// What becomes of the file of ratings where its run does not come to its end.

namespace zel {
namespace {

class UnfinishedRatings : public testing::Test {
protected:
    UnfinishedRatings() {
        folder_.write("lines.csv",
                      "name,conductor,sub_conductors,line_azimuth,altitude,frequency,emissivity,"
                      "absorptivity,resistance_option,conductor_temperature\n"
                      "A,264-AL1/34-ST1A,2,0,0,50,0.6,0.6,1,80\n");
        std::string weather = "time,wind_speed,wind_angle,air_temperature,ghi\n";
        for (int day = 1; day <= 28; ++day)
            for (int hour = 0; hour < 24; ++hour) {
                char time[40];
                std::snprintf(time, sizeof time, "2026-02-%02dT%02d:00Z", day, hour);
                weather += std::string(time) + ",0.6,90,35,900\n";
            }
        folder_.write("weather.csv", weather);
        folder_.write("ratings.csv", "as it was");
    }

    /// Runs `command` by a shell in the folder, where "$0" is the program.
    ProcessResult run(const std::string& command) {
        return run_zel({"-c", command, ZEL_PROGRAM}, folder_.path(), {}, {}, "/bin/sh");
    }
    [[nodiscard]] std::ptrdiff_t files() const {
        return std::distance(std::filesystem::directory_iterator(folder_.path()), {});
    }

    ScratchFolder folder_;
};

TEST_F(UnfinishedRatings, of_a_killed_run_leave_the_old_file) {
    (void)run("mkfifo pipe; exec 3<>pipe; cat weather.csv >&3; "
              "\"$0\" rate lines.csv - -o ratings.csv <&3 & rating=$!; "
              "until ls | grep -q zel-tmp; do sleep 0.1; done; kill -9 $rating; rm pipe");
    EXPECT_EQ(folder_.read("ratings.csv"), "as it was");
    EXPECT_EQ(files(), 4);
    EXPECT_EQ(run("\"$0\" rate lines.csv weather.csv -o ratings.csv").exit_status, 0);
    EXPECT_THAT(folder_.read("ratings.csv"), testing::HasSubstr(",TB601,patl,"));
    EXPECT_EQ(files(), 3);
}

TEST_F(UnfinishedRatings, without_room_leave_the_old_file_and_tell_why) {
    const ProcessResult result =
        run("ulimit -f 8; \"$0\" rate lines.csv weather.csv -o ratings.csv");
    EXPECT_EQ(result.exit_status, 2);
    EXPECT_THAT(result.errors, testing::HasSubstr("ratings.csv: "));
    EXPECT_EQ(folder_.read("ratings.csv"), "as it was");
    EXPECT_EQ(files(), 3);
}

}  // namespace
}  // namespace zel
