#include "app/shell/accessible_board.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QAccessibleWidget>
#include <array>

#include "app/setup/setup_texts.h"
#include "app/shell/board_widget.h"
#include "app/view/field_names.h"
#include "app/view/view_texts.h"

namespace tarnwick {
namespace {

class CAccessibleBoard;

/// One field. Owned by the toolkit's table of interfaces from its first use to the end of the board.
class CAccessibleField : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    CAccessibleField(CBoardWidget& widget, int field) : m_widget(widget), m_field(field) {}

    bool isValid() const override { return true; }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(&m_widget);
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Button; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

  private:
    CBoardWidget& m_widget;
    int m_field;
};

class CAccessibleBoard : public QAccessibleWidget {
  public:
    explicit CAccessibleBoard(CBoardWidget* pWidget)
        : QAccessibleWidget(pWidget, QAccessible::Grouping), m_widget(*pWidget) {}
    ~CAccessibleBoard() override;

    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    int childCount() const override { return FieldCount; }
    int indexOfChild(const QAccessibleInterface* pChild) const override;
    QString text(QAccessible::Text kind) const override;

  private:
    CBoardWidget& m_widget;
    mutable std::array<QAccessible::Id, FieldCount> m_ids{};  ///< 0: not asked for yet.
};

QString CAccessibleField::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Name) {
        return {};
    }
    QString name =
        QString::fromStdString(FieldNameForReader(m_widget.Board(), m_widget.Drag(), m_field));
    if (const TSetupMarks* const pMarks = m_widget.SetupMarks()) {
        if ((pMarks->faulty & FieldBit(m_field)) != 0) {
            name += ", " + QString::fromUtf8(UserText(FaultyFieldText));
        } else if ((pMarks->doubtful & FieldBit(m_field)) != 0) {
            name += ", " + QString::fromUtf8(UserText(DoubtfulFieldText));
        }
    }
    return name;
}

QRect CAccessibleField::rect() const {
    const TRectangle square = m_widget.Geometry().FieldSquare(m_field);
    return {m_widget.mapToGlobal(QPoint(square.x, square.y)), QSize(square.width, square.height)};
}

QAccessible::State CAccessibleField::state() const {
    QAccessible::State state;
    state.focusable = true;
    state.selectable = true;
    state.selected = m_widget.Drag().SelectedField() == m_field;
    state.focused = m_widget.hasFocus() && m_widget.Drag().CursorField() == m_field;
    state.invisible = !m_widget.isVisible();
    state.disabled = !m_widget.isEnabled();
    return state;
}

void* CAccessibleField::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
}

void CAccessibleField::doAction(const QString& name) {
    if (name == pressAction()) {
        m_widget.ActivateField(m_field);
    }
}

CAccessibleBoard::~CAccessibleBoard() {
    for (const QAccessible::Id id : m_ids) {
        if (id != 0) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }
}

QAccessibleInterface* CAccessibleBoard::child(int index) const {
    if (index < 0 || index >= FieldCount) {
        return nullptr;
    }
    QAccessible::Id& id = m_ids[static_cast<std::size_t>(index)];
    if (id == 0) {
        id = QAccessible::registerAccessibleInterface(new CAccessibleField(m_widget, index));
    }
    return QAccessible::accessibleInterface(id);
}

QAccessibleInterface* CAccessibleBoard::childAt(int x, int y) const {
    const QPoint place = m_widget.mapFromGlobal(QPoint(x, y));
    return child(m_widget.Geometry().FieldUnder(place.x(), place.y()));
}

QAccessibleInterface* CAccessibleBoard::focusChild() const {
    return m_widget.hasFocus() ? child(m_widget.Drag().CursorField()) : nullptr;
}

int CAccessibleBoard::indexOfChild(const QAccessibleInterface* pChild) const {
    for (int field = 0; field < FieldCount; ++field) {
        const QAccessible::Id id = m_ids[static_cast<std::size_t>(field)];
        if (id != 0 && QAccessible::accessibleInterface(id) == pChild) {
            return field;
        }
    }
    return -1;
}

QString CAccessibleBoard::text(QAccessible::Text kind) const {
    switch (kind) {
        case QAccessible::Name:
            return UserText(BoardNameText);
        case QAccessible::Description:
            if (m_widget.SetupMarks() != nullptr) {
                return QString::fromUtf8(UserText(SettingBoardText));
            }
            return QString::fromStdString(BoardForReader(m_widget.Board()));
        case QAccessible::Help:
            return UserText(BoardHelpText);
        default:
            return QAccessibleWidget::text(kind);
    }
}

QAccessibleInterface* MakeBoardInterface(const QString& /*className*/, QObject* pObject) {
    auto* pBoard = qobject_cast<CBoardWidget*>(pObject);
    return pBoard == nullptr ? nullptr : new CAccessibleBoard(pBoard);
}

/// Null while no assistive tool is there.
QAccessibleInterface* InterfaceOf(CBoardWidget& widget) {
    return QAccessible::isActive() ? QAccessible::queryAccessibleInterface(&widget) : nullptr;
}

void Tell(QAccessibleInterface* pInterface, QAccessible::Event event) {
    QAccessibleEvent told(pInterface, event);
    QAccessible::updateAccessibility(&told);
}

}  // namespace

void InstallBoardAccessibility() {
    QAccessible::installFactory(MakeBoardInterface);  // the toolkit ignores a factory it has
}

void TellBoardChanged(CBoardWidget& widget) {
    QAccessibleInterface* pBoard = InterfaceOf(widget);
    if (pBoard == nullptr) {
        return;
    }
    TellFieldsChanged(widget, ~TFieldSet{0});
    Tell(pBoard, QAccessible::NameChanged);
    Tell(pBoard, QAccessible::DescriptionChanged);
    if (widget.Board().m_pPrevious != nullptr) {
        Tell(pBoard,
             QAccessible::Alert);  // readers speak the description, which tells the last move
    }
}

void TellFieldsChanged(CBoardWidget& widget, TFieldSet fields) {
    QAccessibleInterface* pBoard = InterfaceOf(widget);
    if (pBoard == nullptr) {
        return;
    }
    QAccessible::State selection;
    selection.selected = true;
    for (int field = 0; field < FieldCount; ++field) {
        if ((fields & FieldBit(field)) == 0) {
            continue;
        }
        QAccessibleInterface* pField = pBoard->child(field);
        Tell(pField, QAccessible::NameChanged);
        QAccessibleStateChangeEvent changed(pField, selection);
        QAccessible::updateAccessibility(&changed);
    }
}

void TellCursorMoved(CBoardWidget& widget, int field) {
    QAccessibleInterface* pBoard = InterfaceOf(widget);
    if (pBoard != nullptr && widget.hasFocus()) {
        Tell(field == NoFieldUnderMouse ? pBoard : pBoard->child(field), QAccessible::Focus);
    }
}

}  // namespace tarnwick
