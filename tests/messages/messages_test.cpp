#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "compare/comparison.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/short_circuit_cases.h"
#include "fakes/steady_cases.h"
#include "fakes/test_data.h"
#include "forms/line_form.h"
#include "forms/short_circuit_form.h"
#include "messages/area_messages.h"
#include "messages/box_chain.h"
#include "short_circuit/short_circuit_fields.h"
#include "workflow/run/page_change.h"

namespace zel {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const FieldInfo& wind = field_of(&CalcCase::Windgeschwindigkeit_db);
const FieldInfo& albedo = field_of(&CalcCase::Bodenart_db);
const FieldInfo& frequency = field_of(&CalcCase::Netzfrequenz_db);

/// A case behind its form, as a user works on it.
class Messages : public testing::Test {
protected:
    explicit Messages(CalcCase typed = twin_264_34()) : c(std::move(typed)) {
        messages.watch(form);
    }
    void type(const FieldInfo& field, const std::string& text) {
        const forms::Row& row = *forms::row_of(forms::line_sections(), field);
        const auto refusal = form.enter(row, text);
        refusal ? messages.refused(row, text, refusal->text_stays) : messages.entered(field);
        messages.inputs_changed();
    }
    void tick(Method method) {
        c.*flag_of(method) = 1;
        messages.inputs_changed();
    }
    std::vector<std::string> texts(bool with_result = false) {
        std::vector<std::string> told;
        for (const AreaMessage& line :
             messages.lines(with_result ? MessagePage::Results : MessagePage::Inputs))
            told.push_back(line.caption + ": " + line.text);
        return told;
    }

