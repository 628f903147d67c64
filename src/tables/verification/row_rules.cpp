#include "tables/verification/row_rules.h"

#include <algorithm>
#include <array>
#include <span>
#include <thread>

#include "base/chess_exception.h"
#include "base/filled_text.h"

#include "chess/lines.h"
#include "tables/generation/parallel_ranges.h"
#include "tables/tables_texts.h"

namespace tarnwick {
namespace {

constexpr TFieldSet AllFields = ~TFieldSet{0};
constexpr TFieldSet EdgeFields = 0xFF818181818181FFULL;
constexpr TFieldSet CornerFields = 0x8100000000000081ULL;
constexpr std::uint64_t RowsOfPiece = 16;

/// The men of a row's letters.
struct TRowMen {
    TFieldSet white = 0;
    TFieldSet black = 0;

    TRowMen(const CTableIndex& index, const TLetterFields& fields) {
        for (std::size_t i = 0; i < index.Letters(); ++i) {
            (IsWhite(index.ManOf(i)) ? white : black) |= FieldBit(fields[i]);
        }
    }
    TFieldSet All() const { return white | black; }
};

TFieldSet AttackedFrom(TFigureCode code, int field, TFieldSet occupied) {
    const auto f = static_cast<std::size_t>(field);
    switch (TypeOf(code)) {
        case TypePawn:
            return IsWhite(code) ? WhitePawnTargets[f] : BlackPawnTargets[f];
        case TypeKnight:
            return KnightFields[f];
        case TypeBishop:
            return BishopReach(field, occupied);
        case TypeRook:
            return RookReach(field, occupied);
        default:
            return BishopReach(field, occupied) | RookReach(field, occupied);
    }
}

/// By the letters of one side, kings apart.
template <bool ByWhite>
TFieldSet AttackedFields(const CTableIndex& index, const TLetterFields& fields,
                         TFieldSet occupied) {
    TFieldSet attacked = 0;
    for (std::size_t i = 0; i < index.Letters(); ++i) {
        if (IsWhite(index.ManOf(i)) == ByWhite) {
            attacked |= AttackedFrom(index.ManOf(i), fields[i], occupied);
        }
    }
    return attacked;
}

/// Where a pawn may step when only the letters stand in its way.
template <bool White>
TFieldSet StepsOfPawn(int from, TFieldSet occupied) {
    const auto ahead = [&](TFieldSet set) { return (White ? set << 8 : set >> 8) & ~occupied; };
    const TFieldSet one = ahead(FieldBit(from));
    return RankOf(from) == (White ? 1 : 6) ? one | ahead(one) : one;
}

/// Calls visit(move) for each move of a side's letters.
template <bool ByWhite, typename TVisit>
void ForEachRowMove(const CTableIndex& index, const TLetterFields& fields, const TVisit& visit) {
    const TRowMen men(index, fields);
    const TFieldSet own = ByWhite ? men.white : men.black;
    const TFieldSet enemy = ByWhite ? men.black : men.white;
    for (std::size_t i = 0; i < index.Letters(); ++i) {
        const TFigureCode code = index.ManOf(i);
        if (IsWhite(code) != ByWhite) {
            continue;
        }
        const int from = fields[i];
        const bool bPawn = TypeOf(code) == TypePawn;
        const TFieldSet attacked = AttackedFrom(code, from, men.All());
        TFieldSet targets =
            bPawn ? (attacked & enemy) | StepsOfPawn<ByWhite>(from, men.All()) : attacked & ~own;
        while (targets != 0) {
            TRowMove move;
            move.letter = i;
            move.to = PopLowest(targets);
            for (std::size_t other = 0; other < index.Letters(); ++other) {
                move.captured = fields[other] == move.to ? static_cast<int>(other) : move.captured;
            }
            move.between = Between(from, move.to);
            move.bPromotes = bPawn && RankOf(move.to) == (ByWhite ? 7 : 0);
            move.bDoubleStep = bPawn && move.between != 0;
            visit(move);
        }
    }
}

/// Fields beside one on which a pawn of the code stands.
TFieldSet PawnsBesideField(const CTableIndex& index, const TLetterFields& fields, int field,
                           TFigureCode code) {
    const TFieldSet rank = TFieldSet{0xFF} << (field & 56);
    const TFieldSet beside = KingFields[static_cast<std::size_t>(field)] & rank;
    TFieldSet pawns = 0;
    for (std::size_t i = 0; i < index.Letters(); ++i) {
        pawns |= index.ManOf(i) == code ? FieldBit(fields[i]) & beside : 0;
    }
    return pawns;
}

/// Calls visit(node) for each type that a capture or a promotion of one side leads to.
template <typename TVisit>
void ForEachTypeAfter(const CTypeNode& node, bool bByWhite, const TVisit& visit) {
    const auto isWhite = [&](int letter) {
        return IsWhite(node.Index().ManOf(static_cast<std::size_t>(letter)));
    };
    const auto letters = static_cast<int>(node.Letters());
    for (int captured = NoMan; captured < letters; ++captured) {
        for (int pawn = NoMan; pawn < letters; ++pawn) {
            const bool bOther = (captured != NoMan && isWhite(captured) == bByWhite) ||
                                (pawn != NoMan && isWhite(pawn) != bByWhite);
            for (std::size_t figure = 0; !bOther && figure < (pawn == NoMan ? 1 : 4); ++figure) {
                const CTypeNode* pNode = node.After(captured, pawn, figure).pNode;
                if (pNode != nullptr) {
                    visit(*pNode);
                }
            }
        }
    }
}

/// Of a type without a table: the fields of the black king for which its verdict may be a mate.
///
/// Off the edge none of the verdicts by a mate in one can be one: a lone minor piece that gives check
/// attacks no field beside the king of the other colour, of which there are four; of two knights the
/// checking one attacks one field beside the king, the other two, White's king three, and a single black man
/// cannot stand on both that remain. Along the edge the two neighbours have that other colour. White's king
/// reaches at most one of them, so that one black man helps in the corners alone.
TFieldSet KingsOfVerdict(const std::string& type) {
    if (!IsPositionTypeWithoutData(type) || type == "NNr" || (type.size() > 2 && HasPawns(type))) {
        return AllFields;
    }
    if (type.size() == 1) {
        return 0;
    }
    return type.size() == 2 && type != "NN" ? CornerFields : EdgeFields;
}

template <typename Element>
void KeepLargest(Element* pInto, const Element* pFrom, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        pInto[i] = std::max(pInto[i], pFrom[i]);
    }
}

template <typename Element>
void KeepSmallest(Element* pInto, const Element* pFrom, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        pInto[i] = std::min(pInto[i], pFrom[i]);
    }
}

