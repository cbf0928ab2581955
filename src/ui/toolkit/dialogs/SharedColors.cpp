#include "ui/toolkit/dialogs/SharedColors.h"

#include <QSettings>

namespace tavel {

namespace {

// As Qt opens them.
class Settings : public QSettings {
  public:
    Settings() : QSettings(UserScope, QStringLiteral("QtProject")) {
        beginGroup(QStringLiteral("Qt/customColors"));
    }

    QVariantMap Values() const {
        QVariantMap values;
        for (const QString& key : childKeys()) values[key] = value(key);
        return values;
    }
};

}  // namespace

SharedColors::SharedColors() : m_before(Settings().Values()) {}

SharedColors::~SharedColors() {
    Settings settings;
    const QVariantMap after = settings.Values();
    if (after == m_before) return;
    for (const QString& key : after.keys()) settings.remove(key);
    for (const QString& key : m_before.keys()) settings.setValue(key, m_before[key]);
}

}  // namespace tavel
