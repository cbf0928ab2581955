#include "platform/windows/WindowsApi.h"
#include "ui/support/Modal.h"
#include "ui/toolkit/dialogs/CommonDialogs.h"

#include <gtest/gtest.h>

#include <QSettings>
#include <stdexcept>

namespace tavel::test {

namespace {

// A user of whom nothing is known yet, for as long as it lives and for this process alone.
class NewUser {
  public:
    NewUser() {
        if (RegCreateKeyExW(HKEY_CURRENT_USER, m_name.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                            nullptr, &m_key, nullptr) != ERROR_SUCCESS)
            throw std::runtime_error("no key");
        RegOverridePredefKey(HKEY_CURRENT_USER, m_key);
    }
    ~NewUser() {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegCloseKey(m_key);
        RegDeleteTreeW(HKEY_CURRENT_USER, m_name.c_str());
    }
    NewUser(const NewUser&) = delete;
    NewUser& operator=(const NewUser&) = delete;

  private:
    std::wstring m_name = L"Software\\tavel-test-" + std::to_wstring(GetCurrentProcessId());
    HKEY m_key = nullptr;
};

// What all Qt programs of the user share.
class Shared : public QSettings {
  public:
    Shared() : QSettings(UserScope, QStringLiteral("QtProject")) {}
};

ColorRequest GreenAmongTheCustomColors() {
    ColorRequest request;
    request.custom.fill(Qt::green);
    return request;
}

}  // namespace

TEST(SharedColors, a_box_of_colors_leaves_none_where_there_were_none) {
    const NewUser user;
    ConfirmNext();
    EXPECT_EQ(Service<CommonDialogs>::Get().PickColor(GreenAmongTheCustomColors()).result, 1);
    EXPECT_EQ(Shared().allKeys(), QStringList());
}

TEST(SharedColors, a_box_of_colors_leaves_those_of_other_programs) {
    const NewUser user;
    const QString key = QStringLiteral("Qt/customColors/3");
    Shared().setValue(key, 0xFF0000FFu);
    ConfirmNext();
    EXPECT_EQ(Service<CommonDialogs>::Get().PickColor(GreenAmongTheCustomColors()).result, 1);
    EXPECT_EQ(Shared().allKeys(), QStringList(key));
    EXPECT_EQ(Shared().value(key).toUInt(), 0xFF0000FFu);
}

}  // namespace tavel::test
