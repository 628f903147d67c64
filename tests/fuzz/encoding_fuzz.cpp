// Any bytes: the conversions neither fail nor loop, what they write is valid, and a text that was read
// and written once is not changed by a second time.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/encoding.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarnwick;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::wstring wide = FromUtf8(bytes);
    const std::string written = ToUtf8(wide);
    const bool bLawsHold = IsValidUtf8(written) && FromUtf8(written) == wide &&
                           (written == bytes) == IsValidUtf8(bytes) &&
                           IsValidUtf8(ToUtf8(FromWindows1250(bytes)));
    if (!bLawsHold) {
        std::abort();
    }
    return 0;
}
