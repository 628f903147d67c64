#pragma once
// What this folder says to the user about moves and variants. "%s" and "%d" are filled in by FilledText.

#include "base/language.h"

namespace tarnwick {

// Why a move is not made.
inline constexpr TUserText StipulationOverText = {
    .pl = "Nie można wykonać więcej posunięć ze względu na zadanie #%d",
    .en = "No more moves can be made because of stipulation #%d",
    .uk = "Більше ходів зробити не можна через завдання #%d"};
inline constexpr TUserText LineFullText = {.pl = "Linia gry nie może być dłuższa.",
                                           .en = "The line of play cannot be longer.",
                                           .uk = "Лінія гри не може бути довшою."};
inline constexpr TUserText MateImpossibleText = {
    .pl =
        "Program odmawia wykonania tego posunięcia.\nUniemożliwia ono zamatowanie czarnego "
        "króla...",
    .en = "Engine refuses to make this move.\nIt makes mating black king impossible...",
    .uk =
        "Програма відмовляється робити цей хід.\nЧерез нього поставити мат чорному королю стає "
        "неможливо..."};
inline constexpr TUserText BlackKingCheckedText = {
    .pl = "Niewłaściwa pozycja: czarny król nie może być szachowany w pozycji początkowej.",
    .en = "Invalid position: Black king cannot be checked in starting position.",
    .uk = "Неправильна позиція: чорний король не може стояти під шахом у початковій позиції."};
inline constexpr TUserText NoManThereText = {.pl = "Na polu %s nie stoi żadna bierka.",
                                             .en = "There is no man on %s.",
                                             .uk = "На полі %s немає жодної фігури."};
inline constexpr TUserText BlacksTurnText = {
    .pl = "Na posunięciu są czarne.", .en = "It is Black's turn.", .uk = "Зараз хід чорних."};
inline constexpr TUserText WhitesTurnText = {
    .pl = "Na posunięciu są białe.", .en = "It is White's turn.", .uk = "Зараз хід білих."};
inline constexpr TUserText OwnManThereText = {.pl = "Na polu %s stoi już własna bierka.",
                                              .en = "A man of the same colour stands on %s.",
                                              .uk = "На полі %s уже стоїть власна фігура."};
inline constexpr TUserText CannotGoThereText = {.pl = "Ta bierka nie może przejść z pola %s na %s.",
                                                .en = "This man cannot go from %s to %s.",
                                                .uk = "Ця фігура не може піти з поля %s на %s."};
inline constexpr TUserText WayBlockedText = {.pl = "Drogę z pola %s na %s zagradza inna bierka.",
                                             .en = "Another man blocks the way from %s to %s.",
                                             .uk = "Шлях з поля %s на %s заступає інша фігура."};
inline constexpr TUserText StillInCheckText = {
    .pl = "Król jest szachowany, a to posunięcie nie broni przed szachem.",
    .en = "The king is in check, and this move does not parry it.",
    .uk = "Король під шахом, а цей хід від нього не захищає."};
inline constexpr TUserText KingIntoCheckText = {.pl =
                                                    "Pole %s jest atakowane: król nie może na nie "
                                                    "wejść.",
                                                .en =
                                                    "The king cannot go to %s: it would stand in "
                                                    "check there.",
                                                .uk =
                                                    "Король не може піти на поле %s: там він "
                                                    "стояв би під шахом."};
inline constexpr TUserText PinnedText = {
    .pl = "Bierka na polu %s jest związana: jej odejście odsłoniłoby króla.",
    .en = "The man on %s is pinned: it would leave the king in check.",
    .uk = "Фігура на полі %s зв'язана: без неї король опинився б під шахом."};
inline constexpr TUserText NameThePromotionText = {
    .pl = "Wybierz figurę, na którą ma zostać przemieniony pion.",
    .en = "Choose the figure that the pawn is to become.",
    .uk = "Виберіть фігуру, на яку перетвориться пішак."};
inline constexpr TUserText NoPromotionHereText = {.pl = "To posunięcie nie jest przemianą pionka.",
                                                  .en = "This move does not promote a pawn.",
                                                  .uk = "Цей хід не перетворює пішака."};
inline constexpr TUserText CastlingHasMovedText = {
    .pl =
        "Roszada nie jest możliwa: król lub wieża nie stoi na swoim miejscu albo już się ruszyła.",
    .en = "Castling is not possible: king or rook is not at home or has already moved.",
    .uk = "Рокіровка неможлива: король чи тура не на своєму місці або вже ходили."};
inline constexpr TUserText CastlingBlockedText = {
    .pl = "Roszada nie jest możliwa: między królem a wieżą stoi inna bierka.",
    .en = "Castling is not possible: a man stands between king and rook.",
    .uk = "Рокіровка неможлива: між королем і турою стоїть інша фігура."};
inline constexpr TUserText CastlingInCheckText = {
    .pl = "Roszada nie jest możliwa: król jest szachowany.",
    .en = "Castling is not possible: the king is in check.",
    .uk = "Рокіровка неможлива: король під шахом."};
inline constexpr TUserText CastlingAttackedText = {
    .pl = "Roszada nie jest możliwa: król przechodziłby przez atakowane pole.",
    .en = "Castling is not possible: the king would pass over or reach an attacked field.",
    .uk = "Рокіровка неможлива: король проходив би через атаковане поле."};

// Typed moves.
inline constexpr TUserText UnknownMoveText = {.pl = "To nie jest zapis posunięcia: %s",
                                              .en = "This is no move: %s",
                                              .uk = "Це не запис ходу: %s"};
inline constexpr TUserText AmbiguousMoveText = {
    .pl = "Które z posunięć: %s?", .en = "Which of these moves: %s?", .uk = "Котрий із ходів: %s?"};
inline constexpr TUserText NobodyGoesThereText = {
    .pl = "Żadne dozwolone posunięcie nie zapisuje się jako %s.",
    .en = "No legal move is written %s.",
    .uk = "Жоден дозволений хід не записується як %s."};

// Variants and comments.
inline constexpr TUserText CommentNeedsVariantText = {
    .pl = "Komentarze można dodawać tylko do posunięć, które należą do wariantu",
    .en = "You can add comments only to moves that belong to a variant",
    .uk = "Коментарі можна додавати лише до ходів, що належать до варіанта"};
inline constexpr TUserText CommentBracketText = {.pl = "Komentarz nie może zawierać znaku ]",
                                                 .en = "A comment cannot contain the character ]",
                                                 .uk = "Коментар не може містити знака ]"};
inline constexpr TUserText NoMovesForVariantText = {
    .pl = "Najpierw wykonaj posunięcia, które mają tworzyć wariant.",
    .en = "First make the moves that the variant is to consist of.",
    .uk = "Спершу зробіть ходи, з яких має складатися варіант."};
inline constexpr TUserText VariantNameText = {
    .pl = "Nazwa wariantu nie może być pusta ani zawierać znaków { }",
    .en = "The name of a variant can neither be empty nor contain the characters { }",
    .uk = "Назва варіанта не може бути порожньою чи містити знаки { }"};
inline constexpr TUserText VariantExistsText = {.pl = "Wariant o tej nazwie już istnieje: %s",
                                                .en = "A variant of this name already exists: %s",
                                                .uk = "Варіант із такою назвою вже існує: %s"};
inline constexpr TUserText VariantIllegalText = {
    .pl = "Posunięcia %s nie można wykonać w tej pozycji. Wariant pokazano do tego miejsca.",
    .en = "The move %s cannot be made in this position. The variant is shown up to that place.",
    .uk = "Хід %s у цій позиції неможливий. Варіант показано до цього місця."};
inline constexpr TUserText EmptyTagText = {.pl = "Etykieta nie może być pusta.",
                                           .en = "A tag cannot be empty.",
                                           .uk = "Мітка не може бути порожньою."};

inline constexpr const TUserText* AllPlayTexts[] = {&StipulationOverText,
                                                    &LineFullText,
                                                    &MateImpossibleText,
                                                    &BlackKingCheckedText,
                                                    &NoManThereText,
                                                    &BlacksTurnText,
                                                    &WhitesTurnText,
                                                    &OwnManThereText,
                                                    &CannotGoThereText,
                                                    &WayBlockedText,
                                                    &StillInCheckText,
                                                    &KingIntoCheckText,
                                                    &PinnedText,
                                                    &NameThePromotionText,
                                                    &NoPromotionHereText,
                                                    &CastlingHasMovedText,
                                                    &CastlingBlockedText,
                                                    &CastlingInCheckText,
                                                    &CastlingAttackedText,
                                                    &UnknownMoveText,
                                                    &AmbiguousMoveText,
                                                    &NobodyGoesThereText,
                                                    &CommentNeedsVariantText,
                                                    &CommentBracketText,
                                                    &NoMovesForVariantText,
                                                    &VariantNameText,
                                                    &VariantExistsText,
                                                    &VariantIllegalText,
                                                    &EmptyTagText};

}  // namespace tarnwick