    CalcCase c;
    Locale locale{LangId::English, DecimalSeparator::Comma};
    forms::LineForm form{c, locale};
    AreaMessages messages{locale};
};

TEST_F(Messages, what_a_ticked_method_misses_is_needed_until_it_is_typed) {
    EXPECT_EQ(messages.mark(albedo), Mark::None);
    tick(Method::Kirn);
    EXPECT_EQ(messages.mark(albedo), Mark::Needed);
    const MarkCount before = messages.count(input_page);
    EXPECT_EQ(before.wrong, 0);
    messages.typing(albedo, true);
    EXPECT_EQ(messages.mark(albedo), Mark::None);
    EXPECT_EQ(messages.count(input_page).needed, before.needed - 1);
    messages.typing(albedo, false);
    EXPECT_EQ(messages.mark(albedo), Mark::Needed);
    type(albedo, "0,2");
    EXPECT_EQ(messages.mark(albedo), Mark::None);
    type(albedo, "");
    EXPECT_EQ(messages.mark(albedo), Mark::Missing);
    EXPECT_EQ(messages.count(input_page), (MarkCount{before.needed - 1, 1}));
}

TEST_F(Messages, text_that_stays_in_its_box_is_wrong_and_not_missing) {
    for (const FieldInfo* field : {&wind, &albedo}) {  // read, and not read
        const forms::Row& row = *forms::row_of(forms::line_sections(), *field);
        type(*field, "");
        messages.refused(row, "34,9", true);
        EXPECT_EQ(messages.mark(*field), Mark::Wrong) << field->name;
    }
    EXPECT_EQ(messages.count(input_page), (MarkCount{0, 2}));
    messages.typing(albedo, true);
    EXPECT_EQ(messages.mark(albedo), Mark::None);
}

TEST_F(Messages, what_a_run_would_refuse_is_wrong_once_it_was_typed_or_a_run_was_refused) {
    c.Netzfrequenz_db = typed(16);
    messages.inputs_changed();
    EXPECT_EQ(messages.mark(frequency), Mark::None);
    messages.run_refused(Box());
    EXPECT_EQ(messages.mark(frequency), Mark::Wrong);
    type(frequency, "50");
    EXPECT_EQ(messages.mark(frequency), Mark::None);
    type(frequency, "20");
    EXPECT_EQ(messages.mark(frequency), Mark::Wrong);
    EXPECT_EQ(messages.count(input_page), (MarkCount{0, 1}));
}

TEST_F(Messages, refusal_leads_to_its_field_and_goes_when_that_is_right) {
    type(wind, "");
    type(frequency, "20");
    const Box told = {Icon::Stop, "Input incomplete !", {"wind"}};
    messages.run_refused(told);
    ASSERT_EQ(messages.lines(MessagePage::Inputs).size(), 1U);
    EXPECT_EQ(messages.lines(MessagePage::Inputs).front().field, &wind);
    EXPECT_THAT(texts().front(), HasSubstr("an input for the wind speed\nat conductor level !"));
    locale.lang = LangId::German;
    messages.inputs_changed();
    EXPECT_THAT(texts().front(), HasSubstr("Windgeschwindigkeit auf Seilhöhe"));
    type(frequency, "50");
    EXPECT_EQ(texts().size(), 1U);
    type(wind, "1");
    EXPECT_THAT(texts(), IsEmpty());
    type(wind, "");
    EXPECT_THAT(texts(), IsEmpty()) << "the run that refused it is long past";
}

TEST_F(Messages, refused_text_is_kept_until_its_field_is_right) {
    type(wind, "90,5");
    type(albedo, "1.2");
    EXPECT_THAT(
        texts(),
        ElementsAre(
            "Not accepted: Ground reflectivity / albedo: you typed \"1.2\", which is no number.",
            "Not accepted: Wind speed: you typed \"90,5\"; allowed: 0 to 80 m/s."));
    EXPECT_EQ(messages.lines(MessagePage::Inputs).back().put_back, "90,5");
    EXPECT_EQ(messages.lines(MessagePage::Inputs).back().field, &wind);
    type(wind, "80");
    EXPECT_EQ(texts().size(), 1U);
    messages.forget();
    EXPECT_THAT(texts(), IsEmpty());
}

TEST_F(Messages, limits_are_told_as_they_are) {
    const json rows = {{"Globalstrahlung_db", "1401", "at most 1400 W/m"},
                       {"Winkel_W_S_db", "-1", "0 to 359,9 °"},
                       {"Tag_db", "x", "no number"}};
    for (const json& row : rows) {
        type(*find_case_field(row[0].get<std::string>()), row[1]);
        EXPECT_THAT(texts().front(), HasSubstr(row[2].get<std::string>()));
    }
}

TEST_F(Messages, result_says_what_was_told_and_what_has_changed_since) {
    const CalcCase run = c;
    messages.changed_inputs = [&] { return changed_names(run, c, locale); };
    messages.run_done({{Icon::Warning, " Remark", {"one", "two"}}}, {{"wind_fold", "folded"}});
    EXPECT_THAT(texts(true), ElementsAre("Remark: one\ntwo", "Note: folded"));
    EXPECT_THAT(texts(), IsEmpty()) << "it belongs to the page of the result";
    type(wind, "2");
    EXPECT_THAT(texts(true).front(),
                HasSubstr("Out of date: Changed since this calculation: Wind speed."));
    for (const FieldKey& key : std::initializer_list<FieldKey>{
             &CalcCase::Netzfrequenz_db, &CalcCase::Globalstrahlung_db,
             &CalcCase::Umgebungstemperatur_db, &CalcCase::Hoehe_ueber_NN_db})
        type(field_of(key), "51");
    locale.lang = LangId::German;
    EXPECT_THAT(texts(true).front(), HasSubstr(" und 2 weitere."));
}

/// The second area through the same record.
TEST(ShortCircuitMessages, checks_of_the_selection_mark_and_lead) {
    const Locale locale{LangId::English, DecimalSeparator::Point};
    ShortCircuitForm form = copper_far();
    forms::ShortCircuitRecord record(form, locale);
    AreaMessages messages(locale);
    messages.watch(record);
    EXPECT_EQ(messages.count(0), MarkCount{});
    using C = ShortCircuitCase;
    const auto enter = [&](NumberKey box, const char* text) {
        const forms::Row& row = *forms::row_of(record.sections(), field_of(box));
        if (const auto refusal = record.enter(row, text))
            messages.refused(row, text, refusal->text_stays);
        messages.inputs_changed();
    };
    form.choose(&C::generatornah, generator_near);
    messages.inputs_changed();
    EXPECT_EQ(messages.mark(field_of(&C::IK)), Mark::Needed);
    enter(&C::Tk20_ks, "0.2");
    EXPECT_THAT(messages.lines(MessagePage::Inputs).front().text,
                HasSubstr("\"0.2\"; allowed: 0 to 0.1 1 / K"));
    EXPECT_EQ(messages.count(1), (MarkCount{0, 1}));
    messages.run_refused(Box());
    EXPECT_EQ(messages.mark(field_of(&C::IK)), Mark::Missing);
    EXPECT_EQ(messages.lines(MessagePage::Inputs).back().field, &field_of(&C::IK));
    enter(&C::IK, "-1");
    EXPECT_EQ(messages.mark(field_of(&C::IK)), Mark::Wrong);
}

/// Where each list of checks leads, there is an input to go to: a row, or a choice without one.
TEST(Complaints, of_an_empty_case_stand_on_its_form) {
    const Locale locale;
    CalcCase c;
    const forms::LineForm line(c, locale);
    const auto complaints = line.complaints();
    ASSERT_FALSE(complaints.empty());
    EXPECT_EQ(complaints.front().field->name, "rechnung_cigre601_merker_db");
    for (const forms::Complaint& complaint : complaints)
        EXPECT_TRUE(complaint.missing || complaint.field->name == "Anzahl_Teilleiter_db")
            << complaint.field->name;
    ShortCircuitForm form;
    const forms::ShortCircuitRecord record(form, locale);
    for (const forms::Complaint& complaint : record.complaints())
        EXPECT_NE(forms::row_of(record.sections(), *complaint.field), nullptr);
}

TEST(BoxChain, can_be_left_but_for_questions) {
    struct User : ScriptedDialogs {
        bool show_before_others(const Box& box) override {
            (void)show(box);
            return box.title == "leave";
        }
    } user;
    const auto box = [](const char* title, Buttons buttons = Buttons::Ok) {
        return Box{Icon::Stop, title, {}, buttons};
    };
    BoxChain chain(user);
    chain.collect([&] {
        (void)chain.show(box("1"));
        EXPECT_THAT(user.shown, IsEmpty());
        (void)chain.show(box("leave"));
        (void)chain.show(box("2"));
        (void)chain.show(box("question", Buttons::YesNo));
        (void)chain.show(box("3"));
    });
    chain.show_waiting(false);
    EXPECT_THAT(user.shown, ElementsAre(box("1"), box("leave"), box("question", Buttons::YesNo)));
    EXPECT_EQ(chain.told().size(), 5U);
}

TEST(BoxChain, last_box_is_told_before_the_program_ends) {
    ScriptedDialogs user;
    BoxChain chain(user);
    EXPECT_THROW(chain.collect([&] {
        (void)chain.show({});
        throw ProgramEnd("end");
    }),
                 ProgramEnd);
    EXPECT_EQ(user.shown.size(), 1U);
}

}  // namespace
}  // namespace zel
