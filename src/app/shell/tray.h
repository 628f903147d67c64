#pragma once
// CTray: the program's icon in the notification area, while its window is hidden there.

#include <QSystemTrayIcon>

#include "app/settings/options.h"
#include "app/shell/icon_set.h"

class QMenu;

namespace tarnwick {

class CTray : public QObject {
    Q_OBJECT

  public:
    /// The menu is that of the icon; the tray owns it.
    CTray(QMenu* pMenu, QObject* pParent);
    ~CTray() override;

    /// Whether minimising goes to the tray: by the option, and by Ctrl being held.
    static bool IsWanted(TMinimizeToTray option, bool bCtrl);
    /// False where the desktop has no tray.
    bool Show();
    void Hide() { m_icon.hide(); }
    bool IsShown() const { return m_icon.isVisible(); }
    void ShowIcon(TProgramIcon icon) { m_icon.setIcon(ProgramIcon(icon)); }

  signals:
    /// A click on the icon.
    void programWanted();

  private:
    QSystemTrayIcon m_icon;
    QMenu* m_pMenu;
};

}  // namespace tarnwick
