#pragma once

#include <zip.h>

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/test_data.h"

// Archives made part by part, and taken apart again.

namespace zel::xlsx {

using Parts = std::vector<std::pair<std::string, std::string>>;

class OpenArchive {
public:
    explicit OpenArchive(std::string_view bytes = {})
        : source_(zip_source_buffer_create(nullptr, 0, 1, nullptr)) {
        zip_source_keep(source_);
        if (!bytes.empty()) {
            zip_source_begin_write(source_);
            zip_source_write(source_, bytes.data(), bytes.size());
            zip_source_commit_write(source_);
        }
        zip_ =
            zip_open_from_source(source_, bytes.empty() ? ZIP_CREATE | ZIP_TRUNCATE : 0, nullptr);
        if (zip_ == nullptr) throw std::runtime_error("no archive");
    }
    ~OpenArchive() {
        if (zip_ != nullptr) zip_discard(zip_);
        zip_source_free(source_);
    }
    OpenArchive(const OpenArchive&) = delete;
    OpenArchive& operator=(const OpenArchive&) = delete;

    void add(const std::string& part, const std::string& content) {
        zip_file_add(zip_, part.c_str(), zip_source_buffer(zip_, content.data(), content.size(), 0),
                     ZIP_FL_ENC_UTF_8);
    }

    std::string close() {
        if (zip_close(zip_) != 0) throw std::runtime_error("not packed");
        zip_ = nullptr;
        zip_stat_t state;
        zip_source_stat(source_, &state);
        std::string bytes(state.size, '\0');
        zip_source_open(source_);
        zip_source_read(source_, bytes.data(), bytes.size());
        zip_source_close(source_);
        return bytes;
    }

    [[nodiscard]] std::map<std::string, std::string> contents() const {
        std::map<std::string, std::string> parts;
        for (zip_int64_t i = 0; i < zip_get_num_entries(zip_, 0); ++i) {
            zip_stat_t state;
            zip_stat_index(zip_, static_cast<zip_uint64_t>(i), 0, &state);
            std::string& content = parts[state.name];
            content.resize(state.size);
            zip_file_t* file = zip_fopen_index(zip_, static_cast<zip_uint64_t>(i), 0);
            zip_fread(file, content.data(), content.size());
            zip_fclose(file);
        }
        return parts;
    }

private:
    zip_source_t* source_;
    zip_t* zip_ = nullptr;
};

inline std::string packed(const Parts& parts) {
    OpenArchive archive;
    for (const auto& [part, content] : parts) archive.add(part, content);
    return archive.close();
}

inline std::map<std::string, std::string> unpacked(std::string_view bytes) {
    return OpenArchive(bytes).contents();
}

inline const std::string xml_head = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)";
inline const std::string main_ns =
    R"(xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main")";
inline const std::string relation =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

inline std::string link_to(const std::string& id, const std::string& type,
                           const std::string& target) {
    return "<Relationship Id=\"" + id + "\" Type=\"" + relation + "/" + type + "\" Target=\"" +
           target + "\"/>";
}

inline const nlohmann::json& data() {
    static const nlohmann::json data = test_data("xlsx");
    return data;
}

/// A workbook whose only worksheet "input" has this XML, with further relationships and parts.
inline Parts workbook_with(const std::string& sheet, const Parts& more = {},
                           const std::string& relationships = {},
                           const std::string& workbook_end = {}) {
    Parts parts = {
        {"[Content_Types].xml",
         xml_head +
             R"(<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">)"
             R"(<Default Extension="xml" ContentType="application/xml"/>)"
             R"(<Override PartName="/xl/calcChain.xml" ContentType="x"/></Types>)"},
        {"_rels/.rels", xml_head + R"(<Relationships><Relationship Id="rId1" Type=")" + relation +
                            R"(/officeDocument" Target="xl/workbook.xml"/></Relationships>)"},
        {"xl/workbook.xml", xml_head + "<workbook " + main_ns + R"( xmlns:r=")" + relation +
                                R"("><sheets><sheet name="input" sheetId="1" r:id="rId7"/>)"
                                "</sheets>" +
                                workbook_end + "</workbook>"},
        {"xl/_rels/workbook.xml.rels",
         xml_head + R"(<Relationships><Relationship Id="rId7" Type=")" + relation +
             R"(/worksheet" Target="/xl/worksheets/first.xml"/>)" + relationships +
             "</Relationships>"},
        {"xl/worksheets/first.xml", sheet}};
    parts.insert(parts.end(), more.begin(), more.end());
    return parts;
}

inline std::string sheet_of(const std::string& rows, const std::string& before = {}) {
    return xml_head + "<worksheet " + main_ns + ">" + before + "<sheetData>" + rows +
           "</sheetData><pageMargins left=\"0.7\"/></worksheet>";
}

}  // namespace zel::xlsx
