#pragma once
// CPlayController: moves made on the board or typed, and steps through the line of play.

#include <QObject>

#include "app/shell/board_widget.h"
#include "app/shell/command_dispatcher.h"
#include "app/shell/workbench.h"

namespace tarnwick {

class CPlayController : public QObject {
    Q_OBJECT

  public:
    CPlayController(CWorkbench& workbench, CBoardWidget& board);
    void AddCommands(CCommandDispatcher& dispatcher);

    /// A move as the user wrote it; the window shows why it is none. True if it was made.
    bool PlayTyped(const QString& text);
    /// To the position after so many half-moves.
    void GoToPly(int nPly);
    /// A few moves at once, as the right button of the step buttons does.
    void Step(int nPlies);

  private:
    void ShowBoard();
    void AskPromotion(const QPoint& place, bool bWhite);
    void Rotate();

    CWorkbench& m_workbench;
    CBoardWidget& m_board;
};

}  // namespace tarnwick
