#pragma once

// What reading and writing the registers' files says to the user. The fixed texts name the operation
// that failed, for users who ask for help with a file; they are the same in all languages.

#include <cstdint>
#include <string>

#include "base/language.h"

namespace tarnwick {

/// Followed by the file's name.
inline constexpr TUserText TextCannotOpenRegisterFile = {
    .pl = "Błąd otwarcia pliku: ", .en = "Error opening file: ", .uk = "Помилка відкриття файлу: "};

inline constexpr TUserText TextErrorReadingFile = {
    .pl = "Błąd odczytu pliku", .en = "Error reading file", .uk = "Помилка читання файлу"};

inline constexpr TUserText TextDamagedPackedData = {.pl = "Uszkodzone dane spakowane",
                                                    .en = "Damaged packed data",
                                                    .uk = "Пошкоджені стиснені дані"};

inline constexpr TUserText TextDamagedRecords = {
    .pl = "Uszkodzone zapisy", .en = "Damaged records", .uk = "Пошкоджені записи"};
// Each is followed by a number.
inline constexpr TUserText TextRecordsLoaded = {
    .pl = "\nWczytane zapisy: ", .en = "\nRecords loaded: ", .uk = "\nЗавантажені записи: "};
inline constexpr TUserText TextRecordsRefused = {
    .pl = ", odrzucone: ", .en = ", refused: ", .uk = ", відхилені: "};
inline constexpr TUserText TextRecordsLost = {
    .pl = ", utracone: ", .en = ", lost: ", .uk = ", втрачені: "};

/// Follows a fault: the file's name comes behind it, then TextAtOffset and the number.
inline constexpr TUserText TextInFile = {.pl = " w pliku ", .en = " in file ", .uk = " у файлі "};
inline constexpr TUserText TextAtOffset = {
    .pl = ", pozycja w bajtach: ", .en = ", offset in bytes: ", .uk = ", позиція в байтах: "};

inline constexpr const char* TextErrorAllocatingMemory = "Error allocating memory";
inline constexpr const char* TextErrorReadingRegister =
    "Error reading file in TAggregatedTemporaryChessboardRegister::Load";
inline constexpr const char* TextCannotWriteRecord =
    "Cannot write to file in TRegisterCombinedMap::SaveExact";
inline constexpr const char* TextCannotWriteSection =
    "Cannot write in TAggregatedTemporaryChessboardRegister::SaveExact";

/// "Damaged packed data in file NAME, offset in bytes: 17".
inline std::string FaultInFile(const TUserText& fault, const std::string& name,
                               std::uint64_t offset) {
    return UserText(fault) + (UserText(TextInFile) + name) + UserText(TextAtOffset) +
           std::to_string(offset);
}

}  // namespace tarnwick
