#pragma once
// The bar at the bottom: start and stop with the moving picture, the buttons, and the status text.

#include <array>

#include "app/commands/command_states.h"
#include "app/commands/command_table.h"
#include "app/shell/panel.h"
#include "app/view/window_layout.h"

namespace tarnwick {

class CElidedText;
class CPictureButton;
struct TPress;

/// Half-moves that a right click on Back and Forward steps.
inline constexpr int FewPlies = 6;

class CBottomBar : public CPanel {
    Q_OBJECT

  public:
    explicit CBottomBar(QWidget* pParent);

    /// Which buttons can be had, and whether the left one starts or stops.
    void ShowState(const TWindowState& state);
    void ShowThreads(int nThreads);
    /// CSolvingIndicator::Icon().
    void ShowIndicator(int icon);
    void SetStatus(const QString& text);
    QString Status() const;
    void Place(const TWindowLayout& layout);
    CPictureButton* Button(TBarButton button) const;

  signals:
    void commandWanted(tarnwick::TCommand command);
    /// Back (negative) or forward in the line.
    void stepWanted(int nPlies);
    /// One thread more or fewer.
    void threadsWanted(int nDelta);
    void contextMenuWanted(tarnwick::TContextMenu menu, const QPoint& globalPlace);

  protected:
    void Retranslate() override;
    void paintEvent(QPaintEvent* pEvent) override;

  private:
    void ConnectButtons();
    void PressStart(const TPress& press);
    void PressButton(TBarButton button, TCommand command, const TPress& press);

    CPictureButton* m_pStart;
    std::array<CPictureButton*, BarButtonCount> m_buttons{};
    CElidedText* m_pStatus;
    TWindowState m_state;
    int m_nThreads = 1;
    QRect m_bar;  ///< In this widget, which reaches above the bar for the start button.
};

}  // namespace tarnwick
