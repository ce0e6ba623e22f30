#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Tags of an XML text by their bytes, for texts of which nearly all is copied as it stands.

namespace zel::xlsx {

/// Throws `WorkbookError` (`Damaged`).
[[noreturn]] void refuse_damaged(const std::string& reason);

enum class TagKind { Open, Close, Empty };

struct Tag {
    TagKind kind = TagKind::Open;
    std::string_view name;  // as it stands, with its prefix
    std::size_t begin = 0;  // of "<"
    std::size_t end = 0;    // behind ">"
};

/// Walks the tags of `xml` one by one, over comments, CDATA sections, declarations and processing
/// instructions. Throws `WorkbookError` (`Damaged`) where one does not end.
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

/// A name without its prefix: "row" of "x:row".
[[nodiscard]] std::string_view local_name(std::string_view name);

/// From "<" to behind the end of the element that `open` opens. `walk` stands behind it then.
[[nodiscard]] std::string_view element_of(std::string_view xml, TagWalk& walk, const Tag& open);

/// The next element of the local name `name`, or nothing.
[[nodiscard]] std::optional<std::string_view> next_element(std::string_view xml, TagWalk& walk,
                                                           std::string_view name);

}  // namespace zel::xlsx
