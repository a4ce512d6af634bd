// SPDX-License-Identifier: GPL-3.0-or-later
// Run-time errors: a number from the classic table and a description. Any thread.
#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace tovik::base {

/// The numbers that the program raises or logs.
enum class ErrorNumber {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    InternalError = 51,
    BadFileNameOrNumber = 52,
    FileNotFound = 53,
    BadFileMode = 54,
    FileAlreadyOpen = 55,
    DeviceIoError = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    InputPastEndOfFile = 62,
    BadRecordNumber = 63,
    TooManyFiles = 67,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    PathFileAccessError = 75,
    PathNotFound = 76,
    ObjectVariableNotSet = 91,
    InvalidUseOfNull = 94,
    ObjectRequired = 424,
    InvalidPicture = 481,
    DamagedData = -2147221504,
    NotAnMp3File = -2147217407,
};

/// The standard description of a number; numbers outside the table share one text.
[[nodiscard]] std::string_view errorDescription(int number) noexcept;

/// A run-time error. Raised inside a procedure, taken at the end of a guarding one; it never
/// crosses a thread, a C callback or a slot.
class RuntimeError : public std::exception {
public:
    /// With the standard description.
    explicit RuntimeError(ErrorNumber number);
    /// `source` names the class that raised it, where it has a name of its own.
    RuntimeError(ErrorNumber number, std::string description, std::string source = {});

    [[nodiscard]] int number() const noexcept { return number_; }

    [[nodiscard]] const std::string& description() const noexcept { return description_; }

    [[nodiscard]] const std::string& source() const noexcept { return source_; }

    [[nodiscard]] const char* what() const noexcept override { return description_.c_str(); }

private:
    int number_;
    std::string description_;
    std::string source_;
};

} // namespace tovik::base
