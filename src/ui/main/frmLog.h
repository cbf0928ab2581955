#pragma once

#include <QMainWindow>
#include <string>

class QPushButton;

namespace tavel {

class LineList;

// The activity log: it exists from the first line on, and its lines end with it. A main window is
// what Qt tells screen readers of as a window.
class frmLog : public QMainWindow {
    Q_OBJECT

  public:
    frmLog();

    void AddItem(const std::string& line);  // at the end, without scrolling to it

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void PlaceAtRight();
    void PlaceList();

    LineList* lstLog;
    QPushButton* cmdClear;
};

}  // namespace tavel
