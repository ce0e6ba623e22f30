#include "adapters/qt_canvas/pdf_language.h"

#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFWriter.hh>

namespace zel {

std::string with_language(std::string_view pdf, std::string_view language) {
    QPDF document;
    document.setSuppressWarnings(true);
    document.processMemoryFile("report", pdf.data(), pdf.size());
    document.getRoot().replaceKey("/Lang", QPDFObjectHandle::newString(std::string(language)));
    QPDFWriter writer(document);
    writer.setOutputMemory();
    writer.setStreamDataMode(qpdf_s_preserve);
    writer.setDeterministicID(true);
    writer.write();
    // It leaves out an object that it has no memory for, and only warns.
    if (document.anyWarnings()) return {};
    const std::shared_ptr<Buffer> written = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(written->getBuffer()), written->getSize()};
}

}  // namespace zel
