#include "cli/help_pages.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "adapters/posix/text_file.h"
#include "platform/errors.h"
#include "platform/text/utf8.h"

namespace zel {
namespace {

using nlohmann::json;

constexpr Text damaged = {"keine Hilfe von ZEL: {0}", "no help of ZEL: {0}"};

HelpTopic topic_of(const json& row) {
    return {row.at("topic").get<std::string>(), row.at("level").get<int>(),
            row.at("title").get<std::string>(), row.at("text").get<std::string>()};
}

HelpMessage message_of(const json& row) {
    const auto text = [&row](const char* key) { return row.at(key).get<std::string>(); };
    return {text("code"), text("area"), text("text"), text("cause"), text("remedy")};
}

/// Where the second and further lines of `line` begin: below its first word, behind the mark of an
/// entry of a list ("-", "1.", "(a)").
std::size_t hanging_indent(std::string_view line) {
    const std::size_t begin = std::min(line.find_first_not_of(' '), line.size());
    const std::size_t end = line.find(' ', begin);
    if (end == std::string_view::npos) return begin;
    const std::string_view first = line.substr(begin, end - begin);
    const bool numbered = first.size() > 1 && (first.back() == '.' || first.back() == ')') &&
                          first.find_first_not_of("0123456789.)") == std::string_view::npos;
    if (first != "-" && !numbered) return begin;
    return std::min(line.find_first_not_of(' ', end), line.size());
}

void add_wrapped(std::string& out, std::string_view line, std::size_t width) {
    const std::size_t indent = hanging_indent(line);
    std::size_t column = std::min(line.find_first_not_of(' '), line.size());
    out.append(column, ' ');
    for (std::size_t begin = column; begin < line.size();) {
        const std::size_t end = std::min(line.find(' ', begin), line.size());
        const std::string_view word = line.substr(begin, end - begin);
        const std::size_t next = std::min(line.find_first_not_of(' ', end), line.size());
        if (column > indent && column + width_of(word) > width) {
            out.resize(out.find_last_not_of(' ') + 1);
            out += "\n" + std::string(indent, ' ');
            column = indent;
        }
        out += word;
        column += width_of(word);
        if (next < line.size()) out.append(next - end, ' ');
        column += next - end;
        begin = next;
    }
    out += '\n';
}

}  // namespace

HelpPages read_help_pages(const std::string& folder, LangId lang) {
    const std::string path = folder + (lang == LangId::German ? "/help.de.json" : "/help.en.json");
    const std::string text = read_text_file(path);
    try {
        const json document = json::parse(text);
        HelpPages pages;
        for (const json& row : document.at("topics")) pages.topics.push_back(topic_of(row));
        for (const json& row : document.at("messages")) pages.messages.push_back(message_of(row));
        return pages;
    } catch (const json::exception& error) {
        throw InputError(at(path, Reason(damaged, {error.what()})));
    }
}

std::string section_text(const std::vector<HelpTopic>& topics, std::size_t at) {
    std::string text = topics[at].text;
    for (std::size_t next = at + 1; next < topics.size(); ++next) {
        if (topics[next].level <= topics[at].level) break;
        text += "\n" + topics[next].text;
    }
    return text;
}

std::string wrapped(std::string_view text, std::size_t width) {
    std::string out;
    for (const std::string& line : lines_of(text)) {
        if (line.starts_with('\t'))
            out += line.substr(1) + "\n";
        else
            add_wrapped(out, line, width);
    }
    return out;
}

}  // namespace zel
