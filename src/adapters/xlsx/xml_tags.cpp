#include "adapters/xlsx/xml_tags.h"

#include "platform/workbook.h"

namespace zel::xlsx {
namespace {

[[noreturn]] void refuse_end() { refuse_damaged("an XML part ends in the middle"); }

}  // namespace

void refuse_damaged(const std::string& reason) {
    throw WorkbookError(WorkbookFault::Damaged, reason);
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
            at_ = end_of_tag(begin + 2);
        } else {
            Tag tag;
            const bool close = rest.starts_with("/");
            const std::size_t name = begin + (close ? 2 : 1);
            std::size_t i = name;
            while (i < xml_.size() && std::string_view(" \t\r\n/>").find(xml_[i]) == rest.npos) ++i;
            tag.name = xml_.substr(name, i - name);
            tag.begin = begin;
            tag.end = at_ = end_of_tag(i);
            const bool empty = !close && xml_[tag.end - 2] == '/';
            tag.kind = close ? TagKind::Close : empty ? TagKind::Empty : TagKind::Open;
            return tag;
        }
    }
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
        if (tag->kind == TagKind::Open) ++depth;
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

}  // namespace zel::xlsx
