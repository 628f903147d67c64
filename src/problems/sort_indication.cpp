#include "problems/sort_indication.h"

#include <charconv>

#include "base/chess_exception.h"
#include "base/encoding.h"

#include "chess/board_tables.h"
#include "chess/fen.h"
#include "chess/trimmed_text.h"
#include "problems/problem_texts.h"

namespace tarnwick {
namespace {

constexpr std::size_t MaxShownBytes = 200;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

[[noreturn]] void ThrowInvalid(std::string_view item) {
    throw ChessException(UserText(InvalidSortIndicationText) + std::string(": ") +
                         ToValidUtf8(item.substr(0, MaxShownBytes)));
}

bool TakePrefix(std::string_view& text, std::string_view prefix) {
    if (!text.starts_with(prefix)) {
        return false;
    }
    text.remove_prefix(prefix.size());
    return true;
}

TCheckKind TakeCheckKind(std::string_view& text) {
    auto kind = TCheckKind::Any;
    if (text.ends_with("++")) {
        kind = TCheckKind::Double;
        text.remove_suffix(2);
    } else if (text.ends_with('+')) {
        kind = TCheckKind::Single;
        text.remove_suffix(1);
    }
    return kind;
}

int TakeMoveNumber(std::string_view& text, std::string_view item) {
    const std::size_t dot = text.find('.');
    if (dot == std::string_view::npos) {
        return 0;
    }
    const std::string_view number = Trimmed(text.substr(0, dot));
    int value = 0;
    const auto [end, error] = std::from_chars(number.begin(), number.end(), value);
    if (error != std::errc{} || end != number.end() || value < 0) {
        ThrowInvalid(item);
    }
    text = Trimmed(text.substr(dot + 1));
    return value;
}

/// A letter in front of anything but a digit; with a digit it would be a field.
TFigureCode TakeFigure(std::string_view& text) {
    if (text.empty() || !IsLetter(text[0]) || (text.size() > 1 && IsDigit(text[1]))) {
        return EmptyField;
    }
    const TFigureCode figure = WhiteFlag | FigureCodeFromLetter(text[0]);
    text.remove_prefix(1);
    return figure;
}

void ReadCastling(TSortIndication& indication, std::string_view text, std::string_view item) {
    if (text != "0-0" && text != "0-0-0") {
        ThrowInvalid(item);
    }
    indication.m_from = E1;
    indication.m_to = text == "0-0" ? G1 : C1;
}

TCaptureKind TakeCaptureKind(std::string_view& text) {
    if (TakePrefix(text, ":")) {
        return TCaptureKind::Capture;
    }
    if (TakePrefix(text, ">")) {
        return TCaptureKind::NoCapture;
    }
    TakePrefix(text, "-");
    return TCaptureKind::Either;
}

void ReadFields(TSortIndication& indication, std::string_view text, std::string_view item) {
    const bool bHasSign = text.find_first_of(":>-") != std::string_view::npos;
    if (text.size() >= 2 && IsLetter(text[0]) && bHasSign) {
        indication.m_from = String2Field(text.substr(0, 2));
        text.remove_prefix(2);
    }
    indication.m_capture = TakeCaptureKind(text);
    if (text.size() < 2 || text.size() > 3 || !IsLetter(text[0])) {
        ThrowInvalid(item);
    }
    indication.m_to = String2Field(text.substr(0, 2));
    if (text.size() == 3) {
        indication.m_promotion = FigureCodeFromLetter(text[2]);
    }
}

char LetterOf(TFigureCode code) {
    return CodeToLetter[TypeOf(code)];
}

bool IsWrittenAsCastling(const TSortIndication& indication) {
    return indication.m_figure == EmptyField && indication.m_from == E1 &&
           (indication.m_to == C1 || indication.m_to == G1) &&
           indication.m_capture == TCaptureKind::Either && indication.m_promotion == 0;
}

std::string MoveOfIndication(const TSortIndication& indication) {
    if (IsWrittenAsCastling(indication)) {
        return indication.m_to == G1 ? "0-0" : "0-0-0";
    }
    std::string text;
    if (indication.m_figure != EmptyField) {
        text += LetterOf(indication.m_figure);
    }
    const bool bHasFrom = indication.m_from != NoField;
    if (bHasFrom) {
        text += FieldName(indication.m_from);
    }
    if (indication.m_capture != TCaptureKind::Either) {
        text += indication.m_capture == TCaptureKind::Capture ? ':' : '>';
    } else if (bHasFrom) {
        text += '-';
    }
    text += FieldName(indication.m_to);
    if (indication.m_promotion != 0) {
        text += LetterOf(indication.m_promotion);
    }
    return text;
}

void AppendIndication(std::string& text, const TSortIndication& indication) {
    if (indication.m_bNegated) {
        text += '~';
    }
    if (indication.m_moveNumber != 0) {
        text += std::to_string(indication.m_moveNumber) + '.';
    }
    text += MoveOfIndication(indication);
    text.append(static_cast<std::size_t>(indication.m_check), '+');
}

}  // namespace

TSortIndication ParseSortIndication(std::string_view text) {
    const std::string_view item = Trimmed(text);
    if (item.empty()) {
        throw ChessException(UserText(InvalidSortIndicationText));
    }
    std::string_view rest = item;
    TSortIndication indication;
    indication.m_check = TakeCheckKind(rest);
    indication.m_bNegated = TakePrefix(rest, "~");
    indication.m_moveNumber = TakeMoveNumber(rest, item);
    rest = Trimmed(rest);
    indication.m_figure = TakeFigure(rest);
    if (rest.starts_with('0')) {
        ReadCastling(indication, rest, item);
    } else {
        ReadFields(indication, rest, item);
    }
    return indication;
}

TSortIndications ParseSortIndications(std::string_view text) {
    TSortIndications indications;
    text = Trimmed(text);
    if (text.empty()) {
        return indications;
    }
    const char separator = text.find(',') != std::string_view::npos ? ',' : ';';
    std::size_t at = 0;
    while (at <= text.size()) {
        const std::size_t end = std::min(text.find(separator, at), text.size());
        const TSortIndication indication = ParseSortIndication(text.substr(at, end - at));
        indications[indication.m_moveNumber].push_back(indication);
        at = end + 1;
    }
    return indications;
}

std::string SortIndicationsToText(const TSortIndications& indications) {
    std::string text;
    for (const auto& [number, list] : indications) {
        for (const TSortIndication& indication : list) {
            if (!text.empty()) {
                text += "; ";
            }
            AppendIndication(text, indication);
        }
    }
    return text;
}

}  // namespace tarnwick
