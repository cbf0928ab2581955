#pragma once

#include <memory>
#include <string>

namespace tavel::test {

// Counts what changes the files of a folder while it lives: a file that takes the place of another,
// and a write into one that was there. What a file of another name goes through before it takes its
// place is no change.
class Replacements {
  public:
    explicit Replacements(const std::string& hostFolder);
    ~Replacements();
    Replacements(const Replacements&) = delete;
    Replacements& operator=(const Replacements&) = delete;

    // Of the file of that name, since the last call.
    int Of(const std::string& name) const;

  private:
    class Queue;
    std::unique_ptr<Queue> m_queue;
};

}  // namespace tavel::test
