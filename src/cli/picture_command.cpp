#include <algorithm>

#include "cli/case_output.h"
#include "cli/output_file.h"
#include "cli/short_circuit_calculation.h"
#include "pictures/balance_picture.h"
#include "pictures/conductor_picture.h"
#include "pictures/methods_picture.h"
#include "pictures/situation_picture.h"
#include "pictures/utilisation_picture.h"
#include "platform/errors.h"
#include "program/case_source.h"
#include "program/stores.h"
#include "shell/case_settings.h"
#include "workflow/run/notes.h"

namespace zel {
namespace {

constexpr const char* picture_notes =
    "\n"
    "A picture of a case and its results, as FILE.svg, FILE.png or FILE.pdf:\n"
    "\n"
    "  balance      the heat balance of a method: what heats the conductor, what cools it\n"
    "  situation    north, line, wind and sun from above, and the angle that counts\n"
    "  conductor    the cross-section, with core and surface temperature by Cigre TB 601\n"
    "  methods      the results of the methods side by side, with their spread\n"
    "  utilisation  of a short-circuit case: the load beside its limit\n"
    "\n"
    "\"situation\" and \"conductor\" need no complete case. The exit status is 1 where a\n"
    "method found nothing.\n";

constexpr Text wrong_ending = {"ein Bild wird als .svg, .png oder .pdf geschrieben",
                               "a picture is written as .svg, .png or .pdf"};
constexpr Text cannot_draw = {"das Bild kann nicht gezeichnet werden: {0}",
                              "the picture cannot be drawn: {0}"};
constexpr Text no_balance = {"kein Verfahren hat ein Ergebnis, dessen Bilanz zu zeichnen wäre",
                             "no method has a result of which a balance could be drawn"};
constexpr Text no_conductor = {"der Leiter hat keinen Durchmesser",
                               "the conductor has no diameter"};
constexpr Text no_limit = {"es wurde nichts beurteilt, das eine Grenze hat",
                           "nothing was judged that has a limit"};

struct PictureWords : CaseWords {
    std::string path{};
    std::optional<Method> method{};
};

/// The file of a picture.
struct PictureFile : OutputFile {
    const PictureWords& words;
    decltype(&drawing_file) draw_file;
    DrawingKind kind{};

    PictureFile(const PictureWords& given, const DrawingTools& tools)
        : OutputFile(given, given.path), words(given), draw_file(tools.file) {
        const auto* row = std::find_if(
            std::begin(drawing_endings), std::end(drawing_endings),
            [&](const DrawingEnding& ending) { return has_ending(given.path, ending.ending); });
        if (row == std::end(drawing_endings))
            throw InputError(at(given.path, Reason(wrong_ending)));
        kind = row->kind;
    }

    /// Refuses the case by `reason` where there is no picture.
    void write(const std::optional<Picture>& picture, const Text& reason) {
        if (!picture) throw InputError(at(words.case_path, Reason(reason)));
        OutputFile::write(draw_file(kind, picture_sheet, picture->title,
                                    [&](Canvas& canvas) { draw(canvas, *picture); }));
    }
};

enum class LinePicture : std::uint8_t { Balance, Situation, Conductor, Methods };

/// A picture of a case of the thermal rating.
template <LinePicture kind>
class LinePictureRun : public CaseRun {
public:
    explicit LinePictureRun(PictureFile& file)
        : CaseRun(file.words),
          file_(file),
          loaded_(load_case(words().case_path, words(), console())),
          session_{words(), words().Meldung_merker(), console()} {
        take_settings(session_, ProgramStores().settings().now());
    }

private:
    int calculate() override {
        if (loaded_.refusal) return refused(*loaded_.refusal);
        const CalcCase& c = loaded_.c;
        if constexpr (kind == LinePicture::Situation) {
            file_.write(situation_picture(c, words()), {});
        } else if constexpr (kind == LinePicture::Conductor) {
            CalcCase run = c;
            const Session quiet = silent(session_);
            RunSteady(run, quiet, result_);
            const bool ran = result_.input_valid;
            file_.write(conductor_picture(c, ran ? &result_ : nullptr, words()), no_conductor);
        } else {
            RunSteady(loaded_.c, session_, result_);
            if (!result_.input_valid) return refused(result_.refusal);
            file_.write(kind == LinePicture::Methods ? methods_picture(c, result_, words())
                                                     : balance(c),
                        no_balance);
        }
        return printed(!loaded_.text_refused && sound(result_));
    }

    /// Of the method that was asked for, or of the first one that has a result.
    [[nodiscard]] std::optional<Picture> balance(const CalcCase& c) const {
        for (const MethodResult& line : result_.methods) {
            if (file_.words.method && line.method != *file_.words.method) continue;
            if (auto picture = balance_picture(c, result_, line.method, session_)) return picture;
        }
        return std::nullopt;
    }

    [[nodiscard]] std::string document(std::string_view program_end) const override {
        return file_.document(result_.notes, messages(), program_end);
    }
    [[nodiscard]] std::string page() const override { return file_.page(result_.notes); }

    PictureFile& file_;
    LoadedCase loaded_;
    Session session_;
    SteadyRunResult result_;
};

class UtilisationRun : public ShortCircuitCalculation {
public:
    explicit UtilisationRun(PictureFile& file) : ShortCircuitCalculation(file.words), file_(file) {}

private:
    void found() override {
        file_.write(utilisation_picture(form().content(), result().result, words()), no_limit);
    }
    [[nodiscard]] std::string document(std::string_view program_end) const override {
        return file_.document({}, messages(), program_end);
    }
    [[nodiscard]] std::string page() const override { return file_.page({}); }

    PictureFile& file_;
};

template <class Run>
Command<PictureWords> add_kind(CommandLine& line, CLI::App& group, const char* name,
                               const char* description) {
    const auto [command, words] =
        line.add<PictureWords>(group, name, description, [&line](const PictureWords& given) {
            PictureFile file(given, line.tools());
            if (file.draw_file == nullptr)
                return become_program("zel-draw", line.words(), cannot_draw, given.lang);
            return Run(file).run();
        });
    add_case_word(command, words);
    command.add_option("-o", words.path, "File to be written")
        ->required()
        ->option_text("FILE.svg|png|pdf REQUIRED");
    add_case_options(command, words, picture_notes);
    return {command, words};
}

template <LinePicture kind>
Command<PictureWords> add_line_kind(CommandLine& line, CLI::App& group, const char* name,
                                    const char* description) {
    const auto made = add_kind<LinePictureRun<kind>>(line, group, name, description);
    add_conductor_option(made.app, made.words);
    return made;
}

}  // namespace

void add_picture(CommandLine& line) {
    CLI::App& group = line.add_group("picture", "A picture of a case", picture_notes);
    const auto [command, words] = add_line_kind<LinePicture::Balance>(
        line, group, "balance", "The heat balance of a method as flows");
    add_method_option(command, words.method);
    add_line_kind<LinePicture::Situation>(line, group, "situation", "North, line, wind and sun");
    add_line_kind<LinePicture::Conductor>(line, group, "conductor",
                                          "The cross-section of the conductor");
    add_line_kind<LinePicture::Methods>(line, group, "methods", "The results side by side");
    add_kind<UtilisationRun>(line, group, "utilisation", "A short-circuit load beside its limit");
}

}  // namespace zel
