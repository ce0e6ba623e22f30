#pragma once

#include <algorithm>
#include <optional>

#include "platform/errors.h"
#include "platform/printers.h"

namespace zel {

/// Printers that keep what is printed on them, and fail as a test says.
class ScriptedPrinters : public Printers {
public:
    struct Printed {
        std::string printer, title, pdf;
        std::vector<SheetProperty> properties;
    };

    [[nodiscard]] std::vector<std::string> installed() const override { return names; }
    [[nodiscard]] std::string current() const override { return current_name; }
    void make_current(const std::string& name) override {
        if (unreachable) throw PlatformError(PlatformFault::PrinterMissing, Reason(no_answer));
        current_name = name;
    }
    void prefer(const std::string& name) override { current_name = name; }
    [[nodiscard]] std::unique_ptr<PrintJob> begin(const std::string& title) override {
        if (std::find(names.begin(), names.end(), current_name) == names.end())
            throw PlatformError(PlatformFault::PrinterMissing, Reason(no_answer));
        return std::make_unique<Job>(*this, title);
    }

    std::vector<std::string> names = {"Laser", "Plotter"};
    std::string current_name = "Laser";
    bool unreachable = false;
    bool refuses_jobs = false;
    std::vector<SheetProperty> unknown_properties;
    std::vector<Printed> printed;

private:
    static constexpr Text no_answer = {"keine Antwort", "no answer"};

    class Job : public PrintJob {
    public:
        Job(ScriptedPrinters& printers, const std::string& title)
            : printers_(printers), printed_{printers.current_name, title, {}, {}} {}
        void set(SheetProperty property) override {
            const auto& unknown = printers_.unknown_properties;
            if (std::find(unknown.begin(), unknown.end(), property) != unknown.end())
                throw PlatformError(PlatformFault::PrinterProperty, Reason(no_answer));
            printed_.properties.push_back(property);
        }
        void EndDoc(std::string_view pdf) override {
            if (printers_.refuses_jobs)
                throw PlatformError(PlatformFault::PrinterMissing, Reason(no_answer));
            printed_.pdf = pdf;
            printers_.printed.push_back(printed_);
        }

    private:
        ScriptedPrinters& printers_;
        Printed printed_;
    };
};

}  // namespace zel
