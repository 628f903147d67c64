#pragma once
// What the registers of tables tell and ask.

#include <array>

#include "base/language.h"

namespace tarnwick {

inline constexpr TUserText NoCustomTypeText = {
    .pl = "\"%s\" nie jest typem pozycji z nieruchomymi bierkami.",
    .en = "\"%s\" is no position type with fixed men.",
    .uk = "\"%s\" не є типом позиції з нерухомими фігурами."};

inline constexpr TUserText GenerationQuotaText = {
    .pl = "Nie można wczytać rejestru: przekroczono limit pamięci na generowanie danych",
    .en = "Cannot load subregister: memory quota for data generation exceeded",
    .uk = "Не вдалося завантажити реєстр: перевищено ліміт пам'яті для генерування даних"};

/// The type.
inline constexpr TUserText PartialDataText = {
    .pl = "Dane dla pozycji typu %s wyglądają na nie do końca wygenerowane.",
    .en = "Data for positions of type %s seem not to be generated completely.",
    .uk = "Дані для позицій типу %s, схоже, згенеровано не повністю."};

/// The file.
inline constexpr TUserText AskSaveDecompressedText = {
    .pl = "Zapisać cały rozpakowany plik danych %s?",
    .en = "Save full decompressed data file %s?",
    .uk = "Зберегти весь розпакований файл даних %s?"};
inline constexpr TUserText FileSavedText = {
    .pl = "Plik zapisany.", .en = "File saved.", .uk = "Файл збережено."};
inline constexpr TUserText ErrorSavingFileText = {.pl = "Błąd zapisu pliku %s",
                                                  .en = "Error saving file %s",
                                                  .uk = "Помилка збереження файлу %s"};

inline constexpr TUserText AskKeepPackedText = {
    .pl =
        "Za mało pamięci, by wczytać wszystkie dane rozpakowane.\n\nCzy program ma używać części "
        "danych z dysku i rozpakowywać je?",
    .en =
        "Not enough memory to load all the data unpacked.\n\nLet program use some data from disk "
        "and decompress?",
    .uk =
        "Недостатньо пам'яті, щоб завантажити всі дані розпакованими.\n\nДозволити програмі "
        "використовувати частину даних з диска й розпаковувати їх?"};

/// The file, in all three.
inline constexpr TUserText AskPackSimpleText = {
    .pl = "Czy przygotować skompresowaną wersję (prostą, o dostępie swobodnym) pliku %s",
    .en = "Should prepare a compressed version (simple for random access) of file %s",
    .uk = "Чи підготувати стиснену версію (просту, з довільним доступом) файлу %s"};
inline constexpr TUserText AskPackLzwText = {
    .pl = "Czy przygotować skompresowaną wersję (LZW, o dostępie swobodnym) pliku %s",
    .en = "Should prepare a compressed version (LZW for random access) of file %s",
    .uk = "Чи підготувати стиснену версію (LZW, з довільним доступом) файлу %s"};
inline constexpr TUserText AskPackLz4eText = {
    .pl = "Czy przygotować skompresowaną wersję (LZ4e, o dostępie swobodnym) pliku %s",
    .en = "Should prepare a compressed version (LZ4e for random access) of file %s",
    .uk = "Чи підготувати стиснену версію (LZ4e, з довільним доступом) файлу %s"};
inline constexpr TUserText PackedDoneText = {.pl = "Gotowe", .en = "Done", .uk = "Готово"};
inline constexpr TUserText PackingErrorText = {
    .pl = "Wystąpił błąd.", .en = "An error occurred.", .uk = "Сталася помилка."};

/// MB.
inline constexpr TUserText RegisterSizeText = {
    .pl = "Obecny rozmiar rejestru globalnego w pamięci: %s MB",
    .en = "Current size of global register in memory: %s MB",
    .uk = "Поточний розмір глобального реєстру в пам'яті: %s МБ"};
inline constexpr TUserText RegistersPendingText = {.pl = "\n%s rejestr(y) w trakcie wczytywania.",
                                                   .en = "\n%s register(s) pending.",
                                                   .uk = "\n%s реєстр(ів) завантажується."};
inline constexpr TUserText RegisterLoadingText = {
    .pl = "\nWczytywanie %s", .en = "\nLoading %s", .uk = "\nЗавантаження %s"};
inline constexpr TUserText RegisterDetailsText = {
    .pl = "\n\nSzczegóły:\n", .en = "\n\nDetails:\n", .uk = "\n\nПодробиці:\n"};
/// Type, MB, users, seconds.
inline constexpr TUserText RegisterLineText = {
    .pl = "%s %s MB AllocCount=%s LastAccess %s s temu\n",
    .en = "%s %s MB AllocCount=%s LastAccess %s sec(s). ago\n",
    .uk = "%s %s МБ AllocCount=%s LastAccess %s с тому\n"};
inline constexpr TUserText RegisterUnavailableText = {
    .pl = "%s niedostępny/zbędny/za mało pamięci\n",
    .en = "%s unavailable/redundant/not enough memory\n",
    .uk = "%s недоступний/зайвий/недостатньо пам'яті\n"};

inline constexpr TUserText NoInfoBeforeBlackText = {
    .pl = "Brak informacji o pozycjach przed ruchem czarnych",
    .en = "No information about positions before Black's move",
    .uk = "Немає інформації про позиції перед ходом чорних"};
inline constexpr TUserText NoInfoOfTypeText = {.pl = "Brak informacji o pozycjach tego typu",
                                               .en = "No information about positions of this type",
                                               .uk = "Немає інформації про позиції цього типу"};
inline constexpr TUserText NoStepBeforeBlackText = {
    .pl = "Brak informacji o pozycjach przed ruchem czarnych",
    .en = "No info about positions before Black's move",
    .uk = "Немає інформації про позиції перед ходом чорних"};
inline constexpr TUserText NoStepOfTypeText = {.pl = "Brak informacji o pozycjach tego typu",
                                               .en = "No info on positions of this type",
                                               .uk = "Немає інформації про позиції цього типу"};
inline constexpr TUserText NoMateInPositionText = {.pl = "Brak mata w tej pozycji",
                                                   .en = "No mate in this position",
                                                   .uk = "У цій позиції мату немає"};
inline constexpr TUserText NoDataOnPositionText = {.pl = "Brak danych o tej pozycji",
                                                   .en = "No data about this position",
                                                   .uk = "Немає даних про цю позицію"};
/// Comes behind one of the two above, or "#n".
inline constexpr TUserText PositionIndexText = {.pl = " (indeks tej pozycji: %s)",
                                                .en = " (index of this position: %s)",
                                                .uk = " (індекс цієї позиції: %s)"};
inline constexpr TUserText ExpectedIntegerText = {.pl = "Oczekiwano liczby całkowitej",
                                                  .en = "Expected a integer number",
                                                  .uk = "Очікувалося ціле число"};
inline constexpr TUserText NoMorePositionsText = {
    .pl = "Nie ma więcej takich pozycji. Czy zacząć poszukiwanie od początku?",
    .en = "There are no more such positions. Start the search from the beginning?",
    .uk = "Таких позицій більше немає. Почати пошук спочатку?"};

inline constexpr std::array AllRegisterTexts = {
    &NoCustomTypeText,        &GenerationQuotaText,  &PartialDataText,
    &AskSaveDecompressedText, &FileSavedText,        &ErrorSavingFileText,
    &AskKeepPackedText,       &AskPackSimpleText,    &AskPackLzwText,
    &AskPackLz4eText,         &PackedDoneText,       &PackingErrorText,
    &RegisterSizeText,        &RegistersPendingText, &RegisterLoadingText,
    &RegisterDetailsText,     &RegisterLineText,     &RegisterUnavailableText,
    &NoInfoBeforeBlackText,   &NoInfoOfTypeText,     &NoStepBeforeBlackText,
    &NoStepOfTypeText,        &NoMateInPositionText, &NoDataOnPositionText,
    &PositionIndexText,       &ExpectedIntegerText,  &NoMorePositionsText};

}  // namespace tarnwick
