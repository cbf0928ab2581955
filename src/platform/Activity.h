#pragma once

#include <array>
#include <string>
#include <string_view>
#include <type_traits>

namespace tavel {

// What the program is doing with which file for as long as this lives: "Adding", sPath. The first
// one that a failure passes on its way up is what the failure message tells. Nothing is put
// together before that, so it may stand in any loop; the words must outlive it.
class Doing {
  public:
    // Up to four words, which a message joins by blanks.
    template <class... Words>
    requires(!std::is_same_v<std::remove_const_t<Words>, std::string> &&
             ...) explicit Doing(Words&&... words)
        : m_words{words...} {
        Begin();
    }
    ~Doing();
    Doing(const Doing&) = delete;
    Doing& operator=(const Doing&) = delete;

  private:
    void Begin();

    std::array<std::string_view, 4> m_words;
    int m_exceptionsAtBegin = 0;
};

// What the failure was passing that has just been caught, or the empty text; asked once.
std::string TakeFailedActivity();

// A failure that arises anew has nothing to do with what an earlier one, which a routine guarded
// against, has passed.
void ForgetFailedActivity();

}  // namespace tavel
