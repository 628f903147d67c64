#pragma once
// CWindowMenus: the menu bar, the context menus and the keys of the window, made from the tables of
// commands.
//
// A menu asks what can be had when it opens; a grey item's tooltip says why. Keys are shortcuts of their
// own, not of the items: one key may serve two commands, and an item shows its key as part of its text.

#include <QMenu>
#include <QMenuBar>

#include "app/commands/command_table.h"
#include "app/shell/command_dispatcher.h"

namespace tarnwick {

class CWindowMenus : public QObject {
    Q_OBJECT

  public:
    CWindowMenus(QMenuBar& bar, CCommandDispatcher& dispatcher, CWorkbench& workbench);

    /// Makes all menus anew in the present language.
    void Rebuild();
    void OpenContextMenu(TContextMenu menu, const QPoint& globalPlace);
    /// A context menu for whoever shows it himself; the caller owns it.
    QMenu* NewContextMenu(TContextMenu menu);

  private:
    void AddKeys();
    void Fill(QMenu& menu, const TMenu& table);
    void AddCommand(QMenu& menu, TCommand command, const QString& text);
    void AddProcessors(QMenu& menu);
    void UpdateStates(QMenu& menu);

    QMenuBar& m_bar;
    CCommandDispatcher& m_dispatcher;
    CWorkbench& m_workbench;
    std::vector<int> m_processors;  ///< Those that the program was started with.
};

}  // namespace tarnwick
