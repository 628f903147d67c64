#include "app/shell/bottom_bar.h"

#include <QPainter>
#include <QRegion>

#include "base/filled_text.h"

#include "app/commands/tooltip_texts.h"
#include "app/shell/colours.h"
#include "app/shell/elided_text.h"
#include "app/shell/picture_button.h"
#include "app/shell/shell_texts.h"
#include "app/solving/solving_indicator.h"

namespace tarnwick {
namespace {

/// A button with the command that it stands for: of the others it has by right clicks the bar knows.
struct TButtonRow {
    TBarButton button;
    TCommand command;
    const char* picture;
    const TUserText* pTooltip;
};

constexpr TButtonRow ButtonRows[] = {
    {TBarButton::Back, TCommand::MoveBack, "back", &BackTooltip},
    {TBarButton::Forward, TCommand::RedoMove, "forward", &ForwardTooltip},
    {TBarButton::Save, TCommand::SaveFile, "save", &SaveTooltip},
    {TBarButton::SetPosition, TCommand::PositionSettingMode, "set_position",
     &PositionSettingTooltip},
    {TBarButton::Threads, TCommand::None, "threads", &ThreadsTooltip},
    {TBarButton::Rotate, TCommand::RotateView, "rotate", &RotateTooltip},
    {TBarButton::Tag, TCommand::AddTag, "tag", &TagTooltip},
    {TBarButton::Variant, TCommand::SaveMainVariant, "variant", &MainVariantTooltip},
    {TBarButton::Options, TCommand::Options, "options", &OptionsTooltip},
};
static_assert(std::size(ButtonRows) == BarButtonCount);

std::size_t IndexOf(TBarButton button) {
    return static_cast<std::size_t>(button);
}

}  // namespace

CBottomBar::CBottomBar(QWidget* pParent)
    : CPanel(pParent),
      m_pStart(new CPictureButton("start", this)),
      m_pStatus(new CElidedText(this)) {
    for (const TButtonRow& row : ButtonRows) {
        m_buttons[IndexOf(row.button)] = new CPictureButton(row.picture, this);
    }
    Button(TBarButton::Threads)->SetHalves(true);
    ConnectButtons();
    Retranslate();
}

CPictureButton* CBottomBar::Button(TBarButton button) const {
    return m_buttons[IndexOf(button)];
}

void CBottomBar::ConnectButtons() {
    connect(m_pStart, &CPictureButton::pressedWith, this, &CBottomBar::PressStart);
    for (const TButtonRow& row : ButtonRows) {
        connect(Button(row.button), &CPictureButton::pressedWith, this,
                [this, row](const TPress& press) { PressButton(row.button, row.command, press); });
    }
}

/// Left starts or stops, with Ctrl asking for heuristics first; right finds all or pauses, with Ctrl
/// pausing one thread; the middle button solves and shows the whole main variant.
void CBottomBar::PressStart(const TPress& press) {
    const bool bRight = press.button == Qt::RightButton;
    TCommand command = TCommand::ShowWholeMainVariant;
    if (m_state.bSolving && !bRight) {
        command = TCommand::StopSolving;
    } else if (m_state.bSolving) {
        command = press.bCtrl       ? TCommand::PauseOneThread
                  : m_state.bPaused ? TCommand::ResumeSolving
                                    : TCommand::PauseSolving;
    } else if (bRight) {
        command = press.bCtrl ? TCommand::ChooseHeuristicsAndFindAll : TCommand::FindAllSolutions;
    } else if (press.button == Qt::LeftButton) {
        command = press.bCtrl ? TCommand::ChooseHeuristicsAndSolve : TCommand::Solve;
    }
    emit commandWanted(CommandForSideToMove(command, m_state));
}

void CBottomBar::PressButton(TBarButton button, TCommand command, const TPress& press) {
    const bool bRight = press.button == Qt::RightButton;
    if (button == TBarButton::Back || button == TBarButton::Forward) {
        const int nPlies = bRight ? FewPlies : 1;
        emit stepWanted(button == TBarButton::Back ? -nPlies : nPlies);
    } else if (button == TBarButton::Threads) {
        emit threadsWanted(press.bUpperHalf && !bRight ? 1 : -1);
    } else if (button == TBarButton::Variant && bRight) {
        const QPoint corner = Button(button)->mapToGlobal(QPoint(0, 0));
        emit contextMenuWanted(TContextMenu::MainVariantButton, corner);
    } else if (!bRight) {
        emit commandWanted(command);
    }
}

void CBottomBar::ShowState(const TWindowState& state) {
    m_state = state;
    const TCommand start = CommandForSideToMove(TCommand::Solve, state);
    const bool bStop = state.bSolving || state.bTableRun;
    m_pStart->SetPicture(bStop ? "stop" : "start");
    m_pStart->ShowState(StateOfCommand(bStop ? TCommand::StopSolving : start, state));
    for (const TButtonRow& row : ButtonRows) {
        if (row.command != TCommand::None) {
            Button(row.button)->ShowState(StateOfCommand(row.command, state));
        }
    }
    // Its right click shows variants also where no moves can be saved as one.
    Button(TBarButton::Variant)->setEnabled(!state.bInitialising);
    m_pStart->SetTexts(PlainText(*TextOfCommand(bStop ? TCommand::StopSolving : start)),
                       ShownText(StartTooltip));
}

void CBottomBar::ShowThreads(int nThreads) {
    CPictureButton& button = *Button(TBarButton::Threads);
    m_nThreads = nThreads;
    button.SetBadge(QString::number(nThreads));
    button.SetTexts(QString::fromStdString(FilledText(ThreadsNameText, {std::to_string(nThreads)})),
                    ShownText(ThreadsTooltip));
}

void CBottomBar::ShowIndicator(int icon) {
    const int frame = icon - FirstRunningFrame;
    m_pStart->SetRunningFrame(frame >= 0 && frame < RunningFrames ? frame : -1);
    m_pStart->SetBadge(icon == FinishedIcon ? QString::fromUtf8("✓") : QString());
}

void CBottomBar::SetStatus(const QString& text) {
    m_pStatus->SetText(text);
}

QString CBottomBar::Status() const {
    return m_pStatus->Text();
}

/// The start button reaches above the bar; beside it the strip above shows through.
void CBottomBar::Place(const TWindowLayout& layout) {
    const QRect bar = ToQRect(layout.bottomBar);
    const QRect icon =
        ToQRect(layout.iconArea).intersected(QRect(0, 0, bar.width(), bar.bottom() + 1));
    setGeometry(bar.united(icon));
    const QPoint corner = geometry().topLeft();
    m_bar = bar.translated(-corner);
    m_pStart->setGeometry(icon.translated(-corner));
    for (const TButtonRow& row : ButtonRows) {
        Button(row.button)->setGeometry(ToQRect(layout.Button(row.button)).translated(-corner));
    }
    m_pStatus->setGeometry(ToQRect(layout.statusText).translated(-corner));
    setMask(QRegion(m_bar) | QRegion(m_pStart->geometry()));
}

void CBottomBar::Retranslate() {
    for (const TButtonRow& row : ButtonRows) {
        if (row.command != TCommand::None) {
            Button(row.button)
                ->SetTexts(PlainText(*TextOfCommand(row.command)), ShownText(*row.pTooltip));
        }
    }
    m_pStatus->setAccessibleName(ShownText(StatusNameText));
    ShowThreads(m_nThreads);
    ShowState(m_state);
}

void CBottomBar::paintEvent(QPaintEvent* /*pEvent*/) {
    QPainter painter(this);
    painter.fillRect(rect(), ToQColor(Palette().panel));
    painter.setPen(ToQColor(Palette().border));
    painter.drawLine(m_pStart->width(), m_bar.top(), m_bar.right(), m_bar.top());
}

}  // namespace tarnwick
