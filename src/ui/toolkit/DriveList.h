#pragma once

#include <QComboBox>
#include <string>

namespace tavel {

// A list of the computer's drives ("e: [LABEL]"), the current drive chosen at first. Opening it
// lists the drives of the moment; the current drive is chosen again when the chosen one has gone.
class DriveList : public QComboBox {
    Q_OBJECT

  public:
    explicit DriveList(QWidget* parent = nullptr);

    // The text of the chosen drive.
    std::string Drive() const;
    // Chooses the drive with the letter that the text begins with, of the drives of the moment.
    // Fails with 68 when there is none.
    void SetDrive(const std::string& text);

    void showPopup() override;

  private:
    void ListDrives();
    int RowOf(const QString& drive) const;  // by its letter; -1 for none
};

}  // namespace tavel
