#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tavel::test {

// Notes, while it lives, the calls of the host that decide what a power cut leaves of a folder, in
// their order: "flush a.bin 3000" (with the bytes that the file holds by then), "flush folder PSP",
// "flush all" (of the file system), "rename a.bin -> PSP/b.bin", "remove a.bin". Names are paths
// below the folder, which is "." itself; what happens elsewhere is not noted.
class HostCalls {
  public:
    explicit HostCalls(const std::string& folder);
    ~HostCalls();
    HostCalls(const HostCalls&) = delete;
    HostCalls& operator=(const HostCalls&) = delete;

    // The calls up to now; the next time, those from here on.
    std::vector<std::string> Take();

    // Lets the nth flush from here on, of a file or a folder, fail with an error of the host.
    void FailFlush(int nth, int error);

    // Lets a rename that is told how to go about it fail with an error of the host, as on file
    // systems that can't be told.
    void RefuseRenameFlags(int error);

    // Runs an action, once, before the first flush or rename whose note begins so, be it made or
    // refused: another program does something at that moment. One that only hurries what is being
    // written to a stick ("pace card/a.bin") counts as well, though it is not noted.
    void Before(const std::string& callStart, std::function<void()> action);
};

}  // namespace tavel::test