/// Sets the cells in which a king stands on one of the fields.
template <typename Element>
void SetKingsOn(const CRowLayout& layout, TFieldSet fields, Element value, Element* pRow) {
    while (fields != 0) {
        const int field = PopLowest(fields);
        std::fill_n(pRow + layout.Cell(field, 0), layout.WhiteKings(), value);
        const CRowLayout::TFolding& folding = layout.FoldingOf(field);
        for (int blackKing = 0; folding.bKept && blackKing < FieldCount; ++blackKing) {
            pRow[layout.Cell(blackKing, folding.whiteKing)] = value;
        }
    }
}

/// Sets the cells of one white king in which the black king stands on one of the fields.
template <typename Element>
void SetBlackKingsOn(const CRowLayout& layout, std::size_t whiteKing, TFieldSet fields,
                     Element value, Element* pRow) {
    while (fields != 0) {
        pRow[layout.Cell(PopLowest(fields), whiteKing)] = value;
    }
}

/// Where no black king can stand: on and beside White's.
TFieldSet AroundKing(int whiteKing) {
    return KingFields[static_cast<std::size_t>(whiteKing)] | FieldBit(whiteKing);
}

template <typename Element, typename TSource>
void CopyWorth(const void* pTable, std::uint64_t begin, std::size_t cells, Element* pRow) {
    const TSource* pFrom = static_cast<const TSource*>(pTable) + begin;
    constexpr auto Unsure = CRowRules<Element>::Unsure;
    for (std::size_t i = 0; i < cells; ++i) {
        const TSource value = pFrom[i];
        const auto known = static_cast<Element>(std::min<std::uint32_t>(value, Unsure));
        const bool bNone = value == 0 || value == std::numeric_limits<TSource>::max();
        pRow[i] = bNone ? CRowRules<Element>::NoMate : known;
    }
}

}  // namespace

