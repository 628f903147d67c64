// Any bytes as the text of an identifier, as the fields of a board and as a position type: refused, or
// the same again after the way back.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "base/chess_exception.h"
#include "base/little_endian.h"

#include "chess/chessboard_id.h"

namespace {

using namespace tarnwick;

constexpr std::string_view Digits32 = "0123456789abcdefghijklmnopqrstuv";

void Require(bool bLawHolds) {
    if (!bLawHolds) {
        std::abort();
    }
}

bool IsUpper(char c) {
    return c >= 'A' && c <= 'Z';
}
bool IsLower(char c) {
    return c >= 'a' && c <= 'z';
}

/// The case bits must give the text back from its lower-case form.
void RequireCaseIsKept(std::string_view text) {
    const std::string bits = CaseBitsToAlphanum5(text);
    std::size_t letter = 0;
    for (const char c : text) {
        if (IsUpper(c) || IsLower(c)) {
            Require(letter / 5 < bits.size());
            const std::size_t digit = Digits32.find(bits[letter / 5]);
            Require(((digit >> (letter % 5)) & 1) == (IsUpper(c) ? 1U : 0U));
            ++letter;
        }
    }
    Require(bits.size() == (letter + 4) / 5);
}

/// What the id holds is a board: an identifier built from it starts with the same bits.
void RequireSameBoardAgain(const TChessboardId& id, const std::string& text) {
    TChessboard board = EmptyChessboard();
    try {
        id.ToBoard(board.m_fields);
    } catch (const ChessException&) {
        return;
    }
    const TChessboardId built = TChessboardId::Build(board);
    const std::string shortest = ToAlphanum6(built);
    Require(text.compare(0, shortest.size() - 1, shortest, 0, shortest.size() - 1) == 0);
    TChessboard again = EmptyChessboard();
    built.ToBoard(again.m_fields);
    Require(std::ranges::equal(board.m_fields, again.m_fields));
    Require(SolvedProblemName(id).find(text + '.') != std::string::npos);
}

void TryText(std::string_view text) {
    TChessboardId id;
    try {
        if (!id.FromAlphanum6(text)) {
            Require(id.BitCount() == 0);
            return;
        }
    } catch (const ChessException&) {
        return;
    }
    Require(ToAlphanum6(id) == text);
    RequireSameBoardAgain(id, std::string(text));
}

void TryFields(std::string_view bytes) {
    TChessboard board = EmptyChessboard();
    std::memcpy(board.m_fields, bytes.data(), std::min(bytes.size(), sizeof board.m_fields));
    try {
        const TChessboardId id = TChessboardId::Build(board);
        TChessboardId read;
        Require(read.FromAlphanum6(ToAlphanum6(id)));
        TChessboard again = EmptyChessboard();
        read.ToBoard(again.m_fields);
        Require(std::ranges::equal(again.m_fields, board.m_fields,
                                   [](int a, int b) { return a == (b & ~MarkBit); }));
    } catch (const ChessException&) {
    }
}

void TryPositionType(std::string_view bytes) {
    std::uint8_t number[8] = {};
    std::memcpy(number, bytes.data(), std::min(bytes.size(), sizeof number));
    const auto type = LoadLittleEndian<std::uint64_t>(number);
    const std::string name = PositionTypeName(type);
    std::uint64_t digits = 0;
    for (const char letter : name) {
        digits = (digits << 4) | (std::string_view("QRBNPqrbnpXx").find(letter) + 1);
    }
    Require(name.empty() || digits == type >> 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    RequireCaseIsKept(bytes);
    TryText(bytes);
    TryFields(bytes);
    TryPositionType(bytes);
    return 0;
}
