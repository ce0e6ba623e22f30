#include "adapters/printers/cups_printers.h"

#include <cups/cups.h>

#include <algorithm>
#include <utility>

#include "platform/errors.h"

namespace zel {
namespace {

constexpr Text no_printer = {"Es ist kein Drucker eingerichtet.", "There is no printer installed."};
constexpr Text none_chosen = {
    "Es ist kein Drucker ausgewählt, und das System hat keinen Standarddrucker.",
    "No printer is chosen, and the system has no default printer."};
constexpr Text not_there = {"Der Drucker \"{0}\" ist nicht erreichbar: {1}",
                            "The printer \"{0}\" cannot be reached: {1}"};
constexpr Text not_installed = {"Der Drucker \"{0}\" ist nicht installiert.",
                                "The printer \"{0}\" is not installed."};
constexpr Text not_taken = {"Der Drucker \"{0}\" nimmt den Auftrag nicht an: {1}",
                            "The printer \"{0}\" does not take the job: {1}"};
constexpr Text not_supported = {"Der Drucker \"{0}\" kennt die Einstellung {1} nicht.",
                                "The printer \"{0}\" does not have the setting {1}."};

struct Option {
    SheetProperty property;
    const char* name;
    const char* value;
};
constexpr Option options[] = {
    {SheetProperty::A4Paper, CUPS_MEDIA, CUPS_MEDIA_A4},
    {SheetProperty::Portrait, CUPS_ORIENTATION, CUPS_ORIENTATION_PORTRAIT},
    {SheetProperty::TrueSize, "print-scaling", "none"},
};

PlatformError failure(PlatformFault fault, const Text& text, const std::string& printer) {
    const char* cause = cupsLastErrorString();
    return PlatformError(fault, Reason(text, {printer, cause != nullptr ? cause : "-"}));
}

/// The queues as they are now.
class Queues {
public:
    Queues() : count_(cupsGetDests2(CUPS_HTTP_DEFAULT, &queues_)) {}
    ~Queues() { cupsFreeDests(count_, queues_); }
    Queues(const Queues&) = delete;
    Queues& operator=(const Queues&) = delete;

    [[nodiscard]] const cups_dest_t* begin() const { return queues_; }
    [[nodiscard]] const cups_dest_t* end() const { return queues_ + count_; }

private:
    cups_dest_t* queues_ = nullptr;
    int count_;
};

struct FreeQueue {
    void operator()(cups_dest_t* queue) const { cupsFreeDests(1, queue); }
    void operator()(cups_dinfo_t* facts) const { cupsFreeDestInfo(facts); }
};

/// A queue by its name. The server is asked for it at once.
class Queue {
public:
    explicit Queue(const std::string& name)
        : queue_(cupsGetNamedDest(CUPS_HTTP_DEFAULT, name.c_str(), nullptr)) {
        if (queue_ == nullptr)
            throw PlatformError(PlatformFault::PrinterMissing, Reason(not_installed, {name}));
        facts_.reset(cupsCopyDestInfo(CUPS_HTTP_DEFAULT, queue_.get()));
        if (facts_ == nullptr) throw failure(PlatformFault::PrinterMissing, not_there, name);
    }

    [[nodiscard]] cups_dest_t* get() const { return queue_.get(); }
    [[nodiscard]] cups_dinfo_t* facts() const { return facts_.get(); }

private:
    std::unique_ptr<cups_dest_t, FreeQueue> queue_;
    std::unique_ptr<cups_dinfo_t, FreeQueue> facts_;
};

/// A job that is cancelled unless its document has arrived.
class OpenJob {
public:
    OpenJob(const Queue& queue, int number) : queue_(queue), number_(number) {}
    ~OpenJob() {
        if (!arrived_) cupsCancelDestJob(CUPS_HTTP_DEFAULT, queue_.get(), number_);
    }
    OpenJob(const OpenJob&) = delete;
    OpenJob& operator=(const OpenJob&) = delete;

    [[nodiscard]] bool send(const std::string& title, std::string_view pdf) {
        arrived_ = cupsStartDestDocument(CUPS_HTTP_DEFAULT, queue_.get(), queue_.facts(), number_,
                                         title.c_str(), CUPS_FORMAT_PDF, 0, nullptr,
                                         1) == HTTP_STATUS_CONTINUE &&
                   cupsWriteRequestData(CUPS_HTTP_DEFAULT, pdf.data(), pdf.size()) ==
                       HTTP_STATUS_CONTINUE &&
                   cupsFinishDestDocument(CUPS_HTTP_DEFAULT, queue_.get(), queue_.facts()) <=
                       IPP_STATUS_OK_CONFLICTING;
        return arrived_;
    }

private:
    const Queue& queue_;
    int number_;
    bool arrived_ = false;
};

class CupsJob : public PrintJob {
public:
    CupsJob(std::string printer, std::string title)
        : printer_(std::move(printer)), title_(std::move(title)), queue_(printer_) {}
    ~CupsJob() override { cupsFreeOptions(option_count_, options_); }
    CupsJob(const CupsJob&) = delete;
    CupsJob& operator=(const CupsJob&) = delete;

    void set(SheetProperty property) override {
        const Option& option =
            *std::find_if(std::begin(options), std::end(options),
                          [&](const Option& row) { return row.property == property; });
        if (cupsCheckDestSupported(CUPS_HTTP_DEFAULT, queue_.get(), queue_.facts(), option.name,
                                   option.value) == 0)
            throw PlatformError(PlatformFault::PrinterProperty,
                                Reason(not_supported, {printer_, option.name}));
        option_count_ = cupsAddOption(option.name, option.value, option_count_, &options_);
    }

    void EndDoc(std::string_view pdf) override {
        int number = 0;
        if (cupsCreateDestJob(CUPS_HTTP_DEFAULT, queue_.get(), queue_.facts(), &number,
                              title_.c_str(), option_count_, options_) > IPP_STATUS_OK_CONFLICTING)
            throw refusal();
        OpenJob job(queue_, number);
        if (!job.send(title_, pdf)) throw refusal();
    }

private:
    [[nodiscard]] PlatformError refusal() const {
        return failure(PlatformFault::PrinterMissing, not_taken, printer_);
    }

    std::string printer_;
    std::string title_;
    Queue queue_;
    cups_option_t* options_ = nullptr;
    int option_count_ = 0;
};

}  // namespace

std::vector<std::string> CupsPrinters::installed() const {
    std::vector<std::string> names;
    for (const cups_dest_t& queue : Queues())
        if (queue.instance == nullptr) names.emplace_back(queue.name);
    return names;
}

std::string CupsPrinters::current() const {
    if (!current_.empty()) return current_;
    for (const cups_dest_t& queue : Queues())
        if (queue.is_default != 0) return queue.name;
    return {};
}

void CupsPrinters::make_current(const std::string& name) {
    const Queue reachable(name);
    current_ = name;
}

void CupsPrinters::prefer(const std::string& name) { current_ = name; }

std::unique_ptr<PrintJob> CupsPrinters::begin(const std::string& title) {
    const std::string printer = current();
    if (printer.empty())
        throw PlatformError(PlatformFault::PrinterMissing,
                            Reason(installed().empty() ? no_printer : none_chosen));
    return std::make_unique<CupsJob>(printer, title);
}

}  // namespace zel
