#pragma once
// The progress of the running solve, or the answer of the last one. The window hands it a fresh TProgress
// four times a second; painting takes far less than a frame, so that it never holds the window up.

#include <optional>
#include <string>
#include <vector>

#include "app/commands/command_table.h"
#include "app/shell/panel.h"
#include "app/solving/progress_lines.h"
#include "app/view/window_layout.h"

namespace tarnwick {

class CPictureButton;

class CProgressPanel : public CPanel {
    Q_OBJECT

  public:
    explicit CProgressPanel(QWidget* pParent);

    /// bShownProblem: it is the problem on the board that is solved. Of another one the heading gives the
    /// number, so that nobody takes its moves for those of this one.
    void ShowProgress(const TProgress& progress, bool bShownProblem);
    /// Nothing is being solved: the text, such as the answer of the last solve, or nothing.
    void ShowText(const QString& text);
    void SetLarge(bool bLarge);
    bool IsLarge() const { return m_bLarge; }
    void Place(const TWindowLayout& layout);

    /// The lines as they are painted.
    const std::vector<std::string>& Lines() const { return m_lines; }

  signals:
    /// The size should change (TCommand::ResizeProgressPanel).
    void resizeWanted();
    /// -1: all threads in turn.
    void peekWanted(int thread);
    void contextMenuWanted(tarnwick::TContextMenu menu, const QPoint& globalPlace);

  protected:
    void Retranslate() override;
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;
    bool event(QEvent* pEvent) override;

  private:
    void MakeLines();
    void PaintHeading(QPainter& painter);
    void PaintLines(QPainter& painter);
    void PaintBar(QPainter& painter);
    void PeekNext(bool bUp);
    QRect LineRect(std::size_t line) const;
    QRect BarRect() const;
    QString Heading() const;

    CPictureButton* m_pResize;
    CPictureButton* m_pPeek;
    std::optional<TProgress> m_progress;
    bool m_bShownProblem = true;
    bool m_bLarge = false;
    QString m_text;
    std::vector<std::string> m_lines;
};

}  // namespace tarnwick
