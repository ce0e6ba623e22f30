#pragma once

#include <QProcess>
#include <QRegularExpression>
#include <string>
#include <tuple>
#include <vector>

#include "fakes/memory_canvas.h"

namespace zel {

/// A word or text and its top left corner, in twips.
using Place = std::tuple<std::string, double, double>;

/// The words of each page of a PDF. None where pdftotext is not installed.
inline std::vector<std::vector<Place>> words_of(const std::string& pdf) {
    QProcess reader;
    reader.start("pdftotext", {"-bbox", "-", "-"});
    reader.write(pdf.data(), static_cast<qint64>(pdf.size()));
    reader.closeWriteChannel();
    reader.waitForFinished();
    const QRegularExpression word(R"re(xMin="(\S+)" yMin="(\S+)".*>(.+)</word>)re");
    std::vector<std::vector<Place>> pages;
    for (const QString& page :
         QString::fromUtf8(reader.readAllStandardOutput()).split("<page ").mid(1)) {
        auto& words = pages.emplace_back();
        for (auto next = word.globalMatch(page); next.hasNext();) {
            const QRegularExpressionMatch match = next.next();
            QString text = match.captured(3);
            for (const auto& [code, letter] :
                 {std::pair("&lt;", "<"), {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}})
                text.replace(code, letter);
            words.emplace_back(text.toStdString(), 20 * match.captured(1).toDouble(),
                               20 * match.captured(2).toDouble());
        }
    }
    return pages;
}

/// Draws on another canvas and keeps the texts.
class Witness : public MemoryCanvas {
public:
    explicit Witness(Canvas& real) : real_(real) {}
    [[nodiscard]] double text_width(std::string_view text, const Font& font) const override {
        return real_.text_width(text, font);
    }
    [[nodiscard]] double text_height(const Font& font) const override {
        return real_.text_height(font);
    }
    void text(double x, double y, std::string_view text, const Font& font, Colour colour) override {
        MemoryCanvas::text(x, y, text, font, colour);
        real_.text(x, y, text, font, colour);
    }

private:
    Canvas& real_;
};

}  // namespace zel