// The types and what is kept of them.

template <typename Element>
CRowRules<Element>::CRowRules(const CTypeNode& root, const TTypeLookup& lookup) {
    m_pRoot = &Add(root, lookup);
    AddAllReached(lookup);
    for (std::size_t taken = 0; taken < root.Letters(); ++taken) {
        if (IsWhite(root.Index().ManOf(taken))) {
            continue;
        }
        for (int pawn = NoMan; pawn < static_cast<int>(root.Letters()); ++pawn) {
            for (std::size_t figure = 0; figure < (pawn == NoMan ? 1 : 4); ++figure) {
                const CTypeNode* pNode = root.After(static_cast<int>(taken), pawn, figure).pNode;
                if (pNode != nullptr) {
                    KeepReplies(*m_types.at(pNode));
                }
            }
        }
    }
    KeepReplies(*m_pRoot);
}

template <typename Element>
typename CRowRules<Element>::TTypeRows& CRowRules<Element>::Add(const CTypeNode& node,
                                                                const TTypeLookup& lookup) {
    auto pType = std::make_unique<TTypeRows>(node);
    const CTableIndex& index = node.Index();
    if (const TFoundTable* pFound = lookup(index.Type())) {
        pType->pElements = pFound->pValues->Elements();
        pType->pOnDisk = pFound->pValues->IsOnDisk() ? pFound->pValues.get() : nullptr;
        m_bUsable = m_bUsable && (pType->pElements != nullptr || pType->pOnDisk != nullptr);
        const bool bTwoBytes = index.Letters() >= 4 && pType->pElements != nullptr &&
                               (pType->pElements[0] & TwoByteElementsFlag) != 0;
        pType->elementSize = bTwoBytes ? 2 : 1;
    } else {
        pType->verdictKings = KingsOfVerdict(index.Type());
    }
    return *(m_types[&node] = std::move(pType));
}

/// Black replies in the table's own type, in those that White's moves lead to, and in those that White's
/// captures en passant in any of these lead to; and his replies lead on by one move.
template <typename Element>
void CRowRules<Element>::AddAllReached(const TTypeLookup& lookup) {
    const auto addNew = [&](const CTypeNode& node) {
        if (!m_types.contains(&node)) {
            Add(node, lookup);
        }
    };
    std::vector<const CTypeNode*> replying = {&m_pRoot->node};
    const auto addReplying = [&](const CTypeNode& node) {
        if (std::ranges::count(replying, &node) == 0) {
            replying.push_back(&node);
        }
        addNew(node);
    };
    ForEachTypeAfter(m_pRoot->node, true, addReplying);
    for (std::size_t i = 0; i < replying.size(); ++i) {
        const CTypeNode& node = *replying[i];
        for (std::size_t letter = 0; letter < node.Letters(); ++letter) {
            const CTypeNode* pNode = node.After(static_cast<int>(letter), NoMan, 0).pNode;
            if (node.Index().ManOf(letter) == BlackPawn && pNode != nullptr) {
                addReplying(*pNode);
            }
        }
    }
    for (const CTypeNode* pNode : replying) {
        ForEachTypeAfter(*pNode, false, addNew);
    }
}

template <typename Element>
void CRowRules<Element>::KeepReplies(TTypeRows& type) {
    if (type.replies.Data() == nullptr) {
        type.replies = CPageMemory(type.layout.Index().GetIndexCount() * sizeof(Element), true);
        m_kept.push_back(&type);
    }
}

