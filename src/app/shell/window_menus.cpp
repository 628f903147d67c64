#include "app/shell/window_menus.h"

#include <QAction>
#include <QShortcut>

#include "platform/processors.h"

#include "app/commands/accelerators.h"
#include "app/commands/commands_texts.h"
#include "app/shell/panel.h"

namespace tarnwick {
namespace {

/// "Ctrl++" is "Ctrl+Shift+=" on many keyboards, so the key without Shift does it too.
constexpr const char* PlusKey = "Ctrl++";
constexpr const char* KeyOfPlus = "Ctrl+=";

}  // namespace

CWindowMenus::CWindowMenus(QMenuBar& bar, CCommandDispatcher& dispatcher, CWorkbench& workbench)
    : m_bar(bar),
      m_dispatcher(dispatcher),
      m_workbench(workbench),
      m_processors(AllowedProcessors()) {
    m_bar.setNativeMenuBar(false);
    AddKeys();
    Rebuild();
}

void CWindowMenus::AddKeys() {
    for (const TAccelerator& key : Accelerators()) {
        QList<QKeySequence> sequences = {QKeySequence(QString::fromLatin1(key.keys))};
        if (std::string_view(key.keys) == PlusKey) {
            sequences.append(QKeySequence(QString::fromLatin1(KeyOfPlus)));
        }
        for (const QKeySequence& sequence : sequences) {
            auto* const pShortcut = new QShortcut(sequence, m_bar.window());
            connect(pShortcut, &QShortcut::activated, this,
                    [this, command = key.command] { m_dispatcher.Run(command); });
        }
    }
}

void CWindowMenus::Rebuild() {
    m_bar.clear();
    for (const TMenu& table : MenuBar()) {
        auto* const pMenu = new QMenu(ShownText(*table.pTitle), &m_bar);
        Fill(*pMenu, table);
        m_bar.addMenu(pMenu);
    }
}

void CWindowMenus::Fill(QMenu& menu, const TMenu& table) {
    menu.setToolTipsVisible(true);
    for (const TMenuItem& item : table.items) {
        if (item.pSubMenu == &AffinityMenu()) {
            AddProcessors(menu);
        } else if (item.pSubMenu != nullptr) {
            QMenu* const pSubMenu = menu.addMenu(ShownText(*item.pSubMenu->pTitle));
            Fill(*pSubMenu, *item.pSubMenu);
        } else if (const TUserText* const pText = TextOfCommand(item.command)) {
            AddCommand(menu, item.command, ShownText(*pText));
        } else {
            menu.addSeparator();
        }
    }
    connect(&menu, &QMenu::aboutToShow, this, [this, &menu] { UpdateStates(menu); });
}

void CWindowMenus::AddProcessors(QMenu& menu) {
    QMenu* const pSubMenu = menu.addMenu(ShownText(*AffinityMenu().pTitle));
    for (const int nProcessor : m_processors) {
        if (const auto command = CommandOfProcessor(nProcessor)) {
            AddCommand(*pSubMenu, *command, ShownText(ProcessorText) + QString::number(nProcessor));
        }
    }
    connect(pSubMenu, &QMenu::aboutToShow, this, [this, pSubMenu] { UpdateStates(*pSubMenu); });
}

void CWindowMenus::AddCommand(QMenu& menu, TCommand command, const QString& text) {
    QAction* const pAction = menu.addAction(text);
    pAction->setData(static_cast<int>(command));
    connect(pAction, &QAction::triggered, this, [this, command] { m_dispatcher.Run(command); });
}

void CWindowMenus::UpdateStates(QMenu& menu) {
    const TWindowState state = m_workbench.State();
    for (QAction* const pAction : menu.actions()) {
        if (pAction->isSeparator() || pAction->menu() != nullptr) {
            continue;
        }
        const auto command = static_cast<TCommand>(pAction->data().toInt());
        const TCommandState commandState = StateOfCommand(command, state);
        pAction->setVisible(commandState.bVisible);
        pAction->setEnabled(commandState.bEnabled);
        // Only items that can carry a mark keep room for one.
        pAction->setCheckable(pAction->isCheckable() || commandState.bChecked);
        pAction->setChecked(commandState.bChecked);
        pAction->setToolTip(commandState.pWhyNot != nullptr ? ShownText(*commandState.pWhyNot)
                                                            : QString());
    }
}

QMenu* CWindowMenus::NewContextMenu(TContextMenu menu) {
    auto* const pMenu = new QMenu(m_bar.window());
    Fill(*pMenu, ContextMenu(menu));
    return pMenu;
}

void CWindowMenus::OpenContextMenu(TContextMenu menu, const QPoint& globalPlace) {
    QMenu* const pMenu = NewContextMenu(menu);
    pMenu->setAttribute(Qt::WA_DeleteOnClose);
    pMenu->popup(globalPlace);
}

}  // namespace tarnwick
