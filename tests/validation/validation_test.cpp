#include "validation/validation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/errors.h"
#include "program/stores.h"
#include "validation/validation_text.h"

// The shipped tables hold, and one that is changed tells what no longer does.

namespace zel {
namespace {

using testing::HasSubstr;

/// The shipped files, with one text replaced in one of them.
class ChangedFiles : public PosixFiles {
public:
    ChangedFiles() = default;
    ChangedFiles(std::string file, std::string from, std::string to)
        : file_(std::move(file)), from_(std::move(from)), to_(std::move(to)) {}

    [[nodiscard]] std::string content(const std::string& path) override {
        std::string text = PosixFiles::content(path);
        if (file_.empty() || !has_ending(path, file_)) return text;
        const std::size_t place = text.find(from_);
        EXPECT_NE(place, std::string::npos) << from_;
        return text.replace(place, from_.size(), to_);
    }

private:
    std::string file_, from_, to_;
};

Validation validated(Files& files, LangId lang = LangId::English) {
    JsonCaseStore cases;
    return validate(files, cases, ZEL_SOURCE_DIR "/data/validation", lang);
}

TEST(Validation, all_published_figures_hold) {
    ChangedFiles files;
    const Validation validation = validated(files);
    for (const CheckedSource& source : validation.sources)
        for (const CheckedFigure& checked : source.figures)
            EXPECT_NE(checked.verdict, Verdict::Fails)
                << source.source->key << ' ' << checked.figure->quantity->key << ' '
                << checked.figure->text << ' ' << checked.computed.value.value_or(0)
                << checked.computed.why.en;
    EXPECT_TRUE(validation.holds());
    EXPECT_EQ(validation.count(Verdict::Misprint), 2U);
}

TEST(Validation, tells_what_no_longer_holds) {
    // 976.685 A are computed for 976, 1504.5 A for 1504 and 1054, 65.11 W/m for 65.09.
    const struct {
        const char *file, *from, *to;
        std::size_t failures;
    } rows[] = {
        {"figures.csv", "current,976,,1,", "current,977.68,,1,", 0},
        {"figures.csv", "current,976,,1,", "current,977.69,,1,", 1},
        {"figures.csv", "current,976,,1,", "current,976,,0.05 %,", 1},
        {"figures.csv", "current,976,,1,", "current,976,,0.08 %,", 0},
        {"figures.csv", "1054,1504,", "1054,1506,", 1},
        {"figures.csv", "1054,1504,", "1504,1504,", 1},  // no misprint any more
        {"figures.csv", "minutes=10,", ",", 1},          // no transient without a time
        {"limits.csv", "Webs,0.5 %", "Webs,0.05 %", 1},
        {"limits.csv", "3.5 %", "3 %", 1},
        {"limits.csv", "acsr-al3,Webs", "acsr-1,TB601", 1},  // refuses single layers
    };
    for (const auto& [file, from, to, failures] : rows) {
        ChangedFiles files(file, from, to);
        const Validation validation = validated(files);
        EXPECT_EQ(validation.count(Verdict::Fails), failures) << to;
        EXPECT_EQ(validation.holds(), failures == 0) << to;
    }
}

TEST(Validation, misses_a_conductor_of_no_family) {
    ChangedFiles files("families.csv", "AL3/ST1A,AL3,2,2,3,", "AL3/ST1A,AL3,2,3,3,");
    const Validation validation = validated(files);
    EXPECT_EQ(validation.outside_families.size(), 6U);
    EXPECT_FALSE(validation.holds());
}

TEST(Validation, refuses_tables_by_line_and_column) {
    const struct {
        const char *file, *from, *to, *told;
    } rows[] = {
        {"sources.csv", "tb601-b,", "tb601-a,", "line 4, column source: \"tb601-a\" stands twice"},
        {"figures.csv", "film_viscosity", "x", "line 5, column quantity: there is no \"x\""},
        {"figures.csv", "0.00005", "-1", "line 4, column tolerance: \"-1\" is no tolerance"},
        {"figures.csv", "half a unit", "\",\"", "line 4"},
        {"limits.csv", "acsr,TB601", "acsr,TB602", "column method: there is no \"TB602\""},
        {"oddities.csv", "Winkel_W_S_db=190", "Winkel=190", "oddities.csv: line 4: "},
        {"oddities.csv", "Winkel_W_S_db=190", "Winkel_W_S_db", "is no change: field=value"},
        {"oddities.csv", "Winkel_W_S_db=190", "Winkel_W_S_db=x", "a number is expected, not \"x\""},
    };
    for (const auto& [file, from, to, told] : rows) {
        ChangedFiles files(file, from, to);
        try {
            (void)validated(files);
            ADD_FAILURE() << to;
        } catch (const InputError& error) {
            EXPECT_THAT(error.what(), HasSubstr(told));
        }
    }
}

// Worked by hand: 665.524 A of the closed form; the sun of 8 o'clock zone time, 34.8° high at an
// azimuth of 92.8°, is 87.7° off a line from north to south; n = 0.4213 by the formula of IEC
// 60909-0.
TEST(Validation, sizes_the_rules_that_are_kept) {
    ChangedFiles files;
    const Validation validation = validated(files);
    const auto physics_of = [&](std::string_view quantity) {
        for (const SizedOddity& sized : validation.oddities)
            if (sized.oddity->physics_quantity->key == quantity) return *sized.physics.value;
        return 0.0;
    };
    EXPECT_NEAR(physics_of("current_by_exact_allowance"), 665.524, 5e-4);
    EXPECT_NEAR(physics_of("current_by_place_of_sun"), 670.7, 0.1);
    EXPECT_NEAR(physics_of("current_by_printed_skin_effect"), 1687.0, 0.1);
    EXPECT_NEAR(physics_of("current_by_absorptivity"), 673.6, 0.1);
    EXPECT_NEAR(physics_of("short_time_current_by_standard"), 17069, 1);
}

TEST(Validation, is_a_page_in_both_languages) {
    ChangedFiles files;
    const std::string page = validation_text(validated(files, LangId::German),
                                             {LangId::German, DecimalSeparator::Comma});
    EXPECT_THAT(page, HasSubstr("| 976 A "));
    EXPECT_THAT(page, HasSubstr("| 976,7 "));
    EXPECT_THAT(page, HasSubstr("| +450,5 "));
    EXPECT_THAT(page, HasSubstr("Druckfehler"));
}

}  // namespace
}  // namespace zel
