#include <nlohmann/json.hpp>

#include "adapters/posix/text_file.h"
#include "cli/case_command.h"
#include "cli/case_output.h"
#include "compare/sensitivity_picture.h"
#include "persistence/sheet_file.h"
#include "platform/errors.h"
#include "program/case_source.h"
#include "program/stores.h"
#include "shell/case_settings.h"

namespace zel {
namespace {

using nlohmann::ordered_json;

constexpr const char* sensitivity_notes =
    "\n"
    "Moves each numeric input of the case by a step, all others as they are, and shows how\n"
    "far that moves the result of each method (A of the bundle, or K): the input that moves\n"
    "one most comes first, and one that moves none is left out. --step changes a step, in\n"
    "the unit of the field: --step Windgeschwindigkeit_db=0.5. A step that is not allowed\n"
    "upwards is done downwards. FILE.csv and FILE.xlsx have the table; FILE.svg, .png and\n"
    ".pdf show the ten inputs that move the result of one method most, as bars.\n";

constexpr Text wrong_ending = {"wird als .csv, .xlsx, .svg, .png oder .pdf geschrieben",
                               "is written as .csv, .xlsx, .svg, .png or .pdf"};
constexpr Text wrong_step = {"{0} ist kein Schritt: Feld=Zahl, nicht 0",
                             "{0} is no step: Field=number, not 0"};
constexpr Text cannot_draw = {"das Bild kann nicht gezeichnet werden: {0}",
                              "the picture cannot be drawn: {0}"};
constexpr Text no_result = {"kein Verfahren hat ein Ergebnis", "no method has a result"};

struct SensitivityWords : CaseWords {
    std::vector<std::string> steps{};
    std::string path{};
    std::optional<Method> method{};
};

std::optional<DrawingKind> kind_of(const std::string& path) {
    for (const auto& [ending, kind] : drawing_endings)
        if (has_ending(path, ending)) return kind;
    return std::nullopt;
}

class SensitivityRun : public CaseRun {
public:
    SensitivityRun(const SensitivityWords& words, const DrawingTools& tools)
        : CaseRun(words),
          words_(words),
          draw_file_(tools.file),
          steps_(steps_of(words)),
          loaded_(load_case(words.case_path, words, console())) {}

private:
    static std::vector<ChosenStep> steps_of(const SensitivityWords& words) {
        std::vector<ChosenStep> steps;
        for (const std::string& text : words.steps) {
            const std::size_t sign = text.find('=');
            const auto number = sign == std::string::npos
                                    ? std::nullopt
                                    : parse_number(text.substr(sign + 1), words.separator);
            if (!number || *number == 0) throw InputError(Reason(wrong_step, {in_quotes(text)}));
            steps.push_back({text.substr(0, sign), *number});
        }
        return steps;
    }

    int calculate() override {
        if (loaded_.refusal) return refused(*loaded_.refusal);
        Session session = {words(), words().Meldung_merker(), console()};
        take_settings(session, ProgramStores().settings().now());
        SteadyRunResult result;
        RunSteady(loaded_.c, session, result);
        if (!result.input_valid) return refused(result.refusal);
        found_ = *sensitivity(loaded_.c, session, steps_);
        write();
        return printed(!loaded_.text_refused && sound(result));
    }

    void write() {
        if (words_.path.empty()) return;
        if (const auto kind = kind_of(words_.path)) {
            const auto drawn = picture();
            if (!drawn) throw InputError(at(words().case_path, Reason(no_result)));
            write_text_file(words_.path, draw_file_(*kind, picture_sheet, drawn->title,
                                                    [&](Canvas& canvas) { draw(canvas, *drawn); }));
            return;
        }
        XlsxStore workbooks;
        PosixFiles files;
        write_sheet(sensitivity_sheet(found_, words()), words_.path, workbooks, files,
                    words().separator);
    }

    /// Of the method that was asked for, or of the first one that has a result.
    [[nodiscard]] std::optional<Picture> picture() const {
        for (const Method method : found_.methods) {
            if (words_.method && method != *words_.method) continue;
            if (auto drawn = sensitivity_picture(found_, method, words())) return drawn;
        }
        return std::nullopt;
    }

    [[nodiscard]] std::string document(std::string_view program_end) const override {
        ordered_json lines = ordered_json::array();
        for (const SensitivityLine& line : found_.lines) {
            ordered_json changes = ordered_json::object();
            for (std::size_t i = 0; i < found_.methods.size(); ++i)
                changes[key_of(found_.methods[i])] =
                    line.changes[i] ? ordered_json(*line.changes[i]) : ordered_json(nullptr);
            lines.push_back({{"field", line.field->name},
                             {"label", long_label_of(*line.field).in(words().lang)},
                             {"unit", long_unit_of(*line.field)},
                             {"step", line.step},
                             {"changes", std::move(changes)}});
        }
        ordered_json document = {{"of", found_.of_temperature ? "temperature_K" : "current_A"},
                                 {"lines", std::move(lines)},
                                 {"messages", json_of(messages())}};
        if (!program_end.empty()) document["program_end"] = program_end;
        return json_text(document);
    }
    [[nodiscard]] std::string page() const override { return sensitivity_text(found_, words()); }

    const SensitivityWords& words_;
    decltype(&drawing_file) draw_file_;
    std::vector<ChosenStep> steps_;
    LoadedCase loaded_;
    Sensitivity found_;
};

int run(CommandLine& line, const SensitivityWords& words) {
    const auto kind = kind_of(words.path);
    if (!words.path.empty() && !kind && !has_ending(words.path, ".csv") &&
        !has_ending(words.path, ".xlsx"))
        throw InputError(at(words.path, Reason(wrong_ending)));
    if (kind && line.tools().file == nullptr)
        return become_program("zel-draw", line.words(), cannot_draw, words.lang);
    return SensitivityRun(words, line.tools()).run();
}

}  // namespace

void add_sensitivity(CommandLine& line) {
    const auto [command, words] = line.add<SensitivityWords>(
        "sensitivity", "Which input moves the result most",
        [&line](const SensitivityWords& given) { return run(line, given); });
    add_case_word(command, words);
    command.add_option("--step", words.steps, "Step of an input; may stand more than once")
        ->option_text("Field=value ...")
        ->allow_extra_args(false);
    command.add_option("-o", words.path, "Write the table or its picture into a file too")
        ->option_text("FILE.csv|xlsx|svg|png|pdf");
    add_method_option(command, words.method);
    add_case_options(command, words, sensitivity_notes);
    add_conductor_option(command, words);
}

}  // namespace zel
