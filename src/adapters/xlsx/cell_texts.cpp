#include "adapters/xlsx/cell_texts.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <map>

#include "adapters/xlsx/xml_tags.h"
#include "adapters/xlsx/xml_tree.h"
#include "platform/text/number_text.h"

namespace zel::xlsx {
namespace {

constexpr std::size_t most_shared = 2'000'000;
constexpr std::size_t most_formats = 65536;  // a spreadsheet program takes some fewer

/// The text of a string item: its one text, or those of its runs.
std::string text_of_item(const pugi::xml_node& item) {
    std::string text;
    for (const pugi::xml_node node : item.children()) {
        const std::string_view name = local_name(node.name());
        if (name == "t") text += node.text().get();
        if (name == "r") text += child(node, "t").text().get();
    }
    return text;
}

template <class Number>
std::optional<Number> number_in(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

// The built-in formats of dates and times, those of the far east among them.
bool is_built_in_date(int format) {
    return (format >= 14 && format <= 22) || (format >= 27 && format <= 36) ||
           (format >= 45 && format <= 47) || (format >= 50 && format <= 58);
}

}  // namespace

void CellTexts::read_shared_strings(std::string_view xml) {
    pugi::xml_document item;
    TagWalk walk(xml);
    while (const auto element = next_element(xml, walk, "si")) {
        if (shared_ends_.size() == most_shared)
            refuse_damaged(
                {"hat mehr als {0} gemeinsame Texte", "has more than {0} shared strings"},
                {std::to_string(most_shared)});
        parse_tree(item, *element, "has damaged shared strings",
                   pugi::parse_default | pugi::parse_ws_pcdata);
        shared_ += shortened(text_of_item(item.first_child()), longest_text);
        shared_ends_.push_back(static_cast<std::uint32_t>(shared_.size()));
    }
}

void CellTexts::read_styles(std::string_view xml) {
    require_utf8(xml);
    std::map<int, bool> own_formats;
    pugi::xml_document entry;
    ChildWalk styles(xml);
    while (const auto list = styles.next()) {
        const std::string_view name = local_name(list->tag.name);
        if (name != "numFmts" && name != "cellXfs") continue;
        ChildWalk entries(list->element.of(xml));
        while (const auto element = entries.next()) {
            if (shows_date_.size() + own_formats.size() == most_formats)
                refuse_damaged({"hat mehr als {0} Zellformate", "has more than {0} cell formats"},
                               {std::to_string(most_formats)});
            parse_tree(entry, element->element.of(list->element.of(xml)), "has damaged styles");
            const pugi::xml_node node = entry.first_child();
            const int format = node.attribute("numFmtId").as_int();
            if (name == "numFmts") {
                own_formats[format] = is_date_format(node.attribute("formatCode").value());
            } else if (local_name(node.name()) == "xf") {
                const auto own = own_formats.find(format);
                shows_date_.push_back(own == own_formats.end() ? is_built_in_date(format)
                                                               : own->second);
            }
        }
    }
}

std::string CellTexts::of(const pugi::xml_node& c) const {
    const std::string_view type = c.attribute("t").value();
    if (type == "inlineStr") return text_of_item(child(c, "is"));
    const pugi::xml_node v = child(c, "v");
    const std::string_view value = v.text().get();
    if (type == "s") {
        const auto index = number_in<std::size_t>(value);
        if (!index || *index >= shared_ends_.size())
            refuse_damaged({"Zelle {0} nennt einen gemeinsamen Text, den es nicht gibt",
                            "cell {0} names a shared string that is not there"},
                           {shortened(c.attribute("r").value())});
        const std::size_t begin = *index == 0 ? 0 : shared_ends_[*index - 1];
        return shared_.substr(begin, shared_ends_[*index] - begin);
    }
    if (type == "b") return value.empty() ? "" : value == "1" || value == "true" ? "TRUE" : "FALSE";
    if (type.empty() || type == "n") return of_number(value, c.attribute("s").value());
    return std::string(value);
}

std::string CellTexts::of_number(std::string_view digits, std::string_view style) const {
    if (digits.empty()) return {};
    const auto number = number_in<double>(digits);
    if (!number || !std::isfinite(*number)) return std::string(digits);
    const auto format = number_in<std::size_t>(style);
    if (format && *format < shows_date_.size() && shows_date_[*format])
        return date_text(*number, from_1904_);
    return plain_number(*number, DecimalSeparator::Comma);
}

bool is_date_format(std::string_view code) {
    // "[h]:mm" counts hours beyond a day; other brackets are colours, conditions and languages.
    for (std::size_t i = 0; i < code.size(); ++i) {
        const char c = code[i];
        if (c == '\\' || c == '_' || c == '*') {
            ++i;
        } else if (c == '"' || c == '[') {
            const std::size_t end = code.find(c == '"' ? '"' : ']', i + 1);
            if (end == std::string_view::npos) return false;
            const std::string_view inside = code.substr(i + 1, end - i - 1);
            if (c == '[' && !inside.empty() &&
                inside.find_first_not_of("hHmMsS") == std::string_view::npos)
                return true;
            i = end;
        } else if (std::string_view("dDmMyYhHsS").find(c) != std::string_view::npos) {
            return true;
        } else if (code.substr(i, 7) == "General" || code.substr(i, 7) == "GENERAL") {
            i += 6;
        }
    }
    return false;
}

std::string date_text(double serial, bool from_1904) {
    constexpr double seconds_a_day = 86400;
    constexpr double latest = 2958466;  // behind the year 9999
    if (serial < 0 || serial >= latest) return plain_number(serial, DecimalSeparator::Comma);
    const auto all_seconds = static_cast<std::int64_t>(std::llround(serial * seconds_a_day));
    const auto days = static_cast<int>(all_seconds / 86400);
    const auto seconds = static_cast<int>(all_seconds % 86400);
    char buffer[48];
    std::string text;
    if (days > 0 || from_1904) {
        using namespace std::chrono;
        // The calendar from 1900 has a 29 February 1900, so its days count one less before it.
        const sys_days start = from_1904   ? sys_days(year(1904) / 1 / 1)
                               : days < 61 ? sys_days(year(1899) / 12 / 31)
                                           : sys_days(year(1899) / 12 / 30);
        const year_month_day date(start + std::chrono::days(days));
        std::snprintf(buffer, sizeof buffer, "%02u.%02u.%04d", static_cast<unsigned>(date.day()),
                      static_cast<unsigned>(date.month()), static_cast<int>(date.year()));
        text = days == 60 && !from_1904 ? "29.02.1900" : buffer;
        if (seconds == 0) return text;
        text += ' ';
    }
    std::snprintf(buffer, sizeof buffer, "%02d:%02d:%02d", seconds / 3600, seconds / 60 % 60,
                  seconds % 60);
    return text + buffer;
}

}  // namespace zel::xlsx
