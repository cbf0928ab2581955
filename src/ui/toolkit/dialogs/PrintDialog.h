#pragma once

#include "ui/toolkit/dialogs/CommonDialogs.h"

#include <QPageLayout>
#include <QPointer>
#include <QPrintDialog>
#include <initializer_list>

namespace tavel {

// The box in which the user picks a printer and what goes to it: Qt's own dialog.
class PrintDialog : public QPrintDialog {
    Q_OBJECT

  public:
    // The printer takes what the user chooses, and must outlive the dialog.
    PrintDialog(const PrintRequest& request, QPrinter& printer);

    // What was chosen, after the dialog was accepted.
    PrintAnswer Answer();

  protected:
    void childEvent(QChildEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void SetRange(const PrintRequest& request);
    void SetFile(const PrintRequest& request);
    void HideRanges(std::initializer_list<const char*> parts);
    void NameControls();
    void ShowAll();
    void BeginProperties(QDialog& properties);
    void KeepPage();

    QPageLayout m_page;                      // as requested
    QPointer<QDialog> m_acceptedProperties;  // gone with the choice of another printer
    bool m_beginsWithFile = false;
};

}  // namespace tavel
