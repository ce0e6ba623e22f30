#include "adapters/xlsx/xml_tree.h"

#include <new>

#include "adapters/xlsx/xml_tags.h"

namespace zel::xlsx {

void parse_tree(pugi::xml_document& document, std::string_view xml, const std::string& what,
                unsigned flags) {
    if (xml.size() > largest_tree)
        refuse_damaged({"{0}: größer als 4 MiB", "{0}: it is larger than 4 MiB"}, {what});
    const auto parsed = document.load_buffer(xml.data(), xml.size(), flags);
    if (parsed.status == pugi::status_out_of_memory) throw std::bad_alloc();
    if (!parsed) refuse_damaged({"{0}: {1}", "{0}: {1}"}, {what, parsed.description()});
}

pugi::xml_node child(const pugi::xml_node& parent, std::string_view name) {
    for (const pugi::xml_node node : parent.children())
        if (local_name(node.name()) == name) return node;
    return {};
}

}  // namespace zel::xlsx
