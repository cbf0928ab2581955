#pragma once

#include "platform/Activity.h"
#include "platform/Failure.h"
#include "support/HostPlaces.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>

namespace tavel::test {

// A fixture with a folder of its own on the host, removed at its end. DrivePath gives paths in it
// as the engine speaks them.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    // With "/" between its names, as AsHostPath takes it.
    const std::string& HostPath() const { return m_path; }
    std::string HostPath(const std::string& name) const { return m_path + "/" + name; }
    std::string DrivePath(const std::string& name) const;  // c:\... with backslashes

    void Write(const std::string& name, const std::string& bytes) const;  // makes folders
    std::string Read(const std::string& name) const;
    // Under this very spelling, even where the host has no regard for case.
    bool Has(const std::string& name) const;

  private:
    std::string m_path;
};

// Puts the shared state of the program back to what it is when the process begins.
void ResetPublicStuff();

// A file of the source tree by its path from the root of the tree, on the host.
std::string SourceFile(const std::string& path);

// When a file was changed, in seconds from 1970 on (UTC).
std::int64_t ModifiedAt(const std::filesystem::path& hostPath);

// The number of the Failure that a call throws; 0 when it throws none.
template <class Call>
Long FailureOf(Call&& call) {
    try {
        call();
    } catch (const Failure& failure) {
        return failure.Number();
    }
    return 0;
}

// "number description source" of the Failure that a call throws; empty when it throws none.
template <class Call>
std::string FullFailureOf(Call&& call) {
    try {
        call();
    } catch (const Failure& failure) {
        return std::to_string(failure.Number()) + " " + failure.Description() + " " +
               failure.Source();
    }
    return {};
}

// What the failure message would say that the program was doing when a call throws.
template <class Call>
std::string FailedActivityOf(Call&& call) {
    try {
        call();
    } catch (...) {
        return TakeFailedActivity();
    }
    return "(no failure)";
}

}  // namespace tavel::test
