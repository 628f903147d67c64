#include "diagram/picture_frames.h"

#include <charconv>

namespace tarnwick {

std::string PictureFrame(std::string_view picture) {
    return std::to_string(picture.size()) + '\n' + std::string(picture);
}

std::optional<std::string_view> TakePictureFrame(std::string_view& stream) {
    std::size_t length = 0;
    const char* const end = stream.data() + stream.size();
    const auto [stop, error] = std::from_chars(stream.data(), end, length);
    if (error != std::errc() || stop == end || *stop != '\n') {
        return std::nullopt;
    }
    const std::string_view rest = stream.substr(static_cast<std::size_t>(stop - stream.data()) + 1);
    if (length > rest.size()) {
        return std::nullopt;
    }
    stream = rest.substr(length);
    return rest.substr(0, length);
}

}  // namespace tarnwick
