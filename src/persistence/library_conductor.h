#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/message_box.h"
#include "platform/text/locale.h"
#include "steady/case/case_fields.h"

// A conductor of the library, and what is done with one.

namespace zel {

struct DamagedLine {
    Reason reason;     // with file, line and column
    std::string text;  // the line as it stands in a whole table

    friend bool operator==(const DamagedLine&, const DamagedLine&) = default;
};

struct LibraryConductor {
    /// Its fields: those of a record, and those that a record does not hold (`offer_fields`). The
    /// rest of the case means nothing.
    CalcCase c;
    std::string conductor_material;  // names of the material table; empty where none is named
    std::string core_material;
    Entry mass;          // kg/km
    Entry strength;      // kN, rated tensile strength
    std::string source;  // where the figures come from
    /// Says why figures stand that contradict each other; see `implausible_figures`.
    std::string confirmed;
    bool own = false;  // the user's, not shipped
    /// Set where its line of the user's table cannot be used: the conductor is then what could be
    /// read of it, and takes part in nothing but its repair.
    std::optional<DamagedLine> damage{};
};

/// Both designations: "264-AL1/34-ST1A (265/35)".
[[nodiscard]] std::string full_name(const LibraryConductor& conductor);

/// Whether each word of `typed` stands in a designation, the standard or the remark, whatever the
/// case of its letters.
[[nodiscard]] bool matches(const LibraryConductor& conductor, std::string_view typed);

/// Whether `name` is the first or the second designation, or both with a blank between, whatever
/// the case of its letters and the number of its blanks.
[[nodiscard]] bool is_named(const LibraryConductor& conductor, std::string_view name);

/// Whether both conductors have the same two designations.
[[nodiscard]] bool same_name(const LibraryConductor& a, const LibraryConductor& b);

/// The same text for conductors of the same two designations, and for no others.
[[nodiscard]] std::string name_key(const LibraryConductor& conductor);

/// Whether the text `a` comes before `b`, whatever the case of the letters; numbers in them count
/// as numbers: "34-AL1" comes before "122-AL1".
[[nodiscard]] bool text_before(std::string_view a, std::string_view b);

/// The conductor with that name; one of the user's own comes before a shipped one with the same two
/// designations. Throws `InputError` listing the near ones where none or more than one is meant.
[[nodiscard]] const LibraryConductor& find_conductor(std::span<const LibraryConductor> library,
                                                     const std::string& name);

/// The conductor whose record is `bytes`, or null. A record in the exchange file is told in this
/// way to come from the library.
[[nodiscard]] const LibraryConductor* find_record(std::span<const LibraryConductor> library,
                                                  std::string_view bytes);

/// A field that TB 601 reads and an exchange record does not hold.
struct OfferField {
    FieldKey field;
    Text caption{};                 // where it needs another than the label of its form
    std::span<const Text> words{};  // of a choice, by its number
};
[[nodiscard]] std::span<const OfferField> offer_fields();

/// Fills what `c` leaves empty of the fields that a record does not hold: the DC resistance where
/// there is one, otherwise the pairs; for stranded conductors of round wires, marked as assumed,
/// the radial thermal conductivities 1.5 W/(m K) while tension presses the wires together and
/// 0.7 W/(m K) while it does not, as above the knee point (Cigre TB 601, radial temperature
/// distribution), and for steel-cored ones a knee point of 100 °C. The true knee point belongs to
/// the span.
void add_usual_offers(CalcCase& c, DecimalSeparator separator);

/// Gives `to` the offers of `from` where it has no input, and the box that tells which; nothing
/// where there is none to give.
[[nodiscard]] std::optional<Box> take_offers(CalcCase& to, const CalcCase& from,
                                             const Locale& locale);

/// Figures of the conductor that contradict each other, each as a sentence: cross-sections against
/// the wires (0.25 %), the diameter against the layers (0.05 mm), the resistance against the
/// cross-section (1.009 to 1.030 times that of straight wires; 0.25 % for a tube). What is not
/// given is not judged, nor are wires of a conductor with a smooth outside.
[[nodiscard]] std::vector<std::string> implausible_figures(const ConductorData& conductor,
                                                           LangId lang);

}  // namespace zel
