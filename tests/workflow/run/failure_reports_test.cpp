#include <gtest/gtest.h>

#include <array>
#include <deque>
#include <functional>
#include <map>
#include <set>

#include "fakes/scripted_dialogs.h"
#include "fakes/tb601_cases.h"
#include "fakes/test_data.h"
#include "platform/errors.h"
#include "steady/steady_report.h"
#include "tb601_transient/tb601/tb601_report.h"

// What a user meets of each failure, by the rows of tests/data/failure_reports.json: in message
// mode 1 in both languages, in silence, and in a batch.

namespace zel {
namespace {

using nlohmann::json;

constexpr RunMode in_batch = RunMode(3);
constexpr std::array kinds = {ArithmeticFault::None, ArithmeticFault::InvalidArgument,
                              ArithmeticFault::Overflow, ArithmeticFault::DivisionByZero};

/// Reports a failure and gives its status.
using Report = std::function<std::string(const Reporting&)>;

std::map<std::string, Report> reports_by_name() {
    std::map<std::string, Report> reports;
    const auto add = [&](const std::string& name, const auto& failure) {
        reports[name] = [failure](const Reporting& to) { return std::string(report(failure, to)); };
    };
    for (std::size_t i = 0; i < steady_cause_names.size(); ++i) {
        const auto cause = static_cast<SteadyCause>(i);
        for (const ArithmeticFault kind : kinds)
            add("TB207 " + name_of(SteadyFailure{cause, kind}), SteadyFailure{cause, kind});
    }
    const auto add_tb601 = [&](const Tb601Failure& f) { add("TB601 " + name_of(f), f); };
    for (std::size_t i = 0; i < tb601_cause_names.size(); ++i)
        add_tb601({static_cast<Tb601Cause>(i)});
    for (std::size_t i = 0; i < tb601_procedure_names.size(); ++i)
        for (const ArithmeticFault kind : kinds)
            add_tb601({Tb601Cause::Fault, static_cast<Tb601Procedure>(i), kind});
    return reports;
}

json told(const Report& failure, RunMode mode, LangId lang, std::deque<Answer> answers = {}) {
    ScriptedDialogs dialogs;
    dialogs.answers = std::move(answers);
    int closed = 0;
    json told;
    try {
        told["status"] = failure({mode, lang, dialogs, [&] { ++closed; }});
    } catch (const ProgramEnd& end) {
        told["ends"] = end.what();
    }
    if (closed > 0) told["workbooks_closed"] = closed;
    if (!dialogs.shown.empty()) told["boxes"] = as_json(dialogs.shown);
    return told;
}

bool ends_by(const Report& failure, Answer answer) {
    return told(failure, RunMode::Messages, LangId::English, {answer}).contains("ends");
}

TEST(FailureReports, tell_what_their_rows_expect) {
    const auto reports = reports_by_name();
    for (const json& row : test_data("failure_reports"))
        for (const std::string name : row.at("failures")) {
            SCOPED_TRACE(name);
            const Report& failure = reports.at(name);
            EXPECT_EQ(told(failure, RunMode::Messages, LangId::German), row.at("german"));
            EXPECT_EQ(told(failure, RunMode::Messages, LangId::English), row.at("english"));
            EXPECT_EQ(told(failure, RunMode::Silent, LangId::English), row.at("silent"));
            EXPECT_EQ(told(failure, in_batch, LangId::English), row.at("batch"));
            if (!row.contains("ends_by")) continue;
            const std::string answers = row.at("ends_by");
            EXPECT_EQ(ends_by(failure, Answer::Yes), answers.find("yes") != std::string::npos);
            EXPECT_EQ(ends_by(failure, Answer::No), answers.find("no") != std::string::npos);
            EXPECT_EQ(ends_by(failure, Answer::Ok), answers.find("ok") != std::string::npos);
        }
}

TEST(FailureReports, have_a_row_of_every_cause_and_procedure) {
    std::set<std::string> told_of;
    for (const json& row : test_data("failure_reports"))
        for (const std::string name : row.at("failures"))
            told_of.insert(name.substr(0, name.find(':')));
    EXPECT_EQ(told_of.size(), steady_cause_names.size() + tb601_cause_names.size() - 1 +
                                  tb601_procedure_names.size());
}

}  // namespace
}  // namespace zel
