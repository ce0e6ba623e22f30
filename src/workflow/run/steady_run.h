#pragma once

#include <optional>
#include <string>
#include <vector>

#include "shell/session.h"
#include "steady/case/field.h"
#include "steady/case/transient_row.h"
#include "workflow/run/advice.h"
#include "workflow/run/steady_methods.h"

namespace zel {

/// One line of the result page.
struct MethodResult {
    Method method = Method::TB207;
    std::string caption;  // "2-conductor-bundle by Cigre TB 207 :"
    std::string result;   // "1360 A", "80.0 °C" or " Error"
    SteadyResult outcome;
};

/// A label of the result page and what stands behind it.
struct LabelledText {
    std::string label;
    std::string text;
};

/// Texts that the kind of result (current or temperature) sets for tables and printing.
struct ResultTexts {
    std::string parameter_table_caption;
    std::vector<std::string> table_steps;
    std::string print_caption;
};

/// What the texts of a result need of the case that was run.
struct RunBasis {
    bool current_given = false;  // the temperature was sought
    int sub_conductors = 0;
    double given = 0;            // A of the bundle, or °C
    bool ambient_table = false;  // the parameter table steps the ambient temperature
    double wind = 0;             // m/s
};

/// A remark of the program's own beside a result: never a box, never in a field of the result.
struct Note {
    std::string_view code;  // for scripts, see docs/notes.md
    std::string text;

    friend bool operator==(const Note&, const Note&) = default;
};

/// What is remarkable about a result, without its wording.
struct SteadyRemarks {
    /// The folded angle is not the acute one between wind and line: how the case is rated with
    /// that.
    struct TrueWind {
        double angle = 0;    // degrees, the acute angle
        double counted = 0;  // degrees, the folded one
        std::vector<MethodResult> methods;
    };
    std::optional<TrueWind> wind_fold;

    /// A balance that misses by more than a hundredth of the Joule heat.
    struct Miss {
        Method method = Method::TB207;
        double missing = 0;  // W/m, gains less losses
    };
    std::vector<Miss> misses;

    /// TB 601 reads fewer pairs of AC resistance than are filled in.
    struct ShortTable {
        int read = 0;
        int filled = 0;
    };
    std::optional<ShortTable> short_table;

    /// What TB 601 reads and nobody gave.
    struct Assumption {
        const FieldInfo* field = nullptr;
        std::string text;  // the number
    };
    std::vector<Assumption> assumptions;

    /// Kirn finds no age of the surface by the emissivity, and so no result.
    bool endless_age = false;
};

/// All that the result page shows after a run.
struct SteadyRunResult {
    bool input_valid = false;
    Box refusal;  // why the input was refused
    RunBasis basis;
    double angle = 0;                   // degrees, folded angle between wind and conductor
    double perpendicular_wind = 0;      // m/s
    std::vector<MethodResult> methods;  // the selected ones, in the order of `Method`
    std::optional<TransientStart> transient_start;
    bool may_save = false;         // TB 601, TB 207 or the busbar method succeeded
    std::vector<FieldBox> advice;  // to be told in this order once the result is on the page
    SteadyRemarks remarks;

    // Texts, see write_texts
    std::string angle_text;
    std::string perpendicular_wind_text;
    std::string head_line;
    std::string methods_line;
    std::vector<std::string> balance_lines;        // of the methods that succeeded
    std::vector<LabelledText> tb601_temperatures;  // core and surface, where TB 601 succeeded
    std::vector<LabelledText> tb601_factors;       // skin effect and magnetic heating
    ResultTexts texts;
    std::vector<Note> notes;  // of the remarks
};

/// What going to the result page does: the input check, the folded angle, the two currents of the
/// bundle (this changes `c`), then every selected method in its order. A failing method shows
/// " Error" and does not stop the others. A refused case has `input_valid` false and its box told.
/// Throws `ProgramEnd` where the calculation must end the program; `result` then holds what was
/// found up to there, and the status of the method that ended it.
void RunSteady(CalcCase& c, const Session& session, SteadyRunResult& result);

[[nodiscard]] SteadyRunResult RunSteady(CalcCase& c, const Session& session);

/// What the selected methods find for a case that the input check lets pass, in the order of
/// `Method`: without texts, remarks and advice. Empty where numbers too large stop it before the
/// methods; a method that would have to end the program has its status set, and those behind it are
/// left out.
[[nodiscard]] std::vector<MethodResult> rated(CalcCase c, const Session& session);

}  // namespace zel
