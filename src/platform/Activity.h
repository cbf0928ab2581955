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
    void Tell() const noexcept;

    std::array<std::string_view, 4> m_words;
    int m_exceptionsAtBegin = 0;
};

// What the failure was passing that has just been caught, or the empty text; asked once.
std::string TakeFailedActivity();

// What an earlier failure has passed, which a routine guarded against, has nothing to do with the
// next one. A failure of the run-time that arises anew sees to that by itself, any other exception
// can't: who guards against a failure from within the scope of a Doing calls this.
void ForgetFailedActivity();

}  // namespace tavel