template <typename Element>
bool CRowRules<Element>::Prepare(int threads, const CRunControl& control,
                                 const std::function<void(double)>& report) {
    double all = 0;
    for (const TTypeRows* pType : m_kept) {
        all += static_cast<double>(pType->layout.Index().GetIndexCount());
    }
    std::atomic<std::uint64_t> done{0};
    const auto caller = std::this_thread::get_id();
    return std::ranges::all_of(m_kept, [&](TTypeRows* pType) {
        const std::uint64_t cells = pType->layout.Cells();
        const auto computeRows = [&](std::uint64_t begin, std::uint64_t end) {
            for (std::uint64_t at = begin; at < end; at += cells) {
                ComputeRow(*pType, at);
            }
            done += end - begin;
            if (std::this_thread::get_id() == caller) {
                report(static_cast<double>(done) / all);
            }
        };
        pType->bReady = ForRanges(pType->layout.Index().GetIndexCount(), RowsOfPiece * cells,
                                  threads, control, computeRows);
        return pType->bReady;
    });
}

template <typename Element>
void CRowRules<Element>::ComputeRow(TTypeRows& type, std::uint64_t begin) {
    TLetterFields fields;
    if (!type.layout.FieldsAt(begin, fields)) {
        return;
    }
    if (type.layout.IsAscending(fields)) {
        Replies(type, fields, static_cast<Element*>(type.replies.Data()) + begin);
    } else if (&type == m_pRoot && m_bOrdersAgree) {
        TRow row;
        TRow ascending;
        StoredAt(begin, fields, row);
        StoredAt(type.layout.Begin(fields), fields, ascending);
        if (!std::equal(row.begin(), row.begin() + static_cast<std::ptrdiff_t>(type.layout.Cells()),
                        ascending.begin())) {
            m_bOrdersAgree = false;
        }
    }
}

// Rows of any type.

/// The row, kept or computed into the buffer.
template <typename Element>
const Element* CRowRules<Element>::Row(TKind kind, const TTypeRows& type,
                                       const TLetterFields& fields, Element* pBuffer) const {
    if (kind == TKind::Worth) {
        WorthAt(type, type.layout.Begin(fields), fields, pBuffer);
    } else if (type.bReady) {
        return type.Kept() + type.layout.Begin(fields);
    } else {
        Replies(type, fields, pBuffer);
    }
    return pBuffer;
}

template <typename Element>
void CRowRules<Element>::WorthAt(const TTypeRows& type, std::uint64_t begin,
                                 const TLetterFields& fields, Element* pRow) const {
    const CRowLayout& layout = type.layout;
    if (type.pOnDisk != nullptr) {
        std::array<std::uint16_t, MaxRowCells> values;
        type.pOnDisk->ReadValues(begin, std::span(values).first(layout.Cells()));
        // Cells that are no positions have values too; only what cannot be read has none.
        if (std::find(values.begin(), values.begin() + layout.Cells(), NotGenerated) !=
            values.begin() + layout.Cells()) {
            throw ChessException(FilledText(MissingTableText, {layout.Index().Type()}));
        }
        CopyWorth<Element, std::uint16_t>(values.data(), 0, layout.Cells(), pRow);
    } else if (type.pElements == nullptr) {
        std::fill_n(pRow, layout.Cells(), NoMate);
        for (TFieldSet kings = type.verdictKings; kings != 0;) {
            std::fill_n(pRow + layout.Cell(PopLowest(kings), 0), layout.WhiteKings(), Unsure);
        }
    } else if (type.elementSize == 1) {
        CopyWorth<Element, std::uint8_t>(type.pElements, begin, layout.Cells(), pRow);
    } else {
        CopyWorth<Element, std::uint16_t>(type.pElements, begin, layout.Cells(), pRow);
    }
    const TFieldSet men = TRowMen(layout.Index(), fields).All();
    SetKingsOn(layout, men, NoReply, pRow);
    for (std::size_t king = 0; king < layout.WhiteKings(); ++king) {
        const int field = layout.WhiteKingField(king);
        const TFieldSet attacked =
            AttackedFields<true>(layout.Index(), fields, men | FieldBit(field));
        SetBlackKingsOn(layout, king, attacked | AroundKing(field), NoReply, pRow);
    }
}

