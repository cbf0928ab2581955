#include "platform/Failure.h"

#include "platform/Activity.h"

#include <array>
#include <utility>

namespace tavel {

namespace {

constexpr std::array<std::pair<Long, std::string_view>, 25> texts{{
    {failure::InvalidProcedureCall, "Invalid procedure call or argument"},
    {failure::Overflow, "Overflow"},
    {failure::SubscriptOutOfRange, "Subscript out of range"},
    {failure::DivisionByZero, "Division by zero"},
    {failure::TypeMismatch, "Type mismatch"},
    {failure::BadFileName, "Bad file name or number"},
    {failure::FileNotFound, "File not found"},
    {failure::DeviceIO, "Device I/O error"},
    {failure::FileAlreadyExists, "File already exists"},
    {failure::DiskFull, "Disk full"},
    {failure::InputPastEnd, "Input past end of file"},
    {failure::DeviceUnavailable, "Device unavailable"},
    {failure::PermissionDenied, "Permission denied"},
    {failure::DiskNotReady, "Disk not ready"},
    {failure::PathNotFound, "Path not found"},
    {failure::ObjectNotSet, "Object variable or With block variable not set"},
    {failure::InvalidFileFormat, "Invalid file format"},
    {failure::InvalidPropertyValue, "Invalid property value"},
    {failure::InvalidPropertyArrayIndex, "Invalid property array index"},
    {failure::NoSuchMember, "Object doesn't support this property or method"},
    {failure::KeyAlreadyThere, "This key is already associated with an element of this collection"},
    {failure::InvalidPicture, "Invalid picture"},
    {failure::ListIndexOutOfBounds, "Index out of bounds"},
    {failure::ListElementNotFound, "Element not found"},
    {failure::ListKeyNotUnique, "Key is not unique in collection"},
}};

}  // namespace

std::string_view FailureText(Long number) {
    for (const auto& [known, text] : texts) {
        if (known == number) return text;
    }
    return "Application-defined or object-defined error";
}

Failure::Failure(Long number) : Failure(number, std::string(FailureText(number)), "Tavel") {
    ForgetFailedActivity();
}

Failure::Failure(Long number, std::string description, std::string source)
    : m_number(number),
      m_description(std::move(description)),
      m_source(std::move(source)),
      m_what(std::to_string(number) + " " + m_description) {}

void Fail(Long number) { throw Failure(number); }

}  // namespace tavel
