#pragma once
// What the user is told while a position is being set up, and when one is refused.

#include "base/language.h"

namespace tarnwick {

// The panel.
inline constexpr TUserText SettingNoteText = {
    .pl =
        "Tryb ustawiania pozycji\n(aby zakończyć ustawianie pozycji, użyj narzędzia \"ręka\" w "
        "prawym dolnym rogu szachownicy)\n\nTutaj przeciągnij bierki, które chcesz usunąć z "
        "szachownicy. Stąd przeciągaj bierki na szachownicę albo kliknij bierkę, a potem pola, "
        "na których ma stanąć. Prawy przycisk myszy czyści pole.\n\nZ klawiatury: strzałki "
        "wybierają pole, K H W G S P stawiają bierkę (z Shift białą, bez Shift czarną), Delete "
        "czyści pole, + i - zmieniają liczbę posunięć.",
    .en =
        "Position setting mode\n(use the \"hand\" tool - at the bottom right corner of the board "
        "- to exit the position setting mode)\n\nHere drag'n'drop pieces you want to remove from "
        "the board. From here drag pieces onto the board, or click a piece and then the fields "
        "that it shall stand on. The right mouse button clears a field.\n\nBy keyboard: arrows "
        "choose a field, K Q R B N P put a piece there (white with Shift, black without), Delete "
        "clears it, + and - change the number of moves.",
    .uk =
        "Режим розставляння позиції\n(щоб вийти з режиму, скористайтеся інструментом \"рука\" в "
        "правому нижньому куті дошки)\n\nСюди перетягуйте фігури, які хочете прибрати з дошки. "
        "Звідси перетягуйте фігури на дошку або клацніть фігуру, а потім поля, де вона має "
        "стояти. Права кнопка миші очищує поле.\n\nЗ клавіатури: стрілки вибирають поле, Р Ф Т С "
        "К П (або K Q R B N P) ставлять фігуру (із Shift білу, без Shift чорну), Delete очищує "
        "поле, + і - змінюють кількість ходів."};
inline constexpr TUserText PaletteNameText = {
    .pl = "Bierki do ustawienia", .en = "Pieces to put on the board", .uk = "Фігури для дошки"};
inline constexpr TUserText SettingStateNameText = {.pl = "Stan ustawianej pozycji",
                                                   .en = "State of the position being set",
                                                   .uk = "Стан позиції, що розставляється"};
inline constexpr TUserText PaletteManTooltip = {
    .pl = "Przeciągnij na szachownicę albo kliknij, a potem klikaj pola",
    .en = "Drag onto the board, or click and then click fields",
    .uk = "Перетягніть на дошку або клацніть, а потім клацайте поля"};
inline constexpr TUserText EraserText = {.pl = "Gumka", .en = "Eraser", .uk = "Гумка"};
inline constexpr TUserText EraserTooltip = {.pl = "Kliknij, a potem klikaj pola do wyczyszczenia",
                                            .en = "Click, and then click the fields to clear",
                                            .uk = "Клацніть, а потім клацайте поля для очищення"};
// Two buttons beside each other: what has room on them, and their whole names.
inline constexpr TUserText EraseAllText = {.pl = "Pusta", .en = "Empty", .uk = "Порожня"};
inline constexpr TUserText EraseAllTooltip = {
    .pl = "Pusta szachownica", .en = "Empty board", .uk = "Порожня дошка"};
inline constexpr TUserText StartPositionText = {
    .pl = "Początkowa", .en = "Starting", .uk = "Початкова"};
inline constexpr TUserText StartPositionTooltip = {.pl = "Ustawienie początkowe partii",
                                                   .en = "Starting array of the game",
                                                   .uk = "Початкова позиція партії"};
inline constexpr TUserText DoneText = {.pl = "Gotowe", .en = "Done", .uk = "Готово"};
inline constexpr TUserText DoneTooltip = {.pl = "Zakończ ustawianie i przyjmij pozycję",
                                          .en = "End the position setting and take the position",
                                          .uk = "Завершити розставляння і прийняти позицію"};
inline constexpr TUserText CancelSettingText = {.pl = "Anuluj", .en = "Cancel", .uk = "Скасувати"};
inline constexpr TUserText CancelSettingTooltip = {
    .pl = "Zakończ ustawianie bez zmian (Esc)",
    .en = "End the position setting without a change (Esc)",
    .uk = "Завершити розставляння без змін (Esc)"};
/// The castlings follow, or NoCastlingsText.
inline constexpr TUserText CastlingsText = {.pl = "Posunięcie białych. Możliwe roszady: %s",
                                            .en = "White to move. Possible castlings: %s",
                                            .uk = "Хід білих. Можливі рокіровки: %s"};
inline constexpr TUserText WhiteCastlingsText = {
    .pl = "białe %s", .en = "White %s", .uk = "білі %s"};
inline constexpr TUserText BlackCastlingsText = {
    .pl = "czarne %s", .en = "Black %s", .uk = "чорні %s"};
inline constexpr TUserText NoCastlingsText = {.pl = "brak", .en = "none", .uk = "немає"};
inline constexpr TUserText DoubtfulFieldsText = {
    .pl = "Niepewne pola (żółta ramka): %s. Sprawdź je; kliknięcie potwierdza pole.",
    .en = "Doubtful fields (yellow frame): %s. Check them; a click confirms a field.",
    .uk = "Сумнівні поля (жовта рамка): %s. Перевірте їх; клацання підтверджує поле."};
/// A field's name for screen readers, behind the man on it.
inline constexpr TUserText DoubtfulFieldText = {
    .pl = "niepewne, do sprawdzenia", .en = "doubtful, to be checked", .uk = "сумнівне, перевірте"};
inline constexpr TUserText FaultyFieldText = {
    .pl = "niewłaściwe", .en = "at fault", .uk = "неправильне"};
inline constexpr TUserText SettingBoardText = {.pl = "Tryb ustawiania pozycji",
                                               .en = "Position setting mode",
                                               .uk = "Режим розставляння позиції"};

// Why a position is refused, and what to change.
inline constexpr TUserText RefusedPositionText = {
    .pl = "Ta pozycja nie może rozpoczynać zadania:\n\n%s",
    .en = "This position cannot begin a problem:\n\n%s",
    .uk = "Ця позиція не може починати задачу:\n\n%s"};
inline constexpr TUserText NumberOfKingsText = {.pl = "Niedozwolona liczba królów.",
                                                .en = "Illegal number of kings.",
                                                .uk = "Недозволена кількість королів."};
inline constexpr TUserText NoWhiteKingText = {
    .pl = " Brakuje białego króla: postaw go na szachownicy.",
    .en = " The white king is missing: put it on the board.",
    .uk = " Бракує білого короля: поставте його на дошку."};
inline constexpr TUserText NoBlackKingText = {
    .pl = " Brakuje czarnego króla: postaw go na szachownicy.",
    .en = " The black king is missing: put it on the board.",
    .uk = " Бракує чорного короля: поставте його на дошку."};
inline constexpr TUserText WhiteKingsText = {
    .pl = " Białe króle stoją na polach %s: zostaw jednego.",
    .en = " White kings stand on %s: leave one of them.",
    .uk = " Білі королі стоять на полях %s: залиште одного."};
inline constexpr TUserText BlackKingsText = {
    .pl = " Czarne króle stoją na polach %s: zostaw jednego.",
    .en = " Black kings stand on %s: leave one of them.",
    .uk = " Чорні королі стоять на полях %s: залиште одного."};
inline constexpr TUserText PawnsOnEdgeText = {
    .pl = "Pionki nie mogą stać na 1. ani 8. linii szachownicy. Przestaw lub usuń: %s.",
    .en = "Pawns cannot occupy 1st nor 8th line of the chessboard. Move or remove: %s.",
    .uk = "Пішаки не можуть стояти на 1-й чи 8-й горизонталі. Пересуньте або приберіть: %s."};
inline constexpr TUserText BothKingsAttackedText = {
    .pl = "Obaj królowie są szachowani. Białego na %s szachuje: %s. Czarnego na %s szachuje: %s.",
    .en =
        "Both kings attacked. The white one on %s is attacked from %s, the black one on %s from "
        "%s.",
    .uk = "Обидва королі під шахом. Білого на %s атакує: %s. Чорного на %s атакує: %s."};
/// Behind BlackKingCheckedText of the line of play.
inline constexpr TUserText BlackKingCheckersText = {
    .pl =
        " Posunięcie mają białe, a króla na %s szachuje: %s. Przestaw którąś z tych bierek albo "
        "zasłoń króla.",
    .en =
        " White is to move, and the king on %s is attacked from %s. Move one of these men, or put "
        "another between them.",
    .uk =
        " Хід білих, а короля на %s атакує: %s. Пересуньте одну з цих фігур або закрийте короля."};

// Ending the mode.
inline constexpr TUserText CannotModifyText = {
    .pl = "Trwa analiza - nie można zmieniać pozycji",
    .en = "Analysis pending - position cannot be modified",
    .uk = "Триває аналіз - позицію не можна змінювати"};
inline constexpr TUserText LeaveWithoutChangeText = {
    .pl = "Zakończyć ustawianie pozycji bez zmian?",
    .en = "End the position setting without a change?",
    .uk = "Завершити розставляння позиції без змін?"};
inline constexpr TUserText VariantsLostText = {
    .pl =
        "Liczba wariantów, których nie można rozegrać w nowej pozycji: %s. Zostaną usunięte. "
        "Kontynuować?",
    .en = "Variants that cannot be played in the new position: %s. They will be removed. Go on?",
    .uk =
        "Кількість варіантів, які не можна зіграти в новій позиції: %s. Їх буде вилучено. "
        "Продовжити?"};
inline constexpr TUserText KeysLostText = {
    .pl =
        "Zapisane rozwiązania dotyczyły poprzedniej pozycji i zostały usunięte (Ctrl+Z przywraca).",
    .en =
        "The stored keys belonged to the position before and were removed (Ctrl+Z brings them "
        "back).",
    .uk =
        "Збережені розв'язки стосувалися попередньої позиції, тому їх вилучено (Ctrl+Z "
        "повертає)."};
inline constexpr TUserText NoStipulationText = {
    .pl = "Ta pozycja nie ma zadania: liczbę posunięć ma tylko mat w n posunięciach.",
    .en = "This position asks for nothing: only a mate in n has a number of moves.",
    .uk = "Ця позиція не має завдання: кількість ходів є лише в мату за n ходів."};

inline constexpr const TUserText* AllSetupTexts[] = {&SettingNoteText,
                                                     &PaletteNameText,
                                                     &SettingStateNameText,
                                                     &PaletteManTooltip,
                                                     &EraserText,
                                                     &EraserTooltip,
                                                     &EraseAllText,
                                                     &EraseAllTooltip,
                                                     &StartPositionText,
                                                     &StartPositionTooltip,
                                                     &DoneText,
                                                     &DoneTooltip,
                                                     &CancelSettingText,
                                                     &CancelSettingTooltip,
                                                     &CastlingsText,
                                                     &WhiteCastlingsText,
                                                     &BlackCastlingsText,
                                                     &NoCastlingsText,
                                                     &DoubtfulFieldsText,
                                                     &DoubtfulFieldText,
                                                     &FaultyFieldText,
                                                     &SettingBoardText,
                                                     &RefusedPositionText,
                                                     &NumberOfKingsText,
                                                     &NoWhiteKingText,
                                                     &NoBlackKingText,
                                                     &WhiteKingsText,
                                                     &BlackKingsText,
                                                     &PawnsOnEdgeText,
                                                     &BothKingsAttackedText,
                                                     &BlackKingCheckersText,
                                                     &CannotModifyText,
                                                     &LeaveWithoutChangeText,
                                                     &VariantsLostText,
                                                     &KeysLostText,
                                                     &NoStipulationText};

}  // namespace tarnwick
