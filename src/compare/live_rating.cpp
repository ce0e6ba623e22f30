#include "compare/live_rating.h"

#include <cmath>

#include "forms/line_form.h"
#include "platform/errors.h"
#include "steady/case/case_fields.h"
#include "steady/case/state_change.h"
#include "workflow/rules/steady_check.h"
#include "workflow/run/transient_memory.h"

namespace zel {
namespace {

constexpr Text begun = {"{0}: {1} ist noch nicht zu Ende getippt",
                        "{0}: {1} is not typed to its end"};
constexpr Text refused = {"{0}: {1}: {2}", "{0}: {1}: {2}"};
constexpr Text moved_most = {"Es bewegt {0} am meisten: ", "What moves {0} most: "};
constexpr Text changes_of_state = {"Zustandsänderungen: ", "Changes of state: "};
constexpr Text breaks_off = {"ein Verfahren bricht bei diesen Eingaben ab",
                             "a method breaks off at these inputs"};
constexpr Text fails = {"Fehler", "error"};

/// Whether `text` goes on to a number, and is none without what follows.
bool is_begun(std::string_view text, DecimalSeparator separator) {
    const char last = text.empty() ? ' ' : text.back();
    return last == character(separator) || last == '-' || last == '+' || last == 'e' || last == 'E';
}

std::string in_line(const std::vector<std::string>& lines) {
    return without_outer_blanks(in_one_line(joined(lines, "\n")));
}

/// "812 A", "+0.3 K": with a digit where it is small.
std::string signed_text(double change, bool of_temperature, DecimalSeparator separator) {
    const bool fine = of_temperature || std::abs(change) < 10;
    return (change > 0 ? "+" : "") + masked(change, fine ? "0.0#" : "0", separator) +
           (of_temperature ? " K" : " A");
}

/// Why the texts cannot be taken; nothing where they could.
std::optional<std::string> take(CalcCase& c, std::span<const forms::PendingText> pending,
                                const Session& session) {
    forms::LineForm form(c, session);
    for (const auto& [row, text] : pending) {
        const std::string label(long_label_of(*row->field).in(session.lang));
        if (!row->is_free_text() && is_begun(text, session.separator))
            return fill(begun.in(session.lang), {label, text});
        form.typed_into(*row);
        if (const auto refusal = form.enter(*row, text))
            return fill(refused.in(session.lang), {label, text, in_line(refusal->box.lines)});
    }
    return std::nullopt;
}

bool has_changes_of_state(const CalcCase& c) {
    return std::any_of(c.Z.begin(), c.Z.end(), [](const StateChange& z) { return is_in_use(z); });
}

/// What was sought in a row.
std::string found_in(const TransientRowTexts& texts, std::int16_t kind, LangId lang) {
    if (texts.total.empty()) return std::string(fails.in(lang));
    if (!takes_input(kind, &StateChange::Strom)) return texts.Strom + " A";
    if (!takes_input(kind, &StateChange::TEMP)) return texts.Temp + " °C";
    return texts.Min + " min " + texts.Sec + " sec";
}

}  // namespace

void LiveRating::update(const CalcCase& given, std::span<const forms::PendingText> pending,
                        const Session& session) {
    CalcCase c = given;
    moved_ = false;
    auto reason = take(c, pending, session);
    if (!reason) reason = rate(std::move(c), session);
    reason_ = reason.value_or("");
}

CalcCase with_texts(CalcCase c, std::span<const forms::PendingText> pending,
                    const Session& session) {
    for (const forms::PendingText& text : pending) {
        CalcCase entered = c;
        if (!take(entered, {&text, 1}, session)) c = std::move(entered);
    }
    return c;
}

/// Why `c` cannot be rated; nothing where it was, or where nothing has changed.
std::optional<std::string> LiveRating::rate(CalcCase c, const Session& session) {
    if (const auto* check = steady_check::first_refusal(c))
        return in_line(check->box(session.lang).lines);
    MethodMemory memory;
    if (session.memory != nullptr) memory = *session.memory;
    CalcCase inputs = c;
    forget_emptied(inputs);
    SteadyRunResult result;
    try {
        RunSteady(c, silent(session, &memory), result);
    } catch (const ProgramEnd&) {
        return std::string(breaks_off.in(session.lang));
    }
    if (!result.input_valid) return in_line(result.refusal.lines);
    moved_ = !run_ || steady_inputs(run_->c) != steady_inputs(inputs) || run_->c.Z != inputs.Z;
    run_ = KeptRun{{}, std::move(c), std::move(result)};
    return std::nullopt;
}

std::optional<Outlook> outlook(const KeptRun& run, const Session& watched, const GoOn& go_on,
                               const std::vector<ChosenStep>& steps) {
    const Session session = silent(watched, watched.memory);
    Outlook found;
    found.c = run.c;
    found.sensitivity =
        sensitivity(run.c, session, steps, [&go_on](std::size_t, std::size_t) { return go_on(); });
    if (!found.sensitivity) return std::nullopt;
    if (!has_changes_of_state(run.c)) return found;
    TransientBasis basis;
    take_over(basis, run.result, run.c);
    TransientResult transient;
    try {
        // The records of TB 601 that a transient starts from are those of its own steady run.
        (void)RunSteady(found.c, session);
        RunTransient(
            found.c, basis, session, [&go_on](const TransientProgress&) { return go_on(); },
            transient);
    } catch (const ProgramEnd&) {
        return found;
    }
    if (transient.end == TransientEnd::Cancelled) return std::nullopt;
    if (transient.input_valid) found.transient = std::move(transient);
    return found;
}

std::string sensitivity_line(const Sensitivity& found, std::size_t most, const Locale& locale) {
    std::vector<std::string> parts;
    for (std::size_t m = 0; m < found.methods.size(); ++m) {
        if (!found.results[m]) continue;
        for (const SensitivityLine* line : moving(found, m)) {
            if (parts.size() == most) break;
            if (line->across_fold) continue;  // it tells the fold and not what the wind does
            parts.push_back(step_label(*line, locale) + ": " +
                            signed_text(*line->changes[m], found.of_temperature, locale.separator));
        }
        if (parts.empty()) return {};
        return fill(moved_most.in(locale.lang), {name_of(found.methods[m])}) + joined(parts, ", ");
    }
    return {};
}

std::string transient_line(const Outlook& outlook, const Locale& locale) {
    if (!outlook.transient) return {};
    std::vector<std::string> parts;
    for (std::size_t i = 0; i < outlook.transient->rows_run(); ++i)
        parts.push_back(std::to_string(i + 1) + ": " +
                        found_in(outlook.transient->texts[i], outlook.c.Z[i].merker, locale.lang));
    return std::string(changes_of_state.in(locale.lang)) + joined(parts, ", ");
}

}  // namespace zel
