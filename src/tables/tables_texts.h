#pragma once
// What the tables of precalculated data tell the user.

#include "base/language.h"

namespace tarnwick {

inline constexpr TUserText NoPositionTypeText = {
    "\"%s\" nie jest typem pozycji: proszę podać od jednej do pięciu bierek oprócz króli, na "
    "przykład "
    "Qr albo RBp (Q R B N P - białe, q r b n p - czarne).",
    "\"%s\" is no position type: give one to five men beside the kings, like Qr or RBp (Q R B N P "
    "for "
    "White, q r b n p for Black).",
    "\"%s\" не є типом позиції: вкажіть від однієї до п'яти фігур, крім королів, наприклад Qr або "
    "RBp "
    "(Q R B N P - білі, q r b n p - чорні)."};

inline constexpr TUserText MissingTableText = {
    "Brak rejestru dla pozycji %s lub nie udało się go wczytać!",
    "Register not found or loaded for position %s !",
    "Реєстр для позиції %s не знайдено або не завантажено!"};
inline constexpr TUserText PartialTableText = {
    "Tablica %s jest wygenerowana tylko częściowo: proszę ją najpierw dokończyć.",
    "The table of %s has been generated in part only: complete it first.",
    "Таблицю %s згенеровано лише частково: спершу завершіть її."};
inline constexpr TUserText OtherFormTableText = {
    "Tablica %s ma inny układ niż te, które tworzy ten program: proszę ją wygenerować od nowa.",
    "The table of %s is laid out in another way than this program does it: generate it anew.",
    "Таблиця %s має іншу будову, ніж створює ця програма: згенеруйте її заново."};
inline constexpr TUserText DamagedTableText = {
    "Plik %s jest uszkodzony: ma %s bajtów zamiast %s.",
    "The file %s is damaged: it has %s bytes instead of %s.",
    "Файл %s пошкоджено: він має %s байтів замість %s."};
inline constexpr TUserText NoMemoryForTableText = {
    "Wygenerowanie %s wymaga %s MB pamięci, a komputer ma jej %s MB.",
    "Generating %s takes %s MB of memory, and this machine has %s MB.",
    "Для генерування %s потрібно %s МБ пам'яті, а комп'ютер має %s МБ."};
inline constexpr TUserText TooLongMateText = {
    "W tablicy %s są maty dłuższe niż 253 posunięcia, na które jej elementy są za małe.",
    "The table of %s has mates of over 253 moves, for which its elements are too small.",
    "У таблиці %s є мати, довші за 253 ходи, для яких її елементи замалі."};

inline constexpr TUserText SecondPassExistsText = {
    "Istnieje plik 2-giego passu %s\n\n Zmerge'uj go ręcznie z plikiem 1-szego passu %s",
    "There is a file of a second pass, %s\n\nMerge it by hand with the file of the first pass, %s",
    "Існує файл 2-го проходу %s\n\nОб'єднайте його вручну з файлом 1-го проходу %s"};

inline constexpr TUserText DisputedTableText = {
    "Błąd wewnętrzny: szybkie sprawdzanie tablicy %s uznało %s pozycji za błędne, a zasady gry "
    "potwierdzają je. Proszę sprawdzić tablicę samymi zasadami gry i zgłosić tę usterkę.",
    "Internal error: the quick check of the table of %s calls %s position(s) wrong, and the rules "
    "of the game confirm them. Verify the table by the rules of the game alone, and report this "
    "fault.",
    "Внутрішня помилка: швидка перевірка таблиці %s вважає хибними %s позицій, а правила гри їх "
    "підтверджують. Перевірте таблицю самими правилами гри й повідомте про цю помилку."};

/// Faults, fixable, fixed.
inline constexpr TUserText VerifyCountsText = {
    "(błędy: %s, do naprawy: %s, naprawione: %s)", "(%s fault(s) found, %s fixable, %s fixed)",
    "(помилок: %s, можна виправити: %s, виправлено: %s)"};
inline constexpr TUserText VerifyCompleteText = {"Koniec ", "Complete ", "Завершено "};
inline constexpr TUserText VerifyCancelledText = {"Przerwano", "Cancelled", "Скасовано"};
inline constexpr TUserText MaxMateOfPartialText = {
    "Najdłuższy mat w częściowo wygenerowanym pliku to #%s",
    "Max. mate in the partially generated file is #%s",
    "Найдовший мат у частково згенерованому файлі - #%s"};
inline constexpr TUserText AskSecondPassText = {
    "Niepusty plik dziennika %s już istnieje\nCzy zastosować poprawki drugiego przebiegu?",
    "Unempty log file %s already exists\nApply second-pass fixes to data?",
    "Непорожній файл журналу %s вже існує\nЗастосувати виправлення другого проходу?"};
inline constexpr TUserText AskTryFixText = {"Wykryto błąd. Czy spróbować naprawić?",
                                            "Error encountered. Try fix?",
                                            "Виявлено помилку. Спробувати виправити?"};
inline constexpr TUserText CannotUpdateTableText = {
    "Nie można otworzyć pliku %s do zapisu.\nWykryte błędy nie zostaną naprawione.",
    "Cannot open file %s for update.\nAny detected incoherencies will not be fixed.",
    "Не вдалося відкрити файл %s для запису.\nВиявлені помилки не буде виправлено."};

inline constexpr TUserText VerificationStartsText = {
    "Początek sprawdzania danych prekalkulowanych dla typu pozycji %s",
    "Starting verification of precalculated data for position type %s",
    "Початок перевірки попередньо обчислених даних для типу позиції %s"};
/// Type, how it ended.
inline constexpr TUserText VerificationOfTypeText = {
    "Sprawdzanie danych prekalkulowanych dla typu pozycji %s %s",
    "Verification of precalculated data for position type %s %s",
    "Перевірка попередньо обчислених даних для типу позиції %s %s"};
inline constexpr TUserText VerificationAllRightText = {
    "zakończone - wszystko w porządku", "complete - all OK", "завершена - усе гаразд"};
inline constexpr TUserText VerificationFaultsText = {"zakończone: wykryte błędy: %s",
                                                     "complete: %s failure(s) detected",
                                                     "завершена: виявлено помилок: %s"};
inline constexpr TUserText VerificationStoppedText = {
    "przerwane przez użytkownika", "but stopped by user.", "зупинена користувачем."};
inline constexpr TUserText VerificationFailedText = {"nie udało się: %s", "failed: %s",
                                                     "не вдалася: %s"};
/// Men, with pawns or without, types.
inline constexpr TUserText MissingTypesText = {
    "Lista brakujących danych prekalkulowanych dla pozycji z %s bierkami %s:\n%s",
    "List of missing precalculated data for positions with %s pieces %s:\n%s",
    "Список відсутніх попередньо обчислених даних для позицій з %s фігурами %s:\n%s"};
inline constexpr TUserText WithPawnsText = {"z pionami", "with pawns", "з пішаками"};
inline constexpr TUserText WithoutPawnsText = {"bez pionów", "without pawns", "без пішаків"};
inline constexpr TUserText AskMorePiecesText = {
    "\n\nCzy szukać brakujących danych dla pozycji z większą liczbą bierek?",
    "\n\nShould program look for missing precalculated data for positions with more pieces?",
    "\n\nЧи шукати відсутні дані для позицій з більшою кількістю фігур?"};

inline constexpr const TUserText* AllTablesTexts[] = {
    &NoPositionTypeText,       &MissingTableText,       &PartialTableText,
    &OtherFormTableText,       &DamagedTableText,       &NoMemoryForTableText,
    &TooLongMateText,          &SecondPassExistsText,   &DisputedTableText,
    &VerifyCountsText,         &VerifyCompleteText,     &VerifyCancelledText,
    &MaxMateOfPartialText,     &AskSecondPassText,      &AskTryFixText,
    &CannotUpdateTableText,    &VerificationStartsText, &VerificationOfTypeText,
    &VerificationAllRightText, &VerificationFaultsText, &VerificationStoppedText,
    &VerificationFailedText,   &MissingTypesText,       &WithPawnsText,
    &WithoutPawnsText,         &AskMorePiecesText};

}  // namespace tarnwick
