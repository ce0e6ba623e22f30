#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "adapters/printers/cups_printers.h"
#include "platform/errors.h"

// Over the queues that print_queue.sh has set up: "Paper", the default, which prints into a folder,
// and "Refusing", which takes no job.

namespace zel {
namespace {

using testing::UnorderedElementsAre;

template <class Act>
PlatformFault fault_of(Act act) {
    try {
        act();
    } catch (const PlatformError& error) {
        EXPECT_NE(error.told(LangId::German), "");
        return error.fault();
    }
    return {};
}

TEST(PrintQueue, takes_a_document_and_tells_what_it_refuses) {
    CupsPrinters printers;
    EXPECT_THAT(printers.installed(), UnorderedElementsAre("Paper", "Refusing"));
    EXPECT_EQ(printers.current(), "Paper");
    EXPECT_EQ(fault_of([&] { printers.make_current("gone"); }), PlatformFault::PrinterMissing);
    EXPECT_EQ(printers.current(), "Paper");

    std::ostringstream pdf;
    pdf << std::ifstream(std::getenv("ZEL_PDF")).rdbuf();
    const auto job = printers.begin("Größe");
    for (const SheetProperty property : sheet_properties)
        (void)fault_of([&] { job->set(property); });
    job->EndDoc(pdf.str());

    printers.make_current("Refusing");
    EXPECT_EQ(fault_of([&] { printers.begin("refused")->EndDoc(pdf.str()); }),
              PlatformFault::PrinterMissing);
}

}  // namespace
}  // namespace zel
