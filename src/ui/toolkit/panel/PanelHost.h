#pragma once

#include <QFont>
#include <QString>
#include <string_view>

class QWidget;

namespace tavel {

// What the panel needs of the window or the designer that it stands in.
class PanelHost {
  public:
    virtual ~PanelHost() = default;

    virtual QFont AmbientFont() const = 0;
    virtual QString DisplayName() const = 0;  // what the host calls this panel
    virtual void visible(bool value) = 0;     // shows or hides the panel
    virtual void zorder(int position) = 0;    // 0, and no other is asked for: the front

    // A property was set. A designer notes by it that there is something to save.
    virtual void PropertyChanged(std::string_view sName) = 0;
};

// The host of a panel that stands in an ordinary window: the font is the one that the window gives
// the panel, the name its object name, and nobody hears of changes.
class WidgetHost : public PanelHost {
  public:
    explicit WidgetHost(QWidget& panel) : m_panel(panel) {}

    QFont AmbientFont() const override;
    QString DisplayName() const override;
    void visible(bool value) override;
    void zorder(int) override;
    void PropertyChanged(std::string_view) override {}

  private:
    QWidget& m_panel;
};

}  // namespace tavel
