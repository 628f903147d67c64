#pragma once

// What reading and writing the registers' files says to the user. The fixed texts name the operation
// that failed, for users who ask for help with a file; they are the same in all languages.

#include "base/file_fault_texts.h"
#include "base/language.h"

namespace tarnwick {

inline constexpr TUserText TextDamagedRecords = {
    .pl = "Uszkodzone zapisy", .en = "Damaged records", .uk = "Пошкоджені записи"};
// Each is followed by a number.
inline constexpr TUserText TextRecordsLoaded = {
    .pl = "\nWczytane zapisy: ", .en = "\nRecords loaded: ", .uk = "\nЗавантажені записи: "};
inline constexpr TUserText TextRecordsRefused = {
    .pl = ", odrzucone: ", .en = ", refused: ", .uk = ", відхилені: "};
inline constexpr TUserText TextRecordsLost = {
    .pl = ", utracone: ", .en = ", lost: ", .uk = ", втрачені: "};

inline constexpr const char* TextErrorAllocatingMemory = "Error allocating memory";
inline constexpr const char* TextErrorReadingRegister =
    "Error reading file in TAggregatedTemporaryChessboardRegister::Load";
inline constexpr const char* TextCannotWriteRecord =
    "Cannot write to file in TRegisterCombinedMap::SaveExact";
inline constexpr const char* TextCannotWriteSection =
    "Cannot write in TAggregatedTemporaryChessboardRegister::SaveExact";

}  // namespace tarnwick
