#include "ui/toolkit/panel/PanelHost.h"

#include <QWidget>

namespace tavel {

QFont WidgetHost::AmbientFont() const { return m_panel.font(); }

QString WidgetHost::DisplayName() const { return m_panel.objectName(); }

void WidgetHost::visible(bool value) { m_panel.setVisible(value); }

void WidgetHost::zorder(int) { m_panel.raise(); }

}  // namespace tavel
