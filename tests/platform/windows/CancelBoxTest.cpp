#include "platform/windows/CancelBox.h"

#include <commctrl.h>
#include <gmock/gmock.h>

#include <utility>
#include <vector>

namespace tavel::test {

namespace {

using testing::ElementsAre;
using testing::Pair;

// A box as it is built, without being on any screen.
class CancelledBox : public ::testing::Test {
  protected:
    void TearDown() override { DestroyWindow(box); }

    HWND Make(const wchar_t* windowClass, HWND parent, std::intptr_t id) const {
        const HWND made =
            CreateWindowExW(0, windowClass, L"", WS_CHILD, 0, 0, 10, 10, HWND_MESSAGE,
                            reinterpret_cast<HMENU>(id), GetModuleHandleW(nullptr), nullptr);
        if (parent != HWND_MESSAGE) SetParent(made, parent);
        return made;
    }
    void AddButton(int id) const { ASSERT_TRUE(Make(L"Button", box, id)); }
    void AddNewerContents() const {
        WNDCLASSW contents{};
        contents.lpszClassName = L"DirectUIHWND";
        contents.lpfnWndProc = DefWindowProcW;
        contents.hInstance = GetModuleHandleW(nullptr);
        RegisterClassW(&contents);
        ASSERT_TRUE(Make(L"DirectUIHWND", box, 0));
    }

    // The messages that it is left with, and the button that each is about.
    std::vector<std::pair<UINT, WPARAM>> Asked() const {
        CancelBox(box);
        std::vector<std::pair<UINT, WPARAM>> asked;
        MSG message{};
        while (PeekMessageW(&message, box, 0, 0, PM_REMOVE) != 0)
            asked.emplace_back(message.message, message.wParam);
        return asked;
    }

    const HWND box = Make(L"Static", HWND_MESSAGE, 0);
};

}  // namespace

TEST_F(CancelledBox, Has_its_cancel_pressed) {
    ASSERT_TRUE(box);
    AddButton(IDOK);
    AddButton(IDNO);
    AddButton(IDCANCEL);
    EXPECT_THAT(Asked(), ElementsAre(Pair(WM_COMMAND, IDCANCEL)));
}

TEST_F(CancelledBox, Is_answered_with_no_where_it_has_no_cancel) {
    AddButton(IDYES);
    AddButton(IDNO);
    EXPECT_THAT(Asked(), ElementsAre(Pair(WM_COMMAND, IDNO)));
}

TEST_F(CancelledBox, Of_the_newer_kind_is_answered_through_a_message_of_its_own) {
    AddNewerContents();
    EXPECT_THAT(Asked(), ElementsAre(Pair(TDM_CLICK_BUTTON, IDCANCEL), Pair(TDM_CLICK_BUTTON, IDNO),
                                     Pair(TDM_CLICK_BUTTON, IDOK)));
}

// A box for files shows them in a window of that kind.
TEST_F(CancelledBox, With_a_cancel_beside_newer_contents_has_it_pressed) {
    AddNewerContents();
    AddButton(IDCANCEL);
    EXPECT_THAT(Asked(), ElementsAre(Pair(WM_COMMAND, IDCANCEL)));
}

}  // namespace tavel::test
