#pragma once

#include "platform/printers.h"

namespace zel {

/// The print queues of the CUPS server of this machine, or of the one that its settings name.
class CupsPrinters : public Printers {
public:
    [[nodiscard]] std::vector<std::string> installed() const override;
    [[nodiscard]] std::string current() const override;
    void make_current(const std::string& name) override;
    void prefer(const std::string& name) override;
    [[nodiscard]] std::unique_ptr<PrintJob> begin(const std::string& title) override;

private:
    std::string current_;  // empty while it is the system's
};

}  // namespace zel
