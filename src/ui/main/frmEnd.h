#pragma once

#include <QWidget>

namespace tavel {

// What is on the screen while the program ends.
class frmEnd : public QWidget {
    Q_OBJECT

  public:
    frmEnd();
};

}  // namespace tavel
