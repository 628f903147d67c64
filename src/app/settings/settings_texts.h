#pragma once

// What this folder says to the user. A text that ends in a blank is followed by what was found or used.

#include "base/language.h"

namespace tarnwick {

// Notes on the options file, for the log. "options.ini" stands before the first.
inline constexpr TUserText OptionsLineText = {.pl = ", wiersz ", .en = ", line ", .uk = ", рядок "};
inline constexpr TUserText OptionNoNumberText = {
    .pl = " nie jest liczbą całkowitą; użyto wartości ",
    .en = " is no whole number; the value used is ",
    .uk = " не є цілим числом; використано значення "};
inline constexpr TUserText OptionOutOfRangeText = {
    .pl = " jest poza dozwolonym zakresem; użyto wartości ",
    .en = " is out of range; the value used is ",
    .uk = " виходить за дозволені межі; використано значення "};
inline constexpr TUserText OptionNoPathText = {
    .pl = " nie jest ścieżką o długości do 255 znaków; użyto folderu domyślnego",
    .en = " is no path of at most 255 characters; the default folder is used",
    .uk = " не є шляхом завдовжки до 255 символів; використано типову теку"};
inline constexpr TUserText OptionsUnreadableText = {.pl = "pliku nie można odczytać",
                                                    .en = "the file cannot be read",
                                                    .uk = "файл неможливо прочитати"};
inline constexpr TUserText OptionsTooLargeText = {
    .pl = "plik jest za duży jak na plik opcji (ponad 1 MiB)",
    .en = "the file is too large for a file of options (over 1 MiB)",
    .uk = "файл завеликий як для файлу параметрів (понад 1 МіБ)"};
inline constexpr TUserText OptionsInUtf16Text = {
    .pl = "plik jest zapisany w UTF-16; proszę zapisać go jako UTF-8",
    .en = "the file is in UTF-16; please save it as UTF-8",
    .uk = "файл записано в UTF-16; будь ласка, збережіть його як UTF-8"};

/// Followed by the file's name, ": " and the reason.
inline constexpr TUserText CannotSaveOptionsText = {.pl = "Nie można zapisać opcji do pliku ",
                                                    .en = "Cannot save the options to file ",
                                                    .uk = "Не вдалося зберегти параметри у файл "};
inline constexpr TUserText CannotMakeFolderText = {.pl = "Nie można utworzyć folderu ",
                                                   .en = "Cannot create folder ",
                                                   .uk = "Не вдалося створити теку "};
inline constexpr TUserText NoHomeFolderText = {
    .pl =
        "Nie wiadomo, gdzie trzymać pliki programu: zmienna HOME nie wskazuje folderu. Proszę "
        "podać folder opcją --home.",
    .en =
        "There is no place for the program's files: HOME does not name a folder. Please name one "
        "with --home.",
    .uk =
        "Невідомо, де тримати файли програми: змінна HOME не вказує теки. Будь ласка, вкажіть "
        "теку параметром --home."};
inline constexpr TUserText HomeIsUsersHomeText = {
    .pl =
        "Folder podany opcją --home jest folderem domowym użytkownika. Proszę wybrać dla programu "
        "osobny folder.",
    .en =
        "The folder given with --home is the user's home folder. Please choose a folder of its own "
        "for the program.",
    .uk =
        "Тека, вказана параметром --home, є домашньою текою користувача. Будь ласка, виберіть для "
        "програми окрему теку."};

inline constexpr TUserText RecompressionTooFarText = {
    .pl =
        "Wartość parametru AskForGlobalRegisterRecompression nie powinna być większa niż "
        "UseDataPackedForRandomAccess.",
    .en =
        "Value of parameter AskForGlobalRegisterRecompression should not be greater than "
        "UseDataPackedForRandomAccess.",
    .uk =
        "Значення параметра AskForGlobalRegisterRecompression не повинно перевищувати "
        "UseDataPackedForRandomAccess."};
inline constexpr TUserText LogMovesIsOnText = {
    .pl =
        "Program został otwarty z opcją zapisywania dziennika pełnej analizy - ta opcja nie jest "
        "zalecana (bardzo wydłuża rozwiązywanie i tworzy ogromne pliki na dysku). Można ją "
        "wyłączyć w oknie opcji lub w pliku options.ini (LogMoves=0).",
    .en =
        "Program has been opened with the option to write log of full analysis - this option is "
        "not recommended (it makes solving last much longer and produces huge files on disk). You "
        "can switch it off in the options window or in the file options.ini (LogMoves=0).",
    .uk =
        "Програму відкрито з параметром запису журналу повного аналізу - цей параметр не "
        "рекомендовано (він дуже сповільнює розв'язування і створює величезні файли на диску). "
        "Його можна вимкнути у вікні параметрів або у файлі options.ini (LogMoves=0)."};

inline constexpr TUserText SecondInstanceBoxText = {
    .pl =
        "Uwaga:\nProgram zostanie otwarty w trybie tylko do odczytu dla plików .lichess.\n\nNależy "
        "też zachować szczególną ostrożność przy zapisywaniu plików z zadaniami (.cp) - chociaż "
        "instancje programu ostrzegają i proponują ponowne otwarcie pliku zmienionego przez inną "
        "instancję, zmiany zapisane w jednej z nich mogą zastąpić zmiany zapisane w drugiej.",
    .en =
        "Note:\nProgram will be opened in read-only mode for .lichess files.\n\nAlso particular "
        "care should be taken while saving problem files (.cp) - although program instances warn "
        "and suggest reopening a file that has been changed by another instance, changes saved in "
        "one of them may replace changes saved in the other.",
    .uk =
        "Примітка:\nПрограму буде відкрито в режимі лише для читання файлів .lichess.\n\nСлід "
        "також бути особливо обережним, зберігаючи файли задач (.cp) - хоча екземпляри програми "
        "попереджають і пропонують знову відкрити файл, змінений іншим екземпляром, зміни, "
        "збережені в одному з них, можуть замінити зміни, збережені в іншому."};
/// In front of the status text.
inline constexpr TUserText SecondInstanceStatusText = {
    .pl = "OSTRZEŻENIE: To nie jest pierwsza uruchomiona instancja programu.\n",
    .en = "WARNING: This is not the first instance of the program running.\n",
    .uk = "ПОПЕРЕДЖЕННЯ: Це не перший запущений екземпляр програми.\n"};

inline constexpr const TUserText* AllSettingsTexts[] = {
    &OptionsLineText,    &OptionNoNumberText,    &OptionOutOfRangeText,
    &OptionNoPathText,   &OptionsUnreadableText, &OptionsTooLargeText,
    &OptionsInUtf16Text, &CannotSaveOptionsText, &CannotMakeFolderText,
    &NoHomeFolderText,   &HomeIsUsersHomeText,   &RecompressionTooFarText,
    &LogMovesIsOnText,   &SecondInstanceBoxText, &SecondInstanceStatusText};

}  // namespace tarnwick
