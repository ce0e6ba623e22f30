#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "forms/form.h"
#include "persistence/database/record_table.h"
#include "shell/program_settings.h"
#include "shell/session.h"
#include "short_circuit/short_circuit_form.h"

// Records to be looked at beside the case of a form. A row of a database is read as if it were
// taken over, but without questions and messages, and with the case and the settings as they are.

namespace zel::forms {

/// Something that a record has chosen, or not.
struct Mark {
    const char* control;
    std::string_view name;
    bool chosen;
};

/// A record that is only read.
class ShownRecord {
public:
    virtual ~ShownRecord() = default;

    /// Its rows are read by `listed`.
    [[nodiscard]] virtual const Record& form() const = 0;
    /// What is chosen otherwise than by rows.
    [[nodiscard]] virtual std::vector<Mark> marks() const { return {}; }
    /// What is given and what is sought; may be empty.
    [[nodiscard]] virtual Text mode() const { return {}; }
};

inline constexpr Text methods_caption = {"Berechnungsverfahren", "Calculation methods"};
/// The names of what is chosen of the marks, parted by commas.
[[nodiscard]] std::string chosen_of(const ShownRecord& record);

/// A calculation with its methods. Of temperature and currents only those are listed that its mode
/// says are given. Kind and surface of the conductor are told in `list_language`.
[[nodiscard]] std::unique_ptr<ShownRecord> shown_line(CalcCase c, const Locale& locale,
                                                      LangId list_language);
[[nodiscard]] std::unique_ptr<ShownRecord> shown_line(const StoredRow& row, Settings& settings,
                                                      const Session& session, LangId list_language);

/// `KS71_Daten_anzeigen`: a short-circuit case. Only the first three materials have a name.
[[nodiscard]] std::unique_ptr<ShownRecord> shown_short_circuit(ShortCircuitForm form,
                                                               const Locale& locale);
[[nodiscard]] std::unique_ptr<ShownRecord> shown_short_circuit(const StoredRow& row,
                                                               const Locale& locale);

}  // namespace zel::forms
