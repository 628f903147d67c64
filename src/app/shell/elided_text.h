#pragma once
// A text in as many lines as the height has room for, cut with "…" where it does not fit; the whole is in
// the tooltip then, and told to those who listen.

#include <QWidget>

namespace tarnwick {

class CElidedText : public QWidget {
    Q_OBJECT

  public:
    explicit CElidedText(QWidget* pParent);

    void SetText(const QString& text);
    const QString& Text() const { return m_text; }
    QString ShownText() const;
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;

  private:
    int Lines() const;
    void UpdateTooltip();

    QString m_text;
};

}  // namespace tarnwick
