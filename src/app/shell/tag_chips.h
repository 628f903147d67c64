#pragma once
// The tags of a problem in a row, each with an x that removes it. Those that find no room are counted at
// the end of the row.

#include <QAbstractButton>
#include <QStringList>
#include <QWidget>
#include <vector>

namespace tarnwick {

/// One tag; `clicked` means the x, or Delete on the keyboard.
class CTagChip : public QAbstractButton {
    Q_OBJECT

  public:
    CTagChip(const QString& tag, bool bRemovable, QWidget* pParent);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    bool hitButton(const QPoint& place) const override;

  private:
    QRect Cross() const;

    bool m_bRemovable;
};

class CTagChips : public QWidget {
    Q_OBJECT

  public:
    explicit CTagChips(QWidget* pParent);

    void SetTags(const QStringList& tags);
    bool HasTags() const { return !m_tags.isEmpty(); }
    void Retranslate();

  signals:
    void removalWanted(const QString& tag);
    /// The count of those without room was clicked.
    void moreWanted();

  protected:
    void resizeEvent(QResizeEvent* pEvent) override;

  private:
    void Rebuild();
    int CountThatFits(int width) const;
    void AddChip(const QString& tag, int& left);
    void AddMore(int nShown, int left);

    QStringList m_tags;
    std::vector<CTagChip*> m_chips;
};

}  // namespace tarnwick