/// A row in the cells of `type` behind a move that leaves it. The fields are those after the move, by the
/// letters of `type`.
template <typename Element>
void CRowRules<Element>::RowThrough(TKind kind, const TTypeRows& type, const TTypeLink& link,
                                    const TLetterFields& fields, Element* pRow) const {
    const CRowLayout& layout = type.layout;
    if (link.pNode == nullptr) {
        // White's last man is gone. Elsewhere than beside his king Black's king is safe.
        std::fill_n(pRow, layout.Cells(), NoMate);
        for (std::size_t king = 0; king < layout.WhiteKings(); ++king) {
            SetBlackKingsOn(layout, king, AroundKing(layout.WhiteKingField(king)), NoReply, pRow);
        }
        return;
    }
    const TTypeRows& other = RowsOf(*link.pNode);
    const TLetterFields men = PlaceThrough(link, {0, 0, fields}).men;
    if (other.layout.Cells() == layout.Cells()) {
        const Element* pOther = Row(kind, other, men, pRow);
        if (pOther != pRow) {
            std::copy_n(pOther, layout.Cells(), pRow);
        }
        return;
    }
    std::array<std::array<Element, FieldCount * TriangleFields>, MaxFieldMaps> buffers;
    std::array<const Element*, MaxFieldMaps> rows{};
    for (std::size_t king = 0; king < layout.WhiteKings(); ++king) {
        const auto& folding = other.layout.FoldingOf(layout.WhiteKingField(king));
        const Element*& pOther = rows[folding.map];
        if (pOther == nullptr) {
            pOther = Row(kind, other, other.layout.Mapped(men, folding.map),
                         buffers[folding.map].data());
        }
        const TFieldMap& map = other.layout.Map(folding.map);
        for (int black = 0; black < FieldCount; ++black) {
            pRow[layout.Cell(black, king)] =
                pOther[other.layout.Cell(map[static_cast<std::size_t>(black)], folding.whiteKing)];
        }
    }
}

/// Replies by the black king's field for any field of the white king.
template <typename Element>
void CRowRules<Element>::ColumnOf(const TTypeRows& type, const TLetterFields& fields, int whiteKing,
                                  std::array<Element, FieldCount>& column) const {
    const CRowLayout& layout = type.layout;
    const auto& folding = layout.FoldingOf(whiteKing);
    TRow buffer;
    const Element* pRow =
        Row(TKind::Replies, type, layout.Mapped(fields, folding.map), buffer.data());
    const TFieldMap& map = layout.Map(folding.map);
    for (std::size_t black = 0; black < FieldCount; ++black) {
        column[black] = pRow[layout.Cell(map[black], folding.whiteKing)];
    }
}

/// Calls add(row) for what a move of a letter leads to; several figures for a promotion. The cells in which
/// a king is in the way are left to add.
template <typename Element>
template <typename TAdd>
void CRowRules<Element>::ForEachResult(TKind kind, const TTypeRows& type,
                                       const TLetterFields& fields, const TRowMove& move,
                                       const TAdd& add) const {
    TLetterFields after = fields;
    after[move.letter] = static_cast<std::uint8_t>(move.to);
    TRow row;
    if (move.captured == NoMan && !move.bPromotes) {
        const Element* pRow = Row(kind, type, after, row.data());
        if (pRow != row.data()) {
            std::copy_n(pRow, type.layout.Cells(), row.data());
        }
        add(row.data(), after);
        return;
    }
    const int promoted = move.bPromotes ? static_cast<int>(move.letter) : NoMan;
    for (std::size_t figure = 0; figure < (move.bPromotes ? 4 : 1); ++figure) {
        RowThrough(kind, type, type.node.After(move.captured, promoted, figure), after, row.data());
        add(row.data(), after);
    }
}

