#include "app/setup/setup_hand.h"

#include "chess/fen.h"

namespace tarnwick {

void CSetupHand::Reset() {
    DropHeld();
    DropStamp();
}

void CSetupHand::DropHeld() {
    m_fromPalette.reset();
    m_from = NoFieldUnderMouse;
}

void CSetupHand::PressPalette(TFigureCode man) {
    DropHeld();
    m_fromPalette = man;
}

void CSetupHand::PressBoard(int field, bool bRightButton) {
    DropHeld();
    if (bRightButton) {
        m_setup.Put(field, EmptyField);
    } else {
        m_from = field;
    }
}

void CSetupHand::Release(int field, bool bOverPalette) {
    const std::optional<TFigureCode> fromPalette = m_fromPalette;
    const int from = m_from;
    DropHeld();
    if (fromPalette) {
        if (bOverPalette) {
            ToggleStamp(*fromPalette);
        } else if (field != NoFieldUnderMouse) {
            m_setup.Put(field, *fromPalette);
        }
    } else if (from != NoFieldUnderMouse) {
        if (from == field || (field != NoFieldUnderMouse && m_setup.ManOn(from) == EmptyField)) {
            Click(field);
        } else if (field == NoFieldUnderMouse) {
            m_setup.Put(from, EmptyField);
        } else {
            m_setup.Move(from, field);
        }
    }
}

void CSetupHand::Click(int field) {
    if (m_stamp) {
        m_setup.Put(field, *m_stamp);
    } else {
        m_setup.Confirm(field);
    }
}

void CSetupHand::ToggleStamp(TFigureCode man) {
    if (m_stamp == man) {
        m_stamp.reset();
    } else {
        m_stamp = man;
    }
}

TFigureCode CSetupHand::Held() const {
    if (m_fromPalette) {
        return *m_fromPalette;
    }
    return m_from == NoFieldUnderMouse ? EmptyField : m_setup.ManOn(m_from);
}

TFigureCode ManOfLetter(char32_t letter) {
    struct TUkrainian {
        char32_t capital;
        char32_t small;
        TFigureCode type;
    };
    constexpr TUkrainian Ukrainian[] = {{U'Р', U'р', TypeKing},   {U'Ф', U'ф', TypeQueen},
                                        {U'Т', U'т', TypeRook},   {U'С', U'с', TypeBishop},
                                        {U'К', U'к', TypeKnight}, {U'П', U'п', TypePawn}};
    for (const TUkrainian& row : Ukrainian) {
        if (letter == row.capital || letter == row.small) {
            return static_cast<TFigureCode>(row.type |
                                            (letter == row.capital ? WhiteFlag : BlackFlag));
        }
    }
    if (letter > 0x7F) {
        return EmptyField;
    }
    const TFigureCode type = FigureTypeOfLetter(static_cast<char>(letter));
    const bool bCapital = letter < U'a';
    return type == 0 ? EmptyField
                     : static_cast<TFigureCode>(type | (bCapital ? WhiteFlag : BlackFlag));
}

}  // namespace tarnwick
