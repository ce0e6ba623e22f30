#include "adapters/xlsx/xml_tags.h"

#include "platform/workbook.h"

namespace zel::xlsx {
namespace {

constexpr std::string_view blanks = " \t\r\n";
constexpr std::string_view end_of_name = " \t\r\n/>";

[[noreturn]] void refuse_end() {
    refuse_damaged({"ein XML-Teil endet in der Mitte", "an XML part ends in the middle"});
}

constexpr int deepest = 64;  // elements within each other, rich text in a comment has some ten

}  // namespace

void refuse_declaration() {
    // It could define texts that stand for any number of others.
    refuse_damaged({"enthält eine Dokumenttypdeklaration, die keine Arbeitsmappe haben darf",
                    "has a document type declaration, which no workbook may have"});
}

void refuse_damaged(const Text& text, std::initializer_list<std::string_view> values) {
    throw WorkbookError(WorkbookFault::Damaged, Reason(text, values));
}

void require_utf8(std::string_view xml) {
    if (xml.starts_with("\xFE\xFF") || xml.starts_with("\xFF\xFE"))
        refuse_damaged({"ist in UTF-16 geschrieben, was nicht verstanden wird",
                        "is written in UTF-16, which is not understood"});
}

std::size_t TagWalk::behind(std::string_view mark, std::size_t from) const {
    const std::size_t found = xml_.find(mark, from);
    if (found == std::string_view::npos) refuse_end();
    return found + mark.size();
}

/// Behind the ">" of the tag; one within quotes is none.
std::size_t TagWalk::end_of_tag(std::size_t from) const {
    char quote = 0;
    for (std::size_t i = from; i < xml_.size(); ++i) {
        const char c = xml_[i];
        if (quote != 0) {
            if (c == quote) quote = 0;
        } else if (c == '>') {
            return i + 1;
        } else if (c == '"' || c == '\'') {
            quote = c;
        }
    }
    refuse_end();
}

std::optional<Tag> TagWalk::next() {
    while (true) {
        const std::size_t begin = xml_.find('<', at_);
        if (begin == std::string_view::npos) return std::nullopt;
        const std::string_view rest = xml_.substr(begin + 1);
        if (rest.starts_with("!--")) {
            at_ = behind("-->", begin + 4);
        } else if (rest.starts_with("![CDATA[")) {
            at_ = behind("]]>", begin + 9);
        } else if (rest.starts_with("?")) {
            at_ = behind("?>", begin + 2);
        } else if (rest.starts_with("!")) {
            refuse_declaration();
        } else {
            Tag tag;
            const bool close = rest.starts_with("/");
            const std::size_t name = begin + (close ? 2 : 1);
            std::size_t i = name;
            while (i < xml_.size() && end_of_name.find(xml_[i]) == std::string::npos) ++i;
            tag.name = xml_.substr(name, i - name);
            tag.begin = begin;
            tag.end = at_ = end_of_tag(i);
            const bool empty = !close && xml_[tag.end - 2] == '/';
            tag.kind = close ? TagKind::Close : empty ? TagKind::Empty : TagKind::Open;
            return tag;
        }
    }
}

std::optional<Attribute> attribute_of(std::string_view tag, std::string_view name) {
    std::size_t at = tag.find_first_of(blanks);
    while (at < tag.size()) {
        Attribute found{{at, at}, {}};
        const std::size_t begin = tag.find_first_not_of(blanks, at);
        const std::size_t equals = tag.find('=', at);
        if (begin == std::string::npos || equals == std::string::npos) break;
        const std::size_t quote = tag.find_first_not_of(blanks, equals + 1);
        if (quote == std::string::npos || (tag[quote] != '"' && tag[quote] != '\'')) break;
        const std::size_t end = tag.find(tag[quote], quote + 1);
        if (end == std::string::npos) break;
        found.whole.end = at = end + 1;
        found.value = {quote + 1, end};
        const std::size_t name_end = tag.find_first_of(" \t\r\n=", begin);
        if (tag.substr(begin, name_end - begin) == name) return found;
    }
    return std::nullopt;
}

std::string_view local_name(std::string_view name) {
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

std::string_view element_of(std::string_view xml, TagWalk& walk, const Tag& open) {
    std::size_t end = open.end;
    for (int depth = open.kind == TagKind::Open ? 1 : 0; depth > 0;) {
        const auto tag = walk.next();
        if (!tag) refuse_end();
        if (tag->kind == TagKind::Open && ++depth > deepest)
            refuse_damaged({"verschachtelt mehr als {0} Elemente", "nests more than {0} elements"},
                           {std::to_string(deepest)});
        if (tag->kind == TagKind::Close) --depth;
        end = tag->end;
    }
    return xml.substr(open.begin, end - open.begin);
}

std::optional<std::string_view> next_element(std::string_view xml, TagWalk& walk,
                                             std::string_view name) {
    while (const auto tag = walk.next())
        if (tag->kind != TagKind::Close && local_name(tag->name) == name)
            return element_of(xml, walk, *tag);
    return std::nullopt;
}

std::optional<ChildWalk::Child> ChildWalk::next() {
    if (!parent_ || parent_->kind != TagKind::Open) return std::nullopt;
    const auto tag = walk_.next();
    if (!tag) refuse_end();
    if (tag->kind == TagKind::Close) {
        parent_.reset();
        return std::nullopt;
    }
    return Child{*tag, {tag->begin, tag->begin + element_of(xml_, walk_, *tag).size()}};
}

}  // namespace zel::xlsx
