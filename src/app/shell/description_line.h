#pragma once
// The description as it stands in the title bar: centred, cut where it finds no room, its links blue and
// underlined.

#include <QTextLayout>
#include <vector>

#include "app/shell/title_bar.h"

namespace tarnwick {

class CDescriptionLine : public QWidget {
    Q_OBJECT

  public:
    explicit CDescriptionLine(QWidget* pParent);

    void Show(const QString& text, std::vector<TDescriptionLink> links);
    void SetColours(const TPalette& palette);
    void SetTooltip(const QString& tooltip);
    const QString& Text() const { return m_text; }
    /// As it is painted.
    QString ShownText() const;
    /// Where a link is painted; empty for one that was cut off.
    QRect LinkRect(std::size_t link) const;

  signals:
    void editWanted();
    void linkWanted(const QString& address);
    void linkMenuWanted(const QString& address, const QPoint& globalPlace);

  protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;

  private:
    void LayOut();
    QList<QTextLayout::FormatRange> LinkFormats(int nShown) const;
    QPointF TextCorner() const;
    const TDescriptionLink* LinkAt(const QPoint& place) const;

    QString m_text;
    QString m_tooltip;
    std::vector<TDescriptionLink> m_links;
    QTextLayout m_layout;
    int m_nShown = 0;  ///< So many characters of the text are painted.
    TPalette m_palette;
};

}  // namespace tarnwick
