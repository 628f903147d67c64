#pragma once

// What the areas and buttons of the window say when the mouse rests on them. How long: see the times.

#include "base/language.h"

namespace tarnwick {

/// Milliseconds before a tooltip appears, and for which it stays at most.
inline constexpr int TooltipDelayMs = 750;
inline constexpr int TooltipStayMs = 32'000;

// Title bar.
inline constexpr TUserText PreviousTooltip = {
    .pl = "Poprzednie zadanie", .en = "Previous problem", .uk = "Попередня задача"};
inline constexpr TUserText NextTooltip = {
    .pl = "Następne zadanie", .en = "Next problem", .uk = "Наступна задача"};
inline constexpr TUserText ProblemNumberTooltip = {
    .pl = "Kliknij, aby wybrać inne zadanie (prawy przycisk: lista z opisami zadań)",
    .en = "Click to select another problem (right click: list with problem descriptions)",
    .uk = "Клацніть, щоб вибрати іншу задачу (права кнопка: список з описами задач)"};
inline constexpr TUserText NumberOfMovesTooltip = {
    .pl =
        "Kliknij u góry/dołu, aby zwiększyć/zmniejszyć liczbę posunięć w trybie ustawiania pozycji",
    .en =
        "Click at the top/bottom to increase/decrease number of moves (stipulation) in pos.setting "
        "mode",
    .uk = "Клацніть угорі/внизу, щоб збільшити/зменшити кількість ходів у режимі розставляння"};
inline constexpr TUserText DescriptionTooltip = {
    .pl =
        "Zmień opis. Można używać odsyłaczy do Pdb/Yacpdb/Meson/Albrecht/Gameknot/chessStar, np. "
        "Y123",
    .en =
        "Change description. You can use links to Pdb/Yacpdb/Meson/Albrecht/Gameknot/chessStar, "
        "e.g. Y123",
    .uk =
        "Змінити опис. Можна вживати посилання на Pdb/Yacpdb/Meson/Albrecht/Gameknot/chessStar, "
        "напр. Y123"};

// Buttons.
inline constexpr TUserText BackTooltip = {
    .pl = "Cofnij posunięcie (prawy przycisk: cofnij kilka posunięć)",
    .en = "Move back (right click: move back a few moves)",
    .uk = "Хід назад (права кнопка: кілька ходів назад)"};
inline constexpr TUserText ForwardTooltip = {
    .pl = "Ponów posunięcie (prawy przycisk: ponów kilka posunięć)",
    .en = "Redo move (right click: redo a few moves)",
    .uk = "Повторити хід (права кнопка: повторити кілька ходів)"};
inline constexpr TUserText SaveTooltip = {
    .pl = "Zapisz zmiany do pliku", .en = "Save changes to file", .uk = "Зберегти зміни у файл"};
inline constexpr TUserText PositionSettingTooltip = {.pl = "Rozpocznij/zakończ ustawianie pozycji",
                                                     .en = "Start/stop position setting",
                                                     .uk = "Почати/закінчити розставляння позиції"};
inline constexpr TUserText ThreadsTooltip = {
    .pl =
        "Kliknij u dołu/góry ikony, aby zmniejszyć/zwiększyć liczbę wątków programu (dotyczy 1. "
        "posunięcia)",
    .en =
        "Click at the bottom/top of icon to decrease/increase number of engine threads (applies to "
        "1st move)",
    .uk =
        "Клацніть унизу/вгорі значка, щоб зменшити/збільшити кількість потоків програми "
        "(стосується 1-го ходу)"};
inline constexpr TUserText RotateTooltip = {
    .pl = "Obróć szachownicę", .en = "Rotate chessboard view", .uk = "Повернути шахівницю"};
inline constexpr TUserText TagTooltip = {.pl = "Kliknij, aby dodać etykietę do zadania",
                                         .en = "Click to add a tag to the problem",
                                         .uk = "Клацніть, щоб додати мітку до задачі"};
inline constexpr TUserText StartTooltip = {
    .pl =
        "Start/stop (prawy przycisk: znajdź wszystkie rozwiązania/pauza; +Ctrl: okno wyboru "
        "heurystyk)",
    .en =
        "Start/stop (right click: find all solutions/pause; +Ctrl: display heuristics selection "
        "dialog)",
    .uk = "Старт/стоп (права кнопка: знайти всі розв'язки/пауза; +Ctrl: вікно вибору евристик)"};
inline constexpr TUserText MainVariantTooltip = {
    .pl = "Oznacz jako wariant główny (prawy przycisk: menu podręczne)",
    .en = "Mark as main variant (right click: display context menu)",
    .uk = "Позначити як головний варіант (права кнопка: контекстне меню)"};
inline constexpr TUserText OptionsTooltip = {
    .pl = "Opcje programu", .en = "Program options", .uk = "Параметри програми"};

// Progress and moves.
inline constexpr TUserText ProgressSizeTooltip = {
    .pl = "Kliknij, aby zmienić rozmiar obszaru informacji o postępie",
    .en = "Click to change size of progress information area",
    .uk = "Клацніть, щоб змінити розмір області відомостей про перебіг"};
inline constexpr TUserText RegisterSizeTooltip = {
    .pl =
        "Liczba pozycji w rejestrze tymczasowym (z matem lub bez, z matem wątpliwym lub "
        "niewątpliwym)",
    .en =
        "Number of positions in temporary register (either checkmate or not, mate doubtful or not "
        "doubtful)",
    .uk =
        "Кількість позицій у тимчасовому реєстрі (з матом чи без нього, із сумнівним чи "
        "безсумнівним матом)"};
inline constexpr TUserText PeekedThreadTooltip = {
    .pl =
        "Kliknij u dołu/góry ikony, aby zmienić podglądany wątek (A = informacje ze wszystkich "
        "wątków)",
    .en =
        "Click at the botton/top of the icon to change thread to peek (A = info from all threads)",
    .uk = "Клацніть унизу/вгорі значка, щоб змінити потік для перегляду (A = дані всіх потоків)"};
inline constexpr TUserText RemainingMovesTooltip = {
    .pl = "Zaznacz to pole, aby wyświetlać liczbę pozostałych posunięć (zamiast kolejnych numerów)",
    .en = "Check this box to display remaining number of moves (instead of ordinal numbering)",
    .uk = "Позначте це поле, щоб показувати кількість ходів, що лишилися (замість номерів ходів)"};
inline constexpr TUserText ListedMoveTooltip = {
    .pl = "Kliknij prawym przyciskiem, aby wyświetlić menu z wariantami/odgałęzieniami",
    .en = "Right click to display context menu with variants/branches",
    .uk = "Клацніть правою кнопкою, щоб показати меню з варіантами/відгалуженнями"};
inline constexpr TUserText ListedVariantMoveTooltip = {
    .pl =
        "Naciśnij prawy przycisk myszy, aby dodać komentarz do posunięcia (dostępne tylko wtedy, "
        "gdy posunięcie należy już do wariantu). Naciśnij lewy przycisk myszy, aby wykonać to "
        "posunięcie na szachownicy.",
    .en =
        "Press the right mouse button to add a comment to the move (available only if the move is "
        "already a part of a variant). Press the left mouse button to make this move on the "
        "chessboard.",
    .uk =
        "Натисніть праву кнопку миші, щоб додати коментар до ходу (доступно, лише якщо хід уже "
        "належить до варіанта). Натисніть ліву кнопку миші, щоб зробити цей хід на шахівниці."};
inline constexpr TUserText FieldTooltip = {.pl = "Ostatnie posunięcie - szczegóły niedostępne",
                                           .en = "Last move - details unavailable",
                                           .uk = "Останній хід - подробиці недоступні"};

inline constexpr const TUserText* AllTooltipTexts[] = {
    &PreviousTooltip,       &NextTooltip,         &ProblemNumberTooltip,
    &NumberOfMovesTooltip,  &DescriptionTooltip,  &BackTooltip,
    &ForwardTooltip,        &SaveTooltip,         &PositionSettingTooltip,
    &ThreadsTooltip,        &RotateTooltip,       &TagTooltip,
    &StartTooltip,          &MainVariantTooltip,  &OptionsTooltip,
    &ProgressSizeTooltip,   &RegisterSizeTooltip, &PeekedThreadTooltip,
    &RemainingMovesTooltip, &ListedMoveTooltip,   &ListedVariantMoveTooltip,
    &FieldTooltip};

}  // namespace tarnwick
