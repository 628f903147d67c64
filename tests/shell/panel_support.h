#pragma once

// A window's inside with one part in it, at its smallest size, and problems to show.

#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QTest>
#include <memory>
#include <string>

#include "app/document/document.h"
#include "app/document/played_line.h"
#include "app/shell/panel.h"
#include "app/view/window_layout.h"

namespace tarnwick {

/// The language for one test.
class CLanguage {
  public:
    explicit CLanguage(LanguageId language) { g_language = language; }
    ~CLanguage() { g_language = LanguageId::English; }
    CLanguage(const CLanguage&) = delete;
    CLanguage& operator=(const CLanguage&) = delete;
};

inline constexpr LanguageId AllLanguages[] = {LanguageId::Polish, LanguageId::English,
                                              LanguageId::Ukrainian};

template <typename TPart>
class CPanelTest : public ::testing::Test {
  protected:
    CPanelTest() : m_part(&m_window) {
        g_language = LanguageId::English;
        m_input.lineHeight = m_window.fontMetrics().height();
        m_window.resize(m_input.width, m_input.height);
        PlacePart();
        m_window.show();
        m_window.activateWindow();
    }

    void PlacePart() { m_part.Place(LayOutWindow(m_input)); }
    QImage Painted() {
        QImage image(m_part.size(), QImage::Format_RGB32);
        m_part.render(&image);
        return image;
    }
    template <typename TChild>
    TChild* Child() {
        return m_part.template findChild<TChild*>();
    }

    TLayoutInput m_input;
    QWidget m_window;
    TPart m_part;
};

/// A right click there, or the keyboard's key for menus.
inline void AskForMenu(QWidget& widget, const QPoint& place,
                       QContextMenuEvent::Reason reason = QContextMenuEvent::Mouse) {
    QContextMenuEvent event(reason, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &event);
}

inline void ChangeLanguage(QWidget& window, LanguageId language) {
    g_language = language;
    QEvent event(QEvent::LanguageChange);
    QApplication::sendEvent(&window, &event);
}

/// White has king and queen, Black his king: queen takes from d1 to d7 with check.
inline std::unique_ptr<TChessProblem> NewProblem(int id, int moves = 3,
                                                 const std::wstring& description = L"") {
    auto pProblem = std::make_unique<TChessProblem>();
    pProblem->m_id = id;
    SetPlies(*pProblem, PliesOfStipulation(TProblemType::DirectMate, moves));
    pProblem->m_pBoard->m_fields[E1] = WhiteKing;
    pProblem->m_pBoard->m_fields[D1] = WhiteQueen;
    pProblem->m_pBoard->m_fields[E8] = BlackKing;
    pProblem->m_originalBoard = *pProblem->m_pBoard;
    SetDescription(*pProblem, description);
    return pProblem;
}

/// A file of problems 1 to count, described "Composer 1" and so on.
inline void Fill(CDocument& document, int count) {
    auto pList = std::make_unique<TProblemList>();
    for (int id = 1; id <= count; ++id) {
        pList->Insert(NewProblem(id, 3, L"Composer " + std::to_wstring(id)));
    }
    document.Replace("problems.cp", std::move(pList), {});
}

}  // namespace tarnwick
