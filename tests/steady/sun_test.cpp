#include "steady/sun.h"

#include <gtest/gtest.h>

#include "fakes/sunny_cases.h"
#include "steady/webs.h"

namespace zel {
namespace {

TEST(Sun, day_of_year_knows_no_leap_year_and_no_month_beyond_twelve) {
    struct Row {
        double day;
        std::int16_t month;
        double N;
    };
    for (const auto& [day, month, N] :
         {Row{1, 1, 1}, Row{31, 1, 31}, Row{1, 2, 32}, Row{28, 2, 59}, Row{29, 2, 60},
          Row{1, 3, 60}, Row{1, 4, 91}, Row{1, 5, 121}, Row{21, 6, 172}, Row{1, 7, 182},
          Row{1, 8, 213}, Row{1, 9, 244}, Row{1, 10, 274}, Row{1, 11, 305}, Row{31, 12, 365},
          Row{9, 0, 9}, Row{9, 13, 9}})
        EXPECT_EQ(day_of_year(day, month), N) << day << '.' << month;
}

// Angles of an independent computation. At the equator at 18 h the sun is on the horizon.
TEST(Sun, position_by_date_clock_and_place) {
    struct Row {
        SunInput in;
        double hour_angle, declination, height;
    };
    for (const auto& [in, hour_angle, declination, height] : {
             Row{{21, 6, 13, -11.6, -15, 48.1}, 0.202458193258, 0.40927591961, 1.1114830589},
             Row{{21, 6, 1, -11.6, -15, 48.1}, -2.93913446074, 0.40927591961, -0.308853738881},
             Row{{21, 12, 12, -11.6, -15, 48.1}, -0.0593411945756, -0.409275919605, 0.320880402189},
             Row{{1, 1, 0, 0, 0, 0}, -3.141592654, -0.401628827176, -1.16916749962},
             Row{{1, 3, 18, 0, 0, 0}, 1.570796327, -0.144752460297, -2.02958383673e-10},
             Row{{15, 7, 24, 10, 0, -35}, 2.96705972878, 0.375548359874, -1.29010106568},
             Row{{10, 4, 9.5, 75, 75, 40}, -0.654498469583, 0.13148915419, 0.757041464963},
             Row{{31, 12, 12, -15, -15, 90}, 0, -0.40292515777, -0.402925157975},
         }) {
        const SunPosition sun = sun_position(in, day_of_year(in.day, in.month), in.clock);
        EXPECT_NEAR(sun.hour_angle, hour_angle, 1e-11);
        EXPECT_NEAR(sun.declination, declination, 1e-11);
        EXPECT_NEAR(sun.height, height, 1e-11);
    }
}

TEST(Sun, the_case_gives_minutes_as_parts_of_an_hour) {
    CalcCase c = sunny_264_34();
    c.Minuten_db = typed(45);
    EXPECT_EQ(sun_input(c).clock, 13.75);
    EXPECT_EQ(sun_input(c).month, 6);
}

// 9 o'clock on the last and the first day without summer time and on the days beside them.
TEST(Sun, height_of_webs_takes_summer_time_off_by_wzsz_merker_from_day_85_to_265) {
    struct Row {
        double day;
        std::int16_t month, wzsz_merker;
        double height;
    };
    for (const auto& [day, month, wzsz_merker, height] :
         {Row{25, 3, 1, 0.476887760516}, Row{25, 3, 2, 0.476887760516},
          Row{25, 3, 3, 0.476887760516}, Row{26, 3, 1, 0.325588233526},
          Row{26, 3, 2, 0.482700005825}, Row{26, 3, 3, 0}, Row{22, 9, 1, 0.295424967779},
          Row{22, 9, 2, 0.450595660335}, Row{22, 9, 0, 0}, Row{23, 9, 1, 0.444733755122},
          Row{23, 9, 2, 0.444733755122}, Row{23, 9, 0, 0.444733755122}})
        EXPECT_NEAR(S3_Sonnenhoehe_webs({day, month, 9, -11.6, -15, 48.1}, wzsz_merker), height,
                    1e-11)
            << day << '.' << month << " merker " << wzsz_merker;
}

// Far in the north the sun is up at 0 o'clock too, which is the time of an unknown merker.
TEST(Sun, height_of_webs_at_an_unknown_merker_is_that_of_midnight) {
    const SunInput in = {21, 6, 6, -15, -15, 75};
    EXPECT_NEAR(S3_Sonnenhoehe_webs(in, 1), 0.32882450629905047, 1e-12);
    EXPECT_NEAR(S3_Sonnenhoehe_webs(in, 2), 0.3945420931142587, 1e-12);
    EXPECT_NEAR(S3_Sonnenhoehe_webs(in, 3), 0.14747653198160318, 1e-12);
}

TEST(Sun, height_of_webs_is_zero_at_night) {
    EXPECT_EQ(S3_Sonnenhoehe_webs({21, 6, 1, -11.6, -15, 48.1}, 2), 0);
}

}  // namespace
}  // namespace zel