// Black's replies.

template <typename Element>
void CRowRules<Element>::Replies(const TTypeRows& type, const TLetterFields& fields,
                                 Element* pRow) const {
    std::fill_n(pRow, type.layout.Cells(), NoReply);
    AddKingReplies(type, fields, pRow);
    ForEachRowMove<false>(type.layout.Index(), fields,
                          [&](const TRowMove& move) { AddReply(type, fields, move, pRow); });
    CloseReplies(type, fields, pRow);
}

template <typename Element>
void CRowRules<Element>::AddKingReplies(const TTypeRows& type, const TLetterFields& fields,
                                        Element* pLargest) const {
    const CRowLayout& layout = type.layout;
    const std::size_t kings = layout.WhiteKings();
    TRow row;
    Row(TKind::Worth, type, fields, row.data());
    for (const TStep& step : KingSteps) {
        const int firstFile = std::max<int>(0, -step.file);
        const auto files = static_cast<std::size_t>(8 - std::abs(step.file));
        for (int rank = std::max<int>(0, -step.rank); rank < std::min(8, 8 - step.rank); ++rank) {
            const int from = rank * 8 + firstFile;
            KeepLargest(pLargest + layout.Cell(from, 0),
                        row.data() + layout.Cell(from + step.rank * 8 + step.file, 0),
                        files * kings);
        }
    }
    for (std::size_t i = 0; i < layout.Index().Letters(); ++i) {
        if (IsBlack(layout.Index().ManOf(i))) {
            continue;
        }
        RowThrough(TKind::Worth, type, type.node.After(static_cast<int>(i), NoMan, 0), fields,
                   row.data());
        for (TFieldSet from = KingFields[fields[i]]; from != 0;) {
            KeepLargest(pLargest + layout.Cell(PopLowest(from), 0),
                        row.data() + layout.Cell(fields[i], 0), kings);
        }
    }
}

template <typename Element>
void CRowRules<Element>::AddReply(const TTypeRows& type, const TLetterFields& fields,
                                  const TRowMove& move, Element* pLargest) const {
    ForEachResult(TKind::Worth, type, fields, move, [&](Element* pRow, const TLetterFields& after) {
        if (move.bDoubleStep) {
            ShortenByEnPassant(type, after, move.letter, pRow);
        }
        SetKingsOn(type.layout, move.between, NoReply, pRow);
        KeepLargest(pLargest, pRow, type.layout.Cells());
    });
}

/// White pawns beside a black one that has just made its double step may take it.
template <typename Element>
void CRowRules<Element>::ShortenByEnPassant(const TTypeRows& type, const TLetterFields& after,
                                            std::size_t stepped, Element* pRow) const {
    const CTableIndex& index = type.layout.Index();
    const TFieldSet takers = PawnsBesideField(index, after, after[stepped], WhitePawn);
    for (std::size_t i = 0; i < index.Letters(); ++i) {
        if (index.ManOf(i) != WhitePawn || (FieldBit(after[i]) & takers) == 0) {
            continue;
        }
        TLetterFields taken = after;
        taken[i] = static_cast<std::uint8_t>(after[stepped] + 8);
        TRow replies;
        RowThrough(TKind::Replies, type, type.node.After(static_cast<int>(stepped), NoMan, 0),
                   taken, replies.data());
        for (std::size_t cell = 0; cell < type.layout.Cells(); ++cell) {
            const Element length = replies[cell] == Ask ? Unsure : replies[cell];
            pRow[cell] = std::min(pRow[cell], length);
        }
    }
}

