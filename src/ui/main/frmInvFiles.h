#pragma once

#include <QWidget>
#include <string>

namespace tavel {

class LineList;

// The list of what was not added.
class frmInvFiles : public QWidget {
    Q_OBJECT

  public:
    frmInvFiles();

    void AddItem(const std::string& sPath);

  private:
    LineList* lstItems;
};

}  // namespace tavel
