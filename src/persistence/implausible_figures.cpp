#include <cmath>

#include "persistence/library_conductor.h"

// Printed tables of conductors carry gross errors, such as 0.1432 for 0.4132 ohm/km: figures that
// follow from each other are compared.

namespace zel {
namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double area_tolerance = 0.0025;    // of the printed figures, rounded to three digits
constexpr double diameter_tolerance = 0.05;  // mm
constexpr double least_lay = 1.009;          // stranded wires are longer than the conductor
constexpr double most_lay = 1.030;
constexpr double rounding = 1e-9;  // so that the limits themselves pass

constexpr Text area_text = {"{0}: {1} mm², aus den Abmessungen folgen {2} mm² (Grenze 0,25 %)",
                            "{0}: {1} mm², the dimensions give {2} mm² (limit 0.25 %)"};
constexpr Text diameter_text = {"{0}: {1} mm, aus den Lagen folgen {2} mm (Grenze 0,05 mm)",
                                "{0}: {1} mm, the layers give {2} mm (limit 0.05 mm)"};
constexpr Text resistance_text = {
    "DC-Widerstand bei 20 °C: das {0}-fache des Widerstands gerader Drähte (Grenzen {1} und {2})",
    "DC resistance at 20 °C: {0} times that of straight wires (limits {1} and {2})"};

constexpr Text conductor_area = {"Leiterquerschnitt", "Conductor cross-section"};
constexpr Text core_area = {"Kernquerschnitt", "Core cross-section"};
constexpr Text total_area = {"Gesamtquerschnitt", "Total cross-section"};
constexpr Text outer_diameter = {"Leiterdurchmesser", "Conductor diameter"};
constexpr Text inner_diameter = {"Kerndurchmesser", "Core diameter"};

class Judge {
public:
    Judge(const ConductorData& conductor, LangId lang) : c_(conductor), lang_(lang) {}

    std::vector<std::string> findings() {
        const bool tube = c_.conductor_type_db == tubular_busbar;
        conductor_ = value(c_.Mantelquerschnitt_db);
        core_ = value(c_.KernquerschnittTraeger_db);
        if (tube)
            judge_tube();
        else if (c_.conductor_shape_db == 1)
            judge_wires();
        if (conductor_ > 0) judge_area(total_area, c_.Seilquerschnitt_db, conductor_ + core_);
        if (tube)
            judge_resistance(1 - area_tolerance, 1 + area_tolerance);
        else
            judge_resistance(least_lay, most_lay);
        return std::move(findings_);
    }

private:
    static double value(const Entry& field) { return field.given() ? field.value : 0; }
    static double disc(double d) { return pi / 4 * d * d; }

    void judge_tube() {
        const double D = value(c_.Seildurchmesser_db);
        const double wall = value(c_.DrahtdurchmesserLeiter_db);
        if (D <= 0 || wall <= 0) return;
        conductor_ = disc(D) - disc(D - 2 * wall);
        judge_area(conductor_area, c_.Mantelquerschnitt_db, conductor_);
        judge_diameter(inner_diameter, c_.KerndurchmesserTraeger_db, D - 2 * wall);
    }

    void judge_wires() {
        const double d = value(c_.DrahtdurchmesserLeiter_db);
        if (c_.DrahtzahlLeiter_db > 0 && d > 0) {
            conductor_ = c_.DrahtzahlLeiter_db * disc(d);
            judge_area(conductor_area, c_.Mantelquerschnitt_db, conductor_);
        }
        const double core_wire = value(c_.DrahtdurchmesserTraeger_db);
        if (c_.DrahtzahlTraeger_db > 0 && core_wire > 0) {
            core_ = c_.DrahtzahlTraeger_db * disc(core_wire);
            judge_area(core_area, c_.KernquerschnittTraeger_db, core_);
        }
        // Without a core the innermost layer is one wire.
        const bool homogeneous = c_.conductor_type_db == homogeneous_conductor;
        const double core = homogeneous ? -d : value(c_.KerndurchmesserTraeger_db);
        if (c_.DrahtlagenzahlLeiter_db > 0 && d > 0 && core != 0)
            judge_diameter(outer_diameter, c_.Seildurchmesser_db,
                           core + 2 * c_.DrahtlagenzahlLeiter_db * d);
    }

    void judge_area(const Text& name, const Entry& area, double computed) {
        if (value(area) <= 0) return;
        if (std::abs(computed / area.value - 1) <= area_tolerance + rounding) return;
        tell(area_text, name, area.value, computed);
    }

    void judge_diameter(const Text& name, const Entry& diameter, double computed) {
        if (value(diameter) <= 0) return;
        if (std::abs(computed - diameter.value) <= diameter_tolerance + rounding) return;
        tell(diameter_text, name, diameter.value, computed);
    }

    void judge_resistance(double least, double most) {
        const double area = value(c_.Mantelquerschnitt_db);
        const double straight = value(c_.DC_Resist_Leiter_db);
        const double R20 = value(c_.DCR_20_db);
        if (area <= 0 || straight <= 0 || R20 <= 0) return;
        const double factor = R20 * area / straight;
        if (factor >= least - rounding && factor <= most + rounding) return;
        findings_.push_back(
            fill(resistance_text.in(lang_), {number(factor), number(least), number(most)}));
    }

    void tell(const Text& text, const Text& name, double given, double computed) {
        findings_.push_back(
            fill(text.in(lang_), {name.in(lang_), number(given), number(computed)}));
    }

    [[nodiscard]] std::string number(double x) const {
        return masked(x, "0.0###",
                      lang_ == LangId::German ? DecimalSeparator::Comma : DecimalSeparator::Point);
    }

    const ConductorData& c_;
    LangId lang_;
    double conductor_ = 0;  // mm², of the conductor layers: by the wires, where they are known,
    double core_ = 0;       // mm², of the core
    std::vector<std::string> findings_;
};

}  // namespace

std::vector<std::string> implausible_figures(const ConductorData& conductor, LangId lang) {
    return Judge(conductor, lang).findings();
}

}  // namespace zel
