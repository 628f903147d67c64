#pragma once
// CSetupController: the mode in which a position is set up. It shows what the user's hand does to the men
// (app/setup), and makes the result one change of the problem when the mode is left. A position that
// cannot begin a problem keeps the mode, and says why.

#include <QObject>

#include "app/setup/setup_hand.h"
#include "app/setup/setup_result.h"
#include "app/shell/board_widget.h"
#include "app/shell/command_dispatcher.h"
#include "app/shell/hand_picture.h"
#include "app/shell/setup_panel.h"
#include "app/shell/workbench.h"

namespace tarnwick {

class CSetupController : public QObject {
    Q_OBJECT

  public:
    CSetupController(CWorkbench& workbench, CBoardWidget& board, CSetupPanel& panel);
    /// Behind the other controllers: undo and redo go through here while a position is being set up.
    void AddCommands(CCommandDispatcher& dispatcher);

    bool IsActive() const { return m_bActive; }
    const CPositionSetup& Setup() const { return m_setup; }
    /// Moves of the stipulation as they are being set.
    int Moves() const { return m_setup.Moves(); }

    /// Puts all men at once, in the mode, which begins if it is not on. doubtful marks fields to check;
    /// nMoves is the stipulation, 0 to leave it.
    void PutAll(const TSetupFields& fields, TFieldSet doubtful, int nMoves);
    /// Makes this position that of the problem on show, as one step of undo, after asking about variants
    /// that would be lost; adds a problem where there is none. False if the user does not want that.
    /// `then` changes the problem in the same step.
    bool GiveToProblem(const TNewPosition& position, const CDocument::TChange& then = {});
    /// Before the window closes: asks about a position that is being set up. True: go on.
    bool MayClose();

  signals:
    /// The mode began or ended.
    void activeChanged();
    /// The stipulation that is being set.
    void movesChanged();

  private:
    void ConnectBoard();
    void ConnectPanel();
    void Toggle();
    void Begin();
    void End();
    bool LeaveWithoutChange();
    void Escape();
    void PressKey(int field, int key, const QString& text);
    void Drag(const QPoint& globalPlace);
    void Release(const QPoint& globalPlace, bool bOverPalette);
    void ChangeMoves(int nDelta);
    void Refuse(const std::vector<TPositionFault>& faults);
    void Changed();
    void ShowAll();

    CWorkbench& m_workbench;
    CBoardWidget& m_board;
    CSetupPanel& m_panel;
    CHandPicture* m_pHand;
    CPositionSetup m_setup;
    CSetupHand m_hand{m_setup};
    QPoint m_mouse;  ///< On the screen.
    bool m_bActive = false;
    bool m_bRefused = false;  ///< What is wrong is shown until it is mended.
};

}  // namespace tarnwick
