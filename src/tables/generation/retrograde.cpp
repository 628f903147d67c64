#include "tables/generation/retrograde.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <thread>

#include "tables/generation/conversions.h"
#include "tables/generation/parallel_ranges.h"

namespace tarnwick {
namespace {

// States of a position with Black to move. From 1 to MaxOpen it is the number of open replies.

/// Lost and done with, or never lost: an illegal position, stalemate, or a reply that saves.
constexpr std::uint8_t Settled = 0;
/// No side of four men has more moves.
constexpr std::uint8_t MaxOpen = 199;
/// Lost; its white moves are taken back in the coming pass.
constexpr std::uint8_t JustLost = 200;
/// Lost in a number of moves that is still to come: that number modulo WaitCycle is added.
constexpr std::uint8_t WaitBase = 201;
constexpr unsigned WaitCycle = 50;
/// The same, but too far ahead to be told apart; it is looked at again now and then.
constexpr std::uint8_t WaitsLong = 251;
constexpr unsigned LongWaitCheck = WaitCycle / 2;

constexpr std::uint64_t PreparePiece = 1 << 14;
/// A promotion to one figure costs as much as so many other places: all of Black's replies are looked up.
constexpr std::uint64_t WorkOfPromotion = 8;
/// First field of the rank before a white pawn's promotion.
constexpr int SeventhRank = 48;
constexpr std::uint64_t ScanPiece = 1 << 18;

bool IsOpen(std::uint8_t state) {
    return state != Settled && state <= MaxOpen;
}

}  // namespace

template <typename Element>
CRetrograde<Element>::CRetrograde(const CTypeNode& node, TGenerationSettings settings,
                                  TBeforePromotions beforePromotions)
    : m_node(node),
      m_type(node.Index()),
      m_settings(std::move(settings)),
      m_beforePromotions(std::move(beforePromotions)),
      m_white(m_type.GetIndexCount() * sizeof(Element), true),
      m_black(m_type.GetIndexCount(), true) {}

template <typename Element>
bool CRetrograde<Element>::ForAll(std::uint64_t pieceSize,
                                  const std::function<void(std::uint64_t, std::uint64_t)>& work) {
    return ForRanges(m_type.GetIndexCount(), pieceSize, m_settings.threads, *m_settings.pControl,
                     work);
}

template <typename Element>
typename CRetrograde<Element>::TEnd CRetrograde<Element>::Run() {
    if (!m_bPrepared) {
        if (!Prepare()) {
            return TEnd::Stopped;
        }
        m_bPrepared = true;
    } else {
        m_beforePromotions(BlackPromotes);
    }
    do {
        if (!m_settings.pControl->MayGoOn()) {
            return TEnd::Stopped;
        }
        if (m_nPass + 1 == Unset - 1U) {
            return TEnd::NeedsWiderElements;
        }
        // A pass that was cut in two could not be told from a whole one, so it runs to its end.
    } while (Pass());
    return TEnd::Complete;
}

// The start.

/// How much of the preparation is done, reported by the thread that began it.
template <typename Element>
class CRetrograde<Element>::CPreparedShare {
  public:
    CPreparedShare(const TGenerationSettings& settings, std::uint64_t all)
        : m_settings(settings), m_all(static_cast<double>(all)) {}

    void Add(std::uint64_t places) {
        TGenerationProgress progress;
        progress.prepared = static_cast<double>(m_done += places) / m_all;
        if (std::this_thread::get_id() == m_caller) {
            m_settings.report(progress);
        }
    }

