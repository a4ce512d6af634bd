// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/RuntimeError.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tovik::base {

namespace {

struct Row {
    ErrorNumber number;
    std::string_view description;
};

constexpr std::array kDescriptions{
    Row{ErrorNumber::InvalidProcedureCall, "Invalid procedure call or argument"},
    Row{ErrorNumber::Overflow, "Overflow"},
    Row{ErrorNumber::OutOfMemory, "Out of memory"},
    Row{ErrorNumber::SubscriptOutOfRange, "Subscript out of range"},
    Row{ErrorNumber::DivisionByZero, "Division by zero"},
    Row{ErrorNumber::TypeMismatch, "Type mismatch"},
    Row{ErrorNumber::InternalError, "Internal error"},
    Row{ErrorNumber::BadFileNameOrNumber, "Bad file name or number"},
    Row{ErrorNumber::FileNotFound, "File not found"},
    Row{ErrorNumber::BadFileMode, "Bad file mode"},
    Row{ErrorNumber::FileAlreadyOpen, "File already open"},
    Row{ErrorNumber::DeviceIoError, "Device I/O error"},
    Row{ErrorNumber::FileAlreadyExists, "File already exists"},
    Row{ErrorNumber::DiskFull, "Disk full"},
    Row{ErrorNumber::InputPastEndOfFile, "Input past end of file"},
    Row{ErrorNumber::BadRecordNumber, "Bad record number"},
    Row{ErrorNumber::TooManyFiles, "Too many files"},
    Row{ErrorNumber::DeviceUnavailable, "Device unavailable"},
    Row{ErrorNumber::PermissionDenied, "Permission denied"},
    Row{ErrorNumber::PathFileAccessError, "Path/File access error"},
    Row{ErrorNumber::PathNotFound, "Path not found"},
    Row{ErrorNumber::ObjectVariableNotSet, "Object variable or With block variable not set"},
    Row{ErrorNumber::InvalidUseOfNull, "Invalid use of Null"},
    Row{ErrorNumber::ObjectRequired, "Object required"},
    Row{ErrorNumber::InvalidPicture, "Invalid picture"},
};

constexpr std::string_view kOtherDescription = "Application-defined or object-defined error";

} // namespace

std::string_view errorDescription(int number) noexcept {
    const auto* const row =
        std::find_if(kDescriptions.begin(), kDescriptions.end(), [number](const Row& candidate) {
            return static_cast<int>(candidate.number) == number;
        });
    return row == kDescriptions.end() ? kOtherDescription : row->description;
}

RuntimeError::RuntimeError(ErrorNumber number)
    : RuntimeError(number, std::string(errorDescription(static_cast<int>(number)))) {}

RuntimeError::RuntimeError(ErrorNumber number, std::string description, std::string source)
    : number_(static_cast<int>(number)), description_(std::move(description)),
      source_(std::move(source)) {}

} // namespace tovik::base
