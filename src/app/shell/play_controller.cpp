#include "app/shell/play_controller.h"

#include <QMenu>
#include <array>

#include "base/chess_exception.h"

#include "app/shell/window_texts.h"

namespace tarnwick {
namespace {

struct TPromotion {
    TFigureCode type;
    const TUserText& text;
};
const std::array<TPromotion, 4> Promotions = {{{TypeQueen, QueenText},
                                               {TypeRook, RookText},
                                               {TypeBishop, BishopText},
                                               {TypeKnight, KnightText}}};

}  // namespace

CPlayController::CPlayController(CWorkbench& workbench, CBoardWidget& board)
    : m_workbench(workbench), m_board(board) {
    connect(&m_board, &CBoardWidget::moveWanted, this,
            [this](TMove move) { m_workbench.Play(move); });
    connect(&m_board, &CBoardWidget::moveRefused, this, [this](TMove move) {
        const CPlayedLine& line = m_workbench.Line();
        m_workbench.Refuse(line.RefusalText(line.WhyRefused(move), move));
    });
    connect(&m_board, &CBoardWidget::promotionWanted, this, &CPlayController::AskPromotion);
    connect(&m_board, &CBoardWidget::typedTextRefused, this, &CPlayController::PlayTyped);
    connect(&m_workbench, &CWorkbench::lineChanged, this, &CPlayController::ShowBoard);
    m_workbench.AddFacts([this](TWindowState& state) { state.bRotated = m_board.IsRotated(); });
}

void CPlayController::AddCommands(CCommandDispatcher& dispatcher) {
    dispatcher.Add(TCommand::MoveBack, [this] { Step(-1); });
    dispatcher.Add(TCommand::RedoMove, [this] { Step(1); });
    dispatcher.Add(TCommand::RotateView, [this] { Rotate(); });
}

void CPlayController::ShowBoard() {
    m_board.ShowBoard(m_workbench.Line().Board(), m_workbench.Document().Current() != nullptr);
}

bool CPlayController::PlayTyped(const QString& text) {
    if (m_board.SetupMarks() != nullptr) {
        return false;
    }
    try {
        return m_workbench.Play(
            MoveOfTypedText(m_workbench.Line().Board(), text.trimmed().toStdString()));
    } catch (const ChessException& error) {
        m_workbench.Refuse(error.what());
        return false;
    }
}

void CPlayController::GoToPly(int nPly) {
    if (m_workbench.Line().GoTo(nPly)) {
        m_workbench.LineMoved();
    }
}

void CPlayController::Step(int nPlies) {
    if (m_board.SetupMarks() != nullptr) {
        return;  // the line belongs to another position
    }
    CPlayedLine& line = m_workbench.Line();
    if (nPlies < 0 ? line.Back(-nPlies) : line.Forward(nPlies)) {
        m_workbench.LineMoved();
    }
}

/// The menu closes by itself, so nothing waits here; the pawn goes back when nothing was chosen.
void CPlayController::AskPromotion(const QPoint& place, bool /*bWhite*/) {
    auto* const pMenu = new QMenu(&m_board);
    pMenu->setAttribute(Qt::WA_DeleteOnClose);
    for (const TPromotion& promotion : Promotions) {
        QAction* const pAction = pMenu->addAction(QString::fromUtf8(UserText(promotion.text)));
        connect(pAction, &QAction::triggered, this,
                [this, type = promotion.type] { m_board.Promote(type); });
    }
    // The menu hides before it tells what was chosen, hence the queue.
    connect(
        pMenu, &QMenu::aboutToHide, this, [this] { m_board.Promote(EmptyField); },
        Qt::QueuedConnection);
    pMenu->popup(place);
    pMenu->setActiveAction(pMenu->actions().front());
}

void CPlayController::Rotate() {
    m_board.SetRotated(!m_board.IsRotated());
}

}  // namespace tarnwick
