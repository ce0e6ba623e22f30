#pragma once

#include <optional>
#include <vector>

#include "pictures/picture.h"
#include "platform/text/locale.h"
#include "workflow/run/steady_run.h"

namespace zel {

/// A ring of wires around the middle of a conductor, mm; a radius of 0 is the wire in the middle.
struct WireRing {
    double radius = 0;  // of the circle on which the middles of the wires lie
    double wire = 0;    // diameter
    int count = 0;
    bool core = false;
};

/// A conductor cut across, mm.
struct ConductorSection {
    double diameter = 0;
    double core = 0;              // diameter of the core; 0 without one
    double hollow = 0;            // inner diameter of a tube
    int layers = 0;               // of the conductor; shown as rings where wires are not
    std::vector<WireRing> rings;  // from the outside; empty where layers are smooth or do not fit
};

/// Of the data of a conductor; nothing as long as it has no diameter. The number of wires is parted
/// to the layers so that each has 6 fewer than the next one outside, as they are stranded; where
/// that does not fit the diameters, layers are shown without wires.
[[nodiscard]] std::optional<ConductorSection> conductor_section(const ConductorData& conductor);

/// The temperature over the radius, °C, as TB 601 takes it: heat arises evenly in the conducting
/// layers and flows out through them with one conductivity, none in a core. Core and surface have
/// the temperatures that it found.
class RadialCourse {
public:
    RadialCourse(const ConductorSection& section, double core_C, double surface_C);

    /// `radius` in mm, 0 to that of the surface.
    [[nodiscard]] double at(double radius) const;
    /// Where between the surface (0) and the core (1) this temperature lies.
    [[nodiscard]] double share_at(double radius) const;

private:
    double core_radius_, radius_, core_C_, surface_C_;
};

/// The cross-section; where TB 601 found the temperatures of core and surface in `result`, its
/// layers have their colours, and the course over the radius stands beside it.
[[nodiscard]] std::optional<Picture> conductor_picture(const CalcCase& c,
                                                       const SteadyRunResult* result,
                                                       const Locale& locale);

}  // namespace zel
