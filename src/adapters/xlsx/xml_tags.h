#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "platform/text/text.h"

// Tags of an XML text by their bytes, for texts of which nearly all is copied as it stands.

namespace zel::xlsx {

/// Throws `WorkbookError` (`Damaged`).
[[noreturn]] void refuse_damaged(const Text& text,
                                 std::initializer_list<std::string_view> values = {});

/// Throws `WorkbookError` (`Damaged`): the format allows no document type declaration.
[[noreturn]] void refuse_declaration();

/// A stretch of a text, from its first byte to behind its last.
struct Stretch {
    std::size_t begin = 0;
    std::size_t end = 0;

    [[nodiscard]] bool empty() const { return begin == end; }
    [[nodiscard]] std::string_view of(std::string_view text) const {
        return text.substr(begin, end - begin);
    }
};

enum class TagKind { Open, Close, Empty };

struct Tag {
    TagKind kind = TagKind::Open;
    std::string_view name;  // as it stands, with its prefix
    std::size_t begin = 0;  // of "<"
    std::size_t end = 0;    // behind ">"
};

/// Walks the tags of `xml` one by one, over comments, CDATA sections and processing
/// instructions. Throws `WorkbookError` (`Damaged`) where one does not end, and where a document
/// type is declared.
class TagWalk {
public:
    explicit TagWalk(std::string_view xml, std::size_t from = 0) : xml_(xml), at_(from) {}

    [[nodiscard]] std::optional<Tag> next();

private:
    [[nodiscard]] std::size_t behind(std::string_view mark, std::size_t from) const;
    [[nodiscard]] std::size_t end_of_tag(std::size_t from) const;

    std::string_view xml_;
    std::size_t at_;
};

/// Where an attribute stands in its tag.
struct Attribute {
    Stretch whole;  // from the blanks before its name to behind the closing quote
    Stretch value;  // between the quotes, not unescaped
};

/// The attribute `name` of the tag `tag`, which begins with "<"; nothing where there is none.
[[nodiscard]] std::optional<Attribute> attribute_of(std::string_view tag, std::string_view name);

/// Throws `WorkbookError` (`Damaged`) where `xml` is written in UTF-16: by its bytes only UTF-8 can
/// be walked.
void require_utf8(std::string_view xml);

/// A name without its prefix: "row" of "x:row".
[[nodiscard]] std::string_view local_name(std::string_view name);

/// From "<" to behind the end of the element that `open` opens. `walk` stands behind it then.
/// Throws `WorkbookError` (`Damaged`) where more than 64 elements stand within each other.
[[nodiscard]] std::string_view element_of(std::string_view xml, TagWalk& walk, const Tag& open);

/// The next element of the local name `name`, or nothing.
[[nodiscard]] std::optional<std::string_view> next_element(std::string_view xml, TagWalk& walk,
                                                           std::string_view name);

/// Walks the children of the first element of `xml`, such as the root.
class ChildWalk {
public:
    struct Child {
        Tag tag;          // that opens it
        Stretch element;  // in the text that is walked
    };

    explicit ChildWalk(std::string_view xml) : xml_(xml), walk_(xml), parent_(walk_.next()) {}

    [[nodiscard]] std::optional<Child> next();
    /// The tag of the first element itself; nothing where there is none.
    [[nodiscard]] const std::optional<Tag>& parent() const { return parent_; }

private:
    std::string_view xml_;
    TagWalk walk_;
    std::optional<Tag> parent_;
};

}  // namespace zel::xlsx