/// From Black's largest Worth to Replies.
template <typename Element>
void CRowRules<Element>::CloseReplies(const TTypeRows& type, const TLetterFields& fields,
                                      Element* pRow) const {
    const CRowLayout& layout = type.layout;
    const CTableIndex& index = layout.Index();
    const TFieldSet men = TRowMen(index, fields).All();
    for (std::size_t i = 0; i < layout.Cells(); ++i) {
        const auto next = static_cast<Element>(pRow[i] + 1);
        pRow[i] = pRow[i] == NoMate ? Never : (pRow[i] == Unsure ? Ask : next);
    }
    for (std::size_t king = 0; king < layout.WhiteKings(); ++king) {
        const int field = layout.WhiteKingField(king);
        TFieldSet safe = ~AttackedFields<true>(index, fields, men | FieldBit(field));
        while (safe != 0) {
            Element& cell = pRow[layout.Cell(PopLowest(safe), king)];
            cell = cell == 1 ? Never : cell;  // stalemate
        }
        SetBlackKingsOn(layout, king, AroundKing(field), Never, pRow);
    }
    SetKingsOn(layout, men, Never, pRow);
    for (int black = 0; black < FieldCount; ++black) {
        const TFieldSet attacked = AttackedFields<false>(index, fields, men | FieldBit(black));
        for (std::size_t king = 0; king < layout.WhiteKings(); ++king) {
            Element& cell = pRow[layout.Cell(black, king)];
            const bool bAttacked = (attacked & FieldBit(layout.WhiteKingField(king))) != 0;
            cell = bAttacked ? Never : cell;
        }
    }
}

// White's moves.

template <typename Element>
void CRowRules<Element>::Expected(const TLetterFields& fields, TRow& row) const {
    std::fill_n(row.begin(), Layout().Cells(), Never);
    TryKing(fields, row.data());
    ForEachRowMove<true>(Layout().Index(), fields,
                         [&](const TRowMove& move) { TryMove(fields, move, row.data()); });
}

template <typename Element>
void CRowRules<Element>::TryKing(const TLetterFields& fields, Element* pBest) const {
    const CTableIndex& index = Layout().Index();
    const TFieldSet white = TRowMen(index, fields).white;
    for (TFieldSet targets = ~white; targets != 0;) {
        const int to = PopLowest(targets);
        const auto taken = std::find(fields.begin(), fields.begin() + index.Letters(), to);
        std::array<Element, FieldCount> column;
        if (taken == fields.begin() + index.Letters()) {
            ColumnOf(*m_pRoot, fields, to, column);
        } else {
            const auto captured = static_cast<int>(taken - fields.begin());
            const TTypeLink& link = m_pRoot->node.After(captured, NoMan, 0);
            ColumnOf(RowsOf(*link.pNode), PlaceThrough(link, {0, 0, fields}).men, to, column);
        }
        for (std::size_t king = 0; king < Layout().WhiteKings(); ++king) {
            const int from = Layout().WhiteKingField(king);
            for (int black = 0; KingDistance(from, to) == 1 && black < FieldCount; ++black) {
                Element& cell = pBest[Layout().Cell(black, king)];
                cell = std::min(cell, column[static_cast<std::size_t>(black)]);
            }
        }
    }
}

template <typename Element>
void CRowRules<Element>::TryMove(const TLetterFields& fields, const TRowMove& move,
                                 Element* pBest) const {
    const CRowLayout& layout = Layout();
    if (move.bDoubleStep && PawnsBesideField(layout.Index(), fields, move.to, BlackPawn) != 0) {
        TRow row;
        std::fill_n(row.data(), layout.Cells(), Ask);
        SetKingsOn(layout, move.between | FieldBit(move.to), Never, row.data());
        KeepSmallest(pBest, row.data(), layout.Cells());
        return;
    }
    ForEachResult(TKind::Replies, *m_pRoot, fields, move, [&](Element* pRow, const TLetterFields&) {
        SetKingsOn(layout, move.between, Never, pRow);
        KeepSmallest(pBest, pRow, layout.Cells());
    });
}

template class CRowRules<std::uint8_t>;
template class CRowRules<std::uint16_t>;

}  // namespace tarnwick
