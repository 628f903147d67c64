#include "app/shell/tray.h"

#include <QMenu>

namespace tarnwick {

CTray::CTray(QMenu* pMenu, QObject* pParent) : QObject(pParent), m_pMenu(pMenu) {
    m_icon.setIcon(ProgramIcon(TProgramIcon::Normal));
    m_icon.setContextMenu(pMenu);
    m_icon.setToolTip("Tarnwick");
    connect(&m_icon, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason != QSystemTrayIcon::Context) {
                    emit programWanted();
                }
            });
}

CTray::~CTray() {
    delete m_pMenu;
}

bool CTray::IsWanted(TMinimizeToTray option, bool bCtrl) {
    return option == TMinimizeToTray::Always || (option == TMinimizeToTray::WithCtrl && bCtrl);
}

bool CTray::Show() {
    if (!QSystemTrayIcon::isSystemTrayAvailable()) {
        return false;
    }
    m_icon.show();
    return true;
}

}  // namespace tarnwick
