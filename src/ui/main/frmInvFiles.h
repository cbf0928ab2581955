#pragma once

#include <QWidget>
#include <string>

class QListWidget;

namespace tavel {

// The list of what was not added.
class frmInvFiles : public QWidget {
    Q_OBJECT

  public:
    frmInvFiles();

    void AddItem(const std::string& sPath);

  private:
    QListWidget* lstItems;
};

}  // namespace tavel
