#include <cassert>
#include <iterator>

#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_catalogue.h"
#include "engine/heuristics/heuristic_tooltips.h"

// The controls beside the check boxes of the heuristics.

namespace tarnwick {
namespace {

using enum THeuristicOption;

/// In the order of the enumeration.
constexpr THeuristicOptionEntry Options[] = {
    {KingMustNotMove,
     SH_KEEPKINGONTHEEDGE,
     {.pl = "Nie daj ruszyć się cz.królowi (chyba że natychm.mat)",
      .en = "Don't let bl.king move (unless immed.mate)",
      .uk = "Не давати ходити чорн.королю (крім негайн.мату)"},
     &KingMustNotMoveTooltip},
    {AllowExceptions,
     SH_KEEPKINGONTHEEDGE,
     {.pl = "dopuść wyj.", .en = "allow exc", .uk = "дозв.винятки"},
     &AllowExceptionsTooltip},
    {InnerCorners,
     EdgeHeuristics,
     {.pl = "łącznie z b2/b7/g2/g7", .en = "incl.b2/b7/g2/g7", .uk = "разом із b2/b7/g2/g7"}},
    {ExtEdgeStrict,
     SH_KEEPKINGWITHINEXTEDGE,
     {.pl = "ruszać się, chyba że na brzeg",
      .en = "move unless on the edge",
      .uk = "ходити, хіба що на край"},
     &ExtEdgeStrictTooltip},
    {DistanceInSquares, SH_KEEPKINGNEARCORNER, {.pl = "pól", .en = "squares", .uk = "полів"}},
    {DistanceInMoves,
     SH_KEEPKINGNEARCORNER,
     {.pl = "posunięć stąd", .en = "moves away", .uk = "ходів звідти"}},
    {SurroundedStrict,
     SH_ASSERTBLACKKINGSURROUNDED,
     {.pl = "ściśle (maks. 2 wolne pola)",
      .en = "strict (max 2 free sqrs)",
      .uk = "суворо (макс. 2 вільні поля)"}},
    {DynamicRelaxationGroup,
     EdgeHeuristics,
     {.pl = "Dynamiczne rozluźnianie heurystyk brzegu/poszerz.brzegu",
      .en = "Dynamically relax edge/ext.edge heuristics",
      .uk = "Динамічно послабляти евристики краю/розшир.краю"},
     &DynamicRelaxationTooltip},
    {RelaxOnAdvancedPawn,
     EdgeHeuristics,
     {.pl = "przy zaawansowanym pionie", .en = "on advanced pawn", .uk = "за просунутого пішака"},
     &DynamicRelaxationTooltip},
    {RelaxOnCaptures,
     EdgeHeuristics,
     {.pl = "po zbiciu figur(y)", .en = "on figure(s) captured", .uk = "після взяття фігур(и)"},
     &DynamicRelaxationTooltip},
    {RelaxOnCapturesZero,
     EdgeHeuristics,
     {.pl = "(0 = wył.)", .en = "(0 = off)", .uk = "(0 = вимк.)"}},
    {DeferCheck,
     EdgeHeuristics,
     {.pl = "odrocz sprawdzenie o", .en = "defer check", .uk = "відкласти перевірку на"},
     &DynamicRelaxationTooltip},
    {DeferCheckUnit, EdgeHeuristics, {.pl = "posunięć", .en = "moves", .uk = "ходів"}},
    {RelaxExtEdgeOnly,
     EdgeHeuristics,
     {.pl = "dotyczy TYLKO wersji z poszerz.brzegiem",
      .en = "applicable for ext.edge version ONLY",
      .uk = "ЛИШЕ для версії з розшир.краєм"}},
    {RelaxSkipDefer,
     EdgeHeuristics,
     {.pl = "bez odraczania, gdy zmiana równowagi niemożliwa",
      .en = "skip defer check if balance change impossible",
      .uk = "не відкладати, якщо зміна балансу неможлива"}},
    {RelaxAutomatic,
     EdgeHeuristics,
     {.pl = "niech program sam dyn.rozluźnia heurystyki",
      .en = "let program automatically dyn.relax heuristics",
      .uk = "нехай програма сама дин.послабляє евристики"}},
    {LosePawns,
     SH_DONTLOSEANYFIGURES,
     {.pl = "łącznie z pionami", .en = "including pawns", .uk = "разом із пішаками"}},
    {LosePromotablePawns,
     SH_DONTLOSEANYFIGURES,
     {.pl = "łącznie z pionami bliskimi promocji",
      .en = "including promotable pawns",
      .uk = "разом із пішаками, близькими до перетворення"}},
    {MainDiagonalBlackPiece,
     SH_DONTLEAVEMAINDIAGONAL,
     {.pl = "Czarna bierka trzymana na głównej przekątnej: ",
      .en = "Black piece not let leave main diagonal: ",
      .uk = "Чорна фігура, яку тримають на головній діагоналі: "}},
    {PromotedQueen,
     PromotedHeuristics,
     {.pl = "hetmanowi", .en = "queen", .uk = "ферзеві"},
     &PromotedTooltip},
    {PromotedAnyFigure,
     PromotedHeuristics,
     {.pl = "żadnej figurze", .en = "any figure move", .uk = "жодній фігурі"},
     &PromotedTooltip},
    {PromotedStrict,
     PromotedHeuristics,
     {.pl = "ściśle (mniej wyjątków)",
      .en = "strict (less exceptions)",
      .uk = "суворо (менше винятків)"}},
    {UnblockDynamic,
     SH_DONTLETFIGUREUNBLOCK,
     {.pl = "niech program stosuje tę heurystykę dynamicznie",
      .en = "let program apply this heuristics dynamically",
      .uk = "нехай програма застосовує цю евристику динамічно"},
     &UnblockDynamicTooltip},
    {ZugzwangAfter, SH_ZUGZWANG, {.pl = "po", .en = "after", .uk = "після"}},
    {SeaSnakeApproach, SH_SEASNAKE, {.pl = "podejście", .en = "approach", .uk = "підхід"}},
    {SeaSnakeTurnBack, SH_SEASNAKE, {.pl = "zawrócenie", .en = "turn back", .uk = "розворот"}},
    {SeaSnakePendulum, SH_SEASNAKE, {.pl = "wahadło", .en = "pendulum", .uk = "маятник"}},
    {SeaSnakeOnlyAfter, SH_SEASNAKE, {.pl = "dopiero po", .en = "only after", .uk = "лише після"}},
    {ForcedCaptures,
     SH_FINDFORCEDMATE,
     {.pl = "dodaj bicia fig.w sąsiedztwie cz.króla w FFM #2/#2+...",
      .en = "add captures of fig.in bl.king neighborh.in FFM #2/#2+...",
      .uk = "додати взяття фіг.біля чорн.короля у FFM #2/#2+..."}},
    {ForcedWithOthersGroup,
     SH_FINDFORCEDMATE,
     {.pl = "FFM z innymi heurystykami",
      .en = "FFM with other heuristics",
      .uk = "FFM з іншими евристиками"}},
    {RelaxForced,
     SH_FINDFORCEDMATE,
     {.pl = "Pozwól rozluźnić FFM", .en = "Let relax FFM", .uk = "Дозволити послабити FFM"},
     &RelaxForcedTooltip},
    {RelaxForcedUnit, SH_FINDFORCEDMATE, {.pl = "raz(y)", .en = "time(s)", .uk = "раз(и)"}},
    {LetRelax,
     0,
     {.pl = "Pozwól rozluźniać heurystyki",
      .en = "Let relax heuristics",
      .uk = "Дозволити послаблювати евристики"},
     &LetRelaxTooltip},
    {ShowRelaxation, 0, {.pl = "Pokaż", .en = "Show", .uk = "Показати"}},
    {RunFinalPass,
     0,
     {.pl = "Pozwól wykonać przebieg 2 (bez heurystyk)",
      .en = "Let program run pass 2 (without heuristics)",
      .uk = "Дозволити прохід 2 (без евристик)"}},
    {Fallback,
     0,
     {.pl = "Włącz powrót do heur.", .en = "Enable heur.fallback", .uk = "Увімкн.поверн.до евр."},
     &FallbackTooltip},
    {SortIndications,
     0,
     {.pl = "Wskazówki sortowania...",
      .en = "Sort indications...",
      .uk = "Вказівки сортування..."}},
};
static_assert(std::size(Options) == HeuristicOptionCount);

consteval bool AreInOrder() {
    for (std::size_t i = 0; i < std::size(Options); ++i) {
        if (static_cast<std::size_t>(Options[i].option) != i) {
            return false;
        }
    }
    return true;
}
static_assert(AreInOrder());

constexpr TUserText ForcedLevels[] = {
    {.pl = "szach+wyj.", .en = "check+excps", .uk = "шах+винятки"},
    {.pl = "groźba #1", .en = "threat #1", .uk = "загроза #1"},
    {.pl = "#1+", .en = "#1+", .uk = "#1+"},
    {.pl = "#2", .en = "#2", .uk = "#2"},
    {.pl = "#2+", .en = "#2+", .uk = "#2+"},
    {.pl = "#3", .en = "#3", .uk = "#3"},
    {.pl = "#4", .en = "#4", .uk = "#4"},
    {.pl = "#5", .en = "#5", .uk = "#5"},
};
static_assert(std::size(ForcedLevels) == static_cast<std::size_t>(TForcedLevel::Threat5) + 1);

constexpr TUserText ForcedChoices[] = {
    {.pl = "Nie", .en = "No", .uk = "Ні"},
    {.pl = "Tak", .en = "Yes", .uk = "Так"},
    {.pl = "Częściowo", .en = "Partially", .uk = "Частково"},
    {.pl = "Częściowo + przebieg wstępny z heur. brzegu",
     .en = "Partially + initial pass with edge heur.",
     .uk = "Частково + початковий прохід з евр. краю"},
};

}  // namespace

const THeuristicOptionEntry& HeuristicOption(THeuristicOption option) noexcept {
    assert(static_cast<std::size_t>(option) < std::size(Options));
    return Options[static_cast<std::size_t>(option)];
}

const TUserText& ForcedLevelLabel(TForcedLevel level) noexcept {
    assert(static_cast<std::size_t>(level) < std::size(ForcedLevels));
    return ForcedLevels[static_cast<std::size_t>(level)];
}

const TUserText& ForcedWithOthersLabel(TForcedWithOthers choice) noexcept {
    assert(static_cast<std::size_t>(choice) < std::size(ForcedChoices));
    return ForcedChoices[static_cast<std::size_t>(choice)];
}

}  // namespace tarnwick
