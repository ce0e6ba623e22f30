#include "adapters/xlsx/workbook_parts.h"

#include <pugixml.hpp>

#include "adapters/xlsx/xml_tags.h"

namespace zel::xlsx {
namespace {

void parse(pugi::xml_document& document, const std::string& xml, const std::string& part) {
    if (!document.load_buffer(xml.data(), xml.size()))
        refuse_damaged("its part " + part + " is damaged");
}

std::string folder_of(const std::string& part) {
    const std::size_t slash = part.rfind('/');
    return slash == std::string::npos ? std::string() : part.substr(0, slash + 1);
}

std::string relationships_of(const std::string& part) {
    const std::string folder = folder_of(part);
    return folder + "_rels/" + part.substr(folder.size()) + ".rels";
}

/// The part that a relationship of a part in `folder` names.
std::string resolved(const std::string& folder, std::string target) {
    std::string path = target.starts_with('/') ? target.substr(1) : folder + target;
    for (std::size_t up = path.find("../"); up != std::string::npos; up = path.find("../")) {
        const std::size_t above = up < 2 ? std::string::npos : path.rfind('/', up - 2);
        const std::size_t begin = above == std::string::npos ? 0 : above + 1;
        path.erase(begin, up + 3 - begin);
    }
    while (path.starts_with("./")) path.erase(0, 2);
    return path;
}

bool is_of_type(const pugi::xml_node& relationship, std::string_view type) {
    return std::string_view(relationship.attribute("Type").value())
        .ends_with("/" + std::string(type));
}

/// The attribute of a local name that has a prefix: "r:id".
std::string_view prefixed_attribute(const pugi::xml_node& node, std::string_view name) {
    for (const pugi::xml_attribute attribute : node.attributes()) {
        const std::string_view full = attribute.name();
        if (full.find(':') != full.npos && local_name(full) == name) return attribute.value();
    }
    return {};
}

std::string workbook_part(const Archive& archive) {
    const std::string xml = archive.read("_rels/.rels");
    pugi::xml_document document;
    parse(document, xml, "_rels/.rels");
    for (const pugi::xml_node node : document.document_element().children())
        if (is_of_type(node, "officeDocument"))
            return resolved({}, node.attribute("Target").value());
    refuse_damaged("is no workbook");
}

void read_workbook(const std::string& xml, WorkbookParts& parts,
                   const pugi::xml_node& relationships, const std::string& folder) {
    pugi::xml_document document;
    parse(document, xml, parts.workbook);
    for (const pugi::xml_node group : document.document_element().children()) {
        const std::string_view name = local_name(group.name());
        if (name == "workbookPr") parts.from_1904 = group.attribute("date1904").as_bool();
        if (name == "definedNames")
            for (const pugi::xml_node defined : group.children())
                parts.names[defined.attribute("name").value()] = defined.text().get();
        if (name != "sheets") continue;
        for (const pugi::xml_node sheet : group.children()) {
            const std::string_view id = prefixed_attribute(sheet, "id");
            for (const pugi::xml_node node : relationships.children())
                if (node.attribute("Id").value() == id && is_of_type(node, "worksheet"))
                    parts.sheets.push_back({sheet.attribute("name").value(),
                                            resolved(folder, node.attribute("Target").value())});
        }
    }
}

std::string printed(const pugi::xml_document& document) {
    struct : pugi::xml_writer {
        std::string text;
        void write(const void* data, std::size_t size) override {
            text.append(static_cast<const char*>(data), size);
        }
    } writer;
    document.save(writer, "", pugi::format_raw | pugi::format_no_declaration);
    return std::move(writer.text);
}

constexpr unsigned keep_all = pugi::parse_full | pugi::parse_ws_pcdata;

/// Rewrites `part` without the children of its root that `unwanted` names.
template <class Unwanted>
void remove_children(Archive& archive, const std::string& part, Unwanted unwanted) {
    const std::string xml = archive.read(part);
    pugi::xml_document document;
    if (!document.load_buffer(xml.data(), xml.size(), keep_all))
        refuse_damaged("its part " + part + " is damaged");
    pugi::xml_node root = document.document_element();
    for (pugi::xml_node node = root.first_child(); node;) {
        const pugi::xml_node next = node.next_sibling();
        if (unwanted(node)) root.remove_child(node);
        node = next;
    }
    archive.replace(part, printed(document));
}

}  // namespace

WorkbookParts workbook_parts(const Archive& archive) {
    WorkbookParts parts;
    parts.workbook = workbook_part(archive);
    parts.relationships = relationships_of(parts.workbook);
    const std::string folder = folder_of(parts.workbook);
    const std::string xml = archive.read(parts.relationships);
    pugi::xml_document document;
    parse(document, xml, parts.relationships);
    const pugi::xml_node relationships = document.document_element();
    for (const pugi::xml_node node : relationships.children()) {
        const std::string target = resolved(folder, node.attribute("Target").value());
        if (is_of_type(node, "sharedStrings")) parts.shared_strings = target;
        if (is_of_type(node, "styles")) parts.styles = target;
        if (is_of_type(node, "calcChain")) parts.calculation_chain = target;
    }
    read_workbook(archive.read(parts.workbook), parts, relationships, folder);
    return parts;
}

void drop_calculation_chain(Archive& archive, const WorkbookParts& parts) {
    if (parts.calculation_chain.empty()) return;
    archive.remove(parts.calculation_chain);
    remove_children(archive, parts.relationships,
                    [](const pugi::xml_node& node) { return is_of_type(node, "calcChain"); });
    remove_children(archive, "[Content_Types].xml", [&](const pugi::xml_node& node) {
        return "/" + parts.calculation_chain == node.attribute("PartName").value();
    });
}

void demand_calculation(Archive& archive, const WorkbookParts& parts) {
    const std::string xml = archive.read(parts.workbook);
    pugi::xml_document document;
    if (!document.load_buffer(xml.data(), xml.size(), keep_all))
        refuse_damaged("its part " + parts.workbook + " is damaged");
    pugi::xml_node root = document.document_element();
    const std::string_view root_name = root.name();
    const std::string prefix(root_name.substr(0, root_name.size() - local_name(root_name).size()));
    pugi::xml_node settings;
    pugi::xml_node before;  // the settings come behind these, in the order of the format
    for (const pugi::xml_node node : root.children()) {
        const std::string_view name = local_name(node.name());
        if (name == "calcPr") settings = node;
        if (name == "sheets" || name == "functionGroups" || name == "externalReferences" ||
            name == "definedNames")
            before = node;
    }
    if (!settings) settings = root.insert_child_after((prefix + "calcPr").c_str(), before);
    pugi::xml_attribute all = settings.attribute("fullCalcOnLoad");
    if (all.as_bool()) return;
    if (!all) all = settings.append_attribute("fullCalcOnLoad");
    all.set_value("1");
    archive.replace(parts.workbook, printed(document));
}

}  // namespace zel::xlsx
