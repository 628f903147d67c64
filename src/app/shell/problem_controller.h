#pragma once
// CProblemController: going through the problems of the file, new problems, descriptions, and the
// identifier of a position.

#include <QObject>
#include <QPointer>

#include "app/shell/command_dispatcher.h"
#include "app/shell/problem_list_dialog.h"
#include "app/shell/title_bar.h"
#include "app/shell/workbench.h"

namespace tarnwick {

class CProblemController : public QObject {
    Q_OBJECT

  public:
    CProblemController(CWorkbench& workbench, CTitleBar& titleBar);
    void AddCommands(CCommandDispatcher& dispatcher);
    void GoTo(int id);
    /// The list of problems, if it is open; null otherwise.
    CProblemListDialog* List() const { return m_pList; }

  private:
    void AddBrowsing(CCommandDispatcher& dispatcher);
    void AskNumber();
    void ShowList();
    void EditDescription(const QString& text);
    void ShowPositionId();

    CWorkbench& m_workbench;
    CTitleBar& m_titleBar;
    QPointer<CProblemListDialog> m_pList;
};

}  // namespace tarnwick
