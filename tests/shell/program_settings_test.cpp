#include "shell/program_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/memory_stores.h"
#include "platform/errors.h"

namespace zel {
namespace {

using S = ProgramSettings;
using testing::ElementsAre;
using testing::IsEmpty;

class SettingsTest : public testing::Test {
protected:
    Settings settings() { return {shared, user, "/data"}; }
    MemorySettings shared, user;
};

TEST_F(SettingsTest, every_setting_is_written_at_once_and_read_again) {
    for (const SettingRow& row : setting_rows()) {
        Settings s = settings();
        const auto* number = std::get_if<NumberMember>(&row.member);
        if (number != nullptr)
            s.set(*number, row.offered.empty() ? std::int16_t{7} : row.offered.back());
        else
            s.set(std::get<TextMember>(row.member), "/some where/ä");
        if (row.keeping == Keeping::Kept) {
            EXPECT_EQ(text_of(settings().now(), row), text_of(s.now(), row)) << row.key;
        }
    }
    EXPECT_EQ(shared.read("VOR", "wi_v_wi_merker"), "0");
    EXPECT_EQ(user.read("MultiLang", "LangId_print"), "4");
    EXPECT_EQ(user.written.size(), 3U);
}

TEST_F(SettingsTest, a_write_that_fails_is_not_reported_and_the_value_holds_for_the_run) {
    shared.locked = true;
    Settings s = settings();
    s.set(&S::Gravi_merker, 3);
    s.set(&S::Berechnungsdaten, "/x/y.mdb");
    EXPECT_EQ(s.now().g(), 9.83);
    EXPECT_EQ(s.now().Berechnungsdaten, "/x/y.mdb");
    EXPECT_THROW(s.write(*find_setting("Gravi_merker"), "2"), OutputError);
}

TEST_F(SettingsTest, the_heat_capacity_option_is_never_kept) {
    shared.values = {{"VOR", "cigre_TKW_merker", "2"}, {"VOR", "Punkt_Komma_Format_merker", "1"}};
    Settings s = settings();
    EXPECT_EQ(s.now().cigre_TKW_merker, 1);
    EXPECT_EQ(s.now().Punkt_Komma_Format_merker, 2);
    s.set(&S::cigre_TKW_merker, 2);
    EXPECT_EQ(s.now().cigre_TKW_merker, 2);
    EXPECT_THAT(shared.written, IsEmpty());
    s.set(&S::cigre_TKW_merker, 1);
    EXPECT_EQ(shared.read("VOR", "cigre_TKW_merker"), "1");
    s.set(&S::Punkt_Komma_Format_merker, 2);
    EXPECT_EQ(shared.read("VOR", "Punkt_Komma_Format_merker"), "2");
}

TEST_F(SettingsTest, standard_settings_are_written_in_their_order) {
    shared.values = {{"VOR", "Excel_Leiterdaten_Merker", "1"}};
    Settings s = settings();
    for (const auto member : {&S::Gravi_merker, &S::Formel_merker, &S::wzsz_merker})
        s.set(member, 1);
    s.set(&S::cigre_TKW_merker, 2);
    shared.written.clear();
    set_standard_settings(s);
    using V = MemorySettings::Value;
    EXPECT_THAT(shared.written,
                ElementsAre(V{"VOR", "Gravi_merker", "1"}, V{"VOR", "Formel_merker", "2"},
                            V{"VOR", "wzsz_merker", "2"}, V{"VOR", "cigre_TKW_merker", "1"},
                            V{"VOR", "Excel_Zelle_Array_Schreiben_Merker", "2"},
                            V{"VOR", "wi_v_wi_merker", "-1"}, V{"VOR", "Mess_merker", "0"}));
    EXPECT_EQ(s.now().Excel_Leiterdaten_Merker, 1);
    EXPECT_EQ(s.now().g(), 9.80665);
}

TEST_F(SettingsTest, a_form_reads_its_setting_when_it_opens) {
    Settings s = settings();
    shared.values = {{"VOR", "Messzyklusdauer", "5"}};
    EXPECT_EQ(s.now().Messzyklusdauer, 15);
    s.reread(&S::Messzyklusdauer);
    EXPECT_EQ(s.now().Messzyklusdauer, 5);
}

}  // namespace
}  // namespace zel
