#pragma once

#include "ui/toolkit/dialogs/CommonDialogs.h"

#include <QPageSetupDialog>

namespace tavel {

// The box in which the user sets up the page: Qt's own dialog.
class PageSetupDialog : public QPageSetupDialog {
    Q_OBJECT

  public:
    // The printer takes what the user chooses, and must outlive the dialog.
    PageSetupDialog(const PageRequest& request, QPrinter& printer);

    // What was chosen, after the dialog was accepted.
    PageAnswer Answer();

  private:
    void Disable(const PageRequest& request);
    QMarginsF Minimums();
    QPageLayout Chosen() const;

    QPageLayout m_page;  // as requested
    QMarginsF m_minimums;
};

}  // namespace tavel
