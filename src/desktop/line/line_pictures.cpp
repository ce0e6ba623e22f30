#include "desktop/line/line_pictures.h"

#include "compare/live_rating.h"
#include "compare/sensitivity_picture.h"
#include "desktop/frame/events.h"
#include "pictures/balance_picture.h"
#include "pictures/conductor_picture.h"
#include "pictures/methods_picture.h"
#include "pictures/situation_picture.h"
#include "steady/case/case_fields.h"

namespace zel {
namespace {

constexpr Text methods_name = {"Ergebnisse der Verfahren", "Results of the methods"};
constexpr Text balance_name = {"Wärmebilanz {0}", "Heat balance {0}"};
constexpr Text situation_name = {"Leitung, Wind und Sonne", "Line, wind and sun"};
constexpr Text conductor_name = {"Querschnitt des Leiters", "Cross-section of the conductor"};
constexpr Text sensitivity_name = {"Was das Ergebnis bewegt, {0}", "What moves the result, {0}"};
constexpr Text former = {
    "Die Eingaben haben sich geändert: Ergebnisse und Wärmebilanz sind die der früheren.",
    "The inputs have changed: results and heat balance are those of the former ones."};

std::string named(const Text& name, Method method, LangId lang) {
    return fill(name.in(lang), {name_of(method)});
}

}  // namespace

LinePictures::LinePictures(const PanelParts& parts, PrintSource& printing, const LineCase& line,
                           ChosenSteps& steps)
    : PicturePanel(parts, {printing, [&line] { return project_of(line.c); }}),
      line_(line),
      session_(parts.session),
      steps_(steps),
      step_list_(new StepList(parts.session, parts.captions, steps)) {
    put_below(*step_list_);
    step_list_->changed = [this] {
        sensitivity_.reset();
        later(*this, [this] { show_typed(); });
        steps_changed();
    };
    constexpr int moment = 150;  // ms
    pause_.setSingleShot(true);
    pause_.setInterval(moment);
    on(&pause_, &QTimer::timeout, [this] { show_typed(); });
    parts.captions.computed([this](LangId) { show_typed(); });
}

void LinePictures::follow_typing(std::vector<forms::PendingText> texts) {
    texts_ = std::move(texts);
    pause_.start();
}

void LinePictures::show_case() {
    pause_.stop();
    texts_.clear();
    show_typed();
}

void LinePictures::show_typed() {
    typed_ = with_texts(line_.c, texts_, session_);
    forget_emptied(typed_);
    const bool changed = run_ && steady_inputs(run_->c) != steady_inputs(typed_);
    show_entries(entries(), changed ? std::string(former.in(session_.lang)) : std::string());
}

void LinePictures::show_run(KeptRun run) {
    run_ = std::move(run);
    sensitivity_.reset();
    step_list_->show_case(run_->c);
    show_case();
}

void LinePictures::forget() {
    run_.reset();
    show_case();
}

/// Pictures are made when they are looked at, from what is kept here until then.
std::vector<PictureEntry> LinePictures::entries() {
    const LangId lang = session_.lang;
    std::vector<PictureEntry> entries;
    if (run_)
        entries.push_back({std::string(methods_name.in(lang)), [this](const Session& session) {
                               return methods_picture(run_->c, run_->result, session);
                           }});
    entries.push_back({std::string(situation_name.in(lang)), [this](const Session& session) {
                           return std::optional(situation_picture(typed_, session));
                       }});
    if (run_) add_results(entries);
    entries.push_back(
        {std::string(conductor_name.in(lang)), [this](const Session& session) {
             const bool same = run_ && steady_inputs(run_->c) == steady_inputs(typed_);
             return conductor_picture(typed_, same ? &run_->result : nullptr, session);
         }});
    return entries;
}

void LinePictures::add_results(std::vector<PictureEntry>& entries) {
    const LangId lang = session_.lang;
    std::vector<PictureEntry> sensitivities;
    for (const MethodResult& line : run_->result.methods) {
        if (!line.outcome.sound()) continue;
        const Method method = line.method;
        entries.push_back(
            {named(balance_name, method, lang), [this, method](const Session& session) {
                 return balance_picture(run_->c, run_->result, method, session);
             }});
        sensitivities.push_back({named(sensitivity_name, method, lang),
                                 [this, method](const Session& session) -> std::optional<Picture> {
                                     if (!sensitivity_)
                                         sensitivity_ =
                                             sensitivity(run_->c, session_, steps_.of(run_->c));
                                     return sensitivity_picture(*sensitivity_, method, session);
                                 },
                                 false, true});
    }
    entries.insert(entries.end(), sensitivities.begin(), sensitivities.end());
}

}  // namespace zel
