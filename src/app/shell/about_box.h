#pragma once
// What the program is, and its version.

#include <QDialog>

namespace tarnwick {

class CAboutBox : public QDialog {
    Q_OBJECT

  public:
    /// Show it with open(); it deletes itself when it is closed.
    explicit CAboutBox(QWidget* pParent);
};

}  // namespace tarnwick