  private:
    const TGenerationSettings& m_settings;
    double m_all;
    std::atomic<std::uint64_t> m_done{0};
    std::thread::id m_caller = std::this_thread::get_id();
};

template <typename Element>
bool CRetrograde<Element>::Prepare() {
    m_stepped.clear();
    m_white.Reset();
    CPreparedShare share(m_settings,
                         m_type.GetIndexCount() + 4 * WorkOfPromotion * PlacesBeforePromotion());
    for (std::size_t figure = 0; figure < 4 && PlacesBeforePromotion() != 0; ++figure) {
        m_beforePromotions(figure);
        if (!PreparePromotions(figure, share)) {
            return false;
        }
    }
    m_beforePromotions(BlackPromotes);
    return PrepareAllElse(share);
}

/// Indices with a white pawn before its promotion, those with two of them counted twice.
template <typename Element>
std::uint64_t CRetrograde<Element>::PlacesBeforePromotion() const {
    std::uint64_t places = 0;
    for (std::size_t i = 0; i < m_type.Letters(); ++i) {
        if (m_type.ManOf(i) == WhitePawn) {
            places += m_type.Stride(i) == 0 ? m_type.GetIndexCount()
                                            : m_type.GetIndexCount() / PawnFields * 8;
        }
    }
    return places;
}

/// Looks at the places with one white pawn on the seventh rank, one pawn after another.
template <typename Element>
bool CRetrograde<Element>::PreparePromotions(std::size_t figure, CPreparedShare& share) {
    bool bDone = true;
    for (std::size_t pawn = 0; pawn < m_type.Letters() && bDone; ++pawn) {
        if (m_type.ManOf(pawn) != WhitePawn) {
            continue;
        }
        // The fields of a rank follow one another in the pawn's digit; a set of pawns has none.
        const std::uint64_t stride = m_type.Stride(pawn);
        const std::uint64_t run = stride == 0 ? m_type.GetIndexCount() : 8 * stride;
        const std::uint64_t cycle = stride == 0 ? run : PawnFields * stride;
        const std::uint64_t first = stride == 0 ? 0 : (SeventhRank - FirstPawnField) * stride;
        const std::uint64_t places = m_type.GetIndexCount() / cycle * run;
        bDone = ForRanges(places, PreparePiece / WorkOfPromotion, m_settings.threads,
                          *m_settings.pControl, [&](std::uint64_t begin, std::uint64_t end) {
                              for (std::uint64_t i = begin; i < end; ++i) {
                                  PreparePromotion(i / run * cycle + first + i % run, pawn, figure);
                              }
                              share.Add((end - begin) * WorkOfPromotion);
                          });
    }
    return bDone;
}

/// The elements are as they came, so that 0 still means that nothing is known.
template <typename Element>
void CRetrograde<Element>::PreparePromotion(std::uint64_t index, std::size_t pawn,
                                            std::size_t figure) {
    TTablePlace place;
    if (!m_type.PlaceOfIndex(index, place) || !IsFirstOrder(place) ||
        RankOf(place.men[pawn]) != RankOf(SeventhRank)) {
        return;
    }
    const TMen men = MenAt(m_type, place);
    if (IsKingAttacked<false>(m_type, men)) {
        return;
    }
    ForEachMove<true, TMovesWanted::CapturesAndPawns>(
        m_type, men, [&](const TMenMove& move, const TMen& after) {
            if (move.bPromotes && move.man == static_cast<int>(pawn)) {
                if (White(index).load(std::memory_order_relaxed) == 0) {
                    White(index).store(Unset, std::memory_order_relaxed);
                }
                SetMate(index, ValueOfConversion(m_node, move, after, figure));
            }
            return true;
        });
}

template <typename Element>
bool CRetrograde<Element>::PrepareAllElse(CPreparedShare& share) {
    return ForAll(PreparePiece, [&](std::uint64_t begin, std::uint64_t end) {
        std::vector<TSteppedReply> stepped;
        TTablePlace place;
        for (std::uint64_t index = begin; index < end; ++index) {
            const bool bPosition = m_type.PlaceOfIndex(index, place) && IsFirstOrder(place);
            SetState(index, Settled);
            if (bPosition) {
                PrepareBlack(index, place, stepped);
                PrepareWhite(index, place);
            }
        }
        if (!stepped.empty()) {
            const std::scoped_lock guard(m_steppedLock);
            m_stepped.insert(m_stepped.end(), stepped.begin(), stepped.end());
        }
        share.Add(end - begin);
    });
}

template <typename Element>
void CRetrograde<Element>::PrepareBlack(std::uint64_t index, const TTablePlace& place,
                                        std::vector<TSteppedReply>& stepped) {
    const TMen men = MenAt(m_type, place);
    if (IsKingAttacked<true>(m_type, men)) {
        return;
    }
    TReplyValues leaving;
    int open = 0;
    const std::size_t firstStepped = stepped.size();
    ForEachMove<false>(m_type, men, [&](const TMenMove& move, const TMen& after) {
        if (!move.IsQuiet()) {
            leaving.Add(ValueAfterReply(m_node, move, after));
            return !leaving.bSaved;
        }
        ++open;
        const bool bPawn =
            move.man != KingMan && m_type.ManOf(static_cast<std::size_t>(move.man)) == BlackPawn;
        if (IsDoubleStep(bPawn, move.from, move.to) &&
            PawnsBeside(m_type, after, move.to, true) != 0) {
            stepped.push_back(
                {index, IndexOf(after.place), EnPassantValue(m_node, after, move.man)});
        }
        return true;
    });
    if (leaving.bSaved) {
        stepped.resize(firstStepped);
        return;
    }
    assert(open <= MaxOpen);
    if (open != 0) {
        SetState(index, static_cast<std::uint8_t>(open));
    } else if (leaving.bAny) {
        SetLost(index, leaving.longest);
    } else if (IsKingAttacked<false>(m_type, men)) {
        SetState(index, JustLost);
    }
}

template <typename Element>
void CRetrograde<Element>::PrepareWhite(std::uint64_t index, const TTablePlace& place) {
    const TMen men = MenAt(m_type, place);
    if (IsKingAttacked<false>(m_type, men)) {
        return;
    }
    if (White(index).load(std::memory_order_relaxed) == 0) {
        White(index).store(Unset, std::memory_order_relaxed);
    }
    ForEachMove<true, TMovesWanted::CapturesAndPawns>(m_type, men,
                                                      [&](const TMenMove& move, const TMen& after) {
                                                          PrepareWhiteMove(index, move, after);
                                                          return true;
                                                      });
}

template <typename Element>
void CRetrograde<Element>::PrepareWhiteMove(std::uint64_t index, const TMenMove& move,
                                            const TMen& after) {
    if (move.bPromotes) {
        return;  // Looked up before.
    }
    if (move.captured != NoMan) {
        SetMate(index, ValueOfConversion(m_node, move, after));
        return;
    }
    const bool bPawn =
        move.man != KingMan && m_type.ManOf(static_cast<std::size_t>(move.man)) == WhitePawn;
    if (!IsDoubleStep(bPawn, move.from, move.to) ||
        PawnsBeside(m_type, after, move.to, false) == 0) {
        return;
    }
    // The step is taken back like any other where Black is lost by his other replies. Where he has none
    // and stands in no check, only the capture en passant saves him from stalemate.
    const bool bOtherReply =
        !ForEachMove<false>(m_type, after, [](const TMenMove&, const TMen&) { return false; });
    if (!bOtherReply && !IsKingAttacked<false>(m_type, after)) {
        const TReplyValues replies = EnPassantReplies(m_node, after, move.man);
        if (replies.bAny && !replies.bSaved) {
            SetMate(index, replies.longest + 1);
        }
    }
}

/// Keeps the shorter mate. 0 moves is no mate; a position that cannot arise stays so.
template <typename Element>
void CRetrograde<Element>::SetMate(std::uint64_t index, unsigned value) {
    if (value == 0) {
        return;
    }
    // What does not fit waits for a pass that is never reached: the run asks for wider elements before.
    const auto wanted = static_cast<Element>(std::min<unsigned>(value, Unset - 1U));
    std::atomic_ref<Element> element = White(index);
    Element known = element.load(std::memory_order_relaxed);
    while (known > wanted &&
           !element.compare_exchange_weak(known, wanted, std::memory_order_relaxed)) {
    }
    if (known > wanted && value > m_nPass) {
        unsigned last = m_nLastWaiting.load(std::memory_order_relaxed);
        while (last < value && !m_nLastWaiting.compare_exchange_weak(last, value)) {
        }
    }
}

/// Black is lost in so many moves, which may lie ahead of the present pass.
template <typename Element>
void CRetrograde<Element>::SetLost(std::uint64_t index, unsigned moves) {
    if (moves <= m_nPass) {
        SetState(index, JustLost);
        m_bMoved = true;
        return;
    }
    SetState(index, moves - m_nPass < WaitCycle
                        ? static_cast<std::uint8_t>(WaitBase + moves % WaitCycle)
                        : WaitsLong);
    unsigned last = m_nLastWaiting.load(std::memory_order_relaxed);
    while (last < moves + 1 && !m_nLastWaiting.compare_exchange_weak(last, moves + 1)) {
    }
}

// The passes.

template <typename Element>
bool CRetrograde<Element>::Pass() {
    const std::uint64_t count = m_type.GetIndexCount();
    ++m_nPass;
    m_bMoved = false;
    ForRanges(count, ScanPiece, m_settings.threads, NeverStopped,
              [&](std::uint64_t begin, std::uint64_t end) { TakeBackFrom(begin, end); });
    ForRanges(count, ScanPiece, m_settings.threads, NeverStopped,
              [&](std::uint64_t begin, std::uint64_t end) { CloseRepliesTo(begin, end); });
    SettleSteppedReplies();
    TGenerationProgress progress;
    progress.bPreparing = false;
    progress.pass = m_nPass;
    progress.found = m_nFound;
    m_settings.report(progress);
    return m_bMoved || m_nPass < m_nLastWaiting;
}

/// White's half of a pass. Others write no state of this range meanwhile, so it is read eight at a time.
template <typename Element>
void CRetrograde<Element>::TakeBackFrom(std::uint64_t begin, std::uint64_t end) {
    const auto nowLost = static_cast<std::uint8_t>(WaitBase + (m_nPass - 1) % WaitCycle);
    const bool bCheckLong = m_nPass % LongWaitCheck == 0;
    const auto* pStates = static_cast<const std::uint8_t*>(m_black.Data());
    for (std::uint64_t index = begin; index < end; ++index) {
        if (index % 8 == 0 && index + 8 <= end) {
            std::uint64_t eight;
            std::memcpy(&eight, pStates + index, sizeof(eight));
            if ((eight & 0x8080808080808080ULL) ==
                0) {  // None above MaxOpen, which has the top bit.
                index += 7;
                continue;
            }
        }
        const std::uint8_t state = pStates[index];
        if (state == JustLost || state == nowLost) {
            SetState(index, Settled);
            TakeBackWhite(index);
        } else if (state == WaitsLong && bCheckLong) {
            CloseReply(index);
        }
    }
}

/// Black's half. Nobody writes mates meanwhile.
template <typename Element>
void CRetrograde<Element>::CloseRepliesTo(std::uint64_t begin, std::uint64_t end) {
    const auto* pMates = static_cast<const Element*>(m_white.Data());
    std::uint64_t found = 0;
    for (std::uint64_t index = begin; index < end; ++index) {
        if constexpr (sizeof(Element) == 1) {
            const void* pNext = std::memchr(pMates + index, static_cast<int>(m_nPass), end - index);
            if (pNext == nullptr) {
                break;
            }
            index = static_cast<std::uint64_t>(static_cast<const Element*>(pNext) - pMates);
        } else if (pMates[index] != m_nPass) {
            continue;
        }
        TakeBackBlack(index);
        ++found;
    }
    m_nFound += found;
}

template <typename Element>
void CRetrograde<Element>::TakeBackWhite(std::uint64_t index) {
    TTablePlace place;
    m_type.PlaceOfIndex(index, place);
    const TMen men = MenAt(m_type, place);
    const TFieldSet occupied = men.Occupied();
    for (TFieldSet origins = KingFields[place.whiteKing] & ~occupied; origins != 0;) {
        SetMateBeforeKingMove(men, PopLowest(origins));
    }
    for (std::size_t i = 0; i < m_type.Letters(); ++i) {
        const TFigureCode code = m_type.ManOf(i);
        if (!IsWhite(code)) {
            continue;
        }
        const int field = place.men[i];
        for (TFieldSet origins = OriginsOf<true>(code, field, occupied); origins != 0;) {
            const int from = PopLowest(origins);
            unsigned value = m_nPass;
            if (IsDoubleStep(code == WhitePawn, from, field)) {
                const TReplyValues replies = EnPassantReplies(m_node, men, static_cast<int>(i));
                if (replies.bSaved) {
                    continue;
                }
                value = std::max(value, replies.longest + 1);
            }
            SetMate(MovedIndex(index, men, static_cast<int>(i), from, true), value);
        }
    }
}

/// With the white king on the diagonal a position and its mirror image have an index each.
template <typename Element>
void CRetrograde<Element>::SetMateBeforeKingMove(const TMen& men, int from) {
    TTablePlace place = men.place;
    place.whiteKing = static_cast<std::uint8_t>(from);
    m_type.Fold(place);
    SetMate(IndexOf(place), m_nPass);
    if (!m_type.HasPawns() && FileOf(place.whiteKing) == RankOf(place.whiteKing)) {
        place.blackKing = SwapFileAndRank(place.blackKing);
        for (std::size_t i = 0; i < m_type.Letters(); ++i) {
            place.men[i] = SwapFileAndRank(place.men[i]);
        }
        SetMate(IndexOf(place), m_nPass);
    }
}

template <typename Element>
void CRetrograde<Element>::TakeBackBlack(std::uint64_t index) {
    TTablePlace place;
    m_type.PlaceOfIndex(index, place);
    const TMen men = MenAt(m_type, place);
    const TFieldSet occupied = men.Occupied();
    for (TFieldSet origins = KingFields[place.blackKing] & ~occupied; origins != 0;) {
        CloseReply(MovedIndex(index, men, KingMan, PopLowest(origins), false));
    }
    for (std::size_t i = 0; i < m_type.Letters(); ++i) {
        const TFigureCode code = m_type.ManOf(i);
        if (!IsBlack(code)) {
            continue;
        }
        const int field = place.men[i];
        for (TFieldSet origins = OriginsOf<false>(code, field, occupied); origins != 0;) {
            const int from = PopLowest(origins);
            const bool bListed = IsDoubleStep(code == BlackPawn, from, field) &&
                                 PawnsBeside(m_type, men, field, true) != 0;
            if (!bListed) {
                CloseReply(MovedIndex(index, men, static_cast<int>(i), from, false));
            }
        }
    }
}

template <typename Element>
void CRetrograde<Element>::SettleSteppedReplies() {
    std::erase_if(m_stepped, [&](const TSteppedReply& reply) {
        const Element value = White(reply.after).load(std::memory_order_relaxed);
        const bool bByTable = value != 0 && value <= m_nPass;
        const bool bEnPassant = reply.enPassant != 0 && reply.enPassant <= m_nPass;
        if (bByTable || bEnPassant) {
            CloseReply(reply.before);
        } else if (reply.enPassant > m_nPass) {
            m_nLastWaiting =
                std::max(m_nLastWaiting.load(), static_cast<unsigned>(reply.enPassant));
        }
        return bByTable || bEnPassant;
    });
}

/// One reply more is answered by a mate. Behind the last one, or for a position that waits long, the
/// replies that leave the type tell how long Black holds out.
template <typename Element>
void CRetrograde<Element>::CloseReply(std::uint64_t index) {
    std::atomic_ref<std::uint8_t> state = Black(index);
    const std::uint8_t known = state.load(std::memory_order_relaxed);
    if (known != WaitsLong) {
        if (!IsOpen(known) || state.fetch_sub(1, std::memory_order_relaxed) != 1) {
            return;
        }
    }
    TTablePlace place;
    m_type.PlaceOfIndex(index, place);
    const TMen men = MenAt(m_type, place);
    TReplyValues leaving;
    ForEachMove<false, TMovesWanted::CapturesAndPawns>(
        m_type, men, [&](const TMenMove& move, const TMen& after) {
            if (!move.IsQuiet()) {
                leaving.Add(ValueAfterReply(m_node, move, after));
            }
            return true;
        });
    SetLost(index, std::max(leaving.longest, known == WaitsLong ? 0 : m_nPass));
}

// Indices.

template <typename Element>
bool CRetrograde<Element>::IsFirstOrder(const TTablePlace& place) const {
    for (std::size_t i = 1; i < m_type.Letters(); ++i) {
        if (m_type.IsLikeBefore(i) && place.men[i] < place.men[i - 1]) {
            return false;
        }
    }
    return true;
}

template <typename Element>
std::uint64_t CRetrograde<Element>::IndexOf(TTablePlace place) const {
    m_type.SortLikeMen(place);
    return m_type.IndexOfFolded(place);
}

/// The index with one man, not the white king, on another field.
template <typename Element>
std::uint64_t CRetrograde<Element>::MovedIndex(std::uint64_t index, const TMen& men, int man,
                                               int to, bool bWhite) const {
    if (man == KingMan) {
        assert(!bWhite);
        return index +
               static_cast<std::uint64_t>(to - men.place.blackKing) * m_type.BlackKingStride();
    }
    const auto letter = static_cast<std::size_t>(man);
    const bool bAlone = !m_type.IsLikeBefore(letter) &&
                        (letter + 1 == m_type.Letters() || !m_type.IsLikeBefore(letter + 1));
    if (bAlone) {
        return index +
               static_cast<std::uint64_t>(to - men.place.men[letter]) * m_type.Stride(letter);
    }
    TTablePlace place = men.place;
    FieldOfMan(place, man, bWhite) = static_cast<std::uint8_t>(to);
    return IndexOf(place);
}

// The end.

template <typename Element>
CPageMemory CRetrograde<Element>::TakeTable() {
    const bool bComplete = m_bPrepared && !m_bMoved && m_nPass >= m_nLastWaiting && m_nPass > 0;
    m_black.Reset();
    ForRanges(m_type.GetIndexCount(), ScanPiece, m_settings.threads, NeverStopped,
              [&](std::uint64_t begin, std::uint64_t end) {
                  for (std::uint64_t index = begin; index < end; ++index) {
                      const Element value = White(index).load(std::memory_order_relaxed);
                      if (bComplete && value == Unset) {
                          White(index) = 0;
                      } else if (!bComplete && value > m_nPass) {
                          White(index) = Unset;
                      }
                  }
              });
    if (m_type.HasLikeMen() && !m_type.UsesCombinations()) {
        CopyOrders();
    }
    const std::uint8_t flags = static_cast<std::uint8_t>(
        (m_type.Flags() & ~TwoByteElementsFlag) | (sizeof(Element) == 2 ? TwoByteElementsFlag : 0));
    White(0) = flags;
    return std::move(m_white);
}

template <typename Element>
void CRetrograde<Element>::CopyOrders() {
    ForRanges(m_type.GetIndexCount(), ScanPiece, m_settings.threads, NeverStopped,
              [&](std::uint64_t begin, std::uint64_t end) {
                  TTablePlace place;
                  for (std::uint64_t index = begin; index < end; ++index) {
                      if (m_type.PlaceOfIndex(index, place) && !IsFirstOrder(place)) {
                          White(index) = White(IndexOf(place)).load(std::memory_order_relaxed);
                      }
                  }
              });
}

// A stopped run.

template <typename Element>
void CRetrograde<Element>::Save(const std::function<void(const void*, std::size_t)>& write) const {
    const std::uint64_t head[] = {m_type.GetIndexCount(), m_bPrepared ? 1U : 0U, m_nPass,
                                  m_nLastWaiting.load(),  m_nFound.load(),       m_stepped.size()};
    write(head, sizeof(head));
    if (!m_bPrepared) {
        return;
    }
    write(m_stepped.data(), m_stepped.size() * sizeof(TSteppedReply));
    write(m_white.Data(), m_type.GetIndexCount() * sizeof(Element));
    write(m_black.Data(), m_type.GetIndexCount());
}

template <typename Element>
bool CRetrograde<Element>::Load(const std::function<bool(void*, std::size_t)>& read) {
    const std::uint64_t count = m_type.GetIndexCount();
    std::uint64_t head[6];
    if (!read(head, sizeof(head)) || head[0] != count || head[1] > 1 || head[2] >= Unset ||
        head[3] > NotGenerated || head[5] > count) {
        return false;
    }
    if (head[1] == 0) {
        return true;
    }
    m_stepped.resize(head[5]);
    bool bWhole = read(m_stepped.data(), m_stepped.size() * sizeof(TSteppedReply)) &&
                  read(m_white.Data(), count * sizeof(Element)) && read(m_black.Data(), count);
    bWhole = bWhole && std::ranges::all_of(m_stepped, [&](const TSteppedReply& reply) {
                 return reply.before < count && reply.after < count;
             });
    if (!bWhole) {
        Forget();
        return false;
    }
    m_nPass = static_cast<unsigned>(head[2]);
    m_nLastWaiting = static_cast<unsigned>(head[3]);
    m_nFound = head[4];
    m_bPrepared = true;
    m_bMoved = true;
    return true;
}

template <typename Element>
void CRetrograde<Element>::Forget() {
    m_stepped.clear();
    m_bPrepared = false;
    m_nPass = 0;
    m_nLastWaiting = 0;
    m_nFound = 0;
}

template class CRetrograde<std::uint8_t>;
template class CRetrograde<std::uint16_t>;

}  // namespace tarnwick
