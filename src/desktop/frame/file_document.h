#pragma once

#include <string>
#include <vector>

#include "desktop/frame/file_chooser.h"
#include "persistence/case_file.h"
#include "platform/case_store.h"
#include "shell/session.h"

namespace zel {

/// The case of a program area as a document: the file that it stands in, and whether it has changes
/// that the file lacks. What goes wrong is told in a box. An area derives its own and says what its
/// case is as named values.
class FileDocument {
public:
    virtual ~FileDocument() = default;
    FileDocument(const FileDocument&) = delete;
    FileDocument& operator=(const FileDocument&) = delete;

    /// Whether the file would be another one if the case were written now.
    [[nodiscard]] bool modified() const { return entered() != stored_; }
    /// The name of the file without its folders; empty where there is none yet.
    [[nodiscard]] std::string name() const;

    /// True where nothing would be lost, or the user agrees to lose it.
    [[nodiscard]] bool may_be_left() const;

    // Each is false where the user or a failure stopped it; the case is then unchanged.
    bool open();
    bool save();
    bool save_as();

    /// The case has become that of the file `path`, or, where that is empty, one without a file.
    void mark_stored(std::string path);

protected:
    /// `program` is the title of questions.
    FileDocument(const Session& session, CaseStore& store, FileChooser& chooser, Text program);

    /// What is written.
    [[nodiscard]] virtual FlatObject values() const = 0;
    /// What the user has made of the case: where it differs from what stood there when the case was
    /// stored, there are changes.
    [[nodiscard]] virtual FlatObject entered() const { return values(); }
    /// Makes `values` the case and gives back what was refused of it. Throws `InputError`, with the
    /// case as it was.
    virtual std::vector<RefusedText> take(const FlatObject& values) = 0;

private:
    bool read(const std::string& path);
    bool write(const std::string& path);
    [[nodiscard]] bool may_be_replaced(const std::string& path) const;

    const Session& session_;
    CaseStore& store_;
    FileChooser& chooser_;
    Text program_;
    std::string path_;
    FlatObject stored_;
};

}  // namespace zel
