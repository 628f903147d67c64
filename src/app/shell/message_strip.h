#pragma once
// The strip between the board and the bottom bar: a box to type moves into, what is known of the position,
// and beneath them why a move was refused, or the comment of the last move.

#include <QString>

#include "app/shell/panel.h"
#include "app/view/window_layout.h"

class QLineEdit;

namespace tarnwick {

class CElidedText;

class CMessageStrip : public CPanel {
    Q_OBJECT

  public:
    explicit CMessageStrip(QWidget* pParent);

    /// KnownPositionText; may be empty.
    void ShowKnown(const QString& text);
    /// Comment of the last move; gives way to a refusal until the next call.
    void ShowComment(const QString& text);
    /// Why a move was not made, in red.
    void ShowRefusal(const QString& text);
    /// What is being typed with the board in focus.
    void ShowTyped(const QString& text);
    void ClearTyped();
    void FocusTyping();
    void Place(const TWindowLayout& layout);

  signals:
    /// Enter in the box: play it (MoveOfTypedText), then ClearTyped, or ShowRefusal why not.
    void moveTyped(const QString& text);

  protected:
    void Retranslate() override;
    void Recolour() override;
    void paintEvent(QPaintEvent* pEvent) override;
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

  private:
    void ShowSecondLine();
    void PlaceParts();

    QLineEdit* m_pTyped;
    CElidedText* m_pKnown;
    CElidedText* m_pSecond;
    QString m_comment;
    QString m_refusal;
};

}  // namespace tarnwick
