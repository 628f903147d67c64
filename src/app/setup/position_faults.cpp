#include "app/setup/position_faults.h"

#include <algorithm>

#include "base/chess_exception.h"
#include "base/filled_text.h"

#include "app/document/play_texts.h"
#include "app/setup/setup_texts.h"
#include "chess/attacks.h"
#include "chess/fen.h"
#include "chess/prepare_position.h"
#include "chess/start_position.h"

namespace tarnwick {
namespace {

TFieldSet FieldsOf(const TSetupFields& fields, TFigureCode man) {
    TFieldSet found = 0;
    for (int field = 0; field < FieldCount; ++field) {
        found |= fields[static_cast<std::size_t>(field)] == man ? FieldBit(field) : 0;
    }
    return found;
}

void AddKingFault(TFieldSet kings, const TUserText& missing, const TUserText& several,
                  TPositionFault& fault) {
    if (kings == 0) {
        fault.text += UserText(missing);
    } else if ((kings & (kings - 1)) != 0) {
        fault.text += FilledText(several, {NamesOfFields(kings)});
        fault.fields |= kings;
    }
}

void FindKingFaults(const TSetupFields& fields, std::vector<TPositionFault>& faults) {
    TPositionFault fault;
    AddKingFault(FieldsOf(fields, WhiteKing), NoWhiteKingText, WhiteKingsText, fault);
    AddKingFault(FieldsOf(fields, BlackKing), NoBlackKingText, BlackKingsText, fault);
    if (!fault.text.empty()) {
        fault.text.insert(0, UserText(NumberOfKingsText));
        faults.push_back(std::move(fault));
    }
}

void FindPawnFaults(const TSetupFields& fields, std::vector<TPositionFault>& faults) {
    constexpr TFieldSet edge = 0xFF000000000000FF;
    const TFieldSet pawns = (FieldsOf(fields, WhitePawn) | FieldsOf(fields, BlackPawn)) & edge;
    if (pawns != 0) {
        faults.push_back({FilledText(PawnsOnEdgeText, {NamesOfFields(pawns)}), pawns});
    }
}

/// The men of one colour that attack the field, each tried without all the others of its colour.
template <typename TIsAttacked>
TFieldSet Attackers(const TChessboard& board, TFieldSet men, int field, TIsAttacked isAttacked) {
    TFieldSet attackers = 0;
    for (TFieldSet rest = men; rest != 0;) {
        const TFieldSet man = FieldBit(PopLowest(rest));
        attackers |= isAttacked(board, field, OccupiedFields(board), men & ~man) ? man : 0;
    }
    return attackers;
}

/// One king of each colour and no pawn on the edge: the board's sets of men are derived whatever
/// PreparePosition says of the checks.
void FindCheckFaults(const TSetupFields& fields, std::vector<TPositionFault>& faults) {
    TChessboard board = BoardOfFields(fields);
    PreparePositionNoThrow(board, true);
    const int whiteKing = WhiteKingField(board);
    const int blackKing = BlackKingField(board);
    const TFieldSet onBlack = Attackers(board, board.m_whiteMen, blackKing, IsAttackedByWhiteOver);
    const TFieldSet onWhite = Attackers(board, board.m_blackMen, whiteKing, IsAttackedByBlackOver);
    if (onBlack == 0) {
        return;
    }
    const std::string black = FieldName(blackKing);
    if (onWhite != 0) {
        faults.push_back(
            {FilledText(BothKingsAttackedText, {FieldName(whiteKing), NamesOfFields(onWhite), black,
                                                NamesOfFields(onBlack)}),
             onWhite | onBlack | FieldBit(whiteKing) | FieldBit(blackKing)});
    } else {
        faults.push_back({UserText(BlackKingCheckedText) +
                              FilledText(BlackKingCheckersText, {black, NamesOfFields(onBlack)}),
                          onBlack | FieldBit(blackKing)});
    }
}

}  // namespace

std::string NamesOfFields(TFieldSet fields) {
    std::string names;
    while (fields != 0) {
        names += (names.empty() ? "" : ", ") + FieldName(PopLowest(fields));
    }
    return names;
}

TChessboard BoardOfFields(const TSetupFields& fields) {
    TChessboard board = EmptyChessboard();
    std::ranges::copy(fields, board.m_fields);
    board.m_shPlies = board.m_shRootPlies = 1;
    return board;
}

std::vector<TPositionFault> FaultsOfPosition(const TSetupFields& fields) {
    std::vector<TPositionFault> faults;
    FindKingFaults(fields, faults);
    FindPawnFaults(fields, faults);
    if (faults.empty()) {
        FindCheckFaults(fields, faults);
    }
    if (faults.empty()) {
        try {
            TChessboard board = BoardOfFields(fields);
            CheckStartPosition(board, board.m_shPlies, true, nullptr, nullptr);
        } catch (const ChessException& error) {
            faults.push_back({error.what(), 0});
        }
    }
    return faults;
}

TPositionFault AllFaults(const std::vector<TPositionFault>& faults) {
    TPositionFault all;
    for (const TPositionFault& fault : faults) {
        all.text += (all.text.empty() ? "" : "\n") + fault.text;
        all.fields |= fault.fields;
    }
    return all;
}

}  // namespace tarnwick
