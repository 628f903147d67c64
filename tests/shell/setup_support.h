#pragma once
// Problems to set up, to copy and to paste.

#include <gtest/gtest.h>

#include "app/clipboard/copied_text.h"
#include "window_support.h"

namespace tarnwick {

/// A window with a file of one mate in two: a rook mates on the eighth rank.
struct TSetupWindow : TTestWindow {
    explicit TSetupWindow(const std::string& placement = "7k/8/5K2/8/8/8/8/R7") {
        std::ofstream(folder / "one.cp")
            << "UTF-8\n5 #2\n{\n\tDesc: Composer\n\tFEN: " << placement << "\n}\n";
        Open(folder / "one.cp");
        dialog.m_told.clear();
    }
    CBoardWidget& Board() { return pWindow->Board(); }
    CSetupPanel& Panel() { return pWindow->SetupPanel(); }
    bool IsSetting() { return pWindow->Setup().IsActive(); }

    /// Placement of the problem's men.
    std::string Placement() {
        TSetupFields fields{};
        std::ranges::copy(Problem().m_pBoard->m_fields, fields.begin());
        return CopiedFen(fields, true);
    }
    /// Placement of the men that are being set up.
    std::string SetPlacement() { return CopiedFen(pWindow->Setup().Setup().Fields(), true); }

    QPoint Centre(int field) {
        const TRectangle square = Board().Geometry().FieldSquare(field);
        return {square.x + square.width / 2, square.y + square.height / 2};
    }
    void Click(int field, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(&Board(), button, {}, Centre(field));
    }
    /// Presses in one widget, drags and lets go at a place of the board, as the mouse does: its widget
    /// gets all three.
    void Drag(QWidget& from, const QPoint& start, const QPoint& endOnBoard) {
        QTest::mousePress(&from, Qt::LeftButton, {}, start);
        const QPoint end = from.mapFromGlobal(Board().mapToGlobal(endOnBoard));
        for (const QPoint& place : {(start + end) / 2, end}) {
            QMouseEvent move(QEvent::MouseMove, place, from.mapToGlobal(place), Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(&from, &move);
        }
        QTest::mouseRelease(&from, Qt::LeftButton, {}, end);
    }
    bool WasTold(const std::string& part) {
        return std::ranges::any_of(dialog.m_told, [&](const std::string& text) {
            return text.find(part) != std::string::npos;
        });
    }
    bool StatusHas(const char* part) { return pWindow->BottomBar().Status().contains(part); }
};

}  // namespace tarnwick
