#include "adapters/xlsx/workbook_parts.h"

#include <unordered_map>
#include <utility>

#include "adapters/xlsx/xml_tags.h"
#include "adapters/xlsx/xml_tree.h"

namespace zel::xlsx {
namespace {

constexpr Text part_is_damaged = {"ihr Teil {0} ist beschädigt", "its part {0} is damaged"};

constexpr std::size_t longest_path = 1000;

void parse(pugi::xml_document& document, std::string_view xml, const std::string& part) {
    parse_tree(document, xml, "its part " + part + " is damaged",
               pugi::parse_default | pugi::parse_doctype);
    for (const pugi::xml_node node : document.children())
        if (node.type() == pugi::node_doctype) refuse_declaration();
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
std::string resolved(const std::string& folder, const std::string& target) {
    if (target.size() > longest_path)
        refuse_damaged(
            {"nennt einen Teil {0}, der zu lang ist", "names a part {0}, which is too long"},
            {shortened(target)});
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
        if (full.find(':') != std::string::npos && local_name(full) == name)
            return attribute.value();
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
    refuse_damaged({"ist keine Arbeitsmappe", "is no workbook"});
}

void read_sheets(const pugi::xml_node& sheets, const pugi::xml_node& relationships,
                 const std::string& folder, WorkbookParts& parts) {
    std::unordered_map<std::string_view, std::string> targets;
    for (const pugi::xml_node node : relationships.children())
        if (is_of_type(node, "worksheet"))
            targets[node.attribute("Id").value()] =
                resolved(folder, node.attribute("Target").value());
    for (const pugi::xml_node sheet : sheets.children()) {
        const auto target = targets.find(prefixed_attribute(sheet, "id"));
        if (target == targets.end()) continue;
        // Two sheets of one part would lose what is written into one of them.
        if (target->second.empty())
            refuse_damaged({"ihr Arbeitsblatt {0} hat die Zellen eines anderen",
                            "its worksheet {0} has the cells of another one"},
                           {shortened(sheet.attribute("name").value())});
        parts.sheets.push_back(
            {sheet.attribute("name").value(), std::exchange(target->second, {})});
    }
}

void read_workbook(const std::string& xml, const pugi::xml_node& relationships,
                   WorkbookParts& parts) {
    pugi::xml_document document;
    parse(document, xml, parts.workbook);
    for (const pugi::xml_node group : document.document_element().children()) {
        const std::string_view name = local_name(group.name());
        if (name == "workbookPr") parts.from_1904 = group.attribute("date1904").as_bool();
        if (name == "definedNames")
            for (const pugi::xml_node defined : group.children())
                parts.names[defined.attribute("name").value()] = defined.text().get();
        if (name == "sheets") read_sheets(group, relationships, folder_of(parts.workbook), parts);
    }
}

/// Rewrites `part` without the children of its root that `unwanted` names; all other bytes stay.
template <class Unwanted>
void remove_children(Archive& archive, const std::string& part, Unwanted unwanted) {
    const std::string xml = archive.read(part);
    pugi::xml_document document;
    std::string kept;
    std::size_t copied = 0;
    ChildWalk children(xml);
    while (const auto child = children.next()) {
        parse(document, child->element.of(xml), part);
        if (!unwanted(document.first_child())) continue;
        kept.append(xml, copied, child->element.begin - copied);
        copied = child->element.end;
    }
    archive.replace(part, kept.append(xml, copied));
}

/// Sets the attribute of the tag at `tag` in `xml`.
void set_attribute(std::string& xml, const Stretch& tag, std::string_view name,
                   const std::string& value) {
    const std::string_view text = tag.of(xml);
    if (const auto attribute = attribute_of(text, name)) {
        const auto [begin, end] = attribute->value;
        xml.replace(tag.begin + begin, end - begin, value);
        return;
    }
    const std::size_t last = text.find_last_not_of(" \t\r\n/>");
    xml.insert(tag.begin + last + 1, " " + std::string(name) + "=\"" + value + "\"");
}

}  // namespace

WorkbookParts workbook_parts(const Archive& archive) {
    WorkbookParts parts;
    parts.workbook = workbook_part(archive);
    if (parts.workbook.ends_with(".bin"))
        refuse_damaged({"ist eine Arbeitsmappe der binären Art (xlsb): als xlsx speichern",
                        "is a workbook of the binary kind (xlsb): save it as xlsx"});
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
    read_workbook(archive.read(parts.workbook), relationships, parts);
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
    std::string xml = archive.read(parts.workbook);
    ChildWalk children(xml);
    if (!children.parent()) refuse_damaged(part_is_damaged, {parts.workbook});
    const std::string_view root = children.parent()->name;
    const std::string prefix(root.substr(0, root.size() - local_name(root).size()));
    std::size_t before = children.parent()->end;  // the settings come behind it, as in the format
    Stretch settings;
    while (const auto child = children.next()) {
        const std::string_view name = local_name(child->tag.name);
        if (name == "calcPr") settings = {child->tag.begin, child->tag.end};
        if (name == "sheets" || name == "functionGroups" || name == "externalReferences" ||
            name == "definedNames")
            before = child->element.end;
    }
    if (settings.empty()) {
        const std::string tag = "<" + prefix + "calcPr/>";
        xml.insert(before, tag);
        settings = {before, before + tag.size()};
    }
    const std::string_view tag = settings.of(xml);
    const auto former = attribute_of(tag, "fullCalcOnLoad");
    if (former && (former->value.of(tag) == "1" || former->value.of(tag) == "true")) return;
    set_attribute(xml, settings, "fullCalcOnLoad", "1");
    archive.replace(parts.workbook, std::move(xml));
}

}  // namespace zel::xlsx
