#pragma once
// Several pictures in one stream, between tarnwick-cli and the program that paints for it: each is its
// length in decimal digits, a line end, and its bytes.

#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

std::string PictureFrame(std::string_view picture);

/// Cuts the next picture off the stream; nothing, and the stream as it was, if it is at its end or no
/// whole frame follows.
std::optional<std::string_view> TakePictureFrame(std::string_view& stream);

}  // namespace tarnwick
