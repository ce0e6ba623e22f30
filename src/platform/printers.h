#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zel {

/// What a sheet of paper needs of a printer.
enum class SheetProperty : std::uint8_t {
    A4Paper,
    Portrait,
    TrueSize,  // not fitted to the margins of the printer
};
inline constexpr SheetProperty sheet_properties[] = {
    SheetProperty::A4Paper, SheetProperty::Portrait, SheetProperty::TrueSize};

/// A document on its way to a printer. Nothing is printed until `EndDoc`.
class PrintJob {
public:
    virtual ~PrintJob() = default;

    /// Throws `PlatformError` (`PrinterProperty`) where the printer does not have it.
    virtual void set(SheetProperty property) = 0;
    /// Sends the sheets, a document in PDF, and ends the job. Throws `PlatformError`
    /// (`PrinterMissing`) where the printer is gone or does not take it; nothing is printed then.
    virtual void EndDoc(std::string_view pdf) = 0;
};

/// The printers of the system, one of which is the current one. A server that does not answer has
/// none.
class Printers {
public:
    virtual ~Printers() = default;

    [[nodiscard]] virtual std::vector<std::string> installed() const = 0;
    /// Its name; at first that of the system. Empty where there is none.
    [[nodiscard]] virtual std::string current() const = 0;
    /// Throws `PlatformError` (`PrinterMissing`) where the printer cannot be reached.
    virtual void make_current(const std::string& name) = 0;
    /// Makes it the current one without asking whether it can be reached: a job tells that.
    virtual void prefer(const std::string& name) = 0;
    /// A job for the current printer. Throws `PlatformError` (`PrinterMissing`) where there is
    /// none.
    [[nodiscard]] virtual std::unique_ptr<PrintJob> begin(const std::string& title) = 0;
};

}  // namespace zel
