#pragma once

#include <memory>
#include <string>
#include <vector>

#include "desktop/frame/file_chooser.h"
#include "forms/shown_record.h"
#include "persistence/case_file.h"
#include "platform/case_store.h"
#include "shell/session.h"

namespace zel {

/// What a document needs to know of the case of its program area.
class DocumentRecord {
public:
    virtual ~DocumentRecord() = default;

    /// What is written.
    [[nodiscard]] virtual FlatObject values() const = 0;
    /// What the user has made of the case: where it differs from what stood there when the case was
    /// stored, there are changes.
    [[nodiscard]] virtual FlatObject entered() const { return values(); }
    /// Makes `values` the case and gives back what was refused of it. Throws `InputError`, with the
    /// case as it was.
    virtual std::vector<RefusedText> take(const FlatObject& values) = 0;
    /// Makes the case an empty one.
    virtual void start_anew() = 0;
    /// Asked before that, whether there are changes or not; without it only changes are asked for.
    [[nodiscard]] virtual std::optional<Box> question_before_anew() const { return std::nullopt; }

    // ---- in databases

    /// The case as a row. `cut` and failures are those of `column_values`.
    [[nodiscard]] virtual std::vector<NamedValue> row(std::vector<CutText>& cut) const = 0;
    /// Makes `row` the case and gives back what was refused of it.
    virtual std::vector<RefusedText> take(const StoredRow& row) = 0;
    /// A row, and the case, to be looked at.
    [[nodiscard]] virtual std::unique_ptr<forms::ShownRecord> shown(const StoredRow& row) const = 0;
    [[nodiscard]] virtual std::unique_ptr<forms::ShownRecord> shown() const = 0;
    /// Why the case shall not be kept among those at hand.
    [[nodiscard]] virtual std::optional<Box> refusal_to_keep() const { return std::nullopt; }
};

/// The case of a program area as a document: the file that it stands in, and whether it has changes
/// that the file lacks. What goes wrong is told in a box.
class Document {
public:
    /// `program` is the title of questions. What stands in the case counts as stored in the file
    /// `path`, which may be empty.
    Document(DocumentRecord& record, const Session& session, CaseStore& store, FileChooser& chooser,
             const Text& program, std::string path);

    /// Whether the file would be another one if the case were written now.
    [[nodiscard]] bool modified() const { return record_.entered() != stored_; }
    /// The name of the file without its folders, or the table that the case comes from; empty where
    /// there is none yet.
    [[nodiscard]] std::string name() const;
    /// That file; empty where there is none.
    [[nodiscard]] const std::string& path() const { return path_; }

    /// True where nothing is lost: changes are saved then, if the user does not want to lose them.
    [[nodiscard]] bool may_be_left();

    // Each is false where the user or a failure stopped it; the case is then unchanged.
    bool start_anew();
    bool open();
    /// Opens the file at `path`, as long as nothing is lost by it.
    bool open(const std::string& path);
    /// The same, but the case has no file then: what stands there stays as it is.
    bool open_copy(const std::string& path);
    bool save();
    bool save_as();

    /// Makes a row of the table `origin` the case, which has no file then and counts as stored.
    void take(const StoredRow& row, const std::string& origin);
    /// The case has become one that stands in no file: it has changes until it is saved.
    void detach();
    /// The case stands in the table `origin` too. Without a file it counts as stored.
    void stored_in(const std::string& origin);

private:
    void mark_stored(std::string path, std::string origin = {});
    void tell(const std::vector<RefusedText>& refused) const;
    bool read(const std::string& path);
    bool write(const std::string& path);
    [[nodiscard]] bool may_be_replaced(const std::string& path) const;

    DocumentRecord& record_;
    const Session& session_;
    CaseStore& store_;
    FileChooser& chooser_;
    Text program_;
    std::string path_;
    std::string origin_;  // the table, where there is no file
    FlatObject stored_;
};

}  // namespace zel
