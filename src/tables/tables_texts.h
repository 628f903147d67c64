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

inline constexpr const TUserText* AllTablesTexts[] = {
    &NoPositionTypeText, &MissingTableText,     &PartialTableText,
    &OtherFormTableText, &DamagedTableText,     &NoMemoryForTableText,
    &TooLongMateText,    &SecondPassExistsText, &DisputedTableText};

}  // namespace tarnwick
