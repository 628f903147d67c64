#pragma once
// What the board says to those who listen to it instead of looking: short, the field first, so that the
// listener can go on to the next field as soon as he has heard enough. Parts are joined by commas.

#include "base/language.h"

namespace tarnwick {

inline constexpr TUserText BoardNameText = {
    .pl = "Szachownica", .en = "Chessboard", .uk = "Шахівниця"};
inline constexpr TUserText BoardHelpText = {
    .pl =
        "Strzałki wybierają pole, Enter podnosi i stawia figurę, Esc anuluje. Posunięcie można też "
        "wpisać, na przykład e2e4.",
    .en =
        "Arrow keys choose a field, Enter picks up and puts down a man, Esc cancels. A move can "
        "also be "
        "typed, for example e2e4.",
    .uk =
        "Стрілки вибирають поле, Enter бере і ставить фігуру, Esc скасовує. Хід можна також "
        "набрати, "
        "наприклад e2e4."};

inline constexpr TUserText EmptyFieldText = {.pl = "puste", .en = "empty", .uk = "порожнє"};
inline constexpr TUserText WhiteKingText = {
    .pl = "biały król", .en = "white king", .uk = "білий король"};
inline constexpr TUserText WhiteQueenText = {
    .pl = "biały hetman", .en = "white queen", .uk = "білий ферзь"};
inline constexpr TUserText WhiteRookText = {
    .pl = "biała wieża", .en = "white rook", .uk = "біла тура"};
inline constexpr TUserText WhiteBishopText = {
    .pl = "biały goniec", .en = "white bishop", .uk = "білий слон"};
inline constexpr TUserText WhiteKnightText = {
    .pl = "biały skoczek", .en = "white knight", .uk = "білий кінь"};
inline constexpr TUserText WhitePawnText = {
    .pl = "biały pion", .en = "white pawn", .uk = "білий пішак"};
inline constexpr TUserText BlackKingText = {
    .pl = "czarny król", .en = "black king", .uk = "чорний король"};
inline constexpr TUserText BlackQueenText = {
    .pl = "czarny hetman", .en = "black queen", .uk = "чорний ферзь"};
inline constexpr TUserText BlackRookText = {
    .pl = "czarna wieża", .en = "black rook", .uk = "чорна тура"};
inline constexpr TUserText BlackBishopText = {
    .pl = "czarny goniec", .en = "black bishop", .uk = "чорний слон"};
inline constexpr TUserText BlackKnightText = {
    .pl = "czarny skoczek", .en = "black knight", .uk = "чорний кінь"};
inline constexpr TUserText BlackPawnText = {
    .pl = "czarny pion", .en = "black pawn", .uk = "чорний пішак"};

// What else is to be said of a field.
inline constexpr TUserText SelectedFieldText = {.pl = "wybrane", .en = "selected", .uk = "вибране"};
inline constexpr TUserText TargetFieldText = {
    .pl = "można tu zagrać", .en = "can move here", .uk = "можна піти сюди"};
inline constexpr TUserText LastMoveFromText = {.pl = "stąd ostatnie posunięcie",
                                               .en = "last move came from here",
                                               .uk = "звідси останній хід"};
inline constexpr TUserText LastMoveToText = {
    .pl = "tu ostatnie posunięcie", .en = "last move came here", .uk = "сюди останній хід"};

// The last move: "Last move: white knight from e4 to f6, takes black pawn, check".
inline constexpr TUserText LastMoveText = {
    .pl = "Ostatnie posunięcie:", .en = "Last move:", .uk = "Останній хід:"};
inline constexpr TUserText MoveFromText = {.pl = "z", .en = "from", .uk = "з"};
inline constexpr TUserText MoveToText = {.pl = "na", .en = "to", .uk = "на"};
inline constexpr TUserText ShortCastlingText = {
    .pl = "krótka roszada", .en = "castles short", .uk = "коротка рокіровка"};
inline constexpr TUserText LongCastlingText = {
    .pl = "długa roszada", .en = "castles long", .uk = "довга рокіровка"};
inline constexpr TUserText TakesText = {.pl = "bije:", .en = "takes", .uk = "бере:"};
inline constexpr TUserText EnPassantText = {
    .pl = "w przelocie", .en = "en passant", .uk = "на проході"};
inline constexpr TUserText PromotesText = {
    .pl = "przemiana:", .en = "becomes", .uk = "перетворення:"};
inline constexpr TUserText CheckText = {.pl = "szach", .en = "check", .uk = "шах"};
inline constexpr TUserText PassText = {.pl = "pas", .en = "no move", .uk = "пропуск ходу"};
inline constexpr TUserText WhiteToMoveText = {
    .pl = "Ruch białych", .en = "White to move", .uk = "Хід білих"};
inline constexpr TUserText BlackToMoveText = {
    .pl = "Ruch czarnych", .en = "Black to move", .uk = "Хід чорних"};

inline constexpr const TUserText* AllViewTexts[] = {
    &BoardNameText,     &BoardHelpText,   &EmptyFieldText,    &WhiteKingText,    &WhiteQueenText,
    &WhiteRookText,     &WhiteBishopText, &WhiteKnightText,   &WhitePawnText,    &BlackKingText,
    &BlackQueenText,    &BlackRookText,   &BlackBishopText,   &BlackKnightText,  &BlackPawnText,
    &SelectedFieldText, &TargetFieldText, &LastMoveFromText,  &LastMoveToText,   &LastMoveText,
    &MoveFromText,      &MoveToText,      &ShortCastlingText, &LongCastlingText, &TakesText,
    &EnPassantText,     &PromotesText,    &CheckText,         &PassText,         &WhiteToMoveText,
    &BlackToMoveText};

}  // namespace tarnwick
