#pragma once
// What this folder says to the user about files. Moves have play_texts.h.
//
// A text that ends in a blank or a line end is followed by what was found; "%s" and "%d" are filled in
// by FilledText.

#include "base/language.h"

namespace tarnwick {

// New problems and files.
inline constexpr TUserText NewDescriptionText = {.pl = "Kliknij tutaj, aby zmienić opis zadania",
                                                 .en = "Click here to change problem description",
                                                 .uk = "Клацніть тут, щоб змінити опис задачі"};
inline constexpr TUserText FileExistsText = {
    .pl = "Plik %s już istnieje.\nCzy chcesz zastąpić go nowym plikiem?",
    .en = "File %s already exists.\nDo you want to replace it with a new file?",
    .uk = "Файл %s вже існує.\nЗамінити його новим файлом?"};

// Opening.
inline constexpr TUserText StopThreadsText = {
    .pl = "Wszystkie trwające wątki poszukiwania mata zostaną zatrzymane.\nCzy chcesz kontynuować?",
    .en = "All pending threads of mate search will be stopped.\nDo you want to continue?",
    .uk = "Усі потоки пошуку мату, що тривають, буде зупинено.\nПродовжити?"};
inline constexpr TUserText OpeningFileText = {
    .pl = "Otwieranie pliku...", .en = "Opening file...", .uk = "Відкриття файлу..."};
/// The file, the line, what is wrong there.
inline constexpr TUserText FaultInFileText = {
    .pl = "%s, wiersz %d:\n%s", .en = "%s, line %d:\n%s", .uk = "%s, рядок %d:\n%s"};
/// Behind FaultInFileText.
inline constexpr TUserText PartialReadText = {
    .pl = "\n\nWczytano zadania sprzed tego miejsca: %d. Niewczytane (w przybliżeniu): %d.",
    .en = "\n\nProblems read in front of that place: %d. Not read (approximately): %d.",
    .uk = "\n\nПрочитано задач перед цим місцем: %d. Не прочитано (приблизно): %d."};
inline constexpr TUserText SameNumberTwiceText = {
    .pl =
        "Plik zawiera kilka zadań o tym samym numerze. Wczytano ostatnie z nich; "
        "liczba pominiętych zadań: %d.",
    .en =
        "The file has several problems of the same number. The last one of them has been read; "
        "problems left out: %d.",
    .uk =
        "Файл містить кілька задач з тим самим номером. Прочитано останню з них; "
        "пропущено задач: %d."};
/// The file, its twin.
inline constexpr TUserText OutdatedTwinText = {
    .pl =
        "Plik %s jest nowszy niż plik %s z komentarzami i zawiera inne zadania lub "
        "warianty.\n\nCzy wczytać nowszy plik, bez komentarzy? (wybierz 'Nie', aby wczytać "
        "starszy)",
    .en =
        "File %s is newer than file %s, which has the comments, and its problems or variants "
        "differ.\n\nDo you want to read the newer file, without comments? (select 'No' to read "
        "the older one)",
    .uk =
        "Файл %s новіший за файл %s з коментарями, і його задачі або варіанти "
        "відрізняються.\n\nПрочитати новіший файл, без коментарів? (виберіть 'Ні', щоб "
        "прочитати старіший)"};

// Saving.
inline constexpr TUserText SaveChangesText = {.pl = "Czy chcesz zapisać zmiany w pliku %s?",
                                              .en = "Do you want to save changes to file %s?",
                                              .uk = "Зберегти зміни у файлі %s?"};
inline constexpr TUserText DiscardChangesText = {
    .pl = "Niezapisane zmiany zostaną utracone.\nCzy na pewno chcesz je odrzucić?",
    .en = "Unsaved changes will be lost.\nDo you really want to reject them?",
    .uk = "Незбережені зміни буде втрачено.\nСправді відкинути їх?"};
inline constexpr TUserText ErrorSavingText = {
    .pl = "Błąd zapisu do pliku", .en = "Error saving to file", .uk = "Помилка запису у файл"};
inline constexpr TUserText SavingFileText = {
    .pl = "Zapisywanie pliku...", .en = "Saving file...", .uk = "Збереження файлу..."};
/// Followed by the problems, a line each, and the next text.
inline constexpr TUserText SamePositionText = {
    .pl = "W tym pliku istnieje już taka sama pozycja, jak w następujących zadaniach:\n",
    .en = "The same position already exists in this file as the following problems:\n",
    .uk = "У цьому файлі вже є така сама позиція, як у цих задачах:\n"};
inline constexpr TUserText SaveAnywayText = {.pl = "\n\nCzy mimo to chcesz zapisać zmiany?",
                                             .en = "\n\nDo you want to save changes anyway?",
                                             .uk = "\n\nУсе одно зберегти зміни?"};
inline constexpr TUserText AndMoreText = {
    .pl = "... i inne: %d", .en = "... and others: %d", .uk = "... та інші: %d"};
inline constexpr TUserText LossesText = {
    .pl =
        "Plik %s nie został wczytany w całości. Jeżeli teraz go zapiszesz, utracisz niewczytane "
        "zadania (w przybliżeniu: %d).\n\nCzy mimo to chcesz zapisać zmiany w tym pliku?",
    .en =
        "File %s has not been read as a whole. If you save it now, you will lose the problems "
        "that were not read (approximately: %d).\n\nDo you want to save changes to this file "
        "anyway?",
    .uk =
        "Файл %s прочитано не повністю. Якщо зберегти його зараз, непрочитані задачі буде "
        "втрачено (приблизно: %d).\n\nУсе одно зберегти зміни в цьому файлі?"};
inline constexpr TUserText ForeignChangeText = {
    .pl =
        "Plik %s został w międzyczasie zmieniony przez inny program.\n\nCzy chcesz zastąpić jego "
        "zawartość swoją? (dotychczasowa pozostanie w pliku .BAK)",
    .en =
        "File %s has meanwhile been changed by another program.\n\nDo you want to replace its "
        "content with yours? (the present one will stay in the .BAK file)",
    .uk =
        "Файл %s тим часом змінила інша програма.\n\nЗамінити його вміст своїм? (теперішній "
        "залишиться у файлі .BAK)"};
inline constexpr TUserText NotReadableAgainText = {
    .pl =
        "Zapisanego pliku nie dałoby się odczytać z powrotem:\n%s\n\nCzy mimo to chcesz go "
        "zapisać?",
    .en = "The saved file could not be read again:\n%s\n\nDo you want to save it anyway?",
    .uk = "Збережений файл неможливо було б прочитати знову:\n%s\n\nУсе одно зберегти його?"};
inline constexpr TUserText NotTheSameAgainText = {
    .pl = "zadania byłyby inne", .en = "the problems would differ", .uk = "задачі були б іншими"};

// A file that changes behind our back.
inline constexpr TUserText ChangedUnsavedText = {
    .pl =
        "Otwarty plik został zmieniony przez zewnętrzną aplikację.\n\nZdecydowanie zaleca się "
        "ponowne otwarcie go (zamknij go i otwórz jeszcze raz)\n\nWszelkie niezapisane zmiany "
        "zostaną wtedy utracone, dlatego zapisz je wcześniej w innym pliku (menu Plik -> Zapisz "
        "jako).",
    .en =
        "The opened file has been changed by an external application.\n\nIt is strongly "
        "recommended to reopen it (close and open it again)\n\nAny unsaved changes will be lost "
        "then, so save them to another file before (menu File -> Save as).",
    .uk =
        "Відкритий файл змінила стороння програма.\n\nНаполегливо радимо відкрити його знову "
        "(закрити й відкрити ще раз)\n\nУсі незбережені зміни тоді буде втрачено, тож спершу "
        "збережіть їх в іншому файлі (меню Файл -> Зберегти як)."};
inline constexpr TUserText ChangedReloadText = {
    .pl =
        "Otwarty plik został zmieniony przez zewnętrzną aplikację.\n\nZdecydowanie zaleca się "
        "ponowne otwarcie go (zamknij go i otwórz jeszcze raz)\n\nCzy chcesz wczytać go "
        "ponownie?",
    .en =
        "The opened file has been changed by an external application.\n\nIt is strongly "
        "recommended to reopen it (close and open it again)\n\nDo you want to reload it now?",
    .uk =
        "Відкритий файл змінила стороння програма.\n\nНаполегливо радимо відкрити його знову "
        "(закрити й відкрити ще раз)\n\nПерезавантажити його зараз?"};

// Appending and removing.
inline constexpr TUserText AppendedText = {
    .pl = "Dodane zadania: ", .en = "Appended problems: ", .uk = "Додано задач: "};
inline constexpr TUserText OnlyStipulationText = {
    .pl = "\nPonadto niektóre zadania różnią się tylko liczbą posunięć (#n): \n",
    .en = "\nMoreover some problems differ only by stipulation (#n): \n",
    .uk = "\nКрім того, деякі задачі відрізняються лише завданням (#n): \n"};
inline constexpr TUserText RemovedText = {
    .pl = "Usunięte zadania: ", .en = "Removed problems: ", .uk = "Вилучено задач: "};
inline constexpr TUserText CurrentStaysText = {
    .pl = "\nUwaga: bieżące zadanie nie może zostać usunięte.",
    .en = "\nWarning: the current problem cannot be removed.",
    .uk = "\nУвага: поточну задачу вилучити неможливо."};
inline constexpr TUserText SaveOrRejectText = {
    .pl = "\n\nCzy chcesz zapisać zmiany? (wybierz 'Nie', aby je odrzucić)",
    .en = "\n\nDo you want to save changes? (select 'No' to reject them)",
    .uk = "\n\nЗберегти зміни? (виберіть 'Ні', щоб відкинути їх)"};

// FEN codes in other files.
inline constexpr TUserText SearchFenText = {
    .pl =
        "W całym pliku zostaną wyszukane kody FEN i zostanie sprawdzone, których z nich nie ma "
        "w bieżącym pliku .cp otwartym w oknie programu.\n\nCzy chcesz kontynuować?",
    .en =
        "All the file will be searched for FEN codes and it will be verified which of them are "
        "not present in the current .cp file opened in program window.\n\nDo you want to "
        "continue?",
    .uk =
        "У всьому файлі буде знайдено коди FEN і перевірено, яких із них немає в поточному файлі "
        ".cp, відкритому у вікні програми.\n\nПродовжити?"};
inline constexpr TUserText NoFenFoundText = {.pl = "W tym pliku nie znaleziono kodów FEN",
                                             .en = "No FEN codes found in this file",
                                             .uk = "У цьому файлі не знайдено кодів FEN"};
inline constexpr TUserText AllFenPresentText = {
    .pl =
        "Wszystkie kody FEN znalezione w tym pliku są już obecne w bieżącym pliku .cp otwartym "
        "w oknie programu.",
    .en =
        "All FEN codes found in this file are already present in the current .cp file opened in "
        "program window.",
    .uk =
        "Усі коди FEN, знайдені в цьому файлі, вже є в поточному файлі .cp, відкритому у вікні "
        "програми."};
inline constexpr TUserText FenMissingText = {
    .pl =
        "Znalezione kody FEN: %d.\n\nW bieżącym pliku .cp otwartym w oknie programu nie ma "
        "następującej ich liczby: %d.\n\nLista tych kodów FEN została zapisana w pliku %s",
    .en =
        "%d FEN code(s) found.\n\n%d of them were not found in the current .cp file opened in "
        "program window.\n\nList of these FEN codes saved to file %s",
    .uk =
        "Знайдено кодів FEN: %d.\n\nУ поточному файлі .cp, відкритому у вікні програми, немає "
        "стількох із них: %d.\n\nСписок цих кодів FEN збережено у файлі %s"};

// After a crash.
inline constexpr TUserText LostWorkText = {
    .pl =
        "Program zakończył ostatnio działanie, zanim zapisano zmiany w pliku %s.\nLiczba "
        "zmienionych zadań: %d.\n\nCzy chcesz odzyskać te zmiany? (wybierz 'Nie', aby je "
        "odrzucić)",
    .en =
        "The program ended last time before the changes to file %s were saved.\nChanged "
        "problems: %d.\n\nDo you want to recover these changes? (select 'No' to reject them)",
    .uk =
        "Минулого разу програма завершилася, перш ніж було збережено зміни у файлі %s.\nЗмінено "
        "задач: %d.\n\nВідновити ці зміни? (виберіть 'Ні', щоб відкинути їх)"};

inline constexpr TUserText RenumberedText = {
    .pl =
        "W pliku są teraz pod numerami odzyskanych zadań inne zadania, albo nie ma żadnych. "
        "Odzyskane zadania dostały nowe numery: ",
    .en =
        "The file now has other problems, or none, under numbers of recovered problems. The "
        "recovered problems got new numbers: ",
    .uk =
        "Під номерами відновлених задач у файлі тепер інші задачі або немає жодних. Відновлені "
        "задачі отримали нові номери: "};
inline constexpr TUserText DamagedJournalText = {
    .pl = "Części zmian nie udało się odczytać. Pozostały w pliku %s",
    .en = "Some of the changes could not be read. They stay in the file %s",
    .uk = "Частину змін не вдалося прочитати. Вони залишилися у файлі %s"};

inline constexpr const TUserText* AllDocumentTexts[] = {
    &NewDescriptionText, &FileExistsText,       &StopThreadsText,     &OpeningFileText,
    &FaultInFileText,    &PartialReadText,      &SameNumberTwiceText, &OutdatedTwinText,
    &SaveChangesText,    &DiscardChangesText,   &ErrorSavingText,     &SavingFileText,
    &SamePositionText,   &SaveAnywayText,       &AndMoreText,         &LossesText,
    &ForeignChangeText,  &NotReadableAgainText, &NotTheSameAgainText, &ChangedUnsavedText,
    &ChangedReloadText,  &AppendedText,         &OnlyStipulationText, &RemovedText,
    &CurrentStaysText,   &SaveOrRejectText,     &SearchFenText,       &NoFenFoundText,
    &AllFenPresentText,  &FenMissingText,       &LostWorkText,        &RenumberedText,
    &DamagedJournalText};

}  // namespace tarnwick
