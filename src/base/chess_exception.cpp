#include "base/chess_exception.h"

namespace tarnwick {

ChessException::ChessException(const std::string& userText) : std::runtime_error(userText) {}

// Defined here so that the class has one vtable, in this object file.
ChessException::~ChessException() = default;

}  // namespace tarnwick
