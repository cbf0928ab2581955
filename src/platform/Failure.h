#pragma once

#include "platform/Numbers.h"

#include <exception>
#include <string>
#include <string_view>

namespace tavel {

// The numbers of the run-time's failures, as the failure message shows them.
namespace failure {
inline constexpr Long InvalidProcedureCall = 5;
inline constexpr Long Overflow = 6;
inline constexpr Long SubscriptOutOfRange = 9;
inline constexpr Long DivisionByZero = 11;
inline constexpr Long TypeMismatch = 13;
inline constexpr Long BadFileName = 52;
inline constexpr Long FileNotFound = 53;
inline constexpr Long DeviceIO = 57;
inline constexpr Long FileAlreadyExists = 58;
inline constexpr Long DiskFull = 61;
inline constexpr Long InputPastEnd = 62;
inline constexpr Long DeviceUnavailable = 68;
inline constexpr Long PermissionDenied = 70;
inline constexpr Long DiskNotReady = 71;
inline constexpr Long PathNotFound = 76;
inline constexpr Long ObjectNotSet = 91;
inline constexpr Long InvalidFileFormat = 321;
inline constexpr Long InvalidPropertyValue = 380;
inline constexpr Long InvalidPropertyArrayIndex = 381;
inline constexpr Long NoSuchMember = 438;
inline constexpr Long KeyAlreadyThere = 457;
inline constexpr Long InvalidPicture = 481;
// The list view's own numbers.
inline constexpr Long ListIndexOutOfBounds = 35600;
inline constexpr Long ListElementNotFound = 35601;
inline constexpr Long ListKeyNotUnique = 35602;
}  // namespace failure

// A failure of the run-time. One that no routine guards against reaches the event loop, where it
// is shown with its number and text and ends the process with nothing saved.
class Failure : public std::exception {
  public:
    // Takes the run-time's own text for the number; the source is the program's name.
    explicit Failure(Long number);
    Failure(Long number, std::string description, std::string source);

    Long Number() const { return m_number; }
    const std::string& Description() const { return m_description; }
    const std::string& Source() const { return m_source; }
    const char* what() const noexcept override { return m_what.c_str(); }

  private:
    Long m_number;
    std::string m_description;
    std::string m_source;
    std::string m_what;
};

[[noreturn]] void Fail(Long number);

// The run-time's text for a failure number; "Application-defined or object-defined error" for a
// number it has no text for.
std::string_view FailureText(Long number);

}  // namespace tavel
