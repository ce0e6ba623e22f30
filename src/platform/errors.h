#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

#include "platform/text/text.h"

// What is thrown where something outside the program fails, where input cannot be taken, and where
// the program must end.

namespace zel {

/// Why something outside the program failed. The number is the one under which the central error
/// table knows the failure and by which a message names it.
enum class PlatformFault : std::int32_t {
    InvalidCall = 5,  // an argument outside the range of a function
    Overflow = 6,     // a number outside the range of numbers
    OutOfMemory = 7,
    SheetMissing = 9,  // the workbook has no worksheet of the name in `subject()`
    DivisionByZero = 11,
    Unforeseen = 51,      // no other number fits; `what()` tells
    ProgramMissing = 53,  // a program to be started is not there
    FileOpen = 55,        // another program has the file open
    DeviceFailed = 57,    // reading or writing broke off
    DiskFull = 61,
    AccessDenied = 70,
    PathMissing = 76,  // file or folder is not there
    NoObject = 91,
    ComponentMissing = 339,  // a library is not installed; `what()` tells which
    PrinterProperty = 380,   // the printer does not take a setting
    PrinterMissing = 482,
    TableExclusive = 3008,  // another program holds the table
    TableExists = 3010,
    NoCurrentRecord = 3021,
    DatabaseMissing = 3024,
    FileNotFound = 3044,    // no file under the path of the settings
    FileInUse = 3045,       // another session of this program has the file
    DatabaseDenied = 3051,  // no right to open, write or delete the database
    DatabaseExists = 3204,
    ItemMissing = 3265,  // the row has no column of the name
    NotADatabase = 3343,
    DatabaseExclusive = 3356,  // another program has locked the database
    NoRecords = 26469,         // the table is empty, or there is no such table
    DialogCancelled = 32755,   // the user wants no file
    ServerLost = -2147417848,  // the workbook's owner went away
};

/// A failure of the surroundings: files, databases, workbooks, printers. `reason()` names the thing
/// and the reason for whoever looks closer, `what()` in English.
class PlatformError : public std::runtime_error {
public:
    explicit PlatformError(PlatformFault fault, Reason reason, std::string subject = {})
        : std::runtime_error(reason.en),
          reason_(std::move(reason)),
          fault_(fault),
          subject_(std::move(subject)) {}

    [[nodiscard]] const Reason& reason() const { return reason_; }
    [[nodiscard]] const std::string& told(LangId lang) const { return reason_.in(lang); }
    [[nodiscard]] PlatformFault fault() const { return fault_; }
    /// The name that the message about it needs, such as that of a worksheet.
    [[nodiscard]] const std::string& subject() const { return subject_; }

private:
    Reason reason_;
    PlatformFault fault_;
    std::string subject_;
};

/// Input from outside that cannot be taken: an unreadable file, an unknown key, a value of the
/// wrong kind. `reason()` names the place (file, key, row) and the limit. Nothing was calculated or
/// written.
class InputError : public PlatformError {
public:
    explicit InputError(Reason reason, PlatformFault fault = PlatformFault::Unforeseen,
                        std::string subject = {})
        : PlatformError(fault, std::move(reason), std::move(subject)) {}
};

/// A file that cannot be written. `reason()` names it and the reason; what stood there before
/// stands there still.
class OutputError : public PlatformError {
public:
    explicit OutputError(Reason reason, PlatformFault fault = PlatformFault::Unforeseen)
        : PlatformError(fault, std::move(reason)) {}
};

/// Thrown where the program must end. It is caught in one place: exit status 3 on the command
/// line, an orderly shutdown on the desktop. What is open (files, tables, a batch workbook) is
/// closed unsaved on the way out by its owner. `what()` is the reason.
class ProgramEnd : public std::runtime_error {
public:
    explicit ProgramEnd(const std::string& reason) : std::runtime_error(reason) {}
};

}  // namespace zel
