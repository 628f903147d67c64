#include "app/shell/setup_controller.h"

#include "base/filled_text.h"

#include "app/setup/setup_texts.h"

namespace tarnwick {

CSetupController::CSetupController(CWorkbench& workbench, CBoardWidget& board, CSetupPanel& panel)
    : m_workbench(workbench),
      m_board(board),
      m_panel(panel),
      m_pHand(new CHandPicture(board.parentWidget())) {
    ConnectBoard();
    ConnectPanel();
    // The others show the line of play, also after a change of language.
    connect(&m_workbench, &CWorkbench::lineChanged, this, [this] {
        if (m_bActive) {
            ShowAll();
        }
    });
    m_workbench.AddFacts([this](TWindowState& state) {
        state.bPositionSetting = m_bActive;
        if (m_bActive) {
            state.bCanUndo = m_setup.CanUndo();
            state.bCanRedo = m_setup.CanRedo();
        }
    });
}

void CSetupController::ConnectBoard() {
    connect(&m_board, &CBoardWidget::fieldPressed, this, [this](int field, Qt::MouseButton button) {
        if (button == Qt::LeftButton || button == Qt::RightButton) {
            m_hand.PressBoard(field, button == Qt::RightButton);
            Changed();
        }
    });
    connect(&m_board, &CBoardWidget::mouseDragged, this, &CSetupController::Drag);
    connect(&m_board, &CBoardWidget::mouseReleased, this,
            [this](const QPoint& place) { Release(place, false); });
    connect(&m_board, &CBoardWidget::fieldChosen, this, [this](int field) {
        m_hand.Click(field);
        Changed();
    });
    connect(&m_board, &CBoardWidget::setupKeyPressed, this, &CSetupController::PressKey);
}

void CSetupController::ConnectPanel() {
    connect(&m_panel, &CSetupPanel::manPressed, this,
            [this](TFigureCode man) { m_hand.PressPalette(man); });
    connect(&m_panel, &CSetupPanel::mouseDragged, this, &CSetupController::Drag);
    connect(&m_panel, &CSetupPanel::mouseReleased, this, &CSetupController::Release);
    connect(&m_panel, &CSetupPanel::manChosen, this, [this](TFigureCode man) {
        m_hand.ToggleStamp(man);
        Changed();
    });
    connect(&m_panel, &CSetupPanel::emptyBoardWanted, this, [this] {
        m_setup.ClearAll();
        Changed();
    });
    connect(&m_panel, &CSetupPanel::startingArrayWanted, this, [this] {
        m_setup.PutStartingArray();
        Changed();
    });
    connect(&m_panel, &CSetupPanel::doneWanted, this, &CSetupController::Toggle);
    connect(&m_panel, &CSetupPanel::cancelWanted, this, &CSetupController::Escape);
}

void CSetupController::AddCommands(CCommandDispatcher& dispatcher) {
    dispatcher.Add(TCommand::PositionSettingMode, [this] { Toggle(); });
    for (const auto& [command, nDelta] :
         {std::pair{TCommand::IncreaseStipulation, 1}, std::pair{TCommand::DecreaseStipulation, -1},
          std::pair{TCommand::IncreaseStipulationBy10, 10},
          std::pair{TCommand::DecreaseStipulationBy10, -10}}) {
        dispatcher.Add(command, [this, nDelta = nDelta] { ChangeMoves(nDelta); });
    }
    dispatcher.Add(TCommand::UndoChange, [this] {
        if (!m_bActive) {
            m_workbench.Undo();
        } else if (m_setup.Undo()) {
            Changed();
        }
    });
    dispatcher.Add(TCommand::RedoChange, [this] {
        if (!m_bActive) {
            m_workbench.Redo();
        } else if (m_setup.Redo()) {
            Changed();
        }
    });
}

// The mode.

void CSetupController::Begin() {
    CDocument& document = m_workbench.Document();
    if (document.Current() == nullptr) {
        document.AddNewProblem();
        m_workbench.ShowProblem();
    }
    m_setup.Start(*document.Current());
    m_hand.Reset();
    m_bRefused = false;
    m_bActive = true;
    m_workbench.Line().GoTo(0);
    emit activeChanged();
    ShowAll();
    m_workbench.StateChanged();
    m_board.setFocus();
}

void CSetupController::End() {
    m_bActive = false;
    m_hand.Reset();
    m_pHand->ShowMan(EmptyField, 0, {});
    emit activeChanged();
    m_workbench.LineMoved();
    m_workbench.StateChanged();
    m_board.setFocus();
}

/// The tool begins the mode, and ends it with a position that can begin a problem.
void CSetupController::Toggle() {
    if (!m_bActive) {
        Begin();
        return;
    }
    const std::vector<TPositionFault> faults = FaultsOfPosition(m_setup.Fields());
    if (m_setup.HasNewMen() && !faults.empty()) {
        Refuse(faults);
    } else if (GiveToProblem({m_setup.Fields(), m_setup.Moves()})) {
        End();
    }
}

void CSetupController::Refuse(const std::vector<TPositionFault>& faults) {
    m_bRefused = true;
    ShowAll();
    m_workbench.Dialog().Tell(FilledText(RefusedPositionText, {AllFaults(faults).text}));
}

bool CSetupController::GiveToProblem(const TNewPosition& position, const CDocument::TChange& then) {
    CDocument& document = m_workbench.Document();
    if (document.Current() == nullptr) {
        document.AddNewProblem();
        m_workbench.ShowProblem();
    }
    const TSetupCost cost = CostOf(*document.Current(), position);
    if (cost.variants > 0 &&
        !m_workbench.Dialog().Ask(FilledText(VariantsLostText, {std::to_string(cost.variants)}))) {
        return false;
    }
    m_workbench.Edit([&](TChessProblem& problem) {
        SetPosition(problem, position);
        if (then) {
            then(problem);
        }
    });
    if (cost.bKeys) {
        m_workbench.SetStatus(UserText(KeysLostText));
    }
    return true;
}

bool CSetupController::LeaveWithoutChange() {
    if (m_setup.IsChanged() && !m_workbench.Dialog().Ask(UserText(LeaveWithoutChangeText))) {
        return false;
    }
    End();
    return true;
}

bool CSetupController::MayClose() {
    return !m_bActive || LeaveWithoutChange();
}

void CSetupController::PutAll(const TSetupFields& fields, TFieldSet doubtful, int nMoves) {
    if (!m_bActive) {
        Begin();
    }
    m_setup.PutAll(fields, doubtful);
    if (nMoves > 0) {
        m_setup.SetMoves(nMoves);
    }
    Changed();
}

// The hand.

/// One step back: what is held, then the stamp, then the mode.
void CSetupController::Escape() {
    if (m_hand.Held() != EmptyField) {
        m_hand.DropHeld();
        Changed();
    } else if (m_hand.Stamp()) {
        m_hand.DropStamp();
        Changed();
    } else {
        LeaveWithoutChange();
    }
}

void CSetupController::PressKey(int field, int key, const QString& text) {
    if (key == Qt::Key_Escape) {
        Escape();
    } else if (key == Qt::Key_Plus || key == Qt::Key_PageUp) {
        ChangeMoves(key == Qt::Key_Plus ? 1 : 10);
    } else if (key == Qt::Key_Minus || key == Qt::Key_PageDown) {
        ChangeMoves(key == Qt::Key_Minus ? -1 : -10);
    } else if (field == NoFieldUnderMouse) {
        return;
    } else if (key == Qt::Key_Delete || key == Qt::Key_Backspace) {
        m_setup.Put(field, EmptyField);
        Changed();
    } else if (text.size() == 1) {
        if (const TFigureCode man = ManOfLetter(text[0].unicode()); man != EmptyField) {
            m_setup.Put(field, man);
            Changed();
        }
    }
}

void CSetupController::Drag(const QPoint& globalPlace) {
    m_mouse = globalPlace;
    m_pHand->ShowMan(m_hand.Held(), m_board.Geometry().m_fieldSize, m_mouse);
}

void CSetupController::Release(const QPoint& globalPlace, bool bOverPalette) {
    m_hand.Release(m_board.FieldAtGlobal(globalPlace), bOverPalette);
    Changed();
}

void CSetupController::ChangeMoves(int nDelta) {
    if (m_setup.Moves() == 0) {
        m_workbench.SetStatus(UserText(NoStipulationText));
    } else if (m_setup.ChangeMoves(nDelta)) {
        Changed();
    }
}

// What is shown.

void CSetupController::Changed() {
    ShowAll();
    emit movesChanged();
    m_workbench.StateChanged();
}

void CSetupController::ShowAll() {
    const TPositionFault faults =
        m_bRefused ? AllFaults(FaultsOfPosition(m_setup.Fields())) : TPositionFault{};
    m_bRefused = !faults.text.empty();
    const TFieldSet doubtful = m_setup.Doubtful();
    m_board.ShowSetup(
        BoardOfFields(m_setup.Fields()),
        {.faulty = faults.fields, .doubtful = doubtful, .liftedFrom = m_hand.HeldFrom()});
    const std::string doubts =
        doubtful == 0 ? "" : FilledText(DoubtfulFieldsText, {NamesOfFields(doubtful)});
    m_panel.Show({.stamp = m_hand.Stamp(),
                  .faults = QString::fromStdString(faults.text),
                  .doubts = QString::fromStdString(doubts),
                  .castlings = QString::fromStdString(
                      FilledText(CastlingsText, {CastlingsOf(m_setup.Fields())}))});
    if (m_hand.Held() == EmptyField) {
        m_pHand->ShowMan(EmptyField, 0, {});
    }
}

}  // namespace tarnwick
